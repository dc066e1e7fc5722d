#include "velda_util/grid/tb_browser_wnd.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "velda_util/formula/formula.h"

namespace velda {
namespace {

bool ReadCheckList(const ChoiceList& choices, std::string& text) {
    std::vector<std::size_t> lines;
    if (!choices.ReadJoinedText(text, lines)) return false;
    text = choices.JoinedText(lines);
    return true;
}

}  // namespace

CTBBrowserWnd::CTBBrowserWnd() = default;

int CTBBrowserWnd::CompareKey(const void* a, const void* b) {
    const auto left = *static_cast<const std::uint32_t*>(a);
    const auto right = *static_cast<const std::uint32_t*>(b);
    return left < right ? -1 : left > right ? 1 : 0;
}

// ---- rows ----

void CTBBrowserWnd::ConfigureRows(ColumnId keyColumn, std::vector<STBSortItem> sort) {
    rows_.Configure(columns_.Types(), keyColumn, std::move(sort));
    appendTexts_.resize(ColumnSlots());
}

RowId CTBBrowserWnd::RowIdAt(int row) const {
    RequireRow(row);
    if (row == GetRowCount()) return kAppendRow;
    if (row == insertedAt_) return kInsertedRow;
    return rows_.IdAt(insertedAt_ > 0 && row > insertedAt_ ? row - 1 : row);
}

int CTBBrowserWnd::PositionOfRow(RowId row) const {
    if (row == kAppendRow) return GetRowCount();
    if (row == kInsertedRow) return insertedAt_;
    const int position = rows_.PositionOf(row);
    return insertedAt_ > 0 && position >= insertedAt_ ? position + 1 : position;
}

std::uint32_t CTBBrowserWnd::KeyOfRow(int row) const {
    const RowId id = RowIdAt(row);
    return IsNewRowId(id) ? 0 : rows_.KeyOf(id);
}

int CTBBrowserWnd::RowOfKey(std::uint32_t key) const {
    const RowId id = rows_.RowOfKey(key);
    return id == kNoRow ? 0 : PositionOfRow(id);
}

std::vector<std::uint32_t> CTBBrowserWnd::ShownKeys() const {
    std::vector<std::uint32_t> keys;
    keys.reserve(static_cast<std::size_t>(rows_.Count()));
    for (const RowId row : rows_.Data().Order().ToVector()) keys.push_back(rows_.KeyOf(row));
    return keys;
}

bool CTBBrowserWnd::InsertRecord(int row) {
    if (insertedAt_ > 0 || row < 1 || row > GetRowCount()) return false;
    insertedAt_ = row;
    return true;
}

void CTBBrowserWnd::RemoveRow(int row) {
    const RowId id = RowIdAt(row);
    if (id == kAppendRow) throw std::invalid_argument("the trailing row cannot be removed");
    if (id == kInsertedRow) {
        insertedAt_ = 0;
    } else {
        styles_.RemoveRow(id);
        rows_.RemoveRow(rows_.PositionOf(id));
    }
    session_.OnRowRemoved(id);
}

/// The records that positions are remembered by, over a change of the rows.
struct CTBBrowserWnd::Anchors {
    struct Record {
        RowId row = kNoRow;
        std::uint32_t key = 0;
    };
    Record open;
    Record current;
    Record extent;
};

CTBBrowserWnd::Anchors CTBBrowserWnd::TakeAnchors() const {
    const auto recordOf = [this](RowId row) {
        const bool isRecord = row != kNoRow && !IsNewRowId(row) && rows_.PositionOf(row) > 0;
        return isRecord ? Anchors::Record{row, rows_.KeyOf(row)} : Anchors::Record{};
    };
    return {recordOf(session_.Row()), recordOf(current_.Cell().row), recordOf(current_.ExtentCell().row)};
}

void CTBBrowserWnd::FollowAnchors(const Anchors& anchors, const std::vector<RowChanges::Rekeyed>& rekeyed) {
    const auto rowNow = [&](std::uint32_t key) {
        for (const RowChanges::Rekeyed& pair : rekeyed) {
            if (pair.from == key) return rows_.RowOfKey(pair.to);
        }
        return rows_.RowOfKey(key);
    };
    for (const Anchors::Record& end : {anchors.current, anchors.extent}) {
        const RowId row = end.key != 0 ? rowNow(end.key) : kNoRow;
        if (row != kNoRow && row != end.row) current_.RowReplaced(end.row, row);
    }
    if (anchors.open.key != 0) {
        const RowId row = rowNow(anchors.open.key);
        if (row == kNoRow) {
            session_.OnRowRemoved(anchors.open.row);
        } else if (row != anchors.open.row || unitsSwitched_) {
            session_.OnRowReplaced(anchors.open.row, row);
        }
    } else if (unitsSwitched_ && session_.IsRowOpen()) {
        session_.OnRowReplaced(session_.Row(), session_.Row());
    }
    OnRowsMoved();
}

void CTBBrowserWnd::FillRecordRows(std::span<const std::uint32_t> keys, const WriteCells& write) {
    const Anchors anchors = TakeAnchors();
    int row = 0;
    int col = 0;
    GetCurrentCell(row, col);
    sortWhenClosed_ = false;
    styles_.ClearRows();
    rows_.Fill(keys, write);
    if (insertedAt_ > rows_.Count() + 1) insertedAt_ = rows_.Count() + 1;
    if (anchors.current.key != 0 && rows_.RowOfKey(anchors.current.key) == kNoRow) {
        current_.Clear();
        if (RowCount() > 0) current_.Set(*this, {std::min(row, RowCount()), col});
    }
    FollowAnchors(anchors, {});
}

void CTBBrowserWnd::ReplayRows(const RowChanges& changes, const WriteCells& write) {
    if (std::exchange(sortWhenClosed_, false)) rows_.SortTable();
    const Anchors anchors = TakeAnchors();
    const std::vector<RowId> removed = rows_.Replay(changes.gone, changes.come, write);
    for (const RowId row : removed) styles_.RemoveRow(row);
    if (insertedAt_ > rows_.Count() + 1) insertedAt_ = rows_.Count() + 1;
    lastCome_ = changes.come.size() == 1 ? changes.come.front() : 0;
    FollowAnchors(anchors, changes.rekeyed);
    rows_.Data().RecycleRows();
}

void CTBBrowserWnd::SortRows(std::vector<STBSortItem> sort) {
    rows_.SetSort(std::move(sort));
    if (rowInEdit_) {
        sortWhenClosed_ = true;
    } else {
        rows_.SortTable();
        OnRowsMoved();
    }
}

void CTBBrowserWnd::SortWhenClosed() {
    if (!std::exchange(sortWhenClosed_, false)) return;
    rows_.SortTable();
    OnRowsMoved();
}

void CTBBrowserWnd::EnableAppendRow(bool enable) {
    appendEnabled_ = enable;
    lastRowHidden_ = false;
    AppendChanged();
}

void CTBBrowserWnd::AdjustAppendRowNo(int /*row*/) {
    if (session_.Row() != kAppendRow) AppendChanged();
}

// ---- cells ----

std::string CTBBrowserWnd::LiveText(RowId row, ColumnId column) const {
    const auto at = static_cast<std::size_t>(column);
    if (row == edit_.row) return edit_.live[at];
    if (row == kAppendRow) return appendTexts_[at];
    if (row == kInsertedRow) return {};
    return rows_.Data().Text(row, column);
}

std::string CTBBrowserWnd::GetValueRowCol(int row, int col) const { return LiveText(RowIdAt(row), IdOfColumn(col)); }

std::string CTBBrowserWnd::GetValueRowColBeforeEdit(int row, int col) const {
    const RowId id = RowIdAt(row);
    const ColumnId column = IdOfColumn(col);
    return id == edit_.row ? edit_.before[static_cast<std::size_t>(column)] : LiveText(id, column);
}

void CTBBrowserWnd::SetValueRowColBeforeEdit(int col, std::string_view text) {
    if (edit_.row == kNoRow) return;
    const ColumnId column = IdOfColumn(col);
    edit_.before[static_cast<std::size_t>(column)] = text;
    if (IsNewRowId(edit_.row)) return;
    rows_.Data().StoreText(edit_.row, column, text, IsNumericColumn(column));
    sortWhenClosed_ = true;
}

void CTBBrowserWnd::SetValueRange(int row, int col, std::string_view text) {
    const RowId id = RowIdAt(row);
    const ColumnId column = IdOfColumn(col);
    const auto at = static_cast<std::size_t>(column);
    if (id == edit_.row) {
        edit_.live[at] = text;
    } else if (id == kAppendRow) {
        appendTexts_[at] = text;
    } else if (id != kInsertedRow) {
        rows_.Data().StoreText(id, column, text, IsNumericColumn(column));
        sortWhenClosed_ = sortWhenClosed_ || IsSortColumn(column);
    }
}

bool CTBBrowserWnd::IsSortColumn(ColumnId column) const {
    const std::vector<STBSortItem>& items = rows_.SortItems();
    return std::any_of(items.begin(), items.end(), [column](const STBSortItem& item) { return item.column == column; });
}

void CTBBrowserWnd::WriteToReadOnlyCell(int row, int col, double value) {
    SetValueRange(row, col, FormatDouble(value));
}

void CTBBrowserWnd::SetDataRowCol(int row, int col, int value) { SetValueRange(row, col, FormatLong(value)); }

int CTBBrowserWnd::GetDataRowColInt(int row, int col) const {
    const std::int64_t value = wtol(GetValueRowCol(row, col));
    return static_cast<int>(
        std::clamp<std::int64_t>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

double CTBBrowserWnd::GetDataRowColDbl(int row, int col) const { return wtof(GetValueRowCol(row, col)); }

void CTBBrowserWnd::WriteRatio(int row, int col, std::string_view text) {
    SetValueRange(row, col, text);
    if (wtof(text) > 1.0) {
        ApplyStyleNG(row, col);
    } else {
        ApplyStyleOK(row, col);
    }
}

bool CTBBrowserWnd::GetControlText(int row, int col, std::string& text, bool& active) const {
    const CellId cell = CellAt(row, col);
    if (cell != CurrentCellId()) return false;
    active = session_.IsCellOpen() && session_.Cell() == cell;
    if (active) {
        text = session_.EditorText();
        return true;
    }
    if (!StyleOf(row, col).IsCheckBox()) return false;
    text = InverseCheck(GetValueRowCol(row, col));
    return true;
}

std::string CTBBrowserWnd::GetLiveText(int row, int col) const {
    const bool isOpen = session_.IsCellOpen() && session_.Cell() == CellAt(row, col);
    return isOpen ? session_.EditorText() : GetValueRowCol(row, col);
}

void CTBBrowserWnd::ConvertFormulaToValue(ColumnId column, std::string& text) const {
    static_cast<void>(velda::ConvertFormulaToValue(text, IsNumericColumn(column)));
}

ChoiceList CTBBrowserWnd::ChoicesOf(int row, int col) const { return StyleOf(row, col).GetChoices(); }

bool CTBBrowserWnd::ReadChoice(int row, int col, std::string& text) const {
    const CGXStyle& style = StyleOf(row, col);
    if (text.empty()) return true;
    if (style.IsCheckBox()) return text == "0" || text == "1";
    const ChoiceList choices = style.GetChoices();
    if (style.GetControl() == ControlKind::CheckListComboBox) return ReadCheckList(choices, text);
    if (!style.HasList()) return true;
    if (const auto line = choices.IndexOfText(text)) {
        text = choices.Key(*line);
        return true;
    }
    return style.GetControl() == ControlKind::ComboBox || choices.IndexOfKey(text).has_value();
}

std::string CTBBrowserWnd::ChoiceReason(int row, int col, const std::string& text) const {
    const bool checkBox = StyleOf(row, col).IsCheckBox();
    return FormatText(checkBox ? "IDS_TB_ENGINE_EDIT_FIELD_REFUSED" : "IDS_TB_ENGINE_NOT_IN_LIST", {text});
}

// ---- numbers and warnings ----

bool CTBBrowserWnd::IsValidLongNumber(const std::string& text, long long& value) {
    checkedText_ = text;
    return velda::IsValidLongNumber(text, value);
}

bool CTBBrowserWnd::IsValidDoubleNumber(const std::string& text, double& value) {
    checkedText_ = text;
    return velda::IsValidDoubleNumber(text, value);
}

int CTBBrowserWnd::InvalidNumber(ColumnId column, CellNumberKind kind) {
    const std::string reason = InvalidNumberReason(checkedText_, kind);
    const std::string message = GetTitle(column) + ": " + reason;
    AddFinding({kNoRow, column, EditRule::Field, checkedText_, reason});
    SetWarningText(message);
    return 0;
}

void CTBBrowserWnd::SetWarningText(const std::string& text) {
    warning_ = text;
    if (!quiet_) Host().OnWarning(text);
}

void CTBBrowserWnd::AddFinding(EditFinding finding) {
    if (findings_) findings_->push_back(std::move(finding));
}

}  // namespace velda
