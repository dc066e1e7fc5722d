#pragma once

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace zt {

/// Ends the program with a message when something does not hold that must hold for every input.
inline void Require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

/// A folder of this process, in memory where that is possible.
inline std::filesystem::path FuzzFolder() {
    // Never destroyed, for it is needed at the very end.
    static const auto& folder = *new std::filesystem::path([] {
        namespace fs = std::filesystem;
        const char* wanted = std::getenv("TMPDIR");
        const fs::path parent = wanted                   ? fs::path(wanted)
                                : fs::exists("/dev/shm") ? "/dev/shm"
                                                         : fs::temp_directory_path();
        const fs::path made = parent / ("zt_fuzz_" + std::to_string(getpid()));
        fs::create_directories(made);
        std::atexit([] {
            std::error_code error;
            fs::remove_all(FuzzFolder(), error);
        });
        return made;
    }());
    return folder;
}

inline void EmptyFuzzFolder() {
    for (const auto& entry : std::filesystem::directory_iterator(FuzzFolder())) std::filesystem::remove_all(entry);
}

}  // namespace zt
