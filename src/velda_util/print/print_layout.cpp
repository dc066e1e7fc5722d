#include "velda_util/print/print_layout.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

#include "velda_util/grid/gx_grid_core.h"

namespace velda {
namespace {

/// Height of a line of text as a part of the font size.
constexpr double kLineSpacing = 1.25;

}  // namespace

PrintLayout::PrintLayout(const CGXGridCore& grid, PrintSettings settings)
    : grid_(grid), settings_(std::move(settings)) {
    for (int col = 1; col <= grid.GetColCount(); ++col) {
        if (grid.IsColumnHidden(col)) continue;
        (col <= grid.Columns().Frozen() ? frozen_ : columns_).push_back(col);
    }
    BreakColumns();
    BreakRows();
}

double PrintLayout::LineHeight() const { return settings_.fontSize * kLineSpacing; }

double PrintLayout::ContentWidth() const {
    return settings_.paper.width - settings_.margins.left - settings_.margins.right;
}

double PrintLayout::ContentTop() const {
    return settings_.margins.top + static_cast<double>(settings_.titles.size()) * LineHeight();
}

double PrintLayout::ColumnWidth(int col) const {
    return std::min(grid_.GetColWidth(col) * settings_.pointsPerPixel, std::max(ContentWidth(), 0.0));
}

/// Lines that the text of a cell takes; 1 where it is not wrapped.
double PrintLayout::LinesIn(int row, int col) const {
    const CGXStyle& style = grid_.StyleOf(row, col);
    const double room = ColumnWidth(col);
    if (!style.GetWrapText() || room <= 0.0) return 1.0;
    return std::max(
        1.0, std::ceil(settings_.textWidth(grid_.GetShownText(row, col), settings_.fontSize, style.GetBold()) / room));
}

double PrintLayout::RowHeight(int row) const {
    double lines = 1.0;
    for (std::size_t i = 0; row > 0 && i < frozen_.size() + columns_.size(); ++i) {
        const int col = i < frozen_.size() ? frozen_[i] : columns_[i - frozen_.size()];
        lines = std::max(lines, LinesIn(row, col));
    }
    return std::max(grid_.GetRowHeight(row) * settings_.pointsPerPixel, lines * LineHeight());
}

void PrintLayout::BreakColumns() {
    const double room = ContentWidth();
    double frozenWidth = 0.0;
    for (const int col : frozen_) frozenWidth += ColumnWidth(col);
    const bool fits =
        std::all_of(columns_.begin(), columns_.end(), [&](int col) { return frozenWidth + ColumnWidth(col) <= room; });
    if (!fits) {
        columns_.insert(columns_.begin(), frozen_.begin(), frozen_.end());
        frozen_.clear();
        frozenWidth = 0.0;
    }
    Run run{0, -1};
    double width = frozenWidth;
    for (int at = 0; std::cmp_less(at, columns_.size()); ++at) {
        const double own = ColumnWidth(columns_[static_cast<std::size_t>(at)]);
        if (run.last >= run.first && width + own > room) {
            columnBreaks_.push_back(run);
            run = {at, at};
            width = frozenWidth + own;
        } else {
            run.last = at;
            width += own;
        }
    }
    columnBreaks_.push_back(run);
}

void PrintLayout::BreakRows() {
    const double bottom = settings_.paper.height - settings_.margins.bottom - LineHeight();
    const double room = bottom - ContentTop() - RowHeight(0);
    const int rows = grid_.RowCount() - (grid_.HasAppendRow() ? 1 : 0);
    Run run{1, 0};
    double height = 0.0;
    for (int row = 1; row <= rows; ++row) {
        const double own = RowHeight(row);
        if (run.last >= run.first && height + own > room) {
            rowBreaks_.push_back(run);
            run = {row, row};
            height = own;
        } else {
            run.last = row;
            height += own;
        }
    }
    rowBreaks_.push_back(run);
}

void PrintLayout::AddBand(std::vector<PrintedBand>& bands, int index, double size, double begin, double end) const {
    const double at = bands.empty() ? begin : bands.back().at + bands.back().size;
    bands.push_back({index, at, std::max(0.0, std::min(size, end - at))});
}

PrintedPage PrintLayout::Page(int number) const {
    if (number < 1 || number > PageCount()) throw std::invalid_argument("no page " + std::to_string(number));
    const auto at = static_cast<std::size_t>(number - 1);
    const Run& rows = rowBreaks_[at % rowBreaks_.size()];
    const Run& cols = columnBreaks_[at / rowBreaks_.size()];
    PrintedPage page{number};
    const double left = settings_.margins.left;
    const double right = settings_.paper.width - settings_.margins.right;
    const double bottom = settings_.paper.height - settings_.margins.bottom - LineHeight();
    for (const int col : frozen_) AddBand(page.columns, col, ColumnWidth(col), left, right);
    for (int i = cols.first; i <= cols.last; ++i) {
        const int col = columns_[static_cast<std::size_t>(i)];
        AddBand(page.columns, col, ColumnWidth(col), left, right);
    }
    AddBand(page.rows, 0, RowHeight(0), ContentTop(), bottom);
    for (int row = rows.first; row <= rows.last; ++row) AddBand(page.rows, row, RowHeight(row), ContentTop(), bottom);
    for (std::size_t line = 0; line < settings_.titles.size(); ++line) {
        page.titles.push_back(
            {settings_.titles[line], left, settings_.margins.top + static_cast<double>(line) * LineHeight()});
    }
    const std::string text = std::to_string(number) + " / " + std::to_string(PageCount());
    page.pageNumber = {text, right - settings_.textWidth(text, settings_.fontSize, false), bottom};
    return page;
}

}  // namespace velda
