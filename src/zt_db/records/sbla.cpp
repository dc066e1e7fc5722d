#include "zt_db/records/sbla.h"

namespace zt {

ZT_DEFINE_RECORD(SLTP)
ZT_DEFINE_RECORD(SBLA)

}  // namespace zt
