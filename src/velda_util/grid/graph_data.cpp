#include "velda_util/grid/graph_data.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <optional>
#include <string>

#include "velda_lib/number_text.h"

namespace velda {
namespace {

/// The title of a column with what stands above it, on one line.
std::string HeadingOf(const CGXGridCore& grid, int col) {
    const auto id = static_cast<std::uint32_t>(grid.ColumnIdAt(col));
    std::string heading;
    std::string above;
    for (std::uint32_t row = 0; row < grid.Header().RowCount(); ++row) {
        const std::string& text = grid.Header().Text(row, id);
        if (text != above) heading += (heading.empty() ? "" : " ") + text;
        above = text;
    }
    std::replace(heading.begin(), heading.end(), '\n', ' ');
    return heading;
}

bool HoldsNumbers(const CGXGridCore& grid, int col, int row) {
    const CGXStyle& style = grid.StyleOf(row, col);
    return grid.Columns().Info(grid.ColumnIdAt(col)).type != ColumnType::String && !style.IncludeChoiceList() &&
           !style.IsCheckBox();
}

/// The numbers of a column; null when there is none.
std::unique_ptr<T_GRAPH_ITEM_D> ItemOf(const CGXGridCore& grid, int col, int top, int bottom) {
    auto item = std::make_unique<T_GRAPH_ITEM_D>();
    item->name = HeadingOf(grid, col);
    bool found = false;
    for (int row = top; row <= bottom; ++row) {
        double value = 0.0;
        const bool isNumber = ReadWholeDouble(grid.GetValueRowCol(row, col), value) && std::isfinite(value);
        item->values.push_back(isNumber ? value : std::numeric_limits<double>::quiet_NaN());
        found = found || isNumber;
    }
    return found ? std::move(item) : nullptr;
}

}  // namespace

bool GraphDataOf(const CGXGridCore& grid, const CGXRange& range, T_GRAPH_D& data) {
    const int rows = grid.RowCount() - (grid.HasAppendRow() ? 1 : 0);
    if (range.IsEmpty() || rows < 1) return false;
    const CGXRange cells =
        range.Expanded(static_cast<CGXRange::Index>(rows), static_cast<CGXRange::Index>(grid.GetColCount()));
    if (cells.IsEmpty()) return false;
    const int top = static_cast<int>(cells.Top());
    const int bottom = static_cast<int>(cells.Bottom());
    std::vector<std::unique_ptr<T_GRAPH_ITEM_D>> items;
    std::optional<int> labels;
    for (int col = static_cast<int>(cells.Left()); col <= static_cast<int>(cells.Right()); ++col) {
        if (grid.IsColumnHidden(col)) continue;
        if (!HoldsNumbers(grid, col, top)) {
            if (!labels) labels = col;
        } else if (auto item = ItemOf(grid, col, top, bottom)) {
            items.push_back(std::move(item));
        }
    }
    if (items.empty()) return false;
    data.items = std::move(items);
    data.labelTitle = labels ? HeadingOf(grid, *labels) : std::string();
    data.labels.clear();
    for (int row = top; row <= bottom; ++row) {
        data.labels.push_back(labels ? grid.GetShownText(row, *labels) : std::to_string(row));
    }
    return true;
}

}  // namespace velda
