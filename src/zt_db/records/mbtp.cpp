#include "zt_db/records/mbtp.h"

namespace zt {

ZT_DEFINE_RECORD(MBTP)
ZT_DEFINE_RECORD(PREL)

}  // namespace zt
