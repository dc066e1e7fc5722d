#include "zt_db/records/lnld.h"

namespace zt {

ZT_DEFINE_RECORD(LNLD)
ZT_DEFINE_RECORD(CMLD)

}  // namespace zt
