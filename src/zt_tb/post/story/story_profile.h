#pragma once

#include <string>
#include <vector>

#include "velda_util/result/tb_core.h"

namespace zt {

/// Values over the height of the building under one load case, or one step of it; stories from the topmost down.
struct StoryCurve {
    std::string name{};
    std::vector<double> values{};
    bool operator==(const StoryCurve&) const = default;
};

/// What a table of stories looks like as a plot.
struct StoryProfile {
    std::string title{};  ///< what the values are, with their unit
    std::vector<std::string> stories{};
    std::vector<StoryCurve> curves{};
    bool operator==(const StoryProfile&) const = default;
};

/// The plot of a table of stories: each load case or step is a curve. Empty for tables that have none, and while no
/// load case is chosen.
StoryProfile ProfileOf(const velda::CTBCore& grid);

}  // namespace zt
