#include "velda_util/grid/tb_grid.h"

#include "velda_lib/msg_dll.h"
#include "velda_util/grid/graph_data.h"
#include "velda_util/grid/table_dialogs.h"

namespace velda {

bool CTBGrid::ShowColorDlg() {
    CTBColorDlg dialog;
    return DoModal(dialog);
}

const std::vector<STBSortItem>& CTBGrid::SortInfo() const {
    static const std::vector<STBSortItem> kNone;
    return kNone;
}

bool CTBGrid::ShowSortDlg() {
    CTBSortDlg dialog(*this);
    return DoModal(dialog);
}

bool CTBGrid::GetGraphData(T_GRAPH_D& data) { return GraphDataOf(*this, GetGraphRange(), data); }

CGXRange CTBGrid::GetGraphRange() const {
    const PositionRange range = CommandRange();
    if (range.bottom < range.top || range.right < range.left) return {};
    const auto index = [](int position) { return static_cast<CGXRange::Index>(position); };
    return {index(range.top), index(range.left), index(range.bottom), index(range.right)};
}

Outcome CTBGrid::SaveLayout() {
    TableRegistry& registry = TableRegistry::OfProcess();
    std::vector<int> widths;
    TableLayout layout;
    layout.order = columns_.Order();
    for (int id = 0; id < columns_.Count(); ++id) {
        widths.push_back(columns_.Width(id));
        if (columns_.IsHidden(id) && !columns_.IsHiddenByIntend(PositionOfColumn(id))) layout.hidden.push_back(id);
        if (columns_.IsLocked(id)) layout.locked.push_back(id);
    }
    registry.SetCurrColWithInPrefInfo(tableName_, widths);
    registry.SetLayout(tableName_, layout);
    return registry.WriteToRegistry(tableName_);
}

void CTBGrid::PutColumnPreferences(const std::vector<STBPrefItem>& items) {
    for (ColumnId id = 0; id < columns_.Count() && id < static_cast<int>(items.size()); ++id) {
        const STBPrefItem& item = items[static_cast<std::size_t>(id)];
        columns_.SetWidth(id, item.columnWidth);
        if (columns_.Info(id).type != ColumnType::Double) continue;
        const auto column = static_cast<std::uint32_t>(id);
        styles_.SetStyleRange(StyleTarget::Columns({&column, 1}),
                              CGXStyle()
                                  .SetFormat(item.numberFormat == 2 ? NumberFormat::Fixed : NumberFormat::General)
                                  .SetPlaces(item.decimalPlaces));
    }
}

void CTBGrid::ApplyLayout() {
    const TableLayout layout = TableRegistry::OfProcess().GetLayout(tableName_);
    if (!layout.order.empty()) columns_.SetOrder(layout.order);
    for (const ColumnId id : layout.hidden) columns_.SetHidden(id, true);
    for (const ColumnId id : layout.locked) SetColLocked(PositionOfColumn(id), true);
}

GridPosition CTBGrid::SearchStart() const {
    const PositionRange range = CommandRange();
    if (range.top == range.bottom && range.left == range.right) return {range.top, range.left};
    return current_.Position(*this);
}

void CTBGrid::UpdateFindParam(STBFindStruct& find) {
    const GridPosition start = SearchStart();
    find.currentRow = start.IsValid() ? start.row : find.direction > 0 ? 0 : RowCount() + 1;
}

FindResult CTBGrid::Search(const STBFindStruct& find, const FindArea& area) const {
    std::string buffer;
    return FindText(find, area,
                    [&](int row, int col) -> std::string_view { return buffer = ClipboardCellText(row, col); });
}

bool CTBGrid::FindFrom(STBFindStruct& find, int column) {
    FindArea area{RowCount() - (HasAppendRow() ? 1 : 0), {}, column};
    for (int col = 1; col <= GetColCount(); ++col) area.columns.push_back({IdOfColumn(col), IsColumnHidden(col)});
    if (area.columns.empty()) return false;
    const FindResult result = Search(find, area);
    if (!result.found) {
        Host().OnMessage(FormatText("IDS_TB_ENGINE_FIND_NOT_FOUND", {find.text}));
        return false;
    }
    if (result.wrapped) {
        Host().OnMessage(CMsgDll::pfuncLoadStr(
            find.direction > 0 ? "IDS_TB_ENGINE_FIND_WRAPPED_START" : "IDS_TB_ENGINE_FIND_WRAPPED_END", 0));
    }
    find.currentRow = result.row;
    if (SetCurrentCell(result.row, result.column)) {
        Redraw();
        return true;
    }
    // A cell that cannot be entered is shown as selected instead.
    SelectRange(PositionRange::Of({result.row, result.column}, {result.row, result.column}));
    Redraw();
    return true;
}

bool CTBGrid::Find(STBFindStruct& find) {
    if (find.text.empty() || !LeaveRow()) return false;
    int row = 0;
    int col = 1;
    GetCurrentCell(row, col);
    return FindFrom(find, std::max(col, 1));
}

bool CTBGrid::FindNext(STBFindStruct& find) {
    if (find.text.empty() || !LeaveRow()) return false;
    UpdateFindParam(find);
    if (!SearchStart().IsValid()) return FindFrom(find, 1);
    int col = SearchStart().column;
    if (find.onlyCurrentColumn) {
        find.currentRow += find.direction > 0 ? 1 : -1;
        return FindFrom(find, col);
    }
    // One cell on in reading order.
    col += find.direction > 0 ? 1 : -1;
    if (col >= 1 && col <= GetColCount()) return FindFrom(find, col);
    find.currentRow += find.direction > 0 ? 1 : -1;
    return FindFrom(find, col < 1 ? GetColCount() : 1);
}

// ---- keys ----

KeySituation CTBGrid::Situation() const {
    KeySituation situation;
    situation.rowsSelected = selection_.IsOfRows();
    return situation;
}

bool CTBGrid::ProcessKey(KeyChord chord) {
    const std::optional<TableCommand> command = CommandOf(chord);
    return command && DoCommand(*command);
}

bool CTBGrid::MoveBy(NavigationStep step) {
    int row = 0;
    int col = 0;
    GetCurrentCell(row, col);
    const GridPosition target = Navigate(*this, {row, col}, step);
    return target.IsValid() && SetCurrentCell(target.row, target.column);
}

bool CTBGrid::ExtendBy(NavigationStep step) {
    const GridPosition from = current_.ExtentPosition(*this);
    if (!from.IsValid()) return false;
    ExtendSelection(ExtendTo(*this, from, step));
    return true;
}

bool CTBGrid::SelectWhole(TableCommand command) {
    const PositionRange range = CommandRange();
    if (command == TableCommand::SelectAll) {
        SelectRange(PositionRange::All());
    } else if (command == TableCommand::SelectRow) {
        SelectRange(PositionRange::Rows(range.top, range.bottom));
    } else {
        SelectRange(PositionRange::Columns(range.left, range.right));
    }
    return true;
}

bool CTBGrid::DoCommand(TableCommand command) {
    using C = TableCommand;
    if (const std::optional<CommandMove> move = MoveOf(command)) {
        return move->extends ? ExtendBy(move->step) : MoveBy(move->step);
    }
    switch (command) {
        case C::EnterDown: return MoveBy(NavigationStep::Down);
        case C::SelectAll:
        case C::SelectRow:
        case C::SelectColumn: return SelectWhole(command);
        case C::Copy: return Copy(false);
        case C::CopyWithHeaders: return Copy(true);
        // The window asks for what to search.
        case C::Find: LeaveRow(); return false;
        case C::FindNext:
        case C::FindPrevious: {
            STBFindStruct find = m_Find;
            find.direction = command == C::FindNext ? 1 : 0;
            return FindNext(find);
        }
        default: return false;
    }
}

}  // namespace velda
