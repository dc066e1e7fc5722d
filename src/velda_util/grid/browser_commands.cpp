#include <algorithm>

#include "velda_util/grid/tb_browser_wnd.h"

namespace velda {

std::vector<std::string> CTBBrowserWnd::TextsOf(RowId row) const {
    std::vector<std::string> texts(ColumnSlots());
    for (std::size_t at = 0; at < texts.size(); ++at) texts[at] = LiveText(row, static_cast<ColumnId>(at));
    return texts;
}

void CTBBrowserWnd::RememberFormulas(RowId row) {
    if (row == kNoRow || IsNewRowId(row)) return;
    const std::uint32_t key = rows_.KeyOf(row);
    for (const auto& [column, formula] : typedFormulas_) {
        // A switch of units or a dependency of another cell may have put another value there.
        if (edit_.live[static_cast<std::size_t>(column)] != formula.value) continue;
        formulas_[{key, column}] = {formula.expression, rows_.Data().Text(row, column)};
    }
}

bool CTBBrowserWnd::Told(const EditReply& reply) {
    if (reply) return true;
    if (reply.refusal == EditRefusal::Locked && OnLockedEdit()) return false;
    // What a check found was told by the check itself.
    if (reply.refusal == EditRefusal::NotWritten && !session_.Findings().empty()) {
        SetWarningText(session_.Findings().front().message);
    } else if (reply.refusal != EditRefusal::Invalid && reply.refusal != EditRefusal::NothingOpen) {
        SetWarningText(ReasonText(reply.refusal));
    }
    return false;
}

bool CTBBrowserWnd::LeaveRow() {
    const LeaveReport report = session_.RequestLeaveRow();
    if (!report.MayGoOn() && report.result == LeaveResult::KeptOpen && !session_.Findings().empty() &&
        session_.Findings().front().rule == EditRule::Write) {
        SetWarningText(session_.Findings().front().message);
    }
    return report.MayGoOn();
}

bool CTBBrowserWnd::SetCurrentCell(int row, int col, int flags) {
    if (row < 1 || row > RowCount() || col < 1 || col > GetColCount() || !CanEnter({row, col})) return false;
    const CellId target = CellAt(row, col);
    if (session_.IsRowOpen() && target.row != session_.Row()) {
        if (!LeaveRow()) return false;
    } else if (session_.IsCellOpen() && target != session_.Cell() && !Told(session_.AcceptCell())) {
        return false;
    }
    // The row that was left may have moved, and this one with it.
    const int now = PositionOfRow(target.row);
    if (!CGXGridCore::SetCurrentCell(now > 0 ? now : std::min(row, RowCount()), PositionOfColumn(target.column),
                                     flags)) {
        return false;
    }
    rowEntry_.MovedTo(CurrentCellId());
    return true;
}

bool CTBBrowserWnd::EditCell(int row, int col, const std::string& text) {
    if (!SetCurrentCell(row, col)) {
        if (!session_.IsRowOpen()) return Told({EditRefusal::NotEditable});
        return false;
    }
    return Told(session_.EnterText(CurrentCellId(), text));
}

bool CTBBrowserWnd::TypeText(const std::string& text) {
    const CellId cell = CurrentCellId();
    if (cell.row == kNoRow) return false;
    if (listOpen_) {
        const std::optional<std::string> key = TypedKey(text, session_.EditorText());
        return key && Told(session_.ChangeText(*key));
    }
    if (session_.IsCellOpen()) return Told(session_.ChangeText(session_.EditorText() + text));
    typedInList_.clear();
    const std::optional<std::string> key =
        IsClosedList(cell) ? TypedKey(text, LiveText(cell.row, cell.column)) : std::nullopt;
    if (!Told(session_.StartTyping(cell, key.value_or(text)))) return false;
    listOpen_ = key.has_value();
    return true;
}

bool CTBBrowserWnd::IsClosedList(CellId cell) const {
    return StyleOf(PositionOfRow(cell.row), PositionOfColumn(cell.column)).IsClosedList();
}

std::optional<std::string> CTBBrowserWnd::TypedKey(const std::string& text, const std::string& current) {
    const CellId cell = CurrentCellId();
    const ChoiceList choices = ChoicesOf(PositionOfRow(cell.row), PositionOfColumn(cell.column));
    const auto from = choices.IndexOfKey(current);
    typedInList_ += text;
    auto line = choices.IndexOfTyped(typedInList_, from);
    if (!line) {
        typedInList_ = text;
        line = choices.IndexOfTyped(text, from);
    }
    return line ? std::optional(std::string(choices.Key(*line))) : std::nullopt;
}

// ---- keys ----

KeySituation CTBBrowserWnd::Situation() const {
    KeySituation situation;
    if (session_.State() == EditState::Replacing) situation.editor = KeySituation::Editor::Replacing;
    if (session_.State() == EditState::InPlace) situation.editor = KeySituation::Editor::InPlace;
    situation.listOpen = listOpen_;
    situation.rowsSelected = selection_.IsOfRows();
    int row = 0;
    int col = 0;
    if (!GetCurrentCell(row, col)) return situation;
    const CGXStyle& style = StyleOf(row, col);
    if (style.IsCheckBox()) situation.cell = KeySituation::Cell::CheckBox;
    if (style.HasList()) situation.cell = KeySituation::Cell::List;
    return situation;
}

bool CTBBrowserWnd::MoveBy(NavigationStep step) {
    int row = 0;
    int col = 0;
    GetCurrentCell(row, col);
    const GridPosition target = Navigate(*this, {row, col}, step);
    if (!target.IsValid()) return false;
    if (step == NavigationStep::Next || step == NavigationStep::Previous) rowEntry_.Begin(CurrentCellId());
    if (target == GridPosition{row, col}) {
        if (session_.IsCellOpen() && !Told(session_.AcceptCell())) return false;
        const bool endsNewRow = step == NavigationStep::Next && session_.Row() == kAppendRow;
        return !endsNewRow || (LeaveRow() && BeginNextRow());
    }
    return SetCurrentCell(target.row, target.column);
}

bool CTBBrowserWnd::BeginNextRow() {
    const GridPosition first = Navigate(*this, {RowCount(), 1}, NavigationStep::RowStart);
    return SetCurrentCell(first.row, first.column);
}

bool CTBBrowserWnd::EnterDown() {
    int row = 0;
    int col = 0;
    if (!GetCurrentCell(row, col)) return MoveBy(NavigationStep::TableStart);
    if (session_.IsCellOpen() && !Told(session_.AcceptCell())) return false;
    const CellId cell = CurrentCellId();
    const bool wasNew = cell.row == kAppendRow && session_.IsRowOpen();
    const int column = PositionOfColumn(rowEntry_.End(cell));
    const GridPosition target = velda::EnterDown(*this, {row, col}, column);
    // An append row that was written makes room for the next one.
    if (target.row == row || wasNew) {
        if (!LeaveRow()) return false;
        return CGXGridCore::SetCurrentCell(wasNew ? RowCount() : std::min(row, RowCount()), column);
    }
    return SetCurrentCell(target.row, target.column);
}

bool CTBBrowserWnd::InsertBeforeCurrent() {
    const CellId cell = CurrentCellId();
    if (cell.row == kNoRow || !Told(session_.InsertRow(cell.row))) return false;
    return CGXGridCore::SetCurrentCell(insertedAt_, PositionOfColumn(cell.column));
}

bool CTBBrowserWnd::StepList(int step) {
    const CellId cell = session_.Cell();
    const ChoiceList choices = ChoicesOf(PositionOfRow(cell.row), PositionOfColumn(cell.column));
    if (choices.IsEmpty()) return false;
    const auto line = choices.IndexOfKey(session_.EditorText());
    const auto last = static_cast<int>(choices.Count()) - 1;
    const int next = line ? std::clamp(static_cast<int>(*line) + step, 0, last) : step > 0 ? 0 : last;
    typedInList_.clear();
    return Told(session_.ChangeText(std::string(choices.Key(static_cast<std::size_t>(next)))));
}

bool CTBBrowserWnd::ToggleCheck() {
    int row = 0;
    int col = 0;
    if (!GetCurrentCell(row, col)) return false;
    return Told(session_.EnterText(CurrentCellId(), InverseCheck(GetValueRowCol(row, col))));
}

bool CTBBrowserWnd::DoCommand(TableCommand command) {
    using C = TableCommand;
    switch (command) {
        case C::EditInPlace: return Told(session_.EditInPlace(CurrentCellId()));
        case C::EnterDown: return EnterDown();
        case C::Cancel: return Told(session_.Cancel());
        case C::ToggleCheck: return ToggleCheck();
        case C::OpenList:
            if (!session_.IsCellOpen() && !Told(session_.EditInPlace(CurrentCellId()))) return false;
            typedInList_.clear();
            listOpen_ = true;
            return true;
        case C::CloseList: listOpen_ = false; return true;
        case C::ListUp: return StepList(-1);
        case C::ListDown: return StepList(1);
        case C::InsertRow: return InsertBeforeCurrent();
        case C::DeleteRows:
            if (session_.IsLocked()) return Told({EditRefusal::Locked});
            return CanDeleteRowByPressingKey() && LeaveRow() && Told(session_.DeleteSelected());
        default: return CTBGrid::DoCommand(command);
    }
}

}  // namespace velda
