#pragma once

#include <QMouseEvent>

#include "desktop/grid/grid_geometry.h"
#include "desktop/grid/grid_painter.h"

namespace zt {

class GridWidget;

/// What the mouse does in a table. Remembers a drag while it lasts, and nothing else.
class GridMouse {
public:
    explicit GridMouse(GridWidget& widget) : widget_(widget) {}

    void Press(const QMouseEvent& event);
    void Move(const QMouseEvent& event);
    void Release(const QMouseEvent& event);
    void DoubleClick(const QMouseEvent& event);
    /// Scrolls and extends while the mouse is held outside of the cells.
    void Tick();

    bool IsScrolling() const { return task_ == Task::Cells || task_ == Task::Rows; }
    DragMark Mark() const { return {task_ == Task::MoveColumn ? dropBefore_ : 0}; }

private:
    enum class Task { None, Cells, Rows, Resize, PressedColumn, MoveColumn };

    void PressCell(velda::GridPosition cell, Qt::KeyboardModifiers held, QPoint point);
    /// Works the check box, arrow or button under the mouse; false when there is none.
    bool PressControl(velda::GridPosition cell, QPoint point);
    void ResizeTo(QPoint point);
    void PressColumn(int col, Qt::KeyboardModifiers held, QPoint point);
    void PressRow(int row, Qt::KeyboardModifiers held);
    void SelectRowsTo(int row);
    void ExtendTo(QPoint point);
    void DragColumn(QPoint point);
    void DropColumn();
    void ShowCursor(QPoint point);

    GridWidget& widget_;
    Task task_ = Task::None;
    int column_ = 0;  ///< that is resized or moved
    int grip_ = 0;    ///< from the mouse to the right edge of a resized column
    int dropBefore_ = 0;
    int anchorRow_ = 0;
    QPoint pressed_;
    QPoint last_;
};

}  // namespace zt
