#include "zt_tb/core/tb_common_view.h"

#include <algorithm>

#include "velda_base/host/application_host.h"
#include "velda_lib/msg_dll.h"
#include "velda_util/grid/table_dialogs.h"
#include "zt_tb/core/tb_find_dlg.h"

namespace zt {
namespace {

/// Rows that are looked at to fit the width of a column.
constexpr int kSampledRows = 100;

/// The right-button menu of all tables; an entry without a command is a separator.
struct MenuEntry {
    int id = 0;
    std::string_view textKey{};
};
constexpr MenuEntry kContextMenu[] = {
    {CommandId::EditCopy, "IDS_TB_ENGINE_CMD_COPY"},
    {CommandId::EditPaste, "IDS_TB_ENGINE_CMD_PASTE"},
    {},
    {CommandId::EditFind, "IDS_TB_COMMONVIEW_FIND"},
    {CommandId::FindNext, "IDS_TB_ENGINE_CMD_FIND_NEXT"},
    {},
    {CommandId::Sort, "IDS_TB_COMMONVIEW_SORT"},
    {CommandId::Graph, "IDS_TB_COMMONVIEW_GRAPH"},
    {CommandId::ChangeUnit, "IDS_TB_COMMONVIEW_CHANGE_UNIT"},
    {CommandId::FitWidth, "IDS_TB_COMMONVIEW_FIT_WIDTH"},
    {CommandId::Style, "IDS_TB_COMMONVIEW_STYLE"},
    {},
    {CommandId::LockColumns, "IDS_TB_COMMONVIEW_LOCK_COLUMNS"},
    {CommandId::UnlockColumns, "IDS_TB_COMMONVIEW_UNLOCK_COLUMNS"},
};

}  // namespace

// ---- commands

std::span<const ViewCommand<CTBCommonView>> CTBCommonView::Commands() {
    using View = CTBCommonView;
    static constexpr ViewCommand<View> kCommands[] = {
        {CommandId::EditFind, &View::OnTbGvFind, &View::HasTable},
        {CommandId::FindNext, &View::OnTbGvFindNext, &View::HasTable},
        {CommandId::Sort, &View::OnTbCmenuSortDlg, &View::HasTable},
        {CommandId::SortToolBar, &View::OnTbGvSortDlg, &View::HasTable},
        {CommandId::FitWidth, &View::OnResizeWidth, &View::HasTable},
        {CommandId::FitWidthToolBar, &View::OnTbGvResizeWidth, &View::HasTable},
        {CommandId::Style, &View::OnTbGvStyleDlg, &View::HasTable},
        {CommandId::ChangeUnit, &View::OnChangeUnit, &View::HasTable},
        {CommandId::LockColumns, &View::OnDisableCol, &View::HasTable},
        {CommandId::UnlockColumns, &View::OnEnableCol, &View::HasTable},
    };
    return kCommands;
}

bool CTBCommonView::OnCommand(int id) {
    return Run<CTBCommonView>(Commands(), *this, id) || CTBView::OnCommand(id) || OnTbSelectCustomContextMenu(id);
}

bool CTBCommonView::IsCommandEnabled(int id) const {
    return IsEnabled<CTBCommonView>(Commands(), *this, id) || CTBView::IsCommandEnabled(id);
}

bool CTBCommonView::OnTbSelectCustomContextMenu(int command) {
    velda::CTBGrid* grid = LiveGrid();
    return grid && grid->HandleCustomContextMenu(command);
}

// ---- right-button menu

velda::CMenu CTBCommonView::BuildContextMenu(velda::CTBGrid& grid) {
    velda::CMenu menu;
    for (const MenuEntry& entry : kContextMenu) {
        if (entry.id == 0) {
            menu.AppendSeparator();
        } else {
            menu.Append(entry.id, velda::CMsgDll::pfuncLoadStr(entry.textKey, 0), IsCommandEnabled(entry.id));
        }
    }
    const auto* browser = dynamic_cast<const velda::CTBBrowserWnd*>(&grid);
    if (browser && browser->IsRowInEdit()) menu.Enable(CommandId::Sort, false);
    menu.Append(CommandId::Color, velda::CMsgDll::pfuncLoadStr("IDS_TB_COMMONVIEW_CHANGE_COLOR", 0));
    CustomizeContextMenu(menu);
    grid.CustomizeContextMenu(menu);
    return menu;
}

void CTBCommonView::OnContextMenu(velda::WindowPoint point) {
    velda::CTBGrid* grid = LiveGrid();
    if (!grid) return;
    menuPoint_ = point;
    const velda::CMenu menu = BuildContextMenu(*grid);
    const int chosen = velda::ApplicationHost::Current().GetMenus().Track(menu, GetWindow(), point);
    if (chosen != 0) OnCommand(chosen);
}

// ---- find, sort, style, widths

void CTBCommonView::OnTbGvFind() {
    velda::CTBGrid* grid = LiveGrid();
    if (!grid) return;
    grid->UpdateFindParam(velda::CTBGrid::m_Find);
    CTBFindDlg dialog(*grid);
    velda::DoModal(dialog);
}

void CTBCommonView::OnTbGvFindNext() {
    velda::CTBGrid* grid = LiveGrid();
    if (!grid) return;
    if (velda::CTBGrid::m_Find.text.empty()) {
        OnTbGvFind();
    } else {
        grid->FindNext(velda::CTBGrid::m_Find);
    }
}

void CTBCommonView::OnTbGvSortDlg() {
    if (velda::CTBGrid* grid = LiveGrid()) grid->ShowSortDlg();
}

void CTBCommonView::OnTbGvStyleDlg() {
    velda::CTBGrid* grid = LiveGrid();
    if (!grid) return;
    velda::CTBStyleCtrlEx control;
    control.Initialize(*grid);
    control.ShowStyleDlg();
}

void CTBCommonView::OnTbGvResizeWidth() {
    if (velda::CTBGrid* grid = LiveGrid()) grid->ResizeColWidthsToFitSmart(kSampledRows);
}

void CTBCommonView::OnResizeWidth() {
    velda::CTBGrid* grid = LiveGrid();
    if (!grid) return;
    grid->LockUpdate(true);
    grid->ResizeColWidthsToFitSmart(kSampledRows);
    grid->LockUpdate(false);
    grid->Redraw();
}

// ---- locked columns

std::vector<int> CTBCommonView::ColumnsToLock(const velda::CTBGrid& grid, bool& selected) const {
    int currentRow = 0;
    int currentCol = 0;
    grid.GetCurrentCell(currentRow, currentCol);
    std::vector<int> cols;
    const auto add = [&](int col) {
        if (col > 0 && col != currentCol) cols.push_back(col);
    };
    for (const velda::PositionRange& range : grid.Selected().Ranges()) {
        if (!range.HoldsWholeColumns()) continue;
        for (int col = range.left; col <= std::min(range.right, grid.GetColCount()); ++col) add(col);
    }
    selected = !cols.empty();
    if (selected) return cols;
    if (const auto hit = grid.CellUnder(menuPoint_)) add(hit->column);
    return cols;
}

void CTBCommonView::SetColumnsLocked(bool locked) {
    velda::CTBGrid* grid = LiveGrid();
    if (!grid) return;
    bool selected = false;
    const std::vector<int> cols = ColumnsToLock(*grid, selected);
    if (cols.empty()) return;
    grid->LockUpdate(true);
    for (const int col : cols) grid->SetColLocked(col, locked);
    grid->LockUpdate(false);
    if (selected) grid->ClearSelection();
    grid->Redraw();
}

// ---- closing

void CTBCommonView::OnDestroy() {
    velda::CTBGrid* grid = GetActiveGrid();
    if (grid && !velda::CTBGrid::GetPrefInfo(grid->GetTableName()).empty()) {
        // A layout that cannot be written stays in force in this process.
        static_cast<void>(grid->SaveLayout());
    }
    CTBView::OnDestroy();
}

}  // namespace zt
