#include "zt_db/records/name.h"

namespace zt {

ZT_DEFINE_RECORD(NAME)

}  // namespace zt
