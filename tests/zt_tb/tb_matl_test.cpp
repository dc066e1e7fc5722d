#include "zt_tb/model/tb_matl.h"

#include <fstream>

#include "velda_lib/language.h"
#include "zt_db/library/library.h"
#include "zt_tb/support/number_tables.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zt {
namespace {

using ::testing::ElementsAre;
using Texts = CTBMatl::RowTexts;
using namespace MatlColumn;

TEST(MatlRow, TellsShortTypesByTheExactText) {
    EXPECT_EQ(MatlRow::ShortType("Steel"), "S");
    EXPECT_EQ(MatlRow::ShortType("RC"), "C");
    EXPECT_EQ(MatlRow::ShortType("SRC"), "SRC");
    EXPECT_EQ(MatlRow::ShortType("User Defined"), "U");
    for (const char* text : {"", "steel", "STEEL", "S", " RC", "User  Defined"}) {
        EXPECT_EQ(MatlRow::ShortType(text), "") << text;
    }
    for (const char* shortType : {"S", "C", "SRC", "U"}) {
        EXPECT_EQ(MatlRow::ShortType(MatlRow::TypeText(shortType)), shortType);
    }
    EXPECT_EQ(MatlRow::TypeText("X"), "");
}

TEST(MatlRow, ListsNoGradesWithoutACode) {
    EXPECT_EQ(MatlRow::GradeLines(""), "");
    EXPECT_EQ(MatlRow::GradeLines("None"), "");
    EXPECT_EQ(MatlRow::GradeLines("no such code"), "");
    EXPECT_TRUE(MatlRow::GradeLines("KCI 2003").find("C24\n") != std::string::npos);
    EXPECT_EQ(MatlRow::CodeLines("U"), "None\n");
    EXPECT_EQ(MatlRow::CodeLines(""), "None\n");
}

class TBMatlTest : public TableTest {
protected:
    TBMatlTest() {
        AddNamed<CClassMatl>(1, "A");
        view_ = std::make_unique<OneTableView<CTBMatl>>(*doc);
    }
    ~TBMatlTest() override { velda::SetCurrentLanguage(velda::Language::English); }

    CTBMatl& Table() { return *view_->table; }
    static CTBMatl::ColumnMap Map() { return {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}; }
    static Texts SteelTexts() { return {"1", "A", "Steel", "None", "", "1", "0.3", "1e-05", "7850"}; }
    bool IsComplete(Texts texts) {
        texts.resize(16);
        return Table().ValidateRowComplete(texts, Map()) != 0;
    }

    std::unique_ptr<OneTableView<CTBMatl>> view_;
};

TEST_F(TBMatlTest, ChecksTypesAndNumbersInTheirColumns) {
    std::vector<int> refused;
    for (int id = 0; id < Table().GetInitialColCount(); ++id) {
        if (!Table().ValidateColumn("x", id)) refused.push_back(id);
    }
    EXPECT_THAT(refused, ElementsAre(0, 2, 5, 6, 7, 8, 11, 12, 13, 14));
    EXPECT_FALSE(Table().ValidateColumn("1", 16));
    EXPECT_FALSE(Table().ValidateColumn("steel", kType));
    EXPECT_EQ(Table().GetWarningText(), "Invalid material type. Enter Steel, RC, SRC or User Defined.");
    EXPECT_TRUE(Table().ValidateColumn("User Defined", kType));
}

TEST_F(TBMatlTest, PassesOverWhatTheTypeDoesNotHave) {
    EXPECT_TRUE(IsComplete(SteelTexts()));
    Texts texts = SteelTexts();
    texts.resize(16);
    texts[kElasticity2] = texts[kDamping] = "no number";
    texts[kCode2] = "None";
    EXPECT_TRUE(IsComplete(texts));
    texts[kType] = "SRC";
    EXPECT_FALSE(IsComplete(texts));
    for (const velda::ColumnId id : {kElasticity2, kPoisson2, kThermal2, kDensity2, kDamping}) {
        texts[static_cast<std::size_t>(id)] = "1";
    }
    EXPECT_TRUE(IsComplete(texts));
    texts[kCode2] = "";
    EXPECT_FALSE(IsComplete(texts));
}

TEST_F(TBMatlTest, NeedsAGradeUnlessTheCodeIsTheLiteralNone) {
    Texts texts = SteelTexts();
    texts[kCode1] = "none";
    EXPECT_FALSE(IsComplete(texts));
    EXPECT_EQ(Table().GetWarningText(), "Grade has not been entered.");
    velda::SetCurrentLanguage(velda::Language::Korean);
    EXPECT_TRUE(IsComplete(SteelTexts()));
}

TEST_F(TBMatlTest, BeginsANewRowAsSteelWithoutCodes) {
    EXPECT_EQ(Table().GetDefaultCellText(kType), "Steel");
    EXPECT_EQ(Table().GetDefaultCellText(kCode1), "None");
    EXPECT_EQ(Table().GetDefaultCellText(kCode2), "None");
    EXPECT_TRUE(Table().IsAppendRowEnabled());
    EXPECT_TRUE(Table().CanInsertRowByPressingKey());
}

TEST_F(TBMatlTest, ListsTheGradesOfTheLibraryInUse) {
    const TemporaryFolder folder;
    const std::filesystem::path file = folder.File("own.csv");
    std::ofstream(file) << "zt-library,materials_concrete,1\n"
                           "code,grade,fck_N_per_mm2,fck_cube_N_per_mm2,E_N_per_mm2,poisson,thermal_per_C,"
                           "density_kg_per_m3,fcm_N_per_mm2,ft_N_per_mm2,checked\n"
                           "Own,X1,24,0,25000,0.2,1e-05,2400,0,0,no\n";
    const int col = Table().PositionOfColumn(kCode1);
    ASSERT_TRUE(Records<CClassMatl>().TR_Add(2, T_MATL_D{.name = "C", .type = "C"}));
    EXPECT_EQ(Table().StyleOf(2, col).GetChoiceList().find("Own\n"), std::string::npos);
    const auto faults = Library::UseFiles(std::vector{file});
    EXPECT_THAT(faults, ElementsAre());
    EXPECT_NE(Table().StyleOf(2, col).GetChoiceList().find("Own\n"), std::string::npos);
    Library::UseFiles({});
    EXPECT_EQ(Table().StyleOf(2, col).GetChoiceList().find("Own\n"), std::string::npos);
}

}  // namespace
}  // namespace zt
