#include "zt_tb/post/tb_post_view.h"

#include <algorithm>

#include "velda_base/host/application_host.h"
#include "velda_lib/key_text.h"
#include "velda_util/grid/table_dialogs.h"
#include "zt_db/core/change_test.h"
#include "zt_db/records/mctl.h"
#include "zt_db/records/rstp.h"
#include "zt_tb/core/tb_find_dlg.h"
#include "zt_tb/core/usage_counter.h"
#include "zt_tb/post/load_case_lists.h"
#include "zt_tb/post/member_parts.h"
#include "zt_tb/post/result_selection.h"
#include "zt_tb/post/result_sources.h"
#include "zt_tb/post/result_steps.h"
#include "zt_tb/post/result_tracer.h"
#include "zt_tb/post/story/tb_set_rmf_mini_dlg.h"
#include "zt_tb/post/tb_active_new_dlg.h"

namespace zt {

using velda::KeyText;

namespace {

/// Tabs that tell the drift restriction outside their records, and those that show it in them.
constexpr IdRange kDriftLimitTabs[] = {{19, 19}};
constexpr IdRange kRestrictionTabs[] = {{25, 25}, {27, 28}, {30, 32}, {35, 39}};

/// Tables whose limits of drift the user sets.
constexpr IdRange kDriftTables[] = {{27, 28}, {70, 70}};

CTBPostStDrftBase* DriftSourceOf(CTBPostDS* source) { return dynamic_cast<CTBPostStDrftBase*>(source); }

/// The right-button menu of result tables before a table changes it; an entry without a command is a separator.
struct MenuEntry {
    int id = 0;
    std::string_view textKey{};
};
constexpr MenuEntry kContextMenu[] = {
    {CommandId::EditCopy, "IDS_TB_POSTVIEW_MENU_COPY"},
    {},
    {CommandId::EditFind, "IDS_TB_POSTVIEW_MENU_FIND"},
    {},
    {CommandId::Sort, "IDS_TB_POSTVIEW_MENU_SORT"},
    {CommandId::Style, "IDS_TB_POSTVIEW_MENU_STYLE"},
    {CommandId::Graph, "IDS_TB_COMMONVIEW_GRAPH"},
    {},
    {ResultCommandId::Activate, "IDS_TB_POSTVIEW_ACTIVATE"},
    {ResultCommandId::ExportToExcel, "IDS_TB_POSTVIEW_EXPORT_EXCEL"},
    {ResultCommandId::ExportGraphToExcel, "IDS_TB_POSTVIEW_EXPORT_EXCEL_GRAPH"},
};

/// What needs the windows of the program is done by its main frame.
void SendToMainFrame(int command) {
    if (velda::I_MainFrameBase* frame = velda::ApplicationHost::Current().GetMainFrame()) {
        frame->SendCommand({.id = static_cast<std::uint16_t>(command)});
    }
}

}  // namespace

// ---- opening ----

bool CTBPostView::FlagsOf(const ResultTableEntry& table, std::span<const int> arguments, TabFlags& flags) const {
    const std::vector<int> tabs = TabsOf(table);
    flags.fill(false);
    const auto set = [&](int tab) { flags[static_cast<std::size_t>(tab)] = true; };
    if (table.choice == TabChoice::ByCaller) {
        if (arguments.size() != tabs.size()) return false;
        for (std::size_t at = 0; at < tabs.size(); ++at) {
            if (arguments[at] != 0) set(tabs[at]);
        }
    } else if (!arguments.empty()) {
        return false;
    } else if (table.choice == TabChoice::ByModelControl) {
        // The first tab is that of other systems, the last one that of frames.
        T_MCTL_D control;
        if (CDBDoc::m_pDBDoc) CDBDoc::m_pDBDoc->GetMDBCtrl()->GetCurrentDB()->GetClass<CClassMctl>()->Get(control);
        set(control.system == StructureSystem::Frame ? tabs.back() : tabs.front());
    } else {
        std::for_each(tabs.begin(), tabs.end(), set);
    }
    return true;
}

bool CTBPostView::AddTable(std::string_view operation, std::span<const int> arguments) {
    const std::span<const std::string_view> idle = IdleResultOperations();
    if (std::find(idle.begin(), idle.end(), operation) != idle.end()) return true;
    const ResultTableEntry* table = FindResultTable(operation);
    if (!table || id_ != 0) return false;
    if (table->choice == TabChoice::BySwitch && arguments.size() == 1) {
        if (arguments[0] != 0) table = FindResultTable(arguments[0]);
        if (!table || table->operation != operation) return false;
        arguments = {};
    }
    TabFlags flags{};
    if (!FlagsOf(*table, arguments, flags)) return false;
    OpenTable(*table, flags);
    return true;
}

bool CTBPostView::AddTable(int id) {
    const ResultTableEntry* table = FindResultTable(id);
    if (!table) return false;
    std::vector<int> arguments;
    if (table->choice == TabChoice::ByCaller) arguments.assign(TabsOf(*table).size(), 1);
    if (table->choice == TabChoice::BySwitch) arguments = {id};
    return AddTable(table->operation, arguments);
}

void CTBPostView::OpenTable(const ResultTableEntry& table, const TabFlags& flags) {
    constexpr int kMemberTable = 3;
    id_ = table.id;
    memberMark_ = table.isMemberTable ? kMemberTable : 0;
    SetTitle(GetTableName(id_));
    BuildWorkbook();
    AddnDelView(flags);
    if (CDBDoc::m_pDBDoc) ConnectToDoc(CDBDoc::m_pDBDoc);
    if (!table.usageKey.empty()) IUsageCounter::Current().Use(table.usageKey, 1);
}

void CTBPostView::AddTab(int tab) {
    const ResultTabEntry& entry = *FindResultTab(tab);
    auto grid = std::make_unique<velda::CTBCore>();
    velda::CTBCore* core = grid.get();
    grids_[static_cast<std::size_t>(tab)] = core;
    core->SetTableIndex(tab);
    core->SetDataSrc(MakeResultSource(entry.className, tab, entry.argument));
    core->Initialize();
    core->onSelection = [this, core] { SelectObjectsOf(*core); };
    AddWorksheet(std::move(grid), KeyText(entry.titleKey));
    const velda::WaitCursor wait;
    if (CTBPostDS* source = PostSourceOf(core)) {
        source->SetNeedsActivation(NeedsActivationAtSwitch(tab));
        source->onCommand = [this](int id) { OnCommand(id); };
    }
    core->RecCtrl().ReadRecords();
    core->KeyCtrl().EnableDeleteKey(false);
}

void CTBPostView::RemoveTab(int tab) {
    velda::CTBCore*& grid = grids_[static_cast<std::size_t>(tab)];
    if (GetTabCount() < 2) return;
    GetTabWnd()->RemoveTab(GetTabWnd()->FindPane(grid));
    grid = nullptr;
}

void CTBPostView::AddnDelView(const TabFlags& flags) {
    if (!GetTabWnd()) BuildWorkbook();
    for (int tab = 0; tab < kResultTabCount; ++tab) {
        if (flags[static_cast<std::size_t>(tab)] && !GridOf(tab)) AddTab(tab);
    }
    for (int tab = 0; tab < kResultTabCount; ++tab) {
        if (!flags[static_cast<std::size_t>(tab)] && GridOf(tab)) RemoveTab(tab);
    }
    velda::TabStyle style = GetTabWnd()->GetStyle();
    style.stripHeight += velda::TabStyle{}.stripHeight == style.stripHeight ? style.stripHeight * 2 / 3 : 0;
    GetTabWnd()->SetStyle(style);
    if (OpensActivation(id_, ActiveTab()) && FollowTracer()) PostActivation();
}

bool CTBPostView::FollowTracer() {
    // The finding of story displacements tells its direction.
    constexpr int kStoryDisplacement = 15;
    const ResultTableEntry* table = FindResultTable(id_);
    if (!table || !table->tracerTab) return true;
    if (!CDBDoc::m_pDBDoc) return false;
    if (!CDBDoc::m_pDBDoc->IsTracerMode()) return true;
    if (id_ == kStoryDisplacement) {
        const CCheckerCtrl* checker = TracingChecker();
        if (!checker) return false;
        if (checker->GetCurrentTracerKey2() != 1) return true;
    }
    SetCurrentTab(*table->tracerTab);
    return true;
}

void CTBPostView::PostActivation() {
    if (!GetWindow() || activationWaits_) return;
    activationWaits_ = true;
    GetWindow()->PostCommand({.id = ResultCommandId::Activate});
}

bool CTBPostView::ActivateTab(int tab, int last) {
    if (tab < 0 || tab > last) return false;
    SetCurrentTab(tab);
    return true;
}

// ---- what is shown ----

bool CTBPostView::ReadsResults() {
    return CDBDoc::m_pDBDoc && (CDBDoc::m_pDBDoc->IsPostMode() || CDBDoc::m_pDBDoc->IsExcuted());
}

const CPostDataBase& CTBPostView::GetDB() const {
    static const CPostDataBase kNone;
    if (!CDBDoc::m_pDBDoc) return kNone;
    CMDBCtrl& databases = *CDBDoc::m_pDBDoc->GetMDBCtrl();
    const bool isModel = IsModelTable(id_) && !ReadsResults();
    return isModel ? *databases.GetDBPre() : *databases.GetDBPost();
}

velda::CTBCore* CTBPostView::GridOf(int tab) const {
    return tab >= 0 && tab < kResultTabCount ? grids_[static_cast<std::size_t>(tab)] : nullptr;
}

int CTBPostView::ActiveTab() const {
    const velda::CTBCore* grid = GetActiveCore();
    return grid ? grid->GetTableIndex() : -1;
}

std::vector<CTBPostDS*> CTBPostView::Sources() const {
    std::vector<CTBPostDS*> sources;
    for (velda::CTBCore* grid : grids_) {
        if (CTBPostDS* source = PostSourceOf(grid)) sources.push_back(source);
    }
    return sources;
}

// ---- activation ----

bool CTBPostView::GetActivation(TB_ACTIVE_PARAM& param) {
    CTBPostDS* source = PostSourceOf(GetActiveCore());
    if (!source || !CDBDoc::m_pDBDoc || !source->GetActiveParam(param)) return false;
    const int tab = ActiveTab();
    const CPostCtrl& control = *CDBDoc::m_pDBDoc->GetPostCtrl();
    if (param.hasLoads) LoadCaseLister(GetDB(), control).GetAllLoadcaseForActiveNew(id_, tab, param.loads);
    if (param.steps.isOn && ReadsResults()) {
        source->SetStepListOff(GetAllStepForActiveNew(StepsOf(control), tab, param));
    }
    if (param.parts.isOn) GetAllPartForActiveNew(tab, param.parts);
    if (IsPOResTableForActiveEtc(tab)) source->PrepareActiveSteps(param);
    return true;
}

void CTBPostView::OnActiveNewDlg() {
    activationWaits_ = false;
    CTBPostDS* source = PostSourceOf(GetActiveCore());
    if (!source) return;
    source->SetDialogSeen();
    TB_ACTIVE_PARAM param;
    if (!GetActivation(param)) return;
    CTBActiveNewDlg dialog(param, GetDB(), source->HasModuleChoice() ? source->GetCurModuleKey() : 0);
    if (velda::DoModal(dialog)) {
        if (!AsksForDriftLimits(id_) || OnTbSetStorParam2(true) != 0) Activate(param);
    } else if (ReadsAgainAfterCancel(id_)) {
        // A table that has never been activated shows what it would have offered.
        const bool isFirst = !source->IsReRead();
        for (CTBPostDS* one : Sources()) one->SetReRead(true);
        param.loads.selected = dialog.OfferedLoads();
        if (isFirst && !param.loads.selected.empty()) Activate(param);
    }
}

void CTBPostView::Activate(const TB_ACTIVE_PARAM& param) {
    const CTBPostDS* active = PostSourceOf(GetActiveCore());
    if (!active) return;
    for (CTBPostDS* source : Sources()) {
        if (source->IsPrivate() && source->GetKind() != active->GetKind()) continue;
        source->SetReRead(true);
        source->SetActiveParam(param);
    }
}

std::vector<bool> CTBPostView::SetActiveCheck(const CTBPostDS& source, std::span<const LoadChoice> entries) {
    std::vector<LoadChoice> shown;
    source.GetCurLoadCases(shown);
    std::vector<bool> checks;
    for (const LoadChoice& entry : entries) {
        checks.push_back(std::find(shown.begin(), shown.end(), entry) != shown.end());
    }
    return checks;
}

// ---- limits of drift ----

bool CTBPostView::CanSetDriftLimits() const {
    return Contains(kDriftTables, id_) && DriftSourceOf(PostSourceOf(GetActiveCore()));
}

int CTBPostView::OnTbSetStorParam2(bool all) {
    if (!CanSetDriftLimits()) return 0;
    CTBPostDS* active = PostSourceOf(GetActiveCore());
    DriftLimits limits = DriftSourceOf(active)->Limits();
    CTBSetRMFMiniDlg dialog(limits);
    if (!velda::DoModal(dialog)) return 0;
    for (CTBPostDS* source : Sources()) {
        CTBPostStDrftBase* drift = DriftSourceOf(source);
        if (drift && (all || source == active)) drift->SetLimits(limits);
    }
    return 1;
}

// ---- commands ----

std::span<const ViewCommand<CTBPostView>> CTBPostView::Commands() {
    using View = CTBPostView;
    static constexpr ViewCommand<View> kCommands[] = {
        {CommandId::EditFind, &View::OnTbGvFind, &View::HasCore},
        {CommandId::FindNext, &View::OnTbGvFindNext, &View::HasCore},
        {CommandId::Sort, &View::OnSort, &View::HasCore},
        {CommandId::Style, &View::OnStyleDlg, &View::HasCore},
        {ResultCommandId::Activate, &View::OnActiveNewDlg, &View::CanActivate},
        {ResultCommandId::ExportToExcel, &View::OnExportExcel, &View::HasCore},
        {ResultCommandId::ExportGraphToExcel, &View::OnExportExcelGraph, &View::HasCore},
        {ResultCommandId::SetAllowableDrift, &View::OnTbCmenuSetDrftParam2, &View::CanSetDriftLimits},
        {ResultCommandId::SetDriftParameters, &View::OnTbCmenuSetDrftParam, &View::Always},
        {ResultCommandId::SelectDriftMethod, &View::OnTbCmenuSelDrftMethod, &View::Always},
        {ResultCommandId::SetOverturningParameters, &View::OnTbCmenuSetOTMParam, &View::Always},
        {ResultCommandId::SelectTorsionEnds, &View::OnTbCMenuSetTICParam, &View::Always},
        {ResultCommandId::SelectSoftStoryMethod, &View::OnTbCmenuSICParam, &View::Always},
        {ResultCommandId::SelectWeightMethod, &View::OnTbCmenuWICParam, &View::Always},
    };
    return kCommands;
}

bool CTBPostView::OnCommand(int id) { return Run<CTBPostView>(Commands(), *this, id) || CTBView::OnCommand(id); }

bool CTBPostView::IsCommandEnabled(int id) const {
    return IsEnabled<CTBPostView>(Commands(), *this, id) || CTBView::IsCommandEnabled(id);
}

velda::CMenu CTBPostView::BuildContextMenu() const {
    velda::CMenu menu;
    for (const MenuEntry& entry : kContextMenu) {
        if (entry.id == 0) {
            menu.AppendSeparator();
        } else {
            menu.Append(entry.id, KeyText(entry.textKey), IsCommandEnabled(entry.id));
        }
    }
    const ContextMenuChange change = ContextMenuChangeOf(id_, ActiveTab(), graphMenu_);
    for (const int id : change.deleted) menu.RemoveCommand(id);
    if (change.deletedPosition) menu.RemovePosition(*change.deletedPosition);
    for (const AppendedCommand& command : change.appended) {
        menu.Append(command.id, KeyText(command.textKey), IsCommandEnabled(command.id));
    }
    menu.DeleteUselessSeparators();
    return menu;
}

void CTBPostView::OnContextMenu(velda::WindowPoint point) {
    if (id_ == 0 || !GetActiveCore()) return;
    const int chosen = velda::ApplicationHost::Current().GetMenus().Track(BuildContextMenu(), GetWindow(), point);
    if (chosen != 0) OnCommand(chosen);
}

void CTBPostView::OnTbGvFind() {
    velda::CTBGrid& grid = *GetActiveCore();
    grid.UpdateFindParam(velda::CTBGrid::m_Find);
    CTBFindDlg dialog(grid);
    velda::DoModal(dialog);
}

void CTBPostView::OnTbGvFindNext() {
    if (velda::CTBGrid::m_Find.text.empty()) {
        OnTbGvFind();
    } else {
        GetActiveCore()->FindNext(velda::CTBGrid::m_Find);
    }
}

void CTBPostView::OnExportExcel() { SendToMainFrame(ResultCommandId::ExportToExcel); }

void CTBPostView::OnExportExcelGraph() { SendToMainFrame(ResultCommandId::ExportGraphToExcel); }

void CTBPostView::OnSort() { GetActiveCore()->SortCtrl().ShowSortDlg(); }

void CTBPostView::OnStyleDlg() { GetActiveCore()->StyleCtrl().ShowStyleDlg(); }

// ---- hints ----

void CTBPostView::OnUpdate(CDBUpdateConnector* sender, int code, T_UPDATE_HINT* hint) {
    const bool isText = code == HintCode::CommandText && hint && !hint->text.empty();
    if ((isText && ClosesOnText(hint->text, id_)) || ClosesOnHint(code, id_)) {
        CloseFrame();
    } else if (code == HintCode::Changed) {
        UpdateBuffer(hint);
    } else if (code == HintCode::SelectionAdded || code == HintCode::SelectionRemoved) {
        if (sender != this) FollowSelection();
    } else {
        CTBView::OnUpdate(sender, code, hint);
    }
}

void CTBPostView::UpdateBuffer(T_UPDATE_HINT* hint) {
    if (id_ == 0) return;
    if (IsModelTable(id_)) {
        CloseFrame();
        return;
    }
    CDataBase* db = hint && CDBDoc::m_pDBDoc ? CDBDoc::m_pDBDoc->GetMDBCtrl()->GetDB(hint->dbIndex) : nullptr;
    if (!db || !Touches<T_RSTP_D>(*db->GetViewBuff())) return;
    for (velda::CTBCore* grid : grids_) {
        CTBPostDS* source = PostSourceOf(grid);
        if (!source) continue;
        if (Contains(kDriftLimitTabs, source->GetKind())) source->AfterRedrawTable();
        if (Contains(kRestrictionTabs, source->GetKind())) source->OnRestrictionChanged();
    }
}

void CTBPostView::UpdateUnit() {
    for (velda::CTBCore* grid : grids_) {
        if (grid) grid->UpdateUnit();
    }
}

bool CTBPostView::UpdateLanguage() {
    SetTitle(GetTableName(id_));
    for (int tab = 0; tab < kResultTabCount; ++tab) {
        velda::CTBCore* grid = GridOf(tab);
        if (!grid) continue;
        ChangeTabLabel(GetTabWnd()->FindPane(grid), KeyText(FindResultTab(tab)->titleKey));
        grid->UpdateLanguage();
    }
    return true;
}

void CTBPostView::UpdateSelPre() {
    if (id_ != 0) CloseFrame();
}

void CTBPostView::UpdateRefresh() {
    if (IsModelTable(id_)) CloseFrame();
}

void CTBPostView::UpdateDgnForceChanged() {
    for (CTBPostDS* source : Sources()) source->OnDgnForceChanged();
}

void CTBPostView::UpdateDgnForceRemoved() {
    if (IsDgnForceTable()) CloseFrame();
}

void CTBPostView::OnTabSwitch() {
    const int tab = ActiveTab();
    CTBPostDS* source = PostSourceOf(GetActiveCore());
    if (source && source->GetNeedsActivation()) {
        source->SetNeedsActivation(false);
        CDBDoc* doc = CDBDoc::m_pDBDoc;
        if (doc && doc->GetTableID4Checker() == kFilteredResultTable) doc->StartTracerMode();
        PostActivation();
    }
    graphMenu_ = GraphMenuOf(tab).value_or(graphMenu_);
}

// ---- selection ----

void CTBPostView::SelectObjectsOf(const velda::CTBCore& grid) {
    if (followsSelection_ || &grid != GetActiveGrid() || !CDBDoc::m_pDBDoc) return;
    if (CDataBase* database = CDBDoc::m_pDBDoc->GetMDBCtrl()->GetCurrentDB()) PushObjects(*database, grid, this);
}

void CTBPostView::FollowSelection() {
    velda::CTBCore* grid = GetActiveCore();
    CDataBase* database = CDBDoc::m_pDBDoc ? CDBDoc::m_pDBDoc->GetMDBCtrl()->GetCurrentDB() : nullptr;
    if (!grid || !database) return;
    followsSelection_ = true;
    SelectRowsOfObjects(*database, *grid);
    followsSelection_ = false;
    grid->Redraw();
}

void CTBPostView::CloseFrame() {
    if (velda::IFrame* frame = GetParentFrame()) frame->Close();
}

}  // namespace zt
