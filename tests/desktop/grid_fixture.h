#pragma once

#include <QSignalSpy>
#include <QTest>

#include "desktop/example_grid.h"
#include "desktop/grid/grid_widget.h"
#include "desktop/mouse_drag.h"
#include <gtest/gtest.h>

namespace zt {

/// A window with an example table of 50 rows.
class GridFixture : public ::testing::Test {
protected:
    void SetUp() override {
        widget.resize(640, 400);
        widget.SetGrid(&grid);
        widget.show();
        QApplication::setActiveWindow(&widget);
        widget.setFocus();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget));
        At(1, ExampleGrid::kName);
    }

    void At(int row, int col) {
        ASSERT_TRUE(grid.SetCurrentCell(row, col));
        widget.Refresh();
    }
    std::pair<int, int> Current() const {
        int row = 0;
        int col = 0;
        grid.GetCurrentCell(row, col);
        return {row, col};
    }
    QPoint Middle(int row, int col) const { return widget.Geometry().CellRect(row, col).center(); }
    QPoint Title(int col) const { return {widget.Geometry().ColumnOf(col)->start + 20, 10}; }
    QPoint Edge(int col) const { return {widget.Geometry().ColumnOf(col)->End(), 10}; }
    QPoint RowTitle(int row) const { return {10, widget.Geometry().RowOf(row)->start + 5}; }

    void Click(QPoint point, Qt::KeyboardModifiers held = {}) {
        QTest::mouseClick(widget.viewport(), Qt::LeftButton, held, point);
    }
    void DoubleClick(QPoint point) { QTest::mouseDClick(widget.viewport(), Qt::LeftButton, {}, point); }
    void Drag(QPoint from, QPoint to) { DragMouse(*widget.viewport(), from, to); }
    void Key(Qt::Key key, Qt::KeyboardModifiers held = {}) { QTest::keyClick(KeyTarget(), key, held); }
    void Type(const char* text) {
        for (; *text; ++text) QTest::keyClick(KeyTarget(), *text);
    }
    /// The window that keys go to: the open editor or the table.
    QWidget* KeyTarget() {
        auto* editor = Editor();
        return editor ? static_cast<QWidget*>(editor) : &widget;
    }
    CellEditor* Editor() {
        auto* editor = widget.findChild<CellEditor*>();
        return editor->isVisible() ? editor : nullptr;
    }
    ChoicePopup* List() {
        auto* list = widget.findChild<ChoicePopup*>();
        return list->isVisible() ? list : nullptr;
    }

    ExampleGrid grid{50};
    GridWidget widget;

private:
};

}  // namespace zt
