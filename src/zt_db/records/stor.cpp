#include "zt_db/records/stor.h"

namespace zt {

ZT_DEFINE_RECORD(MDUL)
ZT_DEFINE_RECORD(STOR)

}  // namespace zt
