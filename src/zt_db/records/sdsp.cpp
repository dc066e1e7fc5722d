#include "zt_db/records/sdsp.h"

namespace zt {

ZT_DEFINE_RECORD(SDSP)

}  // namespace zt
