#include "velda_util/edit/navigation.h"

#include <limits>

#include "velda_util/navigation_double.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velda {
namespace {

using Step = NavigationStep;

GridPosition Go(const GridDouble& grid, GridPosition from, Step step) { return Navigate(grid, from, step); }

// Signs of a cell: x text, . empty, # disabled and empty, D disabled with text.

TEST(Navigation, ArrowsGoToTheNeighbourThatCanBeEntered) {
    const GridDouble grid({"xx#x",  //
                           "x#xx",  //
                           "xxxx"});
    EXPECT_EQ(Go(grid, {1, 1}, Step::Right), (GridPosition{1, 2}));
    EXPECT_EQ(Go(grid, {1, 2}, Step::Right), (GridPosition{1, 4}));
    EXPECT_EQ(Go(grid, {1, 4}, Step::Right), (GridPosition{1, 4}));
    EXPECT_EQ(Go(grid, {1, 2}, Step::Down), (GridPosition{3, 2}));
    EXPECT_EQ(Go(grid, {2, 3}, Step::Up), (GridPosition{2, 3}));
    EXPECT_EQ(Go(grid, {1, 4}, Step::Left), (GridPosition{1, 2}));
}

TEST(Navigation, HiddenColumnsArePassedOver) {
    GridDouble grid({"xxxx", "xxxx"});
    grid.hidden = {1, 3};
    EXPECT_EQ(Go(grid, {1, 2}, Step::Right), (GridPosition{1, 4}));
    EXPECT_EQ(Go(grid, {1, 2}, Step::Left), (GridPosition{1, 2}));
    EXPECT_EQ(Go(grid, {1, 4}, Step::Next), (GridPosition{2, 2}));
    EXPECT_EQ(Go(grid, {1, 4}, Step::RowStart), (GridPosition{1, 2}));
    EXPECT_EQ(ExtendTo(grid, {1, 2}, Step::Right), (GridPosition{1, 4}));
    EXPECT_EQ(ExtendTo(grid, {1, 4}, Step::RowStart), (GridPosition{1, 2}));
}

TEST(Navigation, NextWrapsToTheRowsBelowAndStopsAtTheLastCell) {
    const GridDouble grid({"x#",  //
                           "##",  //
                           "#x"});
    EXPECT_EQ(Go(grid, {1, 1}, Step::Next), (GridPosition{3, 2}));
    EXPECT_EQ(Go(grid, {3, 2}, Step::Next), (GridPosition{3, 2}));
    EXPECT_EQ(Go(grid, {3, 2}, Step::Previous), (GridPosition{1, 1}));
    EXPECT_EQ(Go(grid, {1, 1}, Step::Previous), (GridPosition{1, 1}));
}

TEST(Navigation, NextReachesTheAppendRow) {
    GridDouble grid({"xx", ".."});
    grid.appendRow = true;
    EXPECT_EQ(Go(grid, {1, 2}, Step::Next), (GridPosition{2, 1}));
    EXPECT_EQ(Go(grid, {1, 1}, Step::TableEnd), (GridPosition{2, 2}));
    EXPECT_EQ(EnterDown(grid, {1, 2}, 1), (GridPosition{2, 1}));
}

TEST(Navigation, HomeAndEndGoToTheEndsOfTheRowThatCanBeEntered) {
    const GridDouble grid({"#xxx#"});
    EXPECT_EQ(Go(grid, {1, 3}, Step::RowStart), (GridPosition{1, 2}));
    EXPECT_EQ(Go(grid, {1, 3}, Step::RowEnd), (GridPosition{1, 4}));
}

TEST(Navigation, TheTableBeginsAndEndsWhereItCanBeEntered) {
    const GridDouble grid({"##", "#x", "x#", "##"});
    EXPECT_EQ(Go(grid, {3, 1}, Step::TableStart), (GridPosition{2, 2}));
    EXPECT_EQ(Go(grid, {2, 2}, Step::TableEnd), (GridPosition{3, 1}));
}

TEST(Navigation, APageStopsAtTheEndsOfTheTable) {
    GridDouble grid({"x", "x", "x", "x", "x", "x", "x"});
    grid.pageRows = 3;
    EXPECT_EQ(Go(grid, {1, 1}, Step::PageDown), (GridPosition{4, 1}));
    EXPECT_EQ(Go(grid, {6, 1}, Step::PageDown), (GridPosition{7, 1}));
    EXPECT_EQ(Go(grid, {7, 1}, Step::PageDown), (GridPosition{7, 1}));
    EXPECT_EQ(Go(grid, {2, 1}, Step::PageUp), (GridPosition{1, 1}));
    grid.pageRows = 0;
    EXPECT_EQ(Go(grid, {2, 1}, Step::PageDown), (GridPosition{3, 1}));
    grid.pageRows = std::numeric_limits<int>::max();
    EXPECT_EQ(Go(grid, {2, 1}, Step::PageDown), (GridPosition{7, 1}));
    EXPECT_EQ(Go(grid, {7, 1}, Step::PageUp), (GridPosition{1, 1}));
}

TEST(Navigation, APageThatEndsInADisabledCellGoesToTheNearestOther) {
    GridDouble grid({"x", "x", "x", "#", "x"});
    grid.pageRows = 3;
    EXPECT_EQ(Go(grid, {1, 1}, Step::PageDown), (GridPosition{3, 1}));
    EXPECT_EQ(Go(grid, {3, 1}, Step::PageDown), (GridPosition{5, 1}));
    const GridDouble barred({"x", "#", "#", "#", "x"});
    EXPECT_EQ(Go(barred, {1, 1}, Step::PageDown), (GridPosition{5, 1}));
}

TEST(Navigation, EdgesFollowRunsOfTexts) {
    const GridDouble grid({"xxx..x.."});
    EXPECT_EQ(Go(grid, {1, 1}, Step::EdgeRight), (GridPosition{1, 3}));
    EXPECT_EQ(Go(grid, {1, 3}, Step::EdgeRight), (GridPosition{1, 6}));
    EXPECT_EQ(Go(grid, {1, 6}, Step::EdgeRight), (GridPosition{1, 8}));
    EXPECT_EQ(Go(grid, {1, 8}, Step::EdgeRight), (GridPosition{1, 8}));
    EXPECT_EQ(Go(grid, {1, 8}, Step::EdgeLeft), (GridPosition{1, 6}));
    EXPECT_EQ(Go(grid, {1, 4}, Step::EdgeLeft), (GridPosition{1, 3}));
    EXPECT_EQ(Go(grid, {1, 3}, Step::EdgeLeft), (GridPosition{1, 1}));
}

TEST(Navigation, EdgesFollowColumnsToo) {
    const GridDouble grid({"x", "x", ".", "x"});
    EXPECT_EQ(Go(grid, {1, 1}, Step::EdgeDown), (GridPosition{2, 1}));
    EXPECT_EQ(Go(grid, {2, 1}, Step::EdgeDown), (GridPosition{4, 1}));
    EXPECT_EQ(Go(grid, {4, 1}, Step::EdgeUp), (GridPosition{2, 1}));
}

TEST(Navigation, AnEdgeThatCannotBeEnteredIsApproached) {
    const GridDouble grid({"xxDD", "xDDD"});
    EXPECT_EQ(Go(grid, {1, 1}, Step::EdgeRight), (GridPosition{1, 2}));
    EXPECT_EQ(Go(grid, {2, 1}, Step::EdgeRight), (GridPosition{2, 1}));
    EXPECT_EQ(ExtendTo(grid, {2, 1}, Step::EdgeRight), (GridPosition{2, 4}));
}

TEST(Navigation, AnEmptyTableHasNoPlace) {
    const GridDouble grid({});
    for (int step = 0; step <= static_cast<int>(Step::Previous); ++step) {
        EXPECT_EQ(Go(grid, {}, static_cast<Step>(step)), GridPosition{});
        EXPECT_EQ(Go(grid, {1, 1}, static_cast<Step>(step)), GridPosition{});
        EXPECT_EQ(ExtendTo(grid, {1, 1}, static_cast<Step>(step)), GridPosition{});
    }
    EXPECT_EQ(EnterDown(grid, {}, 1), GridPosition{});
}

TEST(Navigation, ASingleCellKeepsTheCurrentCell) {
    const GridDouble grid({"x"});
    for (int step = 0; step <= static_cast<int>(Step::Previous); ++step) {
        EXPECT_EQ(Go(grid, {1, 1}, static_cast<Step>(step)), (GridPosition{1, 1}));
        EXPECT_EQ(ExtendTo(grid, {1, 1}, static_cast<Step>(step)), (GridPosition{1, 1}));
        EXPECT_EQ(Go(grid, {}, static_cast<Step>(step)), (GridPosition{1, 1}));
    }
    EXPECT_EQ(EnterDown(grid, {1, 1}, 1), (GridPosition{1, 1}));
}

TEST(Navigation, ATableInWhichEverythingIsDisabledKeepsTheCurrentCell) {
    const GridDouble grid({"##", "##"});
    for (int step = 0; step <= static_cast<int>(Step::Previous); ++step) {
        EXPECT_EQ(Go(grid, {1, 2}, static_cast<Step>(step)), (GridPosition{1, 2}));
        EXPECT_EQ(Go(grid, {}, static_cast<Step>(step)), GridPosition{});
    }
    EXPECT_EQ(EnterDown(grid, {1, 2}, 1), (GridPosition{1, 2}));
}

TEST(Navigation, ATableWithEveryColumnHiddenKeepsTheCurrentCell) {
    GridDouble grid({"xx", "xx"});
    grid.hidden = {1, 2};
    for (int step = 0; step <= static_cast<int>(Step::Previous); ++step) {
        EXPECT_EQ(Go(grid, {1, 2}, static_cast<Step>(step)), (GridPosition{1, 2}));
    }
    EXPECT_EQ(Go(grid, {}, Step::Next), GridPosition{});
}

TEST(Navigation, AnExtensionReachesDisabledCells) {
    const GridDouble grid({"x#", "##"});
    EXPECT_EQ(ExtendTo(grid, {1, 1}, Step::Right), (GridPosition{1, 2}));
    EXPECT_EQ(ExtendTo(grid, {1, 1}, Step::Down), (GridPosition{2, 1}));
    EXPECT_EQ(ExtendTo(grid, {1, 1}, Step::TableEnd), (GridPosition{2, 2}));
    EXPECT_EQ(ExtendTo(grid, {2, 2}, Step::TableStart), (GridPosition{1, 1}));
    EXPECT_EQ(ExtendTo(grid, {1, 1}, Step::RowEnd), (GridPosition{1, 2}));
    EXPECT_EQ(ExtendTo(grid, {1, 1}, Step::PageDown), (GridPosition{2, 1}));
    EXPECT_EQ(ExtendTo(grid, {1, 1}, Step::Next), (GridPosition{1, 1}));
}

TEST(Navigation, EnterGoesDownInTheColumnWhereTheEntryBegan) {
    const GridDouble grid({"xxx", "#xx", "xxx"});
    EXPECT_EQ(EnterDown(grid, {1, 3}, 2), (GridPosition{2, 2}));
    EXPECT_EQ(EnterDown(grid, {1, 3}, 1), (GridPosition{3, 1}));
    EXPECT_EQ(EnterDown(grid, {3, 3}, 2), (GridPosition{3, 2}));
}

TEST(Navigation, EnterStaysInItsColumnWhenTheFirstOneIsHidden) {
    GridDouble grid({"xxx", "xxx"});
    grid.hidden = {1};
    EXPECT_EQ(EnterDown(grid, {1, 3}, 1), (GridPosition{2, 3}));
    EXPECT_EQ(EnterDown(grid, {1, 3}, 0), (GridPosition{2, 3}));
}

TEST(RowEntry, RemembersTheFirstColumnOfItsRow) {
    RowEntry entry;
    entry.Begin({5, 2});
    entry.MovedTo({5, 3});
    entry.Begin({5, 3});
    EXPECT_EQ(entry.End({5, 4}), 2);
    EXPECT_EQ(entry.End({5, 4}), 4);
}

TEST(RowEntry, ForgetsWhenTheCurrentCellGoesToAnotherRow) {
    RowEntry entry;
    entry.Begin({5, 2});
    entry.MovedTo({6, 3});
    entry.MovedTo({5, 3});
    EXPECT_EQ(entry.End({5, 3}), 3);
    entry.Begin({5, 2});
    entry.Begin({6, 4});
    EXPECT_EQ(entry.End({6, 1}), 4);
}

}  // namespace
}  // namespace velda
