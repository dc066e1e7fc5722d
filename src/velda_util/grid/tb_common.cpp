#include "velda_util/grid/tb_common.h"

#include <algorithm>
#include <utility>

#include "velda_lib/number_text.h"

namespace velda {

bool CTBCommon::Initialize() {
    CGXStyle style;
    style.SetHorizontalAlignment(HorizontalAlignment::Right).SetValueType(ValueType::Numeric);
    if (GetInitialColCount() > 0) {
        SetStyleRange(CGXRange().SetCols(1, static_cast<std::uint32_t>(GetInitialColCount())), style);
    }
    InitBrowserSettings();
    return true;
}

// ---- filling ----

void CTBCommon::MakeItemEx(const std::uint32_t* keys, int count, int flag) {
    const ColumnMap map = CurrentColumnMap();
    const bool all = !keys && count == -2;
    if (flag == 0) DropFilter();
    if (!all) {
        showsAll_ = false;
        FillRows(count, keys, map);
    } else if (flag == 0 || (showsAll_ && !IsColumnFiltered())) {
        showsAll_ = true;
        FillAllRows(GetRecordCount(), map);
    } else {
        const Keys shown = ShownKeys();
        FillRows(static_cast<int>(shown.size()), shown.data(), map);
    }
    AdjustAppendRowNo(0);
    if (flag == 0 && GoLastWhenOpen()) SetLeftValidCell(RowCount(), GetColCount());
}

void CTBCommon::FilterRecord(const std::uint32_t* keys, int count) {
    if (!LeaveRow()) {
        waitingFilter_ = Keys(keys, keys + std::max(count, 0));
        return;
    }
    waitingFilter_.reset();
    DropFilter();
    MakeItemEx(keys, count, 1);
}

void CTBCommon::OnRowClosed() {
    if (!waitingFilter_) return;
    const Keys keys = *std::exchange(waitingFilter_, std::nullopt);
    const GridUpdateLock lock(*this);
    DropFilter();
    MakeItemEx(keys.data(), static_cast<int>(keys.size()), 1);
}

void CTBCommon::PreFilterRecord(const Keys& keys) {
    if (keys.empty()) {
        FilterRecord(nullptr, 0);
    } else {
        const Keys copy = keys;
        FilterRecord(copy.data(), static_cast<int>(copy.size()));
    }
}

void CTBCommon::UnitChanged() {
    if (Session().IsCellOpen()) static_cast<void>(OpenSession().AcceptCell());
    const GridUpdateLock lock(*this);
    SetHeaderTitle(0, 0);
    unitsSwitched_ = true;
    MakeItemEx(nullptr, -2, 1);
    unitsSwitched_ = false;
}

// ---- what the engine calls ----

CTBCommon::RowTexts CTBCommon::GridTextsOf(int row) const {
    RowTexts texts;
    for (int col = 1; col <= GetColCount(); ++col) texts.push_back(GetValueRowCol(row, col));
    return texts;
}

bool CTBCommon::OnValidateField(int row, int col) {
    checkedRow_ = row;
    std::string text = GetLiveText(row, col);
    ReadChoice(row, col, text);
    return text.empty() || ValidateColumn(text, IdOfColumn(col)) != 0;
}

bool CTBCommon::OnValidateRecord(int row) {
    checkedRow_ = row;
    return ValidateRowComplete(GridTextsOf(row), CurrentColumnMap()) != 0;
}

bool CTBCommon::OnDeleteRecords(const std::vector<int>& rows) {
    return rows.size() == 1 ? OnDeleteRecord(rows.front()) : DeleteRecords(rows) != 0;
}

CTBCommon::RowTexts CTBCommon::NewRowTexts() {
    RowTexts texts;
    for (ColumnId id = 0; id < GetColCount(); ++id) {
        texts.push_back(id == GetKeyColID() ? GetNewKeyString() : GetDefaultCellText(id));
    }
    return texts;
}

void CTBCommon::AdjustAppendRowNo(int row) {
    CTBBrowserWndEx::AdjustAppendRowNo(row);
    const EditSession& session = Session();
    if (!IsNewRowId(session.Row()) || session.State() == EditState::Committing) return;
    const int place = PositionOfRow(session.Row());
    const auto isKey = [this](const EditedCell& cell) { return cell.column == GetKeyColID(); };
    const std::vector<EditedCell>& typed = session.AcceptedCells();
    if (std::any_of(typed.begin(), typed.end(), isKey)) return;
    const auto key = static_cast<std::uint32_t>(wtol(GetKeyString(place)));
    if (RecordExists(key)) SetValueRange(place, KeyColumnNo(), GetNewKeyString());
}

CTBCommon::RowTexts CTBCommon::NewAppendTexts() {
    RowTexts texts(ColumnSlots());
    if (!texts.empty() && IsAppendRowEnabled()) texts[static_cast<std::size_t>(GetKeyColID())] = GetNewKeyString();
    return texts;
}

}  // namespace velda
