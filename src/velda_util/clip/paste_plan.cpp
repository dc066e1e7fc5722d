#include "velda_util/clip/paste_plan.h"

#include <algorithm>

#include "velda_util/clip/plan_builder.h"

namespace velda {
namespace {

/// How many rows and columns a block fills.
struct Extent {
    std::size_t rows = 0;
    std::size_t columns = 0;
};

bool Fits(std::size_t selected, std::size_t size) { return selected <= 1 || selected % size == 0; }

Extent FilledExtent(const TextBlock& block, std::size_t selectedRows, std::size_t selectedColumns) {
    const Extent once{block.RowCount(), block.Width()};
    if (!Fits(selectedRows, once.rows) || !Fits(selectedColumns, once.columns)) return once;
    return {std::max(once.rows, selectedRows), std::max(once.columns, selectedColumns)};
}

/// Rows of a selection that count for a repetition: those on records.
std::size_t SelectedRecords(const GridSelection& selection, const PlanTarget& target) {
    return static_cast<std::size_t>(
        std::max(std::min(selection.LastRow(), target.recordCount) - selection.firstRow + 1, 0));
}

class PastePlanner {
public:
    PastePlanner(const TextBlock& block, const PlanTarget& target, CellAccessQuery access)
        : block_(block), target_(target), builder_(target, access) {}

    ChangePlan Plan(const GridSelection& selection) {
        if (block_.RowCount() == 0) return builder_.Take();
        const std::size_t selectedColumns =
            VisibleColumns(target_, selection.firstColumn, selection.LastColumn()).size();
        const Extent extent = FilledExtent(block_, SelectedRecords(selection, target_), selectedColumns);
        columns_ = VisibleColumns(target_, selection.firstColumn, static_cast<int>(target_.columns.size()));
        if (columns_.size() > extent.columns) columns_.resize(extent.columns);
        for (std::size_t row = 0; row < extent.rows; ++row) {
            PlanRow(row % block_.RowCount(), selection.firstRow + static_cast<int>(row));
        }
        builder_.Note("IDS_TB_ENGINE_NOTE_COLUMNS_CUT", extent.columns - columns_.size());
        builder_.Note("IDS_TB_ENGINE_NOTE_EMPTY_ROWS", emptyRows_);
        return builder_.Take();
    }

private:
    void PlanRow(std::size_t blockRow, int row) {
        const bool isNew = row > target_.recordCount;
        if (isNew && block_.IsEmptyRow(blockRow)) {
            ++emptyRows_;
            return;
        }
        builder_.BeginRow(static_cast<int>(blockRow) + 1, row);
        if (isNew && !target_.appends) {
            builder_.Refuse(kNoPlanColumn, block_.Cell(blockRow, 0), "IDS_TB_ENGINE_NO_NEW_ROWS");
        } else {
            SetCells(blockRow);
        }
        builder_.EndRow();
    }

    void SetCells(std::size_t blockRow) {
        const std::size_t count = block_.CellsInRow(blockRow);
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            const std::size_t blockColumn = i % block_.Width();
            if (blockColumn < count) builder_.SetCell(columns_[i], block_.Cell(blockRow, blockColumn));
        }
    }

    const TextBlock& block_;
    const PlanTarget& target_;
    PlanBuilder builder_;
    std::vector<TargetColumn> columns_;
    std::size_t emptyRows_ = 0;
};

}  // namespace

ChangePlan PlanPaste(const TextBlock& block, const GridSelection& selection, const PlanTarget& target,
                     CellAccessQuery access) {
    CheckSelection(target, selection);
    return PastePlanner(block, target, access).Plan(selection);
}

}  // namespace velda
