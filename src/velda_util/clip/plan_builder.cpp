#include "velda_util/clip/plan_builder.h"

#include <algorithm>
#include <stdexcept>

namespace velda {

std::vector<TargetColumn> VisibleColumns(const PlanTarget& target, int first, int last) {
    std::vector<TargetColumn> columns;
    for (int position = first; position <= last; ++position) {
        const PlanColumn& column = target.columns[static_cast<std::size_t>(position - 1)];
        if (!column.hidden) columns.push_back({position, column.id});
    }
    return columns;
}

void CheckSelection(const PlanTarget& target, const GridSelection& selection) {
    const auto within = [](int first, int count, std::size_t end) {
        return first >= 1 && count >= 1 && static_cast<std::size_t>(first - 1) + static_cast<std::size_t>(count) <= end;
    };
    const std::size_t rows = static_cast<std::size_t>(std::max(target.recordCount, 0)) + 1;
    if (!within(selection.firstRow, selection.rowCount, rows)) throw std::invalid_argument("selected rows");
    if (!within(selection.firstColumn, selection.columnCount, target.columns.size())) {
        throw std::invalid_argument("selected columns");
    }
}

void PlanBuilder::BeginRow(int source, int row) {
    source_ = source;
    row_ = row;
    refused_ = false;
    plan_.rows.BeginRow(source, row > target_.recordCount ? kNewRow : row);
}

bool PlanBuilder::SetCell(TargetColumn column, std::string_view text) {
    if (refused_) return false;
    const CellAccess access = access_(std::min(row_, target_.recordCount + 1), column.position);
    if (access != CellAccess::Editable) {
        RejectCell(column, text, access);
        return false;
    }
    plan_.rows.AddCell(column.id, text);
    return true;
}

void PlanBuilder::RejectCell(TargetColumn column, std::string_view text, CellAccess access) {
    if (target_.lockedCells == LockedCells::Skip) {
        ++skipped_;
    } else if (access == CellAccess::ReadOnly) {
        Refuse(column.id, text, "IDS_TB_ENGINE_CELL_READ_ONLY");
    } else {
        Refuse(column.id, text, "IDS_TB_ENGINE_CELL_DISABLED");
    }
}

void PlanBuilder::Refuse(int column, std::string_view text, std::string_view reasonKey) {
    refused_ = true;
    plan_.refused.push_back({source_, plan_.rows.Rows().back().target, column, std::string(text), reasonKey});
}

bool PlanBuilder::EndRow() {
    const bool kept = !refused_ && plan_.rows.Rows().back().cellCount > 0;
    if (!kept) plan_.rows.DropRow();
    return kept;
}

void PlanBuilder::Note(std::string_view key, std::size_t count) {
    if (count > 0) plan_.notes.push_back({key, count});
}

ChangePlan PlanBuilder::Take() {
    Note(kNoteCellsSkipped, skipped_);
    return std::move(plan_);
}

}  // namespace velda
