#include "zt_db/exchange/story_levels.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "velda_lib/number_text.h"
#include "zt_db/exchange/member_kinds.h"
#include "zt_db/geometry/member_geometry.h"

namespace zt {
namespace {

/// Heights nearer than this belong to one level, in m.
constexpr double kTolerance = 0.01;

}  // namespace

StoryLevels::StoryLevels(std::vector<ExchangeLevel> levels) : levels_(std::move(levels)) {
    std::sort(levels_.begin(), levels_.end(), [](const ExchangeLevel& a, const ExchangeLevel& b) {
        return a.level < b.level || (a.level == b.level && a.key < b.key);
    });
}

std::size_t StoryLevels::PlaceOfHeight(double z) const {
    const auto at = std::find_if(levels_.begin(), levels_.end(),
                                 [&](const ExchangeLevel& story) { return story.level >= z - kTolerance; });
    return at == levels_.end() ? levels_.size() - 1 : static_cast<std::size_t>(at - levels_.begin());
}

std::size_t StoryLevels::PlaceOfKey(std::uint32_t key) const {
    const auto at =
        std::find_if(levels_.begin(), levels_.end(), [&](const ExchangeLevel& story) { return story.key == key; });
    return static_cast<std::size_t>(at - levels_.begin());
}

double HeightAbove(double height, double level) {
    constexpr double kSteps = 1.0e10;
    return velda::RoundToShown(std::round((height - level) * kSteps) / kSteps);
}

std::vector<ExchangeStorey> StoreysFromColumns(const ExchangeModel& model) {
    constexpr int kColumn = 101;
    std::unordered_map<std::string, const ExchangeNode*> nodes;
    std::vector<double> levels;
    for (const ExchangeNode& node : model.nodes) nodes[node.name] = &node;
    for (const ExchangeMember& member : model.members) {
        const ExchangeNode& from = *nodes.at(member.nodes.front());
        const ExchangeNode& to = *nodes.at(member.nodes.back());
        const int word = MemberTypeOfWord(member.kind);
        if (word != kColumn && word != 0) continue;
        if (LieOfLine({from.x, from.y, from.z}, {to.x, to.y, to.z}) != Lie::Vertical) continue;
        levels.push_back(from.z);
        levels.push_back(to.z);
    }
    const auto lower = [](const ExchangeNode& a, const ExchangeNode& b) { return a.z < b.z; };
    if (!model.nodes.empty()) levels.push_back(std::min_element(model.nodes.begin(), model.nodes.end(), lower)->z);
    std::sort(levels.begin(), levels.end());
    std::vector<ExchangeStorey> storeys;
    for (const double level : levels) {
        if (!storeys.empty() && level - storeys.back().level < kTolerance) continue;
        const auto floor = velda::FormatLong(static_cast<std::int64_t>(storeys.size()));
        storeys.push_back({.name = storeys.empty() ? "Base" : floor + "F", .level = level});
    }
    return storeys;
}

void FillHeights(std::vector<ExchangeStorey>& storeys) {
    std::vector<ExchangeStorey*> order;
    for (ExchangeStorey& storey : storeys) order.push_back(&storey);
    std::stable_sort(order.begin(), order.end(), [](const auto* a, const auto* b) { return a->level < b->level; });
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (!order[i]->height) order[i]->height = i == 0 ? 0.0 : HeightAbove(order[i]->level, order[i - 1]->level);
    }
}

}  // namespace zt
