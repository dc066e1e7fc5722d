#include "velda_lib/number_text.h"
#include "zt_db/records/memb.h"
#include "zt_db/records/pont.h"
#include "zt_tb/core/tb_common_wnd.h"

namespace zt {

std::uint32_t CTBCommonWnd::GetObjectNo(ObjectKind kind, std::uint32_t key) const {
    const auto* nodes = GetRecords<CClassPont>();
    const auto* members = GetRecords<CClassMemb>();
    if (!nodes || !members || key == 0) return 0;
    switch (kind) {
        case ObjectKind::Node: return nodes->Exist(key) ? nodes->GetPontNoByKey(key) : GetPontNoByDeletedKey(key);
        case ObjectKind::Member: return members->Exist(key) ? members->GetMembNoByKey(key) : GetMembNoByDeletedKey(key);
        case ObjectKind::None: break;
    }
    return 0;
}

std::uint32_t CTBCommonWnd::GetObjectKey(ObjectKind kind, std::uint32_t number) {
    const auto* nodes = GetRecords<CClassPont>();
    const auto* members = GetRecords<CClassMemb>();
    if (!nodes || !members || number == 0) return 0;
    switch (kind) {
        case ObjectKind::Node: return nodes->GetPontKeyByNo(number);
        case ObjectKind::Member: return members->GetMembKeyByNo(number);
        case ObjectKind::None: break;
    }
    return 0;
}

std::uint32_t CTBCommonWnd::GetObjectKey(ObjectKind kind, std::string_view text) {
    return GetObjectKey(kind, static_cast<std::uint32_t>(velda::wtol(text)));
}

std::uint32_t CTBCommonWnd::GetObjectStory(ObjectKind kind, std::uint32_t key) {
    const auto* nodes = GetRecords<CClassPont>();
    const auto* members = GetRecords<CClassMemb>();
    T_PONT_D node;
    T_MEMB_D member;
    if (kind == ObjectKind::Node && nodes && nodes->Get(key, node)) return node.story;
    if (kind == ObjectKind::Member && members && members->Get(key, member)) return member.story;
    return 0;
}

}  // namespace zt
