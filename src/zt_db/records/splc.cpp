#include "zt_db/records/splc.h"

namespace zt {

ZT_DEFINE_RECORD(SPFC)
ZT_DEFINE_RECORD(SPLC)

}  // namespace zt
