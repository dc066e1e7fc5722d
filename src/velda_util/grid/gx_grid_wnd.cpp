#include "velda_util/grid/gx_grid_wnd.h"

#include <algorithm>

#include "velda_util/clip/clipboard_text.h"
#include "velda_util/style/display_text.h"

namespace velda {

std::string CGXGridWnd::ClipboardCellText(int row, int col) const {
    const CGXStyle& style = StyleOf(row, col);
    std::string text = GetValueRowCol(row, col);
    if (style.GetValueType() == ValueType::Numeric && !style.IncludeChoiceList()) return text;
    return DisplayText(text, style);
}

bool CGXGridWnd::Copy(bool withHeaders) {
    PositionRange range = CommandRange();
    // The append row is no record: it is copied only by itself.
    if (HasAppendRow() && range.top < RowCount()) range.bottom = std::min(range.bottom, RowCount() - 1);
    std::vector<int> cols;
    for (int col = range.left; col <= range.right; ++col) {
        if (!IsColumnHidden(col)) cols.push_back(col);
    }
    if (range.bottom < range.top || cols.empty()) return false;
    TextBlock block;
    for (int row = range.top; row <= range.bottom; ++row) {
        for (const int col : cols) block.AddCell(ClipboardCellText(row, col));
        block.EndRow();
    }
    std::vector<std::string> words;
    for (const int col : cols) {
        words.push_back(GetTitle(IdOfColumn(col)));
        words.push_back(GetUnitText(IdOfColumn(col)));
    }
    std::vector<ClipboardHeader> headers;
    for (std::size_t i = 0; withHeaders && i < words.size(); i += 2) headers.push_back({words[i], words[i + 1]});
    std::string text;
    const Outcome written = ClipboardText::Write(block, headers, text);
    if (!written) {
        Host().OnMessage(written.Reason());
        return false;
    }
    Host().SetClipboardText(std::move(text));
    return true;
}

}  // namespace velda
