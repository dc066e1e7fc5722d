#include "velda_util/cells/row_sort.h"

#include <algorithm>
#include <array>
#include <bit>

#include "velda_lib/number_text.h"

namespace velda {
namespace {

/// A row with the part of its sort key that fits a number whose order is that of the key.
struct Sortable {
    std::uint64_t key;
    RowId row;
};

int Sign(double a, double b) { return a < b ? -1 : a > b ? 1 : 0; }
int Sign(std::string_view a, std::string_view b) {
    const int order = a.compare(b);
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

/// Maps doubles to integers of the same order; -0 and 0 are equal.
std::uint64_t OrderedBits(double value) {
    const auto bits = std::bit_cast<std::uint64_t>(value + 0.0);
    return (bits >> 63) != 0 ? ~bits : bits | (std::uint64_t{1} << 63);
}

/// The first 8 bytes of a text; a shorter text is smaller.
std::uint64_t OrderedPrefix(std::string_view text) {
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < 8; ++i)
        bits = (bits << 8) | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0u);
    return bits;
}

/// Stable sort by the digits of the keys, from the lowest; digits that are equal in all keys are passed over.
void RadixSort(std::vector<Sortable>& list) {
    constexpr int kDigitBits = 11;
    constexpr std::size_t kDigits = std::size_t{1} << kDigitBits;
    std::uint64_t differing = 0;
    for (const Sortable& entry : list) differing |= entry.key ^ list.front().key;
    std::vector<Sortable> other(list.size());
    for (int shift = 0; shift < 64; shift += kDigitBits) {
        if (((differing >> shift) & (kDigits - 1)) == 0) continue;
        std::array<std::uint32_t, kDigits + 1> starts{};
        for (const Sortable& entry : list) ++starts[((entry.key >> shift) & (kDigits - 1)) + 1];
        for (std::size_t digit = 1; digit <= kDigits; ++digit) starts[digit] += starts[digit - 1];
        for (const Sortable& entry : list) other[starts[(entry.key >> shift) & (kDigits - 1)]++] = entry;
        list.swap(other);
    }
}

void SortByKey(std::vector<Sortable>& list) {
    constexpr std::size_t kFewRows = 4096;
    if (list.size() >= kFewRows) {
        RadixSort(list);
    } else {
        std::stable_sort(list.begin(), list.end(), [](const Sortable& a, const Sortable& b) { return a.key < b.key; });
    }
}

}  // namespace

RowComparison::RowComparison(const CGXData& data, std::vector<STBSortItem> items, std::span<const ColumnType> types)
    : data_(data), items_(std::move(items)) {
    for (const STBSortItem& item : items_) {
        numeric_.push_back(types[static_cast<std::size_t>(item.column)] != ColumnType::String);
    }
}

RowComparison::Key RowComparison::ReadKey(std::span<const std::string> texts) const {
    Key key;
    for (std::size_t i = 0; i < items_.size(); ++i) {
        const std::string& text = i < texts.size() ? texts[i] : std::string{};
        key.numbers.push_back(IsNumeric(i) ? wtof(text) : 0.0);
        key.texts.push_back(IsNumeric(i) ? std::string{} : text);
    }
    return key;
}

int RowComparison::CompareFrom(std::size_t item, RowId a, RowId b) const {
    for (std::size_t i = item; i < items_.size(); ++i) {
        const int column = items_[i].column;
        int order = 0;
        if (IsNumeric(i)) {
            order = Sign(data_.Number(a, column), data_.Number(b, column));
        } else if (data_.Value(a, column) != data_.Value(b, column)) {
            order = Sign(data_.Text(a, column), data_.Text(b, column));
        }
        if (order != 0) return items_[i].order == 0 ? order : -order;
    }
    return 0;
}

int RowComparison::Compare(RowId a, RowId b) const { return CompareFrom(0, a, b); }

int RowComparison::Compare(RowId row, const Key& key) const {
    for (std::size_t i = 0; i < items_.size(); ++i) {
        const int column = items_[i].column;
        const int order = IsNumeric(i) ? Sign(data_.Number(row, column), key.numbers[i])
                                       : Sign(data_.Text(row, column), key.texts[i]);
        if (order != 0) return items_[i].order == 0 ? order : -order;
    }
    return 0;
}

void RowComparison::Sort(std::vector<RowId>& rows) const {
    if (!items_.empty()) SortRun(rows, 0);
}

// Sorts by one item at a time; runs of rows that are equal in it are sorted by what follows.
void RowComparison::SortRun(std::span<RowId> rows, std::size_t item) const {
    const int column = items_[item].column;
    const std::uint64_t flip = items_[item].order == 0 ? 0 : ~std::uint64_t{0};
    std::vector<Sortable> list(rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::uint64_t key =
            IsNumeric(item) ? OrderedBits(data_.Number(rows[i], column)) : OrderedPrefix(data_.Text(rows[i], column));
        list[i] = {key ^ flip, rows[i]};
    }
    SortByKey(list);
    for (std::size_t i = 0; i < rows.size(); ++i) rows[i] = list[i].row;

    const std::size_t rest = IsNumeric(item) ? item + 1 : item;  // a prefix says nothing of what stands behind it
    for (std::size_t start = 0; start < rows.size();) {
        std::size_t end = start + 1;
        while (end < rows.size() && list[end].key == list[start].key) ++end;
        const std::span<RowId> run = rows.subspan(start, end - start);
        constexpr std::size_t kLongRun = 256;
        if (run.size() > kLongRun && rest > item && rest < items_.size()) {
            SortRun(run, rest);
        } else if (run.size() > 1 && rest < items_.size()) {
            std::stable_sort(run.begin(), run.end(), [&](RowId a, RowId b) { return CompareFrom(rest, a, b) < 0; });
        }
        start = end;
    }
}

}  // namespace velda
