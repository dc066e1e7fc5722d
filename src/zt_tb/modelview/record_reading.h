#pragma once

#include <algorithm>
#include <vector>

#include "zt_db/core/database.h"
#include "zt_db/core/record_class.h"

namespace zt {

/// Reads a record of a class in SI units; false when the key does not exist.
template <class Class>
bool ReadBase(const CDataBase& database, std::uint32_t key, typename Class::Record& record) {
    if (!database.GetClass<Class>()->Get(key, record)) return false;
    RecordToBase(record, database.Units());
    return true;
}

template <class Class>
std::vector<std::uint32_t> KeysOf(const CDataBase& database) {
    std::vector<std::uint32_t> keys;
    database.GetClass<Class>()->GetKeyList(keys);
    return keys;
}

/// Whether an entry of the change buffer tells of a record of a class.
template <class Class>
bool IsOf(std::uint64_t entry) {
    const auto code = static_cast<int>(static_cast<std::uint32_t>(entry));
    const auto& codes = IdentityOf<typename Class::Record>::value.codes;
    return std::find(std::begin(codes), std::end(codes), code) != std::end(codes);
}

/// Whether the step that is in the change buffer touched a record of one of the classes.
template <class... Classes>
bool IsTouched(CDataBase& database) {
    const CViewBuff& buffer = *database.GetViewBuff();
    for (POSITION position = buffer.GetHeadPosition(); position;) {
        const std::uint64_t entry = buffer.GetNext(position);
        if ((IsOf<Classes>(entry) || ...)) return true;
    }
    return false;
}

}  // namespace zt
