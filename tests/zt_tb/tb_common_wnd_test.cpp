#include "zt_tb/support/number_tables.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

using testing::Pair;

class CommonWndTest : public TableTest {
protected:
    CommonWndTest() {
        for (const std::uint32_t key : {1u, 2u, 3u}) {
            AddMember(key, key);
            AddPart(key, key);
        }
        view = std::make_unique<OneTableView<PartTable>>(*doc);
    }
    PartTable& Table() { return *view->table; }
    std::pair<int, int> Current() {
        std::pair<int, int> cell{0, 0};
        Table().GetCurrentCell(cell.first, cell.second);
        return cell;
    }

    std::unique_ptr<OneTableView<PartTable>> view;
};

TEST_F(CommonWndTest, TheDatabaseIsThatOfTheCurrentDocument) {
    EXPECT_EQ(&Db(), CTBCommonWnd::GetDB());
    CDBDoc::m_pDBDoc = nullptr;
    EXPECT_EQ(nullptr, CTBCommonWnd::GetDB());
    EXPECT_EQ(nullptr, CTBCommonWnd::GetRecords<CClassMemb>());
    CDBDoc::m_pDBDoc = doc.get();
}

// ---- the current cell

TEST_F(CommonWndTest, ACellOfTheTableIsMadeCurrent) {
    EXPECT_TRUE(Table().SetCurrentCell(2, PartTable::kPartCol));
    EXPECT_THAT(Current(), Pair(2, PartTable::kPartCol));
}

TEST_F(CommonWndTest, ARowPastTheEndLeadsToTheLastRow) {
    EXPECT_TRUE(Table().SetCurrentCell(99, PartTable::kPartCol));
    EXPECT_THAT(Current(), Pair(4, PartTable::kPartCol)) << "the append row";
    Table().EnableAppendRow(false);
    EXPECT_TRUE(Table().SetCurrentCell(4, PartTable::kPartCol));
    EXPECT_THAT(Current(), Pair(3, PartTable::kPartCol));
}

TEST_F(CommonWndTest, PastTheEndTheNearestEnabledCellToTheLeftIsTaken) {
    Table().SetEnable(4, PartTable::kChoiceCol, false);
    Table().SetEnable(4, PartTable::kPartCol, false);
    EXPECT_TRUE(Table().SetCurrentCell(99, PartTable::kChoiceCol));
    EXPECT_THAT(Current(), Pair(4, PartTable::kMemberCol));
}

TEST_F(CommonWndTest, PastTheEndTheNearestEnabledCellToTheRightComesLast) {
    Table().SetEnable(4, 1, false);
    Table().SetEnable(4, PartTable::kMemberCol, false);
    EXPECT_TRUE(Table().SetCurrentCell(99, PartTable::kMemberCol));
    EXPECT_THAT(Current(), Pair(4, PartTable::kPartCol));
}

TEST_F(CommonWndTest, PastTheEndARowWithoutEnabledCellsIsNotEntered) {
    ASSERT_TRUE(Table().SetCurrentCell(1, PartTable::kPartCol));
    for (int col = 1; col <= Table().GetColCount(); ++col) Table().SetEnable(4, col, false);
    EXPECT_FALSE(Table().SetCurrentCell(99, PartTable::kPartCol));
    EXPECT_THAT(Current(), Pair(1, PartTable::kPartCol));
}

TEST_F(CommonWndTest, InARowOfTheTableNoOtherCellIsTaken) {
    ASSERT_TRUE(Table().SetCurrentCell(1, PartTable::kPartCol));
    Table().SetEnable(2, PartTable::kPartCol, false);
    EXPECT_FALSE(Table().SetCurrentCell(2, PartTable::kPartCol));
    EXPECT_FALSE(Table().SetCurrentCell(0, PartTable::kPartCol));
    EXPECT_FALSE(Table().SetCurrentCell(2, 0));
    EXPECT_FALSE(Table().SetCurrentCell(2, 99));
    EXPECT_THAT(Current(), Pair(1, PartTable::kPartCol));
}

TEST_F(CommonWndTest, AnEmptyTableHasNoCellToEnter) {
    Table().EnableAppendRow(false);
    Table().FilterRecord(nullptr, 0);
    EXPECT_FALSE(Table().SetCurrentCell(1, PartTable::kPartCol));
    EXPECT_THAT(Current(), Pair(0, 0));
}

// ---- run modes

TEST_F(CommonWndTest, ATableStandsAloneUnlessItIsTold) {
    EXPECT_EQ(0, Table().GetTableRunMode());
    Table().SetTableRunMode(1);
    EXPECT_EQ(CTBCommonWnd::kGroup, Table().GetTableRunMode());
}

TEST_F(CommonWndTest, ADetailTableNeitherAppendsNorInsertsOnceItIsOpen) {
    Table().EnableInsertRowByPressingKey(true);
    Table().SetTableRunMode(2);
    ASSERT_TRUE(Table().HasAppendRow());
    Table().OnAfterOpen();
    EXPECT_FALSE(Table().HasAppendRow());
    EXPECT_FALSE(Table().CanInsertRowByPressingKey());
    EXPECT_EQ(3, Table().RowCount());
}

TEST_F(CommonWndTest, OtherTablesGoOnAppendingAndInserting) {
    Table().EnableInsertRowByPressingKey(true);
    for (const int mode : {0, 1}) {
        Table().SetTableRunMode(mode);
        Table().OnAfterOpen();
        EXPECT_TRUE(Table().HasAppendRow()) << mode;
        EXPECT_TRUE(Table().CanInsertRowByPressingKey()) << mode;
    }
}

TEST_F(CommonWndTest, TheSelectionOfADetailViewDoesNothingByDefault) {
    Table().CTBCommonWnd::PreFilterRecord({1});
    Table().CTBCommonWnd::UpdateSelInDetail(HintCode::SelectionRemoved, {1});
    EXPECT_EQ(3, Table().RecordRowCount());
}

}  // namespace
}  // namespace zt
