#include "zt_db/file/model_loader.h"

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <limits>
#include <unordered_set>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "zt_db/core/plan.h"
#include "zt_db/file/file_message.h"
#include "zt_db/file/model_file.h"
#include "zt_db/file/model_schema.h"

namespace zt {
namespace {

using velda::FormatText;
namespace fs = std::filesystem;

/// Reads the columns of the current row of a statement, from the second on. The connection is used by one thread, so
/// that values can be read without being locked one by one.
class StatementReader final : public RowReader {
public:
    explicit StatementReader(sqlite3_stmt* statement) : statement_(statement) {}

    bool Integer(int column, std::int64_t& value) override {
        sqlite3_value* stored = sqlite3_column_value(statement_, column + 1);
        if (sqlite3_value_type(stored) != SQLITE_INTEGER) return false;
        value = sqlite3_value_int64(stored);
        return true;
    }
    bool Real(int column, double& value) override {
        sqlite3_value* stored = sqlite3_column_value(statement_, column + 1);
        if (sqlite3_value_type(stored) != SQLITE_FLOAT) return false;
        value = sqlite3_value_double(stored);
        return true;
    }
    // The bytes of a text are taken as they stand; asking for them as a text would copy them to end them with a zero.
    bool Text(int column, std::string_view& value) override {
        sqlite3_value* stored = sqlite3_column_value(statement_, column + 1);
        if (sqlite3_value_type(stored) != SQLITE_TEXT) return false;
        const auto* bytes = static_cast<const char*>(sqlite3_value_blob(stored));
        value = {bytes ? bytes : "", static_cast<std::size_t>(sqlite3_value_bytes(stored))};
        return true;
    }

private:
    sqlite3_stmt* statement_;
};

/// What is found wrong while a file is read. When loading to work the first fault ends the load; when only reading,
/// each becomes a line of the report.
class Faults {
public:
    Faults(OpenReport& report, bool collect) : report_(report), collect_(collect) {}

    /// Notes a fault; whether reading may go on.
    bool Note(std::string message) {
        if (collect_) {
            report_.losses.push_back(std::move(message));
        } else if (!stopped_) {
            report_.message = std::move(message);
            report_.canOpenReadOnly = true;
            stopped_ = true;
        }
        return collect_;
    }
    bool Collects() const { return collect_; }
    bool Stopped() const { return stopped_; }

private:
    OpenReport& report_;
    bool collect_;
    bool stopped_ = false;
};

std::string LabelOf(const RecordStoreBase& store, std::int64_t key) {
    return std::string(store.Identity().mnemonic) + " " + std::to_string(key);
}

/// Reads one table.
class TableReader {
public:
    TableReader(SqliteHandle& db, const std::string& path, RecordStoreBase& store, bool mayLackColumns, Faults& faults)
        : db_(db), path_(path), store_(store), mayLack_(mayLackColumns), faults_(faults) {}

    void Read() {
        std::unordered_set<std::string> present;
        if (!FindColumns(present)) return;
        const std::string columns = ColumnList(present);
        if (faults_.Stopped()) return;
        const int result = ReadRows(columns, " ORDER BY \"key\"");
        // What lies behind a damaged page can still be reached from the other end.
        if (result != SQLITE_DONE && faults_.Note(FileMessage(result, db_, path_) + " (" + Mnemonic() + ")")) {
            backward_ = true;
            ReadRows(columns, " ORDER BY \"key\" DESC");
        }
        store_.FinishLoading();
    }

private:
    std::string Mnemonic() const { return std::string(store_.Identity().mnemonic); }

    bool FindColumns(std::unordered_set<std::string>& present) {
        SqliteStatement info;
        int result =
            info.Prepare(db_, "SELECT name FROM pragma_table_info(" + SqlText(Mnemonic()) +
                                  ") WHERE EXISTS (SELECT 1 FROM sqlite_schema WHERE type = 'table' AND name = " +
                                  SqlText(Mnemonic()) + ")");
        while (result == SQLITE_OK || result == SQLITE_ROW) {
            result = info.Step();
            const auto* name = result == SQLITE_ROW ? sqlite3_column_text(info.Get(), 0) : nullptr;
            if (name) present.insert(reinterpret_cast<const char*>(name));
        }
        if (result != SQLITE_DONE) return faults_.Note(FileMessage(result, db_, path_)) && false;
        if (present.contains("key")) return true;
        if (!mayLack_) faults_.Note(FormatText("IDS_DB_FILE_NO_TABLE", {path_, Mnemonic()}));
        return false;
    }

    std::string ColumnList(const std::unordered_set<std::string>& present) {
        std::string list = "\"key\"";
        int column = 0;
        for (const std::string& name : store_.ColumnNames()) {
            const bool has = present.contains(name);
            if (!has && !mayLack_) faults_.Note(FormatText("IDS_DB_FILE_NO_COLUMN", {path_, Mnemonic(), name}));
            list += ", " + (has ? SqlName(name) : DefaultLiteral(store_, column));
            ++column;
        }
        return list;
    }

    /// SQLITE_DONE when all rows were met, else the failure that ended the reading.
    int ReadRows(const std::string& columns, const std::string& order) {
        SqliteStatement select;
        int result = select.Prepare(db_, "SELECT " + columns + " FROM " + SqlName(Mnemonic()) + order);
        if (result != SQLITE_OK) return result;
        StatementReader reader(select.Get());
        while ((result = select.Step()) == SQLITE_ROW) {
            if (!ReadRow(sqlite3_column_int64(select.Get(), 0), reader)) return SQLITE_DONE;
        }
        return result;
    }

    bool ReadRow(std::int64_t key, StatementReader& reader) {
        const bool valid = key > 0 && key <= std::int64_t{std::numeric_limits<std::uint32_t>::max()};
        if (!valid) return faults_.Note(FormatText("IDS_DB_FILE_BAD_KEY", {path_, Mnemonic(), std::to_string(key)}));
        const auto number = static_cast<std::uint32_t>(key);
        // Keys come in order; on the way back the first one that is known already ends it.
        if (number <= lastKey_) {
            if (backward_) return false;
            return faults_.Note(FormatText("IDS_DB_FILE_BAD_KEY", {path_, Mnemonic(), std::to_string(key)}));
        }
        if (!backward_) lastKey_ = number;
        const int bad = store_.LoadRow(number, reader);
        if (bad < 0) return true;
        return faults_.Note(FormatText("IDS_DB_FILE_BAD_VALUE", {path_, LabelOf(store_, key),
                                                                 store_.ColumnNames()[static_cast<std::size_t>(bad)]}));
    }

    SqliteHandle& db_;
    const std::string& path_;
    RecordStoreBase& store_;
    bool mayLack_;
    Faults& faults_;
    std::uint32_t lastKey_ = 0;
    bool backward_ = false;
};

/// Checks what a file says of other records, and, when only reading, takes out what does not hold.
class ContentCheck {
public:
    ContentCheck(CDataBase& database, const std::string& path, Faults& faults)
        : database_(database), path_(path), faults_(faults) {}

    void Run() {
        for (std::uint16_t i = 0; i < database_.ClassCount() && !faults_.Stopped(); ++i) CheckNumbers(i);
        while (!faults_.Stopped() && CheckReferencesOnce()) {
        }
        for (std::uint16_t i = 0; i < database_.ClassCount() && !faults_.Stopped(); ++i) CheckContained(i);
    }

private:
    void CheckNumbers(std::uint16_t classIndex) {
        RecordStoreBase& store = database_.StoreAt(classIndex);
        for (const std::uint32_t key : store.KeysWithTakenNumber()) {
            const std::string label = LabelOf(store, key);
            if (!faults_.Note(FormatText("IDS_DB_FILE_NUMBER_TWICE", {path_, label}))) return;
            store.Remove(key);
        }
    }

    /// One pass over all references; true when records were taken out, so that others may dangle now.
    bool CheckReferencesOnce() {
        bool removed = false;
        for (std::uint16_t i = 0; i < database_.ClassCount() && !faults_.Stopped(); ++i) {
            RecordStoreBase& store = database_.StoreAt(i);
            std::vector<std::uint32_t> broken;
            std::vector<std::uint32_t> dangling;
            store.ForEachReference([&](std::uint32_t key, const RecordIdentity& target, std::uint32_t targetKey,
                                       IfGone ifGone) {
                if (Exists(target, targetKey)) return;
                std::vector<std::uint32_t>& list = ifGone == IfGone::Cascade ? broken : dangling;
                if (!list.empty() && list.back() == key) return;
                faults_.Note(FormatText(
                    "IDS_DB_FILE_REFERENCE",
                    {path_, LabelOf(store, key), std::string(target.mnemonic) + " " + velda::FormatLong(targetKey)}));
                list.push_back(key);
            });
            if (faults_.Stopped()) return false;
            for (const std::uint32_t key : dangling) ClearDangling(store, key);
            for (const std::uint32_t key : broken) store.Remove(key);
            removed = removed || !broken.empty();
        }
        return removed;
    }

    void ClearDangling(RecordStoreBase& store, std::uint32_t key) {
        const std::unique_ptr<ImageList> images = store.NewImages();
        const std::uint32_t image = store.CopyTo(key, *images);
        images->RewriteReferences(image, [&](const RecordIdentity& target, std::uint32_t targetKey) {
            return Exists(target, targetKey) ? targetKey : 0u;
        });
        store.Replace(key, *images, image);
    }

    void CheckContained(std::uint16_t classIndex) {
        RecordStoreBase& store = database_.StoreAt(classIndex);
        if (!store.MayReferTo(store.Identity())) return;
        for (const std::uint32_t key : store.SortedKeys()) {
            if (RingOf(store, key).empty()) continue;
            if (!faults_.Note(FormatText("IDS_DB_FILE_CONTAINS_ITSELF", {path_, LabelOf(store, key)}))) return;
            ClearOwnClass(store, key);
        }
    }

    void ClearOwnClass(RecordStoreBase& store, std::uint32_t key) {
        const std::unique_ptr<ImageList> images = store.NewImages();
        const std::uint32_t image = store.CopyTo(key, *images);
        images->RewriteReferences(image, [&](const RecordIdentity& target, std::uint32_t targetKey) {
            return &target == &store.Identity() ? 0u : targetKey;
        });
        store.Replace(key, *images, image);
    }

    bool Exists(const RecordIdentity& target, std::uint32_t key) const {
        return database_.StoreAt(static_cast<std::uint16_t>(target.index)).Exists(key);
    }

    CDataBase& database_;
    const std::string& path_;
    Faults& faults_;
};

/// Whether something is left beside a file that a program did not close.
bool HasJournal(const std::string& path) {
    const auto holdsSomething = [&](const char* ending) {
        std::error_code error;
        const auto size = fs::file_size(path + ending, error);
        return !error && size > 0;
    };
    return holdsSomething("-wal") || holdsSomething("-journal");
}

/// A file that has lost its end may still read as a whole: SQLite takes the missing bytes of a page for zeros. What a
/// journal holds may lie beyond the end.
void CheckLength(const SqliteHandle& db, const std::string& path, Faults& faults) {
    if (!HasJournal(path) && IsCutOff(db, path)) faults.Note(FormatText("IDS_DB_FILE_CUT_OFF", {path}));
}

void LoadTables(SqliteHandle& db, const std::string& path, bool mayLackColumns, CDataBase& database, Faults& faults) {
    CheckLength(db, path, faults);
    for (std::uint16_t i = 0; i < database.ClassCount() && !faults.Stopped(); ++i) {
        TableReader(db, path, database.StoreAt(i), mayLackColumns, faults).Read();
    }
    if (!faults.Stopped()) ContentCheck(database, path, faults).Run();
}

bool Refuse(OpenReport& report, std::string message, bool canOpenReadOnly = false) {
    report.message = std::move(message);
    report.canOpenReadOnly = canOpenReadOnly;
    return false;
}

/// SQLite takes what is shorter than its header for a new file, and would write one.
constexpr std::uintmax_t kSmallestFile = 100;

bool CheckPlace(const std::string& path, OpenReport& report) {
    std::error_code error;
    if (!fs::exists(path, error)) return Refuse(report, FormatText("IDS_DB_FILE_NOT_FOUND", {path}));
    if (!fs::is_regular_file(path, error)) return Refuse(report, FormatText("IDS_DB_FILE_IS_FOLDER", {path}));
    if (fs::file_size(path, error) < kSmallestFile)
        return Refuse(report, FormatText("IDS_DB_FILE_NOT_A_MODEL", {path}));
    return true;
}

/// A strange schema must not run anything.
void Harden(SqliteHandle& db) {
    sqlite3_db_config(db.Get(), SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(db.Get(), SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    sqlite3_db_config(db.Get(), SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    db.Execute("PRAGMA cell_size_check = ON");
}

int QueryVersion(SqliteHandle& db, std::int64_t& applicationId, std::int64_t& version) {
    const int result = db.QueryNumber("PRAGMA application_id", applicationId);
    return result == SQLITE_OK ? db.QueryNumber("PRAGMA user_version", version) : result;
}

/// Whether the texts of a file are in our encoding; a file of another one was not written by us.
int QueryEncoding(SqliteHandle& db, bool& isOurs) {
    std::int64_t found = 0;
    const int result = db.QueryNumber("SELECT encoding = 'UTF-8' FROM pragma_encoding", found);
    isOurs = found != 0;
    return result;
}

bool FolderIsWritable(const std::string& path) {
    const fs::path folder = fs::absolute(path).parent_path();
    return faccessat(AT_FDCWD, folder.c_str(), W_OK, AT_EACCESS) == 0;
}

bool CheckVersion(std::int64_t applicationId, std::int64_t version, const std::string& path, OpenReport& report) {
    if (applicationId != kModelApplicationId) return Refuse(report, FormatText("IDS_DB_FILE_NOT_A_MODEL", {path}));
    if (version <= kModelSchemaVersion) return true;
    return Refuse(report,
                  FormatText("IDS_DB_FILE_NEWER", {path, std::to_string(version), std::to_string(kModelSchemaVersion)}),
                  true);
}

/// Leaves a journal as it is when the file is closed, instead of bringing it into the file.
void KeepJournal(SqliteHandle& db, bool keep) {
    sqlite3_db_config(db.Get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, keep ? 1 : 0, nullptr);
}

std::string UriOf(const std::string& path) {
    constexpr const char* kDigits = "0123456789ABCDEF";
    std::string uri = "file:";
    for (const char c : fs::absolute(path).string()) {
        if (c == '?' || c == '#' || c == '%') {
            uri += {'%', kDigits[(c >> 4) & 15], kDigits[c & 15]};
        } else {
            uri += c;
        }
    }
    return uri;
}

/// Opens a file without a journal as it stands, so that nothing is made beside it. `lock` keeps others from writing to
/// it meanwhile.
int OpenAsItStands(SqliteHandle& lock, SqliteHandle& db, const std::string& path) {
    int result = lock.Open(path, SQLITE_OPEN_READONLY);
    sqlite3_file* file = nullptr;
    if (result == SQLITE_OK) result = sqlite3_file_control(lock.Get(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
    if (result == SQLITE_OK) result = file->pMethods->xLock(file, SQLITE_LOCK_SHARED);
    if (result != SQLITE_OK) return result;
    return db.Open(UriOf(path) + "?immutable=1", SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
}

/// Opens a file with what its journal holds. A lock of its own spares the index file that readers share.
int OpenWithJournal(SqliteHandle& db, const std::string& path) {
    const int result = db.Open(path, SQLITE_OPEN_READWRITE);
    if (result != SQLITE_OK || sqlite3_db_readonly(db.Get(), "main") == 1) return result;
    KeepJournal(db, true);
    return db.Execute("PRAGMA locking_mode = EXCLUSIVE");
}

/// Opens a file that is only read.
int OpenToRead(SqliteHandle& lock, SqliteHandle& db, const std::string& path, std::int64_t& applicationId,
               std::int64_t& version) {
    const int result = HasJournal(path) ? OpenWithJournal(db, path) : OpenAsItStands(lock, db, path);
    if (result != SQLITE_OK) return result;
    Harden(db);
    db.Execute("PRAGMA writable_schema = ON");  // lets a file that was cut off be read as far as it goes
    return QueryVersion(db, applicationId, version);
}

/// Whether a damaged file is still known as a model, so that it can be offered for reading.
bool CanBeRead(const std::string& path) {
    SqliteHandle lock;
    SqliteHandle db;
    std::int64_t applicationId = 0;
    std::int64_t version = 0;
    OpenReport report;
    return OpenToRead(lock, db, path, applicationId, version) == SQLITE_OK &&
           (CheckVersion(applicationId, version, path, report) || report.canOpenReadOnly);
}

/// Whether the pages of a file that lie free are told rightly. They are not met when the records are read, but the next
/// transactions write to them. A file without free pages costs no look.
int CheckFreePages(SqliteHandle& db) {
    std::int64_t freePages = 0;
    std::int64_t faults = 0;
    int result = db.QueryNumber("PRAGMA freelist_count", freePages);
    if (result != SQLITE_OK || freePages == 0) return result;
    result = db.QueryNumber("SELECT count(*) FROM pragma_quick_check(1) WHERE quick_check <> 'ok'", faults);
    return result == SQLITE_OK && faults > 0 ? SQLITE_CORRUPT : result;
}

int AddWhatIsMissing(SqliteHandle& db, const RecordStoreBase& store) {
    const std::string mnemonic(store.Identity().mnemonic);
    int column = 0;
    for (const std::string& name : store.ColumnNames()) {
        std::int64_t columns = 0;
        std::int64_t present = 0;
        const std::string from = " FROM pragma_table_info(" + SqlText(mnemonic) + ")";
        int result = db.QueryNumber("SELECT count(*)" + from, columns);
        if (result == SQLITE_OK && columns == 0) return db.Execute(CreateTableSql(store));
        if (result == SQLITE_OK)
            result = db.QueryNumber("SELECT count(*)" + from + " WHERE name = " + SqlText(name), present);
        if (result == SQLITE_OK && present == 0) result = db.Execute(AddColumnSql(store, column));
        if (result != SQLITE_OK) return result;
        ++column;
    }
    return SQLITE_OK;
}

}  // namespace

SqliteHandle OpenToWork(const std::string& path, OpenReport& report) {
    SqliteHandle db;
    if (!CheckPlace(path, report)) return {};
    std::int64_t applicationId = 0;
    std::int64_t& version = report.formatVersion;
    int result = db.Open(path, SQLITE_OPEN_READWRITE);
    if (result == SQLITE_OK && sqlite3_db_readonly(db.Get(), "main") == 1) {
        Refuse(report, FormatText("IDS_DB_FILE_READ_ONLY", {path}), true);
        return {};
    }
    if (result == SQLITE_OK && !FolderIsWritable(path)) {
        Refuse(report, FormatText("IDS_DB_FILE_FOLDER_READ_ONLY", {path}), true);
        return {};
    }
    if (result == SQLITE_OK) {
        Harden(db);
        KeepJournal(db, HasJournal(path));
        result = db.Execute("PRAGMA locking_mode = EXCLUSIVE");
    }
    if (result == SQLITE_OK) result = QueryVersion(db, applicationId, version);
    if (result == SQLITE_OK && !CheckVersion(applicationId, version, path, report)) return {};
    bool encodingIsOurs = true;
    if (result == SQLITE_OK) result = QueryEncoding(db, encodingIsOurs);
    if (result == SQLITE_OK && !encodingIsOurs) {
        Refuse(report, FormatText("IDS_DB_FILE_NOT_A_MODEL", {path}));
        return {};
    }
    // Takes the lock. Even a transaction without content would put a wrong header right if it were committed.
    if (result == SQLITE_OK) result = db.Execute("BEGIN IMMEDIATE; ROLLBACK");
    if (result == SQLITE_OK) return db;
    const bool damaged = (result & 0xff) == SQLITE_CORRUPT;
    const std::string message = FileMessage(result, db, path);
    db.Close();
    Refuse(report, message, damaged && CanBeRead(path));
    return {};
}

bool LoadModel(SqliteHandle& db, const std::string& path, CDataBase& database, OpenReport& report) {
    Faults faults(report, false);
    LoadTables(db, path, report.formatVersion < kModelSchemaVersion, database, faults);
    const int result = faults.Stopped() ? SQLITE_OK : CheckFreePages(db);
    if (result != SQLITE_OK) faults.Note(FileMessage(result, db, path));
    return !faults.Stopped();
}

int FinishOpening(SqliteHandle& db, const CDataBase& database, const std::string& settings) {
    std::int64_t version = 0;
    KeepJournal(db, false);
    int result = db.QueryNumber("PRAGMA user_version", version);
    if (result == SQLITE_OK && version < kModelSchemaVersion) {
        result = db.Execute("BEGIN IMMEDIATE");
        for (std::uint16_t i = 0; result == SQLITE_OK && i < database.ClassCount(); ++i) {
            result = AddWhatIsMissing(db, database.StoreAt(i));
        }
        if (result == SQLITE_OK) {
            result = db.Execute("PRAGMA user_version = " + std::to_string(kModelSchemaVersion) + "; COMMIT");
        }
        if (result != SQLITE_OK && db.InTransaction()) db.Execute("ROLLBACK");
    }
    if (result == SQLITE_OK) result = db.Execute("PRAGMA journal_mode = WAL");
    return result == SQLITE_OK ? db.Execute(settings) : result;
}

bool ReadModelFile(const std::string& path, CDataBase& database, OpenReport& report) {
    if (!CheckPlace(path, report)) return false;
    SqliteHandle lock;
    SqliteHandle db;
    std::int64_t applicationId = 0;
    std::int64_t& version = report.formatVersion;
    const int result = OpenToRead(lock, db, path, applicationId, version);
    if (result != SQLITE_OK) return Refuse(report, FileMessage(result, db, path));
    if (!CheckVersion(applicationId, version, path, report) && !report.canOpenReadOnly) return false;
    report.canOpenReadOnly = false;
    Faults faults(report, true);
    LoadTables(db, path, version < kModelSchemaVersion, database, faults);
    return true;
}

}  // namespace zt
