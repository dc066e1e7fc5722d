#include "zt_db/records/rigd.h"

namespace zt {

ZT_DEFINE_RECORD(RIGD)

}  // namespace zt
