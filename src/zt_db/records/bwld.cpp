#include "zt_db/records/bwld.h"

namespace zt {

ZT_DEFINE_RECORD(BWTP)
ZT_DEFINE_RECORD(BWLD)

std::uint32_t CClassBwtp::GetKey(std::string_view name) const { return KeyOfName(name); }

}  // namespace zt
