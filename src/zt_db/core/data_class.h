#pragma once

#include <cstdint>
#include <vector>

#include "zt_db/core/position.h"
#include "zt_db/core/record_store.h"

namespace zt {

class DB_CDataBase;

/// One record class of a database: a handle that sees the records of the database it is connected to. The database owns
/// one for each class; others can be made on the stack and connected. A handle that is not connected sees no records.
class DB_CDataClass {
public:
    virtual ~DB_CDataClass() = default;

    /// Attaches the handle; null detaches it.
    virtual void ConnectToDB(DB_CDataBase* database) = 0;

    int Exist(std::uint32_t key) const { return keys_ && keys_->Exists(key) ? 1 : 0; }
    int GetCount() const { return keys_ ? static_cast<int>(keys_->Count()) : 0; }
    /// The next free key.
    std::uint32_t GetNewKey() const { return keys_ ? keys_->NewKey() : 1; }
    /// All keys, ascending; false when there are none.
    int GetKeyList(std::vector<std::uint32_t>& keys) const;
    /// Start of an iteration over the records in the class's own order; null when there are none.
    POSITION DB_GetStart() const;

protected:
    DB_CDataBase* database_ = nullptr;
    const RecordStoreBase* keys_ = nullptr;
};

}  // namespace zt
