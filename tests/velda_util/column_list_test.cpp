#include "velda_util/columns/column_list.h"

#include <gtest/gtest.h>

namespace velda {
namespace {

class Columns : public testing::Test {
protected:
    Columns() {
        columns.AddColInfo("Key", ColumnType::Long, 0);
        columns.AddColInfo("Name", ColumnType::String, 0);
        columns.AddColInfo("Size", ColumnType::Double, 2);
        columns.AddColInfo("Size", ColumnType::Double, 2);
    }
    int NumberOf(int id) const {
        int number = -1;
        columns.GetColumnNoFor(id, number);
        return number;
    }
    ColumnList columns;
};

TEST_F(Columns, IdentifiersCountFromZeroAndGridColumnsFromOne) {
    EXPECT_EQ(columns.Count(), 4);
    EXPECT_EQ(NumberOf(0), 1);
    EXPECT_EQ(NumberOf(3), 4);
    int id = -1;
    EXPECT_TRUE(columns.GetColumnIDFor(2, id));
    EXPECT_EQ(id, 1);
    EXPECT_EQ(columns.Types()[2], ColumnType::Double);
    EXPECT_EQ(columns.Info(2).unitCode, 2);
}

TEST_F(Columns, WhatDoesNotExistIsNotFoundAndLeavesTheOutputAlone) {
    int found = 77;
    EXPECT_FALSE(columns.GetColumnNoFor(4, found));
    EXPECT_FALSE(columns.GetColumnNoFor(-1, found));
    EXPECT_FALSE(columns.GetColumnNoFor("none", found));
    EXPECT_FALSE(columns.GetColumnIDFor(0, found));
    EXPECT_FALSE(columns.GetColumnIDFor(5, found));
    EXPECT_EQ(found, 77);
    EXPECT_THROW((void)columns.Info(4), std::out_of_range);
}

TEST_F(Columns, AMovedColumnKeepsItsIdentifier) {
    EXPECT_TRUE(columns.Move(1, 4));
    EXPECT_EQ(columns.Order(), (std::vector<int>{1, 2, 0, 3}));
    EXPECT_EQ(NumberOf(0), 3);
    EXPECT_TRUE(columns.Move(4, 1));
    EXPECT_EQ(columns.Order(), (std::vector<int>{3, 1, 2, 0}));
    EXPECT_EQ(columns.ColumnMap(), (std::vector<int>{4, 2, 3, 1}));
    EXPECT_TRUE(columns.Move(1, 5));
    EXPECT_EQ(columns.Order(), (std::vector<int>{1, 2, 0, 3}));
    EXPECT_FALSE(columns.Move(0, 2));
    EXPECT_FALSE(columns.Move(1, 6));
}

TEST_F(Columns, OfSeveralColumnsWithOneTitleTheFirstDeclaredCounts) {
    columns.Move(4, 1);
    int number = 0;
    EXPECT_TRUE(columns.GetColumnNoFor("Size", number));
    EXPECT_EQ(number, NumberOf(2));
}

TEST_F(Columns, AnOrderThatDoesNotFitIsDropped) {
    EXPECT_FALSE(columns.SetOrder({0, 1, 2}));
    EXPECT_FALSE(columns.SetOrder({0, 1, 2, 2}));
    EXPECT_FALSE(columns.SetOrder({0, 1, 2, 9}));
    EXPECT_EQ(NumberOf(3), 4);
    EXPECT_TRUE(columns.SetOrder({3, 2, 1, 0}));
    EXPECT_EQ(NumberOf(3), 1);
}

TEST_F(Columns, WhatIsHiddenByIntendStaysHiddenForTheUser) {
    columns.HideColsByIntend(1, 1, true);
    EXPECT_TRUE(columns.IsHiddenByIntend(1));
    EXPECT_TRUE(columns.IsHidden(0));
    columns.SetHidden(0, false);
    EXPECT_TRUE(columns.IsHidden(0));
    columns.SetHidden(1, true);
    EXPECT_TRUE(columns.IsHidden(1));
    EXPECT_FALSE(columns.IsHiddenByIntend(2));
    columns.Move(1, 4);
    EXPECT_TRUE(columns.IsHiddenByIntend(3));
    columns.HideColsByIntend(-5, 99, false);
    EXPECT_FALSE(columns.IsHidden(0));
    EXPECT_TRUE(columns.IsHidden(1));
    EXPECT_FALSE(columns.IsHiddenByIntend(9));
}

TEST_F(Columns, WidthsStayWithinReason) {
    columns.SetWidth(1, 120);
    EXPECT_EQ(columns.Width(1), 120);
    columns.SetWidth(1, -3);
    EXPECT_EQ(columns.Width(1), 0);
    columns.SetWidth(1, 1 << 30);
    EXPECT_EQ(columns.Width(1), ColumnList::kLargestWidth);
    columns.SetLocked(1, true);
    EXPECT_TRUE(columns.IsLocked(1));
    columns.SetFrozen(-2);
    EXPECT_EQ(columns.Frozen(), 0);
}

}  // namespace
}  // namespace velda
