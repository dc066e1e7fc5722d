#include "zt_db/records/actl.h"

namespace zt {

ZT_DEFINE_RECORD(ACTL)

}  // namespace zt
