#include "zt_db/records/pmas.h"

namespace zt {

ZT_DEFINE_RECORD(PMAS)

}  // namespace zt
