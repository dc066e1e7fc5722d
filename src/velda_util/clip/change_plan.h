#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "velda_lib/function_ref.h"

namespace velda {

/// A column of the grid as it stands now; its place in the list, from 1, is its grid column.
struct PlanColumn {
    int id = 0;
    bool hidden = false;
};

/// A rectangle of grid positions. Rows and columns count from 1, the append row behind the last record.
struct GridSelection {
    int firstRow = 1;
    int rowCount = 1;
    int firstColumn = 1;
    int columnCount = 1;

    int LastRow() const { return firstRow + rowCount - 1; }
    int LastColumn() const { return firstColumn + columnCount - 1; }
};

/// Whether a cell takes a text.
enum class CellAccess { Editable, ReadOnly, Disabled };

/// What becomes of cells that take no text: they are passed over, or the whole row is refused.
enum class LockedCells { Skip, Refuse };

/// What a plan has to know of a table.
struct PlanTarget {
    int recordCount = 0;
    /// The table adds records for rows from the append row on.
    bool appends = false;
    /// All columns in their current order.
    std::vector<PlanColumn> columns{};
    LockedCells lockedCells = LockedCells::Skip;
};

/// Access to a cell by its position; the append row, recordCount + 1, stands for every new row.
using CellAccessQuery = FunctionRef<CellAccess(int row, int column)>;
/// Text of a cell by its position. The view has to hold until the next call only.
using CellTextQuery = FunctionRef<std::string_view(int row, int column)>;

/// The row number of a planned row that adds a record.
inline constexpr int kNewRow = 0;
/// The column of a refusal that concerns a whole row.
inline constexpr int kNoPlanColumn = -1;

/// One row that is to be written.
struct PlannedRow {
    int source = 0;        ///< row of the clipboard, from 1; where there is none, the row of the table
    int target = kNewRow;  ///< row position that is overwritten, or kNewRow
    std::size_t firstCell = 0;
    std::size_t cellCount = 0;
};

/// One text that is to be written.
struct PlannedCell {
    int column = 0;  ///< column id
    std::uint32_t length = 0;
    std::size_t begin = 0;
};

/// Rows that are to be written, with their cells by column id. Equal neighbours share their text, so that a fill of a
/// long column keeps it once.
class PlannedRows {
public:
    void BeginRow(int source, int target) { rows_.push_back({source, target, cells_.size(), 0}); }
    void AddCell(int column, std::string_view text);
    /// Takes back the row that was begun last.
    void DropRow();

    const std::vector<PlannedRow>& Rows() const { return rows_; }
    std::span<const PlannedCell> Cells(const PlannedRow& row) const {
        return std::span(cells_).subspan(row.firstCell, row.cellCount);
    }
    std::string_view Text(const PlannedCell& cell) const {
        return std::string_view(bytes_).substr(cell.begin, cell.length);
    }

private:
    std::vector<PlannedRow> rows_;
    std::vector<PlannedCell> cells_;
    std::string bytes_;
};

/// A row that cannot be written, with the cell that is the reason.
struct RefusedRow {
    int source = 0;
    int target = kNewRow;
    int column = kNoPlanColumn;  ///< column id
    std::string text{};
    std::string_view reasonKey{};  ///< key of a text; lives as long as the program

    friend bool operator==(const RefusedRow&, const RefusedRow&) = default;
};

/// Something that the user should know, and how often it happened.
struct PlanNote {
    std::string_view key;  ///< key of a text with the count at its place %1; lives as long as the program
    std::size_t count = 0;

    friend bool operator==(const PlanNote&, const PlanNote&) = default;
};

/// The note on cells that cannot be changed.
inline constexpr std::string_view kNoteCellsSkipped = "IDS_TB_ENGINE_NOTE_CELLS_SKIPPED";

/// What a paste, a fill or a replacement will write, known before anything is changed.
struct ChangePlan {
    PlannedRows rows;
    std::vector<RefusedRow> refused;
    std::vector<PlanNote> notes;
};

}  // namespace velda
