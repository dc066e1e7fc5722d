#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <optional>
#include <vector>

#include "velda_util/grid/gx_grid_core.h"

namespace zt {

/// The part of a table that a window looks at.
struct GridScroll {
    int topRow = 1;     ///< first row below the header
    int left = 0;       ///< pixels that the columns behind the frozen ones are shifted
    double zoom = 1.0;  ///< of widths, heights and letters
};

/// A row or a column as it stands in the window, in logical pixels.
struct GridBand {
    int number = 0;
    int start = 0;
    int size = 0;

    int End() const { return start + size; }
    bool Holds(int at) const { return start <= at && at < End(); }
};

/// Where the cells of a table stand in a window. Looks at all columns, but at no row that is out of sight.
class GridGeometry {
public:
    struct Column : GridBand {
        bool frozen = false;
    };
    /// Sizes that depend on the letters.
    struct Measures {
        int rowHeaderWidth = 0;
        int headerLineHeight = 0;
    };
    enum class Part { Nothing, Corner, ColumnHeader, RowHeader, Cell };
    struct Hit {
        Part part = Part::Nothing;
        velda::GridPosition position{};
    };

    GridGeometry(const velda::CGXGridCore& grid, const GridScroll& scroll, QSize window, Measures measures);

    int HeaderHeight() const { return headerHeight_; }
    int RowHeaderWidth() const { return rowHeaderWidth_; }
    /// Upper end of a header row, counted from 0; that of the row count is the lower end of the header.
    int HeaderRowTop(int headerRow) const;
    /// Where the columns begin that are scrolled.
    int ScrolledLeft() const { return scrolledLeft_; }
    /// Shown columns in their order, those out of sight too.
    const std::vector<Column>& Columns() const { return columns_; }
    /// Rows in sight, the last one perhaps in part.
    const std::vector<GridBand>& Rows() const { return rows_; }
    /// The window right of the row header and below the header, and its part that is scrolled.
    QRect CellArea() const;
    QRect ScrolledArea() const;

    /// Places in the window; empty for a row that is out of sight and for a hidden column.
    QRect CellRect(int row, int col) const;
    /// A rectangle of cells, as far as its rows are in sight.
    QRect RangeRect(const velda::PositionRange& range) const;
    const Column* ColumnOf(int number) const;
    const GridBand* RowOf(int number) const;

    Hit At(QPoint point) const;
    /// The nearest shown column and row in sight; 0 in an empty table.
    velda::GridPosition Nearest(QPoint point) const;
    /// The column whose right edge is under the mouse; 0 for none.
    int EdgeAt(QPoint point) const;
    /// The column before which a column is put that is let go at `x`; one more than the last for the end.
    int DropBefore(int x) const;

    // What the scroll bars need.
    int LargestLeft() const;
    int LargestTopRow() const { return TopRowFor(rowCount_); }
    /// Rows that are wholly in sight.
    int FullRows() const;
    /// The smallest top row that shows a row wholly.
    int TopRowFor(int row) const;
    /// Where the scroll has to stand so that a column is in sight.
    int LeftFor(int col) const;
    /// Where the scroll has to stand so that a column is the first one behind the frozen columns.
    int LeftOf(int col) const;
    /// The first column in sight behind the frozen ones; 0 for none.
    int FirstScrolledColumn() const;

    static int Scaled(int size, double zoom);

private:
    void PlaceColumns(const GridScroll& scroll);
    void PlaceRows(int topRow);
    int RowHeight(int row) const { return Scaled(grid_.GetRowHeight(row), zoom_); }

    const velda::CGXGridCore& grid_;
    double zoom_;
    QSize window_;
    int rowCount_;
    int headerRows_;
    int headerHeight_;
    int rowHeaderWidth_;
    int scrolledLeft_ = 0;
    int scrolledWidth_ = 0;
    int scroll_ = 0;
    std::vector<Column> columns_;
    std::vector<GridBand> rows_;
};

}  // namespace zt
