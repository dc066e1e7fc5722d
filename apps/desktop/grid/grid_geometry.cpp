#include "desktop/grid/grid_geometry.h"

#include <algorithm>
#include <cmath>

namespace zt {
namespace {

/// Pixels on either side of a column's edge where it can be taken.
constexpr int kEdgeReach = 4;

template <class Band>
const Band* BandAt(const std::vector<Band>& bands, int at) {
    const auto found = std::find_if(bands.begin(), bands.end(), [at](const Band& band) { return band.Holds(at); });
    return found == bands.end() ? nullptr : &*found;
}

}  // namespace

int GridGeometry::Scaled(int size, double zoom) { return static_cast<int>(std::lround(size * zoom)); }

GridGeometry::GridGeometry(const velda::CGXGridCore& grid, const GridScroll& scroll, QSize window, Measures measures)
    : grid_(grid),
      zoom_(scroll.zoom),
      window_(window),
      rowCount_(grid.RowCount()),
      headerRows_(static_cast<int>(grid.Header().RowCount())),
      headerHeight_(std::max(Scaled(grid.GetRowHeight(0), scroll.zoom), headerRows_ * measures.headerLineHeight)),
      rowHeaderWidth_(measures.rowHeaderWidth) {
    PlaceColumns(scroll);
    PlaceRows(scroll.topRow);
}

void GridGeometry::PlaceColumns(const GridScroll& scroll) {
    const int frozen = grid_.Columns().Frozen();
    int x = rowHeaderWidth_;
    scrolledLeft_ = x;
    scroll_ = scroll.left;
    for (int number = 1; number <= grid_.GetColCount(); ++number) {
        if (grid_.IsColumnHidden(number)) continue;
        Column column;
        column.number = number;
        column.size = Scaled(grid_.GetColWidth(number), zoom_);
        column.frozen = number <= frozen;
        column.start = column.frozen ? x : x - scroll.left;
        x += column.size;
        if (column.frozen) scrolledLeft_ = x;
        columns_.push_back(column);
    }
    scrolledWidth_ = x - scrolledLeft_;
}

void GridGeometry::PlaceRows(int topRow) {
    int y = headerHeight_;
    for (int row = std::max(topRow, 1); row <= rowCount_ && y < window_.height(); ++row) {
        rows_.push_back({row, y, RowHeight(row)});
        y += rows_.back().size;
    }
}

int GridGeometry::HeaderRowTop(int headerRow) const { return headerHeight_ * headerRow / headerRows_; }

QRect GridGeometry::CellArea() const {
    return {rowHeaderWidth_, headerHeight_, window_.width() - rowHeaderWidth_, window_.height() - headerHeight_};
}

QRect GridGeometry::ScrolledArea() const {
    return {scrolledLeft_, headerHeight_, window_.width() - scrolledLeft_, window_.height() - headerHeight_};
}

const GridGeometry::Column* GridGeometry::ColumnOf(int number) const {
    const auto found = std::lower_bound(columns_.begin(), columns_.end(), number,
                                        [](const Column& column, int n) { return column.number < n; });
    return found == columns_.end() || found->number != number ? nullptr : &*found;
}

const GridBand* GridGeometry::RowOf(int number) const {
    if (rows_.empty() || number < rows_.front().number || number > rows_.back().number) return nullptr;
    return &rows_[static_cast<std::size_t>(number - rows_.front().number)];
}

QRect GridGeometry::CellRect(int row, int col) const {
    const Column* column = ColumnOf(col);
    const GridBand* band = RowOf(row);
    return column && band ? QRect(column->start, band->start, column->size, band->size) : QRect();
}

QRect GridGeometry::RangeRect(const velda::PositionRange& range) const {
    if (rows_.empty()) return {};
    const GridBand* first = RowOf(std::max(range.top, rows_.front().number));
    const GridBand* last = RowOf(std::min(range.bottom, rows_.back().number));
    if (!first || !last || first->number > last->number) return {};
    QRect rect;
    for (const Column& column : columns_) {
        if (column.number < range.left || column.number > range.right) continue;
        rect |= QRect(column.start, first->start, column.size, last->End() - first->start);
    }
    return rect;
}

GridGeometry::Hit GridGeometry::At(QPoint point) const {
    if (point.x() < 0 || point.y() < 0) return {};
    const bool inHeader = point.y() < headerHeight_;
    if (point.x() < rowHeaderWidth_) {
        if (inHeader) return {Part::Corner, {}};
        const GridBand* row = BandAt(rows_, point.y());
        return row ? Hit{Part::RowHeader, {row->number, 0}} : Hit{};
    }
    // Frozen columns come first and cover what is scrolled beneath them.
    const Column* column = BandAt(columns_, point.x());
    if (!column) return {};
    if (inHeader) return {Part::ColumnHeader, {0, column->number}};
    const GridBand* row = BandAt(rows_, point.y());
    return row ? Hit{Part::Cell, {row->number, column->number}} : Hit{};
}

velda::GridPosition GridGeometry::Nearest(QPoint point) const {
    if (rows_.empty() || columns_.empty()) return {};
    velda::GridPosition position{rows_.front().number, columns_.front().number};
    for (const GridBand& row : rows_) {
        if (row.start <= point.y()) position.row = row.number;
    }
    const Column* under = BandAt(columns_, point.x());
    if (under) return {position.row, under->number};
    for (const Column& column : columns_) {
        if (column.start <= point.x()) position.column = column.number;
    }
    return position;
}

int GridGeometry::EdgeAt(QPoint point) const {
    if (point.y() < 0 || point.y() >= headerHeight_) return 0;
    for (auto column = columns_.rbegin(); column != columns_.rend(); ++column) {
        const bool covered = !column->frozen && column->End() <= scrolledLeft_;
        if (!covered && std::abs(point.x() - column->End()) <= kEdgeReach) return column->number;
    }
    return 0;
}

int GridGeometry::DropBefore(int x) const {
    for (const Column& column : columns_) {
        const bool covered = !column.frozen && column.End() <= scrolledLeft_;
        if (!covered && x < column.start + column.size / 2) return column.number;
    }
    return grid_.GetColCount() + 1;
}

int GridGeometry::LargestLeft() const { return std::max(0, scrolledWidth_ - ScrolledArea().width()); }

int GridGeometry::FullRows() const {
    const auto full = std::count_if(rows_.begin(), rows_.end(),
                                    [this](const GridBand& row) { return row.End() <= window_.height(); });
    return std::max(1, static_cast<int>(full));
}

int GridGeometry::TopRowFor(int row) const {
    int left = window_.height() - headerHeight_ - RowHeight(row);
    int top = std::max(row, 1);
    while (top > 1) {
        left -= RowHeight(top - 1);
        if (left < 0) break;
        --top;
    }
    return top;
}

int GridGeometry::LeftFor(int col) const {
    const Column* column = ColumnOf(col);
    if (!column || column->frozen) return scroll_;
    const int start = column->start + scroll_ - scrolledLeft_;
    const int largest = start;
    const int smallest = start + column->size - ScrolledArea().width();
    return std::min(std::max(scroll_, smallest), largest);
}

int GridGeometry::LeftOf(int col) const {
    const auto first = std::find_if(columns_.begin(), columns_.end(),
                                    [col](const Column& column) { return !column.frozen && column.number >= col; });
    return first == columns_.end() ? scroll_ : first->start + scroll_ - scrolledLeft_;
}

int GridGeometry::FirstScrolledColumn() const {
    const auto first = std::find_if(columns_.begin(), columns_.end(), [this](const Column& column) {
        return !column.frozen && column.End() > scrolledLeft_;
    });
    return first == columns_.end() ? 0 : first->number;
}

}  // namespace zt
