#include "zt_tb/boundary_load/tb_load_types.h"
#include "zt_tb/boundary_load/tb_member_loads.h"
#include "zt_tb/support/number_tables.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zt {
namespace {

using namespace MemberLoadColumn;
using ::testing::ElementsAre;

class MemberLoadsTest : public TableTest {
protected:
    MemberLoadsTest() {
        AddNode(1, 1);
        AddNode(2, 2);
        AddNode(3, 3);
        const int types[] = {101, 201, 205, 202, 301, 200, 207};
        for (std::uint32_t i = 0; i < std::size(types); ++i) {
            T_MEMB_D member;
            member.no = 100 + i + 1;
            member.type = types[i];
            member.nodes = {1, 2, 3};
            Add<CClassMemb>(i + 1, member);
        }
        AddLoadCase(1, "DL", "D");
        AddLoadCase(2, "CLV", "CLV");
    }
    template <class Table>
    static std::vector<int> RefusedOfTypes(Table& table) {
        std::vector<int> refused;
        for (int number = 101; number <= 107; ++number) {
            if (!table.ValidateColumn(std::to_string(number), kMember)) refused.push_back(number);
        }
        return refused;
    }
    static CTBBeamld::ColumnMap Map() {
        CTBBeamld::ColumnMap map;
        for (int i = 1; i <= kDescription + 1; ++i) map.push_back(i);
        return map;
    }
    static CTBBeamld::RowTexts Texts() {
        return {"5", "102", "", "DL", "uniform LOADS", "Global Z", "yes", "0", "1", "0", "0", "-5", "-5",
                "0", "0",   "", "x"};
    }
};

TEST_F(MemberLoadsTest, TakeMembersOfTheirTypes) {
    EXPECT_THAT(RefusedOfTypes(*OneTableView<CTBBeamld>(*doc).table), ElementsAre(101, 104, 105, 106, 107));
    EXPECT_THAT(RefusedOfTypes(*OneTableView<CTBLnld>(*doc).table), ElementsAre(101, 102, 103, 104, 105, 107));
    EXPECT_THAT(RefusedOfTypes(*OneTableView<CTBCmld>(*doc).table), ElementsAre(102, 103, 104, 105, 106));
    EXPECT_THAT(RefusedOfTypes(*OneTableView<CTBWallld>(*doc).table), ElementsAre(101, 102, 103, 105, 106, 107));
}

TEST_F(MemberLoadsTest, ReadTextsAsTheyStand) {
    OneTableView<CTBBeamld> view(*doc);
    std::uint32_t key = 0;
    T_LNLD_D load;
    ASSERT_TRUE(view.table->ParseRowText(Texts(), Map(), key, load)) << view.table->GetWarningText();
    EXPECT_EQ(key, 5u);
    EXPECT_EQ(load, (T_LNLD_D{.memb = 2,
                              .stld = 1,
                              .type = LoadType::UniformLoads,
                              .direction = LoadDirection::GlobalZ,
                              .projection = 1,
                              .x = {0, 1, 0, 0},
                              .p = {-5, -5, 0, 0},
                              .description = "x"}));
    CTBBeamld::RowTexts texts = Texts();
    texts[kType] = "Snow";
    texts[kDirection] = "up";
    ASSERT_TRUE(view.table->ParseRowText(texts, Map(), key, load));
    EXPECT_EQ(load.type, LoadType::Unknown);
    EXPECT_EQ(load.direction, LoadDirection::Unknown);
}

TEST_F(MemberLoadsTest, RequireAllButStoryUnitAndDescription) {
    OneTableView<CTBBeamld> view(*doc);
    EXPECT_FALSE(view.table->ValidateRowComplete(CTBBeamld::RowTexts(17), Map()));
    EXPECT_EQ(view.table->GetWarningText(),
              "Member has not been entered.\nLoad Case has not been entered.\nLoad Type has not been entered.\n"
              "Direction has not been entered.\nProjection has not been entered.\nX1 has not been entered.\n"
              "X2 has not been entered.\nX3 has not been entered.\nX4 has not been entered.\nP1 has not been entered.\n"
              "P2 has not been entered.\nP3 has not been entered.\nP4 has not been entered.");
}

TEST_F(MemberLoadsTest, PassEverythingInARowOfACrane) {
    OneTableView<CTBBeamld> view(*doc);
    CTBBeamld::RowTexts texts = Texts();
    texts[kMember] = "101";
    texts[kX1] = "7";
    EXPECT_FALSE(view.table->ValidateRowComplete(texts, Map()));
    texts[kLoadCase] = "CLV";
    EXPECT_TRUE(view.table->ValidateRowComplete(texts, Map()));
    EXPECT_TRUE(view.table->ValidateColumn("much", kP1));
    texts[kLoadCase] = "DL";
    EXPECT_FALSE(view.table->ValidateRowComplete(texts, Map()));
    EXPECT_FALSE(view.table->ValidateColumn("much", kP1));
}

TEST_F(MemberLoadsTest, CountTheirOwnRecords) {
    Add<CClassLnld>(1, {.memb = 2, .stld = 1});
    Add<CClassLnld>(2, {.memb = 4, .stld = 1});
    Add<CClassLnld>(3, {.memb = 4, .stld = 2});
    Add<CClassLnld>(4, {.memb = 6, .stld = 2});
    EXPECT_EQ(OneTableView<CTBBeamld>(*doc).table->GetRecordCount(), 3) << "a crane load shows whatever its member";
    EXPECT_EQ(OneTableView<CTBWallld>(*doc).table->GetRecordCount(), 2);
    EXPECT_EQ(OneTableView<CTBLnld>(*doc).table->GetRecordCount(), 1);
    EXPECT_EQ(OneTableView<CTBCmld>(*doc).table->GetRecordCount(), 0);
}

TEST_F(MemberLoadsTest, AreSortedByMemberLoadCaseTypeAndDirection) {
    OneTableView<CTBBeamld> view(*doc);
    EXPECT_THAT(view.table->SortInfo(), ElementsAre(velda::STBSortItem{1, 0, 0}, velda::STBSortItem{3, 0, 0},
                                                    velda::STBSortItem{4, 0, 0}, velda::STBSortItem{5, 0, 0}));
}

TEST_F(MemberLoadsTest, TurnRedWhereTheCheckerTracesThem) {
    Add<CClassLnld>(1, {.memb = 2, .stld = 1});
    Add<CClassSbla>(5, {.dl = 1});
    OneTableView<CTBBeamld> beams(*doc);
    OneTableView<CTBSbla> slabs(*doc);
    const auto red = [](const auto& table) {
        std::vector<int> columns;
        for (int col = 1; col <= table.GetColCount(); ++col) {
            if (table.StyleOf(1, col).GetTextColor() == 255) columns.push_back(col);
        }
        return columns;
    };
    doc->SetCheckMode(17);
    EXPECT_THAT(red(*beams.table), ElementsAre());
    doc->StartTracerMode();
    EXPECT_THAT(red(*beams.table), ElementsAre(12, 13, 14, 15));
    EXPECT_THAT(red(*slabs.table), ElementsAre());
    for (const int mode : {3, 18, 27}) {
        doc->SetCheckMode(mode);
        EXPECT_THAT(red(*slabs.table), ElementsAre(7)) << mode;
    }
    for (const int mode : {1, 16}) {
        doc->SetCheckMode(mode);
        EXPECT_THAT(red(*slabs.table), ElementsAre(6)) << mode;
    }
    doc->EndTracerMode();
    EXPECT_THAT(red(*slabs.table), ElementsAre());
}

TEST_F(MemberLoadsTest, ConvertTheirValuesByTheirTypes) {
    Add<CClassLnld>(1, {.memb = 2, .stld = 1, .type = LoadType::UniformLoads, .p = {-5, 0, 0, 0}});
    OneTableView<CTBBeamld> view(*doc);
    T_UNIT_INDEX units;
    doc->GetUnitCtrl()->GetUnitIndexCurrent(units);
    units.length = CUnitCtrl::FindChoice(UnitQuantity::Length, "mm");
    ASSERT_TRUE(doc->GetUnitCtrl()->SetUnitIndexCurrent(units, 1));
    view.table->UnitChanged();
    EXPECT_EQ(view.table->GetValueRowCol(1, kP1 + 1), "-0.005");
    EXPECT_EQ(view.table->GetValueRowCol(1, kUnit + 1), "kN/mm");
    CTBBeamld::RowTexts texts = Texts();
    view.table->WriteRowFromText(1, texts);
    EXPECT_EQ(view.table->GetValueRowCol(1, kP1 + 1), "-0.005");
}

}  // namespace
}  // namespace zt
