#include "velda_util/result/tb_rec_ctrl.h"

#include "velda_util/result/tb_core.h"

namespace velda {

void CTBRecCtrl::ReadRecords() {
    CTBDataSrc* source = grid_.GetDataSrc();
    if (!source) return;
    source->MakeRecords();
    DisplayRecords();
}

void CTBRecCtrl::DisplayRecords() {
    CTBDataSrc* source = grid_.GetDataSrc();
    if (!source) return;
    const GridUpdateLock lock(grid_);
    grid_.ClearRowsAround();
    SetPrePostRows(0, 0);
    ForgetCells();
    order_ = RecordOrder::Natural(static_cast<std::uint32_t>(source->GetRecCount()));
    source->AfterSetRecCount();
    grid_.SortCtrl().Apply();
    source->BeforeRedrawTable();
    source->AfterRedrawTable();
}

void CTBRecCtrl::SetOrder(RecordOrder order) { order_ = std::move(order); }

int CTBRecCtrl::RecordRows() const { return static_cast<int>(order_.Count()) * grid_.RecHdr().RowsOfRecord(); }

long CTBRecCtrl::GetRecNo(int row) const {
    if (row <= preRows_ || row > preRows_ + RecordRows()) return 0;
    const int place = (row - preRows_ - 1) / grid_.RecHdr().RowsOfRecord() + 1;
    return static_cast<long>(order_.RecordAt(static_cast<std::uint32_t>(place)));
}

int CTBRecCtrl::GetRecRow(int row) const {
    if (row <= preRows_ || row > preRows_ + RecordRows()) return 0;
    return (row - preRows_ - 1) % grid_.RecHdr().RowsOfRecord() + 1;
}

int CTBRecCtrl::GetFldID(int row, int col) const {
    const int recRow = GetRecRow(row);
    const int fieldNo = grid_.ColumnIdAt(col) + 1;
    return grid_.RecHdr().SlotOf(fieldNo, recRow) < 0 ? 0 : fieldNo;
}

int CTBRecCtrl::RowOfRecord(long record) const {
    if (record < 1 || record > RecCount()) return 0;
    const int place = static_cast<int>(order_.PlaceOf(static_cast<std::uint32_t>(record)));
    return preRows_ + (place - 1) * grid_.RecHdr().RowsOfRecord() + 1;
}

bool CTBRecCtrl::GetRecFldRowCol(long record, int fieldNo, int& row, int& col) const {
    const int first = RowOfRecord(record);
    if (first == 0 || grid_.RecHdr().SlotOf(fieldNo, 1) < 0) return false;
    row = first;
    col = grid_.PositionOfColumn(fieldNo - 1);
    return true;
}

void CTBRecCtrl::SetPrePostRows(int preRows, int postRows) {
    preRows_ = preRows < 0 ? 0 : preRows;
    postRows_ = postRows < 0 ? 0 : postRows;
}

const RecordCells& CTBRecCtrl::CellsOf(long record) const {
    Kept& kept = kept_[static_cast<std::size_t>(record) % kKept];
    if (kept.record == record) return kept.cells;
    CTBDataSrc& source = *grid_.GetDataSrc();
    kept.cells.Reset(grid_.RecHdr());
    source.SeekRec(record);
    source.GetRecTexts(kept.cells);
    kept.record = record;
    return kept.cells;
}

const RecordCell* CTBRecCtrl::CellAt(int row, int col) const {
    const int slot = grid_.RecHdr().SlotOf(grid_.ColumnIdAt(col) + 1, GetRecRow(row));
    return slot < 0 ? nullptr : &CellsOf(GetRecNo(row)).At(static_cast<std::size_t>(slot));
}

void CTBRecCtrl::ForgetCells() {
    for (Kept& kept : kept_) kept.record = 0;
}

}  // namespace velda
