#include "zt_tb/modelview/scene_results.h"

#include <algorithm>
#include <cmath>

#include "velda_lib/msg_dll.h"
#include "zt_db/core/record_walk.h"
#include "zt_db/records/memb.h"
#include "zt_db/records/pont.h"
#include "zt_tb/modelview/load_legend.h"

namespace zt {
namespace {

/// The greatest displacement as a share of the building.
constexpr double kShare = 1.0 / 20.0;

double LengthOf(const Vec3& way) { return std::sqrt(Dot(way, way)); }

/// That of 1, 2, 5 and 10 times a power of ten whose ratio to a number is nearest to 1.
double RoundNumber(double number) {
    const double power = std::pow(10.0, std::floor(std::log10(number)));
    double nearest = power;
    for (const double digit : {2.0, 5.0, 10.0}) {
        // Halfway between two in the logarithm is the root of their product.
        if (number * number >= nearest * digit * power) nearest = digit * power;
    }
    return nearest;
}

double ExtentOf(const Box3& box) {
    const Vec3 size = box.IsEmpty() ? Vec3{} : box.high - box.low;
    return std::max({size.x, size.y, size.z});
}

/// The name of a case, and what of its envelopes is meant.
std::string TitleOf(const T_PLCOM_D& combination, int subKind) {
    switch (subKind) {
        case LoadCaseSubKind::Max: return velda::FormatText("IDS_MODEL_VIEW_CASE_MAX", {combination.name});
        case LoadCaseSubKind::Min: return velda::FormatText("IDS_MODEL_VIEW_CASE_MIN", {combination.name});
        default: return combination.name;
    }
}

/// Calls `take(place, value)` for the items that have a value: their places, and those of their values.
template <class Item, class Take>
void PutSteps(const std::vector<Item>& items, const velda::FlatIndex& values, Take take) {
    for (std::size_t at = 0; at < items.size(); ++at) {
        const std::uint32_t found = items[at].key != 0 ? values.Find(items[at].key) : velda::FlatIndex::kNone;
        if (found != velda::FlatIndex::kNone) take(at, found);
    }
}

}  // namespace

DeformedShape DeformedShapeOf(const CPostCtrl& results, const LoadChoice& choice) {
    DeformedShape shape;
    T_PLCOM_D combination;
    // A reader of its own, so that what others have opened stays open.
    CPostCtrl reader = results;
    if (!reader.MakeLoadComb(static_cast<int>(choice.kind), choice.key, combination) ||
        !reader.SelectLoadComb(combination))
        return shape;
    shape.title = TitleOf(combination, choice.subKind);
    const CUnitCtrl& units = reader.Units();
    for (const std::uint32_t no : CClassPNode(&reader.Database()).Keys()) {
        T_DISP_D governing;
        T_DISP_D greatest;
        T_DISP_D least;
        if (!reader.GetDisp(no, &governing, &greatest, &least)) continue;
        const T_DISP_D& chosen = choice.subKind == LoadCaseSubKind::Max   ? greatest
                                 : choice.subKind == LoadCaseSubKind::Min ? least
                                                                          : governing;
        const auto& value = chosen.value;
        const auto metres = [&](double length) { return units.ToBase(Unit::Length, length); };
        shape.nodes.push_back(
            {no, {metres(value[0]), metres(value[1]), metres(value[2])}, {value[3], value[4], value[5]}});
    }
    return shape;
}

// ---- deformed shapes ----

void SceneDeformation::Build(const CDataBase& database, const ModelScene& scene, const DeformedShape& shape) {
    moves_.clear();
    greatest_ = 0.0;
    scale_ = 1.0;
    if (shape.nodes.empty()) return;
    moves_.resize(scene.Nodes().size());
    for (const NodeShift& shift : shape.nodes) {
        const SceneNode* node = scene.FindNode(database.GetClass<CClassPont>()->GetPontKeyByNo(shift.no));
        if (!node) continue;
        moves_[static_cast<std::size_t>(node - scene.Nodes().data())] = {shift.move, shift.turn};
        greatest_ = std::max(greatest_, LengthOf(shift.move));
    }
    const double wanted = kShare * ExtentOf(scene.Bounds());
    if (greatest_ > 0.0 && wanted > 0.0) scale_ = RoundNumber(wanted / greatest_);
}

Vec3 SceneDeformation::PlaceOn(const ModelScene& scene, const SceneLine& line, double along) const {
    const Vec3& start = scene.Nodes()[line.start].place;
    const Vec3 way = scene.Nodes()[line.end].place - start;
    const Vec3 straight = start + way * along;
    const double squared = Dot(way, way);
    if (line.start >= moves_.size() || line.end >= moves_.size() || squared == 0.0) return straight;
    const Shift& first = moves_[line.start];
    const Shift& last = moves_[line.end];
    // Along its axis the member stretches evenly; across it a turn gives the slope at the end.
    const Vec3 stretch = way * (Dot(last.move - first.move, way) / squared);
    const Vec3 slopeFirst = Cross(first.turn, way) + stretch;
    const Vec3 slopeLast = Cross(last.turn, way) + stretch;
    const double t = along;
    const double rest = 1.0 - t;
    const Vec3 move = first.move * ((1.0 + 2.0 * t) * rest * rest) + slopeFirst * (t * rest * rest) +
                      last.move * (t * t * (3.0 - 2.0 * t)) + slopeLast * (-t * t * rest);
    return straight + move * Scale();
}

// ---- colours ----

std::uint8_t SceneColors::StepOf(double value) const {
    const double range = greatest_ - least_;
    const double share = range > 0.0 ? (value - least_) / range : 1.0;
    return static_cast<std::uint8_t>(std::clamp(share * kColorSteps, 0.0, kColorSteps - 1.0));
}

void SceneColors::Build(const CDataBase& database, const ModelScene& scene, const ResultColours& values) {
    *this = {};
    if (values.nodes.empty() && values.members.empty()) return;
    title_ = values.title;
    unit_ = values.unit;
    for (const auto* list : {&values.nodes, &values.members}) {
        for (const NumberedValue& one : *list) {
            if (!std::isfinite(one.value)) continue;
            least_ = hasValues_ ? std::min(least_, one.value) : one.value;
            greatest_ = hasValues_ ? std::max(greatest_, one.value) : one.value;
            hasValues_ = true;
        }
    }
    velda::FlatIndex nodes;
    velda::FlatIndex members;
    const auto put = [&](const std::vector<NumberedValue>& list, velda::FlatIndex& index, auto keyOf) {
        for (std::uint32_t at = 0; at < list.size(); ++at) {
            const std::uint32_t key = std::isfinite(list[at].value) ? keyOf(list[at].no) : 0;
            if (key != 0) index.Put(key, at);
        }
    };
    put(values.nodes, nodes, [&](std::uint32_t no) { return database.GetClass<CClassPont>()->GetPontKeyByNo(no); });
    put(values.members, members, [&](std::uint32_t no) { return database.GetClass<CClassMemb>()->GetMembKeyByNo(no); });
    nodes_.assign(scene.Nodes().size(), kNoColor);
    lines_.assign(scene.Lines().size(), kNoColor);
    faces_.assign(scene.Faces().size(), kNoColor);
    PutSteps(scene.Nodes(), nodes,
             [&](std::size_t at, std::uint32_t i) { nodes_[at] = StepOf(values.nodes[i].value); });
    PutSteps(scene.Lines(), members,
             [&](std::size_t at, std::uint32_t i) { lines_[at] = StepOf(values.members[i].value); });
    PutSteps(scene.Faces(), members,
             [&](std::size_t at, std::uint32_t i) { faces_[at] = StepOf(values.members[i].value); });
}

std::string SceneColors::Title() const { return unit_.empty() ? title_ : title_ + " (" + unit_ + ")"; }

std::vector<double> SceneColors::Limits() const {
    std::vector<double> limits;
    if (!hasValues_) return limits;
    if (least_ == greatest_) return {least_};
    for (int step = 0; step <= kColorSteps; ++step) {
        limits.push_back(least_ + (greatest_ - least_) * step / kColorSteps);
    }
    return limits;
}

std::string ColorText(double value) {
    const std::string amount = LoadText(value);
    return value < 0.0 && amount != "0" ? "-" + amount : amount;
}

}  // namespace zt
