#include "desktop/print/page_painter.h"

#include <QApplication>
#include <algorithm>

#include "desktop/grid/alignment.h"
#include "desktop/grid/grid_colors.h"
#include "desktop/grid/grid_painter.h"
#include "desktop/grid/qt_text.h"
#include "velda_util/style/display_text.h"

namespace zt {
namespace {

constexpr double kPointsPerInch = 72.0;
constexpr double kPadding = 2.5;    ///< points beside a text
constexpr double kLeading = 1.5;    ///< points above and below it
constexpr double kLineWidth = 0.4;  ///< points
const QColor kLineColor(0x80, 0x80, 0x80);
const QColor kHeaderColor(0xEE, 0xEE, 0xEE);

}  // namespace

PagePainter::PagePainter(QPainter& painter, const velda::CTBGrid& grid, double fontSize)
    : painter_(painter),
      grid_(grid),
      fontSize_(fontSize),
      scaleX_(painter.device()->logicalDpiX() / kPointsPerInch),
      scaleY_(painter.device()->logicalDpiY() / kPointsPerInch) {}

double PagePainter::TextWidth(std::string_view text, double fontSize, bool bold) {
    // Measured large, so that the steps of pixels do not count.
    constexpr int kMeasured = 256;
    QFont font = QApplication::font();
    font.setPixelSize(kMeasured);
    font.setBold(bold);
    return QFontMetricsF(font).horizontalAdvance(ToQt(text)) * fontSize / kMeasured;
}

QRectF PagePainter::Scaled(double left, double top, double width, double height) const {
    return {left * scaleX_, top * scaleY_, width * scaleX_, height * scaleY_};
}

void PagePainter::UseFont(bool bold) {
    QFont font = QApplication::font();
    font.setPointSizeF(fontSize_);
    font.setBold(bold);
    painter_.setFont(font);
}

void PagePainter::Paint(const velda::PrintedPage& page) {
    page_ = &page;
    painter_.setPen(Qt::black);
    for (std::size_t line = 0; line < page.titles.size(); ++line) PaintLine(page.titles[line], line == 0);
    PaintCells();
    PaintHeader();
    painter_.setPen(Qt::black);
    PaintLine(page.pageNumber, false);
}

void PagePainter::PaintLine(const velda::PrintedText& line, bool bold) {
    UseFont(bold);
    const double ascent = painter_.fontMetrics().ascent();
    painter_.drawText(QPointF(line.x * scaleX_, line.y * scaleY_ + ascent), ToQt(line.text));
}

QRectF PagePainter::CellsRect(const velda::PositionRange& cells) const {
    QRectF rect;
    for (const velda::PrintedBand& col : page_->columns) {
        if (col.index < cells.left || col.index > cells.right) continue;
        for (const velda::PrintedBand& row : page_->rows) {
            if (row.index < cells.top || row.index > cells.bottom) continue;
            rect |= Scaled(col.at, row.at, col.size, row.size);
        }
    }
    return rect;
}

void PagePainter::PaintCells() {
    for (const velda::PrintedBand& row : page_->rows) {
        if (row.index == 0) continue;
        int mergedUpTo = 0;  // columns of this row that a merged cell covers already
        for (const velda::PrintedBand& col : page_->columns) {
            const auto merged =
                grid_.CoveredCells().Find(static_cast<std::uint32_t>(row.index), static_cast<std::uint32_t>(col.index));
            if (!merged) {
                PaintCell(row.index, col.index, Scaled(col.at, row.at, col.size, row.size));
                continue;
            }
            const velda::PositionRange cells{static_cast<int>(merged->Top()), static_cast<int>(merged->Left()),
                                             static_cast<int>(merged->Bottom()), static_cast<int>(merged->Right())};
            // Drawn with the first of its rows and columns that are on the page.
            const bool isFirstRow = row.index == std::max(cells.top, page_->rows[1].index);
            if (!isFirstRow || col.index <= mergedUpTo) continue;
            mergedUpTo = cells.right;
            PaintCell(cells.top, cells.left, CellsRect(cells));
        }
    }
}

void PagePainter::Frame(const QRectF& rect) {
    painter_.setPen(QPen(kLineColor, kLineWidth * scaleX_));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawRect(rect);
}

void PagePainter::PaintCell(int row, int col, const QRectF& rect) {
    const velda::CGXStyle& style = grid_.StyleOf(row, col);
    QColor background = Qt::white;
    if (style.IncludeInterior()) {
        background = GridColors::OfStyle(style.GetInterior());
        painter_.fillRect(rect, background);
    }
    Frame(rect);
    const QColor color =
        style.IncludeTextColor() ? GridColors::OfStyle(style.GetTextColor()) : GridColors::TextOn(background);
    painter_.setPen(color);
    const QString text = ToQt(velda::DisplayText(grid_.GetValueRowCol(row, col), style));
    const double pad = kPadding * scaleX_;
    QRectF inner = rect.adjusted(pad, kLeading * scaleY_, -pad, -kLeading * scaleY_);
    if (!style.IsCheckBox()) {
        PaintText(text, inner, style);
        return;
    }
    const double side = std::min(fontSize_ * scaleY_, rect.height());
    const bool hasCaption = style.GetControl() == velda::ControlKind::CaptionCheckBox;
    const double left = hasCaption ? inner.left() : rect.center().x() - side / 2;
    PaintBox({left, rect.center().y() - side / 2, side, side}, text == QLatin1String("1"));
    if (!hasCaption) return;
    inner.setLeft(left + side + pad);
    painter_.setPen(color);
    PaintText(ToQt(style.GetChoiceList()).section(QLatin1Char('\n'), 0, 0), inner, style);
}

void PagePainter::PaintBox(const QRectF& box, bool checked) {
    Frame(box);
    if (!checked) return;
    const auto at = [&](double x, double y) {
        return QPointF(box.left() + x * box.width(), box.top() + y * box.height());
    };
    painter_.setPen(QPen(Qt::black, 2 * kLineWidth * scaleX_));
    const QPointF tick[] = {at(0.23, 0.52), at(0.43, 0.72), at(0.78, 0.29)};
    painter_.drawPolyline(tick, 3);
}

void PagePainter::PaintText(const QString& text, const QRectF& rect, const velda::CGXStyle& style) {
    if (text.isEmpty()) return;
    UseFont(style.GetBold());
    const auto alignment = static_cast<int>(AlignmentOf(style));
    painter_.save();
    painter_.setClipRect(rect, Qt::IntersectClip);
    if (style.GetWrapText() || text.contains(QLatin1Char('\n'))) {
        painter_.drawText(rect, alignment | Qt::TextWordWrap, text);
    } else {
        const QFontMetrics metrics = painter_.fontMetrics();
        const bool isNumber = style.GetValueType() == velda::ValueType::Numeric && !style.HasList();
        const int room = static_cast<int>(rect.width());
        const bool fits = metrics.horizontalAdvance(text) <= room;
        // A number that is cut reads as another number.
        const int signs = std::max(1, room / std::max(1, metrics.horizontalAdvance(QLatin1Char('#'))));
        painter_.drawText(rect, alignment | Qt::TextSingleLine,
                          fits       ? text
                          : isNumber ? QString(signs, QLatin1Char('#'))
                                     : metrics.elidedText(text, Qt::ElideRight, room));
    }
    painter_.restore();
}

void PagePainter::PaintHeader() {
    std::vector<std::uint32_t> ids;
    for (const velda::PrintedBand& col : page_->columns) {
        ids.push_back(static_cast<std::uint32_t>(grid_.ColumnIdAt(col.index)));
    }
    const velda::PrintedBand& band = page_->rows.front();
    const double lineHeight = band.size / std::max(1U, grid_.Header().RowCount());
    for (const velda::HeaderSpan& span : grid_.Header().Spans(ids)) {
        const velda::PrintedBand& first = page_->columns[span.firstPlace];
        const velda::PrintedBand& last = page_->columns[span.lastPlace];
        const QRectF rect = Scaled(first.at, band.at + span.firstRow * lineHeight, last.at + last.size - first.at,
                                   (span.lastRow - span.firstRow + 1) * lineHeight);
        painter_.fillRect(rect, kHeaderColor);
        Frame(rect);
        painter_.setPen(Qt::black);
        UseFont(true);
        painter_.drawText(rect.adjusted(kPadding * scaleX_ / 2, 0, -kPadding * scaleX_ / 2, 0),
                          Qt::AlignCenter | Qt::TextWordWrap, ToQt(span.text));
    }
}

}  // namespace zt
