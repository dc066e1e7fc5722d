#pragma once

#include <cstdint>
#include <string>

#include "zt_db/core/record_store.h"

namespace zt {

/// The model file is an SQLite database of this application id ("ZTBM") with one table for each record class: the key,
/// then a column for each field of the record's field list.
inline constexpr std::int64_t kModelApplicationId = 0x5A54424D;
/// Raised whenever a record class or a field is declared anew. An older file gets what it lacks when it is opened.
inline constexpr std::int64_t kModelSchemaVersion = 4;

/// Default value of a column as an SQL literal.
std::string DefaultLiteral(const RecordStoreBase& store, int column);
std::string CreateTableSql(const RecordStoreBase& store);
std::string AddColumnSql(const RecordStoreBase& store, int column);
std::string InsertSql(const RecordStoreBase& store);
std::string UpdateSql(const RecordStoreBase& store);
std::string DeleteSql(const RecordStoreBase& store);

}  // namespace zt
