#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace velda {

/// Reads a regular file, `maxBytes` of it at most.
std::error_code ReadWholeFile(const std::filesystem::path& path, std::size_t maxBytes, std::string& bytes);

/// Puts `bytes` in the place of a file, whole or not at all; a link stays, and what it points to is replaced.
std::error_code ReplaceWholeFile(const std::filesystem::path& path, std::string_view bytes);

/// Keeps other processes that ask for it from working in a folder, until it goes. It waits for another holder, but not
/// without end: a process that hangs must not hang all others.
class FolderLock {
public:
    explicit FolderLock(const std::filesystem::path& folder);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

private:
    int folder_;
};

}  // namespace velda
