#include "zt_db/post/story/story_model.h"

#include <algorithm>
#include <cmath>

#include "zt_db/core/record_walk.h"
#include "zt_db/post/story/member_weight.h"
#include "zt_db/records/record_list.h"
#include "zt_db/units/exact_units.h"

namespace zt {
namespace {

double& WeightOfType(StoryWeights& weights, int type) {
    if (type == MembType::Column) return weights.column;
    if (type == MembType::Brace) return weights.brace;
    if (PropertyOfMemberType(type) == MemberProperty::Section) return weights.beam;
    const bool isSlab = std::find(std::begin(kSlabTypes), std::end(kSlabTypes), type) != std::end(kSlabTypes);
    return isSlab ? weights.slab : weights.wall;
}

/// The members of a list whose value lies within the tolerance of the least or of the greatest one.
template <class Item, class ValueOf>
std::array<std::vector<Item>, 2> EdgesOf(const std::vector<Item>& items, ValueOf valueOf) {
    std::array<std::vector<Item>, 2> edges;
    if (items.empty()) return edges;
    double least = valueOf(items.front());
    double greatest = least;
    for (const Item& item : items) {
        least = std::min(least, valueOf(item));
        greatest = std::max(greatest, valueOf(item));
    }
    for (const Item& item : items) {
        if (valueOf(item) <= least + StoryGeometry::kTolerance) edges[0].push_back(item);
        if (valueOf(item) >= greatest - StoryGeometry::kTolerance) edges[1].push_back(item);
    }
    return edges;
}

double SumOf(const std::vector<double>& values) {
    double sum = 0.0;
    for (const double value : values) sum += value;
    return sum;
}

}  // namespace

StoryModel::StoryModel(const CPostDataBase& database)
    : geometry_(database),
      masses_(geometry_.Nodes().size()),
      weights_(geometry_.Stories().size()),
      storyMasses_(geometry_.Stories().size()) {
    if (!database.Model()) return;
    if (database.Results()) stations_ = std::max<std::size_t>(database.Results()->Head().stations, 2);
    ReadMasses(database);
    SumMasses();
}

// ---- masses and weights ----

/// Masses as the analysis has them: those of nodes, half of each stretch of a member at each of its ends, and the
/// downward loads that the control of the analysis names.
void StoryModel::ReadMasses(const CPostDataBase& database) {
    const CDataBase& model = *database.Model();
    T_ACTL_D control;
    ReadInBase<CClassActl>(model, T_ACTL_D::kKey, control);
    ReadMembers(model, control.selfWeightMass != 0);
    ForEachInOrder<CClassPmas>(model, [&](std::uint32_t key, const T_PMAS_D& record) {
        const std::uint32_t place = geometry_.PlaceOfNode(key);
        if (place >= masses_.size()) return;
        const double values[] = {record.mx, record.my, record.mz};
        for (std::size_t i = 0; i < 3; ++i) masses_[place][i] += values[i];
    });
    for (const T_STLD_FACTOR& load : control.massLoads) AddMassOfLoads(model, load.stld, load.factor);
}

/// Members weigh in their own story; their masses go to their nodes.
void StoryModel::ReadMembers(const CDataBase& model, bool isMass) {
    ForEachInOrder<CClassMemb>(model, [&](std::uint32_t, const T_MEMB_D& member) {
        const MemberShape shape = ShapeOfMember(model, geometry_, member);
        const std::uint32_t story = geometry_.PlaceOfStory(member.story);
        if (story < weights_.size()) WeightOfType(weights_[story], member.type) += shape.weight;
        const double mass = shape.weight / kGravity;
        if (isMass) SpreadOverNodes(shape, {mass, mass, mass}, masses_);
    });
}

void StoryModel::AddMassOfLoads(const CDataBase& model, std::uint32_t stld, double factor) {
    const std::vector<Vector3> forces = NodalForces(model, geometry_, stld);
    for (std::size_t i = 0; i < forces.size(); ++i) {
        const double mass = std::max(-forces[i][2], 0.0) * factor / kGravity;
        for (double& value : masses_[i]) value += mass;
    }
}

/// The centre is that of the horizontal masses, which may differ along X and Y; their mean weighs. Nodes without mass
/// give the middle of the story.
void StoryModel::SumMasses() {
    for (std::size_t i = 0; i < storyMasses_.size(); ++i) {
        const StoryLevel& story = Stories()[i];
        StoryMass& sum = storyMasses_[i];
        const auto weightOf = [&](std::uint32_t node) { return 0.5 * (masses_[node][0] + masses_[node][1]); };
        double whole = 0.0;
        for (const std::uint32_t node : story.massed) {
            for (std::size_t k = 0; k < 3; ++k) sum.mass[k] += masses_[node][k];
            whole += weightOf(node);
        }
        const auto& nodes = whole > 0.0 ? story.massed : story.nodes;
        const double divisor = whole > 0.0 ? whole : static_cast<double>(nodes.size());
        for (const std::uint32_t node : nodes) {
            const double weight = whole > 0.0 ? weightOf(node) : 1.0;
            for (std::size_t k = 0; k < 2; ++k) sum.center[k] += weight * geometry_.Nodes()[node].at[k] / divisor;
        }
        for (const std::uint32_t node : story.massed) {
            const double x = geometry_.Nodes()[node].at[0] - sum.center[0];
            const double y = geometry_.Nodes()[node].at[1] - sum.center[1];
            sum.rotational += masses_[node][0] * y * y + masses_[node][1] * x * x;
        }
    }
}

double StoryModel::WeightAtAndAbove(std::size_t story, std::size_t direction) const {
    double weight = 0.0;
    for (std::size_t i = story; i != StoryLevel::kNone; i = Stories()[i].above) {
        weight += kGravity * storyMasses_[i].mass[direction];
    }
    return weight;
}

double StoryModel::WidthAcross(std::size_t story, std::size_t direction) const {
    const auto& nodes = Stories()[story].nodes;
    if (nodes.empty()) return 0.0;
    const auto [least, greatest] = std::minmax_element(nodes.begin(), nodes.end(), [&](auto a, auto b) {
        return geometry_.Nodes()[a].at[1 - direction] < geometry_.Nodes()[b].at[1 - direction];
    });
    return geometry_.Nodes()[*greatest].at[1 - direction] - geometry_.Nodes()[*least].at[1 - direction];
}

// ---- displacements ----

ResponseForm StoryModel::Displacement(std::uint32_t node, std::size_t direction) const {
    ResponseForm form{.component = direction};
    const std::uint32_t place = geometry_.Nodes()[node].place;
    if (place != CPostDataBase::kNoPlace) form.displacements = {{place, 1.0}};
    return form;
}

ResponseForm StoryModel::MeanOf(const std::vector<std::uint32_t>& nodes, std::size_t direction) const {
    ResponseForm form{.component = direction};
    for (const std::uint32_t node : nodes) {
        form.Add(Displacement(node, direction), 1.0 / static_cast<double>(nodes.size()));
    }
    return form;
}

ResponseForm StoryModel::AverageDisplacement(std::size_t story, std::size_t direction) const {
    const auto edges =
        EdgesOf(Stories()[story].nodes, [&](std::uint32_t node) { return geometry_.Nodes()[node].at[1 - direction]; });
    ResponseForm form{.component = direction};
    for (const auto& edge : edges) form.Add(MeanOf(edge, direction), 0.5);
    return form;
}

/// Without masses the centre is the mean of the nodes.
ResponseForm StoryModel::CenterDisplacement(std::size_t story, std::size_t direction) const {
    const StoryLevel& level = Stories()[story];
    std::vector<double> masses;
    for (const std::uint32_t node : level.nodes) masses.push_back(masses_[node][direction]);
    const double sum = SumOf(masses);
    if (sum <= 0.0) return MeanOf(level.nodes, direction);
    ResponseForm form{.component = direction};
    for (std::size_t i = 0; i < masses.size(); ++i) {
        if (masses[i] > 0.0) form.Add(Displacement(level.nodes[i], direction), masses[i] / sum);
    }
    return form;
}

ResponseForm StoryModel::Drift(const StoryLine& line, std::size_t direction) const {
    ResponseForm form = Displacement(line.top, direction);
    form.Add(Displacement(line.bottom, direction), -1.0);
    return form;
}

ResponseForm StoryModel::AverageDrift(std::size_t story, std::size_t direction) const {
    const auto edges = EdgesOf(Stories()[story].lines,
                               [&](const StoryLine& line) { return geometry_.Nodes()[line.top].at[1 - direction]; });
    ResponseForm form{.component = direction};
    for (const auto& edge : edges) {
        for (const StoryLine& line : edge) {
            form.Add(Drift(line, direction), 0.5 / static_cast<double>(edge.size()));
        }
    }
    return form;
}

ResponseForm StoryModel::CenterDrift(std::size_t story, std::size_t direction) const {
    ResponseForm form = CenterDisplacement(story, direction);
    const std::size_t below = Stories()[story].below;
    form.Add(
        below != StoryLevel::kNone ? CenterDisplacement(below, direction) : MeanOf(Stories()[story].bases, direction),
        -1.0);
    return form;
}

}  // namespace zt
