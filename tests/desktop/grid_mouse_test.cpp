#include "desktop/grid/grid_painter.h"
#include "desktop/grid_fixture.h"

namespace zt {
namespace {

using velda::PositionRange;
using Pair = std::pair<int, int>;

class GridMouseActions : public GridFixture {};

TEST_F(GridMouseActions, AClickMakesACellTheCurrentOne) {
    Click(Middle(3, ExampleGrid::kMeasure));
    EXPECT_EQ(Pair(3, ExampleGrid::kMeasure), Current());
}

TEST_F(GridMouseActions, AClickElsewhereAcceptsTheEditor) {
    Type("new");
    Click(Middle(3, ExampleGrid::kMeasure));
    EXPECT_EQ(nullptr, Editor());
    EXPECT_EQ(1, grid.written);
}

TEST_F(GridMouseActions, AClickDoesNotLeaveACellWhoseTextIsRefused) {
    Type("bad");
    Click(Middle(3, ExampleGrid::kMeasure));
    EXPECT_EQ(Pair(1, ExampleGrid::kName), Current());
    EXPECT_NE(nullptr, Editor());
}

TEST_F(GridMouseActions, ADoubleClickEdits) {
    DoubleClick(Middle(2, ExampleGrid::kName));
    EXPECT_EQ(velda::EditState::InPlace, grid.Session().State());
    ASSERT_NE(nullptr, Editor());
    EXPECT_EQ("name", Editor()->text());
}

TEST_F(GridMouseActions, ADragSelectsCells) {
    Drag(Middle(2, ExampleGrid::kName), Middle(4, ExampleGrid::kMeasure));
    EXPECT_EQ((PositionRange{2, 2, 4, 3}), grid.CommandRange());
    EXPECT_EQ(Pair(2, ExampleGrid::kName), Current());
}

TEST_F(GridMouseActions, ShiftExtendsToTheClickedCell) {
    Click(Middle(2, ExampleGrid::kName));
    Click(Middle(5, ExampleGrid::kCheck), Qt::ShiftModifier);
    EXPECT_EQ((PositionRange{2, 2, 5, 4}), grid.CommandRange());
}

TEST_F(GridMouseActions, CtrlAddsTheClickedCell) {
    Click(Middle(2, ExampleGrid::kName));
    Click(Middle(5, ExampleGrid::kCheck), Qt::ControlModifier);
    EXPECT_TRUE(grid.Selected().Contains({2, ExampleGrid::kName}));
    EXPECT_TRUE(grid.Selected().Contains({5, ExampleGrid::kCheck}));
    EXPECT_FALSE(grid.Selected().Contains({3, ExampleGrid::kName}));
}

TEST_F(GridMouseActions, ARowHeaderSelectsRows) {
    Click(RowTitle(3));
    EXPECT_EQ(std::vector{PositionRange::Rows(3, 3)}, grid.Selected().Ranges());
    Click(RowTitle(5), Qt::ShiftModifier);
    EXPECT_EQ(std::vector{PositionRange::Rows(3, 5)}, grid.Selected().Ranges());
    Click(RowTitle(8), Qt::ControlModifier);
    EXPECT_EQ((std::vector{PositionRange::Rows(3, 5), PositionRange::Rows(8, 8)}), grid.Selected().Ranges());
}

TEST_F(GridMouseActions, AColumnHeaderSelectsColumns) {
    Click(Title(2));
    EXPECT_EQ(std::vector{PositionRange::Columns(2, 2)}, grid.Selected().Ranges());
    Click(Title(4), Qt::ControlModifier);
    EXPECT_EQ((std::vector{PositionRange::Columns(2, 2), PositionRange::Columns(4, 4)}), grid.Selected().Ranges());
    Click(Title(3), Qt::ShiftModifier);
    EXPECT_EQ(std::vector{PositionRange::Columns(2, 3)}, grid.Selected().Ranges()) << "from the current column";
}

TEST_F(GridMouseActions, TheCornerSelectsAll) {
    Click({5, 5});
    EXPECT_EQ(std::vector{PositionRange::All()}, grid.Selected().Ranges());
}

TEST_F(GridMouseActions, ADragOfAnEdgeResizesTheColumn) {
    const int width = grid.GetColWidth(2);
    Drag(Edge(2), Edge(2) + QPoint(30, 0));
    EXPECT_EQ(width + 30, grid.GetColWidth(2));
    Drag(Edge(2), Edge(2) - QPoint(2000, 0));
    EXPECT_GT(grid.GetColWidth(2), 0);
}

TEST_F(GridMouseActions, AnEdgeIsDraggedByTheZoom) {
    widget.SetZoom(2);
    const int width = grid.GetColWidth(2);
    Drag(Edge(2), Edge(2) + QPoint(30, 0));
    EXPECT_EQ(width + 15, grid.GetColWidth(2));
}

TEST_F(GridMouseActions, ADoubleClickOnAnEdgeFitsTheColumn) {
    grid.SetColWidth(2, 300);
    widget.Refresh();
    DoubleClick(Edge(2));
    EXPECT_LT(grid.GetColWidth(2), 80);
    EXPECT_GT(grid.GetColWidth(2), 20);
}

TEST_F(GridMouseActions, ADragOfATitleMovesTheColumn) {
    const velda::ColumnId moved = grid.ColumnIdAt(2);
    Drag(Title(2), Title(5));
    EXPECT_EQ(4, grid.PositionOfColumn(moved));
    EXPECT_EQ(std::vector{PositionRange::Columns(4, 4)}, grid.Selected().Ranges());
}

TEST_F(GridMouseActions, AColumnThatIsLetGoWhereItWasStays) {
    const velda::ColumnId moved = grid.ColumnIdAt(2);
    Drag(Title(2), Title(2) + QPoint(30, 0));
    EXPECT_EQ(2, grid.PositionOfColumn(moved));
}

TEST_F(GridMouseActions, AClickOnACheckBoxTogglesIt) {
    const QRect cell = widget.Geometry().CellRect(2, ExampleGrid::kCheck);
    Click(cell.topLeft() + QPoint(3, 3));
    EXPECT_EQ("0", grid.GetValueRowCol(2, ExampleGrid::kCheck)) << "beside the box";
    Click(cell.center());
    EXPECT_EQ("1", grid.GetValueRowCol(2, ExampleGrid::kCheck));
}

TEST_F(GridMouseActions, TheArrowOpensTheListAndAClickChooses) {
    At(2, ExampleGrid::kSupport);
    Click(GridPainter::ArrowRect(widget.Geometry().CellRect(2, ExampleGrid::kSupport), 1).center());
    ASSERT_NE(nullptr, List());
    const QRect first = List()->visualRect(List()->model()->index(0, 0));
    QTest::mouseClick(List()->viewport(), Qt::LeftButton, {}, first.center());
    EXPECT_EQ(nullptr, List());
    EXPECT_EQ("1", grid.GetValueRowCol(2, ExampleGrid::kSupport));
}

TEST_F(GridMouseActions, FlagsAreSetByClicksInTheirCheckList) {
    grid.SetColumnStyle(
        ExampleGrid::kName,
        velda::CGXStyle().SetControl(velda::ControlKind::CheckListComboBox).SetChoiceList("\nDx\nDy\nDz"));
    At(2, ExampleGrid::kName);
    Type("100");
    Click(GridPainter::ArrowRect(widget.Geometry().CellRect(2, ExampleGrid::kName), 1).center());
    ASSERT_NE(nullptr, List());
    EXPECT_TRUE(List()->isRowHidden(0)) << "the line that makes them flags";
    const auto click = [this](int line) {
        const QRect place = List()->visualRect(List()->model()->index(line, 0));
        QTest::mouseClick(List()->viewport(), Qt::LeftButton, {}, place.center());
    };
    click(3);
    EXPECT_EQ("101", grid.Session().EditorText());
    click(1);
    EXPECT_EQ("001", grid.Session().EditorText());
    Key(Qt::Key_Return);
    EXPECT_EQ("001", grid.GetValueRowCol(2, ExampleGrid::kName));
}

TEST_F(GridMouseActions, AClickOnADisabledCellMovesNothing) {
    grid.SetEnable(3, ExampleGrid::kName, false);
    Click(Middle(3, ExampleGrid::kName));
    EXPECT_EQ(Pair(1, ExampleGrid::kName), Current());
}

TEST_F(GridMouseActions, TheWheelScrollsAndWithCtrlItZooms) {
    const auto turn = [this](Qt::KeyboardModifiers held) {
        QWheelEvent event(QPointF(100, 100), widget.mapToGlobal(QPointF(100, 100)), {}, {0, -120}, {}, held,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(widget.viewport(), &event);
    };
    turn({});
    EXPECT_EQ(4, widget.Geometry().Rows().front().number);
    turn(Qt::ControlModifier);
    EXPECT_NEAR(0.9, widget.Zoom(), 1e-9);
    EXPECT_EQ(18, widget.Geometry().Rows().front().size);
}

TEST_F(GridMouseActions, FrozenColumnsStayWhenTheTableIsScrolled) {
    grid.SetFrozenCols(1);
    grid.SetColWidth(3, 900);
    At(1, ExampleGrid::kSupport);
    const GridGeometry geometry = widget.Geometry();
    EXPECT_EQ(geometry.RowHeaderWidth(), geometry.ColumnOf(1)->start);
    EXPECT_LT(geometry.ColumnOf(2)->End(), geometry.ScrolledLeft());
    EXPECT_EQ(1, geometry.At({geometry.RowHeaderWidth() + 5, 50}).position.column);
    EXPECT_LE(geometry.ColumnOf(ExampleGrid::kSupport)->End(), geometry.ScrolledArea().right() + 1);
}

TEST_F(GridMouseActions, TheTableFindsItsCellsWhereTheWindowShowsThem) {
    const auto at = [this](QPoint point) { return grid.CellUnder({point.x(), point.y()}); };
    grid.SetColWidth(3, 900);
    widget.SetZoom(2);
    widget.ScrollBy(4, 60);
    EXPECT_EQ((velda::GridPosition{7, 2}), at(Middle(7, 2)));
    EXPECT_EQ((velda::GridPosition{0, 2}), at(Title(2)));
    EXPECT_EQ(std::nullopt, at(RowTitle(7)));
    EXPECT_EQ(std::nullopt, at({-1, 50}));
}

TEST_F(GridMouseActions, AKeyColumnThatIsUnlockedComesInSightInTheSameRows) {
    grid.SetColWidth(3, 900);
    grid.SetColLocked(1, true);
    widget.Refresh();
    widget.ScrollBy(4, 200);
    ASSERT_LT(widget.Geometry().ColumnOf(2)->start, widget.Geometry().ScrolledLeft());
    grid.SetColLocked(1, false);
    widget.Refresh();
    const GridGeometry geometry = widget.Geometry();
    EXPECT_EQ(geometry.RowHeaderWidth(), geometry.ColumnOf(1)->start);
    EXPECT_EQ(5, geometry.Rows().front().number);
}

TEST_F(GridMouseActions, TheTableKnowsWhereItIsScrolledTo) {
    grid.SetColWidth(3, 900);
    widget.Refresh();
    widget.ScrollBy(4, widget.Geometry().ColumnOf(2)->start - widget.Geometry().RowHeaderWidth());
    EXPECT_EQ((velda::GridPosition{5, 2}), grid.TopLeft());
    grid.SetTopLeft({9, 1});
    widget.Refresh();
    EXPECT_EQ(9, widget.Geometry().Rows().front().number);
    EXPECT_EQ(widget.Geometry().RowHeaderWidth(), widget.Geometry().ColumnOf(1)->start);
}

TEST_F(GridMouseActions, HiddenColumnsTakeNoPlace) {
    grid.SetColHidden(2, true);
    const GridGeometry geometry = widget.Geometry();
    EXPECT_EQ(nullptr, geometry.ColumnOf(2));
    EXPECT_EQ(geometry.ColumnOf(1)->End(), geometry.ColumnOf(3)->start);
}

}  // namespace
}  // namespace zt
