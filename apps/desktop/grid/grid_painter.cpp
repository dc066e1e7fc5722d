#include "desktop/grid/grid_painter.h"

#include <QPainterPath>
#include <QStyle>
#include <algorithm>
#include <cmath>

#include "desktop/grid/alignment.h"
#include "desktop/grid/cell_picture.h"
#include "desktop/grid/qt_text.h"
#include "velda_util/style/display_text.h"

namespace zt {
namespace {

using velda::ControlKind;

bool SpansColumn(const velda::PositionRange& range, int col) { return range.left <= col && col <= range.right; }
bool SpansRow(const velda::PositionRange& range, int row) { return range.top <= row && row <= range.bottom; }

}  // namespace

GridPainter::GridPainter(QPainter& painter, const velda::CTBGrid& grid, const GridGeometry& geometry,
                         const GridColors& colors, const QFont& font, double zoom)
    : painter_(painter),
      grid_(grid),
      browser_(dynamic_cast<const velda::CTBBrowserWnd*>(&grid)),
      geometry_(geometry),
      colors_(colors),
      font_(font),
      zoom_(zoom) {
    grid.GetCurrentCell(current_.row, current_.column);
    const double scale = painter.device()->devicePixelRatioF();
    lineWidth_ = std::max(1.0, std::floor(scale)) / scale;
}

QFont GridPainter::CellFont(const QFont& base, const velda::CGXStyle& style, double zoom) {
    QFont font = base;
    font.setPointSizeF(style.GetFontSize() * zoom);
    font.setBold(style.GetBold());
    return font;
}

QRect GridPainter::BoxRect(const QRect& cell, const velda::CGXStyle& style, double zoom) {
    const int side = std::min(BoxSide(zoom), cell.height() - 2);
    const int top = cell.top() + (cell.height() - side) / 2;
    const bool hasCaption = style.GetControl() == ControlKind::CaptionCheckBox;
    const int left = hasCaption ? cell.left() + Padding(zoom) : cell.left() + (cell.width() - side) / 2;
    return {left, top, side, side};
}

QRect GridPainter::ArrowRect(const QRect& cell, double zoom) {
    const int width = std::min(ArrowWidth(zoom), cell.width());
    return {cell.right() - width, cell.top(), width, cell.height() - 1};
}

void GridPainter::Paint(const QRect& dirty, const DragMark& drag) {
    painter_.setRenderHint(QPainter::Antialiasing, false);
    PaintGround(dirty);
    PaintCells(false, dirty);
    PaintCells(true, dirty);
    PaintCurrent();
    PaintHeader();
    PaintRowHeader();
    if (drag.dropBefore > 0) PaintDrop(drag.dropBefore);
}

/// What lies behind the last row and the last column; cells fill themselves.
void GridPainter::PaintGround(const QRect& dirty) {
    const int right = geometry_.Columns().empty() ? 0 : geometry_.Columns().back().End();
    const int bottom = geometry_.Rows().empty() ? 0 : geometry_.Rows().back().End();
    const QRect cells(QPoint(0, 0), QPoint(right - 1, bottom - 1));
    for (const QRect& rest : QRegion(dirty).subtracted(cells)) {
        painter_.fillRect(rest, colors_.dark ? colors_.base : colors_.readOnly);
    }
}

// ---- cells ----

void GridPainter::PaintCells(bool frozen, const QRect& dirty) {
    QRect area = geometry_.CellArea();
    if (frozen) {
        area.setRight(geometry_.ScrolledLeft() - 1);
    } else {
        area = geometry_.ScrolledArea();
    }
    area &= dirty;
    if (area.isEmpty()) return;
    ClipTo(area);
    for (const GridGeometry::Column& column : geometry_.Columns()) {
        if (column.frozen != frozen || column.End() <= area.left() || column.start > area.right()) continue;
        for (const GridBand& row : geometry_.Rows()) {
            if (row.End() <= area.top() || row.start > area.bottom()) continue;
            PaintCell(row.number, column.number, {column.start, row.start, column.size, row.size});
        }
    }
    painter_.restore();
}

bool GridPainter::MergedRect(Cell& cell) const {
    const auto merged =
        grid_.CoveredCells().Find(static_cast<std::uint32_t>(cell.row), static_cast<std::uint32_t>(cell.col));
    if (!merged) return true;
    const velda::PositionRange range{static_cast<int>(merged->Top()), static_cast<int>(merged->Left()),
                                     static_cast<int>(merged->Bottom()), static_cast<int>(merged->Right())};
    const int firstRow = std::max(range.top, geometry_.Rows().front().number);
    const QRect rect = geometry_.RangeRect(range);
    // Drawn with its first column that is in sight, so that it does not vanish with its first column.
    const auto isFirst = [&](const GridGeometry::Column& column) {
        return SpansColumn(range, column.number) && (column.frozen || column.End() > geometry_.ScrolledLeft());
    };
    const auto first = std::find_if(geometry_.Columns().begin(), geometry_.Columns().end(), isFirst);
    if (cell.row != firstRow || first == geometry_.Columns().end() || first->number != cell.col) return false;
    cell = {range.top, range.left, rect};
    return true;
}

QColor GridPainter::BackgroundOf(int row, const velda::CGXStyle& style, bool enabled) const {
    if (browser_ && browser_->Session().IsRowOpen() && browser_->Session().Row() == grid_.RowIdAt(row)) {
        return colors_.rowInEdit;
    }
    if (style.IncludeInterior()) return colors_.InteriorOf(style.GetInterior());
    if (!enabled) return colors_.disabled;
    return style.GetReadOnly() ? colors_.readOnly : colors_.base;
}

QColor GridPainter::TextColorOf(const velda::CGXStyle& style, bool enabled, const QColor& background) const {
    if (style.IncludeTextColor()) return GridColors::Readable(GridColors::OfStyle(style.GetTextColor()), background);
    if (!enabled) return GridColors::Readable(colors_.disabledText, background);
    return style.IncludeInterior() ? GridColors::TextOn(background) : colors_.text;
}

void GridPainter::PaintCell(int row, int col, const QRect& rect) {
    Cell cell{row, col, rect};
    if (!MergedRect(cell)) return;
    const bool enabled = grid_.IsEnabled(cell.row, cell.col);
    const velda::CGXStyle& style = grid_.StyleOf(cell.row, cell.col);
    const QColor background = BackgroundOf(cell.row, style, enabled);
    painter_.fillRect(cell.rect, background);
    const bool isCurrent = current_ == velda::GridPosition{cell.row, cell.col};
    if (!isCurrent && grid_.Selected().Contains({cell.row, cell.col})) painter_.fillRect(cell.rect, colors_.selection);
    PaintLines(cell.rect, colors_.line);
    PaintContent(cell, style, TextColorOf(style, enabled, background));
    if (FindingOf(grid_.RowIdAt(cell.row), grid_.ColumnIdAt(cell.col))) PaintCorner(cell.rect);
}

void GridPainter::PaintContent(const Cell& cell, const velda::CGXStyle& style, const QColor& text) {
    const QString shown = ToQt(velda::DisplayText(grid_.GetValueRowCol(cell.row, cell.col), style));
    const int pad = Padding(zoom_);
    QRect inner = cell.rect.adjusted(pad, 1, -pad - 1, -2);
    painter_.setPen(text);
    if (style.IsCheckBox()) {
        const QRect box = BoxRect(cell.rect, style, zoom_);
        PaintBox(box, shown == QLatin1String("1"), text);
        if (style.GetControl() == ControlKind::CheckBox) return;
        inner.setLeft(box.right() + 1 + pad);
        PaintText(ToQt(style.GetChoiceList()).section(QLatin1Char('\n'), 0, 0), inner, style);
        return;
    }
    if (style.GetControl() == ControlKind::PictureButton) inner.setLeft(PaintPicture(inner, style, text));
    if (style.HasList() && current_ == velda::GridPosition{cell.row, cell.col} && !style.GetReadOnly()) {
        const QRect arrow = ArrowRect(cell.rect, zoom_);
        PaintArrow(arrow, text);
        inner.setRight(arrow.left() - 1);
    }
    if (!shown.isEmpty()) PaintText(shown, inner, style);
}

int GridPainter::PaintPicture(const QRect& rect, const velda::CGXStyle& style, const QColor& ink) {
    const velda::CGXEditBtn* control = grid_.Controls().FindPicture(style.GetPicture());
    if (!control) return rect.left();
    const int side = std::min(rect.height(), rect.width());
    const QRect square(rect.left(), rect.top() + (rect.height() - side) / 2, side, side);
    DrawCellPicture(painter_, square, control->PictureSvg(), ink);
    // What was saved and restored before has its own font.
    usedFontSize_ = 0.0;
    return square.right() + 1 + Padding(zoom_);
}

void GridPainter::ClipTo(const QRect& area) {
    painter_.save();
    painter_.setClipRect(area);
    // What was restored before has its own font.
    usedFontSize_ = 0.0;
}

void GridPainter::UseFont(const velda::CGXStyle& style) {
    if (usedFontSize_ == style.GetFontSize() && usedBold_ == style.GetBold()) return;
    usedFontSize_ = style.GetFontSize();
    usedBold_ = style.GetBold();
    const QFont font = CellFont(font_, style, zoom_);
    painter_.setFont(font);
    if (numbersFontSize_ == usedFontSize_ && numbersBold_ == usedBold_) return;
    numbers_ = NumberFont(font);
    numbersFontSize_ = usedFontSize_;
    numbersBold_ = usedBold_;
}

void GridPainter::PaintText(const QString& text, const QRect& rect, const velda::CGXStyle& style) {
    UseFont(style);
    const auto alignment = static_cast<int>(AlignmentOf(style));
    if (style.GetWrapText() || text.contains(QLatin1Char('\n'))) {
        painter_.drawText(rect, alignment | Qt::TextWordWrap, text);
        return;
    }
    const QFontMetrics metrics = painter_.fontMetrics();
    QString fitting = text;
    int width = WidthOf(text);
    if (width > rect.width()) {
        // A number that is cut reads as another number.
        const bool isNumber = style.GetValueType() == velda::ValueType::Numeric && !style.HasList();
        const int signs = std::max(1, rect.width() / std::max(1, metrics.horizontalAdvance(QLatin1Char('#'))));
        fitting = isNumber ? QString(signs, QLatin1Char('#')) : metrics.elidedText(text, Qt::ElideRight, rect.width());
        width = WidthOf(fitting);
    }
    PaintLine(fitting, width, rect, AlignmentOf(style));
}

int GridPainter::WidthOf(const QString& text) const {
    if (numbers_.CanDraw(text)) return static_cast<int>(std::lround(numbers_.Width(text)));
    return painter_.fontMetrics().horizontalAdvance(text);
}

void GridPainter::PaintLine(const QString& text, int width, const QRect& rect, Qt::Alignment alignment) {
    const QFontMetrics metrics = painter_.fontMetrics();
    const QSize size(width, metrics.height());
    if (size.width() > rect.width() || size.height() > rect.height()) {
        // This way cuts the text off at the rectangle, and costs three times as much.
        painter_.drawText(rect, static_cast<int>(alignment) | Qt::TextSingleLine, text);
        return;
    }
    const QPoint place = QStyle::alignedRect(Qt::LeftToRight, alignment, size, rect).topLeft();
    const QPoint base = place + QPoint(0, metrics.ascent());
    if (numbers_.CanDraw(text)) {
        numbers_.Draw(painter_, base, text);
    } else {
        painter_.drawText(base, text);
    }
}

void GridPainter::PaintBox(const QRect& box, bool checked, const QColor& color) {
    painter_.save();
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setPen(QPen(color, 1));
    painter_.drawRoundedRect(QRectF(box).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
    if (checked) {
        const auto at = [&](double x, double y) {
            return QPointF(box.left() + x * box.width(), box.top() + y * box.height());
        };
        painter_.setPen(QPen(color, std::max(1.5, box.width() * 0.14), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const QPointF tick[] = {at(0.23, 0.52), at(0.43, 0.72), at(0.78, 0.29)};
        painter_.drawPolyline(tick, 3);
    }
    painter_.restore();
}

void GridPainter::PaintArrow(const QRect& rect, const QColor& color) {
    painter_.save();
    painter_.setRenderHint(QPainter::Antialiasing);
    const QPointF center = QRectF(rect).center();
    const double half = 3.5 * zoom_;
    painter_.setPen(QPen(color, 1.5 * zoom_, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF arrow[] = {center + QPointF(-half, -half / 2), center + QPointF(0, half / 2),
                             center + QPointF(half, -half / 2)};
    painter_.drawPolyline(arrow, 3);
    painter_.restore();
}

void GridPainter::PaintLines(const QRect& rect, const QColor& color) {
    // Filled, so that a line ends on the same device pixel as the cell at any scale of the screen.
    const double right = rect.right() + 1 - lineWidth_;
    const double bottom = rect.bottom() + 1 - lineWidth_;
    painter_.fillRect(QRectF(right, rect.top(), lineWidth_, rect.height()), color);
    painter_.fillRect(QRectF(rect.left(), bottom, rect.width(), lineWidth_), color);
}

void GridPainter::PaintCorner(const QRect& rect) {
    const int side = GridGeometry::Scaled(7, zoom_);
    QPainterPath corner;
    corner.moveTo(rect.right() - side, rect.top());
    corner.lineTo(rect.right(), rect.top());
    corner.lineTo(rect.right(), rect.top() + side);
    corner.closeSubpath();
    painter_.fillPath(corner, colors_.finding);
}

const velda::EditFinding* GridPainter::FindingOf(velda::RowId row, velda::ColumnId column) const {
    if (!browser_) return nullptr;
    const auto& findings = browser_->Session().Findings();
    const auto found = std::find_if(findings.begin(), findings.end(), [&](const velda::EditFinding& finding) {
        return finding.row == row && finding.column == column;
    });
    return found == findings.end() ? nullptr : &*found;
}

void GridPainter::PaintCurrent() {
    if (!current_.IsValid()) return;
    const GridGeometry::Column* column = geometry_.ColumnOf(current_.column);
    Cell cell{current_.row, current_.column, geometry_.CellRect(current_.row, current_.column)};
    if (!column || cell.rect.isEmpty()) return;
    MergedRect(cell);
    painter_.save();
    painter_.setClipRect(column->frozen ? geometry_.CellArea() : geometry_.ScrolledArea());
    const bool refused = FindingOf(grid_.RowIdAt(cell.row), grid_.ColumnIdAt(cell.col)) != nullptr;
    painter_.setPen(QPen(refused ? colors_.finding : colors_.current, 2, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter_.drawRect(QRectF(cell.rect).adjusted(0, 0, -1, -1));
    painter_.restore();
}

// ---- headers ----

bool GridPainter::IsColumnSelected(int col) const {
    if (current_.column == col) return true;
    const auto& ranges = grid_.Selected().Ranges();
    return std::any_of(ranges.begin(), ranges.end(), [col](const auto& range) { return SpansColumn(range, col); });
}

bool GridPainter::IsRowSelected(int row) const {
    if (current_.row == row) return true;
    const auto& ranges = grid_.Selected().Ranges();
    return std::any_of(ranges.begin(), ranges.end(), [row](const auto& range) { return SpansRow(range, row); });
}

void GridPainter::PaintHeader() {
    const QRect header(0, 0, geometry_.CellArea().right() + 1, geometry_.HeaderHeight());
    painter_.fillRect(header, colors_.header);
    PaintHeaderPart(false);
    PaintHeaderPart(true);
    PaintLines(header, colors_.headerLine);
}

void GridPainter::PaintHeaderPart(bool frozen) {
    std::vector<std::uint32_t> ids;
    std::vector<const GridGeometry::Column*> columns;
    for (const GridGeometry::Column& column : geometry_.Columns()) {
        if (column.frozen != frozen) continue;
        ids.push_back(static_cast<std::uint32_t>(grid_.ColumnIdAt(column.number)));
        columns.push_back(&column);
    }
    if (ids.empty()) return;
    const int left = frozen ? geometry_.RowHeaderWidth() : geometry_.ScrolledLeft();
    const int right = frozen ? geometry_.ScrolledLeft() - 1 : geometry_.CellArea().right();
    ClipTo(QRect(QPoint(left, 0), QPoint(right, geometry_.HeaderHeight() - 1)));
    for (const velda::HeaderSpan& span : grid_.Header().Spans(ids)) {
        const GridGeometry::Column& first = *columns[span.firstPlace];
        const GridGeometry::Column& last = *columns[span.lastPlace];
        const int top = geometry_.HeaderRowTop(static_cast<int>(span.firstRow));
        const int bottom = geometry_.HeaderRowTop(static_cast<int>(span.lastRow) + 1);
        const QRect rect(first.start, top, last.End() - first.start, bottom - top);
        if (rect.right() < left || rect.left() > right) continue;
        const bool selected = span.firstPlace == span.lastPlace && IsColumnSelected(first.number);
        PaintHeaderCell(rect, span, grid_.ColumnIdAt(first.number), selected);
    }
    painter_.restore();
}

void GridPainter::PaintHeaderCell(const QRect& rect, const velda::HeaderSpan& span, velda::ColumnId column,
                                  bool selected) {
    const velda::CGXStyle& style = grid_.Styles().ResolveHeader(span.firstRow, static_cast<std::uint32_t>(column));
    const QColor background = selected ? colors_.headerSelected : colors_.header;
    painter_.fillRect(rect, background);
    PaintLines(rect, colors_.headerLine);
    UseFont(style);
    painter_.setPen(style.IncludeTextColor()
                        ? GridColors::Readable(GridColors::OfStyle(style.GetTextColor()), background)
                        : GridColors::Readable(colors_.headerText, background));
    const int pad = Padding(zoom_) / 2;
    painter_.drawText(rect.adjusted(pad, 0, -pad - 1, -1), Qt::AlignCenter | Qt::TextWordWrap, ToQt(span.text));
}

void GridPainter::PaintRowHeader() {
    const int width = geometry_.RowHeaderWidth();
    const QRect area(0, geometry_.HeaderHeight(), width, geometry_.CellArea().height());
    painter_.fillRect(area, colors_.header);
    ClipTo(area);
    const velda::CGXStyle& style = grid_.Styles().StandardStyle();
    const int pad = Padding(zoom_);
    const velda::RowId open = browser_ ? browser_->Session().Row() : velda::kNoRow;
    for (const GridBand& row : geometry_.Rows()) {
        const QRect rect(0, row.start, width, row.size);
        const bool selected = IsRowSelected(row.number);
        const QColor background = selected ? colors_.headerSelected : colors_.header;
        if (selected) painter_.fillRect(rect, background);
        PaintLines(rect, colors_.headerLine);
        UseFont(style);
        painter_.setPen(GridColors::Readable(colors_.headerText, background));
        const velda::RowId id = grid_.RowIdAt(row.number);
        const bool appends = grid_.HasAppendRow() && row.number == grid_.RowCount();
        const QString text = appends ? QStringLiteral("*") : QString::number(row.number);
        PaintLine(text, WidthOf(text), rect.adjusted(0, 1, -pad - 1, -2), Qt::AlignRight | Qt::AlignVCenter);
        if (open != velda::kNoRow && id == open) PaintPencil(rect);
        if (FindingOf(id, velda::kNoColumn)) PaintCorner(rect);
    }
    painter_.restore();
    PaintLines({0, 0, width, geometry_.HeaderHeight()}, colors_.headerLine);
    PaintLines({0, 0, width, area.bottom() + 1}, colors_.headerLine);
}

void GridPainter::PaintPencil(const QRect& rect) {
    painter_.save();
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.translate(rect.left() + Padding(zoom_), rect.top() + rect.height() / 2.0);
    painter_.scale(zoom_, zoom_);
    painter_.rotate(-45);
    const QColor color = painter_.pen().color();
    painter_.setPen(QPen(color, 1.2));
    const QPointF body[] = {{0, 0}, {3, -2}, {11, -2}, {11, 2}, {3, 2}};
    painter_.translate(-1, 4);
    painter_.drawPolygon(body, 5);
    painter_.drawLine(QPointF(9, -2), QPointF(9, 2));
    painter_.restore();
}

void GridPainter::PaintDrop(int before) {
    int x = geometry_.RowHeaderWidth();
    for (const GridGeometry::Column& column : geometry_.Columns()) {
        if (column.number < before) x = column.End();
    }
    painter_.fillRect(QRect(x - 2, 0, 3, geometry_.CellArea().bottom()), colors_.current);
}

}  // namespace zt
