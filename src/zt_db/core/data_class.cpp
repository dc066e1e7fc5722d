#include "zt_db/core/data_class.h"

namespace zt {

int DB_CDataClass::GetKeyList(std::vector<std::uint32_t>& keys) const {
    keys = keys_ ? keys_->SortedKeys() : std::vector<std::uint32_t>{};
    return keys.empty() ? 0 : 1;
}

POSITION DB_CDataClass::DB_GetStart() const {
    const std::uint32_t slot = keys_ ? keys_->FirstSlot() : RecordStoreBase::kNoSlot;
    return slot == RecordStoreBase::kNoSlot ? POSITION{} : POSITION::At(slot);
}

}  // namespace zt
