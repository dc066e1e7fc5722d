#pragma once

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

    /// First position whose row does not stand before the key, between `first` and `last`.
    std::size_t LowerBound(const Key& key, std::size_t first, std::size_t last) const;
    std::size_t LowerBound(RowId row, std::size_t first, std::size_t last) const;
    /// The same for a row that is expected close behind `first`: costs the logarithm of the distance.
    std::size_t LowerBoundBehind(RowId row, std::size_t first) const;

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
