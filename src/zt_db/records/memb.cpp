#include "zt_db/records/memb.h"

#include "velda_lib/msg_dll.h"

namespace zt {

ZT_DEFINE_RECORD(MEMB)

int CClassMemb::GetType(std::uint32_t key) const {
    const T_MEMB_D* member = Stored(key);
    return member ? member->type : 0;
}

int CClassMemb::GetMembTypeList(std::vector<int>& types) {
    types.clear();
    for (const MemberType& type : kMemberTypes) types.push_back(type.code);
    return 1;
}

std::string CClassMemb::GetMembTypeName(int type) {
    const MemberType* found = FindMemberType(type);
    return found ? velda::CMsgDll::pfuncLoadStr(found->nameKey, 0) : std::string{};
}

}  // namespace zt
