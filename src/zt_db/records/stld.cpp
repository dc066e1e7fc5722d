#include "zt_db/records/stld.h"

namespace zt {

ZT_DEFINE_RECORD(STLD)

std::uint32_t CClassStld::GetKey(std::string_view name) const { return KeyOfName(name); }

}  // namespace zt
