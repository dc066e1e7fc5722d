#include "velda_util/grid/gx_grid_wnd.h"

#include <algorithm>
#include <cmath>

#include "velda_lib/msg_dll.h"
#include "velda_util/clip/clipboard_text.h"
#include "velda_util/style/display_text.h"

namespace velda {
namespace {

/// Room beside the text of a cell, in pixels.
constexpr int kCellPadding = 10;

}  // namespace

std::string CGXGridWnd::ClipboardCellText(int row, int col) const {
    const CGXStyle& style = StyleOf(row, col);
    std::string text = GetValueRowCol(row, col);
    if (style.GetValueType() == ValueType::Numeric && !style.IncludeChoiceList()) return text;
    return DisplayText(text, style);
}

bool CGXGridWnd::Copy(bool withHeaders) {
    if (HasSeveralRanges() && !selection_.IsOfRows()) {
        Host().OnMessage(CMsgDll::pfuncLoadStr("IDS_TB_ENGINE_SEVERAL_RANGES", 0));
        return false;
    }
    const PositionRange range = CommandRange();
    std::vector<int> cols;
    for (int col = range.left; col <= range.right; ++col) {
        if (!IsColumnHidden(col)) cols.push_back(col);
    }
    if (range.bottom < range.top || cols.empty()) return false;
    TextBlock block;
    const auto copyRows = [&](int first, int last) {
        // The append row is no record: it is copied only by itself.
        if (HasAppendRow() && first < RowCount()) last = std::min(last, RowCount() - 1);
        for (int row = first; row <= last; ++row) {
            for (const int col : cols) block.AddCell(ClipboardCellText(row, col));
            block.EndRow();
        }
    };
    if (HasSeveralRanges()) {
        for (const PositionSpan& rows : selection_.WholeRows(*this)) copyRows(rows.first, rows.last);
    } else {
        copyRows(range.top, range.bottom);
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

// ---- widths ----

int CGXGridWnd::FittingWidth(int col, int rowCount) const {
    const auto id = static_cast<std::uint32_t>(IdOfColumn(col));
    const auto widthOf = [this](std::string_view text, const CGXStyle& style) {
        return Host().TextWidth(text, style.GetFontSize(), style.GetBold());
    };
    double width = 0.0;
    for (std::uint32_t row = 0; row < header_.RowCount(); ++row) {
        width = std::max(width, widthOf(header_.Text(row, id), StyleOf(0, col)));
    }
    const int rows = RowCount();
    const int samples = std::clamp(rowCount, 0, rows);
    for (int i = 0; i < samples; ++i) {
        const int row = 1 + static_cast<int>(static_cast<long long>(i) * rows / samples);
        width = std::max(width, widthOf(GetShownText(row, col), StyleOf(row, col)));
    }
    const double bounded = std::min(width, static_cast<double>(ColumnList::kLargestWidth));
    return static_cast<int>(std::ceil(bounded)) + kCellPadding;
}

void CGXGridWnd::ResizeColWidthsToFitSmart(int rowCount) {
    for (int col = 1; col <= GetColCount(); ++col) {
        if (!IsColumnHidden(col)) SetColWidth(col, FittingWidth(col, rowCount));
    }
}

// ---- printing ----

void CGXGridWnd::OnGridBeginPrinting(PrintJob& job) {
    PrintSettings settings{job.paper, job.preview ? job.margins : margins_, job.fontSize, {}};
    if (!job.title.empty()) settings.titles.push_back(job.title);
    settings.titles.insert(settings.titles.end(), job.headings.begin(), job.headings.end());
    if (job.textWidth) settings.textWidth = job.textWidth;
    printed_.emplace(*this, std::move(settings));
    job.pages = printed_->PageCount();
}

}  // namespace velda
