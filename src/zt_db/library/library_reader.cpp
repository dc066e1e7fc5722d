#include "zt_db/library/library_reader.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"

namespace zt {

namespace {
constexpr std::string_view kFormat = "zt-library";
}

bool LibraryReader::Fail(std::size_t column, std::string reason) {
    fault_ = LibraryFault{std::move(reason), lines_.LineNumber(), column};
    return false;
}

std::string LibraryReader::ReadKind() {
    std::int64_t version = 0;
    if (lines_.Next(values_) != CsvLines::Result::Line || values_.size() < 3 || values_[0] != kFormat ||
        !velda::ReadWholeLong(values_[2], version) || version < 1) {
        Fail(1, velda::FormatText("IDS_DB_LIBRARY_NO_LIBRARY", {}));
        return {};
    }
    if (version > kLibraryVersion) {
        Fail(3, velda::FormatText("IDS_DB_LIBRARY_NEWER",
                                  {velda::FormatLong(version), velda::FormatLong(kLibraryVersion)}));
        return {};
    }
    return std::string(values_[1]);
}

bool LibraryReader::ReadTitles(const std::vector<std::string_view>& wanted) {
    if (!ReadLine()) return fault_ ? false : Fail(1, velda::FormatText("IDS_DB_LIBRARY_NO_TITLES", {}));
    for (const std::string_view title : wanted) {
        const auto at = std::find(values_.begin(), values_.end(), title);
        if (at == values_.end()) return Fail(1, velda::FormatText("IDS_DB_LIBRARY_NO_COLUMN", {title}));
        places_.push_back(static_cast<std::size_t>(at - values_.begin()));
    }
    width_ = values_.size();
    return true;
}

bool LibraryReader::ReadLine() {
    switch (lines_.Next(values_)) {
        case CsvLines::Result::End: return false;
        case CsvLines::Result::OpenQuote: return Fail(values_.size(), velda::FormatText("IDS_DB_LIBRARY_QUOTE", {}));
        case CsvLines::Result::Line: break;
    }
    if (width_ == 0 || values_.size() == width_) return true;
    return Fail(std::min(values_.size(), width_) + 1,
                velda::FormatText("IDS_DB_LIBRARY_WIDTH", {velda::FormatLong(static_cast<std::int64_t>(values_.size())),
                                                           velda::FormatLong(static_cast<std::int64_t>(width_))}));
}

bool LibraryReader::ReadValue(std::size_t wanted, ValueRule rule, std::string& value) {
    const std::size_t place = places_[wanted];
    value = values_[place];
    if (rule == ValueRule::Name && velda::TrimBlanks(value).empty()) {
        return Fail(place + 1, velda::FormatText("IDS_DB_LIBRARY_NO_NAME", {}));
    }
    return true;
}

bool LibraryReader::ReadValue(std::size_t wanted, ValueRule rule, double& value) {
    const std::size_t place = places_[wanted];
    const std::string_view text = values_[place];
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    const bool good = text.empty() || (error == std::errc() && stop == end && std::isfinite(value) && value >= 0.0);
    if (!good) return Fail(place + 1, velda::FormatText("IDS_DB_LIBRARY_NUMBER", {text}));
    if (rule == ValueRule::Positive && !(value > 0.0)) {
        return Fail(place + 1, velda::FormatText("IDS_DB_LIBRARY_POSITIVE", {text}));
    }
    return true;
}

}  // namespace zt
