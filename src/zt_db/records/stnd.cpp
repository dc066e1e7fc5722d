#include "zt_db/records/stnd.h"

namespace zt {

ZT_DEFINE_RECORD(STND)

}  // namespace zt
