#include <cstdint>
#include <fstream>

#include "import_check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    zt::EmptyFuzzFolder();
    const auto file = zt::FuzzFolder() / "book.xlsx";
    std::ofstream(file, std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    zt::CheckImport(file);
    return 0;
}
