#include "zt_db/records/load.h"

namespace zt {

ZT_DEFINE_RECORD(STLD)
ZT_DEFINE_RECORD(LCOM)

std::uint32_t CClassStld::GetKey(std::string_view name) const { return KeyOfName(name); }

}  // namespace zt
