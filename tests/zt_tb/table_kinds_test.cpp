#include "zt_tb/model/table_kinds.h"

#include <map>
#include <set>
#include <string>
#include <vector>

#include "velda_lib/language.h"
#include "velda_lib/msg_dll.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zt {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

std::vector<int> Kinds(std::span<const int> kinds) { return {kinds.begin(), kinds.end()}; }

std::vector<int> From(int first, int last) {
    std::vector<int> kinds;
    for (int kind = first; kind <= last; ++kind) kinds.push_back(kind);
    return kinds;
}

std::vector<int> KindsIn(TableKindSet set) {
    std::vector<int> kinds;
    for (int kind = -1; kind <= kLastTableKind + 1; ++kind) {
        if (Contains(set, kind)) kinds.push_back(kind);
    }
    return kinds;
}

TEST(TableKinds, HaveTheNumbersFrom0To86AndFrom121To161) {
    std::vector<int> numbers;
    for (const TableKindEntry& entry : TableKinds()) numbers.push_back(entry.kind);
    std::vector<int> expected = From(0, 86);
    for (const int kind : From(121, 161)) expected.push_back(kind);
    EXPECT_EQ(expected, numbers);
}

struct ExpectedKind {
    int kind;
    std::string_view titleKey;
    std::string_view mnemonic;
    std::string_view tabKey;
};
constexpr ExpectedKind kExpectedKinds[] = {
    {0, "IDS_TB_PREVIEW_No_table", "", "IDS_TB_PREVIEW_No_table"},
    {1, "IDS_TB_PREVIEW_Pont", "PONT", "IDS_TB_PREVIEW_Pont"},
    {2, "IDS_TB_PREVIEW_Memb", "MEMB", "IDS_TB_PREVIEW_Memb"},
    {3, "IDS_TB_PREVIEW_Spts", "SPTS", "IDS_TB_PREVIEW_Spts"},
    {4, "IDS_TB_PREVIEW_Pmas", "PMAS", "IDS_TB_PREVIEW_Pmas"},
    {5, "IDS_TB_PREVIEW_Rigd", "RIGD", "IDS_TB_PREVIEW_Rigd"},
    {6, "IDS_TB_PREVIEW_Ptld", "PTLD", "IDS_TB_PREVIEW_Pold"},
    {7, "IDS_TB_PREVIEW_Elnk", "ELNK", "IDS_TB_PREVIEW_Elnk"},
    {8, "IDS_TB_PREVIEW_Skew", "SKEW", "IDS_TB_PREVIEW_Skew"},
    {9, "IDS_TB_PREVIEW_Nlnk", "NLNK", "IDS_TB_PREVIEW_Nlnk"},
    {10, "IDS_TB_PREVIEW_Cglp", "CGLP", "IDS_TB_PREVIEW_Cglp"},
    {11, "IDS_TB_PREVIEW_Frls", "FRLS", "IDS_TB_PREVIEW_Frls"},
    {12, "IDS_TB_PREVIEW_Srls", "SRLS", "IDS_TB_PREVIEW_Srls"},
    {13, "IDS_TB_PREVIEW_Sspt", "SSPT", "IDS_TB_PREVIEW_Sspt"},
    {14, "IDS_TB_PREVIEW_Wssf", "WSSF", "IDS_TB_PREVIEW_Wssf"},
    {15, "IDS_TB_PREVIEW_Sssf", "SSSF", "IDS_TB_PREVIEW_Sssf"},
    {16, "IDS_TB_PREVIEW_Frsf", "FRSF", "IDS_TB_PREVIEW_Frsf"},
    {17, "IDS_TB_PREVIEW_Sdsp", "SDSP", "IDS_TB_PREVIEW_Sdsp"},
    {18, "IDS_TB_PREVIEW_Swgt", "SWGT", "IDS_TB_PREVIEW_Swgt"},
    {19, "IDS_TB_PREVIEW_Stmp", "STMP", "IDS_TB_PREVIEW_Stmp"},
    {20, "IDS_TB_PREVIEW_Ptmp", "PTMP", "IDS_TB_PREVIEW_Ptmp"},
    {21, "IDS_TB_PREVIEW_Mtmp", "MTMP", "IDS_TB_PREVIEW_Mtmp"},
    {22, "IDS_TB_PREVIEW_Bmla", "BMLA", "IDS_TB_PREVIEW_Bmla"},
    {23, "IDS_TB_PREVIEW_Arld", "ARLD", "IDS_TB_PREVIEW_Arld"},
    {24, "IDB_TB_PREVIEW_Ltld", "", "IDB_TB_PREVIEW_Ltld"},
    {25, "IDS_TB_PREVIEW_Line_Load", "LNLD", "IDS_TB_PREVIEW_Line_Load"},
    {26, "IDB_TB_PREVIEW_Cmld", "CMLD", "IDB_TB_PREVIEW_Cmld"},
    {27, "IDS_TB_PREVIEW_Wall_Load", "WALLLD", "IDS_TB_PREVIEW_Wall_Load"},
    {28, "IDS_TB_PREVIEW_Bmla", "BEAMLD", "IDS_TB_PREVIEW_Bmla"},
    {29, "IDS_TB_PREVIEW_Inmf", "INMF", "IDS_TB_PREVIEW_Inmf"},
    {30, "IDS_TB_PREVIEW_Awop", "AWOP", "IDS_TB_PREVIEW_Awop"},
    {31, "IDS_TB_PREVIEW_Offs", "OFFS", "IDS_TB_PREVIEW_Offs"},
    {32, "IDB_TB_PREVIEW_Thnl", "", "IDB_TB_PREVIEW_Thnl"},
    {33, "IDB_TB_PREVIEW_Matl", "MATL", "IDB_TB_PREVIEW_Matl"},
    {34, "IDB_TB_PREVIEW_Sbla", "SBLA", "IDB_TB_PREVIEW_Sbla"},
    {35, "IDB_TB_PREVIEW_Bwld", "BWLD", "IDB_TB_PREVIEW_Bwld"},
    {36, "IDB_TB_PREVIEW_Sprs", "SPRS", "IDB_TB_PREVIEW_Sprs"},
    {37, "IDB_TB_PREVIEW_Wprs", "WPRS", "IDB_TB_PREVIEW_Wprs"},
    {38, "IDB_TB_PREVIEW_Gwex", "GWEX", "IDB_TB_PREVIEW_Gwex"},
    {39, "IDB_TB_PREVIEW_Nwex", "NWEX", "IDB_TB_PREVIEW_Nwex"},
    {40, "IDB_TB_PREVIEW_Drld", "DRLD", "IDB_TB_PREVIEW_Drld"},
    {41, "IDB_TB_PREVIEW_Wnld", "WNLD", "IDB_TB_PREVIEW_Wnld"},
    {42, "IDB_TB_PREVIEW_Gwup", "GWUP", "IDB_TB_PREVIEW_Gwup"},
    {43, "IDB_TB_PREVIEW_Nwup", "NWUP", "IDB_TB_PREVIEW_Nwup"},
    {44, "IDB_TB_PREVIEW_Nwlw", "NWLW", "IDB_TB_PREVIEW_Nwlw"},
    {45, "IDB_TB_PREVIEW_Ndld", "NDLD", "IDB_TB_PREVIEW_Ndld"},
    {46, "IDB_TB_PREVIEW_Nwld", "NWLD", "IDB_TB_PREVIEW_Nwld"},
    {47, "IDB_TB_PREVIEW_Cbld", "", "IDB_TB_PREVIEW_Cbld"},
    {48, "IDB_TB_PREVIEW_Mrft", "MRFT", "IDB_TB_PREVIEW_Mrft"},
    {49, "IDB_TB_PREVIEW_Trft", "TRFT", "IDB_TB_PREVIEW_Trft"},
    {50, "IDB_TB_PREVIEW_Sueq", "SUEQ", "IDB_TB_PREVIEW_Sueq"},
    {51, "IDB_TB_PREVIEW_Kfac", "KFAC", "IDB_TB_PREVIEW_Kfac"},
    {52, "IDB_TB_PREVIEW_Dfft", "", "IDB_TB_PREVIEW_Dfft"},
    {53, "IDB_TB_PREVIEW_Mrft", "PMRFT", "IDB_TB_PREVIEW_Mrft"},
    {54, "IDB_TB_PREVIEW_Trft", "PTRFT", "IDB_TB_PREVIEW_Trft"},
    {55, "IDB_TB_PREVIEW_Sueq", "PSUEQ", "IDB_TB_PREVIEW_Sueq"},
    {56, "IDB_TB_PREVIEW_Kfac", "PKFAC", "IDB_TB_PREVIEW_Kfac"},
    {57, "IDB_TB_PREVIEW_Dfft", "", "IDB_TB_PREVIEW_Dfft"},
    {58, "IDB_TB_PREVIEW_Lfeg", "LFEG", "IDB_TB_PREVIEW_Lfeg"},
    {59, "IDB_TB_PREVIEW_Lfeg", "PLFEG", "IDB_TB_PREVIEW_Lfeg"},
    {60, "IDB_TB_PREVIEW_Sdir", "SDIR", "IDB_TB_PREVIEW_Sdir"},
    {61, "IDB_TB_PREVIEW_Sdir", "PSDIR", "IDB_TB_PREVIEW_Sdir"},
    {62, "IDB_TB_PREVIEW_Lfcw", "LFCW", "IDB_TB_PREVIEW_Lfcw"},
    {63, "IDB_TB_PREVIEW_Lfbm", "LFBM", "IDB_TB_PREVIEW_Lfbm"},
    {64, "IDB_TB_PREVIEW_Lffd", "LFFD", "IDB_TB_PREVIEW_Lffd"},
    {65, "IDB_TB_PREVIEW_Llrf", "", "IDB_TB_PREVIEW_Llrf"},
    {66, "IDB_TB_PREVIEW_Lfcw", "PLFCW", "IDB_TB_PREVIEW_Lfcw"},
    {67, "IDB_TB_PREVIEW_Lfbm", "PLFBM", "IDB_TB_PREVIEW_Lfbm"},
    {68, "IDB_TB_PREVIEW_Lffd", "PLFFD", "IDB_TB_PREVIEW_Lffd"},
    {69, "IDB_TB_PREVIEW_Llrf", "", "IDB_TB_PREVIEW_Llrf"},
    {70, "IDB_TB_PREVIEW_Sflt", "SFLT", "IDB_TB_PREVIEW_Sflt"},
    {71, "IDB_TB_PREVIEW_Sfmd", "SFMD", "IDB_TB_PREVIEW_Sfmd"},
    {72, "IDB_TB_PREVIEW_Sfwb", "SFWB", "IDB_TB_PREVIEW_Sfwb"},
    {73, "IDB_TB_PREVIEW_Leng", "LENG", "IDB_TB_PREVIEW_Leng"},
    {74, "IDB_TB_PREVIEW_Ltsr", "LTSR", "IDB_TB_PREVIEW_Ltsr"},
    {75, "IDB_TB_PREVIEW_Cbft", "CBFT", "IDB_TB_PREVIEW_Cbft"},
    {76, "IDB_TB_PREVIEW_Uccf", "UCCF", "IDB_TB_PREVIEW_Uccf"},
    {77, "IDS_TB_PREVIEW_SPAN", "SPAN", "IDS_TB_PREVIEW_SPAN"},
    {78, "IDB_TB_PREVIEW_Exps", "EXPS", "IDB_TB_PREVIEW_Exps"},
    {79, "IDB_TB_PREVIEW_Mbtp", "", "IDB_TB_PREVIEW_Mbtp"},
    {80, "IDB_TB_PREVIEW_Mtcm", "MTCM", "IDB_TB_PREVIEW_Mtcm"},
    {81, "IDB_TB_PREVIEW_Mtbm", "MTBM", "IDB_TB_PREVIEW_Mtbm"},
    {82, "IDB_TB_PREVIEW_Mtwl", "MTWL", "IDB_TB_PREVIEW_Mtwl"},
    {83, "IDB_TB_PREVIEW_Mtsb", "MTSB", "IDB_TB_PREVIEW_Mtsb"},
    {84, "IDS_TB_PREVIEW_Memb", "", "IDS_TB_PREVIEW_Memb"},
    {85, "IDS_TB_PREVIEW_Pont_Detail", "", "IDS_TB_PREVIEW_Pont_Detail"},
    {86, "IDS_TB_PREVIEW_Memb_Detail", "", "IDS_TB_PREVIEW_Memb_Detail"},
    {121, "IDS_TB_PREVIEW_PHGE_ALL", "", "IDS_TB_PREVIEW_PHGE_ALL"},
    {122, "IDS_TB_PREVIEW_PHGE_FEMA", "PHGEFEMA", "IDS_TB_PREVIEW_PHGE_FEMA"},
    {123, "IDS_TB_PREVIEW_PHGE_MULT", "PHGEMUL", "IDS_TB_PREVIEW_PHGE_MULT"},
    {124, "IDS_TB_PREVIEW_PHGE_ALL_SEL", "", "IDS_TB_PREVIEW_PHGE_ALL_SEL"},
    {125, "IDS_TB_PREVIEW_PHGE_FEMA", "PHGEFEMA", "IDS_TB_PREVIEW_PHGE_FEMA"},
    {126, "IDS_TB_PREVIEW_PHGE_MULT", "PHGEMUL", "IDS_TB_PREVIEW_PHGE_MULT"},
    {127, "IDS_TB_PREVIEW_IEHE_ALL", "", "IDS_TB_PREVIEW_IEHE_ALL"},
    {128, "IDS_TB_PREVIEW_IEHE_HYST", "IEHEMUL", "IDS_TB_PREVIEW_IEHE_HYST"},
    {129, "IDS_TB_PREVIEW_IEHE_HYST", "IEHEMUL", "IDS_TB_PREVIEW_IEHE_HYST"},
    {130, "IDS_TB_PREVIEW_PHGE", "PHGE", "IDS_TB_PREVIEW_PHGE"},
    {131, "IDS_TB_PREVIEW_IEHE", "IEHE", "IDS_TB_PREVIEW_IEHE"},
    {132, "IDS_TB_PREVIEW_PHGE_ALL_WALL", "", "IDS_TB_PREVIEW_PHGE_ALL_WALL"},
    {133, "IDB_TB_PREVIEW_phgew_con", "PHGEWALLCON", "IDS_TB_PREVIEW_IEHE_TAB_CONC"},
    {134, "IDB_TB_PREVIEW_phgew_stl", "PHGEWALLSTL", "IDS_TB_PREVIEW_IEHE_TAB_STL"},
    {135, "IDB_TB_PREVIEW_phgew_shr", "PHGEWALLSHR", "IDS_TB_PREVIEW_IEHE_TAB_SHR"},
    {136, "IDS_TB_PREVIEW_IEHE_ALL_WALL", "", "IDS_TB_PREVIEW_IEHE_ALL_WALL"},
    {137, "IDB_TB_PREVIEW_iehew_con", "IEHEWALLCON", "IDS_TB_PREVIEW_IEHE_TAB_CONC"},
    {138, "IDB_TB_PREVIEW_iehew_stl", "IEHEWALLSTL", "IDS_TB_PREVIEW_IEHE_TAB_STL"},
    {139, "IDB_TB_PREVIEW_iehew_shr", "IEHEWALLSHR", "IDS_TB_PREVIEW_IEHE_TAB_SHR"},
    {140, "IDS_TB_MEMB_TYPE_COLUMN", "MBCL", "IDS_TB_MEMB_TYPE_COLUMN"},
    {141, "IDS_TB_MEMB_TYPE_BEAM", "MBBM", "IDS_TB_MEMB_TYPE_BEAM"},
    {142, "IDS_TB_MEMB_TYPE_SBEAM", "MBSB", "IDS_TB_MEMB_TYPE_SBEAM"},
    {143, "IDS_TB_MEMB_TYPE_WALL", "MBWL", "IDS_TB_MEMB_TYPE_WALL"},
    {144, "IDS_TB_MEMB_TYPE_SLAB", "MBSL", "IDS_TB_MEMB_TYPE_SLAB"},
    {145, "IDS_TB_MEMB_TYPE_STAIR", "MBST", "IDS_TB_MEMB_TYPE_STAIR"},
    {146, "IDS_TB_MEMB_TYPE_BREACE", "MBBR", "IDS_TB_MEMB_TYPE_BREACE"},
    {147, "IDS_TB_MEMB_TYPE_LINE", "MBLN", "IDS_TB_MEMB_TYPE_LINE"},
    {148, "IDS_TB_MEMB_TYPE_OPENING_SLAB", "MBOS", "IDS_TB_MEMB_TYPE_OPENING_SLAB"},
    {149, "IDS_TB_MEMB_TYPE_BLOCK", "MBBL", "IDS_TB_MEMB_TYPE_BLOCK"},
    {150, "IDS_TB_MEMB_TYPE_BRICK", "MBBC", "IDS_TB_MEMB_TYPE_BRICK"},
    {151, "IDS_TB_MEMB_TYPE_CONCRETE", "MBMW", "IDS_TB_MEMB_TYPE_CONCRETE"},
    {152, "IDS_TB_MEMB_TYPE_USER_WALL", "MBUW", "IDS_TB_MEMB_TYPE_USER_WALL"},
    {153, "IDS_TB_MEMB_TYPE_USER_SLAB", "MBUS", "IDS_TB_MEMB_TYPE_USER_SLAB"},
    {154, "IDS_TB_MEMB_TYPE_TRUSS_BEAM", "MBBT", "IDS_TB_MEMB_TYPE_TRUSS_BEAM"},
    {155, "IDS_TB_MEMB_TYPE_TRUSS_BRTR", "MBRT", "IDS_TB_MEMB_TYPE_TRUSS_BRTR"},
    {156, "IDS_TB_MEMB_TYPE_PURLIN", "MBPL", "IDS_TB_MEMB_TYPE_PURLIN"},
    {157, "IDS_TB_MEMB_TYPE_GIRTH", "MBGT", "IDS_TB_MEMB_TYPE_GIRTH"},
    {158, "IDS_TB_MEMB_TYPE_STEEL_STAIR_BEAM", "MBSTEELSTAIRBEAM", "IDS_TB_MEMB_TYPE_STEEL_STAIR_BEAM"},
    {159, "IDS_TB_MEMB_TYPE_STEEL_STAIR", "MBSTEELSTAIR", "IDS_TB_MEMB_TYPE_STEEL_STAIR"},
    {160, "IDS_TB_PREVIEW_Memb", "", "IDS_TB_PREVIEW_Memb"},
    {161, "IDS_TB_PREVIEW_Chk", "CHK", "IDS_TB_PREVIEW_Chk"},
};

TEST(TableKinds, HaveTheirTitlesClassesAndTabs) {
    ASSERT_EQ(std::size(kExpectedKinds), TableKinds().size());
    std::size_t at = 0;
    for (const TableKindEntry& entry : TableKinds()) {
        const ExpectedKind& expected = kExpectedKinds[at++];
        EXPECT_EQ(expected.kind, entry.kind);
        EXPECT_EQ(expected.titleKey, entry.titleKey) << entry.kind;
        EXPECT_EQ(expected.mnemonic, entry.mnemonic) << entry.kind;
        EXPECT_EQ(expected.tabKey, entry.TabKey()) << entry.kind;
    }
}

TEST(TableKinds, AreFoundByTheirNumbers) {
    for (const TableKindEntry& entry : TableKinds()) EXPECT_EQ(&entry, FindTableKind(entry.kind));
    for (const int kind : {-1, 87, 100, 120, 162, 1000000}) EXPECT_EQ(nullptr, FindTableKind(kind)) << kind;
}

TEST(TableKinds, AreFoundByTheMnemonicsOfTheirClasses) {
    EXPECT_EQ(kTablePont, FindTableKind("PONT")->kind);
    EXPECT_EQ(kTableMbSteelStair, FindTableKind("MBSTEELSTAIR")->kind);
    EXPECT_EQ(kTableChk, FindTableKind("CHK")->kind);
    EXPECT_EQ(nullptr, FindTableKind(""));
    EXPECT_EQ(nullptr, FindTableKind("pont"));
    EXPECT_EQ(nullptr, FindTableKind("LTLD"));
}

TEST(TableKinds, OfHingesShareTheirClassesAndTheFirstIsFound) {
    EXPECT_EQ(kTablePhgeFema, FindTableKind("PHGEFEMA")->kind);
    EXPECT_EQ(kTablePhgeMul, FindTableKind("PHGEMUL")->kind);
    EXPECT_EQ(kTableIeheMulAll, FindTableKind("IEHEMUL")->kind);
    EXPECT_EQ("PHGEFEMA", FindTableKind(kTablePhgeFemaSel)->mnemonic);
    EXPECT_EQ("PHGEMUL", FindTableKind(kTablePhgeMulSel)->mnemonic);
    EXPECT_EQ("IEHEMUL", FindTableKind(kTableIeheMul)->mnemonic);
}

TEST(TableKinds, OfAnyOtherClassAreOne) {
    std::map<std::string_view, int> kinds;
    for (const TableKindEntry& entry : TableKinds()) ++kinds[entry.mnemonic];
    for (const auto& [mnemonic, count] : kinds) {
        if (mnemonic.empty()) continue;
        const bool shared = mnemonic == "PHGEFEMA" || mnemonic == "PHGEMUL" || mnemonic == "IEHEMUL";
        EXPECT_EQ(shared ? 2 : 1, count) << mnemonic;
    }
}

TEST(TableKinds, HaveATitleInEachLanguage) {
    for (const velda::Language language : {velda::Language::Korean, velda::Language::English}) {
        velda::SetCurrentLanguage(language);
        for (const TableKindEntry& entry : TableKinds()) {
            for (const std::string_view key : {entry.titleKey, entry.TabKey()}) {
                EXPECT_NE(key, velda::CMsgDll::pfuncLoadStr(key, 0)) << entry.kind;
            }
        }
    }
}

TEST(TableKinds, HaveATabTextOfTheirOwnInSevenCases) {
    std::map<int, std::string_view> own;
    for (const TableKindEntry& entry : TableKinds()) {
        if (entry.TabKey() != entry.titleKey) own[entry.kind] = entry.TabKey();
    }
    const std::map<int, std::string_view> expected = {{6, "IDS_TB_PREVIEW_Pold"},
                                                      {133, "IDS_TB_PREVIEW_IEHE_TAB_CONC"},
                                                      {134, "IDS_TB_PREVIEW_IEHE_TAB_STL"},
                                                      {135, "IDS_TB_PREVIEW_IEHE_TAB_SHR"},
                                                      {137, "IDS_TB_PREVIEW_IEHE_TAB_CONC"},
                                                      {138, "IDS_TB_PREVIEW_IEHE_TAB_STL"},
                                                      {139, "IDS_TB_PREVIEW_IEHE_TAB_SHR"}};
    EXPECT_EQ(expected, own);
}

TEST(TableKinds, OfGroupsAndOfNoTableHaveNoClass) {
    std::vector<int> without;
    for (const TableKindEntry& entry : TableKinds()) {
        if (!entry.mnemonic.empty()) continue;
        without.push_back(entry.kind);
        EXPECT_EQ(nullptr, entry.make) << entry.kind;
    }
    EXPECT_THAT(without, ElementsAre(0, 24, 32, 47, 52, 57, 65, 69, 79, 84, 85, 86, 121, 124, 127, 132, 136, 160));
}

TEST(TableKinds, ThatDoNotFollowTheDocumentAreThree) {
    std::map<int, TableFollows> others;
    for (const TableKindEntry& entry : TableKinds()) {
        if (entry.follows != TableFollows::ChangesAndUnits) others[entry.kind] = entry.follows;
    }
    const std::map<int, TableFollows> expected = {
        {77, TableFollows::Nothing}, {78, TableFollows::Changes}, {161, TableFollows::Changes}};
    EXPECT_EQ(expected, others);
}

// A class that comes leaves this list, and its maker stands in the catalogue.
TEST(TableKinds, WhoseClassesDoNotExistYet) {
    std::string missing;
    for (const TableKindEntry& entry : TableKinds()) {
        if (!entry.mnemonic.empty() && !entry.make) missing += std::string(entry.mnemonic) + " ";
    }
    EXPECT_EQ(
        "RIGD ELNK SKEW NLNK CGLP FRLS SRLS SSPT WSSF SSSF FRSF SDSP STMP PTMP MTMP ARLD INMF AWOP OFFS SPRS WPRS "
        "GWEX NWEX DRLD WNLD GWUP NWUP NWLW NDLD NWLD MRFT TRFT SUEQ KFAC PMRFT PTRFT PSUEQ PKFAC LFEG PLFEG SDIR "
        "PSDIR LFCW LFBM LFFD PLFCW PLFBM PLFFD SFLT SFMD SFWB LENG LTSR CBFT UCCF SPAN EXPS MTCM MTBM MTWL MTSB "
        "PHGEFEMA PHGEMUL PHGEFEMA PHGEMUL IEHEMUL IEHEMUL PHGE IEHE PHGEWALLCON PHGEWALLSTL PHGEWALLSHR "
        "IEHEWALLCON IEHEWALLSTL IEHEWALLSHR MBCL MBBM MBSB MBWL MBSL MBST MBBR MBLN MBOS MBBL MBBC MBMW MBUW "
        "MBUS MBBT MBRT MBPL MBGT MBSTEELSTAIRBEAM MBSTEELSTAIR CHK ",
        missing);
}

TEST(TableKinds, OutsideTheCatalogueHaveNoMaker) {
    for (const int kind : {-1, 0, 24, 32, 87, 120, 162}) EXPECT_EQ(nullptr, FindTableMaker(kind)) << kind;
}

// ---- groups

struct ExpectedGroup {
    int kind;
    std::vector<int> askedBy;
    std::vector<int> tables;
    int runMode;
};

class TableGroupTest : public ::testing::TestWithParam<ExpectedGroup> {};

TEST_P(TableGroupTest, IsOpenedByItsKindsAndHasItsTables) {
    for (const int kind : GetParam().askedBy) {
        const TableGroup* group = FindTableGroup(kind);
        ASSERT_NE(nullptr, group) << kind;
        EXPECT_EQ(GetParam().kind, group->kind);
        EXPECT_EQ(GetParam().tables, Kinds(group->tables));
        EXPECT_EQ(GetParam().runMode, group->runMode);
    }
}

INSTANTIATE_TEST_SUITE_P(
    All, TableGroupTest,
    ::testing::Values(ExpectedGroup{24, {24, 25, 26, 27, 28}, {25, 26, 27, 28}, 1},
                      ExpectedGroup{47, From(36, 47), From(36, 46), 1}, ExpectedGroup{52, {48, 49, 50, 52}, {48}, 1},
                      ExpectedGroup{57, {53, 54, 55, 57}, {53}, 1}, ExpectedGroup{65, From(62, 65), {62, 63, 64}, 1},
                      ExpectedGroup{69, From(66, 69), {66, 67, 68}, 1},
                      ExpectedGroup{79, From(79, 83), {80, 81, 82, 83}, 1}, ExpectedGroup{84, {84}, {1, 2}, 1},
                      ExpectedGroup{160, From(140, 160), From(140, 159), 1},
                      ExpectedGroup{85, {85}, {1, 3, 7, 6, 17}, 2},
                      ExpectedGroup{86,
                                    {86},
                                    {2,  30, 11, 31, 34, 28, 27, 25, 26, 21, 58, 16, 14, 15, 62, 63, 64, 48,
                                     49, 50, 51, 60, 73, 74, 75, 76, 59, 66, 67, 68, 53, 54, 55, 56, 61},
                                    2},
                      ExpectedGroup{121, {121}, {122, 123}, 1}, ExpectedGroup{124, {124}, {125, 126}, 1},
                      ExpectedGroup{127, {127}, {128}, 1}, ExpectedGroup{132, {132}, {133, 134, 135}, 1},
                      ExpectedGroup{136, {136}, {137, 138, 139}, 1}),
    [](const auto& test) { return "Of" + std::to_string(test.param.kind); });

TEST(TableGroups, AreSixteen) { EXPECT_EQ(16u, TableGroups().size()); }

TEST(TableGroups, AreNotOpenedByKindsThatStandAlone) {
    for (const int kind :
         {-1, 0, 1, 2, 29, 32, 35, 51, 56, 58, 61, 70, 78, 87, 122, 126, 128, 131, 135, 139, 161, 162}) {
        EXPECT_EQ(nullptr, FindTableGroup(kind)) << kind;
    }
}

TEST(TableGroups, HoldKindsWithClassesOnly) {
    for (const TableGroup& group : TableGroups()) {
        for (const int kind : group.tables) EXPECT_FALSE(FindTableKind(kind)->mnemonic.empty()) << kind;
    }
}

TEST(TableGroups, OfMemberDetailHaveFewerTablesOnTheResultSide) {
    const TableGroup& group = *FindTableGroup(kTableMembDetail);
    EXPECT_EQ(Kinds(group.tables), Kinds(group.TablesIn(true)));
    EXPECT_THAT(Kinds(group.TablesIn(false)), ElementsAre(59, 66, 67, 68, 53, 54, 55, 56, 61, 73, 74, 75, 76));
    const TableGroup& nodes = *FindTableGroup(kTablePontDetail);
    EXPECT_EQ(Kinds(nodes.tables), Kinds(nodes.TablesIn(false)));
}

TEST(TableGroups, FollowTheSelectionInDetailAndForHinges) {
    std::map<int, GroupSelection> following;
    for (const TableGroup& group : TableGroups()) {
        if (group.selection != GroupSelection::None) following[group.kind] = group.selection;
    }
    const std::map<int, GroupSelection> expected = {
        {85, GroupSelection::Nodes},          {86, GroupSelection::Members},
        {121, GroupSelection::FoundByTables}, {127, GroupSelection::FoundByTables},
        {132, GroupSelection::FoundByTables}, {136, GroupSelection::FoundByTables}};
    EXPECT_EQ(expected, following);
}

// ---- kinds that close

TEST(TableKindSets, OfModeSwitches) {
    EXPECT_THAT(KindsIn(KindsKeptByPreMode()), ElementsAre(85, 86));
    std::vector<int> closed = From(1, 76);
    for (const int kind : From(79, 84)) closed.push_back(kind);
    for (const int kind : From(140, 160)) closed.push_back(kind);
    EXPECT_EQ(closed, KindsIn(KindsClosedByPostMode()));
}

TEST(TableKindSets, OfHinges) { EXPECT_EQ(From(121, 139), KindsIn(HingeTableKinds())); }

TEST(TableKindSets, OfTextCommands) {
    std::map<std::string_view, std::vector<int>> closed;
    for (const ClosingCommand& command : ClosingCommands()) closed[command.text] = KindsIn(command.kinds);
    std::vector<int> memberTypes;
    for (const int kind : From(140, 171)) {
        if (0x133fff >> (kind - 140) & 1) memberTypes.push_back(kind);
    }
    const std::map<std::string_view, std::vector<int>> expected = {{"FINISH_MBTB_TABLE", memberTypes},
                                                                   {"FINISH_SBLA_TABLE", {34}},
                                                                   {"FINISH_LNLD_TABLE", {25}},
                                                                   {"FINISH_BNDR_OFFS_TABLE", {31}}};
    EXPECT_EQ(expected, closed);
}

}  // namespace
}  // namespace zt
