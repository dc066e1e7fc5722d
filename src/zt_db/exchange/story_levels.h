#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "zt_db/exchange/exchange_model.h"

namespace zt {

/// A story by its top level.
struct ExchangeLevel {
    double level = 0.0;
    std::uint32_t key = 0;
};

/// The stories of a module from the lowest up, and which of them a height belongs to.
class StoryLevels {
public:
    explicit StoryLevels(std::vector<ExchangeLevel> levels);

    bool Empty() const { return levels_.empty(); }
    /// Place, from the lowest up, of the story that ends at or above a height; the topmost for what stands higher.
    std::size_t PlaceOfHeight(double z) const;
    /// Place of the story with a key.
    std::size_t PlaceOfKey(std::uint32_t key) const;
    const ExchangeLevel& At(std::size_t place) const { return levels_[place]; }

private:
    std::vector<ExchangeLevel> levels_;
};

/// How far a height lies above a level, without the last digits that the difference leaves behind.
double HeightAbove(double height, double level);

/// Storeys for a model without any: a base at its lowest node, and one at each height where columns end.
std::vector<ExchangeStorey> StoreysFromColumns(const ExchangeModel& model);
/// Gives each storey without a height the distance to the one below.
void FillHeights(std::vector<ExchangeStorey>& storeys);

}  // namespace zt
