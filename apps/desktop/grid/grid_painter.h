#pragma once

#include <QFont>
#include <QPainter>
#include <vector>

#include "desktop/grid/grid_colors.h"
#include "desktop/grid/grid_geometry.h"
#include "desktop/grid/number_font.h"
#include "velda_util/grid/tb_browser_wnd.h"

namespace zt {

/// What a drag would do if the mouse were let go now.
struct DragMark {
    int dropBefore = 0;  ///< column before which the dragged one would go; 0 for none
};

/// Draws a table: the cells in sight and nothing else.
class GridPainter {
public:
    GridPainter(QPainter& painter, const velda::CTBGrid& grid, const GridGeometry& geometry, const GridColors& colors,
                const QFont& font, double zoom);

    void Paint(const QRect& dirty, const DragMark& drag);

    /// Side of a check box, and width of the arrow of a choice list.
    static int BoxSide(double zoom) { return GridGeometry::Scaled(13, zoom); }
    static int ArrowWidth(double zoom) { return GridGeometry::Scaled(18, zoom); }
    /// Where the check box of a cell stands.
    static QRect BoxRect(const QRect& cell, const velda::CGXStyle& style, double zoom);
    static QRect ArrowRect(const QRect& cell, double zoom);
    static QFont CellFont(const QFont& base, const velda::CGXStyle& style, double zoom);
    static int Padding(double zoom) { return GridGeometry::Scaled(4, zoom); }

private:
    struct Cell {
        int row;
        int col;
        QRect rect;
    };

    void PaintGround(const QRect& dirty);
    void PaintCells(bool frozen, const QRect& dirty);
    void PaintCell(int row, int col, const QRect& rect);
    /// The merged cell that begins in sight at this cell; none when the cell is covered by one that began before.
    bool MergedRect(Cell& cell) const;
    QColor BackgroundOf(int row, const velda::CGXStyle& style, bool enabled) const;
    QColor TextColorOf(const velda::CGXStyle& style, bool enabled, const QColor& background) const;
    void PaintContent(const Cell& cell, const velda::CGXStyle& style, const QColor& text);
    /// The picture of a control at the left of a cell. Returns where the text begins.
    int PaintPicture(const QRect& rect, const velda::CGXStyle& style, const QColor& ink);
    void PaintText(const QString& text, const QRect& rect, const velda::CGXStyle& style);
    int WidthOf(const QString& text) const;
    /// One line of text of a width that was measured.
    void PaintLine(const QString& text, int width, const QRect& rect, Qt::Alignment alignment);
    void PaintBox(const QRect& box, bool checked, const QColor& color);
    void PaintArrow(const QRect& rect, const QColor& color);
    void PaintLines(const QRect& rect, const QColor& color);
    void PaintCorner(const QRect& rect);
    void PaintCurrent();
    void PaintHeader();
    void PaintHeaderPart(bool frozen);
    void PaintHeaderCell(const QRect& rect, const velda::HeaderSpan& span, velda::ColumnId column, bool selected);
    void PaintRowHeader();
    void PaintPencil(const QRect& rect);
    void PaintDrop(int before);
    const velda::EditFinding* FindingOf(velda::RowId row, velda::ColumnId column) const;
    bool IsColumnSelected(int col) const;
    bool IsRowSelected(int row) const;
    /// Begins drawing within an area; ended by restoring the painter.
    void ClipTo(const QRect& area);
    void UseFont(const velda::CGXStyle& style);

    QPainter& painter_;
    const velda::CTBGrid& grid_;
    const velda::CTBBrowserWnd* browser_;
    const GridGeometry& geometry_;
    const GridColors& colors_;
    QFont font_;
    double zoom_;
    velda::GridPosition current_;
    std::vector<velda::PositionSpan> selectedRows_;
    double lineWidth_ = 1.0;  ///< whole device pixels
    double usedFontSize_ = 0.0;
    bool usedBold_ = false;
    NumberFont numbers_;  ///< of the size and weight below
    double numbersFontSize_ = 0.0;
    bool numbersBold_ = false;
};

}  // namespace zt
