#pragma once

#include <vector>

namespace velda {

/// One default preference of a column.
struct STBPrefItem {
    int columnType = 0;  ///< 1 long, 2 double, 3 string
    int numberFormat = 0;
    int decimalPlaces = 0;
    int columnWidth = 0;

    bool operator==(const STBPrefItem&) const = default;
};

/// Appends the default preferences of a table, one item for each column.
using DefaultPreferenceFunction = void (*)(std::vector<STBPrefItem>&);

/// Largest values that are taken for a preference; anything above is taken for damage. None may be negative.
inline constexpr int kMaxNumberFormat = 99;
inline constexpr int kMaxDecimalPlaces = 15;
inline constexpr int kMaxColumnWidth = 10'000;

/// How the user laid a table out. All numbers are column ids.
struct TableLayout {
    std::vector<int> order;   ///< columns from left to right; empty for the order of their ids
    std::vector<int> hidden;  ///< columns that the user hid
    std::vector<int> locked;  ///< columns that the user locked

    bool operator==(const TableLayout&) const = default;
};

/// All that is kept for one table.
struct TablePreferences {
    std::vector<STBPrefItem> columns;
    TableLayout layout;

    bool operator==(const TablePreferences&) const = default;
};

/// What can be used of an item, values out of range replaced by those of `usual`. An item of another column type was
/// kept for another column: it gives `usual` itself.
STBPrefItem FitItem(const STBPrefItem& item, const STBPrefItem& usual);

/// What can be used of a layout with `columnCount` columns: an order of just these columns, else none, and the ids that
/// exist, ascending and each once.
TableLayout FitLayout(const TableLayout& layout, std::size_t columnCount);

/// What can be used of preferences for a table whose columns are `usual`: the items when there is one for each column,
/// else `usual`, and the layout.
TablePreferences FitPreferences(const TablePreferences& kept, const std::vector<STBPrefItem>& usual);

}  // namespace velda
