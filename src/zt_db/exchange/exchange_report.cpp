#include "zt_db/exchange/exchange_report.h"

#include <algorithm>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"

namespace zt {
namespace {

using velda::FormatText;

std::string CountText(std::uint64_t count) { return velda::FormatLong(static_cast<std::int64_t>(count)); }

std::string_view LevelKey(FindingLevel level) {
    switch (level) {
        case FindingLevel::Note: return "IDS_XCH_LEVEL_NOTE";
        case FindingLevel::Converted: return "IDS_XCH_LEVEL_CONVERTED";
        case FindingLevel::LeftOut: return "IDS_XCH_LEVEL_LEFT_OUT";
        case FindingLevel::Warning: return "IDS_XCH_LEVEL_WARNING";
        case FindingLevel::Error: break;
    }
    return "IDS_XCH_LEVEL_ERROR";
}

/// "Sheet, row 3, column Name: ", as far as the place is known.
std::string PlaceText(const ExchangePlace& place) {
    if (place.sheet.empty()) return {};
    std::string text = place.sheet;
    if (place.row > 0) text += FormatText("IDS_XCH_PLACE_ROW", {CountText(place.row)});
    if (!place.column.empty()) text += FormatText("IDS_XCH_PLACE_COLUMN", {place.column});
    return text + ": ";
}

}  // namespace

std::string ExchangeFinding::Text() const {
    const auto value = [&](std::size_t i) { return i < values.size() ? std::string_view(values[i]) : ""; };
    return FormatText(key, {value(0), value(1), value(2)});
}

void ExchangeReport::Add(FindingLevel level, ExchangePlace place, std::string_view key,
                         std::vector<std::string> values) {
    ++counts_[level];
    Kind kind{level, place.sheet, place.column, std::string(key)};
    if (kinds_.size() >= kMostKinds && !kinds_.contains(kind)) return;
    if (++kinds_[std::move(kind)] > kMostOfOneKind) return;
    findings_.push_back({level, std::move(place), std::string(key), std::move(values)});
}

SheetCount& ExchangeReport::CountOf(const std::string& sheet) {
    const auto at =
        std::find_if(sheets_.begin(), sheets_.end(), [&](const auto& count) { return count.sheet == sheet; });
    return at != sheets_.end() ? *at : sheets_.emplace_back(SheetCount{sheet});
}

void ExchangeReport::CountRead(const std::string& sheet, std::uint64_t rows) { CountOf(sheet).read += rows; }

void ExchangeReport::CountKept(const std::string& sheet, std::uint64_t rows) { CountOf(sheet).kept += rows; }

std::uint64_t ExchangeReport::Count(FindingLevel level) const {
    const auto at = counts_.find(level);
    return at == counts_.end() ? 0 : at->second;
}

std::string ExchangeReport::LevelText(FindingLevel level) const {
    const std::string word = FormatText(LevelKey(level), {}) + ": ";
    std::string text;
    for (const ExchangeFinding& finding : findings_) {
        if (finding.level == level) text += word + PlaceText(finding.place) + finding.Text() + '\n';
    }
    for (const auto& [kind, count] : kinds_) {
        const auto& [kindLevel, sheet, column, key] = kind;
        if (kindLevel != level || count <= kMostOfOneKind) continue;
        text += word + PlaceText({sheet, 0, column}) +
                FormatText("IDS_XCH_MORE_OF_KIND", {CountText(count - kMostOfOneKind)}) + '\n';
    }
    return text;
}

std::string ExchangeReport::Text() const {
    std::string text;
    for (const FindingLevel level : {FindingLevel::Error, FindingLevel::Warning, FindingLevel::LeftOut,
                                     FindingLevel::Converted, FindingLevel::Note}) {
        text += LevelText(level);
    }
    for (const SheetCount& count : sheets_) {
        text += FormatText("IDS_XCH_SHEET_COUNT", {count.sheet, CountText(count.read), CountText(count.kept)}) + '\n';
    }
    return text;
}

}  // namespace zt
