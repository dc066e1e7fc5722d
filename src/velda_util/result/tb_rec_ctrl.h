#pragma once

#include <cstdint>
#include <vector>

#include "velda_util/result/record_cells.h"
#include "velda_util/result/record_order.h"

namespace velda {

class CTBCore;

/// The records of a result grid and the rows that they stand in. The records that were read last are kept, so that
/// drawing a page reads each of them once.
class CTBRecCtrl {
public:
    explicit CTBRecCtrl(CTBCore& grid) : grid_(grid) {}

    /// Has the source find its objects, and shows the records.
    void ReadRecords();
    /// Shows the records anew: their number, their order, their texts.
    void DisplayRecords();

    // ---- rows

    int RowCount() const { return preRows_ + RecordRows() + postRows_; }
    /// Records in the order that is shown.
    const RecordOrder& Order() const { return order_; }
    void SetOrder(RecordOrder order);
    long RecCount() const { return static_cast<long>(order_.Count()); }
    /// The record of a row; 0 for rows before and after the records.
    long GetRecNo(int row) const;
    /// Which of its record's rows a row is, from 1; 0 without a record.
    int GetRecRow(int row) const;
    /// The field that stands in a cell; 0 for none.
    int GetFldID(int row, int col) const;
    /// The cell of a field of a record; false when it has no place.
    bool GetRecFldRowCol(long record, int fieldNo, int& row, int& col) const;
    /// The first row of a record.
    int RowOfRecord(long record) const;

    void SetPrePostRows(int preRows, int postRows);
    int PreRows() const { return preRows_; }
    int PostRows() const { return postRows_; }
    int FirstPostRow() const { return preRows_ + RecordRows() + 1; }

    // ---- cells

    /// The cells of a record as the source writes them.
    const RecordCells& CellsOf(long record) const;
    /// The cell of a field; null when the record has none in that row.
    const RecordCell* CellAt(int row, int col) const;
    /// What was read is read anew.
    void ForgetCells();

private:
    int RecordRows() const;

    /// A record that was read; the place in the cache is told by its number.
    struct Kept {
        long record = 0;
        RecordCells cells;
    };
    static constexpr std::size_t kKept = 512;

    CTBCore& grid_;
    RecordOrder order_;
    int preRows_ = 0;
    int postRows_ = 0;
    mutable std::vector<Kept> kept_ = std::vector<Kept>(kKept);
};

}  // namespace velda
