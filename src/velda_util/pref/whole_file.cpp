#include "velda_util/pref/whole_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <string>
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

std::error_code WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) return LastError();
        if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return {};
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

PartFile::PartFile(const fs::path& target, std::error_code& error) : target_(fs::weakly_canonical(target, error)) {
    constexpr int kTries = 1000;
    if (!error && fs::is_directory(target_)) error = std::make_error_code(std::errc::is_a_directory);
    for (int number = 0; !error && part_.empty(); ++number) {
        const std::string part = target_.string() + ".part" + std::to_string(getpid()) + "_" + std::to_string(number);
        const OpenFile file(open(part.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
        if (file.Get() >= 0) {
            part_ = part;
        } else if (errno != EEXIST || number == kTries) {
            error = LastError();
        }
    }
}

PartFile::~PartFile() {
    if (!part_.empty()) unlink(part_.c_str());
}

std::error_code PartFile::Commit() {
    {
        const OpenFile file(open(part_.c_str(), O_RDONLY | O_CLOEXEC));
        if (file.Get() < 0 || fsync(file.Get()) != 0) return LastError();
    }
    std::error_code error;
    fs::rename(part_, target_, error);
    if (error) return error;
    part_.clear();
    SyncFolder(target_.parent_path());
    return error;
}

std::error_code ReplaceWholeFile(const fs::path& path, std::string_view bytes) {
    std::error_code error;
    PartFile part(path, error);
    if (error) return error;
    {
        const OpenFile file(open(part.Path().c_str(), O_WRONLY | O_CLOEXEC));
        if (file.Get() < 0) return LastError();
        error = WriteAll(file.Get(), bytes);
    }
    return error ? error : part.Commit();
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
