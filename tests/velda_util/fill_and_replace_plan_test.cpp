#include <stdexcept>

#include "velda_util/clip/fill_plan.h"
#include "velda_util/clip/replace_plan.h"
#include "velda_util/plan_test_table.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velda {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct FillPlan : testing::Test, PlanTestTable {
    ChangePlan FillDown(const GridSelection& selection) {
        return PlanFillDown(
            selection, target, [&](int row, int column) { return Access(row, column); },
            [&](int row, int column) { return Text(row, column); });
    }
    ChangePlan SetValue(const GridSelection& selection, std::string_view value) {
        return PlanSetValue(
            selection, target, [&](int row, int column) { return Access(row, column); }, value);
    }
};

TEST_F(FillPlan, FillDownCopiesTheFirstSelectedRow) {
    EXPECT_THAT(RowsOf(FillDown({.firstRow = 1, .rowCount = 3, .firstColumn = 2, .columnCount = 2})),
                ElementsAre(RowView{2, 2, {{11, "r1c2"}, {12, "r1c3"}}}, RowView{3, 3, {{11, "r1c2"}, {12, "r1c3"}}}));
}

TEST_F(FillPlan, FillDownOfOneRowCopiesTheRowAbove) {
    EXPECT_THAT(RowsOf(FillDown({.firstRow = 3})), ElementsAre(RowView{3, 3, {{10, "r2c1"}}}));
    EXPECT_THAT(RowsOf(FillDown({.firstRow = 1})), IsEmpty()) << "nothing stands above the first row";
}

TEST_F(FillPlan, FillsLeaveTheAppendRowAlone) {
    target.appends = true;
    EXPECT_THAT(RowsOf(FillDown({.firstRow = 2, .rowCount = 3})), ElementsAre(RowView{3, 3, {{10, "r2c1"}}}));
    EXPECT_THAT(RowsOf(FillDown({.firstRow = 4})), IsEmpty());
    EXPECT_THAT(RowsOf(SetValue({.firstRow = 3, .rowCount = 2}, "x")), ElementsAre(RowView{3, 3, {{10, "x"}}}));
    EXPECT_THAT(RowsOf(SetValue({.firstRow = 4}, "x")), IsEmpty());
    target.recordCount = 0;
    EXPECT_THAT(RowsOf(FillDown({.firstRow = 1})), IsEmpty());
}

TEST_F(FillPlan, OneValueGoesIntoEverySelectedCellButHiddenOnes) {
    target.columns[1].hidden = true;
    EXPECT_THAT(RowsOf(SetValue({.firstRow = 1, .rowCount = 2, .columnCount = 3}, "1")),
                ElementsAre(RowView{1, 1, {{10, "1"}, {12, "1"}}}, RowView{2, 2, {{10, "1"}, {12, "1"}}}));
}

TEST_F(FillPlan, ClearingEmptiesTheCells) {
    const ChangePlan plan =
        PlanClear({.firstRow = 2, .columnCount = 2}, target, [&](int row, int column) { return Access(row, column); });
    EXPECT_THAT(RowsOf(plan), ElementsAre(RowView{2, 2, {{10, ""}, {11, ""}}}));
}

TEST_F(FillPlan, LockedCellsFollowTheChoiceOfTheCaller) {
    locked[{2, 1}] = CellAccess::ReadOnly;
    const ChangePlan skipping = SetValue({.firstRow = 1, .rowCount = 2}, "x");
    EXPECT_THAT(RowsOf(skipping), ElementsAre(RowView{1, 1, {{10, "x"}}}));
    EXPECT_THAT(skipping.notes, ElementsAre(PlanNote{"IDS_TB_ENGINE_NOTE_CELLS_SKIPPED", 1}));
    target.lockedCells = LockedCells::Refuse;
    EXPECT_THAT(SetValue({.firstRow = 1, .rowCount = 2}, "x").refused,
                ElementsAre(RefusedRow{2, 2, 10, "x", "IDS_TB_ENGINE_CELL_READ_ONLY"}));
}

TEST_F(FillPlan, ASelectionOutsideTheTableIsWrongUse) {
    EXPECT_THROW(FillDown({.firstRow = 5}), std::invalid_argument);
    EXPECT_THROW(SetValue({.firstColumn = 4}, "x"), std::invalid_argument);
}

struct Replacement : FillPlan {
    Replacement() { texts = {{{1, 1}, "W200"}, {{1, 2}, "w200 w200"}, {{2, 1}, "벽W"}, {{3, 3}, "W200"}}; }
    ReplacePlan Replace(const ReplaceSettings& settings, std::optional<GridSelection> selection = {}) {
        return PlanReplace(
            settings, selection, target, [&](int row, int column) { return Access(row, column); },
            [&](int row, int column) { return Text(row, column); });
    }
};

TEST_F(Replacement, GoesThroughTheWholeTable) {
    const ReplacePlan result = Replace({.text = "w2", .replacement = "S3"});
    EXPECT_THAT(RowsOf(result.plan),
                ElementsAre(RowView{1, 1, {{10, "S300"}, {11, "S300 S300"}}}, RowView{3, 3, {{12, "S300"}}}));
    EXPECT_EQ(result.cells, 3u);
    EXPECT_EQ(result.occurrences, 4u);
}

TEST_F(Replacement, MatchesCaseOrWholeCellsWhereItIsTold) {
    EXPECT_EQ(Replace({.text = "w200", .replacement = "x", .matchCase = true}).occurrences, 2u);
    const ReplacePlan whole = Replace({.text = "w200", .replacement = "x", .wholeCell = true});
    EXPECT_THAT(RowsOf(whole.plan), ElementsAre(RowView{1, 1, {{10, "x"}}}, RowView{3, 3, {{12, "x"}}}));
    EXPECT_EQ(Replace({.text = "w200", .replacement = "x", .matchCase = true, .wholeCell = true}).cells, 0u);
}

TEST_F(Replacement, KeepsToAColumnOrASelection) {
    EXPECT_THAT(RowsOf(Replace({.text = "W", .replacement = "", .columnId = 10}).plan),
                ElementsAre(RowView{1, 1, {{10, "200"}}}, RowView{2, 2, {{10, "벽"}}}));
    EXPECT_THAT(
        RowsOf(Replace({.text = "W", .replacement = "x"}, GridSelection{.firstRow = 2, .rowCount = 3, .columnCount = 2})
                   .plan),
        ElementsAre(RowView{2, 2, {{10, "벽x"}}}));
    EXPECT_EQ(Replace({.text = "W", .replacement = "x", .columnId = 99}).cells, 0u);
}

TEST_F(Replacement, LeavesHiddenColumnsAndUnchangedCellsAlone) {
    target.columns[2].hidden = true;
    const ReplacePlan result = Replace({.text = "W200", .replacement = "W200"});
    EXPECT_THAT(RowsOf(result.plan), ElementsAre(RowView{1, 1, {{11, "W200 W200"}}}));
    EXPECT_EQ(result.cells, 1u);
}

TEST_F(Replacement, AnEmptyTextOrTableGivesNothing) {
    EXPECT_EQ(Replace({.text = "", .replacement = "x"}).cells, 0u);
    EXPECT_EQ(Replace({.text = "", .replacement = "x", .wholeCell = true}).cells, 0u);
    target.recordCount = 0;
    EXPECT_EQ(Replace({.text = "W", .replacement = "x"}).cells, 0u);
    target.columns.clear();
    EXPECT_EQ(Replace({.text = "W", .replacement = "x"}).cells, 0u);
}

TEST_F(Replacement, CountsOnlyWhatWillBeWritten) {
    locked[{1, 2}] = CellAccess::Disabled;
    locked[{2, 2}] = CellAccess::Disabled;
    const ReplacePlan skipping = Replace({.text = "W", .replacement = "x"});
    EXPECT_EQ(skipping.cells, 3u);
    EXPECT_THAT(skipping.plan.notes, ElementsAre(PlanNote{"IDS_TB_ENGINE_NOTE_CELLS_SKIPPED", 1}))
        << "a locked cell without the text does not count";
    target.lockedCells = LockedCells::Refuse;
    const ReplacePlan refusing = Replace({.text = "W", .replacement = "x"});
    EXPECT_EQ(refusing.cells, 2u);
    EXPECT_EQ(refusing.occurrences, 2u);
    EXPECT_THAT(refusing.plan.refused, ElementsAre(RefusedRow{1, 1, 11, "x200 x200", "IDS_TB_ENGINE_CELL_DISABLED"}));
}

TEST_F(Replacement, ASelectionOutsideTheTableIsWrongUse) {
    EXPECT_THROW(Replace({.text = "W"}, GridSelection{.firstRow = 9}), std::invalid_argument);
}

}  // namespace
}  // namespace velda
