#include "zt_tb/post/tb_post_ds_memb2.h"

#include "velda_base/host/wait_cursor.h"
#include "velda_lib/key_text.h"
#include "zt_tb/post/result_tracer.h"

namespace zt {

using velda::CGXRange;
using velda::CGXStyle;
using velda::ControlKind;
using velda::KeyText;

namespace {

/// Columns of the row in which a module is chosen.
constexpr int kLabelCol = 1;
constexpr int kListCol = kLabelCol + 2;
constexpr int kButtonCol = kLabelCol + 5;

std::vector<std::string> ModuleNames(const CPostDataBase& database) {
    const CClassPMdul modules(&database);
    std::vector<std::string> names;
    for (const std::uint32_t key : modules.Keys()) {
        T_PMDUL_D module;
        if (modules.Get(key, module)) names.push_back(std::move(module.name));
    }
    return names;
}

/// What stands in the list for no module.
std::string AllModules() { return KeyText("IDS_TB_POSTDISP_All_Modules"); }

std::string NameOfModule(const CPostDataBase& database, std::uint32_t key) {
    T_PMDUL_D module;
    return CClassPMdul(&database).Get(key, module) ? module.name : AllModules();
}

/// The columns below hold numbers; these cells hold texts.
void PutStyle(velda::CTBCore& grid, int row, int col, CGXStyle style) {
    style.SetValueType(velda::ValueType::String).SetHorizontalAlignment(velda::HorizontalAlignment::Left);
    grid.SetStyleRange(CGXRange(static_cast<CGXRange::Index>(row), static_cast<CGXRange::Index>(col)), style);
}

}  // namespace

CTBPostDSMemb2::CTBPostDSMemb2(int kind, const ResultDeclaration& declaration, std::set<int> types)
    : ObjectSource(kind, KeyDomain::Members, declaration), types_(std::move(types)) {
    partsOn_ = true;
    hasStoryFilter_ = true;
    // Tabs of other members have other members and other parts.
    isPrivate_ = true;
}

void CTBPostDSMemb2::MakeObjectKeys(std::vector<std::uint32_t>& keys) {
    const CClassPMemb members(&Results());
    members.GetKeyList(keys);
    FilterObjectKeys(keys);
    if (moduleKey_ == 0) return;
    std::erase_if(keys, [&](std::uint32_t key) {
        T_PMEMB_D member;
        return members.Get(key, member) && member.mdul != moduleKey_;
    });
}

void CTBPostDSMemb2::FilterObjectKeys(std::vector<std::uint32_t>& keys) {
    const CClassPMemb members(&Results());
    std::erase_if(keys, [&](std::uint32_t key) {
        T_PMEMB_D member;
        return members.Get(key, member) && !types_.contains(member.kind);
    });
    const bool isTraced = CDBDoc::m_pDBDoc && CDBDoc::m_pDBDoc->GetTableID4Checker() == kFilteredResultTable;
    if (!keys_.empty() && isTraced) DropUntraced(keys);
}

void CTBPostDSMemb2::AfterSetRecCount() {
    const bool hasChoice = CClassPMdul(&Results()).GetCount() > 1;
    velda::CTBCore::InsertPrePostRows(*Grid(), hasChoice ? 1 : 0, 0);
}

void CTBPostDSMemb2::AfterRedrawTable() {
    velda::CTBCore& grid = *Grid();
    int row = 0;
    int last = 0;
    if (!grid.GetPreRecRange(row, last)) return;
    std::string lines = AllModules() + "\n";
    for (const std::string& name : ModuleNames(Results())) lines += name + "\n";
    PutStyle(grid, row, kLabelCol, CGXStyle());
    PutStyle(grid, row, kListCol, CGXStyle().SetControl(ControlKind::DropDownList).SetChoiceList(lines));
    const std::string caption = KeyText("IDS_TB_POSTDISP_Module_Apply");
    PutStyle(grid, row, kButtonCol, CGXStyle().SetControl(ControlKind::PushButton).SetChoiceList(caption));
    grid.SetValueRange(row, kLabelCol, KeyText("IDS_TB_POSTDISP_Module"));
    grid.SetValueRange(row, kListCol, NameOfModule(Results(), moduleKey_));
}

void CTBPostDSMemb2::OnEvent(const velda::T_TB_EVENT_D& event) {
    int row = 0;
    int last = 0;
    if (event.kind != velda::T_TB_EVENT_D::kClick || !Grid()->GetPreRecRange(row, last)) return;
    if (std::cmp_not_equal(event.row, row) || event.column != kButtonCol) return;
    const velda::WaitCursor wait;
    moduleKey_ = CClassPMdul(&Results()).GetKey(Grid()->GetValueRowCol(row, kListCol));
    keys_.clear();
    MakeObjectKeys(keys_);
    RefreshRecords();
}

}  // namespace zt
