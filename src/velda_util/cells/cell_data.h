#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "velda_util/cells/cell_value.h"
#include "velda_util/cells/row_order.h"
#include "velda_util/cells/text_pool.h"

namespace velda {

/// The cell texts of a table, by row id and column id, and the order of the rows. A cell is a text; a number is kept as
/// a number, and its text is "%.15g", so that sorting need not read texts and a million rows take little room.
class CGXData {
public:
    explicit CGXData(int columnCount = 0) { Reset(columnCount); }

    /// Empties the store and sets the number of columns.
    void Reset(int columnCount);
    int ColumnCount() const { return static_cast<int>(columnCount_); }

    // ---- rows

    /// A new row with empty cells; it does not stand in the order yet. Ids of removed rows come back only after
    /// RecycleRows.
    RowId NewRow();
    /// Removes a row, from the order too.
    void RemoveRow(RowId row);
    /// Removes many rows and puts others to their places, in one pass. `added` stands in the order of its places, which
    /// count in the order before the call.
    void MergeRows(std::span<const RowId> removed, std::span<const RowOrder::Arrival> added);
    bool HasRow(RowId row) const { return row < used_.size() && used_[row]; }
    /// One above the largest row id in use.
    RowId RowIdEnd() const { return static_cast<RowId>(used_.size()); }
    /// Gives the ids of removed rows free for new rows; for a moment in which nobody holds the id of a removed row.
    void RecycleRows();
    void ReserveRows(std::size_t count);

    RowOrder& Order() { return order_; }
    const RowOrder& Order() const { return order_; }

    // ---- cells; row and column must exist

    /// Keeps a text. With `numeric` set a text that is exactly the "%.15g" form of its number is kept as that number.
    void StoreText(RowId row, int column, std::string_view text, bool numeric);
    /// Keeps a number as its "%.15g" text shows it, so that rows which look equal sort as equal. A number that is not
    /// finite is kept as a text.
    void StoreNumber(RowId row, int column, double value);

    CellValue Value(RowId row, int column) const { return CellsOf(row)[column]; }
    /// The cells of a row, by column id.
    std::span<const CellValue> Row(RowId row) const { return {CellsOf(row), columnCount_}; }
    std::string Text(RowId row, int column) const;
    /// Appends the text of a cell, without making one of its own.
    void AppendText(RowId row, int column, std::string& text) const;
    /// The number of a cell: of a text that is no number the longest leading one, of an empty cell 0.
    double Number(RowId row, int column) const;

    /// Contract form: position from 1 on and grid column from 1 on for tables whose columns have not been moved.
    void StoreValueRowCol(int row, int column, std::string_view text, bool numeric);

    std::size_t MemoryBytes() const;

private:
    static constexpr std::size_t kBlockRows = 1024;

    CellValue* CellsOf(RowId row) const { return blocks_[row / kBlockRows].get() + row % kBlockRows * columnCount_; }
    void AddBlock();
    void EmptyRow(RowId row);
    CellValue ValueOf(std::string_view text, bool numeric);
    void CompactPool();

    std::size_t columnCount_ = 0;
    /// Rows stand whole, in blocks that never move: most work reads or writes all cells of a row.
    std::vector<std::unique_ptr<CellValue[]>> blocks_;
    std::vector<bool> used_;
    std::vector<RowId> removed_;
    std::vector<RowId> free_;
    RowOrder order_;
    TextPool pool_;
    std::size_t compactAt_ = 0;
};

}  // namespace velda
