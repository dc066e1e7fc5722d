#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace velda {

/// Reads a regular file, `maxBytes` of it at most.
std::error_code ReadWholeFile(const std::filesystem::path& path, std::size_t maxBytes, std::string& bytes);

/// A new file beside the one whose place it takes when it is complete, so that this one appears whole or not at all. A
/// link stays, and what it points to is replaced. Without Commit the new file goes and the old one stays.
class PartFile {
public:
    /// Makes an empty file; `error` says why there is none.
    PartFile(const std::filesystem::path& target, std::error_code& error);
    ~PartFile();
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;

    /// Where to write; the file is to be closed before Commit.
    const std::filesystem::path& Path() const { return part_; }
    /// Brings the file to the disk and to its place.
    std::error_code Commit();

private:
    std::filesystem::path target_;
    std::filesystem::path part_;  ///< empty when there is none
};

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
