#include "zt_db/file/model_schema.h"

#include "zt_db/file/sqlite_handle.h"

namespace zt {
namespace {

std::string TableName(const RecordStoreBase& store) { return SqlName(store.Identity().mnemonic); }

std::string ColumnSql(const RecordStoreBase& store, int column) {
    constexpr const char* kTypes[] = {" INTEGER NOT NULL", " REAL NOT NULL", " TEXT NOT NULL", " TEXT NOT NULL"};
    const auto at = static_cast<std::size_t>(column);
    return SqlName(store.ColumnNames()[at]) + kTypes[static_cast<std::size_t>(store.ColumnKinds()[at])];
}

int ColumnCount(const RecordStoreBase& store) { return static_cast<int>(store.ColumnNames().size()); }

/// Default value of a column as a constant of its own kind, or as an integer where a real number is whole.
std::string DefaultConstant(const RecordStoreBase& store, int column) {
    const std::unique_ptr<ImageList> images = store.NewImages();
    const std::string text = images->FieldText(images->AppendDefault(), column);
    const ColumnKind kind = store.ColumnKinds()[static_cast<std::size_t>(column)];
    return kind == ColumnKind::Text || kind == ColumnKind::List ? SqlText(text) : text;
}

}  // namespace

std::string DefaultLiteral(const RecordStoreBase& store, int column) {
    const std::string constant = DefaultConstant(store, column);
    const bool isReal = store.ColumnKinds()[static_cast<std::size_t>(column)] == ColumnKind::Real;
    return isReal ? "CAST(" + constant + " AS REAL)" : constant;
}

std::string CreateTableSql(const RecordStoreBase& store) {
    std::string sql = "CREATE TABLE " + TableName(store) + " (\"key\" INTEGER PRIMARY KEY";
    for (int column = 0; column < ColumnCount(store); ++column) sql += ", " + ColumnSql(store, column);
    return sql + ") STRICT";
}

std::string AddColumnSql(const RecordStoreBase& store, int column) {
    return "ALTER TABLE " + TableName(store) + " ADD COLUMN " + ColumnSql(store, column) + " DEFAULT " +
           DefaultConstant(store, column);
}

std::string InsertSql(const RecordStoreBase& store) {
    std::string columns = "\"key\"";
    std::string values = "?1";
    for (int column = 0; column < ColumnCount(store); ++column) {
        columns += ", " + SqlName(store.ColumnNames()[static_cast<std::size_t>(column)]);
        values += ", ?" + std::to_string(column + 2);
    }
    return "INSERT INTO " + TableName(store) + " (" + columns + ") VALUES (" + values + ")";
}

std::string UpdateSql(const RecordStoreBase& store) {
    std::string sql = "UPDATE " + TableName(store) + " SET ";
    for (int column = 0; column < ColumnCount(store); ++column) {
        if (column > 0) sql += ", ";
        sql += SqlName(store.ColumnNames()[static_cast<std::size_t>(column)]) + " = ?" + std::to_string(column + 2);
    }
    return sql + " WHERE \"key\" = ?1";
}

std::string DeleteSql(const RecordStoreBase& store) {
    return "DELETE FROM " + TableName(store) + " WHERE \"key\" = ?1";
}

}  // namespace zt
