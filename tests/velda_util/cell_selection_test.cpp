#include "velda_util/edit/cell_selection.h"

#include "velda_util/navigation_double.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velda {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(CurrentCell, FollowsItsRowAndColumn) {
    GridDouble grid({"xxx", "xxx", "xxx"});
    CurrentCell current;
    current.Set(grid, {2, 3});
    EXPECT_EQ(current.Cell(), (CellId{20, 2}));
    grid.rows = {20, 5, 10, 30};
    grid.columns = {2, 0, 1};
    EXPECT_EQ(current.Position(grid), (GridPosition{1, 1}));
}

TEST(CurrentCell, TakesThePlaceOfARowThatIsGone) {
    GridDouble grid({"x", "x", "x"});
    CurrentCell current;
    current.Set(grid, {3, 1});
    grid.rows = {10, 20};
    EXPECT_EQ(current.Position(grid), (GridPosition{2, 1}));
    grid.rows = {10, 20, 40, 50};
    EXPECT_EQ(current.Position(grid), (GridPosition{3, 1}));
    grid.rows = {};
    EXPECT_EQ(current.Position(grid), GridPosition{});
}

TEST(CurrentCell, FollowsARecordIntoAnotherRow) {
    GridDouble grid({"x", "x", "x"});
    CurrentCell current;
    current.Set(grid, {1, 1});
    grid.rows = {20, 30, 40};
    current.RowReplaced(20, 30);
    EXPECT_EQ(current.Cell().row, 10u);
    current.RowReplaced(10, 40);
    EXPECT_EQ(current.Position(grid), (GridPosition{3, 1}));
}

TEST(CurrentCell, StaysWhileItsSelectionIsExtended) {
    const GridDouble grid({"xx", "xx"});
    CurrentCell current;
    current.Set(grid, {1, 1});
    EXPECT_FALSE(current.IsExtended());
    current.Extend(grid, {2, 2});
    EXPECT_TRUE(current.IsExtended());
    EXPECT_EQ(current.Position(grid), (GridPosition{1, 1}));
    EXPECT_EQ(current.ExtentPosition(grid), (GridPosition{2, 2}));
    EXPECT_EQ(current.ExtentCell(), (CellId{20, 1}));
    current.Set(grid, {1, 2});
    EXPECT_EQ(current.ExtentPosition(grid), (GridPosition{1, 2}));
}

TEST(CurrentCell, IsNowhereUntilItIsSet) {
    const GridDouble grid({"x"});
    CurrentCell current;
    EXPECT_EQ(current.Position(grid), GridPosition{});
    current.Set(grid, {1, 1});
    current.Clear();
    EXPECT_EQ(current.Cell(), CellId{});
    EXPECT_EQ(current.Position(grid), GridPosition{});
    current.Set(grid, {});
    EXPECT_EQ(current.Position(grid), GridPosition{});
}

TEST(CellSelection, ARangeIsTheSameFromWhicheverCornerItIsDrawn) {
    EXPECT_EQ(PositionRange::Of({3, 1}, {1, 2}), (PositionRange{1, 1, 3, 2}));
    EXPECT_EQ(PositionRange::Of({1, 2}, {3, 1}), (PositionRange{1, 1, 3, 2}));
}

TEST(CellSelection, HoldsCellsRowsAndColumns) {
    CellSelection selection;
    EXPECT_TRUE(selection.IsEmpty());
    selection.Select(PositionRange::Of({2, 2}, {3, 3}));
    EXPECT_TRUE(selection.Contains({3, 2}));
    EXPECT_FALSE(selection.Contains({1, 2}));
    selection.Add(PositionRange::Columns(5, 5));
    EXPECT_TRUE(selection.Contains({999, 5}));
    selection.Select(PositionRange::Rows(4, 6));
    EXPECT_TRUE(selection.Contains({5, 999}));
    EXPECT_FALSE(selection.Contains({3, 2}));
    selection.Clear();
    EXPECT_TRUE(selection.IsEmpty());
}

TEST(CellSelection, KnowsWhetherItIsOfWholeRows) {
    CellSelection selection;
    EXPECT_FALSE(selection.IsOfRows());
    selection.Select(PositionRange::Rows(1, 2));
    EXPECT_TRUE(selection.IsOfRows());
    selection.Add(PositionRange::Of({5, 1}, {5, 1}));
    EXPECT_FALSE(selection.IsOfRows());
    selection.Select(PositionRange::All());
    EXPECT_TRUE(selection.IsOfRows());
    EXPECT_TRUE(selection.Ranges().front().HoldsWholeColumns());
}

TEST(CellSelection, DraggingReplacesTheLastRange) {
    CellSelection selection;
    selection.ReplaceLast(PositionRange::Of({1, 1}, {1, 1}));
    selection.Add(PositionRange::Of({3, 1}, {3, 1}));
    selection.ReplaceLast(PositionRange::Of({3, 1}, {4, 1}));
    EXPECT_THAT(selection.Ranges(), ElementsAre(PositionRange{1, 1, 1, 1}, PositionRange{3, 1, 4, 1}));
}

TEST(CellSelection, SpansAreSortedJoinedAndCutToTheTable) {
    const GridDouble grid({"xx", "xx", "xx", "xx", "xx", "xx"});
    CellSelection selection;
    selection.Add(PositionRange::Rows(5, 99));
    selection.Add(PositionRange::Rows(1, 2));
    selection.Add(PositionRange::Rows(2, 2));
    selection.Add(PositionRange::Rows(3, 3));
    selection.Add(PositionRange::Rows(50, 60));
    EXPECT_THAT(selection.WholeRows(grid), ElementsAre(PositionSpan{1, 3}, PositionSpan{5, 6}));
    EXPECT_THAT(selection.TouchedColumns(grid), ElementsAre(PositionSpan{1, 2}));
}

TEST(CellSelection, CellsTouchRowsButDoNotSelectThem) {
    const GridDouble grid({"xx", "xx", "xx"});
    CellSelection selection;
    selection.Select(PositionRange::Of({1, 1}, {2, 2}));
    selection.Add(PositionRange::Rows(3, 3));
    EXPECT_THAT(selection.WholeRowIds(grid), ElementsAre(30u));
    EXPECT_THAT(selection.TouchedRowIds(grid), ElementsAre(10u, 20u, 30u));
}

TEST(CellSelection, TheAppendRowIsNoRecord) {
    GridDouble grid({"x", "x", "."});
    grid.appendRow = true;
    CellSelection selection;
    selection.Select(PositionRange::All());
    EXPECT_THAT(selection.WholeRows(grid), ElementsAre(PositionSpan{1, 3}));
    EXPECT_THAT(selection.WholeRowIds(grid), ElementsAre(10u, 20u));
    selection.Select(PositionRange::Rows(3, 3));
    EXPECT_THAT(selection.WholeRowIds(grid), IsEmpty());
}

TEST(CellSelection, RowsAreSelectedAnewByTheirIds) {
    GridDouble grid({"x", "x", "x", "x"});
    grid.rows = {40, 10, 30, 20};
    CellSelection selection;
    selection.SelectRows(grid, std::vector<RowId>{20, 30, 99, 40});
    EXPECT_THAT(selection.Ranges(), ElementsAre(PositionRange::Rows(1, 1), PositionRange::Rows(3, 4)));
    EXPECT_THAT(selection.WholeRowIds(grid), ElementsAre(40u, 30u, 20u));
    selection.SelectRows(grid, {});
    EXPECT_TRUE(selection.IsEmpty());
}

TEST(CellSelection, AnEmptyTableHasNoSelectedRows) {
    const GridDouble grid({});
    CellSelection selection;
    selection.Select(PositionRange::All());
    EXPECT_THAT(selection.WholeRowIds(grid), IsEmpty());
    EXPECT_THAT(selection.TouchedColumns(grid), IsEmpty());
}

}  // namespace
}  // namespace velda
