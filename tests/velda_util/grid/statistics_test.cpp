#include "velda_util/grid/selection_statistics.h"
#include "velda_util/support/plate_table.h"

namespace velda {
namespace {

using GridStatistics = PlateTableTest;

TEST_F(GridStatistics, NumbersOfTheSelectedCellsAreSummedUp) {
    SelectCells(1, PlateTable::Name, 3, PlateTable::Thickness);
    const SelectionStatistics told = StatisticsOf(table);
    EXPECT_EQ(told.cells, 6u);
    EXPECT_EQ(told.numbers, 3u) << "names are no numbers";
    EXPECT_DOUBLE_EQ(told.sum, 0.6);
    EXPECT_DOUBLE_EQ(told.Mean(), 0.2);
    EXPECT_EQ(told.minimum, 0.1);
    EXPECT_EQ(told.maximum, 0.3);
}

TEST_F(GridStatistics, ACellInSeveralRangesCountsOnceAndTheAppendRowNotAtAll) {
    const int col = table.Col(PlateTable::Thickness);
    table.SelectRange(PositionRange::Columns(col, col));
    table.AddRange({1, col, 2, col});
    EXPECT_EQ(StatisticsOf(table).cells, 3u);
}

TEST_F(GridStatistics, WithoutASelectionThereIsNothingToTell) {
    table.ClearSelection();
    EXPECT_EQ(StatisticsOf(table).cells, 0u);
    EXPECT_EQ(StatisticsOf(table).Mean(), 0.0);
}

TEST_F(GridStatistics, SmallNumbersAreNotLostBesideLargeOnes) {
    db.Put(1, {10, "A", 1e16, 1, false, ""});
    db.Put(2, {20, "B", 1.0, 1, false, ""});
    db.Put(3, {30, "C", -1e16, 1, false, ""});
    SelectCells(1, PlateTable::Thickness, 3, PlateTable::Thickness);
    EXPECT_EQ(StatisticsOf(table).sum, 1.0);
}

}  // namespace
}  // namespace velda
