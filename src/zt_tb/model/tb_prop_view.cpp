#include "zt_tb/model/tb_prop_view.h"

#include <algorithm>

#include "velda_base/host/wait_cursor.h"
#include "velda_lib/msg_dll.h"
#include "zt_tb/model/tb_matl.h"
#include "zt_tb/model/tb_sect.h"
#include "zt_tb/model/tb_thik.h"

namespace zt {
namespace {

constexpr CTBPropView::TableEntry kTables[] = {
    {CTBPropView::kMaterial, "MATL", "IDB_TB_PREVIEW_Matl", &MakeTable<CTBMatl>},
    {CTBPropView::kSection, "SECT", "IDB_TB_PREVIEW_Sect", &MakeTable<CTBSect>},
    {CTBPropView::kThickness, "THIK", "IDS_TB_PREVIEW_Thik", &MakeTable<CTBThik>},
};

/// Null for a kind without a tab.
const CTBPropView::TableEntry* EntryOf(int kind) {
    const auto found = std::find_if(std::begin(kTables), std::end(kTables),
                                    [&](const CTBPropView::TableEntry& entry) { return entry.kind == kind; });
    return found == std::end(kTables) ? nullptr : &*found;
}

}  // namespace

std::span<const CTBPropView::TableEntry> CTBPropView::Tables() { return kTables; }

std::string CTBPropView::GetTableName(int /*kind*/) {
    return velda::CMsgDll::pfuncLoadStr("IDS_TB_PROPVIEW_PROPERTIES", 0);
}

bool CTBPropView::SetTable(int kind, void* /*data*/) {
    if (!EntryOf(kind)) return false;
    kind_ = kind;
    UpdateViewTitle();
    OnInitialUpdate();
    return !tables_.empty();
}

bool CTBPropView::OpenProperties(int kind) {
    allWithoutSelection_ = true;
    return SetTable(kind);
}

void CTBPropView::OnInitialUpdate() {
    CDBDoc* doc = CDBDoc::m_pDBDoc;
    if (kind_ == 0 || !doc || !tables_.empty()) return;
    OnInitialUpdateProperties(*doc, GetPlace(), kind_);
    ShowAndFill(*doc, allWithoutSelection_ && selectedKeys_.empty());
}

void CTBPropView::OnInitialUpdateProperties(CDBDoc& doc, const velda::WindowRect& place, int kind) {
    OnWindowPosChanging(place);
    BuildWorkbook();
    doc.GetMDBCtrl()->GetCurrentDB()->GetViewCtrl()->GetAllSelectedPont(selectedKeys_);
    std::sort(selectedKeys_.begin(), selectedKeys_.end());
    for (const TableEntry& entry : kTables) AddTable(entry);
    SetCurrentTab(static_cast<int>(EntryOf(kind) - kTables));
    SetTabStyle();
}

bool CTBPropView::OpenAlone(CDBDoc* doc, const velda::WindowRect& place, int kind) {
    const TableEntry& entry = *EntryOf(kind);
    if (!doc || !entry.make || !tables_.empty()) return false;
    kind_ = kind;
    OnWindowPosChanging(place);
    AddTable(entry);
    UpdateViewTitle();
    ShowAndFill(*doc, true);
    return true;
}

void CTBPropView::AddTable(const TableEntry& entry) {
    const std::string title = velda::CMsgDll::pfuncLoadStr(entry.titleKey, 0);
    std::unique_ptr<CTBCommonWnd> table = entry.make ? entry.make(this) : nullptr;
    if (table) tables_.push_back(table.get());
    AddWorksheet(std::move(table), title);
}

void CTBPropView::ShowAndFill(CDBDoc& doc, bool all) {
    if (velda::IFrame* frame = GetParentFrame()) frame->RedrawNow();
    if (velda::CWnd* window = GetWindow()) window->RedrawNow();
    const velda::WaitCursor wait;
    for (CTBCommonWnd* table : tables_) {
        const velda::GridUpdateLock lock(*table);
        if (all) {
            table->MakeItemEx(nullptr, -2, 0);
        } else {
            table->PreFilterRecord(selectedKeys_);
        }
        table->OnAfterOpen();
    }
    ConnectToDoc(&doc);
    ShowActiveTable(doc);
}

void CTBPropView::UpdateViewTitle() { SetTitle(GetTableName(kind_)); }

void CTBPropView::UpdateBuffer(T_UPDATE_HINT* hint) {
    for (CTBCommonWnd* table : tables_) table->UpdateBuffer(hint);
}

void CTBPropView::UpdateUnit() {
    for (CTBCommonWnd* table : tables_) table->UnitChanged();
}

}  // namespace zt
