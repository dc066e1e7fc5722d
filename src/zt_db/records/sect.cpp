#include "zt_db/records/sect.h"

#include "zt_db/records/memb_type.h"

namespace zt {

ZT_DEFINE_RECORD(SECT)

int CClassSect::GetKeyListByMembType(std::vector<std::uint32_t>& keys, int membType, int, int) const {
    if (PropertyOfMemberType(membType) == MemberProperty::Section) return GetKeyList(keys);
    keys.clear();
    return 0;
}

}  // namespace zt
