#pragma once

#include <QFont>
#include <QPainter>

#include "velda_util/grid/tb_grid.h"

namespace zt {

/// Draws pages of a table on paper: always light, with the letters, colours and alignment of the cells. The painter's
/// units are pixels of its device; lengths of a page are points.
class PagePainter {
public:
    PagePainter(QPainter& painter, const velda::CTBGrid& grid, double fontSize);

    void Paint(const velda::PrintedPage& page);

    /// Width in points of a text as it is printed.
    static double TextWidth(std::string_view text, double fontSize, bool bold);

private:
    QRectF Scaled(double left, double top, double width, double height) const;
    /// A rectangle of cells, as far as it is on the page.
    QRectF CellsRect(const velda::PositionRange& cells) const;
    void PaintHeader();
    void PaintCells();
    void PaintCell(int row, int col, const QRectF& rect);
    void PaintBox(const QRectF& cell, bool checked);
    void PaintText(const QString& text, const QRectF& rect, const velda::CGXStyle& style);
    void PaintLine(const velda::PrintedText& line, bool bold);
    void Frame(const QRectF& rect);
    void UseFont(bool bold);

    QPainter& painter_;
    const velda::CTBGrid& grid_;
    const velda::PrintedPage* page_ = nullptr;
    double fontSize_;
    double scaleX_;  ///< pixels of a point
    double scaleY_;
};

}  // namespace zt
