#include "zt_db/file/model_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>

#include "velda_lib/msg_dll.h"
#include "zt_db/file/file_message.h"
#include "zt_db/file/model_loader.h"
#include "zt_db/file/model_schema.h"

namespace zt {
namespace {

using velda::FormatText;
using velda::Outcome;
namespace fs = std::filesystem;

/// Binds the values of a record to the parameters of a statement, from the second on.
class StatementWriter final : public RowWriter {
public:
    explicit StatementWriter(sqlite3_stmt* statement) : statement_(statement) {}

    void Integer(int column, std::int64_t value) override { Keep(sqlite3_bind_int64(statement_, column + 2, value)); }
    void Real(int column, double value) override { Keep(sqlite3_bind_double(statement_, column + 2, value)); }
    void Text(int column, std::string_view value) override {
        Keep(sqlite3_bind_text64(statement_, column + 2, value.data(), value.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
    }
    int Result() const { return result_; }

private:
    void Keep(int result) {
        if (result_ == SQLITE_OK) result_ = result;
    }
    sqlite3_stmt* statement_;
    int result_ = SQLITE_OK;
};

/// Settings of a connection on which transactions are written.
std::string WorkingSettings(FileSafety safety) {
    constexpr const char* kCache = "PRAGMA cache_size = -65536; PRAGMA temp_store = MEMORY; ";
    return std::string(kCache) + "PRAGMA synchronous = " + (safety == FileSafety::Full ? "FULL;" : "NORMAL;");
}

void RemoveJournals(const std::string& path) {
    std::error_code error;
    for (const char* journal : {"-wal", "-shm", "-journal"}) fs::remove(path + journal, error);
}

/// Refuses a file that is open somewhere or write-protected.
Outcome CheckTarget(const std::string& path) {
    std::error_code error;
    if (fs::is_directory(path, error)) return Outcome::Refused(FormatText("IDS_DB_FILE_IS_FOLDER", {path}));
    if (!fs::exists(path, error)) return Outcome::Done();
    if (faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0) {
        return Outcome::Refused(FormatText("IDS_DB_FILE_READ_ONLY", {path}));
    }
    SqliteHandle old;
    int result = old.Open(path, SQLITE_OPEN_READWRITE);
    if (result == SQLITE_OK) result = old.Execute("PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE; ROLLBACK");
    const bool busy = (result & 0xff) == SQLITE_BUSY;
    return busy ? Outcome::Refused(FileMessage(result, old, path)) : Outcome::Done();
}

/// Makes sure that nobody works on the file that is to be replaced, and that no journal is left to be played into the
/// new one.
Outcome ReleaseTarget(const std::string& path) {
    Outcome outcome = CheckTarget(path);
    if (outcome) RemoveJournals(path);
    return outcome;
}

bool SyncPath(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) return false;
    const bool synced = fsync(file) == 0;
    close(file);
    return synced;
}

/// Writes all records of a class into a fresh table.
int WriteClass(SqliteHandle& db, const RecordStoreBase& store) {
    int result = db.Execute(CreateTableSql(store));
    SqliteStatement insert;
    if (result == SQLITE_OK) result = insert.Prepare(db, InsertSql(store));
    const std::vector<std::uint32_t> keys = store.SortedKeys();
    constexpr std::size_t kBlock = 1024;
    for (std::size_t start = 0; result == SQLITE_OK && start < keys.size(); start += kBlock) {
        const std::unique_ptr<ImageList> images = store.NewImages();
        for (std::size_t i = start; result == SQLITE_OK && i < std::min(keys.size(), start + kBlock); ++i) {
            const std::uint32_t image = store.CopyTo(keys[i], *images);
            sqlite3_bind_int64(insert.Get(), 1, keys[i]);
            StatementWriter writer(insert.Get());
            images->WriteRow(image, writer);
            result = writer.Result() == SQLITE_OK ? insert.Run() : writer.Result();
        }
    }
    return result;
}

// The file is finished here, so that opening it at its place has nothing to write.
int WriteWholeModel(SqliteHandle& db, const CDataBase& database) {
    int result = db.Execute(
        "PRAGMA locking_mode = EXCLUSIVE; PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF;"
        "BEGIN; PRAGMA application_id = " +
        std::to_string(kModelApplicationId) + "; PRAGMA user_version = " + std::to_string(kModelSchemaVersion) + ";");
    for (std::uint16_t i = 0; result == SQLITE_OK && i < database.ClassCount(); ++i) {
        result = WriteClass(db, database.StoreAt(i));
    }
    return result == SQLITE_OK ? db.Execute("COMMIT; PRAGMA journal_mode = WAL") : result;
}

/// Writes the model beside its place and moves it there.
Outcome WriteAndMove(const std::string& path, const CDataBase& database) {
    const std::string part = path + ".part";
    std::error_code error;
    fs::remove(part, error);
    RemoveJournals(part);
    SqliteHandle db;
    int result = db.Open(part, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    if (result == SQLITE_OK) result = WriteWholeModel(db, database);
    Outcome outcome = result == SQLITE_OK ? Outcome::Done() : Outcome::Refused(FileMessage(result, db, path));
    db.Close();
    if (outcome && !SyncPath(part)) outcome = Outcome::Refused(FormatText("IDS_DB_FILE_FAILED", {path, "fsync"}));
    if (outcome) outcome = ReleaseTarget(path);
    if (outcome) {
        fs::rename(part, path, error);
        if (error) outcome = Outcome::Refused(FormatText("IDS_DB_FILE_FAILED", {path, error.message()}));
    }
    if (outcome) {
        const fs::path folder = fs::absolute(path).parent_path();
        SyncPath(folder.string());
    } else {
        fs::remove(part, error);
        RemoveJournals(part);
    }
    return outcome;
}

}  // namespace

bool IsSameFile(const std::string& a, const std::string& b) {
    std::error_code error;
    return !b.empty() && fs::equivalent(a, b, error) && !error;
}

ModelFile::ModelFile(SqliteHandle db, std::string path, const CDataBase& database)
    : db_(std::move(db)), path_(std::move(path)), database_(database), statements_(database.ClassCount()) {}

std::unique_ptr<ModelFile> ModelFile::Open(const std::string& path, FileSafety safety, CDataBase& database,
                                           OpenReport& report) {
    SqliteHandle db = OpenToWork(path, report);
    if (!db.Get()) return nullptr;
    if (!LoadModel(db, path, database, report)) return nullptr;
    const int result = FinishOpening(db, database, WorkingSettings(safety));
    if (result != SQLITE_OK) {
        report.message = FileMessage(result, db, path);
        report.canOpenReadOnly = true;
        return nullptr;
    }
    return std::unique_ptr<ModelFile>(new ModelFile(std::move(db), path, database));
}

std::unique_ptr<ModelFile> ModelFile::Create(const std::string& path, const std::string& current, FileSafety safety,
                                             const CDataBase& database, Outcome& outcome) {
    if (IsSameFile(path, current)) return nullptr;
    if (database.InGroup()) {
        outcome = Outcome::Refused(FormatText("IDS_DB_REASON_GROUP_OPEN", {}));
        return nullptr;
    }
    outcome = WriteAndMove(path, database);
    if (!outcome) return nullptr;
    OpenReport report;
    SqliteHandle db = OpenToWork(path, report);
    int result = SQLITE_OK;
    if (db.Get()) result = FinishOpening(db, database, WorkingSettings(safety));
    if (!db.Get() || result != SQLITE_OK) {
        outcome = Outcome::Refused(db.Get() ? FileMessage(result, db, path) : report.message);
        return nullptr;
    }
    return std::unique_ptr<ModelFile>(new ModelFile(std::move(db), path, database));
}

Outcome ModelFile::Failure(int result) const { return Outcome::Refused(FileMessage(result, db_, path_)); }

SqliteStatement& ModelFile::Prepared(SqliteStatement& statement, const std::string& sql) {
    statement.Prepare(db_, sql, true);
    return statement;
}

Outcome ModelFile::Begin() {
    writes_ = 0;
    lost_.clear();
    if (!begin_.IsPrepared()) Prepared(begin_, "BEGIN IMMEDIATE");
    const int result = begin_.IsPrepared() ? begin_.Run() : SQLITE_ERROR;
    return result == SQLITE_OK ? Outcome::Done() : Failure(result);
}

// A failure takes back this batch alone: to the savepoint, or, for the first batch, to the beginning. Some failures
// make the engine take back the whole unit of work; then nothing of it may be committed.
Outcome ModelFile::Write(const Batch& batch, Direction direction) {
    if (!lost_.empty()) return Outcome::Refused(lost_);
    const bool first = writes_ == 0;
    int result = first ? SQLITE_OK : db_.Execute("SAVEPOINT batch");
    if (result == SQLITE_OK) result = WriteChanges(batch, direction);
    if (result == SQLITE_OK && !first) result = db_.Execute("RELEASE batch");
    if (result == SQLITE_OK) {
        ++writes_;
        return Outcome::Done();
    }
    const Outcome failure = Failure(result);
    const bool kept = db_.InTransaction();
    int restored = SQLITE_OK;
    if (first) {
        if (kept) db_.Execute("ROLLBACK");
        restored = begin_.Run();
    } else {
        restored = kept ? db_.Execute("ROLLBACK TO batch; RELEASE batch") : SQLITE_ABORT;
    }
    if (restored != SQLITE_OK) lost_ = failure.Reason();
    return failure;
}

int ModelFile::WriteChanges(const Batch& batch, Direction direction) {
    int result = SQLITE_OK;
    const auto write = [&](const Change& change, SqliteStatement ClassStatements::*which,
                           std::string (*sql)(const RecordStoreBase&)) {
        SqliteStatement& statement = statements_[change.classIndex].*which;
        if (!statement.IsPrepared()) Prepared(statement, sql(database_.StoreAt(change.classIndex)));
        result = WriteState(statement, batch.ImagesOf(change.classIndex), To(change, direction));
        return result == SQLITE_OK;
    };
    ApplyInPhases(
        batch, direction,
        [&](const Change& change) {
            result = DeleteKey(change.classIndex, From(change, direction).key);
            return result == SQLITE_OK;
        },
        [&](const Change& change) { return write(change, &ClassStatements::update, &UpdateSql); },
        [&](const Change& change) { return write(change, &ClassStatements::insert, &InsertSql); });
    return result;
}

int ModelFile::WriteState(SqliteStatement& statement, const ImageList& images, const RecordState& state) {
    if (!statement.IsPrepared()) return SQLITE_ERROR;
    sqlite3_bind_int64(statement.Get(), 1, state.key);
    StatementWriter writer(statement.Get());
    images.WriteRow(state.image, writer);
    return writer.Result() == SQLITE_OK ? statement.Run() : writer.Result();
}

int ModelFile::DeleteKey(std::uint16_t classIndex, std::uint32_t key) {
    SqliteStatement& statement = statements_[classIndex].remove;
    if (!statement.IsPrepared()) Prepared(statement, DeleteSql(database_.StoreAt(classIndex)));
    if (!statement.IsPrepared()) return SQLITE_ERROR;
    sqlite3_bind_int64(statement.Get(), 1, key);
    return statement.Run();
}

Outcome ModelFile::Commit() {
    if (!lost_.empty()) return Outcome::Refused(lost_);
    if (!commit_.IsPrepared()) Prepared(commit_, "COMMIT");
    const int result = commit_.IsPrepared() ? commit_.Run() : SQLITE_ERROR;
    return result == SQLITE_OK ? Outcome::Done() : Failure(result);
}

void ModelFile::Rollback() {
    if (db_.InTransaction()) db_.Execute("ROLLBACK");
}

}  // namespace zt
