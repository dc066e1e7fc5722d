#include "velda_util/clip/paste_plan.h"

#include <stdexcept>

#include "velda_util/clip/clipboard_text.h"
#include "velda_util/plan_test_table.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velda {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct PastePlan : testing::Test, PlanTestTable {
    ChangePlan Paste(const TextBlock& block, const GridSelection& selection) {
        return PlanPaste(block, selection, target, [&](int row, int column) { return Access(row, column); });
    }
    ~PastePlan() override { EXPECT_THAT(askedOutside, IsEmpty()); }
};

TEST_F(PastePlan, ABlockOverwritesRecordsFromTheCurrentCellOn) {
    const ChangePlan plan = Paste({{"a", "b"}, {"c", "d"}}, {.firstRow = 2, .firstColumn = 2});
    EXPECT_THAT(RowsOf(plan),
                ElementsAre(RowView{1, 2, {{11, "a"}, {12, "b"}}}, RowView{2, 3, {{11, "c"}, {12, "d"}}}));
    EXPECT_THAT(plan.refused, IsEmpty());
    EXPECT_THAT(plan.notes, IsEmpty());
}

TEST_F(PastePlan, RowsFromTheAppendRowOnAddRecords) {
    target.appends = true;
    const ChangePlan plan = Paste({{"a"}, {"b"}, {"c"}}, {.firstRow = 3});
    EXPECT_THAT(RowsOf(plan), ElementsAre(RowView{1, 3, {{10, "a"}}}, RowView{2, kNewRow, {{10, "b"}}},
                                          RowView{3, kNewRow, {{10, "c"}}}));
}

TEST_F(PastePlan, APasteOnTheAppendRowAddsAllRows) {
    target.appends = true;
    target.recordCount = 0;
    const ChangePlan plan = Paste({{"1", "a"}, {"2", "b"}}, {.firstRow = 1});
    EXPECT_THAT(RowsOf(plan),
                ElementsAre(RowView{1, kNewRow, {{10, "1"}, {11, "a"}}}, RowView{2, kNewRow, {{10, "2"}, {11, "b"}}}));
}

TEST_F(PastePlan, ATableThatDoesNotAppendRefusesRowsBeyondItsRecords) {
    const ChangePlan plan = Paste({{"a"}, {"b", "x"}, {"c"}}, {.firstRow = 3});
    EXPECT_THAT(RowsOf(plan), ElementsAre(RowView{1, 3, {{10, "a"}}}));
    EXPECT_THAT(plan.refused, ElementsAre(RefusedRow{2, kNewRow, kNoPlanColumn, "b", "IDS_TB_ENGINE_NO_NEW_ROWS"},
                                          RefusedRow{3, kNewRow, kNoPlanColumn, "c", "IDS_TB_ENGINE_NO_NEW_ROWS"}));
}

TEST_F(PastePlan, RowsWithoutTextOverwriteButNeverAdd) {
    target.appends = true;
    const ChangePlan plan = Paste({{"", ""}, {"", ""}, {"c", ""}}, {.firstRow = 3});
    EXPECT_THAT(RowsOf(plan),
                ElementsAre(RowView{1, 3, {{10, ""}, {11, ""}}}, RowView{3, kNewRow, {{10, "c"}, {11, ""}}}));
    EXPECT_THAT(plan.notes, ElementsAre(PlanNote{"IDS_TB_ENGINE_NOTE_EMPTY_ROWS", 1}));
}

TEST_F(PastePlan, OneValueRepeatsIntoTheSelection) {
    const ChangePlan plan = Paste({{"x"}}, {.firstRow = 2, .rowCount = 2, .firstColumn = 1, .columnCount = 2});
    EXPECT_THAT(RowsOf(plan),
                ElementsAre(RowView{1, 2, {{10, "x"}, {11, "x"}}}, RowView{1, 3, {{10, "x"}, {11, "x"}}}));
}

TEST_F(PastePlan, ABlockRepeatsIntoAWholeMultiple) {
    target.recordCount = 4;
    const ChangePlan plan = Paste({{"a"}, {"b"}}, {.firstRow = 1, .rowCount = 4, .firstColumn = 2, .columnCount = 2});
    EXPECT_THAT(RowsOf(plan),
                ElementsAre(RowView{1, 1, {{11, "a"}, {12, "a"}}}, RowView{2, 2, {{11, "b"}, {12, "b"}}},
                            RowView{1, 3, {{11, "a"}, {12, "a"}}}, RowView{2, 4, {{11, "b"}, {12, "b"}}}));
}

TEST_F(PastePlan, ABlockRepeatsDownWhenOneColumnIsSelected) {
    target.recordCount = 4;
    const ChangePlan plan = Paste({{"a", "b"}}, {.firstRow = 1, .rowCount = 2, .firstColumn = 1, .columnCount = 1});
    EXPECT_THAT(RowsOf(plan),
                ElementsAre(RowView{1, 1, {{10, "a"}, {11, "b"}}}, RowView{1, 2, {{10, "a"}, {11, "b"}}}));
}

TEST_F(PastePlan, ABlockIsPastedOnceWhereItDoesNotFitAWholeNumberOfTimes) {
    const ChangePlan rows = Paste({{"a"}, {"b"}}, {.firstRow = 1, .rowCount = 3, .columnCount = 2});
    EXPECT_THAT(RowsOf(rows), ElementsAre(RowView{1, 1, {{10, "a"}}}, RowView{2, 2, {{10, "b"}}}));
    const ChangePlan columns = Paste({{"a", "b"}}, {.firstRow = 1, .rowCount = 2, .columnCount = 3});
    EXPECT_THAT(RowsOf(columns), ElementsAre(RowView{1, 1, {{10, "a"}, {11, "b"}}}));
    const ChangePlan smaller = Paste({{"a"}, {"b"}, {"c"}}, {.firstRow = 1, .rowCount = 2});
    EXPECT_EQ(RowsOf(smaller).size(), 3u);
}

TEST_F(PastePlan, ARepetitionLeavesTheSelectedAppendRowAlone) {
    target.appends = true;
    EXPECT_THAT(RowsOf(Paste({{"x"}}, {.firstRow = 2, .rowCount = 3})),
                ElementsAre(RowView{1, 2, {{10, "x"}}}, RowView{1, 3, {{10, "x"}}}));
    EXPECT_THAT(RowsOf(Paste({{"a"}, {"b"}}, {.firstRow = 3, .rowCount = 2})),
                ElementsAre(RowView{1, 3, {{10, "a"}}}, RowView{2, kNewRow, {{10, "b"}}}))
        << "a block of the size of the selection is pasted as a whole";
}

TEST_F(PastePlan, ColumnsBeyondTheLastAreLeftOutWithANote) {
    const ChangePlan plan = Paste({{"a", "b", "c", "d"}}, {.firstColumn = 2});
    EXPECT_THAT(RowsOf(plan), ElementsAre(RowView{1, 1, {{11, "a"}, {12, "b"}}}));
    EXPECT_THAT(plan.notes, ElementsAre(PlanNote{"IDS_TB_ENGINE_NOTE_COLUMNS_CUT", 2}));
}

TEST_F(PastePlan, TextsFollowMovedColumnsAndPassOverHiddenOnes) {
    target.columns = {{12}, {11, true}, {10}};
    EXPECT_THAT(RowsOf(Paste({{"a", "b"}}, {})), ElementsAre(RowView{1, 1, {{12, "a"}, {10, "b"}}}));
    EXPECT_THAT(RowsOf(Paste({{"x"}}, {.columnCount = 3})), ElementsAre(RowView{1, 1, {{12, "x"}, {10, "x"}}}));
    EXPECT_THAT(RowsOf(Paste({{"a", "b"}}, {.rowCount = 2, .columnCount = 3})).size(), 2u)
        << "hidden columns do not count for the size of the selection";
    EXPECT_THAT(RowsOf(Paste({{"a"}}, {.firstColumn = 2})), ElementsAre(RowView{1, 1, {{10, "a"}}}));
}

TEST_F(PastePlan, NothingIsLeftWithoutVisibleColumns) {
    target.columns = {{10}, {11, true}};
    const ChangePlan plan = Paste({{"a", "b"}}, {.firstColumn = 2});
    EXPECT_THAT(RowsOf(plan), IsEmpty());
    EXPECT_THAT(plan.notes, ElementsAre(PlanNote{"IDS_TB_ENGINE_NOTE_COLUMNS_CUT", 2}));
}

TEST_F(PastePlan, LockedCellsArePassedOver) {
    locked[{1, 2}] = CellAccess::Disabled;
    locked[{2, 1}] = locked[{2, 2}] = CellAccess::ReadOnly;
    const ChangePlan plan = Paste({{"a", "b"}, {"c", "d"}, {"e", "f"}}, {});
    EXPECT_THAT(RowsOf(plan), ElementsAre(RowView{1, 1, {{10, "a"}}}, RowView{3, 3, {{10, "e"}, {11, "f"}}}));
    EXPECT_THAT(plan.notes, ElementsAre(PlanNote{"IDS_TB_ENGINE_NOTE_CELLS_SKIPPED", 3}));
}

TEST_F(PastePlan, LockedCellsRefuseTheirRowWhereTheCallerWantsIt) {
    target.lockedCells = LockedCells::Refuse;
    locked[{1, 2}] = CellAccess::Disabled;
    locked[{2, 1}] = CellAccess::ReadOnly;
    locked[{2, 2}] = CellAccess::ReadOnly;
    const ChangePlan plan = Paste({{"a", "b"}, {"c", "d"}, {"e", "f"}}, {});
    EXPECT_THAT(RowsOf(plan), ElementsAre(RowView{3, 3, {{10, "e"}, {11, "f"}}}));
    EXPECT_THAT(plan.refused, ElementsAre(RefusedRow{1, 1, 11, "b", "IDS_TB_ENGINE_CELL_DISABLED"},
                                          RefusedRow{2, 2, 10, "c", "IDS_TB_ENGINE_CELL_READ_ONLY"}));
    EXPECT_THAT(plan.notes, IsEmpty());
}

TEST_F(PastePlan, NewRowsHaveTheLocksOfTheAppendRow) {
    target.appends = true;
    locked[{4, 1}] = CellAccess::Disabled;
    EXPECT_THAT(RowsOf(Paste({{"a", "b"}, {"c", "d"}, {"e"}}, {.firstRow = 4})),
                ElementsAre(RowView{1, kNewRow, {{11, "b"}}}, RowView{2, kNewRow, {{11, "d"}}}));
}

TEST_F(PastePlan, CellsThatAShortRowLacksStayAsTheyAre) {
    EXPECT_THAT(RowsOf(Paste({{"a", "b", "c"}, {"d"}}, {})),
                ElementsAre(RowView{1, 1, {{10, "a"}, {11, "b"}, {12, "c"}}}, RowView{2, 2, {{10, "d"}}}));
    EXPECT_THAT(RowsOf(Paste({{"a", "b"}, {"", ""}}, {})),
                ElementsAre(RowView{1, 1, {{10, "a"}, {11, "b"}}}, RowView{2, 2, {{10, ""}, {11, ""}}}))
        << "an empty cell empties";
}

TEST_F(PastePlan, AFormulaIsTakenAsItStands) {
    TextBlock block;
    ASSERT_TRUE(ClipboardText::Read("=1+2\tW200\n=sqrt(4)\t\"=\"\"x\"\"\"\n", block));
    EXPECT_THAT(RowsOf(Paste(block, {})), ElementsAre(RowView{1, 1, {{10, "=1+2"}, {11, "W200"}}},
                                                      RowView{2, 2, {{10, "=sqrt(4)"}, {11, "=\"x\""}}}));
}

TEST_F(PastePlan, AnEmptyClipboardPlansNothing) {
    const ChangePlan plan = Paste({}, {.rowCount = 2, .columnCount = 2});
    EXPECT_THAT(RowsOf(plan), IsEmpty());
    EXPECT_THAT(plan.notes, IsEmpty());
}

TEST_F(PastePlan, ASelectionOutsideTheTableIsWrongUse) {
    for (const GridSelection& selection :
         {GridSelection{.firstRow = 0}, GridSelection{.firstRow = 5}, GridSelection{.rowCount = 0},
          GridSelection{.firstRow = 2, .rowCount = 4}, GridSelection{.firstColumn = 0}, GridSelection{.firstColumn = 4},
          GridSelection{.columnCount = 0}, GridSelection{.firstColumn = 2, .columnCount = 3}}) {
        EXPECT_THROW(Paste({{"a"}}, selection), std::invalid_argument);
    }
}

TEST_F(PastePlan, PlannedRowsShareEqualNeighbours) {
    target.recordCount = 100'000;
    const ChangePlan plan = Paste({{"same text"}}, {.rowCount = 100'000, .columnCount = 3});
    const auto& rows = plan.rows.Rows();
    ASSERT_EQ(rows.size(), 100'000u);
    EXPECT_EQ(plan.rows.Text(plan.rows.Cells(rows.front())[0]).data(),
              plan.rows.Text(plan.rows.Cells(rows.back())[2]).data());
}

TEST(PlannedRows, ACellNeedsARow) {
    PlannedRows rows;
    EXPECT_THROW(rows.AddCell(1, "a"), std::invalid_argument);
    EXPECT_THROW(rows.DropRow(), std::invalid_argument);
    rows.BeginRow(1, 1);
    rows.AddCell(1, "a");
    rows.DropRow();
    EXPECT_THAT(rows.Rows(), IsEmpty());
}

}  // namespace
}  // namespace velda
