#include "zt_db/records/swgt.h"

namespace zt {

ZT_DEFINE_RECORD(SWGT)

}  // namespace zt
