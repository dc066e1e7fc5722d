#include "zt_db/records/rslt.h"

namespace zt {

ZT_DEFINE_RECORD(RSLT)

}  // namespace zt
