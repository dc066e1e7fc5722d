#include "velda_util/grid/tb_grid.h"

#include "velda_lib/msg_dll.h"
#include "velda_util/grid/graph_data.h"
#include "velda_util/grid/table_dialogs.h"

namespace velda {

bool CTBGrid::ShowColorDlg() {
    CTBColorDlg dialog;
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

}  // namespace velda
