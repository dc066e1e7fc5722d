#include "velda_util/export/grid_sheet.h"

#include <algorithm>
#include <utility>

#include "velda_lib/number_text.h"
#include "velda_util/style/display_text.h"
#include "velda_util/text/unicode_text.h"

namespace velda {
namespace {

constexpr std::uint32_t kWhite = 0xFFFFFF;

void SetText(SheetCell& cell, std::string text) {
    cell.kind = text.empty() ? SheetCell::Kind::Empty : SheetCell::Kind::Text;
    cell.text = IsCleanUtf8(text) ? std::move(text) : CleanUtf8(text);
}

void SetLook(SheetLook& look, const CGXStyle& style) {
    look = SheetLook{};
    look.bold = style.GetBold();
    look.wrap = style.GetWrapText();
    if (style.IncludeTextColor()) look.textColor = style.GetTextColor();
    // White would hide the lines between the cells.
    if (style.GetInterior() != kWhite) look.interior = style.GetInterior();
    if (style.IncludeHorizontalAlignment()) look.horizontal = style.GetHorizontalAlignment();
}

void SetContent(SheetCell& cell, std::string text, const CGXStyle& style) {
    if (style.IsCheckBox()) {
        cell.kind = SheetCell::Kind::Check;
        cell.checked = DisplayText(text, style) == "1";
        return;
    }
    const bool isListed = style.GetControl() == ControlKind::TabbedDropDownList;
    const bool isNumeric = style.GetValueType() == ValueType::Numeric && !isListed;
    if (isNumeric && ReadWholeDouble(text, cell.number)) {
        cell.kind = SheetCell::Kind::Number;
        if (style.GetFormat() == NumberFormat::Fixed && style.IncludePlaces()) {
            cell.look.places = static_cast<std::uint8_t>(style.GetPlaces());
        }
        return;
    }
    SetText(cell, isListed ? DisplayText(text, style) : std::move(text));
}

}  // namespace

GridSheet::GridSheet(const CTBGrid& grid, std::string name)
    : grid_(grid),
      name_(std::move(name)),
      headerRows_(grid.Header().RowCount()),
      dataRows_(static_cast<std::uint32_t>(grid.RowCount() - (grid.HasAppendRow() ? 1 : 0))) {
    std::vector<std::uint32_t> ids;
    for (int col = 1; col <= grid.GetColCount(); ++col) {
        if (grid.IsColumnHidden(col)) continue;
        cols_.push_back(col);
        ids.push_back(static_cast<std::uint32_t>(grid.ColumnIdAt(col)));
    }
    spans_ = grid.Header().Spans(ids);
    for (const CGXRange& range : grid.CoveredCells().All()) AddDataMerge(range);
}

void GridSheet::AddDataMerge(const CGXRange& range) {
    const auto first = std::lower_bound(cols_.begin(), cols_.end(), static_cast<int>(range.Left()));
    const auto behind = std::upper_bound(first, cols_.end(), static_cast<int>(range.Right()));
    const std::uint32_t bottom = std::min(range.Bottom(), dataRows_);
    if (first == behind || range.Top() < 1 || range.Top() > bottom) return;
    dataMerges_.push_back({headerRows_ + range.Top() - 1, headerRows_ + bottom - 1,
                           static_cast<std::uint32_t>(first - cols_.begin()),
                           static_cast<std::uint32_t>(behind - cols_.begin()) - 1});
}

int GridSheet::FirstShown(const CGXRange& range) const {
    return *std::lower_bound(cols_.begin(), cols_.end(), static_cast<int>(range.Left()));
}

std::uint32_t GridSheet::FrozenColumnCount() const {
    const auto behind = std::upper_bound(cols_.begin(), cols_.end(), grid_.Columns().Frozen());
    return static_cast<std::uint32_t>(behind - cols_.begin());
}

int GridSheet::HeaderRowHeight() const { return grid_.GetRowHeight(0) / static_cast<int>(headerRows_); }

std::vector<SheetMerge> GridSheet::Merges() const {
    std::vector<SheetMerge> merges;
    for (const HeaderSpan& span : spans_) {
        merges.push_back({span.firstRow, span.lastRow, span.firstPlace, span.lastPlace});
    }
    merges.insert(merges.end(), dataMerges_.begin(), dataMerges_.end());
    std::erase_if(merges, [](const SheetMerge& merge) {
        return merge.firstRow == merge.lastRow && merge.firstCol == merge.lastCol;
    });
    return merges;
}

void GridSheet::ReadCell(std::uint32_t row, std::uint32_t col, SheetCell& cell) const {
    cell.kind = SheetCell::Kind::Empty;
    if (row < headerRows_) {
        ReadHeaderCell(row, col, cell);
    } else {
        ReadDataCell(static_cast<int>(row - headerRows_) + 1, cols_[col], cell);
    }
}

void GridSheet::ReadHeaderCell(std::uint32_t row, std::uint32_t col, SheetCell& cell) const {
    cell.look = SheetLook{};
    cell.look.isHeader = true;
    cell.look.bold = true;
    cell.look.wrap = true;
    cell.look.interior = CTBGrid::m_Color.header;
    cell.look.horizontal = HorizontalAlignment::Center;
    const auto starts = [&](const HeaderSpan& span) { return span.firstRow == row && span.firstPlace == col; };
    const auto span = std::find_if(spans_.begin(), spans_.end(), starts);
    if (span != spans_.end()) SetText(cell, span->text);
}

void GridSheet::ReadDataCell(int row, int col, SheetCell& cell) const {
    if (!dataMerges_.empty()) {
        const auto merge = grid_.CoveredCells().Find(static_cast<std::uint32_t>(row), static_cast<std::uint32_t>(col));
        if (merge) {
            const bool isFirst = std::cmp_equal(merge->Top(), row) && FirstShown(*merge) == col;
            // A merge shows its first cell, even where the column of that one is hidden.
            row = static_cast<int>(merge->Top());
            col = static_cast<int>(merge->Left());
            SetLook(cell.look, grid_.StyleOf(row, col));
            if (!isFirst) return;
        }
    }
    const CGXStyle& style = grid_.StyleOf(row, col);
    SetLook(cell.look, style);
    SetContent(cell, grid_.GetValueRowCol(row, col), style);
}

}  // namespace velda
