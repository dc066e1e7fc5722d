#include "zt_anl/solve/modal_history.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "zt_anl/solve/oscillator.h"
#include "zt_db/units/exact_units.h"

namespace zt {
namespace {

using Eigen::Index;
using Eigen::MatrixXd;
using Eigen::VectorXd;

/// Times that lie closer than this share of a step are one.
constexpr double kSameTime = 1.0e-7;
/// Stretches of time whose lengths differ by less, in shares of a step, differ by rounding alone.
constexpr double kSameLength = 1.0e-11;

/// The place of a driving case among the static load cases of a history.
std::size_t PlaceOf(const std::vector<std::uint32_t>& cases, std::uint32_t stld) {
    return static_cast<std::size_t>(std::find(cases.begin(), cases.end(), stld) - cases.begin());
}

double Between(const T_THFC_POINT& a, const T_THFC_POINT& b, double time) {
    return std::lerp(a.value, b.value, (time - a.time) / (b.time - a.time));
}

/// A time function that a case drives with, in the time of the case.
class Drive {
public:
    Drive(const T_THFC_D& function, const T_THLC_ITEM& item, double tolerance)
        : points_(&function.points), arrival_(item.arrival), tolerance_(tolerance) {}

    /// At a time: what lies on a point has its value, the last one where the function jumps.
    double At(double time) const {
        const double own = time - arrival_;
        const auto next = FirstBehind(own + tolerance_);
        if (next == points_->begin()) return 0.0;
        const auto& last = *(next - 1);
        if (own <= last.time + tolerance_) return last.value;
        return next == points_->end() ? 0.0 : Between(last, *next, own);
    }
    /// At both ends of a stretch of time that holds no point.
    std::array<double, 2> Over(double from, double to) const {
        const auto next = FirstBehind(0.5 * (from + to) - arrival_);
        if (next == points_->begin() || next == points_->end()) return {0.0, 0.0};
        return {Between(*(next - 1), *next, from - arrival_), Between(*(next - 1), *next, to - arrival_)};
    }
    void AddTimes(double duration, std::vector<double>& times) const {
        for (const T_THFC_POINT& point : *points_) {
            const double time = point.time + arrival_;
            if (time > 0.0 && time < duration) times.push_back(time);
        }
    }

private:
    std::vector<T_THFC_POINT>::const_iterator FirstBehind(double time) const {
        return std::upper_bound(points_->begin(), points_->end(), time,
                                [](double value, const T_THFC_POINT& point) { return value < point.time; });
    }

    const std::vector<T_THFC_POINT>* points_;
    double arrival_;
    double tolerance_;
};

class ModalIntegration {
public:
    ModalIntegration(const ModalResult& modal, const HistoryCase& of, const std::vector<std::vector<NodeVector>>& nodal)
        : record_(of.record), cases_(DrivingCases(of.record)), modes_(static_cast<Index>(modal.modes.size())) {
        const auto items = static_cast<Index>(record_.items.size());
        omegas_.resize(modes_);
        for (Index i = 0; i < modes_; ++i) {
            omegas_(i) = 2.0 * std::numbers::pi * modal.modes[static_cast<std::size_t>(i)].frequency;
        }
        forces_ = MatrixXd::Zero(modes_, items);
        ground_ = MatrixXd::Zero(3, items);
        loads_ = MatrixXd::Zero(static_cast<Index>(cases_.size()), items);
        for (std::size_t i = 0; i < record_.items.size(); ++i) {
            drives_.emplace_back(of.functions[i], record_.items[i], kSameTime * record_.step);
            drives_.back().AddTimes(record_.duration, breaks_);
            PutItem(modal, static_cast<Index>(i), nodal);
        }
        std::sort(breaks_.begin(), breaks_.end());
        coordinates_ = speeds_ = VectorXd::Zero(modes_);
    }

    ModalHistory Run() {
        const auto states = static_cast<Index>(StatesOf(record_));
        ModalHistory history{.step = record_.step};
        history.coordinates.resize(modes_, states);
        history.speeds.resize(modes_, states);
        history.accelerations.resize(modes_, states);
        history.ground.resize(3, states);
        history.loads.resize(loads_.rows(), states);
        for (Index state = 0; state < states; ++state) {
            const double time = static_cast<double>(state) * record_.step;
            if (state > 0) GoTo(time);
            Store(time, state, history);
        }
        return history;
    }

private:
    /// What one unit of the function of an item does to modes, ground and loads.
    void PutItem(const ModalResult& modal, Index at, const std::vector<std::vector<NodeVector>>& nodal) {
        const T_THLC_ITEM& item = record_.items[static_cast<std::size_t>(at)];
        if (item.stld != 0) {
            const std::size_t place = PlaceOf(cases_, item.stld);
            loads_(static_cast<Index>(place), at) = item.scale;
            for (Index i = 0; i < modes_; ++i) {
                forces_(i, at) = item.scale * WorkOn(modal.modes[static_cast<std::size_t>(i)].shape, nodal[place]);
            }
            return;
        }
        const Vector3 direction = GroundDirectionOf(item.direction, item.angle);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const double acceleration = direction[axis] * item.scale * kGravity;
            ground_(static_cast<Index>(axis), at) = acceleration;
            for (Index i = 0; i < modes_; ++i) {
                forces_(i, at) -= acceleration * modal.modes[static_cast<std::size_t>(i)].participation[axis];
            }
        }
    }

    VectorXd DrivesAt(double time) const {
        VectorXd values(static_cast<Index>(drives_.size()));
        for (std::size_t i = 0; i < drives_.size(); ++i) values(static_cast<Index>(i)) = drives_[i].At(time);
        return values;
    }
    /// To the next state, from point to point of the functions.
    void GoTo(double time) {
        const double tolerance = kSameTime * record_.step;
        for (; nextBreak_ < breaks_.size() && breaks_[nextBreak_] < time - tolerance; ++nextBreak_) {
            if (breaks_[nextBreak_] > time_ + tolerance) StepTo(breaks_[nextBreak_]);
        }
        StepTo(time);
    }
    void StepTo(double time) {
        MatrixXd drives(static_cast<Index>(drives_.size()), 2);
        for (std::size_t i = 0; i < drives_.size(); ++i) {
            const auto [first, last] = drives_[i].Over(time_, time);
            drives.row(static_cast<Index>(i)) << first, last;
        }
        const MatrixXd loads = forces_ * drives;
        PrepareSteps(time - time_);
        for (Index i = 0; i < modes_; ++i) {
            const auto end = [&, coordinate = coordinates_(i), speed = speeds_(i)](const OscillatorStep::Factors& by) {
                return by.coordinate * coordinate + by.speed * speed + by.firstLoad * loads(i, 0) +
                       by.lastLoad * loads(i, 1);
            };
            const OscillatorStep& step = steps_[static_cast<std::size_t>(i)];
            coordinates_(i) = end(step.ofCoordinate);
            speeds_(i) = end(step.ofSpeed);
        }
        time_ = time;
    }
    void PrepareSteps(double length) {
        if (std::abs(length - length_) <= kSameLength * record_.step) return;
        length_ = length;
        steps_.clear();
        for (Index i = 0; i < modes_; ++i) steps_.push_back(OscillatorStepOf(omegas_(i), record_.damping, length));
    }
    void Store(double time, Index state, ModalHistory& history) const {
        const VectorXd drives = DrivesAt(time);
        history.coordinates.col(state) = coordinates_;
        history.speeds.col(state) = speeds_;
        history.accelerations.col(state) = forces_ * drives - 2.0 * record_.damping * omegas_.cwiseProduct(speeds_) -
                                           omegas_.cwiseAbs2().cwiseProduct(coordinates_);
        history.ground.col(state) = ground_ * drives;
        history.loads.col(state) = loads_ * drives;
    }

    const T_THLC_D& record_;
    std::vector<std::uint32_t> cases_;
    Index modes_;
    VectorXd omegas_;
    std::vector<Drive> drives_;
    MatrixXd forces_;  ///< on the modes, for each item
    MatrixXd ground_;
    MatrixXd loads_;
    std::vector<double> breaks_;  ///< times of points, ascending
    std::size_t nextBreak_ = 0;
    double time_ = 0.0;
    VectorXd coordinates_;
    VectorXd speeds_;
    double length_ = 0.0;  ///< that the steps are made for
    std::vector<OscillatorStep> steps_;
};

}  // namespace

std::vector<std::uint32_t> DrivingCases(const T_THLC_D& record) {
    std::vector<std::uint32_t> cases;
    for (const T_THLC_ITEM& item : record.items) {
        if (item.stld != 0 && PlaceOf(cases, item.stld) == cases.size()) cases.push_back(item.stld);
    }
    return cases;
}

double WorkOn(const std::vector<NodeVector>& shape, const std::vector<NodeVector>& forces) {
    double work = 0.0;
    for (std::size_t node = 0; node < forces.size(); ++node) {
        for (std::size_t i = 0; i < kFreedoms; ++i) work += forces[node][i] * shape[node][i];
    }
    return work;
}

ModalHistory IntegrateModes(const ModalResult& modal, const HistoryCase& of,
                            const std::vector<std::vector<NodeVector>>& nodal) {
    return ModalIntegration(modal, of, nodal).Run();
}

}  // namespace zt
