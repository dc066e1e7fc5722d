#include "zt_db/records/pont.h"

namespace zt {

ZT_DEFINE_RECORD(PONT)

int CClassPont::Get3DPos(std::uint32_t key, T_PONT_D& copy) const {
    if (!Get(key, copy)) return 0;
    double level = 0.0;
    database_->GetClass<CClassStor>()->GetStorTopLevel(copy.story, level);
    copy.z += level;
    return 1;
}

}  // namespace zt
