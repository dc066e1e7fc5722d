#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "velda_lib/function_ref.h"
#include "velda_lib/outcome.h"
#include "zt_db/exchange/sheet_source.h"

struct zip;

namespace zt {

/// A zip file whose parts are unpacked block by block, up to the limits.
class ZipArchive {
public:
    explicit ZipArchive(const SheetLimits& limits) : limits_(limits) {}
    ~ZipArchive();
    ZipArchive(const ZipArchive&) = delete;
    ZipArchive& operator=(const ZipArchive&) = delete;

    velda::Outcome Open(const std::filesystem::path& path);
    bool Has(const std::string& part) const;
    /// Hands over the bytes of a part; a visitor that returns false ends it, and that is no refusal.
    velda::Outcome Read(const std::string& part, velda::FunctionRef<bool(const char*, std::size_t)> visit);

private:
    velda::Outcome CheckSize(std::uint64_t unpacked, std::uint64_t packed) const;

    const SheetLimits& limits_;
    zip* zip_ = nullptr;
    std::uint64_t unpacked_ = 0;  ///< of all parts read so far
};

}  // namespace zt
