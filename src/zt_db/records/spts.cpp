#include "zt_db/records/spts.h"

namespace zt {

ZT_DEFINE_RECORD(SPTS)

}  // namespace zt
