#pragma once

#include <cstdint>
#include <vector>

#include "zt_db/core/database.h"
#include "zt_db/core/record_class.h"

namespace zt {

/// Visits every record of a class as (key, record), in SI units and in the order of the keys.
template <class Class, class Visit>
void ForEachInOrder(const CDataBase& database, Visit visit) {
    const Class& records = *database.GetClass<Class>();
    std::vector<std::uint32_t> keys;
    records.GetKeyList(keys);
    for (const std::uint32_t key : keys) {
        typename Class::Record record;
        records.Get(key, record);
        RecordToBase(record, database.Units());
        visit(key, record);
    }
}

/// Reads a record in SI units; false when the key does not exist.
template <class Class>
bool ReadInBase(const CDataBase& database, std::uint32_t key, typename Class::Record& record) {
    if (!database.GetClass<Class>()->Get(key, record)) return false;
    RecordToBase(record, database.Units());
    return true;
}

}  // namespace zt
