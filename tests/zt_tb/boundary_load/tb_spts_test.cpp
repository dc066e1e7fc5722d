#include "zt_tb/boundary_load/tb_spts.h"

#include "zt_tb/support/number_tables.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zt {
namespace {

using ::testing::ElementsAre;

class TBSptsTest : public TableTest {
protected:
    TBSptsTest() {
        AddNode(1, 40);
        AddNode(2, 30);
        AddNode(3, 20);
        Add<CClassSpts>(1, {.flags = "111111"});
        Add<CClassSpts>(2, {.flags = "111000", .value = {0, 0, 0, 1, 2, 3}});
        view_ = std::make_unique<OneTableView<CTBSpts>>(*doc);
    }
    CTBSpts& Table() { return *view_->table; }
    static CTBSpts::ColumnMap Map() { return {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}; }
    static CTBSpts::RowTexts Texts(const std::string& node, const std::string& flags) {
        return {node, flags, "0", "0", "0", "1", "2", "3", "none", "POSITIVE", "sideways"};
    }

    std::unique_ptr<OneTableView<CTBSpts>> view_;
};

TEST_F(TBSptsTest, StandsInTheOrderOfNumbersAndKnowsRowsByTheKeysBehindThem) {
    EXPECT_THAT(Table().ShownKeys(), ElementsAre(2, 1));
    EXPECT_EQ(Table().GetValueRowCol(1, 1), "30");
    EXPECT_EQ(Table().GetKeyString(1), "2");
    EXPECT_EQ(Table().GetKeyStringBeforeEdit(2), "1");
    EXPECT_EQ(Table().GetNewKeyString(), "");
    int row = 0;
    EXPECT_TRUE(Table().FindRecordByKey({"40"}, row));
    EXPECT_EQ(row, 2);
    EXPECT_FALSE(Table().FindRecordByKey({"35"}, row));
    EXPECT_EQ(row, 2);
}

TEST_F(TBSptsTest, ReadsTextsAsTheyStand) {
    std::uint32_t key = 0;
    T_SPTS_D record;
    ASSERT_TRUE(Table().ParseRowText(Texts("20", "11"), Map(), key, record)) << Table().GetWarningText();
    EXPECT_EQ(key, 3u);
    EXPECT_EQ(record.flags, "000011");
    EXPECT_THAT(record.value, ElementsAre(0, 0, 0, 1, 2, 3));
    EXPECT_THAT(record.compressionType, ElementsAre(0, 1, -1));
    EXPECT_TRUE(Table().ParseRowText(Texts("20", "2301011"), Map(), key, record));
    EXPECT_EQ(record.flags, "110101");
}

TEST_F(TBSptsTest, ListsEveryTitleThatIsMissing) {
    const CTBSpts::RowTexts empty(11);
    EXPECT_FALSE(Table().ValidateRowComplete(empty, Map()));
    EXPECT_EQ(Table().GetWarningText(),
              "Node has not been entered.\nRestraint has not been entered.\nDx has not been entered.\n"
              "Dy has not been entered.\nDz has not been entered.\nRx has not been entered.\n"
              "Ry has not been entered.\nRz has not been entered.\nComp.-Only Dx has not been entered.\n"
              "Comp.-Only Dy has not been entered.\nComp.-Only Dz has not been entered.");
    // A wrong text ends the check at once.
    CTBSpts::RowTexts wrong(11);
    wrong[0] = "20";
    wrong[4] = "much";
    EXPECT_FALSE(Table().ValidateRowComplete(wrong, Map()));
    EXPECT_EQ(Table().GetWarningText(), "Dz: \"much\" is not a number.");
}

TEST_F(TBSptsTest, ChecksNumbersInTheirColumnsAlone) {
    std::vector<int> checked;
    for (int id = 0; id < Table().GetInitialColCount(); ++id) {
        if (!Table().ValidateColumn("x", id)) checked.push_back(id);
    }
    EXPECT_THAT(checked, ElementsAre(0, 2, 3, 4, 5, 6, 7));
    EXPECT_FALSE(Table().ValidateColumn("1", 11));
    EXPECT_FALSE(Table().ValidateColumn("99", 0));
    EXPECT_TRUE(Table().ValidateColumn("20", 0));
}

TEST_F(TBSptsTest, KeepsSupportedNodesOfAList) {
    Table().PreFilterRecord({3, 2});
    EXPECT_THAT(Table().ShownKeys(), ElementsAre(2));
    Table().PreFilterRecord({1, 77, 2, 1});
    EXPECT_THAT(Table().ShownKeys(), ElementsAre(2, 1)) << "a node that is named twice has one support";
    Table().PreFilterRecord({});
    EXPECT_THAT(Table().ShownKeys(), ElementsAre());
}

TEST_F(TBSptsTest, ShowsTheNumberOfADeletedNodeWhileItsChangeIsReplayed) {
    EXPECT_EQ(Table().GetObjectNo(ObjectKind::Node, 1), 40u);
    ASSERT_TRUE(Records<CClassPont>().TR_Del(1));
    EXPECT_EQ(Table().GetObjectNo(ObjectKind::Node, 1), 0u) << "the change has been replayed";
    EXPECT_THAT(Table().ShownKeys(), ElementsAre(2));
    Table().MakeDeletedPontMap(*Db().GetViewBuff());
    EXPECT_EQ(Table().GetObjectNo(ObjectKind::Node, 1), 40u);
    Table().RemoveAllDeletedPontMap();
}

TEST_F(TBSptsTest, WritesTextsOfPreviousUnitsInCurrentOnes) {
    T_UNIT_INDEX units;
    doc->GetUnitCtrl()->GetUnitIndexCurrent(units);
    units.length = CUnitCtrl::FindChoice(UnitQuantity::Length, "mm");
    ASSERT_TRUE(doc->GetUnitCtrl()->SetUnitIndexCurrent(units, 1));
    Table().WriteRowFromText(1, Texts("30", "111000"));
    EXPECT_EQ(Table().GetValueRowCol(1, 6), "1000") << "1 kN*m is 1000 kN*mm";
}

}  // namespace
}  // namespace zt
