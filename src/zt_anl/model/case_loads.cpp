#include "zt_anl/model/case_loads.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <unordered_map>

#include "velda_lib/number_text.h"
#include "zt_anl/model/imposed_loads.h"
#include "zt_anl/model/rigid_parts.h"
#include "zt_anl/model/vector_math.h"
#include "zt_db/core/record_walk.h"
#include "zt_db/records/member_load.h"
#include "zt_db/records/record_list.h"

namespace zt {
namespace {

/// The direction of a load in global axes.
Vector3 DirectionOf(int direction, const MemberAxes& axes) {
    switch (direction) {
        case LoadDirection::LocalX: return axes.x;
        case LoadDirection::LocalY: return axes.y;
        case LoadDirection::LocalZ: return axes.z;
        default: break;
    }
    Vector3 global{};
    global[static_cast<std::size_t>(direction - LoadDirection::GlobalX)] = 1.0;
    return global;
}

/// A load that is told per length of the shadow that a line throws along a global direction, per length of the line.
double ShareOfShadow(const Vector3& along, const Vector3& direction) {
    const double cosine = Dot(along, direction);
    return std::sqrt(std::max(0.0, 1.0 - cosine * cosine));
}

/// A position along a member as a share of one of its spans.
double ShareOfSpan(const FrameSpan& span, double place) {
    return std::clamp((place - span.start) / (span.end - span.start), 0.0, 1.0);
}

void SortBySpan(CaseLoads& loads) {
    std::stable_sort(loads.spans.begin(), loads.spans.end(),
                     [](const SpanLoad& a, const SpanLoad& b) { return a.span < b.span; });
}

class CaseLoadReader {
public:
    CaseLoadReader(const CDataBase& database, const FrameModel& model, AnalysisLog& log)
        : database_(database), model_(model), log_(log) {}

    std::vector<CaseLoads> Read();

private:
    CaseLoads* CaseOf(std::uint32_t stld) {
        const auto at = placeOfCase_.find(stld);
        return at == placeOfCase_.end() ? nullptr : &cases_[at->second];
    }
    void ReadNodalLoads();
    template <class Class>
    void ReadMemberLoads();
    template <class Load>
    void PutOnSpan(CaseLoads& loads, std::size_t at, const Load& load);
    void PutPoints(CaseLoads& loads, SpanLoad part, const Vector3& direction, std::span<const LoadPoint> points);
    void PutStretches(CaseLoads& loads, SpanLoad part, const Vector3& direction,
                      std::span<const LoadStretch> stretches);
    template <class Load>
    void PutOnBearer(CaseLoads& loads, const FrameBearer& bearer, const Load& load);
    void ShareAmongNodes(CaseLoads& loads, const FrameBearer& bearer, const Vector3& value, std::size_t first);
    void ReadSelfWeights();
    void PutWeight(CaseLoads& loads, const T_SWGT_D& weight);
    void PutWeightOfSpan(CaseLoads& loads, std::size_t at, const Vector3& factors);
    void ReadSlabLoads();
    void PutSlabLoad(CaseLoads& loads, const FrameBearer& bearer, const T_SBLA_D& load, double value);
    void TellOfOtherLoads();

    const CDataBase& database_;
    const FrameModel& model_;
    AnalysisLog& log_;
    std::vector<CaseLoads> cases_;
    std::vector<std::string> types_;
    std::unordered_map<std::uint32_t, std::size_t> placeOfCase_;
    bool hasLoadsOfUnknownKind_ = false;
};

std::vector<CaseLoads> CaseLoadReader::Read() {
    ForEachInOrder<CClassStld>(database_, [&](std::uint32_t key, const T_STLD_D& record) {
        placeOfCase_[key] = cases_.size();
        cases_.push_back({key, record.name, std::vector<NodeVector>(model_.nodes.size()), {}});
        types_.push_back(record.type);
    });
    ReadNodalLoads();
    ReadMemberLoads<CClassLnld>();
    ReadMemberLoads<CClassCmld>();
    ReadSelfWeights();
    ReadSlabLoads();
    ReadTemperatures(database_, model_, cases_);
    ReadSupportMoves(database_, model_, cases_, log_);
    TellOfOtherLoads();
    for (CaseLoads& loads : cases_) SortBySpan(loads);
    return std::move(cases_);
}

void CaseLoadReader::ReadNodalLoads() {
    ForEachInOrder<CClassPtld>(database_, [&](std::uint32_t, const T_PTLD_D& record) {
        CaseLoads* loads = CaseOf(record.stld);
        const auto node = model_.nodeOfKey.find(record.node);
        if (!loads || node == model_.nodeOfKey.end()) return;
        const NodeVector values{record.fx, record.fy, record.fz, record.mx, record.my, record.mz};
        for (std::size_t i = 0; i < kFreedoms; ++i) loads->nodal[node->second][i] += values[i];
    });
}

template <class Class>
void CaseLoadReader::ReadMemberLoads() {
    ForEachInOrder<Class>(database_, [&](std::uint32_t, const typename Class::Record& record) {
        CaseLoads* loads = CaseOf(record.stld);
        if (!loads) return;
        if (!IsKnownLoad(record.type, record.direction)) {
            hasLoadsOfUnknownKind_ = true;
            return;
        }
        if (const auto spans = model_.spansOfMember.find(record.memb); spans != model_.spansOfMember.end()) {
            for (std::size_t at = spans->second[0]; at < spans->second[1]; ++at) PutOnSpan(*loads, at, record);
        } else if (const auto bearer = model_.bearerOfMember.find(record.memb); bearer != model_.bearerOfMember.end()) {
            PutOnBearer(*loads, model_.bearers[bearer->second], record);
        }
    });
}

/// The part of a load that lies on a span; positions count along the whole member.
template <class Load>
void CaseLoadReader::PutOnSpan(CaseLoads& loads, std::size_t at, const Load& load) {
    const FrameSpan& span = model_.spans[at];
    const Vector3 global = DirectionOf(load.direction, span.axes);
    const SpanLoad part{.span = at, .isMoment = IsMomentLoad(load.type)};
    if (!IsDistributedLoad(load.type)) {
        PutPoints(loads, part, LocalOf(span.axes, global), PointsOf(load.x, load.p));
        return;
    }
    const bool isShadow = load.projection != 0 && load.direction >= LoadDirection::GlobalX;
    const double share = isShadow ? ShareOfShadow(span.axes.x, global) : 1.0;
    PutStretches(loads, part, LocalOf(span.axes, Times(global, share)), StretchesOf(load.x, load.p));
}

/// A load between two spans goes to the first of them.
void CaseLoadReader::PutPoints(CaseLoads& loads, SpanLoad part, const Vector3& direction,
                               std::span<const LoadPoint> points) {
    const FrameSpan& span = model_.spans[part.span];
    part.isSingle = true;
    for (const LoadPoint& point : points) {
        const bool isHere = point.at == 0.0 ? span.start == 0.0 : point.at > span.start && point.at <= span.end;
        if (!isHere) continue;
        part.from = part.to = ShareOfSpan(span, point.at);
        part.first = part.last = Times(direction, point.value);
        PutOnWholeSpan(model_, part, loads);
    }
}

void CaseLoadReader::PutStretches(CaseLoads& loads, SpanLoad part, const Vector3& direction,
                                  std::span<const LoadStretch> stretches) {
    const FrameSpan& span = model_.spans[part.span];
    for (const LoadStretch& stretch : stretches) {
        const double from = std::max(stretch.from, span.start);
        const double to = std::min(stretch.to, span.end);
        if (to <= from) continue;
        const auto valueAt = [&](double place) {
            return std::lerp(stretch.first, stretch.last, (place - stretch.from) / (stretch.to - stretch.from));
        };
        part.from = ShareOfSpan(span, from);
        part.to = ShareOfSpan(span, to);
        part.first = Times(direction, valueAt(from));
        part.last = Times(direction, valueAt(to));
        PutOnWholeSpan(model_, part, loads);
    }
}

template <class Load>
void CaseLoadReader::PutOnBearer(CaseLoads& loads, const FrameBearer& bearer, const Load& load) {
    const Vector3 global = DirectionOf(load.direction, bearer.axes);
    double sum = 0.0;
    if (IsDistributedLoad(load.type)) {
        for (const LoadStretch& stretch : StretchesOf(load.x, load.p)) {
            sum += 0.5 * (stretch.first + stretch.last) * (stretch.to - stretch.from) * bearer.length;
        }
        if (load.projection != 0 && load.direction >= LoadDirection::GlobalX)
            sum *= ShareOfShadow(bearer.along, global);
    } else {
        for (const LoadPoint& point : PointsOf(load.x, load.p)) sum += point.value;
    }
    ShareAmongNodes(loads, bearer, Times(global, sum), IsMomentLoad(load.type) ? 3 : 0);
}

void CaseLoadReader::ShareAmongNodes(CaseLoads& loads, const FrameBearer& bearer, const Vector3& value,
                                     std::size_t first) {
    const double share = 1.0 / static_cast<double>(bearer.nodes.size());
    for (const std::size_t node : bearer.nodes) {
        for (std::size_t i = 0; i < 3; ++i) loads.nodal[node][first + i] += share * value[i];
    }
}

/// Factors for all members and factors for one add up.
void CaseLoadReader::ReadSelfWeights() {
    ForEachInOrder<CClassSwgt>(database_, [&](std::uint32_t, const T_SWGT_D& record) {
        if (CaseLoads* loads = CaseOf(record.stld)) PutWeight(*loads, record);
    });
}

void CaseLoadReader::PutWeight(CaseLoads& loads, const T_SWGT_D& weight) {
    const Vector3 factors{weight.x, weight.y, weight.z};
    const auto isMeant = [&](std::uint32_t member) { return weight.memb == 0 || weight.memb == member; };
    for (std::size_t at = 0; at < model_.spans.size(); ++at) {
        if (isMeant(model_.spans[at].member)) PutWeightOfSpan(loads, at, factors);
    }
    for (const FrameBearer& bearer : model_.bearers) {
        if (isMeant(bearer.member)) ShareAmongNodes(loads, bearer, Times(factors, bearer.weight), 0);
    }
}

void CaseLoadReader::PutWeightOfSpan(CaseLoads& loads, std::size_t at, const Vector3& factors) {
    const FrameSpan& span = model_.spans[at];
    const Vector3 value = LocalOf(span.axes, Times(factors, span.weight));
    PutOnWholeSpan(model_, {.span = at, .first = value, .last = value}, loads);
}

/// Loads of slabs stand in no load case: their dead part belongs to all cases of dead loads, their live part to all of
/// live loads.
void CaseLoadReader::ReadSlabLoads() {
    std::size_t slabs = 0;
    ForEachInOrder<CClassSbla>(database_, [&](std::uint32_t key, const T_SBLA_D& record) {
        const auto bearer = model_.bearerOfMember.find(key);
        if (bearer == model_.bearerOfMember.end() || !IsKnownLoad(LoadType::UniformLoads, record.direction)) return;
        ++slabs;
        for (std::size_t i = 0; i < cases_.size(); ++i) {
            const double value = types_[i] == LoadCaseType::Dead   ? record.dl
                                 : types_[i] == LoadCaseType::Live ? record.ll
                                                                   : 0.0;
            if (value != 0.0) PutSlabLoad(cases_[i], model_.bearers[bearer->second], record, value);
        }
    });
    if (slabs > 0) log_.Note("IDS_ANL_SLAB_LOADS", {velda::FormatLong(static_cast<std::int64_t>(slabs))});
}

/// Values of slabs count against their direction, which is downward for the usual ones.
void CaseLoadReader::PutSlabLoad(CaseLoads& loads, const FrameBearer& bearer, const T_SBLA_D& load, double value) {
    const Vector3 global = DirectionOf(load.direction, bearer.axes);
    const bool isShadow = load.projection != 0 && load.direction >= LoadDirection::GlobalX;
    const double area = bearer.area * (isShadow ? std::abs(Dot(bearer.axes.z, global)) : 1.0);
    ShareAmongNodes(loads, bearer, Times(global, -value * area), 0);
}

void CaseLoadReader::TellOfOtherLoads() {
    if (hasLoadsOfUnknownKind_) log_.Warn("IDS_ANL_LOADS_OF_NO_KIND");
    const int walls = database_.GetClass<CClassBwld>()->GetCount() + database_.GetClass<CClassBmla>()->GetCount();
    if (walls > 0) log_.Warn("IDS_ANL_LOADS_BY_TYPE", {velda::FormatLong(walls)});
}

}  // namespace

std::vector<CaseLoads> ReadCaseLoads(const CDataBase& database, const FrameModel& model, AnalysisLog& log) {
    return CaseLoadReader(database, model, log).Read();
}

std::span<const SpanLoad> CaseLoads::OfSpan(std::size_t span) const {
    const auto range = std::equal_range(spans.begin(), spans.end(), SpanLoad{.span = span},
                                        [](const SpanLoad& a, const SpanLoad& b) { return a.span < b.span; });
    return {range.first, range.second};
}

CaseLoads SumOfCases(std::span<const CaseLoads> cases, std::span<const T_STLD_FACTOR> factors) {
    CaseLoads sum;
    if (!cases.empty()) sum.nodal.resize(cases.front().nodal.size());
    for (const auto& [stld, factor] : factors) {
        const auto loads = std::find_if(cases.begin(), cases.end(),
                                        [key = stld](const CaseLoads& other) { return other.stld == key; });
        if (loads == cases.end()) continue;
        for (std::size_t node = 0; node < sum.nodal.size(); ++node) {
            for (std::size_t i = 0; i < kFreedoms; ++i) sum.nodal[node][i] += factor * loads->nodal[node][i];
        }
        for (SpanLoad load : loads->spans) {
            load.first = Times(load.first, factor);
            load.last = Times(load.last, factor);
            load.strain *= factor;
            sum.spans.push_back(load);
        }
        for (SupportMove move : loads->moves) {
            move.value *= factor;
            sum.moves.push_back(move);
        }
    }
    SortBySpan(sum);
    return sum;
}

}  // namespace zt
