#include "zt_db/records/thik.h"

#include "zt_db/records/memb_type.h"

namespace zt {

ZT_DEFINE_RECORD(THIK)

int CClassThik::GetKeyListByMembType(std::vector<std::uint32_t>& keys, int membType, int) const {
    if (PropertyOfMemberType(membType) == MemberProperty::Thickness) return GetKeyList(keys);
    keys.clear();
    return 0;
}

}  // namespace zt
