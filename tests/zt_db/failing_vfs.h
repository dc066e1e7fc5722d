#pragma once

#include <sqlite3.h>

#include <algorithm>
#include <limits>
#include <new>

namespace zt {

/// A fault of the disk.
struct DiskFault {
    int atOperation = std::numeric_limits<int>::max();  ///< counted from 1 over writes, syncs and truncations
    int result = SQLITE_IOERR_WRITE;
    bool stays = false;  ///< every later operation fails as well
};

/// While an object of this class lives, SQLite works on a disk that can be made to fail.
class FailingVfs {
public:
    FailingVfs() : base_(sqlite3_vfs_find(nullptr)), vfs_(*base_) {
        current_ = this;
        vfs_.zName = "failing";
        vfs_.szOsFile = static_cast<int>(sizeof(File)) + base_->szOsFile;
        vfs_.xOpen = &Open;
        sqlite3_vfs_register(&vfs_, 1);
    }
    ~FailingVfs() {
        sqlite3_vfs_unregister(&vfs_);
        sqlite3_vfs_register(base_, 1);
        current_ = nullptr;
    }
    FailingVfs(const FailingVfs&) = delete;
    FailingVfs& operator=(const FailingVfs&) = delete;

    /// Starts to count operations anew, and fails as asked.
    void Arm(const DiskFault& fault) {
        fault_ = fault;
        operations_ = 0;
    }
    void Disarm() { fault_ = {}; }
    /// Number of operations since Arm.
    int Operations() const { return operations_; }

private:
    struct File {
        sqlite3_file head;

        sqlite3_file* Base() { return reinterpret_cast<sqlite3_file*>(this + 1); }
    };
    static sqlite3_file* BaseOf(sqlite3_file* file) { return reinterpret_cast<File*>(file)->Base(); }

    /// The result of the next operation: SQLITE_OK when it may go on.
    static int Next() {
        const int number = ++current_->operations_;
        const DiskFault& fault = current_->fault_;
        const bool fails = fault.stays ? number >= fault.atOperation : number == fault.atOperation;
        return fails ? fault.result : SQLITE_OK;
    }

    static int Open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
        auto* own = new (file) File{};
        const int result = current_->base_->xOpen(current_->base_, name, own->Base(), flags, outFlags);
        own->head.pMethods = own->Base()->pMethods ? &Methods() : nullptr;
        return result;
    }
    static int Close(sqlite3_file* file) { return BaseOf(file)->pMethods->xClose(BaseOf(file)); }
    static int Read(sqlite3_file* file, void* bytes, int count, sqlite3_int64 place) {
        return BaseOf(file)->pMethods->xRead(BaseOf(file), bytes, count, place);
    }
    /// A write that fails has written a part.
    static int Write(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 place) {
        const int fault = Next();
        const int written = BaseOf(file)->pMethods->xWrite(BaseOf(file), bytes, fault ? count / 2 : count, place);
        return fault ? fault : written;
    }
    static int Truncate(sqlite3_file* file, sqlite3_int64 size) {
        const int fault = Next();
        return fault ? fault : BaseOf(file)->pMethods->xTruncate(BaseOf(file), size);
    }
    static int Sync(sqlite3_file* file, int flags) {
        const int fault = Next();
        return fault ? fault : BaseOf(file)->pMethods->xSync(BaseOf(file), flags);
    }
    static int FileSize(sqlite3_file* file, sqlite3_int64* size) {
        return BaseOf(file)->pMethods->xFileSize(BaseOf(file), size);
    }
    static int Lock(sqlite3_file* file, int kind) { return BaseOf(file)->pMethods->xLock(BaseOf(file), kind); }
    static int Unlock(sqlite3_file* file, int kind) { return BaseOf(file)->pMethods->xUnlock(BaseOf(file), kind); }
    static int CheckReservedLock(sqlite3_file* file, int* held) {
        return BaseOf(file)->pMethods->xCheckReservedLock(BaseOf(file), held);
    }
    static int FileControl(sqlite3_file* file, int what, void* data) {
        return BaseOf(file)->pMethods->xFileControl(BaseOf(file), what, data);
    }
    static int SectorSize(sqlite3_file* file) { return BaseOf(file)->pMethods->xSectorSize(BaseOf(file)); }
    static int Characteristics(sqlite3_file* file) {
        return BaseOf(file)->pMethods->xDeviceCharacteristics(BaseOf(file));
    }

    /// Without the index file that readers share: model files are locked by one program.
    static const sqlite3_io_methods& Methods() {
        static const sqlite3_io_methods methods = [] {
            sqlite3_io_methods made{};
            made.iVersion = 1;
            made.xClose = &Close;
            made.xRead = &Read;
            made.xWrite = &Write;
            made.xTruncate = &Truncate;
            made.xSync = &Sync;
            made.xFileSize = &FileSize;
            made.xLock = &Lock;
            made.xUnlock = &Unlock;
            made.xCheckReservedLock = &CheckReservedLock;
            made.xFileControl = &FileControl;
            made.xSectorSize = &SectorSize;
            made.xDeviceCharacteristics = &Characteristics;
            return made;
        }();
        return methods;
    }

    static inline FailingVfs* current_ = nullptr;
    sqlite3_vfs* base_;
    sqlite3_vfs vfs_;
    DiskFault fault_;
    int operations_ = 0;
};

}  // namespace zt
