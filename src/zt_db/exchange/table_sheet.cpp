#include "zt_db/exchange/table_sheet.h"

#include "velda_lib/number_text.h"
#include "zt_db/exchange/exchange_units.h"

namespace zt {
namespace {

constexpr int kCharacterPixels = 8;
constexpr int kNarrowest = 60;
constexpr int kHeaderPixels = 22;

/// A unit as the end of a name: "kN/m2" is "kN_m2".
std::string Suffix(std::string_view unit) {
    std::string text = "_" + std::string(unit);
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '/' || c == '*'; }, '_');
    return text;
}

/// The number in the unit of a column, as the shortest text that means it within the digits of a double: a length of
/// 0.3 m is 300 mm and not 299.99999999999994.
double InUnit(double number, double size) { return size == 1.0 ? number : velda::RoundToShown(number / size); }

}  // namespace

int TableSheet::ColumnWidth(std::uint32_t col) const {
    return std::max(kNarrowest, kCharacterPixels * static_cast<int>(columns_[col].header.size()));
}

int TableSheet::HeaderRowHeight() const { return kHeaderPixels; }

void TableSheet::AddColumn(const ColumnRule& rule, std::size_t index, std::size_t repeat) {
    Place place{index, repeat, std::string(rule.name)};
    const std::size_t mark = place.header.find('#');
    if (mark != std::string::npos) {
        place.header.replace(mark, 1, velda::FormatLong(static_cast<std::int64_t>(repeat + 1)));
    }
    if (!rule.unit.empty()) {
        place.size = UnitSize(rule.unit, rule.unit).value_or(1.0);
        place.header += style_ == HeaderStyle::Brackets ? " [" + std::string(rule.unit) + "]" : Suffix(rule.unit);
    }
    columns_.push_back(std::move(place));
}

void TableSheet::ReadHeader(std::uint32_t col, velda::SheetCell& cell) const {
    PutText(cell, columns_[col].header);
    cell.look.isHeader = true;
    cell.look.bold = true;
}

void TableSheet::PutText(velda::SheetCell& cell, std::string text) {
    cell.kind = text.empty() ? velda::SheetCell::Kind::Empty : velda::SheetCell::Kind::Text;
    cell.text = std::move(text);
}

void TableSheet::PutNumber(velda::SheetCell& cell, const MaybeNumber& number, double size) {
    if (!number) return;
    cell.kind = velda::SheetCell::Kind::Number;
    cell.number = InUnit(*number, size);
}

std::string JoinList(const NameList& items) {
    std::string text;
    for (const std::string& item : items) {
        if (!text.empty()) text += ';';
        text += item;
    }
    return text;
}

std::string JoinNumbers(const std::vector<double>& numbers, double size) {
    NameList items;
    for (const double number : numbers) items.push_back(velda::FormatDoubleExact(InUnit(number, size)));
    return JoinList(items);
}

}  // namespace zt
