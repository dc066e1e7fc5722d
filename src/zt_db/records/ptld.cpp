#include "zt_db/records/ptld.h"

namespace zt {

ZT_DEFINE_RECORD(PTLD)

}  // namespace zt
