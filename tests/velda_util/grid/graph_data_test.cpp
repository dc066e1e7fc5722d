#include "velda_util/grid/graph_data.h"

#include <cmath>

#include "velda_util/support/plate_table.h"
#include <gmock/gmock.h>

namespace velda {
namespace {

using ::testing::ElementsAre;

class GridGraph : public PlateTableTest {
protected:
    T_GRAPH_D data;
};

TEST_F(GridGraph, NumbersAreItemsAndTheFirstTextGivesTheLabels) {
    SelectCells(1, PlateTable::Name, 3, PlateTable::Thickness);
    ASSERT_TRUE(table.GetGraphData(data));
    ASSERT_EQ(data.items.size(), 1u);
    EXPECT_THAT(data.items[0]->values, ElementsAre(0.1, 0.2, 0.3));
    EXPECT_THAT(data.items[0]->name, ::testing::HasSubstr(table.Columns().Info(PlateTable::Thickness).title));
    EXPECT_EQ(data.items[0]->name.find('\n'), std::string::npos);
    EXPECT_THAT(data.labels, ElementsAre("A", "B", "C"));
    EXPECT_THAT(data.labelTitle, ::testing::HasSubstr(table.Columns().Info(PlateTable::Name).title));
}

TEST_F(GridGraph, WithoutATextTheRowsAreNumbered) {
    SelectCells(2, PlateTable::Thickness, 3, PlateTable::Thickness);
    ASSERT_TRUE(table.GetGraphData(data));
    EXPECT_THAT(data.labels, ElementsAre("2", "3"));
    EXPECT_TRUE(data.labelTitle.empty());
}

TEST_F(GridGraph, ARangeWithoutNumbersIsRefusedAndLeavesTheDataAlone) {
    data.labels = {"before"};
    SelectCells(1, PlateTable::Name, 3, PlateTable::Name);
    EXPECT_FALSE(table.GetGraphData(data));
    EXPECT_THAT(data.labels, ElementsAre("before"));
    EXPECT_TRUE(data.items.empty());
}

TEST_F(GridGraph, AnEmptyRangeAndOneOutsideTheTableAreRefused) {
    EXPECT_FALSE(GraphDataOf(table, CGXRange(), data));
    EXPECT_FALSE(GraphDataOf(table, CGXRange(50, 1, 60, 4), data));
    FillWith(0);
    EXPECT_FALSE(GraphDataOf(table, CGXRange().SetTable(), data));
}

TEST_F(GridGraph, WholeColumnsLeaveTheAppendRowOut) {
    const auto col = static_cast<CGXRange::Index>(table.Col(PlateTable::Thickness));
    ASSERT_TRUE(table.HasAppendRow());
    ASSERT_TRUE(GraphDataOf(table, CGXRange().SetCols(col), data));
    EXPECT_EQ(data.labels.size(), 3u);
}

TEST_F(GridGraph, HiddenColumnsAreNotShown) {
    table.SetColHidden(table.Col(PlateTable::Thickness), true);
    SelectCells(1, PlateTable::Number, 3, PlateTable::Name);
    ASSERT_TRUE(GraphDataOf(table, CGXRange().SetRows(1, 2), data));
    for (const auto& item : data.items) EXPECT_EQ(item->name.find("Thickness"), std::string::npos);
}

}  // namespace
}  // namespace velda
