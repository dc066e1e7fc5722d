#include "zt_db/records/bmla.h"

namespace zt {

ZT_DEFINE_RECORD(BLTP)
ZT_DEFINE_RECORD(BMLA)

std::uint32_t CClassBltp::GetKey(std::string_view name) const { return KeyOfName(name); }

}  // namespace zt
