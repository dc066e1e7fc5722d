#include "zt_db/records/thik.h"

namespace zt {

ZT_DEFINE_RECORD(THIK)

}  // namespace zt
