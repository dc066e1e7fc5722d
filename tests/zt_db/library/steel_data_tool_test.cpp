#include "zt_db/library/steel_data_tool.h"

#include "zt_db/library/data_tool.h"
#include "zt_db/library/db_lib.h"
#include "zt_db/test_support.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;
using testing::StartsWith;

constexpr const char* kName = "H-400x200x8x13";
constexpr int kLengthMm = 1;
constexpr int kLengthM = 0;
constexpr int kForceKn = 3;

class SectionLibrary : public ModelTest {
protected:
    ~SectionLibrary() override { CDBLib::SetDesignCode("KDS 14 20 10"); }
};

TEST_F(SectionLibrary, GivesSizesInTheCurrentUnit) {
    T_SECT_SECTBASE_D base;
    SetUnits(kForceKn, kLengthMm);
    ASSERT_TRUE(CDB_SteelDataTool::GetSectionProperty(kName, base));
    EXPECT_EQ(base.dbName, "KS");
    EXPECT_EQ(base.sectName, kName);
    EXPECT_DOUBLE_EQ(base.size[0], 400.0);
    EXPECT_DOUBLE_EQ(base.size[3], 13.0);
    SetUnits(kForceKn, kLengthM);
    ASSERT_TRUE(CDB_SteelDataTool::GetSectionProperty(kName, base));
    EXPECT_DOUBLE_EQ(base.size[0], 0.4);
}

TEST_F(SectionLibrary, SurvivesTheWayThroughARecord) {
    SetUnits(kForceKn, kLengthMm);
    T_SECT_D section{.name = "beam", .kind = 1, .shape = "H"};
    ASSERT_TRUE(CDB_SteelDataTool::GetSectionProperty("KS", kName, section.base));
    ASSERT_TRUE(Records<CClassSect>().TR_Add(1, section));
    SetUnits(kForceKn, kLengthM);
    T_SECT_D stored;
    T_SECT_SECTBASE_D base;
    ASSERT_TRUE(Records<CClassSect>().Get(1, stored));
    ASSERT_TRUE(CDB_SteelDataTool::GetSectionProperty("KS", kName, base));
    EXPECT_EQ(stored.base, base);
}

TEST_F(SectionLibrary, KnowsNamesExactly) {
    T_SECT_SECTBASE_D base{.sectName = "old"};
    for (const char* name : {"", "h-400x200x8x13", "H-400x200x8x13 ", "H-400x200x8", "None"}) {
        EXPECT_FALSE(CDB_SteelDataTool::GetSectionProperty(name, base)) << name;
    }
    EXPECT_FALSE(CDB_SteelDataTool::GetSectionProperty("ks", kName, base));
    EXPECT_FALSE(CDB_SteelDataTool::GetSectionProperty("EN", kName, base));
    EXPECT_EQ(base.sectName, "old");
    EXPECT_EQ(CDB_SteelDataTool::GetSectionShape("KS", kName), "H");
    EXPECT_EQ(CDB_SteelDataTool::GetSectionShape("EN", kName), "");
}

TEST_F(SectionLibrary, LooksIntoTheCurrentStandardFirst) {
    T_SECT_SECTBASE_D base;
    ASSERT_TRUE(CDBLib::SetDesignCode("AIJ RC"));
    ASSERT_TRUE(CDB_SteelDataTool::GetSectionProperty(kName, base));
    EXPECT_EQ(base.dbName, "JIS");
    ASSERT_TRUE(CDB_SteelDataTool::GetSectionProperty("IPE300", base));
    EXPECT_EQ(base.dbName, "EN");
}

TEST_F(SectionLibrary, ListsTheSectionsOfAStandard) {
    std::vector<std::string> standards;
    ASSERT_TRUE(CDB_SteelDataTool::GetSectionDBList(standards));
    EXPECT_THAT(standards, ElementsAre("KS", "JIS", "EN", "BS", "AISC", "GB", "IS"));
    std::vector<std::string> names;
    ASSERT_TRUE(CDB_SteelDataTool::GetSteelList_SectionListByDB(names));
    EXPECT_THAT(names, Contains(kName));
    EXPECT_EQ(names.size(), 734u);
    ASSERT_TRUE(CDB_SteelDataTool::GetSteelList_SectionListByDB("KS", names, "P"));
    EXPECT_THAT(names, Each(StartsWith("P-")));
    EXPECT_FALSE(CDB_SteelDataTool::GetSteelList_SectionListByDB("DIN", names));
    EXPECT_THAT(names, IsEmpty());
}

TEST_F(SectionLibrary, IsSearchedWithoutRegardToCaseAndBlanks) {
    std::vector<T_SECT_SECTBASE_D> exact;
    std::vector<T_SECT_SECTBASE_D> loose;
    ASSERT_TRUE(CDB_SteelDataTool::SearchSections(kName, exact));
    ASSERT_TRUE(CDB_SteelDataTool::SearchSections(" h - 400X200x8 x13", loose));
    EXPECT_EQ(exact, loose);
    ASSERT_TRUE(CDB_SteelDataTool::SearchSections("wpb240X240", loose));
    EXPECT_EQ(loose.front().dbName, "IS");
    EXPECT_FALSE(CDB_SteelDataTool::SearchSections("no such section", loose));
    EXPECT_THAT(loose, IsEmpty());
}

TEST_F(SectionLibrary, FillsASectionOfADesignRecord) {
    SetUnits(kForceKn, kLengthMm);
    T_GUMD_STL_SECTION section{.shape = "H", .name = "own"};
    ASSERT_TRUE(CDB_SteelDataTool::GetSectionSize(kName, section));
    EXPECT_EQ(section.name, kName);
    EXPECT_TRUE(section.useDb);
    EXPECT_DOUBLE_EQ(section.size[1], 200.0);
    EXPECT_FALSE(CDB_SteelDataTool::GetSectionSize("unknown", section));
    EXPECT_EQ(section.name, kName);
    EXPECT_THAT(section.size, Each(0.0));
}

TEST(SectionLibraryWithoutDocument, GivesMillimetresAndRefusesDesignRecords) {
    T_SECT_SECTBASE_D base;
    ASSERT_TRUE(CDB_SteelDataTool::GetSectionProperty(kName, base));
    EXPECT_EQ(base.size[0], 400.0);
    T_GUMD_STL_SECTION section;
    EXPECT_FALSE(CDB_SteelDataTool::GetSectionSize(kName, section));
}

TEST(SectionName, IsMadeOfTheSizes) {
    const auto name = [](const char* shape, std::array<double, 9> size) {
        return CDB_SteelDataTool::CreateSectionName({shape, "stored", false, size});
    };
    EXPECT_EQ(name("H", {400, 200, 8, 13}), "BH-400x200x8/13");
    EXPECT_EQ(name("L", {100, 75, 7.5, 8}), "L-100x75x7.5x8");
    EXPECT_EQ(name("2C", {200, 80, 7.5, 11, 12, 5, 10}), "2C-200x80x7.5x11/10");
    EXPECT_EQ(name("2L", {100, 75, 7, 7, 10}), "2L-100x75x7x7");
    EXPECT_EQ(name("P", {114.3, 4.5}), "P-114x4.5");
    EXPECT_EQ(name("SR", {50}), "SR-50");
    EXPECT_EQ(name("SB", {50, 40}), "SB-50x40");
    EXPECT_EQ(name("CC", {100, 50, 20, 2.3, 3}), "CC-100x50x20x2.3");
    EXPECT_EQ(name("GEN", {1, 2}), "stored");
    EXPECT_EQ(name("h", {1, 2}), "stored");
    EXPECT_EQ(CDB_SteelDataTool::CreateSectionName({"H", "stored", true, {400, 200, 8, 13}}), "stored");
}

TEST(SectionName, ShowsSizesWithoutZerosAtTheEnd) {
    const auto text = CDB_SteelDataTool::RemoveZeroUnderDecimalPoint;
    EXPECT_EQ(text(400.0), "400");
    EXPECT_EQ(text(12.5), "12.5");
    EXPECT_EQ(text(3.25), "3.25");
    EXPECT_EQ(text(0.0), "0");
    EXPECT_EQ(text(-0.0000000001), "0");
    EXPECT_EQ(text(0.00123), "0.001");
    EXPECT_EQ(text(0.0001), "0");
    EXPECT_EQ(text(9.9996), "10");
    EXPECT_EQ(text(99.996), "100");
    EXPECT_EQ(text(-12.5), "-12.5");
    EXPECT_EQ(text(1e9), "1000000000");
    EXPECT_EQ(text(1234567890.0), "1.234568e+9");
}

TEST(BoltGrades, OfHighTensionAreListedOnce) {
    std::vector<std::string> names;
    ASSERT_TRUE(CDB_SteelDataTool::GetMaterialList_HighTensionBolt(names));
    EXPECT_THAT(names, ElementsAre("F8T", "F10T", "F13T", "S10T", "A325", "A490", "8.8", "10.9", "8.8S", "10.9S"));
}

TEST(DesignCode, BringsItsCompanions) {
    EXPECT_FALSE(CDBLib::SetDesignCode("unknown"));
    EXPECT_EQ(CDBLib::GetMatlCodeNameConc(), "KDS 14 20 10");
    ASSERT_TRUE(CDBLib::SetDesignCode("EN 1992-1-1"));
    EXPECT_EQ(CDBLib::GetMatlCodeNameConc(), "EN 1992-1-1");
    EXPECT_EQ(CDBLib::GetMatlCodeNameStl(), "EN 1993-1-1");
    EXPECT_EQ(CDBLib::GetMatlCodeNameRebar(), "EN 10080");
    CDBLib::SetDesignCode("KDS 14 20 10");
}

TEST(Bars, AreListedByStandardAndCode) {
    std::vector<std::string> all;
    std::vector<std::string> main;
    ASSERT_TRUE(CDBLib::GetKsRebarNameList(all));
    EXPECT_THAT(all, IsSupersetOf({"D6", "D10", "D13", "D57"}));
    ASSERT_TRUE(CDBLib::GetRebarNameListByCode(main, 1));
    EXPECT_EQ(main.front(), "D10");
    EXPECT_THAT(main, Not(Contains("D6")));
    ASSERT_TRUE(CDBLib::GetRebarNameListByCode(main, 0));
    EXPECT_EQ(main, all);
    LibraryBar bar;
    ASSERT_TRUE(CDBLib::GetRebarData("KDS 14 20 10", "D25", bar));
    EXPECT_NEAR(bar.area, 506.7, 0.1);
    EXPECT_FALSE(CDBLib::GetRebarData("KDS 14 20 10", "d25", bar));
    EXPECT_FALSE(CDBLib::GetRebarData("KDS 14 20 10", "", bar));
    EXPECT_FALSE(CDBLib::GetRebarData("", "D25", bar));
}

TEST(Spacings, BeginWithTheirSign) {
    std::vector<std::string> names;
    ASSERT_TRUE(CDBLib::GetRebarSpaceAll(0, names));
    EXPECT_THAT(names, Each(StartsWith("@")));
    EXPECT_THAT(names, Contains("@200"));
}

TEST(Plates, OfConnectionsAreAList) {
    std::vector<double> thicknesses;
    ASSERT_TRUE(CDBLib::GetPlateThicknessList(thicknesses));
    EXPECT_THAT(thicknesses, ElementsAre(6, 8, 9, 12, 16, 19, 22, 25, 28, 32, 36, 40, 45, 50, 55, 60, 65, 70, 75, 80));
    EXPECT_FALSE(CDBLib::GetPlateThicknessList("unknown", thicknesses));
}

TEST(ChoiceLines, EndEachEntryWithALineEnd) {
    EXPECT_EQ(CDB_DataTool::ConvertArrayToString(std::vector<std::string>{"M6", "M8"}), "M6\nM8\n");
    EXPECT_EQ(CDB_DataTool::ConvertArrayToString(std::vector<double>{0.45, 6}), "0.45\n6\n");
    EXPECT_EQ(CDB_DataTool::ConvertArrayToString(std::vector<std::string>{}), "");
}

}  // namespace
}  // namespace zt
