#pragma once

#include <cstdint>
#include <vector>

#include "zt_db/core/database.h"
#include "zt_db/core/record_class.h"

namespace zt {

/// Keys of all records of a class, ascending.
template <class Class>
std::vector<std::uint32_t> KeysOf(const CDataBase& database) {
    std::vector<std::uint32_t> keys;
    database.GetClass<Class>()->GetKeyList(keys);
    return keys;
}

/// Reads a record in SI units; false when the key does not exist.
template <class Class>
bool ReadInBase(const CDataBase& database, std::uint32_t key, typename Class::Record& record) {
    if (!database.GetClass<Class>()->Get(key, record)) return false;
    RecordToBase(record, database.Units());
    return true;
}

/// Visits every record of a class as (key, record), in SI units and in the order of the keys.
template <class Class, class Visit>
void ForEachInOrder(const CDataBase& database, Visit visit) {
    for (const std::uint32_t key : KeysOf<Class>(database)) {
        typename Class::Record record;
        ReadInBase<Class>(database, key, record);
        visit(key, record);
    }
}

}  // namespace zt
