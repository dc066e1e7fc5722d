#include "velda_util/clip/text_matcher.h"
#include "velda_util/grid/tb_browser_wnd.h"

namespace velda {
namespace {

/// Rows that are looked into before the store is searched as a whole.
constexpr int kNearRows = 1000;

/// Whether the text of a number can hold this text: digits, signs, a point, an exponent.
bool CanStandInNumber(std::string_view text) {
    return text.find_first_not_of("0123456789.+-eE") == std::string_view::npos;
}

/// A column as it is searched in the store.
struct SearchedColumn {
    ColumnId id;
    bool isList;
    ChoiceList choices{};
};

}  // namespace

// The rows in the order in which they lie in memory, not in that of the table: a walk over a million rows in table
// order waits for memory at each of them.
std::vector<bool> CTBBrowserWnd::RowsThatMayHold(const STBFindStruct& find, const FindArea& area) const {
    const CGXData& data = rows_.Data();
    std::vector<SearchedColumn> columns;
    for (int col = 1; col <= GetColCount(); ++col) {
        const bool searched = find.onlyCurrentColumn ? col == area.currentColumn : !IsColumnHidden(col);
        if (!searched) continue;
        const ColumnId id = IdOfColumn(col);
        const CGXStyle& style = styles_.ColumnStyle(static_cast<std::uint32_t>(id));
        columns.push_back({id, style.IncludeChoiceList(), style.GetChoices()});
    }
    const bool numbers = CanStandInNumber(find.text);
    TextMatcher matcher(find.text, find.matchCase);
    std::string buffer;
    const auto holds = [&](RowId row, const SearchedColumn& column) {
        const CellValue value = data.Value(row, column.id);
        if (value.IsEmpty() || (!column.isList && !numbers && value.IsNumber())) return false;
        buffer.clear();
        data.AppendText(row, column.id, buffer);
        return matcher.IsIn(buffer) || (column.isList && matcher.IsIn(column.choices.ShownText(buffer)));
    };
    std::vector<bool> rows(data.RowIdEnd());
    for (RowId row = 0; row < rows.size(); ++row) {
        if (!data.HasRow(row)) continue;
        bool may = HasStyleHook() || row == edit_.row || styles_.HasRowStyle(row);
        for (std::size_t at = 0; at < columns.size() && !may; ++at) may = holds(row, columns[at]);
        rows[row] = may;
    }
    return rows;
}

FindResult CTBBrowserWnd::Search(const STBFindStruct& find, const FindArea& area) const {
    std::string buffer;
    const auto text = [&](int row, int col) -> std::string_view { return buffer = ClipboardCellText(row, col); };
    int visited = 0;
    std::vector<bool> may;
    return FindText(find, area, text, [&](int row) {
        if (++visited <= kNearRows) return true;
        if (may.empty()) may = RowsThatMayHold(find, area);
        const RowId id = RowIdAt(row);
        return IsNewRowId(id) || may[id];
    });
}

}  // namespace velda
