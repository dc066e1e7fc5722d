#include "zt_db/records/mbtp.h"

namespace zt {

ZT_DEFINE_RECORD(MBTP)
ZT_DEFINE_RECORD(PREL)

std::uint32_t CClassMbtp::GetMembKbyMbtpK(std::uint32_t key) const {
    const T_MBTP_D* options = Stored(key);
    return options ? options->memb : 0;
}

std::uint32_t CClassPrel::GetMembKOfPrel(std::uint32_t key) const {
    const T_PREL_D* element = Stored(key);
    return element ? element->memb : 0;
}

}  // namespace zt
