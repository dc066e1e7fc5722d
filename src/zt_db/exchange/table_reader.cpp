#include "zt_db/exchange/table_reader.h"

#include <algorithm>
#include <cmath>

#include "velda_lib/number_text.h"
#include "zt_db/exchange/exchange_units.h"

namespace zt {
namespace {

constexpr std::size_t kMostRepeats = 10'000;
constexpr std::size_t kShownCharacters = 40;

/// The number at the end of a header such as "loadfactor3"; none when the header does not begin like the rule.
std::optional<std::size_t> RepeatOf(std::string_view pattern, std::string_view name) {
    const std::string_view begin = pattern.substr(0, pattern.find('#'));
    std::int64_t number = 0;
    if (!name.starts_with(begin) || !velda::ReadWholeLong(name.substr(begin.size()), number)) return std::nullopt;
    if (number < 1 || number > static_cast<std::int64_t>(kMostRepeats)) return std::nullopt;
    return static_cast<std::size_t>(number - 1);
}

/// A number in another unit, without the last digits that the conversion leaves behind.
double Scaled(double number, double size) { return size == 1.0 ? number : velda::RoundToShown(number * size); }

std::string Shown(std::string_view text) {
    if (text.size() <= kShownCharacters) return std::string(text);
    std::size_t end = kShownCharacters;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
    return std::string(text.substr(0, end)) + "...";
}

}  // namespace

std::string Comparable(std::string_view text) {
    std::string out;
    for (const char c : text) {
        if (c == ' ' || c == '\t' || c == '\r' || c == '\n') continue;
        out += c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
    }
    return out;
}

NameList SplitList(std::string_view text, char separator) {
    NameList items;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(separator), text.size());
        const std::string_view item = velda::TrimBlanks(text.substr(0, end));
        if (!item.empty()) items.emplace_back(item);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return items;
}

std::optional<std::string> ScaledText(std::string_view text, double factor) {
    std::string scaled;
    for (const std::string& item : SplitList(text)) {
        const std::size_t colon = item.rfind(':');
        const std::size_t begin = colon == std::string::npos ? 0 : colon + 1;
        double number = 0.0;
        if (!velda::ReadWholeDouble(std::string_view(item).substr(begin), number)) return std::nullopt;
        if (!std::isfinite(number * factor)) return std::nullopt;
        if (!scaled.empty()) scaled += ';';
        scaled += item.substr(0, begin) + velda::FormatDouble(number * factor);
    }
    return scaled;
}

TableReading::TableReading(TableContext& context, std::string sheet, std::vector<ColumnRule> rules)
    : context_(context), sheet_(std::move(sheet)), rules_(std::move(rules)) {}

TableReading::Header TableReading::Split(std::string_view text) const {
    const std::size_t open = text.rfind('[');
    const std::size_t close = text.rfind(']');
    if (open == std::string_view::npos || close == std::string_view::npos || close < open) {
        return {Comparable(text), {}};
    }
    return {Comparable(text.substr(0, open)), std::string(text.substr(open + 1, close - open - 1))};
}

double TableReading::SizeOf(const ColumnRule& rule, const Header& header) const {
    const std::string_view usual = context_.imperial ? ImperialUnit(rule.unit) : rule.unit;
    const std::string_view unit = header.unit.empty() ? usual : std::string_view(header.unit);
    const auto size = UnitSize(unit, rule.unit);
    if (size) return *size;
    context_.report.Add(FindingLevel::Error, {sheet_, 0, std::string(rule.name)}, "IDS_XCH_UNKNOWN_UNIT",
                        {header.unit, std::string(rule.unit)});
    return 1.0;
}

/// Whether a header of the kind "length_m" is a name followed by a unit.
bool TableReading::UnitFits(const ColumnRule& rule, std::string_view name, Match& match) const {
    const std::string& header = headers_[match.column];
    if (rule.unit.empty() || header.size() <= name.size() + 1 || header[name.size()] != '_') return false;
    if (Comparable(header.substr(0, name.size())) != name) return false;
    const auto size = UnitSize(std::string_view(header).substr(name.size() + 1), rule.unit);
    if (size) match.size = *size;
    return size.has_value();
}

bool TableReading::NameFits(const ColumnRule& rule, std::string_view name, const Header& header, Match& match) const {
    if (name.find('#') != std::string_view::npos) {
        const auto repeat = RepeatOf(name, header.name);
        match.repeat = repeat.value_or(0);
        return repeat.has_value();
    }
    if (header.name != name) return context_.style == HeaderStyle::Suffix && UnitFits(rule, name, match);
    if (!rule.unit.empty()) match.size = SizeOf(rule, header);
    return true;
}

std::optional<TableReading::Match> TableReading::MatchOf(std::size_t column, const std::string& text) const {
    const Header header = Split(text);
    for (std::size_t i = 0; i < rules_.size(); ++i) {
        Match match{column, i};
        if (NameFits(rules_[i], Comparable(rules_[i].name), header, match)) return match;
        for (const std::string& other : SplitList(rules_[i].otherNames, '|')) {
            if (NameFits(rules_[i], Comparable(other), header, match)) return match;
        }
    }
    return std::nullopt;
}

void TableReading::ReadHeader(const SheetRow& row) {
    hasHeader_ = true;
    headers_.resize(row.cells.size());
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        if (row.cells[i].kind != SheetValueKind::Text) continue;
        headers_[i] = velda::TrimBlanks(row.cells[i].text);
        const auto match = MatchOf(i, headers_[i]);
        const auto same = [&](const Match& other) {
            return other.rule == match->rule && other.repeat == match->repeat;
        };
        if (!match) {
            context_.report.Add(FindingLevel::Note, {sheet_, 0, Shown(headers_[i])}, "IDS_XCH_COLUMN_UNKNOWN");
        } else if (std::any_of(matches_.begin(), matches_.end(), same)) {
            context_.report.Add(FindingLevel::Warning, {sheet_, 0, Shown(headers_[i])}, "IDS_XCH_COLUMN_TWICE");
        } else {
            matches_.push_back(*match);
        }
    }
    CheckMissing();
}

void TableReading::CheckMissing() {
    complete_ = true;
    for (std::size_t i = 0; i < rules_.size(); ++i) {
        if (rules_[i].need != Need::Required && rules_[i].need != Need::Present) continue;
        if (std::any_of(matches_.begin(), matches_.end(), [&](const Match& match) { return match.rule == i; }))
            continue;
        context_.report.Add(FindingLevel::Error, {sheet_, 0, std::string(rules_[i].name)}, "IDS_XCH_COLUMN_MISSING");
        complete_ = false;
    }
}

bool TableReading::BeginRow(const SheetRow& row) {
    row_ = &row;
    return std::any_of(row.cells.begin(), row.cells.end(), [](const SheetValue& cell) {
        if (cell.kind == SheetValueKind::Text) return !velda::TrimBlanks(cell.text).empty();
        return cell.kind != SheetValueKind::Empty;
    });
}

const SheetValue& TableReading::CellOf(const Match& match) const {
    static const SheetValue empty;
    return match.column < row_->cells.size() ? row_->cells[match.column] : empty;
}

void TableReading::Tell(FindingLevel level, const Match& match, std::string_view key,
                        std::vector<std::string> values) const {
    context_.report.Add(level, {sheet_, row_->number, std::string(headers_[match.column])}, key, std::move(values));
}

std::string TableReading::Text(const Match& match) const {
    const SheetValue& cell = CellOf(match);
    switch (cell.kind) {
        case SheetValueKind::Empty: break;
        case SheetValueKind::Text: return std::string(velda::TrimBlanks(cell.text));
        case SheetValueKind::Number: return cell.text.empty() ? velda::FormatDouble(cell.number) : cell.text;
        case SheetValueKind::Check: return cell.number != 0.0 ? "TRUE" : "FALSE";
        case SheetValueKind::Fault: TellWrongType(match); break;
    }
    return {};
}

void TableReading::TellWrongType(const Match& match) const {
    const bool needed = rules_[match.rule].need == Need::Required;
    Tell(needed ? FindingLevel::Error : FindingLevel::Warning, match, "IDS_XCH_WRONG_TYPE",
         {Shown(CellOf(match).text)});
}

MaybeNumber TableReading::Number(const Match& match) const {
    const SheetValue& cell = CellOf(match);
    double number = cell.number;
    const std::string_view text = velda::TrimBlanks(cell.text);
    switch (cell.kind) {
        case SheetValueKind::Empty: return std::nullopt;
        case SheetValueKind::Number: break;
        case SheetValueKind::Text:
            if (text.empty()) return std::nullopt;
            if (velda::ReadWholeDouble(text, number)) break;
            [[fallthrough]];
        default: TellWrongType(match); return std::nullopt;
    }
    if (std::isfinite(number * match.size)) return Scaled(number, match.size);
    TellWrongType(match);
    return std::nullopt;
}

std::vector<double> TableReading::Numbers(const Match& match) const {
    std::vector<double> numbers;
    for (const std::string& item : SplitList(Text(match))) {
        double number = 0.0;
        if (!velda::ReadWholeDouble(item, number) || !std::isfinite(number * match.size)) {
            TellWrongType(match);
            return {};
        }
        numbers.push_back(Scaled(number, match.size));
    }
    return numbers;
}

std::string TableReading::Measured(const Match& match) const {
    const auto scaled = ScaledText(Text(match), match.size);
    if (!scaled) TellWrongType(match);
    return scaled.value_or("");
}

void TableReading::CheckFixed(const Match& match, const FixedValue& fixed) const {
    const Need need = rules_[match.rule].need;
    if (need == Need::Silent || need == Need::Quiet) return;
    const std::string text = Text(match);
    double number = 0.0;
    const bool same = fixed.isNumber ? velda::ReadWholeDouble(text, number) && number == velda::wtof(fixed.text)
                                     : Comparable(text) == Comparable(fixed.text);
    if (!text.empty() && !same) Tell(FindingLevel::Note, match, "IDS_XCH_VALUE_NOT_KEPT", {Shown(text)});
}

void TableReading::CheckRequired() const {
    for (const Match& match : matches_) {
        if (rules_[match.rule].need != Need::Required) continue;
        const SheetValue& cell = CellOf(match);
        const bool blank = cell.kind == SheetValueKind::Empty ||
                           (cell.kind == SheetValueKind::Text && velda::TrimBlanks(cell.text).empty());
        if (blank) Tell(FindingLevel::Error, match, "IDS_XCH_VALUE_MISSING");
    }
}

}  // namespace zt
