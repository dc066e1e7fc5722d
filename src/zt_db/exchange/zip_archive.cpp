#include "zt_db/exchange/zip_archive.h"

#include <zip.h>

#include <memory>
#include <vector>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"

namespace zt {
namespace {

using velda::FormatText;
using velda::Outcome;

constexpr std::size_t kBlock = std::size_t{1} << 16;

std::string ErrorText(int code) {
    zip_error_t error;
    zip_error_init_with_code(&error, code);
    std::string text = zip_error_strerror(&error);
    zip_error_fini(&error);
    return text;
}

Outcome TooLarge(std::string_view key, std::uint64_t limit) {
    return Outcome::Refused(FormatText(key, {velda::FormatLong(static_cast<std::int64_t>(limit))}));
}

Outcome Damaged(const std::string& part, std::string_view reason) {
    return Outcome::Refused(FormatText("IDS_XCH_ZIP_PART_DAMAGED", {part, reason}));
}

}  // namespace

ZipArchive::~ZipArchive() {
    if (zip_) zip_discard(zip_);
}

Outcome ZipArchive::Open(const std::filesystem::path& path) {
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    if (error) return Outcome::Refused(error.message());
    if (size > limits_.fileBytes) return TooLarge("IDS_XCH_FILE_TOO_LARGE", limits_.fileBytes);
    int code = 0;
    zip_ = zip_open(path.c_str(), ZIP_RDONLY, &code);
    return zip_ ? Outcome::Done() : Outcome::Refused(FormatText("IDS_XCH_NO_ZIP", {ErrorText(code)}));
}

bool ZipArchive::Has(const std::string& part) const { return zip_name_locate(zip_, part.c_str(), ZIP_FL_NOCASE) >= 0; }

Outcome ZipArchive::CheckSize(std::uint64_t unpacked, std::uint64_t packed) const {
    if (unpacked_ > limits_.unpackedBytes) return TooLarge("IDS_XCH_UNPACKED_TOO_LARGE", limits_.unpackedBytes);
    if (unpacked > limits_.freeBytes && unpacked / limits_.unpackedRatio > packed) {
        return TooLarge("IDS_XCH_UNPACKED_RATIO", limits_.unpackedRatio);
    }
    return Outcome::Done();
}

Outcome ZipArchive::Read(const std::string& part, velda::FunctionRef<bool(const char*, std::size_t)> visit) {
    zip_stat_t stat;
    if (zip_stat(zip_, part.c_str(), ZIP_FL_NOCASE, &stat) != 0) return Damaged(part, zip_strerror(zip_));
    const std::unique_ptr<zip_file_t, int (*)(zip_file_t*)> file(zip_fopen_index(zip_, stat.index, 0), zip_fclose);
    if (!file) return Damaged(part, zip_strerror(zip_));
    // The sizes that the archive tells may be wrong, so that the bytes themselves are counted.
    std::vector<char> block(kBlock);
    std::uint64_t bytes = 0;
    for (;;) {
        const zip_int64_t count = zip_fread(file.get(), block.data(), block.size());
        if (count < 0) return Damaged(part, zip_file_strerror(file.get()));
        if (count == 0) return Outcome::Done();
        bytes += static_cast<std::uint64_t>(count);
        unpacked_ += static_cast<std::uint64_t>(count);
        Outcome size = CheckSize(bytes, stat.comp_size);
        if (!size) return size;
        if (!visit(block.data(), static_cast<std::size_t>(count))) return Outcome::Done();
    }
}

}  // namespace zt
