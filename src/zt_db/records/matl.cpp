#include "zt_db/records/matl.h"

namespace zt {

ZT_DEFINE_RECORD(MATL)

}  // namespace zt
