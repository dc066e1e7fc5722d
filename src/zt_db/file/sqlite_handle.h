#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace zt {

/// An open SQLite database. Result codes are passed on as they are (extended codes).
class SqliteHandle {
public:
    SqliteHandle() = default;
    ~SqliteHandle() { Close(); }
    SqliteHandle(SqliteHandle&& other) noexcept : db_(std::exchange(other.db_, nullptr)) {}
    SqliteHandle& operator=(SqliteHandle&& other) noexcept {
        Close();
        db_ = std::exchange(other.db_, nullptr);
        return *this;
    }
    SqliteHandle(const SqliteHandle&) = delete;
    SqliteHandle& operator=(const SqliteHandle&) = delete;

    int Open(const std::string& path, int flags);
    void Close();
    int Execute(const std::string& sql);
    /// The single number that a statement such as "PRAGMA user_version" gives.
    int QueryNumber(const std::string& sql, std::int64_t& number);

    sqlite3* Get() const { return db_; }
    std::string Message() const { return db_ ? sqlite3_errmsg(db_) : ""; }
    bool InTransaction() const { return db_ && sqlite3_get_autocommit(db_) == 0; }

private:
    sqlite3* db_ = nullptr;
};

/// A prepared statement.
class SqliteStatement {
public:
    SqliteStatement() = default;
    ~SqliteStatement() { sqlite3_finalize(statement_); }
    SqliteStatement(SqliteStatement&& other) noexcept : statement_(std::exchange(other.statement_, nullptr)) {}
    SqliteStatement& operator=(SqliteStatement&& other) noexcept {
        std::swap(statement_, other.statement_);
        return *this;
    }
    SqliteStatement(const SqliteStatement&) = delete;
    SqliteStatement& operator=(const SqliteStatement&) = delete;

    int Prepare(const SqliteHandle& db, const std::string& sql, bool keep = false);
    bool IsPrepared() const { return statement_ != nullptr; }
    sqlite3_stmt* Get() const { return statement_; }
    int Step() { return sqlite3_step(statement_); }
    /// Runs a statement that gives no rows and makes it ready for the next run; SQLITE_OK when it was done.
    int Run();

private:
    sqlite3_stmt* statement_ = nullptr;
};

/// A name as SQL takes it, whatever it holds.
std::string SqlName(std::string_view name);
/// A text as an SQL literal.
std::string SqlText(std::string_view text);

}  // namespace zt
