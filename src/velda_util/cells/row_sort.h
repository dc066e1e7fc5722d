#pragma once

#include <algorithm>
#include <span>
#include <string>
#include <vector>

#include "velda_util/cells/cell_data.h"

namespace velda {

/// Types of columns: long integers, doubles, texts.
enum class ColumnType { Long = 1, Double = 2, String = 3 };

/// One item of a sort specification: the column, a type that the engine does not read, and the order (0 ascending, 1
/// descending).
struct STBSortItem {
    int column = 0;
    int type = 0;
    int order = 0;
    bool operator==(const STBSortItem&) const = default;
};

/// First place between `first` and `last` for which `before` does not hold, where it holds for all places up to some
/// one.
template <class Before>
std::size_t FirstWhereNot(std::size_t first, std::size_t last, Before before) {
    while (first < last) {
        const std::size_t middle = first + (last - first) / 2;
        if (before(middle)) {
            first = middle + 1;
        } else {
            last = middle;
        }
    }
    return first;
}

/// The same for a place that is expected some `step` behind `first`: costs the logarithm of the distance.
template <class Before>
std::size_t FirstWhereNotBehind(std::size_t first, std::size_t last, Before before, std::size_t step = 1) {
    while (first + step <= last && before(first + step - 1)) {
        first += step;
        step *= 2;
    }
    return FirstWhereNot(first, std::min(last, first + step - 1), before);
}

/// Compares rows by a sort specification: numbers in columns of the types long and double, texts by bytes in the
/// others.
class RowComparison {
public:
    /// `types` by column id.
    RowComparison(const CGXData& data, std::vector<STBSortItem> items, std::span<const ColumnType> types);

    /// The texts that a row is looked for by, one for each item, read once for many comparisons.
    struct Key {
        std::vector<double> numbers;
        std::vector<std::string> texts;
    };
    Key ReadKey(std::span<const std::string> texts) const;

    /// Negative, 0, positive as a row stands before, beside or behind another row or a key.
    int Compare(RowId a, RowId b) const;
    int Compare(RowId row, const Key& key) const;

    /// First position whose row does not stand before the key.
    std::size_t LowerBound(const Key& key) const {
        const RowOrder& order = data_.Order();
        return FirstWhereNot(0, order.Count(), [&](std::size_t at) { return Compare(order.At(at), key) < 0; });
    }

    /// Sorts row ids; rows that compare equal keep their order.
    void Sort(std::vector<RowId>& rows) const;

    const std::vector<STBSortItem>& Items() const { return items_; }

private:
    bool IsNumeric(std::size_t item) const { return numeric_[item]; }
    int CompareFrom(std::size_t item, RowId a, RowId b) const;
    void SortRun(std::span<RowId> rows, std::size_t item) const;

    const CGXData& data_;
    std::vector<STBSortItem> items_;
    std::vector<bool> numeric_;
};

}  // namespace velda
