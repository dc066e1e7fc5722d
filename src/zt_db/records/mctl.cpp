#include "zt_db/records/mctl.h"

namespace zt {

ZT_DEFINE_RECORD(MCTL)

}  // namespace zt
