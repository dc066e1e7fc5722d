#include "zt_db/post/this_info.h"

#include <cmath>

namespace zt {
namespace {

constexpr std::array<int, 6> kDisplacement{Unit::Length, Unit::Length, Unit::Length,
                                           Unit::None,   Unit::None,   Unit::None};
constexpr std::array<int, 6> kVelocity{Unit::Velocity, Unit::Velocity, Unit::Velocity,
                                       Unit::None,     Unit::None,     Unit::None};
constexpr std::array<int, 6> kAcceleration{Unit::Acceleration, Unit::Acceleration, Unit::Acceleration,
                                           Unit::None,         Unit::None,         Unit::None};
constexpr std::array<int, 6> kForce{Unit::Force, Unit::Force, Unit::Force, Unit::Moment, Unit::Moment, Unit::Moment};

}  // namespace

ResultArray CThisInfo::ArrayOf(std::string_view quantity, std::string_view suffix) const {
    const ResultSource* results = control_.Database().Results();
    if (!results || control_.SelectedThlc() == 0) return {};
    return results->Array(CasePath(LoadCaseKind::TimeHistory, control_.SelectedThlc(), quantity, suffix));
}

int CThisInfo::Read(std::string_view quantity, std::uint32_t place, const std::array<int, 6>& units, int subKind,
                    T_TIMED_D& values) const {
    const ResultArray max = ArrayOf(quantity, ResultName::Max);
    const ResultArray min = ArrayOf(quantity, ResultName::Min);
    if (place == CPostDataBase::kNoPlace || place >= max.Rows() || place >= min.Rows()) return 0;
    const ResultArray maxTime = ArrayOf(quantity, ResultName::MaxTime);
    const ResultArray minTime = ArrayOf(quantity, ResultName::MinTime);
    for (std::size_t i = 0; i < values.value.size(); ++i) {
        const double greatest = max.At(place, i);
        const double least = min.At(place, i);
        const bool isMax = subKind == LoadCaseSubKind::Min   ? false
                           : subKind == LoadCaseSubKind::All ? std::abs(greatest) >= std::abs(least)
                                                             : true;
        values.value[i] = control_.Units().ToCurrent(units[i], isMax ? greatest : least);
        values.time[i] = (isMax ? maxTime : minTime).At(place, i);
    }
    return 1;
}

int CThisInfo::GetDispWithTime(std::uint32_t node, int subKind, T_TIMED_D& values) const {
    return Read(ResultName::Displacement, control_.Database().PlaceOfNode(node), kDisplacement, subKind, values);
}
int CThisInfo::GetVeloWithTime(std::uint32_t node, int subKind, T_TIMED_D& values) const {
    return Read(ResultName::Velocity, control_.Database().PlaceOfNode(node), kVelocity, subKind, values);
}
int CThisInfo::GetAcclWithTime(std::uint32_t node, int subKind, T_TIMED_D& values) const {
    return Read(ResultName::AbsoluteAcceleration, control_.Database().PlaceOfNode(node), kAcceleration, subKind,
                values);
}
int CThisInfo::GetRAcclWithTime(std::uint32_t node, int subKind, T_TIMED_D& values) const {
    return Read(ResultName::RelativeAcceleration, control_.Database().PlaceOfNode(node), kAcceleration, subKind,
                values);
}
int CThisInfo::GetReacWithTime(std::uint32_t node, int subKind, T_TIMED_D& values) const {
    return Read(ResultName::Reaction, control_.Database().PlaceOfSupport(node), kForce, subKind, values);
}
int CThisInfo::GetElnkWithTime(std::uint32_t link, int subKind, T_TIMED_D& values) const {
    return Read(ResultName::LinkForce, control_.Database().PlaceOfLink(link), kForce, subKind, values);
}

std::size_t CThisInfo::GetStateCount() const { return ArrayOf(ResultName::Coordinate).Rows(); }

double CThisInfo::GetTimeOfState(std::size_t state) const {
    return static_cast<double>(state) * ArrayOf(ResultName::Step).At(0, 0);
}

/// What the modes leave of the displacements by loads that drive.
void CThisInfo::AddRemainders(std::uint32_t place, std::size_t state, T_DISP_D& sum) const {
    const ResultArray factors = ArrayOf(ResultName::LoadFactor);
    for (std::size_t load = 0; load < factors.Columns(); ++load) {
        const ResultArray remainder = ArrayOf(ResultName::Remainder, std::to_string(load + 1));
        const double factor = factors.At(state, load);
        for (std::size_t i = 0; i < sum.value.size(); ++i) sum.value[i] += factor * remainder.At(place, i);
    }
}

int CThisInfo::GetDispOfState(std::uint32_t node, std::size_t state, T_DISP_D& displacement) const {
    const ResultArray coordinates = ArrayOf(ResultName::Coordinate);
    if (state >= coordinates.Rows()) return 0;
    T_DISP_D sum;
    for (std::size_t mode = 0; mode < coordinates.Columns(); ++mode) {
        T_DISP_D shape;
        if (!control_.GetEiMode(static_cast<int>(mode + 1), node, shape)) return 0;
        const double coordinate = coordinates.At(state, mode);
        for (std::size_t i = 0; i < sum.value.size(); ++i) sum.value[i] += coordinate * shape.value[i];
    }
    AddRemainders(control_.Database().PlaceOfNode(node), state, sum);
    for (std::size_t i = 0; i < sum.value.size(); ++i) {
        displacement.value[i] = control_.Units().ToCurrent(kDisplacement[i], sum.value[i]);
    }
    return 1;
}

}  // namespace zt
