#include "zt_tb/model/tb_memb.h"

#include "velda_lib/language.h"
#include "zt_tb/support/number_tables.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zt {
namespace {

using ::testing::ElementsAre;

/// Texts of a row as they come from a clipboard, by column identifier.
using Texts = CTBMemb::RowTexts;

class TBMembTest : public TableTest {
protected:
    TBMembTest() {
        AddNode(1, 11);
        AddNode(2, 12);
        AddNamed<CClassSect>(1, "B400");
        AddNamed<CClassThik>(1, "W200");
        AddMember(1, 7, {1, 2});
        view_ = std::make_unique<OneTableView<CTBMemb>>(*doc);
    }
    ~TBMembTest() override { velda::SetCurrentLanguage(velda::Language::English); }

    CTBMemb& Table() { return *view_->table; }
    static CTBMemb::ColumnMap Map() { return {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}; }
    /// What a row of texts becomes, and whether it was accepted.
    T_MEMB_D Parse(const Texts& texts, bool expected = true) {
        std::uint32_t key = 0;
        T_MEMB_D record;
        EXPECT_EQ(Table().ParseRowText(texts, Map(), key, record) != 0, expected);
        return record;
    }
    static Texts BeamTexts() {
        return {"9", "5", "Beam", "None", "0", "1", "30", "11 12", "0", "0", "0", "0", "", "", ""};
    }
    static Texts SlabTexts() {
        return {"9", "5", "Slab", "None", "0", "1", "30", "11 12", "0", "0", "0", "0", "Plate", "Two-Way", "45"};
    }

    std::unique_ptr<OneTableView<CTBMemb>> view_;
};

TEST_F(TBMembTest, ReadsTheFieldsOfARowInTheOrderOfTheColumns) {
    const T_MEMB_D beam = Parse(BeamTexts());
    EXPECT_EQ(beam.type, 201);
    EXPECT_EQ(beam.no, 5u);
    EXPECT_EQ(beam.prop, 1u);
    EXPECT_EQ(beam.beta, 30.0);
    EXPECT_THAT(beam.nodes, ElementsAre(1u, 2u));
    const T_MEMB_D slab = Parse(SlabTexts());
    EXPECT_EQ(slab.slabType, 3);
    EXPECT_EQ(slab.slabLoadingType, 1);
    EXPECT_EQ(slab.slabLoadAngle, 45.0);
}

TEST_F(TBMembTest, FindsATypeByItsNameWithoutRegardToCaseAndNoneForAnotherText) {
    Texts texts = BeamTexts();
    texts[2] = "bRACE";
    EXPECT_EQ(Parse(texts).type, 206);
    texts[2] = "Bridge";
    EXPECT_EQ(Parse(texts).type, 0);
    texts[2] = "";
    Parse(texts, false);
    EXPECT_EQ(Table().GetWarningText(), "Type has not been entered.");
    velda::SetCurrentLanguage(velda::Language::Korean);
    texts[2] = "가새";
    EXPECT_EQ(Parse(texts).type, 206);
}

TEST_F(TBMembTest, TakesNodesByNumberAndNoneForANumberThatNoNodeHas) {
    Texts texts = BeamTexts();
    texts[7] = "12, 11 99";
    EXPECT_THAT(Parse(texts).nodes, ElementsAre(2u, 1u, 0u));
    texts[7] = "11to12";
    EXPECT_THAT(Parse(texts).nodes, ElementsAre(1u, 2u));
    texts[7] = "eleven";
    EXPECT_THAT(Parse(texts).nodes, ElementsAre());
}

TEST_F(TBMembTest, ReadsOnlyWhatTheTypeHas) {
    Texts wall = BeamTexts();
    wall[2] = "Wall";
    EXPECT_EQ(Parse(wall).beta, T_MEMB_D{}.beta);
    Texts beam = SlabTexts();
    beam[2] = "Beam";
    EXPECT_EQ(Parse(beam).slabType, 0);
    EXPECT_EQ(Parse(beam).slabLoadAngle, 0.0);
    // Only "1" sets a flag.
    beam[9] = "1";
    beam[10] = "2";
    EXPECT_EQ(Parse(beam).considerBending, 1);
    EXPECT_EQ(Parse(beam).tensionOnly, 0);
}

TEST_F(TBMembTest, CountsAsMissingOnlyWhatTheTypeHas) {
    Texts texts = SlabTexts();
    texts[12] = texts[13] = texts[14] = texts[6] = "";
    Parse(texts, false);
    EXPECT_EQ(Table().GetWarningText(),
              "Beta Angle has not been entered.\nSlab Type has not been entered.\n"
              "Slab Load Distribution has not been entered.\nSlab Load Angle has not been entered.");
    texts[2] = "Beam";
    Parse(texts, false);
    EXPECT_EQ(Table().GetWarningText(), "Beta Angle has not been entered.");
    texts[2] = "Wall";
    Parse(texts);
    texts[4] = texts[11] = "";
    Parse(texts, false);
    EXPECT_EQ(Table().GetWarningText(), "Material has not been entered.\nDivide Frame has not been entered.");
}

TEST_F(TBMembTest, ChecksNumbersInTheirColumnsAlone) {
    std::vector<int> checked;
    for (int id = 0; id < Table().GetInitialColCount(); ++id) {
        if (!Table().ValidateColumn("x", id)) checked.push_back(id);
        EXPECT_TRUE(Table().ValidateColumn("1", id)) << id;
    }
    EXPECT_THAT(checked, ElementsAre(0, 1, 6, 8, 9, 10, 11, 14));
    EXPECT_FALSE(Table().ValidateColumn("1.5", 8));
    EXPECT_TRUE(Table().ValidateColumn("1.5", 14));
    EXPECT_FALSE(Table().ValidateColumn("1", 15));
    EXPECT_FALSE(Table().ValidateColumn("1", -1));
}

TEST_F(TBMembTest, BeginsANewRowAsAColumn) {
    EXPECT_EQ(Table().GetDefaultCellText(2), "Column");
    EXPECT_EQ(Table().GetDefaultCellText(1), "");
    EXPECT_THAT(Table().SortInfo(), ElementsAre(velda::STBSortItem{1, 0, 0}));
    EXPECT_FALSE(Table().IsAppendRowEnabled());
    EXPECT_FALSE(Table().CanInsertRowByPressingKey());
}

TEST_F(TBMembTest, MakesTheListOfTheCurrentCellAnew) {
    ASSERT_TRUE(Table().SetCurrentCell(1, 6));
    AddNamed<CClassSect>(2, "H300");
    EXPECT_EQ(Table().StyleOf(1, 6).GetChoiceList(), "1\tB400\n2\tH300\n");
    int row = 0;
    int col = 0;
    ASSERT_TRUE(Table().GetCurrentCell(row, col));
    EXPECT_EQ(col, 6);
    ASSERT_TRUE(Records<CClassSect>().TR_Del(std::vector<std::uint32_t>{1, 2}));
    EXPECT_EQ(Table().StyleOf(1, 6).GetChoiceList(), "");
}

TEST_F(TBMembTest, LeavesTheListOfMaterialsWhenThereAreNone) {
    AddNamed<CClassMatl>(1, "C30");
    EXPECT_EQ(Table().StyleOf(1, 5).GetChoiceList(), "1\tC30\n");
    ASSERT_TRUE(Records<CClassMatl>().TR_Del(1));
    EXPECT_EQ(Table().StyleOf(1, 5).GetChoiceList(), "1\tC30\n");
}

}  // namespace
}  // namespace zt
