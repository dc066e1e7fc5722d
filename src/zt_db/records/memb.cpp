#include "zt_db/records/memb.h"

namespace zt {

ZT_DEFINE_RECORD(MEMB)

}  // namespace zt
