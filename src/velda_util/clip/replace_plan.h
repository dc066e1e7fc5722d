#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "velda_util/clip/change_plan.h"

namespace velda {

/// What is to be replaced by what.
struct ReplaceSettings {
    std::string text{};  ///< an empty one is found nowhere
    std::string replacement{};
    bool matchCase = false;
    bool wholeCell = false;         ///< only cells that are the text as a whole
    std::optional<int> columnId{};  ///< only this column
};

/// The changes of a replacement, and how much was found in the cells that will be written.
struct ReplacePlan {
    ChangePlan plan;
    std::size_t cells = 0;
    std::size_t occurrences = 0;
};

/// Plans a replacement in the records of a selection, or of the whole table. Hidden columns and the append row are left
/// alone, and so are cells in which the replacement changes nothing. The rule for locked cells concerns only those that
/// hold the text. Throws std::invalid_argument for a selection that is no part of the table.
ReplacePlan PlanReplace(const ReplaceSettings& settings, const std::optional<GridSelection>& selection,
                        const PlanTarget& target, CellAccessQuery access, CellTextQuery text);

}  // namespace velda
