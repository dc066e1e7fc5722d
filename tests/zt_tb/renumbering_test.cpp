#include "zt_tb/support/number_tables.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

using testing::ElementsAre;

// ---- members

class MemberRenumberingTest : public TableTest {
protected:
    MemberRenumberingTest() {
        AddMember(1, 3);
        AddMember(2, 5);
        AddMember(4, 7);
        AddPart(1, 1);
        AddPart(2, 2);
        AddPart(3, 4);
        view = std::make_unique<OneTableView<PartTable>>(*doc);
    }
    PartTable& Table() { return *view->table; }
    std::vector<std::string> Numbers() { return ColumnTexts(Table(), PartTable::kMemberCol); }
    std::vector<std::string> Keys() { return ColumnTexts(Table(), 1); }

    std::unique_ptr<OneTableView<PartTable>> view;
};

TEST_F(MemberRenumberingTest, RowsShowTheNewNumberAndAreSortedByIt) {
    Renumber<CClassMemb>({{1, 6}});
    EXPECT_EQ(1, Table().renumbered);
    EXPECT_THAT(Numbers(), ElementsAre("5", "6", "7"));
    EXPECT_THAT(Keys(), ElementsAre("2", "1", "3"));
}

TEST_F(MemberRenumberingTest, ASwapReachesBothRowsInOnePass) {
    Renumber<CClassMemb>({{1, 7}, {4, 3}});
    EXPECT_THAT(Numbers(), ElementsAre("3", "5", "7"));
    EXPECT_THAT(Keys(), ElementsAre("3", "2", "1"));
}

TEST_F(MemberRenumberingTest, AChainOfNumbersMovesEachRowOnce) {
    Renumber<CClassMemb>({{1, 5}, {2, 7}, {4, 9}});
    EXPECT_THAT(Numbers(), ElementsAre("5", "7", "9"));
    EXPECT_THAT(Keys(), ElementsAre("1", "2", "3"));
}

TEST_F(MemberRenumberingTest, EveryRowOfAMemberFollows) {
    AddPart(4, 1, 2);
    Renumber<CClassMemb>({{1, 8}});
    EXPECT_THAT(Numbers(), ElementsAre("5", "7", "8", "8"));
}

TEST_F(MemberRenumberingTest, UndoAndRedoAreFollowed) {
    Renumber<CClassMemb>({{1, 7}, {4, 3}});
    ASSERT_TRUE(Db().Undo());
    EXPECT_THAT(Keys(), ElementsAre("1", "2", "3"));
    EXPECT_THAT(Numbers(), ElementsAre("3", "5", "7"));
    ASSERT_TRUE(Db().Redo());
    EXPECT_THAT(Keys(), ElementsAre("3", "2", "1"));
}

TEST_F(MemberRenumberingTest, ASwapInSeveralTransactionsOfOneStepIsASwap) {
    ASSERT_TRUE(Db().BeginGroup("swap"));
    Renumber<CClassMemb>({{1, 100}});
    Renumber<CClassMemb>({{4, 3}});
    Renumber<CClassMemb>({{1, 7}});
    ASSERT_TRUE(Db().EndGroup());
    EXPECT_THAT(Numbers(), ElementsAre("3", "5", "7"));
    EXPECT_THAT(Keys(), ElementsAre("3", "2", "1"));
    ASSERT_TRUE(Db().Undo());
    EXPECT_THAT(Numbers(), ElementsAre("3", "5", "7"));
    EXPECT_THAT(Keys(), ElementsAre("1", "2", "3"));
}

TEST_F(MemberRenumberingTest, NumbersThatAreTheSameInTheEndRenumberNothing) {
    ASSERT_TRUE(Db().BeginGroup("there and back"));
    Renumber<CClassMemb>({{1, 100}});
    Renumber<CClassMemb>({{1, 3}});
    ASSERT_TRUE(Db().EndGroup());
    EXPECT_EQ(0, Table().renumbered);
    EXPECT_THAT(Numbers(), ElementsAre("3", "5", "7"));
}

TEST_F(MemberRenumberingTest, ANumberThatANewMemberHadForAWhileIsThatOfTheMemberBefore) {
    ASSERT_TRUE(Db().BeginGroup("numbers in turn"));
    Renumber<CClassMemb>({{1, 4}});
    AddMember(9, 3);
    Renumber<CClassMemb>({{9, 50}});
    ASSERT_TRUE(Db().EndGroup());
    EXPECT_THAT(Numbers(), ElementsAre("4", "5", "7"));
}

TEST_F(MemberRenumberingTest, AChangeOfOtherFieldsRenumbersNothing) {
    T_MEMB_D member;
    ASSERT_TRUE(Records<CClassMemb>().Get(1, member));
    member.plan = 2;
    ASSERT_TRUE(Records<CClassMemb>().TR_Modify(1, 1, member));
    EXPECT_EQ(0, Table().renumbered);
}

TEST_F(MemberRenumberingTest, NodesWithTheSameNumbersRenumberNothing) {
    AddNode(1, 3);
    Renumber<CClassPont>({{1, 30}});
    EXPECT_EQ(0, Table().renumbered);
    EXPECT_THAT(Numbers(), ElementsAre("3", "5", "7"));
}

TEST_F(MemberRenumberingTest, AColumnThatDoesNotExistIsRefused) {
    view->DisconnectFromDoc();
    Renumber<CClassMemb>({{1, 6}});
    EXPECT_EQ(0, Table().ConvOldMembNo2NewMembNo(Buffer(), 99));
    EXPECT_THAT(Numbers(), ElementsAre("3", "5", "7"));
}

TEST_F(MemberRenumberingTest, OnlyTheColumnAskedForIsRewritten) {
    view->DisconnectFromDoc();
    Renumber<CClassMemb>({{1, 60}});
    EXPECT_EQ(1, Table().ConvOldMembNo2NewMembNo(Buffer(), PartTable::kMember));
    EXPECT_THAT(Keys(), ElementsAre("2", "3", "1"));
    EXPECT_THAT(ColumnTexts(Table(), PartTable::kPartCol), ElementsAre("1", "1", "1"));
}

TEST_F(MemberRenumberingTest, TheAppendRowIsNotVisited) {
    Table().SetValueRange(Table().GetRowCount(), PartTable::kMemberCol, "3");
    view->DisconnectFromDoc();
    Renumber<CClassMemb>({{1, 6}});
    Table().ConvOldMembNo2NewMembNo(Buffer(), PartTable::kMember);
    EXPECT_EQ("3", Table().GetValueRowCol(Table().GetRowCount(), PartTable::kMemberCol));
}

TEST_F(MemberRenumberingTest, TheCurrentCellStaysWithItsRecord) {
    ASSERT_TRUE(Table().SetCurrentCell(1, PartTable::kPartCol));
    Renumber<CClassMemb>({{1, 9}});
    int row = 0;
    int col = 0;
    ASSERT_TRUE(Table().GetCurrentCell(row, col));
    EXPECT_EQ(3, row);
    EXPECT_EQ(PartTable::kPartCol, col);
}

TEST_F(MemberRenumberingTest, TheSortSpecificationStays) {
    const std::vector<velda::STBSortItem> before = Table().SortInfo();
    Renumber<CClassMemb>({{1, 6}});
    EXPECT_EQ(before, Table().SortInfo());
}

// ---- a row in edit

TEST_F(MemberRenumberingTest, ARowInEditTakesTheNumberAndItsTextBeforeTheEdit) {
    ASSERT_TRUE(Table().EditCell(1, PartTable::kPartCol, "2"));
    Renumber<CClassMemb>({{1, 6}});
    ASSERT_TRUE(Table().IsRowInEdit());
    EXPECT_EQ("6", Table().GetValueRowCol(1, PartTable::kMemberCol));
    EXPECT_EQ("6", Table().GetValueRowColBeforeEdit(1, PartTable::kMemberCol));
    EXPECT_EQ("2", Table().GetValueRowCol(1, PartTable::kPartCol));
}

TEST_F(MemberRenumberingTest, RowsAreSortedNoEarlierThanTheRowInEditIsClosed) {
    ASSERT_TRUE(Table().EditCell(1, PartTable::kPartCol, "2"));
    Renumber<CClassMemb>({{1, 6}});
    EXPECT_THAT(Numbers(), ElementsAre("6", "5", "7"));
    ASSERT_TRUE(Table().LeaveRow());
    EXPECT_THAT(Numbers(), ElementsAre("5", "6", "7"));
    T_PREL_D part;
    ASSERT_TRUE(Records<CClassPrel>().Get(1, part));
    EXPECT_EQ(1u, part.memb);
    EXPECT_EQ(2, part.part);
}

TEST_F(MemberRenumberingTest, OtherRowsFollowWhileARowIsInEdit) {
    ASSERT_TRUE(Table().EditCell(1, PartTable::kPartCol, "2"));
    Renumber<CClassMemb>({{2, 8}});
    EXPECT_THAT(Numbers(), ElementsAre("3", "8", "7"));
    ASSERT_TRUE(Table().LeaveRow());
    EXPECT_THAT(Numbers(), ElementsAre("3", "7", "8"));
}

TEST_F(MemberRenumberingTest, InTheCurrentColumnOnlyTheTextBeforeTheEditChanges) {
    ASSERT_TRUE(Table().EditCell(1, PartTable::kMemberCol, "5"));
    Renumber<CClassMemb>({{1, 6}});
    EXPECT_EQ("5", Table().GetValueRowCol(1, PartTable::kMemberCol)) << "what the user typed";
    EXPECT_EQ("6", Table().GetValueRowColBeforeEdit(1, PartTable::kMemberCol));
}

TEST_F(MemberRenumberingTest, ARowInEditIsLookedUpByItsTextBeforeTheEdit) {
    ASSERT_TRUE(Table().EditCell(1, PartTable::kMemberCol, "5"));
    Renumber<CClassMemb>({{2, 8}});
    EXPECT_EQ("5", Table().GetValueRowCol(1, PartTable::kMemberCol));
    EXPECT_EQ("3", Table().GetValueRowColBeforeEdit(1, PartTable::kMemberCol));
}

TEST_F(MemberRenumberingTest, ACancelledEditShowsTheNewNumber) {
    ASSERT_TRUE(Table().EditCell(1, PartTable::kMemberCol, "5"));
    Renumber<CClassMemb>({{1, 6}});
    ASSERT_TRUE(Table().DoCommand(velda::TableCommand::Cancel));
    EXPECT_FALSE(Table().IsRowInEdit());
    EXPECT_THAT(Numbers(), ElementsAre("5", "6", "7"));
}

TEST_F(MemberRenumberingTest, WhatIsBeingTypedInTheOpenEditorStays) {
    ASSERT_TRUE(Table().SetCurrentCell(1, PartTable::kMemberCol));
    ASSERT_TRUE(Table().TypeText("7"));
    Renumber<CClassMemb>({{1, 6}, {4, 9}});
    EXPECT_EQ("7", Table().Session().EditorText());
    EXPECT_EQ("6", Table().GetValueRowColBeforeEdit(1, PartTable::kMemberCol));
    ASSERT_TRUE(Table().DoCommand(velda::TableCommand::Cancel));
    ASSERT_TRUE(Table().LeaveRow());
    EXPECT_THAT(Numbers(), ElementsAre("5", "6", "9"));
}

TEST_F(MemberRenumberingTest, ANewRowThatIsBeingTypedStaysAsItIs) {
    const int last = Table().GetRowCount();
    ASSERT_TRUE(Table().EditCell(last, PartTable::kMemberCol, "3"));
    Renumber<CClassMemb>({{1, 6}});
    EXPECT_EQ("3", Table().GetValueRowCol(last, PartTable::kMemberCol));
    EXPECT_THAT(Numbers(), ElementsAre("6", "5", "7"));
}

// ---- nodes

class NodeRenumberingTest : public TableTest {
protected:
    NodeRenumberingTest() {
        for (const std::uint32_t key : {1u, 2u, 3u, 4u}) AddNode(key, 10 * key);
        AddMember(1, 1, {1, 2});
        AddMember(2, 2, {2, 3});
        AddMember(3, 3, {4, 3});
        view = std::make_unique<OneTableView<SpanTable>>(*doc);
        view->DisconnectFromDoc();
    }
    SpanTable& Table() { return *view->table; }
    std::vector<std::string> Starts() { return ColumnTexts(Table(), SpanTable::kStartCol); }
    std::vector<std::string> Ends() { return ColumnTexts(Table(), SpanTable::kEndCol); }

    std::unique_ptr<OneTableView<SpanTable>> view;
};

TEST_F(NodeRenumberingTest, WithOneColumnTheOtherStays) {
    Renumber<CClassPont>({{2, 25}});
    EXPECT_EQ(1, Table().ConvOldPontNo2NewPontNo(Buffer(), SpanTable::kStart));
    EXPECT_THAT(Starts(), ElementsAre("10", "25", "40"));
    EXPECT_THAT(Ends(), ElementsAre("20", "30", "30"));
}

TEST_F(NodeRenumberingTest, AllOnesStandForNoSecondColumn) {
    Renumber<CClassPont>({{2, 25}});
    EXPECT_EQ(1, Table().ConvOldPontNo2NewPontNo(Buffer(), SpanTable::kEnd, static_cast<int>(0xFFFFFFFFu)));
    EXPECT_THAT(Starts(), ElementsAre("10", "20", "40"));
    EXPECT_THAT(Ends(), ElementsAre("25", "30", "30"));
}

TEST_F(NodeRenumberingTest, WithTwoColumnsTheSecondFollowsWhereTheFirstDoesNot) {
    Renumber<CClassPont>({{2, 25}});
    EXPECT_EQ(1, Table().ConvOldPontNo2NewPontNo(Buffer(), SpanTable::kStart, SpanTable::kEnd));
    EXPECT_THAT(Starts(), ElementsAre("10", "25", "40"));
    EXPECT_THAT(Ends(), ElementsAre("25", "30", "30"));
}

TEST_F(NodeRenumberingTest, WithTwoColumnsOnlyTheFirstOfARowIsRewritten) {
    Renumber<CClassPont>({{1, 15}, {2, 25}});
    Table().ConvOldPontNo2NewPontNo(Buffer(), SpanTable::kStart, SpanTable::kEnd);
    EXPECT_THAT(Starts(), ElementsAre("15", "25", "40"));
    EXPECT_THAT(Ends(), ElementsAre("20", "30", "30")) << "the first row had both";
}

TEST_F(NodeRenumberingTest, RowsAreSortedByTheNewNumbers) {
    Renumber<CClassPont>({{1, 99}});
    Table().ConvOldPontNo2NewPontNo(Buffer(), SpanTable::kStart, SpanTable::kEnd);
    EXPECT_THAT(Starts(), ElementsAre("20", "40", "99"));
}

TEST_F(NodeRenumberingTest, ANumberThatNoRowShowsStillCounts) {
    AddNode(9, 90);
    Renumber<CClassPont>({{9, 95}});
    EXPECT_EQ(1, Table().ConvOldPontNo2NewPontNo(Buffer(), SpanTable::kStart, SpanTable::kEnd));
    EXPECT_THAT(Starts(), ElementsAre("10", "20", "40"));
    EXPECT_THAT(Ends(), ElementsAre("20", "30", "30"));
}

TEST_F(NodeRenumberingTest, WithoutRenumberingNothingHappens) {
    Renumber<CClassMemb>({{1, 20}});
    EXPECT_EQ(0, Table().ConvOldPontNo2NewPontNo(Buffer(), SpanTable::kStart, SpanTable::kEnd));
    EXPECT_THAT(Starts(), ElementsAre("10", "20", "40"));
}

TEST_F(NodeRenumberingTest, ARowInEditIsHandledByTheColumnThatIsWritten) {
    ASSERT_TRUE(Table().EditCell(1, SpanTable::kStartCol, "30"));
    Renumber<CClassPont>({{2, 25}});
    Table().ConvOldPontNo2NewPontNo(Buffer(), SpanTable::kStart, SpanTable::kEnd);
    EXPECT_EQ("30", Table().GetValueRowCol(1, SpanTable::kStartCol));
    EXPECT_EQ("25", Table().GetValueRowCol(1, SpanTable::kEndCol));
    EXPECT_EQ("25", Table().GetValueRowColBeforeEdit(1, SpanTable::kEndCol));
    EXPECT_EQ("10", Table().GetValueRowColBeforeEdit(1, SpanTable::kStartCol));
}

TEST_F(NodeRenumberingTest, InTheCurrentColumnOfARowInEditTheTypedTextStays) {
    ASSERT_TRUE(Table().EditCell(1, SpanTable::kStartCol, "30"));
    Renumber<CClassPont>({{1, 15}, {2, 25}});
    Table().ConvOldPontNo2NewPontNo(Buffer(), SpanTable::kStart, SpanTable::kEnd);
    EXPECT_EQ("30", Table().GetValueRowCol(1, SpanTable::kStartCol));
    EXPECT_EQ("15", Table().GetValueRowColBeforeEdit(1, SpanTable::kStartCol));
    EXPECT_EQ("20", Table().GetValueRowCol(1, SpanTable::kEndCol));
    EXPECT_EQ("20", Table().GetValueRowColBeforeEdit(1, SpanTable::kEndCol));
}

}  // namespace
}  // namespace zt
