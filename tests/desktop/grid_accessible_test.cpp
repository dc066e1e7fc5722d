#include <QAccessible>

#include "desktop/grid_fixture.h"

namespace zt {
namespace {

class GridAccessibility : public GridFixture {
protected:
    QAccessibleInterface* Interface() { return QAccessible::queryAccessibleInterface(&widget); }
    QAccessibleTableInterface* Table() { return Interface()->tableInterface(); }
};

TEST_F(GridAccessibility, TellsTrueCountsOfRowsAndShownColumns) {
    ASSERT_NE(nullptr, Table());
    EXPECT_EQ(QAccessible::Table, Interface()->role());
    EXPECT_EQ(50, Table()->rowCount());
    EXPECT_EQ(5, Table()->columnCount());
    grid.SetColHidden(2, true);
    EXPECT_EQ(4, Table()->columnCount());
    EXPECT_EQ("Measure (mm)", Table()->columnDescription(1));
}

TEST_F(GridAccessibility, TellsTextsOfCellsAndHeaders) {
    QAccessibleInterface* cell = Table()->cellAt(1, 2);
    ASSERT_NE(nullptr, cell);
    EXPECT_EQ("12.50", cell->text(QAccessible::Name));
    EXPECT_EQ(QAccessible::Cell, cell->role());
    QAccessibleTableCellInterface* place = cell->tableCellInterface();
    ASSERT_NE(nullptr, place);
    EXPECT_EQ(1, place->rowIndex());
    EXPECT_EQ(2, place->columnIndex());
    EXPECT_EQ("Measure (mm)", place->columnHeaderCells().first()->text(QAccessible::Name));
    EXPECT_EQ("2", place->rowHeaderCells().first()->text(QAccessible::Name));
}

TEST_F(GridAccessibility, TellsTheCurrentCellAndTheSelection) {
    EXPECT_TRUE(Table()->cellAt(0, 1)->state().focused);
    EXPECT_FALSE(Table()->cellAt(1, 1)->state().focused);
    EXPECT_EQ(Table()->cellAt(0, 1), Interface()->focusChild());
    grid.SelectRange(velda::PositionRange::Rows(2, 3));
    EXPECT_EQ((QList<int>{1, 2}), Table()->selectedRows());
    EXPECT_EQ(2, Table()->selectedRowCount());
    EXPECT_TRUE(Table()->cellAt(1, 4)->state().selected);
    EXPECT_FALSE(Table()->cellAt(4, 4)->state().selected);
    EXPECT_TRUE(Table()->selectColumn(2));
    EXPECT_TRUE(Table()->isColumnSelected(2));
}

TEST_F(GridAccessibility, TellsWhatCanBeEdited) {
    grid.SetReadOnly(2, ExampleGrid::kName, true);
    grid.SetEnable(3, ExampleGrid::kName, false);
    EXPECT_TRUE(Table()->cellAt(0, 1)->state().editable);
    EXPECT_TRUE(Table()->cellAt(1, 1)->state().readOnly);
    EXPECT_TRUE(Table()->cellAt(2, 1)->state().disabled);
}

TEST_F(GridAccessibility, FindsTheCellUnderAPoint) {
    const QPoint point = widget.viewport()->mapToGlobal(Middle(3, ExampleGrid::kName));
    QAccessibleInterface* cell = Interface()->childAt(point.x(), point.y());
    EXPECT_EQ(Table()->cellAt(2, 1), cell);
    EXPECT_TRUE(cell->rect().contains(point));
    EXPECT_EQ(cell, Interface()->child(Interface()->indexOfChild(cell)));
}

TEST_F(GridAccessibility, HasNoCellOutsideOfTheTable) {
    EXPECT_EQ(nullptr, Table()->cellAt(50, 0));
    EXPECT_EQ(nullptr, Table()->cellAt(-1, 0));
    EXPECT_EQ(nullptr, Table()->cellAt(0, 5));
}

TEST_F(GridAccessibility, KeepsNoObjectForEachRow) {
    ExampleGrid large(100000);
    widget.SetGrid(&large);
    large.asked = 0;
    EXPECT_EQ(100000, Table()->rowCount());
    EXPECT_EQ(0, large.asked);
    for (int row = 0; row < 2000; ++row) ASSERT_NE(nullptr, Table()->cellAt(row, 1));
    EXPECT_EQ("100000", Table()->cellAt(99999, 0)->text(QAccessible::Name));
    widget.SetGrid(nullptr);
    EXPECT_EQ(0, Table()->rowCount());
}

}  // namespace
}  // namespace zt
