#include "zt_db/file/sqlite_handle.h"

namespace zt {
namespace {

std::string Quoted(std::string_view text, char quote) {
    std::string quoted(1, quote);
    for (const char c : text) {
        quoted += c;
        if (c == quote) quoted += c;
    }
    return quoted + quote;
}

}  // namespace

int SqliteHandle::Open(const std::string& path, int flags) {
    Close();
    // Names such as ":memory:" and "file:x" would stand for something else than a file.
    const bool isRelative = (flags & SQLITE_OPEN_URI) == 0 && !path.empty() && !path.starts_with('/');
    const std::string name = isRelative ? "./" + path : path;
    const int result = sqlite3_open_v2(name.c_str(), &db_, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    if (db_) sqlite3_extended_result_codes(db_, 1);
    return result;
}

void SqliteHandle::Close() {
    if (db_) sqlite3_close(std::exchange(db_, nullptr));
}

int SqliteHandle::Execute(const std::string& sql) { return sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr); }

int SqliteHandle::QueryNumber(const std::string& sql, std::int64_t& number) {
    SqliteStatement statement;
    int result = statement.Prepare(*this, sql);
    if (result != SQLITE_OK) return result;
    result = statement.Step();
    if (result == SQLITE_ROW) number = sqlite3_column_int64(statement.Get(), 0);
    return result == SQLITE_ROW ? SQLITE_OK : result;
}

int SqliteStatement::Prepare(const SqliteHandle& db, const std::string& sql, bool keep) {
    sqlite3_finalize(std::exchange(statement_, nullptr));
    const unsigned flags = keep ? SQLITE_PREPARE_PERSISTENT : 0u;
    return sqlite3_prepare_v3(db.Get(), sql.c_str(), static_cast<int>(sql.size()), flags, &statement_, nullptr);
}

int SqliteStatement::Run() {
    const int result = sqlite3_step(statement_);
    const int reset = sqlite3_reset(statement_);
    return result == SQLITE_DONE || result == SQLITE_ROW ? reset : result;
}

std::string SqlName(std::string_view name) { return Quoted(name, '"'); }
std::string SqlText(std::string_view text) { return Quoted(text, '\''); }

}  // namespace zt
