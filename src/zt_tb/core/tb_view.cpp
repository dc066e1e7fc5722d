#include "zt_tb/core/tb_view.h"

#include <algorithm>
#include <utility>

#include "velda_base/host/application_host.h"
#include "velda_lib/msg_dll.h"
#include "zt_tb/core/tb_print_preview.h"

namespace zt {

using velda::CMsgDll;

void CMyGXTabWnd::OnTabSwitch() {
    CGXTabWnd::OnTabSwitch();
    owner_.OnTabSwitch();
}

void CMyGXTabWnd::OnRemoveTab(const velda::TabPane* pane) { owner_.OnRemoveTab(pane); }

void CTBView::SetGridHost(velda::GridHost* host) {
    host_ = host;
    std::vector<velda::CTBGrid*> grids;
    GetAllGrid(grids);
    for (velda::CTBGrid* grid : grids) grid->SetHost(host);
}

// ---- tabs

void CTBView::BuildWorkbook() {
    tabs_ = std::make_unique<CMyGXTabWnd>(*this);
    tabs_->MoveWindow(place_);
    tabs_->AddTab(std::make_unique<velda::CGXGridView>(), {});
}

void CTBView::AddWorksheet(std::unique_ptr<velda::CTBGrid> grid, std::string title) {
    TellOfPreferences();
    if (grid) grid->SetHost(host_);
    if (grid) grid->MoveWindow(place_);
    if (!tabs_) {
        single_ = std::move(grid);
        return;
    }
    tabs_->AddTab(std::move(grid), std::move(title));
    if (dynamic_cast<velda::CGXGridView*>(tabs_->GetPane(0))) tabs_->RemoveTab(0);
}

// The preferences of a table are read while it is made, when it has no window yet.
void CTBView::TellOfPreferences() {
    const std::string message = velda::TableRegistry::OfProcess().TakeMessage();
    if (!message.empty()) velda::AfxMessageBox(message);
}

void CTBView::ChangeTabLabel(int tab, std::string title) {
    if (tabs_) tabs_->SetLabel(tab, std::move(title));
}

void CTBView::SetCurrentTab(int tab) {
    if (tabs_) tabs_->SwitchTab(tab);
}

const std::string& CTBView::GetTabLabel(int tab) const {
    if (!tabs_) throw std::out_of_range("a view of one grid has no tabs");
    return tabs_->GetLabel(tab);
}

velda::CTBGrid* CTBView::GetActiveGrid() const {
    return tabs_ ? dynamic_cast<velda::CTBGrid*>(tabs_->GetActivePane()) : single_.get();
}

velda::CTBGrid* CTBView::LiveGrid() const { return IsWindowGone() ? nullptr : GetActiveGrid(); }

void CTBView::OnRemoveTab(const velda::TabPane* pane) {
    if (pane && pane == printed_) printed_ = nullptr;
}

int CTBView::GetAllGrid(std::vector<velda::CTBGrid*>& grids) const {
    grids.clear();
    if (single_ && !tabs_) grids.push_back(single_.get());
    for (int tab = 0; tab < GetTabCount(); ++tab) {
        if (auto* grid = dynamic_cast<velda::CTBGrid*>(tabs_->GetPane(tab))) grids.push_back(grid);
    }
    return static_cast<int>(grids.size());
}

bool CTBView::LeaveRows() {
    std::vector<velda::CTBGrid*> grids;
    GetAllGrid(grids);
    return std::all_of(grids.begin(), grids.end(), [](velda::CTBGrid* grid) { return grid->LeaveRow(); });
}

// ---- hints of the document

void CTBView::OnUpdate(CDBUpdateConnector* /*sender*/, int code, T_UPDATE_HINT* hint) {
    const velda::WaitCursor wait;
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

void CTBView::SetReadOnlyMode(velda::TabPane* pane, int flag) const {
    if (!pane) return;
    if (auto* browser = dynamic_cast<velda::CTBBrowserWnd*>(pane)) {
        browser->LockEditMode(flag != 0);
    } else {
        velda::AfxMessageBox(CMsgDll::pfuncLoadStr("IDS_TB_VIEW_OVERRIDE_SETTABLEREADONLYMODE", 0));
    }
}

void CTBView::SetTableReadOnlyMode(int flag) {
    if (!tabs_) SetReadOnlyMode(GetActiveGrid(), flag);
    for (int tab = 0; tab < GetTabCount(); ++tab) SetReadOnlyMode(tabs_->GetPane(tab), flag);
}

void CTBView::ShowActiveTable(const CDBDoc& doc) {
    velda::CTBGrid* grid = GetActiveGrid();
    if (!grid) return;
    {
        const velda::GridUpdateLock lock(*grid);
        SetTableReadOnlyMode(doc.IsExcuted());
    }
    grid->SetFocus();
}

// ---- commands

std::span<const ViewCommand<CTBView>> CTBView::Commands() {
    static constexpr ViewCommand<CTBView> kCommands[] = {
        {CommandId::EditCopy, &CTBView::OnEditCopy, &CTBView::CanCopy},
        {CommandId::EditPaste, &CTBView::OnEditPaste, &CTBView::CanPaste},
        {CommandId::FilePrint, &CTBView::OnFilePrint, &CTBView::HasLiveGrid},
        {CommandId::FilePrintDirect, &CTBView::OnFilePrint, &CTBView::HasLiveGrid},
        {CommandId::FilePrintPreview, &CTBView::OnFilePrintPreview, &CTBView::HasLiveGrid},
        {CommandId::Color, &CTBView::OnTbColorDlg, &CTBView::Always},
        {CommandId::Graph, &CTBView::OnTbGvGraphView, &CTBView::HasLiveGrid},
    };
    return kCommands;
}

bool CTBView::OnCommand(int id) { return Run<CTBView>(Commands(), *this, id); }

bool CTBView::IsCommandEnabled(int id) const { return IsEnabled<CTBView>(Commands(), *this, id); }

bool CTBView::CanCopy() const { return LiveGrid() && LiveGrid()->CanCopy(); }

bool CTBView::CanPaste() const { return LiveGrid() && LiveGrid()->CanPaste(); }

void CTBView::OnEditCopy() {
    if (velda::CTBGrid* grid = LiveGrid()) grid->Copy();
}

void CTBView::OnEditPaste() {
    if (velda::CTBGrid* grid = LiveGrid()) grid->Paste();
}

void CTBView::OnFilePrintPreview() { CTBPrintPreview::OnFilePrintPreview(*this); }

void CTBView::OnTbColorDlg() {
    if (!velda::CTBGrid::ShowColorDlg()) return;
    if (velda::CTBGrid* grid = LiveGrid()) grid->Redraw();
}

namespace {

/// What the table in front is called: the view, and the tab where there are several.
std::string TitleOfTable(const CTBView& view) {
    const std::string& title = view.GetTitle();
    if (view.GetTabCount() == 0) return title;
    const std::string& tab = view.GetTabLabel(view.GetCurrentTab());
    if (title.empty() || tab.empty() || tab == title) return title.empty() ? tab : title;
    return title + " - " + tab;
}

}  // namespace

void CTBView::OnTbGvGraphView() {
    velda::CTBGrid* grid = LiveGrid();
    if (!grid) return;
    auto data = std::make_unique<velda::T_GRAPH_D>();
    if (!grid->GetGraphData(*data)) {
        velda::AfxMessageBox(CMsgDll::pfuncLoadStr("IDS_TB__Error___Invalid_Graph_Range_", 0));
        return;
    }
    if (data->title.empty()) data->title = TitleOfTable(*this);
    velda::IGraphView* service = velda::IGraphView::Instance();
    if (!CDBDoc::m_pDBDoc || !service) return;
    velda::CGraphFuncView* view = service->GetView(CMsgDll::pfuncLoadStr("IDS_TB__Table_Graph_View", 0));
    if (!view) return;
    if (velda::IFrame* frame = GetParentFrame()) frame->Activate();
    view->SetGraphData(std::move(data));
}

// ---- the window

velda::TabPane* CTBView::Child() const {
    if (tabs_) return tabs_.get();
    return single_.get();
}

void CTBView::OnSetFocus() {
    if (velda::CTBGrid* grid = LiveGrid()) grid->SetFocus();
}

void CTBView::OnWindowPosChanging(const velda::WindowRect& place) {
    place_ = place;
    if (velda::TabPane* child = Child()) child->MoveWindow(place);
}

// ---- printing

bool CTBView::Print(bool preview) {
    if (!LiveGrid()) return false;
    velda::IPrinter& printer = velda::ApplicationHost::Current().GetPrinter();
    velda::PrintJob job;
    job.title = TitleOfTable(*this);
    job.preview = preview;
    if (!OnPreparePrinting(job)) return false;
    OnBeginPrinting(job);
    printer.BeginJob(job);
    for (int page = 1; page <= job.pages && printer.BeginPage(page); ++page) {
        OnPrepareDC(page);
        OnPrint(page);
    }
    printer.EndJob();
    OnEndPrinting(job);
    return true;
}

bool CTBView::OnPreparePrinting(velda::PrintJob& job) { return CTBPrintPreview::OnPreparePrinting(job); }

void CTBView::OnPrepareDC(int page) {
    if (velda::CTBGrid* grid = PrintedGrid()) grid->OnGridPrepareDC(page);
}

void CTBView::OnPrint(int page) {
    if (velda::CTBGrid* grid = PrintedGrid()) grid->OnPrint(page);
}

namespace {

void SetStandardFontSize(velda::CTBGrid& grid, double size) {
    grid.ChangeStandardStyle(velda::CGXStyle().SetFontSize(size));
}

void SetMargins(velda::CTBGrid& grid, const velda::PrintMargins& margins) {
    grid.SetMargins(margins.top, margins.left, margins.bottom, margins.right);
}

}  // namespace

// Another tab may come to the front, and tabs may go, before the print ends.
void CTBView::OnBeginPrinting(velda::PrintJob& job) {
    velda::CTBGrid* grid = LiveGrid();
    printed_ = grid;
    if (!grid) return;
    if (!job.preview) {
        printing_ = true;
        savedLock_ = grid->LockUpdate(true);
        savedFontSize_ = grid->Styles().StandardStyle().GetFontSize();
        SetStandardFontSize(*grid, CTBPrintPreview::m_nPrintFontSize);
        savedMargins_ = grid->GetMargins();
        SetMargins(*grid, job.margins);
    }
    grid->OnGridBeginPrinting(job);
}

void CTBView::OnEndPrinting(const velda::PrintJob& job) {
    velda::CTBGrid* grid = std::exchange(printed_, nullptr);
    printing_ = false;
    if (!grid) return;
    if (!job.preview) {
        SetStandardFontSize(*grid, savedFontSize_);
        SetMargins(*grid, savedMargins_);
    }
    grid->OnGridEndPrinting();
    if (!job.preview) grid->LockUpdate(savedLock_);
}

void CTBView::OnDraw(bool printing) {
    velda::CTBGrid* grid = LiveGrid();
    if (printing || !grid) return;
    const double size = grid->Styles().StandardStyle().GetFontSize();
    const bool isPrinted = printing_ && grid == printed_;
    const bool locked = grid->LockUpdate(false);
    if (isPrinted) SetStandardFontSize(*grid, savedFontSize_);
    grid->Redraw();
    if (isPrinted) SetStandardFontSize(*grid, size);
    grid->LockUpdate(locked);
}

}  // namespace zt
