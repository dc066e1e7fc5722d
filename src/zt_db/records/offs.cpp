#include "zt_db/records/offs.h"

namespace zt {

ZT_DEFINE_RECORD(OFFS)
ZT_DEFINE_RECORD(RGDE)

}  // namespace zt
