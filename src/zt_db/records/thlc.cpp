#include "zt_db/records/thlc.h"

namespace zt {

ZT_DEFINE_RECORD(THFC)
ZT_DEFINE_RECORD(THLC)

}  // namespace zt
