#include "zt_db/records/temperature.h"

namespace zt {

ZT_DEFINE_RECORD(STMP)
ZT_DEFINE_RECORD(PTMP)

}  // namespace zt
