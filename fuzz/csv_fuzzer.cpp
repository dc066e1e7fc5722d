#include <algorithm>
#include <cstdint>
#include <fstream>
#include <string_view>

#include "import_check.h"

/// An input is the tables of a folder, each behind a line of "=" and its name.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    zt::EmptyFuzzFolder();
    std::string_view text(reinterpret_cast<const char*>(data), size);
    while (text.starts_with('=')) {
        const std::size_t line = std::min(text.find('\n'), text.size());
        const std::string_view name = text.substr(1, line - 1);
        text.remove_prefix(std::min(line + 1, text.size()));
        const std::size_t end = std::min(text.find("\n="), text.size());
        const bool good = !name.empty() && name.size() < 40 &&
                          name.find_first_not_of("abcdefghijklmnopqrstuvwxyz_") == std::string_view::npos;
        if (good)
            std::ofstream(zt::FuzzFolder() / (std::string(name) + ".csv"), std::ios::binary) << text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    zt::CheckImport(zt::FuzzFolder());
    return 0;
}
