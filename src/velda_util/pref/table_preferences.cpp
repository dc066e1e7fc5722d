#include "velda_util/pref/table_preferences.h"

#include <algorithm>

namespace velda {
namespace {

int InRangeOr(int value, int highest, int usual) { return value >= 0 && value <= highest ? value : usual; }

bool IsColumn(int id, std::size_t columnCount) { return id >= 0 && static_cast<std::size_t>(id) < columnCount; }

std::vector<int> FitIds(std::vector<int> ids, std::size_t columnCount) {
    std::erase_if(ids, [&](int id) { return !IsColumn(id, columnCount); });
    std::sort(ids.begin(), ids.end());
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
    return ids;
}

}  // namespace

STBPrefItem FitItem(const STBPrefItem& item, const STBPrefItem& usual) {
    if (item.columnType != usual.columnType) return usual;
    return {item.columnType, InRangeOr(item.numberFormat, kMaxNumberFormat, usual.numberFormat),
            InRangeOr(item.decimalPlaces, kMaxDecimalPlaces, usual.decimalPlaces),
            InRangeOr(item.columnWidth, kMaxColumnWidth, usual.columnWidth)};
}

TableLayout FitLayout(const TableLayout& layout, std::size_t columnCount) {
    TableLayout fitted{{}, FitIds(layout.hidden, columnCount), FitIds(layout.locked, columnCount)};
    const bool namesEachOnce =
        layout.order.size() == columnCount && FitIds(layout.order, columnCount).size() == columnCount;
    if (namesEachOnce) fitted.order = layout.order;
    return fitted;
}

TablePreferences FitPreferences(const TablePreferences& kept, const std::vector<STBPrefItem>& usual) {
    TablePreferences fitted{usual, FitLayout(kept.layout, usual.size())};
    if (kept.columns.size() == usual.size()) {
        for (std::size_t i = 0; i < usual.size(); ++i) fitted.columns[i] = FitItem(kept.columns[i], usual[i]);
    }
    return fitted;
}

}  // namespace velda
