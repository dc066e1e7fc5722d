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
        "SPTS PMAS RIGD PTLD ELNK SKEW NLNK CGLP FRLS SRLS SSPT WSSF SSSF FRSF SDSP SWGT STMP PTMP MTMP BMLA "
        "ARLD LNLD CMLD WALLLD BEAMLD INMF AWOP OFFS SBLA BWLD SPRS WPRS GWEX NWEX DRLD WNLD GWUP NWUP NWLW NDLD "
        "NWLD MRFT TRFT SUEQ KFAC PMRFT PTRFT PSUEQ PKFAC LFEG PLFEG SDIR PSDIR LFCW LFBM LFFD PLFCW PLFBM PLFFD SFLT "
        "SFMD SFWB LENG LTSR CBFT UCCF SPAN EXPS MTCM MTBM MTWL MTSB PHGEFEMA PHGEMUL PHGEFEMA PHGEMUL IEHEMUL IEHEMUL "
        "PHGE IEHE PHGEWALLCON PHGEWALLSTL PHGEWALLSHR IEHEWALLCON IEHEWALLSTL IEHEWALLSHR MBCL MBBM MBSB MBWL MBSL "
        "MBST MBBR MBLN MBOS MBBL MBBC MBMW MBUW MBUS MBBT MBRT MBPL MBGT MBSTEELSTAIRBEAM MBSTEELSTAIR CHK ",
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
