#include "zt_db/post/post_ctrl.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "zt_db/doc/mdb_ctrl.h"

namespace zt {
namespace {

constexpr std::size_t kComponents = 6;
constexpr std::array<int, kComponents> kDisplacementUnits{Unit::Length, Unit::Length, Unit::Length,
                                                          Unit::None,   Unit::None,   Unit::None};
constexpr std::array<int, kComponents> kForceUnits{Unit::Force,  Unit::Force,  Unit::Force,
                                                   Unit::Moment, Unit::Moment, Unit::Moment};
constexpr std::array<int, 2 * kComponents> kLinkUnits{Unit::Force,  Unit::Force,  Unit::Force,  Unit::Moment,
                                                      Unit::Moment, Unit::Moment, Unit::Force,  Unit::Force,
                                                      Unit::Force,  Unit::Moment, Unit::Moment, Unit::Moment};

constexpr double kEighths[] = {0.0, 0.125, 0.25, 0.375, 0.5, 0.625, 0.75, 0.875, 1.0};
constexpr double kBottomToTop[] = {0.0, 1.0, 1.0 / 3.0, 2.0 / 3.0};
constexpr double kTopToBottom[] = {1.0, 0.0, 2.0 / 3.0, 1.0 / 3.0};
constexpr double kEnds[] = {0.0, 1.0};

/// The name of a case of any kind; false when there is none.
bool NameOfCase(const CPostDataBase& database, int kind, std::uint32_t key, std::string& name) {
    if (kind == LoadCaseKind::Combination) {
        T_PLCOM_D combination;
        const bool exists = CClassPLcom(&database).Get(key, combination) != 0;
        name = combination.name;
        return exists;
    }
    if (!database.Results()) return false;
    for (const ResultCase& one : database.Results()->Cases()) {
        if (one.kind != kind || one.key != key) continue;
        name = one.name;
        return true;
    }
    return false;
}

/// Puts one of the three values of each bound into the outputs that are wanted.
template <class Record, class Place>
void PutBounds(const LoadCursor::Row& bounds, std::size_t count, const int* codes, const CUnitCtrl& units,
               const std::array<Record*, 3>& outputs, Place place) {
    for (std::size_t i = 0; i < count; ++i) {
        const double values[] = {bounds[i].Governing(), bounds[i].max, bounds[i].min};
        for (std::size_t k = 0; k < outputs.size(); ++k) {
            if (outputs[k]) place(*outputs[k])[i] = units.ToCurrent(codes[i], values[k]);
        }
    }
}

}  // namespace

CPostCtrl::CPostCtrl(const CMDBCtrl& databases, const CUnitCtrl& units) : databases_(databases), units_(units) {}

const CPostDataBase& CPostCtrl::Database() const { return *databases_.GetDBPost(); }

int CPostCtrl::IsPostEnable() const { return Database().Results() ? 1 : 0; }

// ---- load cases ----

int CPostCtrl::MakeLoadComb(int kind, std::uint32_t key, T_PLCOM_D& combination) const {
    std::string name;
    if (!NameOfCase(Database(), kind, key, name)) return 0;
    combination = {.name = std::move(name), .items = {{kind, key, 1.0}}};
    return 1;
}

int CPostCtrl::SelectLoadComb(const T_PLCOM_D& combination, int, int) {
    opened_ = Database().Results();
    return cursor_.Open(Database(), combination) ? 1 : 0;
}

int CPostCtrl::SelectLoadComb(int kind, std::uint32_t key) {
    T_PLCOM_D combination;
    return MakeLoadComb(kind, key, combination) ? SelectLoadComb(combination) : 0;
}

// ---- nodes and links ----

void CPostCtrl::PutSizes(const T_UNIT_INDEX& current) const {
    const auto put = [this](RowUnits units, std::span<const int> codes) {
        for (std::size_t i = 0; i < codes.size(); ++i) {
            sizes_[static_cast<std::size_t>(units)][i] = units_.ToBase(codes[i], 1.0);
        }
    };
    put(RowUnits::Displacements, kDisplacementUnits);
    put(RowUnits::Forces, kForceUnits);
    put(RowUnits::LinkForces, kLinkUnits);
    sizedUnits_ = current;
}

template <std::size_t Count, class Record>
int CPostCtrl::GetRow(ResultQuantity quantity, std::uint32_t place, RowUnits units,
                      const Outputs<Record>& outputs) const {
    if (opened_ != Database().Results() || place == CPostDataBase::kNoPlace) return 0;
    const double* sizes = SizesOf(units);
    if (const double* row = cursor_.PlainRow(quantity, place, Count)) {
        for (Record* output : outputs) {
            for (std::size_t i = 0; output && i < Count; ++i) output->value[i] = row[i] / sizes[i];
        }
        return 1;
    }
    LoadCursor::Row bounds;
    if (!cursor_.Read(quantity, place, Count, bounds)) return 0;
    for (std::size_t i = 0; i < Count; ++i) {
        const double values[] = {bounds[i].Governing(), bounds[i].max, bounds[i].min};
        for (std::size_t k = 0; k < outputs.size(); ++k) {
            if (outputs[k]) outputs[k]->value[i] = values[k] / sizes[i];
        }
    }
    return 1;
}

int CPostCtrl::GetDisp(std::uint32_t node, T_DISP_D* all, T_DISP_D* max, T_DISP_D* min) const {
    return GetRow<kComponents>(ResultQuantity::Displacement, Database().PlaceOfNode(node), RowUnits::Displacements,
                               Outputs<T_DISP_D>{all, max, min});
}

int CPostCtrl::GetReac(std::uint32_t node, T_REAC_D* all, T_REAC_D* max, T_REAC_D* min) const {
    const Outputs<T_REAC_D> outputs{all, max, min};
    if (node == 0) return SumOfReactions(outputs);
    return GetRow<kComponents>(ResultQuantity::Reaction, Database().PlaceOfSupport(node), RowUnits::Forces, outputs);
}

/// The sum as the run stored it, since the greatest values of nodes do not come at one time; otherwise that of the
/// nodes.
int CPostCtrl::SumOfReactions(const Outputs<T_REAC_D>& outputs) const {
    if (opened_ != Database().Results()) return 0;
    if (cursor_.Has(ResultQuantity::ReactionSum))
        return GetRow<kComponents>(ResultQuantity::ReactionSum, 0, RowUnits::Forces, outputs);
    LoadCursor::Row sum{};
    const CClassPNode nodes(&Database());
    for (const std::uint32_t no : Database().SupportedNodes()) {
        LoadCursor::Row own{};
        T_PNODE_D node;
        if (!cursor_.Read(ResultQuantity::Reaction, Database().PlaceOfSupport(no), kComponents, own)) continue;
        nodes.Get(no, node);
        const double x[] = {units_.ToBase(Unit::Length, node.x), units_.ToBase(Unit::Length, node.y),
                            units_.ToBase(Unit::Length, node.z)};
        for (const auto side : {&Bounds::max, &Bounds::min}) {
            for (std::size_t i = 0; i < 3; ++i) {
                const std::size_t j = (i + 1) % 3;
                const std::size_t k = (i + 2) % 3;
                sum[i].*side += own[i].*side;
                sum[3 + i].*side += own[3 + i].*side + x[j] * (own[k].*side) - x[k] * (own[j].*side);
            }
        }
    }
    PutBounds(sum, kComponents, kForceUnits.data(), units_, outputs,
              [](T_REAC_D& record) { return record.value.data(); });
    return cursor_.Has(ResultQuantity::Reaction) ? 1 : 0;
}

int CPostCtrl::GetElnk(std::uint32_t link, T_ELNK_D* all, T_ELNK_D* max, T_ELNK_D* min) const {
    return GetRow<kLinkUnits.size()>(ResultQuantity::LinkForce, Database().PlaceOfLink(link), RowUnits::LinkForces,
                                     Outputs<T_ELNK_D>{all, max, min});
}

int CPostCtrl::GetSlabForce(std::uint32_t slab, std::uint32_t node, T_REAC_D* all, T_REAC_D* max, T_REAC_D* min) const {
    return GetRow<kComponents>(ResultQuantity::SlabForce, Database().PlaceOfSlabNode(slab, node), RowUnits::Forces,
                               Outputs<T_REAC_D>{all, max, min});
}

// ---- members ----

/// The forces at a place along a member, 0 to 1. Between stations they are taken from the parabola through the three
/// nearest ones, which is exact under uniform loads.
bool CPostCtrl::ForcesAt(ResultQuantity quantity, std::span<const CPostDataBase::Element> elements, double position,
                         LoadCursor::Row& bounds) const {
    constexpr double kNear = 1.0e-9;
    const auto element = std::find_if(elements.begin(), elements.end(),
                                      [&](const CPostDataBase::Element& one) { return position <= one.end + kNear; });
    if (element == elements.end()) return false;
    const std::size_t stations = Database().Results()->Head().stations;
    const std::size_t first = Database().PlaceOfElement(*element) * stations;
    const double length = element->end - element->start;
    const double share = length > 0.0 ? std::clamp((position - element->start) / length, 0.0, 1.0) : 0.0;
    const double at = share * static_cast<double>(stations - 1);
    const auto nearest = static_cast<std::size_t>(std::lround(at));
    const auto read = [&](std::size_t station, LoadCursor::Row& row) {
        return cursor_.Read(quantity, first + station, kComponents, row);
    };
    if (std::abs(at - static_cast<double>(nearest)) < kNear || stations < 3) return read(nearest, bounds);
    const std::size_t middle = std::clamp<std::size_t>(nearest, 1, stations - 2);
    const double t = at - static_cast<double>(middle);
    const double weights[] = {0.5 * t * (t - 1.0), 1.0 - t * t, 0.5 * t * (t + 1.0)};
    bounds = {};
    for (std::size_t i = 0; i < 3; ++i) {
        LoadCursor::Row row{};
        if (!read(middle + i - 1, row)) return false;
        for (std::size_t k = 0; k < kComponents; ++k) {
            bounds[k].max += weights[i] * row[k].max;
            bounds[k].min += weights[i] * row[k].min;
        }
    }
    return true;
}

template <class Record>
int CPostCtrl::GetParts(ResultQuantity quantity, std::uint32_t memb, std::span<const double> positions,
                        const Outputs<Record>& outputs) const {
    if (opened_ != Database().Results() || !opened_) return 0;
    const auto elements = Database().ElementsOfMember(memb);
    std::array<LoadCursor::Row, std::tuple_size_v<decltype(Record::part)>> rows{};
    for (std::size_t i = 0; i < positions.size(); ++i) {
        if (!ForcesAt(quantity, elements, positions[i], rows[i])) return 0;
    }
    for (std::size_t i = 0; i < positions.size(); ++i) {
        PutBounds(rows[i], kComponents, kForceUnits.data(), units_, outputs,
                  [i](Record& record) { return record.part[i].data(); });
    }
    return 1;
}

int CPostCtrl::GetMbgd(std::uint32_t memb, T_FBEM_D* all, T_FBEM_D* max, T_FBEM_D* min) const {
    return GetParts<T_FBEM_D>(ResultQuantity::ElementForce, memb, kEighths, {all, max, min});
}
int CPostCtrl::GetMbcg(std::uint32_t memb, T_FBEM_D* all, T_FBEM_D* max, T_FBEM_D* min) const {
    return GetMbgd(memb, all, max, min);
}
int CPostCtrl::GetMbwg(std::uint32_t memb, T_FBEM_D* all, T_FBEM_D* max, T_FBEM_D* min) const {
    return GetMbgd(memb, all, max, min);
}
int CPostCtrl::GetStwt(std::uint32_t memb, T_FBEM_D* all, T_FBEM_D* max, T_FBEM_D* min) const {
    return GetMbgd(memb, all, max, min);
}
int CPostCtrl::GetMbcl(std::uint32_t memb, T_FCOL_D* all, T_FCOL_D* max, T_FCOL_D* min) const {
    return GetParts<T_FCOL_D>(ResultQuantity::ElementForce, memb, HeightsOf(memb), {all, max, min});
}
int CPostCtrl::GetMbwc(std::uint32_t memb, T_FCOL_D* all, T_FCOL_D* max, T_FCOL_D* min) const {
    return GetMbcl(memb, all, max, min);
}
int CPostCtrl::GetMbbr(std::uint32_t memb, T_FBRC_D* all, T_FBRC_D* max, T_FBRC_D* min) const {
    return GetParts<T_FBRC_D>(ResultQuantity::ElementForce, memb, kEnds, {all, max, min});
}

int CPostCtrl::GetDesignForce(std::uint32_t memb, T_FBEM_D* all, T_FBEM_D* max, T_FBEM_D* min) const {
    if (!Database().IsDesigned(memb)) return 0;
    return GetParts<T_FBEM_D>(ResultQuantity::DesignForce, memb, kEighths, {all, max, min});
}
int CPostCtrl::GetDesignForce(std::uint32_t memb, T_FCOL_D* all, T_FCOL_D* max, T_FCOL_D* min) const {
    if (!Database().IsDesigned(memb)) return 0;
    return GetParts<T_FCOL_D>(ResultQuantity::DesignForce, memb, HeightsOf(memb), {all, max, min});
}
int CPostCtrl::GetDesignForce(std::uint32_t memb, T_FBRC_D* all, T_FBRC_D* max, T_FBRC_D* min) const {
    if (!Database().IsDesigned(memb)) return 0;
    return GetParts<T_FBRC_D>(ResultQuantity::DesignForce, memb, kEnds, {all, max, min});
}

/// Where the parts of a column lie along it.
std::span<const double> CPostCtrl::HeightsOf(std::uint32_t memb) const {
    return IsUpsideDown(memb) ? kTopToBottom : kBottomToTop;
}

bool CPostCtrl::IsUpsideDown(std::uint32_t memb) const {
    T_PMEMB_D member;
    T_PNODE_D first;
    T_PNODE_D last;
    const CClassPNode nodes(&Database());
    return CClassPMemb(&Database()).Get(memb, member) && member.nodes.size() >= 2 &&
           nodes.Get(member.nodes.front(), first) && nodes.Get(member.nodes.back(), last) && last.z < first.z;
}

int CPostCtrl::GetMembNetLength(std::uint32_t memb, double& length) const {
    T_PMEMB_D member;
    if (!CClassPMemb(&Database()).Get(memb, member) || member.nodes.size() < 2) return 0;
    const CClassPNode nodes(&Database());
    double whole = 0.0;
    for (std::size_t i = 1; i < member.nodes.size(); ++i) {
        T_PNODE_D from;
        T_PNODE_D to;
        nodes.Get(member.nodes[i - 1], from);
        nodes.Get(member.nodes[i], to);
        whole += std::hypot(to.x - from.x, to.y - from.y, to.z - from.z);
    }
    T_RGDE_D rigid;
    const CDataBase& model = *Database().Model();
    model.GetClass<CClassRgde>()->Get(model.GetClass<CClassMemb>()->GetMembKeyByNo(memb), rigid);
    length = whole - rigid.lengthI - rigid.lengthJ;
    return 1;
}

// ---- modes ----

int CPostCtrl::GetEiFreq(int mode, double* values) const {
    const ResultSource* results = Database().Results();
    const ResultArray frequencies = results ? results->Array(ResultName::Frequency) : ResultArray{};
    const double* row = mode > 0 ? frequencies.Row(static_cast<std::size_t>(mode - 1)) : nullptr;
    if (!row) return 0;
    const double frequency = row[0];
    const double tolerance = frequencies.Columns() > 1 ? row[1] : 0.0;
    values[0] = 2.0 * std::numbers::pi * frequency;
    values[1] = frequency;
    values[2] = frequency > 0.0 ? 1.0 / frequency : 0.0;
    values[3] = tolerance;
    return 1;
}

int CPostCtrl::GetEiMpam(int mode, T_MPAM_D& masses) const {
    const ResultSource* results = Database().Results();
    const ResultArray effective = results ? results->Array(ResultName::EffectiveMass) : ResultArray{};
    if (mode < 1 || static_cast<std::size_t>(mode) > effective.Rows() || effective.Columns() < kComponents) return 0;
    const ResultArray total = results->Array(ResultName::TotalMass);
    masses = {};
    for (std::size_t row = 0; row < static_cast<std::size_t>(mode); ++row) {
        for (std::size_t i = 0; i < kComponents; ++i) {
            const double whole = total.At(0, i);
            masses.mass[i] = whole > 0.0 ? 100.0 * effective.At(row, i) / whole : 0.0;
            masses.sum[i] += masses.mass[i];
        }
    }
    return 1;
}

/// The shares of mass that a mode moves along and about the axes, against their sum.
int CPostCtrl::GetEiMdrf(int mode, T_MDRF_D& factors) const {
    T_MPAM_D masses;
    if (!GetEiMpam(mode, masses)) return 0;
    double sum = 0.0;
    for (const double mass : masses.mass) sum += mass;
    factors = {};
    for (std::size_t i = 0; i < kComponents && sum > 0.0; ++i) {
        factors.factor[i] = 100.0 * masses.mass[i] / sum;
        factors.value = std::max(factors.value, factors.factor[i]);
    }
    return 1;
}

int CPostCtrl::GetEiMode(int mode, std::uint32_t node, T_DISP_D& shape) const {
    const ResultSource* results = Database().Results();
    const std::uint32_t place = Database().PlaceOfNode(node);
    if (!results || place == CPostDataBase::kNoPlace) return 0;
    const ResultArray shapes = results->Array(std::string(ResultName::Shape) + std::to_string(mode));
    const double* row = shapes.Columns() >= kComponents ? shapes.Row(place) : nullptr;
    if (!row) return 0;
    std::copy_n(row, kComponents, shape.value.begin());
    return 1;
}

// ---- time histories ----

int CPostCtrl::SelectThlc(std::uint32_t key) {
    history_ = CClassPThlc(&Database()).Exist(key) && IsPostEnable() ? key : 0;
    return history_ != 0 ? 1 : 0;
}

int CPostCtrl::SelectThnc(std::uint32_t key) { return CClassPThnc(&Database()).Exist(key); }

// ---- steps ----

int CPostCtrl::GetMaxStep_PO() const {
    const CClassPPolc cases(&Database());
    int most = 0;
    for (const std::uint32_t key : cases.Keys()) most = std::max(most, cases.GetIncStep(key));
    return most;
}

int CPostCtrl::GetCaseStep_AS(std::vector<std::string>& stages) const {
    T_POAS_D control;
    const int exist = CClassPoas(&Database()).Get(control);
    const CClassPPolc cases(&Database());
    stages.clear();
    for (const std::uint32_t key : control.stages) stages.push_back(cases.GetDisplayName(key));
    return exist;
}

}  // namespace zt
