#include "zt_db/records/pont.h"

namespace zt {

ZT_DEFINE_RECORD(PONT)

}  // namespace zt
