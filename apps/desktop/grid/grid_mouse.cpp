#include "desktop/grid/grid_mouse.h"

#include <QApplication>
#include <algorithm>
#include <cmath>

#include "desktop/grid/grid_widget.h"
#include "velda_util/result/tb_core.h"

namespace zt {
namespace {

constexpr int kSmallestWidth = 8;

bool IsIn(const velda::PositionRange& range, int col) {
    return range.HoldsWholeColumns() && range.left <= col && col <= range.right;
}

}  // namespace

void GridMouse::Press(const QMouseEvent& event) {
    if (!widget_.Grid() || event.button() != Qt::LeftButton) return;
    const QPoint point = event.position().toPoint();
    const GridGeometry geometry = widget_.Geometry();
    pressed_ = last_ = point;
    if (const int edge = geometry.EdgeAt(point)) {
        task_ = Task::Resize;
        column_ = edge;
        grip_ = geometry.ColumnOf(edge)->End() - point.x();
        return;
    }
    const GridGeometry::Hit hit = geometry.At(point);
    switch (hit.part) {
        case GridGeometry::Part::Corner: widget_.Grid()->SelectRange(velda::PositionRange::All()); break;
        case GridGeometry::Part::ColumnHeader: PressColumn(hit.position.column, event.modifiers(), point); break;
        case GridGeometry::Part::RowHeader: PressRow(hit.position.row, event.modifiers()); break;
        case GridGeometry::Part::Cell: PressCell(hit.position, event.modifiers(), point); break;
        case GridGeometry::Part::Nothing: break;
    }
    widget_.Refresh();
}

void GridMouse::PressCell(velda::GridPosition cell, Qt::KeyboardModifiers held, QPoint point) {
    velda::CTBGrid& grid = *widget_.Grid();
    if (held & Qt::ShiftModifier) {
        grid.ExtendSelection(cell);
    } else if (held & Qt::ControlModifier) {
        if (grid.Selected().IsEmpty()) grid.SelectRange(grid.CommandRange());
        grid.AddRange(velda::PositionRange::Of(cell, cell));
        return;
    } else {
        if (const auto merged = grid.CoveredCells().Find(static_cast<std::uint32_t>(cell.row),
                                                         static_cast<std::uint32_t>(cell.column))) {
            cell = {static_cast<int>(merged->Top()), static_cast<int>(merged->Left())};
        }
        if (!grid.SetCurrentCell(cell.row, cell.column)) return;
        if (widget_.Browser() && PressControl(cell, point)) return;
        if (auto* results = dynamic_cast<velda::CTBCore*>(&grid)) results->ClickCell(cell.row, cell.column);
    }
    task_ = Task::Cells;
}

bool GridMouse::PressControl(velda::GridPosition cell, QPoint point) {
    velda::CTBBrowserWnd& browser = *widget_.Browser();
    // The row that was left may have moved.
    int row = cell.row;
    int col = cell.column;
    browser.GetCurrentCell(row, col);
    const velda::CGXStyle style = browser.StyleOf(row, col);
    const QRect rect = widget_.Geometry().CellRect(row, col);
    if (style.IsCheckBox()) {
        if (!GridPainter::BoxRect(rect, style, widget_.Zoom()).contains(point)) return false;
        browser.DoCommand(velda::TableCommand::ToggleCheck);
        return true;
    }
    if (style.HasList()) {
        if (style.GetReadOnly() || !GridPainter::ArrowRect(rect, widget_.Zoom()).contains(point)) return false;
        browser.DoCommand(velda::TableCommand::OpenList);
        return true;
    }
    const bool isButton = !style.GetReadOnly() && (style.GetControl() == velda::ControlKind::PushButton ||
                                                   style.GetControl() == velda::ControlKind::PictureButton);
    if (isButton) browser.OnClickedButtonRowCol(row, col);
    return isButton;
}

void GridMouse::PressColumn(int col, Qt::KeyboardModifiers held, QPoint point) {
    velda::CTBGrid& grid = *widget_.Grid();
    int currentRow = 0;
    int anchor = col;
    if (held & Qt::ShiftModifier) grid.GetCurrentCell(currentRow, anchor);
    const velda::PositionRange range =
        velda::PositionRange::Columns(std::min(std::max(anchor, 1), col), std::max(anchor, col));
    if (held & Qt::ControlModifier) {
        grid.AddRange(range);
        return;
    }
    const auto& ranges = grid.Selected().Ranges();
    const bool selected = std::any_of(ranges.begin(), ranges.end(), [col](const auto& r) { return IsIn(r, col); });
    if (!selected || held & Qt::ShiftModifier) grid.SelectRange(range);
    task_ = Task::PressedColumn;
    column_ = col;
    pressed_ = point;
}

void GridMouse::PressRow(int row, Qt::KeyboardModifiers held) {
    velda::CTBGrid& grid = *widget_.Grid();
    if (held & Qt::ControlModifier) {
        grid.AddRange(velda::PositionRange::Rows(row, row));
        return;
    }
    int col = 0;
    if (!(held & Qt::ShiftModifier) || !grid.GetCurrentCell(anchorRow_, col)) {
        const bool entered = grid.SetRightValidCell(row, 1);
        if (!entered && widget_.Browser() && widget_.Browser()->Session().IsRowOpen()) return;
        if (!entered || !grid.GetCurrentCell(anchorRow_, col)) anchorRow_ = row;
        row = anchorRow_;
    }
    SelectRowsTo(row);
    task_ = Task::Rows;
}

void GridMouse::SelectRowsTo(int row) {
    widget_.Grid()->SelectRange(velda::PositionRange::Rows(std::min(anchorRow_, row), std::max(anchorRow_, row)));
}

void GridMouse::Move(const QMouseEvent& event) {
    if (!widget_.Grid()) return;
    last_ = event.position().toPoint();
    if (!(event.buttons() & Qt::LeftButton)) task_ = Task::None;
    switch (task_) {
        case Task::None: ShowCursor(last_); return;
        case Task::Cells:
        case Task::Rows: ExtendTo(last_); break;
        case Task::Resize: ResizeTo(last_); break;
        case Task::PressedColumn:
        case Task::MoveColumn: DragColumn(last_); break;
    }
    widget_.Refresh();
}

void GridMouse::ResizeTo(QPoint point) {
    const GridGeometry geometry = widget_.Geometry();
    const GridGeometry::Column* column = geometry.ColumnOf(column_);
    if (!column) return;
    const double width = (point.x() + grip_ - column->start) / widget_.Zoom();
    widget_.Grid()->SetColWidth(column_, std::max(kSmallestWidth, static_cast<int>(std::lround(width))));
}

void GridMouse::ExtendTo(QPoint point) {
    const velda::GridPosition position = widget_.Geometry().Nearest(point);
    if (!position.IsValid()) return;
    if (task_ == Task::Rows) {
        SelectRowsTo(position.row);
        return;
    }
    const auto& ranges = widget_.Grid()->Selected().Ranges();
    int row = 0;
    int col = 0;
    const bool atStart = widget_.Grid()->GetCurrentCell(row, col) && velda::GridPosition{row, col} == position;
    if (atStart && ranges.empty()) return;
    widget_.Grid()->ExtendSelection(position);
}

void GridMouse::DragColumn(QPoint point) {
    if (!widget_.Grid()->CanMoveCols()) return;
    if (task_ == Task::PressedColumn) {
        if (std::abs(point.x() - pressed_.x()) < QApplication::startDragDistance()) return;
        task_ = Task::MoveColumn;
    }
    dropBefore_ = widget_.Geometry().DropBefore(point.x());
}

void GridMouse::DropColumn() {
    if (dropBefore_ == column_ || dropBefore_ == column_ + 1 || dropBefore_ == 0) return;
    if (!widget_.Grid()->MoveColumn(column_, dropBefore_)) return;
    const int now = dropBefore_ > column_ ? dropBefore_ - 1 : dropBefore_;
    widget_.Grid()->SelectRange(velda::PositionRange::Columns(now, now));
}

void GridMouse::Release(const QMouseEvent& event) {
    if (!widget_.Grid() || event.button() != Qt::LeftButton) return;
    if (task_ == Task::MoveColumn) DropColumn();
    task_ = Task::None;
    dropBefore_ = 0;
    widget_.Refresh();
}

void GridMouse::DoubleClick(const QMouseEvent& event) {
    if (!widget_.Grid() || event.button() != Qt::LeftButton) return;
    const QPoint point = event.position().toPoint();
    const GridGeometry geometry = widget_.Geometry();
    task_ = Task::None;
    if (const int edge = geometry.EdgeAt(point)) {
        widget_.FitColumn(edge);
        return;
    }
    const GridGeometry::Hit hit = geometry.At(point);
    velda::CTBBrowserWnd* browser = widget_.Browser();
    if (!browser || (hit.part != GridGeometry::Part::Cell && hit.part != GridGeometry::Part::RowHeader)) return;
    if (!browser->OnLButtonDblClk(hit.position.row, hit.position.column) && hit.part == GridGeometry::Part::Cell &&
        browser->SetCurrentCell(hit.position.row, hit.position.column)) {
        const velda::CGXStyle& style = browser->StyleOf(hit.position.row, hit.position.column);
        if (style.IsCheckBox()) {
            PressControl(hit.position, point);
        } else {
            browser->DoCommand(velda::TableCommand::EditInPlace);
        }
    }
    widget_.Refresh();
}

void GridMouse::Tick() {
    if (!IsScrolling()) return;
    const QRect area = widget_.Geometry().ScrolledArea();
    const int rows = last_.y() < area.top() ? -1 : last_.y() > area.bottom() ? 1 : 0;
    const int pixels = last_.x() > area.right() ? 20 : last_.x() < area.left() && last_.x() < pressed_.x() ? -20 : 0;
    if (rows == 0 && (pixels == 0 || task_ == Task::Rows)) return;
    widget_.ScrollBy(rows, task_ == Task::Rows ? 0 : pixels);
    ExtendTo(last_);
    widget_.Refresh();
}

void GridMouse::ShowCursor(QPoint point) {
    const bool onEdge = widget_.Geometry().EdgeAt(point) > 0;
    widget_.viewport()->setCursor(onEdge ? Qt::SplitHCursor : Qt::ArrowCursor);
}

}  // namespace zt
