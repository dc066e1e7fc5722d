#include "zt_tb/model/tb_display_dlg.h"

#include <algorithm>
#include <utility>

#include "velda_lib/msg_dll.h"
#include "zt_tb/model/table_kinds.h"

namespace zt {
namespace {

constexpr std::pair<std::string_view, int> kPreTables[] = {
    {"IDS_TB_PREVIEW_Memb", kTableMemb}, {"IDS_TB_PREVIEW_Frls", kTableFrls}, {"IDS_TB_PREVIEW_Srls", kTableSrls},
    {"IDS_TB_PREVIEW_Sspt", kTableSspt}, {"IDS_TB_PREVIEW_Wssf", kTableWssf}, {"IDS_TB_PREVIEW_Sssf", kTableSssf},
    {"IDS_TB_PREVIEW_Swgt", kTableSwgt}, {"IDS_TB_PREVIEW_Mtmp", kTableMtmp}, {"IDS_TB_PREVIEW_Bmla", kTableBmla},
    {"IDS_TB_PREVIEW_Arld", kTableArld}, {"IDS_TB_PREVIEW_Lnld", kTableLnld}, {"IDS_TB_PREVIEW_Inmf", kTableInmf},
    {"IDS_TB_PREVIEW_Awop", kTableAwop}, {"IDS_TB_PREVIEW_Offs", kTableOffs}, {"IDS_TB_PREVIEW_Pont", kTablePont},
    {"IDS_TB_PREVIEW_Spts", kTableSpts}, {"IDS_TB_PREVIEW_Pmas", kTablePmas}, {"IDS_TB_PREVIEW_Rigd", kTableRigd},
    {"IDS_TB_PREVIEW_Ptld", kTablePtld}, {"IDS_TB_PREVIEW_Skew", kTableSkew}, {"IDS_TB_PREVIEW_Nlnk", kTableNlnk},
    {"IDS_TB_PREVIEW_Sdsp", kTableSdsp}, {"IDS_TB_PREVIEW_Ptmp", kTablePtmp}, {"IDS_TB_PREVIEW_Thnl", kTableThnl},
};

bool Holds(const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

}  // namespace

void CTBDisplayOptBase::Add(std::string_view titleKey, int kind) {
    items_.push_back({velda::CMsgDll::pfuncLoadStr(titleKey, 0), kind});
}

void CTBDisplayOptBase::SetPresent(std::span<const std::string> names) {
    for (ListItem& item : items_) item.isShown = std::find(names.begin(), names.end(), item.name) != names.end();
}

CTBDisplayPreDlg::CTBDisplayPreDlg() {
    for (const auto& [titleKey, kind] : kPreTables) Add(titleKey, kind);
}

std::string CTBDisplayPreDlg::GetTitle() const {
    return velda::CMsgDll::pfuncLoadStr("IDS_TB_DISPLAY_DLG_PRE_TABLE", 0);
}

std::vector<std::string> CTBDisplayDlg::ChosenNames() const {
    std::vector<std::string> names;
    for (const auto& item : page_.Items()) {
        if (item.isShown) names.push_back(item.name);
    }
    return names;
}

std::vector<std::string> CTBDisplayDlg::NamesToRemove() const {
    std::vector<std::string> names;
    for (const auto& item : page_.Items()) {
        if (!item.isShown && Holds(present_, item.name)) names.push_back(item.name);
    }
    return names;
}

std::vector<std::string> CTBDisplayDlg::NamesToAdd() const {
    std::vector<std::string> names = ChosenNames();
    std::erase_if(names, [&](const std::string& name) { return Holds(present_, name); });
    return names;
}

int CTBDisplayDlg::KindOf(const std::string& name) const {
    const auto& items = page_.Items();
    const auto found = std::find_if(items.begin(), items.end(), [&](const auto& item) { return item.name == name; });
    return found == items.end() ? 0 : found->kind;
}

}  // namespace zt
