#include "zt_tb/model/tb_prop_view.h"

#include <algorithm>

#include "velda_lib/msg_dll.h"
#include "zt_tb/model/tb_thik.h"

namespace zt {
namespace {

constexpr CTBPropView::TableEntry kTables[] = {
    {CTBPropView::kThickness, "THIK", "IDS_TB_PREVIEW_Thik", &MakeTable<CTBThik>},
};

}  // namespace

std::span<const CTBPropView::TableEntry> CTBPropView::Tables() { return kTables; }

std::string CTBPropView::GetTableName(int /*kind*/) {
    return velda::CMsgDll::pfuncLoadStr("IDS_TB_PROPVIEW_PROPERTIES", 0);
}

bool CTBPropView::SetTable(int kind, CDBDoc& doc) {
    const auto asked =
        std::find_if(std::begin(kTables), std::end(kTables), [&](const TableEntry& e) { return e.kind == kind; });
    if (asked == std::end(kTables)) return false;
    kind_ = kind;
    BuildWorkbook();
    AddTables();
    SetCurrentTab(static_cast<int>(asked - std::begin(kTables)));
    UpdateViewTitle();
    FillTables(*doc.GetMDBCtrl()->GetCurrentDB()->GetViewCtrl());
    SetTableReadOnlyMode(doc.IsExcuted());
    ConnectToDoc(&doc);
    return true;
}

void CTBPropView::AddTables() {
    for (const TableEntry& entry : kTables) {
        std::unique_ptr<CTBCommonWnd> table = entry.make(this);
        tables_.push_back(table.get());
        AddWorksheet(std::move(table), velda::CMsgDll::pfuncLoadStr(entry.titleKey, 0));
    }
}

void CTBPropView::FillTables(CViewCtrl& view) {
    std::vector<std::uint32_t> nodes;
    view.GetAllSelectedPont(nodes);
    std::sort(nodes.begin(), nodes.end());
    for (CTBCommonWnd* table : tables_) {
        const velda::GridUpdateLock lock(*table);
        if (nodes.empty()) {
            table->MakeItemEx(nullptr, -2, 0);
        } else {
            table->PreFilterRecord(nodes);
        }
        table->OnAfterOpen();
    }
}

void CTBPropView::UpdateViewTitle() { SetTitle(GetTableName(kind_)); }

void CTBPropView::UpdateBuffer(T_UPDATE_HINT* hint) {
    for (CTBCommonWnd* table : tables_) table->UpdateBuffer(hint);
}

void CTBPropView::UpdateUnit() {
    for (CTBCommonWnd* table : tables_) table->UnitChanged();
}

}  // namespace zt
