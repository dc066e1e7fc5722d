#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zt {

/// How a model file is opened.
enum class OpenMode {
    Normal,    ///< to work on; refused when anything is wrong with the file
    ReadOnly,  ///< to look at: takes what can be read and never writes
};

/// How surely a committed transaction survives a loss of power. Either way it survives the end of the program.
enum class FileSafety {
    Normal,  ///< the last transactions may be lost with the power, never the file
    Full,    ///< every transaction is on the disk before the call returns
};

/// What came of opening a file.
struct OpenReport {
    /// Why the file was not opened, or was opened read-only; empty when all is well.
    std::string message;
    /// The file was not opened, but OpenMode::ReadOnly will show what can be read.
    bool canOpenReadOnly = false;
    /// Version of the file's format, where it could be read.
    std::int64_t formatVersion = 0;
    /// What was left out of a damaged file, a line each.
    std::vector<std::string> losses;
};

}  // namespace zt
