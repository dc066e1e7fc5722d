#include "velda_util/clip/replace_plan.h"

#include <algorithm>
#include <vector>

#include "velda_util/clip/plan_builder.h"
#include "velda_util/clip/text_matcher.h"

namespace velda {
namespace {

class ReplacePlanner {
public:
    ReplacePlanner(const ReplaceSettings& settings, const PlanTarget& target, CellAccessQuery access,
                   CellTextQuery text)
        : settings_(settings), matcher_(settings.text, settings.matchCase), text_(text), builder_(target, access) {}

    void PlanRow(int row, const std::vector<TargetColumn>& columns) {
        cells_ = 0;
        occurrences_ = 0;
        builder_.BeginRow(row, row);
        for (const TargetColumn& column : columns) PlanCell(row, column);
        if (!builder_.EndRow()) return;
        result_.cells += cells_;
        result_.occurrences += occurrences_;
    }

    ReplacePlan Take() {
        result_.plan = builder_.Take();
        return std::move(result_);
    }

private:
    void PlanCell(int row, TargetColumn column) {
        const std::string_view cell = text_(row, column.position);
        if (settings_.wholeCell ? !matcher_.Is(cell) : !matcher_.IsIn(cell)) return;
        std::size_t found = 0;
        const std::string replaced = matcher_.ReplaceIn(cell, settings_.replacement, found);
        if (replaced == cell || !builder_.SetCell(column, replaced)) return;
        ++cells_;
        occurrences_ += found;
    }

    const ReplaceSettings& settings_;
    TextMatcher matcher_;
    CellTextQuery text_;
    PlanBuilder builder_;
    ReplacePlan result_;
    std::size_t cells_ = 0;  ///< of the row that is being planned
    std::size_t occurrences_ = 0;
};

/// The visible columns that the replacement concerns.
std::vector<TargetColumn> Columns(const ReplaceSettings& settings, const GridSelection& area,
                                  const PlanTarget& target) {
    auto columns = VisibleColumns(target, area.firstColumn, area.LastColumn());
    if (settings.columnId) std::erase_if(columns, [&](const TargetColumn& c) { return c.id != *settings.columnId; });
    return columns;
}

}  // namespace

ReplacePlan PlanReplace(const ReplaceSettings& settings, const std::optional<GridSelection>& selection,
                        const PlanTarget& target, CellAccessQuery access, CellTextQuery text) {
    if (selection) CheckSelection(target, *selection);
    const GridSelection table{1, target.recordCount, 1, static_cast<int>(target.columns.size())};
    const GridSelection area = selection.value_or(table);
    const auto columns = Columns(settings, area, target);
    ReplacePlanner planner(settings, target, access, text);
    const int last = std::min(area.LastRow(), target.recordCount);
    for (int row = area.firstRow; row <= last; ++row) planner.PlanRow(row, columns);
    return planner.Take();
}

}  // namespace velda
