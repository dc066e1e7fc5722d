#pragma once

#include <string>

#include "zt_db/file/sqlite_handle.h"

namespace zt {

/// What a failed file operation means to the user, worded in the current language.
std::string FileMessage(int sqliteResult, const SqliteHandle& db, const std::string& path);

/// Whether the main file is shorter than its own header says.
bool IsCutOff(const SqliteHandle& db, const std::string& path);

}  // namespace zt
