#include "zt_db/file/file_message.h"

#include <filesystem>

#include "velda_lib/msg_dll.h"

namespace zt {
namespace {

constexpr int kPrimaryCodeMask = 0xff;

const char* MessageKey(int sqliteResult) {
    switch (sqliteResult & kPrimaryCodeMask) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED: return "IDS_DB_FILE_LOCKED";
        case SQLITE_NOTADB: return "IDS_DB_FILE_NOT_A_MODEL";
        case SQLITE_CORRUPT: return "IDS_DB_FILE_DAMAGED";
        case SQLITE_FULL: return "IDS_DB_FILE_FULL";
        case SQLITE_READONLY: return "IDS_DB_FILE_READ_ONLY";
        case SQLITE_CANTOPEN:
        case SQLITE_PERM: return "IDS_DB_FILE_CANNOT_OPEN";
        default: return "IDS_DB_FILE_FAILED";
    }
}

std::uint32_t BigEndian(const unsigned char* bytes, int count) {
    std::uint32_t value = 0;
    for (int i = 0; i < count; ++i) value = (value << 8) | bytes[i];
    return value;
}

}  // namespace

// The header is read through SQLite's own file handle: closing a second handle of the same file would drop the locks
// that the process holds on it.
bool IsCutOff(const SqliteHandle& db, const std::string& path) {
    constexpr int kHeaderSize = 100;
    sqlite3_file* file = nullptr;
    if (!db.Get() || sqlite3_file_control(db.Get(), "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK)
        return false;
    unsigned char header[kHeaderSize];
    if (!file || !file->pMethods || file->pMethods->xRead(file, header, kHeaderSize, 0) != SQLITE_OK) return false;
    const std::uint32_t storedSize = BigEndian(header + 16, 2);
    const std::uint64_t pageSize = storedSize == 1 ? 65536 : storedSize;
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    return !error && size < pageSize * BigEndian(header + 28, 4);
}

std::string FileMessage(int sqliteResult, const SqliteHandle& db, const std::string& path) {
    const bool damaged = (sqliteResult & kPrimaryCodeMask) == SQLITE_CORRUPT;
    if (damaged && IsCutOff(db, path)) return velda::FormatText("IDS_DB_FILE_CUT_OFF", {path});
    return velda::FormatText(MessageKey(sqliteResult), {path, db.Message()});
}

}  // namespace zt
