#include "zt_tb/model/tb_pre_view.h"

#include <algorithm>

#include "velda_base/host/dock_view_base.h"
#include "velda_base/host/wait_cursor.h"
#include "velda_lib/key_text.h"
#include "zt_db/core/change_test.h"
#include "zt_db/records/stnd.h"
#include "zt_tb/core/dock_view.h"
#include "zt_tb/model/check_sheet.h"
#include "zt_tb/model/tb_display_dlg.h"

namespace zt {

using velda::KeyText;

namespace {

/// The docking pane of the model checker, and the text command that closes it.
constexpr std::uint32_t kCheckerPane = 34551;
constexpr std::string_view kFinishChecking = "FINISH_CHECKING";

/// Whether the last step changed the design standards.
bool StandardsChanged(const T_UPDATE_HINT* hint) {
    CDataBase* db = hint && CDBDoc::m_pDBDoc ? CDBDoc::m_pDBDoc->GetMDBCtrl()->GetDB(hint->dbIndex) : nullptr;
    return db && Touches<T_STND_D>(*db->GetViewBuff());
}

void CloseCheckerPane() {
    const velda::CDockViewBase* pane = velda::CDockViewBase::GetDockViewFromID(kCheckerPane);
    if (pane && pane->IsVisible()) velda::CDockViewBase::CloseDockView(kCheckerPane);
}

/// Whether the database may have changed with a hint.
bool IsChange(int code) {
    return code == HintCode::Changed0 || code == HintCode::Changed1 || code == HintCode::Changed;
}

}  // namespace

void CTBPreView::RegisterWithPanes() {
    CDockView_PreTable::RegisterView(
        {[]() -> std::unique_ptr<CTBView> { return std::make_unique<CTBPreView>(); },
         [](CTBView& view, int kind) { dynamic_cast<CTBPreView&>(view).SetTable(kind, nullptr); }});
}

// ---- opening ----

std::string CTBPreView::GetTableName(int kind) {
    const TableKindEntry* entry = FindTableKind(kind);
    return entry ? KeyText(entry->titleKey) : std::string();
}

void CTBPreView::SetTable(int kind, void* data) {
    if (HasTables()) return;
    kind_ = kind;
    group_ = FindTableGroup(kind);
    hingeData_ = Contains(HingeTableKinds(), kind) ? data : nullptr;
    MakeTables();
    SetTitle(GetTableName(group_ ? group_->kind : kind));
    FillAndShow(true);
}

void CTBPreView::OnInitialUpdate() {
    if (HasTables()) return;
    group_ = FindTableGroup(kind_);
    if (group_ && group_->kind == kind_ && !group_->opensInitially) group_ = nullptr;
    MakeTables();
    if (group_) kind_ = group_->kind;
    FillAndShow(false);
}

void CTBPreView::MakeTables() {
    CDBDoc* doc = CDBDoc::m_pDBDoc;
    ConnectToDoc(doc);
    if (!group_) {
        MakeSingleTable(doc);
        return;
    }
    BuildWorkbook();
    AddTables(doc, group_->TablesIn(!doc || doc->IsPreMode()));
    for (CTBCommonWnd* table : m_arrTables) table->SetTableRunMode(group_->runMode);
    SetCurrentTab(kind_ - group_->firstTab);
    SetTabStyle();
}

std::unique_ptr<CTBCommonWnd> CTBPreView::MakeTable(int kind) {
    const TableMaker make = findMaker_(kind);
    return make ? make(this) : nullptr;
}

void CTBPreView::MakeSingleTable(const CDBDoc* doc) {
    const TableKindEntry* entry = FindTableKind(kind_);
    std::unique_ptr<CTBCommonWnd> table = doc && entry ? MakeTable(kind_) : nullptr;
    if (!table) return;
    single_ = table.get();
    AddWorksheet(std::move(table), KeyText(entry->TabKey()));
}

void CTBPreView::AddTables(const CDBDoc* doc, std::span<const int> kinds) {
    if (!doc) return;
    for (const int kind : kinds) {
        const TableKindEntry* entry = FindTableKind(kind);
        if (!entry || tables_.contains(entry->mnemonic)) continue;
        std::unique_ptr<CTBCommonWnd> table = MakeTable(kind);
        if (table) {
            tables_.emplace(entry->mnemonic, table.get());
            m_arrTables.push_back(table.get());
        }
        AddWorksheet(std::move(table), KeyText(entry->TabKey()));
    }
}

// ---- filling ----

void CTBPreView::FillAndShow(bool tellSingleTable) {
    if (kind_ == kTableNone || !CDBDoc::m_pDBDoc) return;
    RedrawNow();
    const velda::WaitCursor wait;
    FillTables(tellSingleTable);
    ShowActiveTable(*CDBDoc::m_pDBDoc);
}

void CTBPreView::FillTables(bool tellSingleTable) {
    if (!group_) {
        // The table of the model checker fills itself.
        if (single_ && kind_ != kTableChk) Fill(*single_, tellSingleTable);
        return;
    }
    switch (group_->filling) {
        case GroupFilling::Records: MakeItemExMemberTable(); break;
        case GroupFilling::RecordsAndOpen:
            for (CTBCommonWnd* table : m_arrTables) Fill(*table, true);
            break;
        case GroupFilling::Selection:
            FetchSelectedKeys(group_->selection);
            MakeItemExMultiTable();
            break;
    }
}

void CTBPreView::Fill(CTBCommonWnd& table, bool tell) {
    const velda::GridUpdateLock lock(table);
    table.MakeItemEx(nullptr, -2, 0);
    if (tell) table.OnAfterOpen();
}

// Frame, tabs and an empty table stand on the screen while the tables are filled.
void CTBPreView::RedrawNow() const {
    if (velda::IFrame* frame = GetParentFrame()) frame->RedrawNow();
    if (GetWindow()) GetWindow()->RedrawNow();
}

void CTBPreView::MakeItemExMemberTable() {
    for (CTBCommonWnd* table : m_arrTables) Fill(*table, false);
}

void CTBPreView::MakeItemExMultiTable() {
    for (CTBCommonWnd* table : m_arrTables) {
        const velda::GridUpdateLock lock(*table);
        table->PreFilterRecord(m_arrSelKeys);
        table->OnAfterOpen();
    }
}

void CTBPreView::FetchSelectedKeys(GroupSelection selection) {
    CDataBase* db = CTBCommonWnd::GetDB();
    if (!db) return;
    const CViewCtrl& view = *db->GetViewCtrl();
    if (selection == GroupSelection::Members) {
        view.GetAllSelectedMemb(m_arrSelKeys);
    } else {
        view.GetAllSelectedPont(m_arrSelKeys);
    }
    std::sort(m_arrSelKeys.begin(), m_arrSelKeys.end());
}

void CTBPreView::UpdateMemberTable(int kind) {
    const TableGroup* group = FindTableGroup(kind);
    if (group && group == group_ && group->kind == kTableMembTypes) MakeItemExMemberTable();
}

ICheckSheet* CTBPreView::CheckSheet() const { return dynamic_cast<ICheckSheet*>(single_); }

void CTBPreView::UpdateChk() {
    if (ICheckSheet* sheet = CheckSheet()) sheet->UpdateChk();
}

// ---- the tables of a detail view ----

std::vector<std::string> CTBPreView::DisplayedTables() const {
    std::vector<std::string> titles;
    for (int tab = 0; tab < GetTabCount(); ++tab) titles.push_back(GetTabLabel(tab));
    return titles;
}

void CTBPreView::DisplayTables(std::span<const std::string> remove, std::span<const int> add) {
    for (const std::string& title : remove) RemoveTable(title);
    AddTables(CDBDoc::m_pDBDoc, add);
    for (CTBCommonWnd* table : m_arrTables) table->SetTableRunMode(CTBCommonWnd::kDetail);
    if (CDBDoc::m_pDBDoc) SetTableReadOnlyMode(CDBDoc::m_pDBDoc->IsExcuted());
    FetchSelectedKeys(GroupSelection::Nodes);
    MakeItemExMultiTable();
}

void CTBPreView::OnTableDisplayDlg() {
    if (!LeaveRows()) return;
    CTBDisplayDlg dialog(DisplayedTables());
    if (!velda::DoModal(dialog)) return;
    std::vector<int> kinds;
    for (const std::string& name : dialog.NamesToAdd()) kinds.push_back(dialog.KindOf(name));
    DisplayTables(dialog.NamesToRemove(), kinds);
}

std::span<const ViewCommand<CTBPreView>> CTBPreView::Commands() {
    static constexpr ViewCommand<CTBPreView> kCommands[] = {
        {kOnTableDisplayDlg, &CTBPreView::OnTableDisplayDlg, &CTBPreView::HasChoiceOfTables},
    };
    return kCommands;
}

bool CTBPreView::OnCommand(int id) { return Run<CTBPreView>(Commands(), *this, id) || CTBCommonView::OnCommand(id); }

bool CTBPreView::IsCommandEnabled(int id) const {
    return IsEnabled<CTBPreView>(Commands(), *this, id) || CTBCommonView::IsCommandEnabled(id);
}

void CTBPreView::RemoveTable(const std::string& title) {
    const std::vector<std::string> titles = DisplayedTables();
    const auto tab = static_cast<int>(std::find(titles.begin(), titles.end(), title) - titles.begin());
    if (tab >= GetTabCount()) return;
    const velda::TabPane* pane = GetTabWnd()->GetPane(tab);
    std::erase_if(m_arrTables, [&](const CTBCommonWnd* table) { return table == pane; });
    std::erase_if(tables_, [&](const auto& table) { return table.second == pane; });
    GetTabWnd()->RemoveTab(tab);
}

// ---- look ----

void CTBPreView::UpdateViewTitle() { SetTitle(GetTableName(kind_)); }

void CTBPreView::CustomizeContextMenu(velda::CMenu& menu) {
    if (kind_ == kTableMembDetail) menu.Append(kOnTableDisplayDlg, KeyText("IDS_TB_PREVIEW_DISPLAY_TABLES"));
    if (kind_ == kTablePhgeAll || kind_ == kTableIeheAll) {
        menu.Append(kOnTableHingePropSetting, KeyText("IDS_TB_HINGE_TABLE_SETTING"),
                    IsCommandEnabled(kOnTableHingePropSetting));
    }
}

void CTBPreView::SetTabStyle() {
    if (!GetTabWnd()) return;
    velda::TabStyle style;
    style.activeText = 0xff0000;
    style.activeBackground = 16760992;
    style.otherText = 10526878;
    style.faceName = KeyText("IDB_TB_PREVIEW_ARIAL");
    style.fontHeight = 15;
    style.activeFontHeight = 16;
    style.activeFontWeight = 700;
    style.stripHeight += style.stripHeight / 2;
    GetTabWnd()->SetStyle(std::move(style));
}

void CTBPreView::OnWindowPosChanging(const velda::WindowRect& place) {
    CTBCommonView::OnWindowPosChanging(place);
    OnSize();
}

void CTBPreView::OnSize() {
    if (ICheckSheet* sheet = CheckSheet()) sheet->LayoutCheckColumns();
}

// ---- hints ----

// Closing the frame ends the view: nothing of the view is used behind it.
void CTBPreView::OnUpdate(CDBUpdateConnector* sender, int code, T_UPDATE_HINT* hint) {
    if (code == HintCode::CommandText && hint && hint->text == kFinishChecking) {
        CloseCheckerPane();
        return;
    }
    if (code == HintCode::CommandText && hint && IsFinishedBy(hint->text)) {
        CloseFrame();
        return;
    }
    if (IsChange(code) && IsOutdatedBy(hint)) {
        UpdateBuffer(hint);
        return;
    }
    CTBCommonView::OnUpdate(sender, code, hint);
}

// Exposure conditions are those of a design standard.
bool CTBPreView::IsOutdatedBy(const T_UPDATE_HINT* hint) const { return kind_ == kTableExps && StandardsChanged(hint); }

bool CTBPreView::IsFinishedBy(std::string_view command) const {
    const auto commands = ClosingCommands();
    return std::any_of(commands.begin(), commands.end(), [&](const ClosingCommand& closing) {
        return closing.text == command && Contains(closing.kinds, kind_);
    });
}

TableFollows CTBPreView::Follows() const {
    const TableKindEntry* entry = FindTableKind(kind_);
    return entry ? entry->follows : TableFollows::Nothing;
}

void CTBPreView::UpdateBuffer(T_UPDATE_HINT* hint) {
    if (IsOutdatedBy(hint)) {
        CloseFrame();
        return;
    }
    for (CTBCommonWnd* table : m_arrTables) table->UpdateBuffer(hint);
    if (single_ && Follows() != TableFollows::Nothing) single_->UpdateBuffer(hint);
}

void CTBPreView::UpdateUnit() {
    for (CTBCommonWnd* table : m_arrTables) table->UnitChanged();
    if (single_ && Follows() == TableFollows::ChangesAndUnits) single_->UnitChanged();
}

void CTBPreView::UpdateSelAdd() { UpdateSelection(HintCode::SelectionAdded); }
void CTBPreView::UpdateSelDel() { UpdateSelection(HintCode::SelectionRemoved); }

void CTBPreView::UpdateSelection(int code) {
    CDataBase* db = CTBCommonWnd::GetDB();
    if (!db || !group_ || group_->selection == GroupSelection::None) return;
    CTBCommonWnd::Keys keys;
    const CViewCtrl& view = *db->GetViewCtrl();
    if (group_->selection == GroupSelection::Nodes) view.GetCurrentPont(keys);
    if (group_->selection == GroupSelection::Members) view.GetCurrentMemb(keys);
    for (CTBCommonWnd* table : m_arrTables) table->UpdateSelInDetail(code, keys);
}

void CTBPreView::UpdateSelPre() {
    if (!Contains(KindsKeptByPreMode(), kind_)) CloseFrame();
    velda::CDockViewBase::CloseDockViewAll();
}

void CTBPreView::UpdateSelPost() {
    const bool tracing = kind_ == kTableChk && CDBDoc::m_pDBDoc && CDBDoc::m_pDBDoc->IsTracerMode();
    if (Contains(KindsClosedByPostMode(), kind_)) CloseFrame();
    if (!tracing) velda::CDockViewBase::CloseDockViewAll();
}

void CTBPreView::CloseFrame() {
    if (velda::IFrame* frame = GetParentFrame()) frame->Close();
}

}  // namespace zt
