#include "zt_tb/core/tb_view.h"

namespace zt {

void CTBView::SetGridHost(velda::GridHost* host) {
    host_ = host;
    for (const Sheet& sheet : sheets_) {
        if (sheet.grid) sheet.grid->SetHost(host);
    }
}

void CTBView::AddWorksheet(std::unique_ptr<velda::CTBGrid> grid, std::string title) {
    if (!hasTabs_) sheets_.clear();
    if (grid) grid->SetHost(host_);
    sheets_.push_back({std::move(grid), std::move(title)});
}

void CTBView::ChangeTabLabel(int tab, std::string title) {
    if (tab >= 0 && tab < GetTabCount()) sheets_[static_cast<std::size_t>(tab)].title = std::move(title);
}

void CTBView::RemoveWorksheet(int tab) {
    if (tab < 0 || tab >= GetTabCount()) return;
    sheets_.erase(sheets_.begin() + tab);
    if (current_ > 0 && current_ >= tab) --current_;
}

void CTBView::SetCurrentTab(int tab) {
    if (tab < 0 || tab >= GetTabCount() || tab == current_) return;
    current_ = tab;
    OnTabSwitch();
}

velda::CTBGrid* CTBView::GetActiveGrid() const {
    return sheets_.empty() ? nullptr : sheets_[static_cast<std::size_t>(current_)].grid.get();
}

int CTBView::GetAllGrid(std::vector<velda::CTBGrid*>& grids) const {
    grids.clear();
    for (const Sheet& sheet : sheets_) grids.push_back(sheet.grid.get());
    return static_cast<int>(grids.size());
}

bool CTBView::LeaveRows() {
    for (const Sheet& sheet : sheets_) {
        auto* browser = dynamic_cast<velda::CTBBrowserWnd*>(sheet.grid.get());
        if (browser && !browser->LeaveRow()) return false;
    }
    return true;
}

void CTBView::OnUpdate(CDBUpdateConnector* /*sender*/, int code, T_UPDATE_HINT* hint) {
    switch (code) {
        case HintCode::Changed0:
        case HintCode::Changed1:
            UpdateBuffer(hint);
            SetTableReadOnlyMode(CDBDoc::m_pDBDoc ? CDBDoc::m_pDBDoc->IsExcuted() : 0);
            break;
        case HintCode::Changed: UpdateBuffer(hint); break;
        case HintCode::Unit: UpdateUnit(); break;
        case HintCode::SelectionAdded: UpdateSelAdd(); break;
        case HintCode::SelectionRemoved: UpdateSelDel(); break;
        case HintCode::PreMode: UpdateSelPre(); break;
        case HintCode::PostMode: UpdateSelPost(); break;
        case HintCode::ExecutionStarted: UpdateExeStart(); break;
        case HintCode::ExecutionEnded: UpdateExeEnd(); break;
        case HintCode::Refresh: UpdateRefresh(); break;
        case HintCode::DesignForceRemoved: UpdateDgnForceRemoved(); break;
        case HintCode::PostDatabaseChanged: UpdatePostDBChanged(); break;
        case HintCode::PreferencesChanged: UpdatePrefChanged(); break;
        case HintCode::DesignForceChanged: UpdateDgnForceChanged(); break;
        default: break;
    }
}

void CTBView::SetTableReadOnlyMode(int flag) {
    for (const Sheet& sheet : sheets_) {
        if (auto* browser = dynamic_cast<velda::CTBBrowserWnd*>(sheet.grid.get())) browser->LockEditMode(flag != 0);
    }
}

}  // namespace zt
