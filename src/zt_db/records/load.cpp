#include "zt_db/records/load.h"

namespace zt {

ZT_DEFINE_RECORD(LCOM)

}  // namespace zt
