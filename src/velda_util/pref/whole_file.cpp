#include "velda_util/pref/whole_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <thread>

#include <sys/file.h>
#include <sys/stat.h>

namespace velda {
namespace {

namespace fs = std::filesystem;

std::error_code LastError() { return {errno, std::generic_category()}; }

/// Closes a file that is only read, or whose loss has been told already.
class OpenFile {
public:
    explicit OpenFile(int file) : file_(file) {}
    ~OpenFile() {
        if (file_ >= 0) close(file_);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    int Get() const { return file_; }

private:
    int file_;
};

std::error_code WriteAndSync(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) return LastError();
        if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return fsync(file) == 0 ? std::error_code() : LastError();
}

void SyncFolder(const fs::path& folder) {
    const OpenFile file(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (file.Get() >= 0) fsync(file.Get());
}

}  // namespace

std::error_code ReadWholeFile(const fs::path& path, std::size_t maxBytes, std::string& bytes) {
    // Without O_NONBLOCK the call would wait for the other end of a pipe.
    const OpenFile file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (file.Get() < 0) return LastError();
    struct stat status {};
    if (fstat(file.Get(), &status) != 0) return LastError();
    if (S_ISDIR(status.st_mode)) return std::make_error_code(std::errc::is_a_directory);
    if (!S_ISREG(status.st_mode)) return std::make_error_code(std::errc::invalid_argument);

    bytes.clear();
    char block[16 * 1024];
    while (bytes.size() < maxBytes) {
        const ssize_t count = read(file.Get(), block, std::min(sizeof block, maxBytes - bytes.size()));
        if (count < 0 && errno != EINTR) return LastError();
        if (count == 0) break;
        if (count > 0) bytes.append(block, static_cast<std::size_t>(count));
    }
    return {};
}

std::error_code ReplaceWholeFile(const fs::path& path, std::string_view bytes) {
    std::error_code error;
    const fs::path target = fs::weakly_canonical(path, error);
    if (error) return error;
    std::string part = target.string() + ".XXXXXX";
    {
        const OpenFile file(mkostemp(part.data(), O_CLOEXEC));
        if (file.Get() < 0) return LastError();
        error = WriteAndSync(file.Get(), bytes);
    }
    if (!error) fs::rename(part, target, error);
    if (error) {
        unlink(part.c_str());
    } else {
        SyncFolder(target.parent_path());
    }
    return error;
}

FolderLock::FolderLock(const fs::path& folder) : folder_(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    using namespace std::chrono_literals;
    constexpr int kTries = 200;
    for (int i = 0; folder_ >= 0 && i < kTries && flock(folder_, LOCK_EX | LOCK_NB) != 0; ++i) {
        std::this_thread::sleep_for(10ms);
    }
}

FolderLock::~FolderLock() {
    if (folder_ >= 0) close(folder_);
}

}  // namespace velda
