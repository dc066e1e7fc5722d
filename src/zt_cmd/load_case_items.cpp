#include "zt_cmd/load_case_items.h"

namespace zt {

std::vector<std::string> CaseTexts(const DB_CDataBase& database, const T_LCOM_ITEM& item) {
    const RecordChoice cases = CasesOf(database, item);
    if (T_LCOM_ITEM::CaseClass(item)) return cases.Texts();
    return {cases.TextOf(item.key)};
}

void UseKind(const DB_CDataBase& database, std::uint32_t self, const std::string& text, T_LCOM_ITEM& item) {
    const int before = item.kind;
    item.kind = NumberOf(kLoadCaseKinds, text, before);
    if (item.kind == before) return;
    // What would make a ring is not offered first.
    const auto isSelf = [&](std::uint32_t key) { return item.kind == LoadCaseKind::Combination && key == self; };
    item.key = CasesOf(database, item).FirstFree(isSelf);
    if (isSelf(item.key)) item.key = 0;
}

}  // namespace zt
