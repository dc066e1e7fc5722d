#include "velda_util/pref/preference_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

namespace velda {
namespace {

constexpr std::string_view kTitle = "zt_tb tables ";
constexpr int kMajorVersion = 1;

constexpr std::string_view kColumn = "column";
constexpr std::string_view kOrder = "order";
constexpr std::string_view kHidden = "hidden";
constexpr std::string_view kLocked = "locked";
constexpr std::array kKnownKeys{kColumn, kOrder, kHidden, kLocked};

constexpr int kNoNumber = -1;  // no preference may be negative, so that this is dropped as out of range later

constexpr std::string_view kChecksumKey = "checksum ";
constexpr std::size_t kChecksumDigits = 16;
constexpr std::size_t kChecksumLineSize = kChecksumKey.size() + kChecksumDigits + 1;

constexpr char kHexDigits[] = "0123456789abcdef";

/// FNV-1a: every change of a single byte changes it.
std::uint64_t Checksum(std::string_view bytes) {
    std::uint64_t sum = 0xcbf29ce484222325u;
    for (const char c : bytes) sum = (sum ^ static_cast<unsigned char>(c)) * 0x100000001b3u;
    return sum;
}

std::string ChecksumLine(std::string_view lines) {
    std::string line(kChecksumKey);
    const std::uint64_t sum = Checksum(lines);
    for (int shift = 60; shift >= 0; shift -= 4) line += kHexDigits[(sum >> shift) & 0xF];
    return line + '\n';
}

/// The lines above a right checksum line.
std::optional<std::string_view> LinesOf(std::string_view bytes) {
    if (bytes.size() < kChecksumLineSize) return std::nullopt;
    const std::string_view lines = bytes.substr(0, bytes.size() - kChecksumLineSize);
    if (!lines.ends_with('\n') || bytes.substr(lines.size()) != ChecksumLine(lines)) return std::nullopt;
    return lines;
}

/// Cuts the first piece off `text`, up to `mark`, which goes too.
std::string_view CutPiece(std::string_view& text, char mark) {
    const std::size_t end = std::min(text.find(mark), text.size());
    const std::string_view piece = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return piece;
}

int NumberOf(std::string_view text) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc{} && end == text.data() + text.size() ? number : kNoNumber;
}

struct Version {
    int major = kNoNumber;
    int minor = kNoNumber;
};

Version VersionOf(std::string_view line) {
    if (!line.starts_with(kTitle)) return {};
    line.remove_prefix(kTitle.size());
    const int major = NumberOf(CutPiece(line, '.'));
    return {major, NumberOf(line)};
}

/// The header of a table's section. The escaped name holds no line end, and no two names are escaped alike.
std::string HeaderOf(std::string_view name) {
    std::string header = "[table ";
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte > ' ' && byte != '%' && byte != 0x7F) {
            header += c;
        } else {
            header += {'%', kHexDigits[byte >> 4], kHexDigits[byte & 0xF]};
        }
    }
    return header + ']';
}

bool IsHeader(std::string_view line) { return line.starts_with('[') && line.ends_with(']'); }

std::string_view KeyOf(std::string_view line) { return CutPiece(line, ' '); }

std::vector<int> NumbersOf(std::string_view line) {
    std::vector<int> numbers;
    CutPiece(line, ' ');
    while (!line.empty()) numbers.push_back(NumberOf(CutPiece(line, ' ')));
    return numbers;
}

std::string LineOf(std::string_view key, const std::vector<int>& numbers) {
    std::string line(key);
    for (const int number : numbers) line += ' ' + std::to_string(number);
    return line;
}

STBPrefItem ItemOf(const std::vector<int>& numbers) {
    if (numbers.size() != 4) return {kNoNumber, kNoNumber, kNoNumber, kNoNumber};
    return {numbers[0], numbers[1], numbers[2], numbers[3]};
}

void ReadLine(std::string_view line, TablePreferences& preferences) {
    const std::string_view key = KeyOf(line);
    if (key == kColumn) preferences.columns.push_back(ItemOf(NumbersOf(line)));
    if (key == kOrder) preferences.layout.order = NumbersOf(line);
    if (key == kHidden) preferences.layout.hidden = NumbersOf(line);
    if (key == kLocked) preferences.layout.locked = NumbersOf(line);
}

std::vector<std::string> LinesOf(const TablePreferences& preferences) {
    std::vector<std::string> lines;
    for (const STBPrefItem& item : preferences.columns) {
        lines.push_back(LineOf(kColumn, {item.columnType, item.numberFormat, item.decimalPlaces, item.columnWidth}));
    }
    const TableLayout& layout = preferences.layout;
    if (!layout.order.empty()) lines.push_back(LineOf(kOrder, layout.order));
    if (!layout.hidden.empty()) lines.push_back(LineOf(kHidden, layout.hidden));
    if (!layout.locked.empty()) lines.push_back(LineOf(kLocked, layout.locked));
    return lines;
}

}  // namespace

std::string WithChecksumLine(std::string lines) {
    lines += ChecksumLine(lines);
    return lines;
}

PreferenceText::Fault PreferenceText::Read(std::string_view bytes) {
    const std::optional<std::string_view> whole = LinesOf(bytes);
    if (!whole) return Fault::Damaged;
    std::string_view lines = *whole;
    const Version version = VersionOf(CutPiece(lines, '\n'));
    if (version.major < kMajorVersion || version.minor < 0) return Fault::Damaged;
    if (version.major > kMajorVersion) return Fault::Newer;

    minorVersion_ = version.minor;
    sections_.clear();
    while (!lines.empty()) {
        const std::string_view line = CutPiece(lines, '\n');
        if (IsHeader(line)) {
            sections_.push_back({std::string(line), {}});
        } else {
            if (sections_.empty()) sections_.emplace_back();
            sections_.back().lines.emplace_back(line);
        }
    }
    return Fault::None;
}

std::string PreferenceText::Bytes() const {
    std::string lines =
        std::string(kTitle) + std::to_string(kMajorVersion) + '.' + std::to_string(minorVersion_) + '\n';
    for (const Section& section : sections_) {
        if (!section.header.empty()) lines += section.header + '\n';
        for (const std::string& line : section.lines) lines += line + '\n';
    }
    return WithChecksumLine(std::move(lines));
}

std::optional<TablePreferences> PreferenceText::Table(std::string_view name) const {
    const auto section = std::ranges::find(sections_, HeaderOf(name), &Section::header);
    if (section == sections_.end()) return std::nullopt;
    TablePreferences preferences;
    for (const std::string& line : section->lines) ReadLine(line, preferences);
    return preferences;
}

void PreferenceText::SetTable(std::string_view name, const TablePreferences& preferences) {
    std::vector<std::string>& lines = SectionOf(name).lines;
    std::erase_if(
        lines, [](const std::string& line) { return std::ranges::find(kKnownKeys, KeyOf(line)) != kKnownKeys.end(); });
    const std::vector<std::string> known = LinesOf(preferences);
    lines.insert(lines.begin(), known.begin(), known.end());
}

PreferenceText::Section& PreferenceText::SectionOf(std::string_view name) {
    std::string header = HeaderOf(name);
    const auto section = std::ranges::find(sections_, header, &Section::header);
    return section != sections_.end() ? *section : sections_.emplace_back(Section{std::move(header), {}});
}

}  // namespace velda
