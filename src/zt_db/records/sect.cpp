#include "zt_db/records/sect.h"

namespace zt {

ZT_DEFINE_RECORD(SECT)

}  // namespace zt
