#include "zt_db/records/frls.h"

namespace zt {

ZT_DEFINE_RECORD(FRLS)

}  // namespace zt
