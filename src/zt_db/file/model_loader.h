#pragma once

#include <string>

#include "zt_db/core/database.h"
#include "zt_db/doc/open_report.h"
#include "zt_db/file/sqlite_handle.h"

namespace zt {

/// Opens and locks a model file of this or an older version. An empty handle, with the reason in the report, when that
/// is not possible. Nothing is written.
SqliteHandle OpenToWork(const std::string& path, OpenReport& report);

/// Fills an empty database from an open file. False, with the first fault in the report, when anything is missing or
/// wrong.
bool LoadModel(SqliteHandle& db, const std::string& path, CDataBase& database, OpenReport& report);

/// Brings the tables of an older file up to the current version, and makes the connection ready for transactions.
int FinishOpening(SqliteHandle& db, const CDataBase& database, const std::string& settings);

}  // namespace zt
