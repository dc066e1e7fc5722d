#include "velda_util/clip/fill_plan.h"

#include <algorithm>

#include "velda_util/clip/plan_builder.h"

namespace velda {
namespace {

/// Writes the texts, one for each column, into the rows from `first` to `last`.
ChangePlan PlanRows(int first, int last, const std::vector<TargetColumn>& columns,
                    const std::vector<std::string>& texts, const PlanTarget& target, CellAccessQuery access) {
    PlanBuilder builder(target, access);
    for (int row = first; row <= last; ++row) {
        builder.BeginRow(row, row);
        for (std::size_t i = 0; i < columns.size(); ++i) builder.SetCell(columns[i], texts[i]);
        builder.EndRow();
    }
    return builder.Take();
}

}  // namespace

ChangePlan PlanFillDown(const GridSelection& selection, const PlanTarget& target, CellAccessQuery access,
                        CellTextQuery text) {
    CheckSelection(target, selection);
    const int source = selection.rowCount == 1 ? selection.firstRow - 1 : selection.firstRow;
    if (source < 1 || source > target.recordCount) return {};
    const auto columns = VisibleColumns(target, selection.firstColumn, selection.LastColumn());
    std::vector<std::string> texts;
    for (const TargetColumn& column : columns) texts.emplace_back(text(source, column.position));
    return PlanRows(source + 1, std::min(selection.LastRow(), target.recordCount), columns, texts, target, access);
}

ChangePlan PlanSetValue(const GridSelection& selection, const PlanTarget& target, CellAccessQuery access,
                        std::string_view value) {
    CheckSelection(target, selection);
    const auto columns = VisibleColumns(target, selection.firstColumn, selection.LastColumn());
    const std::vector<std::string> texts(columns.size(), std::string(value));
    return PlanRows(selection.firstRow, std::min(selection.LastRow(), target.recordCount), columns, texts, target,
                    access);
}

}  // namespace velda
