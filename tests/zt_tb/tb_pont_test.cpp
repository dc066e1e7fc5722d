#include "zt_tb/model/tb_pont.h"

#include "zt_tb/support/number_tables.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zt {
namespace {

using ::testing::ElementsAre;

class TBPontTest : public TableTest {
protected:
    TBPontTest() {
        AddNamed<CClassMdul>(1, "A");
        AddStory(3, "1F", 1, 10.0);
        AddNode(1, 11);
        view_ = std::make_unique<OneTableView<CTBPont>>(*doc);
    }
    CTBPont& Table() { return *view_->table; }
    static CTBPont::ColumnMap Map() { return {1, 2, 3, 4, 5, 6, 7, 8, 9}; }
    T_PONT_D Parse(const CTBPont::RowTexts& texts, bool expected = true) {
        std::uint32_t key = 0;
        T_PONT_D record;
        EXPECT_EQ(Table().ParseRowText(texts, Map(), key, record) != 0, expected);
        return record;
    }

    std::unique_ptr<OneTableView<CTBPont>> view_;
};

TEST_F(TBPontTest, ReadsAHeightAgainstTheStoryOfTheRow) {
    const T_PONT_D node = Parse({"9", "5", "1F", "77", "1.5", "2", "13", "corner", "4"});
    EXPECT_EQ(node.no, 5u);
    EXPECT_EQ(node.story, 3u);
    EXPECT_EQ(node.x, 1.5);
    EXPECT_EQ(node.y, 2.0);
    EXPECT_EQ(node.z, 3.0) << "the level in the row is not read";
    EXPECT_EQ(node.plan, 4);
    EXPECT_EQ(node.name, "");
}

TEST_F(TBPontTest, TakesAStoryThatDoesNotExistForNone) {
    const T_PONT_D node = Parse({"9", "5", "Roof", "10", "0", "0", "13", "", "0"});
    EXPECT_EQ(node.story, 0u);
    EXPECT_EQ(node.z, 13.0);
}

TEST_F(TBPontTest, CanDoWithoutLevelAndName) {
    Parse({"9", "5", "1F", "", "0", "0", "0", "", "0"});
    Parse({"9", "", "", "", "", "", "", "", ""}, false);
    EXPECT_EQ(Table().GetWarningText(),
              "Node has not been entered.\nStory has not been entered.\nX has not been entered.\n"
              "Y has not been entered.\nZ has not been entered.\nPlan No. has not been entered.");
}

TEST_F(TBPontTest, ChecksNumbersInTheirColumnsAlone) {
    std::vector<int> checked;
    for (int id = 0; id < Table().GetInitialColCount(); ++id) {
        if (!Table().ValidateColumn("x", id)) checked.push_back(id);
    }
    EXPECT_THAT(checked, ElementsAre(0, 1, 3, 4, 5, 6));
    EXPECT_FALSE(Table().ValidateColumn("1.5", 1));
    EXPECT_TRUE(Table().ValidateColumn("1.5", 3));
    EXPECT_FALSE(Table().ValidateColumn("1", 9));
}

TEST_F(TBPontTest, SortsByLevelAndNumberAndTakesNoNewRows) {
    EXPECT_THAT(Table().SortInfo(), ElementsAre(velda::STBSortItem{3, 0, 0}, velda::STBSortItem{1, 0, 0}));
    EXPECT_FALSE(Table().IsAppendRowEnabled());
    EXPECT_FALSE(Table().CanInsertRowByPressingKey());
    EXPECT_THAT(Table().SortKeyTexts(1, {.story = 3, .no = 11}), ElementsAre("10", "11"));
    int row = 0;
    EXPECT_TRUE(Table().FindRecordByKey({"0", "11"}, row));
    EXPECT_EQ(row, 1);
}

/// A table of nodes whose numbers stand for load cases.
class LoadCaseTable : public RecordTable<LoadCaseTable, CClassPont> {
public:
    static const Declaration& Declared() {
        static const Declaration declaration{
            .name = "TBLoadCaseTest",
            .columns = {Columns::Key("Key"), Columns::LoadCase<&T_PONT_D::no>("Load case")},
            .sort = {{1, 0, 0}},
        };
        return declaration;
    }
    static inline const std::string m_strRegName = Register();
};

TEST_F(TBPontTest, FollowsLoadCasesWhereAColumnShowsTheirNames) {
    AddNode(2, 12);
    AddLoadCase(11, "Dead", "D");
    AddLoadCase(12, "Live", "L");
    const OneTableView<LoadCaseTable> view(*doc);
    EXPECT_THAT(ColumnTexts(*view.table, 2), ElementsAre("Dead", "Live"));
    ASSERT_TRUE(Records<CClassStld>().TR_Modify(11, 11, {"Self weight", "D", {}}));
    EXPECT_THAT(ColumnTexts(*view.table, 2), ElementsAre("Live", "Self weight"));
    ASSERT_TRUE(Db().Undo());
    EXPECT_THAT(ColumnTexts(*view.table, 2), ElementsAre("Dead", "Live"));
}

}  // namespace
}  // namespace zt
