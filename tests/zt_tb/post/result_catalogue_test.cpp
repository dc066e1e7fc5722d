#include "zt_tb/post/result_catalogue.h"

#include <stdlib.h>

#include <set>

#include "velda_lib/language.h"
#include "velda_lib/msg_dll.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zt {
namespace {

using ::testing::ElementsAre;
using ::testing::Eq;
using ::testing::IsEmpty;
using ::testing::Optional;

std::vector<int> From(int first, int last) {
    std::vector<int> numbers;
    for (int number = first; number <= last; ++number) numbers.push_back(number);
    return numbers;
}

template <class Predicate>
std::vector<int> NumbersWhere(int first, int last, Predicate holds) {
    std::vector<int> numbers;
    for (int number = first; number <= last; ++number) {
        if (holds(number)) numbers.push_back(number);
    }
    return numbers;
}

template <class Predicate>
std::vector<int> IdsWhere(Predicate holds) {
    return NumbersWhere(0, kLastResultTable + 1, holds);
}
template <class Predicate>
std::vector<int> TabsWhere(Predicate holds) {
    return NumbersWhere(-1, kResultTabCount, holds);
}

std::vector<int> AllTabsOf(const ResultTableEntry& table) {
    std::vector<int> tabs;
    for (const IdRange& range : table.tabs) {
        for (const int tab : From(range.first, range.last)) tabs.push_back(tab);
    }
    return tabs;
}

/// Sets a switch of the environment as long as it lives.
class Switch {
public:
    Switch(const char* name, const char* value) : name_(name) { ::setenv(name, value, 1); }
    ~Switch() { ::unsetenv(name_); }
    Switch(const Switch&) = delete;
    Switch& operator=(const Switch&) = delete;

private:
    const char* name_;
};

// ---- the whole ----

TEST(ResultCatalogue, HasEveryTabAndEveryTableUnderItsNumber) {
    ASSERT_EQ(ResultTabs().size(), 187u);
    EXPECT_EQ(GetAllTableNum(), 187);
    for (int tab = 0; tab < kResultTabCount; ++tab) EXPECT_EQ(FindResultTab(tab)->tab, tab);
    EXPECT_EQ(FindResultTab(-1), nullptr);
    EXPECT_EQ(FindResultTab(187), nullptr);
    ASSERT_EQ(ResultTables().size(), 96u);
    for (int id = 1; id <= 96; ++id) EXPECT_EQ(FindResultTable(id)->id, id);
    EXPECT_EQ(FindResultTable(0), nullptr);
    EXPECT_EQ(FindResultTable(97), nullptr);
}

TEST(ResultCatalogue, HasATextForEveryTitleInEveryLanguage) {
    for (const velda::Language language : {velda::Language::English, velda::Language::Korean}) {
        const auto hasText = [&](std::string_view key) {
            return key.empty() || velda::CatalogOf(language).Find(key).has_value();
        };
        for (const ResultTabEntry& tab : ResultTabs()) EXPECT_TRUE(hasText(tab.titleKey)) << tab.titleKey;
        for (const ResultTableEntry& table : ResultTables()) EXPECT_TRUE(hasText(table.titleKey)) << table.titleKey;
    }
}

TEST(ResultCatalogue, KeepsSomeTabNumbersFree) {
    EXPECT_THAT(TabsWhere([](int tab) { return FindResultTab(tab) && FindResultTab(tab)->titleKey.empty(); }),
                ElementsAre(10, 11, 50, 134, 176));
    for (const int tab : {10, 11, 50, 134, 176}) EXPECT_TRUE(FindResultTab(tab)->className.empty());
}

TEST(ResultCatalogue, HasEveryTabInATableOrAmongThoseThatNothingOpens) {
    std::set<int> opened;
    for (const ResultTableEntry& table : ResultTables()) {
        for (const int tab : AllTabsOf(table)) opened.insert(tab);
    }
    for (const ResultTabEntry& tab : ResultTabs()) {
        const bool isFree = tab.titleKey.empty();
        const int places =
            static_cast<int>(opened.count(tab.tab)) + (Contains(TabsWithoutOperation(), tab.tab) ? 1 : 0);
        EXPECT_EQ(places, isFree ? 0 : 1) << tab.tab;
    }
}

TEST(ResultCatalogue, GivesNoDataSourceToSomeTabs) {
    EXPECT_THAT(TabsWhere([](int tab) {
                    const ResultTabEntry* entry = FindResultTab(tab);
                    return entry && !entry->titleKey.empty() && entry->className.empty();
                }),
                ElementsAre(3, 4, 5, 6, 7, 8, 9, 34, 63, 64, 65, 179, 180, 181, 182));
}

TEST(ResultCatalogue, KeepsTheClassesOfTabsThatNothingOpens) {
    const std::pair<int, std::string_view> expected[] = {
        {22, "CTBPostStDisp"}, {40, "CTBPostStsr"}, {47, "CTBPostStMode"}, {54, "CTBPostSIA"},
        {55, "CTBPostSIG"},    {56, "CTBPostSIT"},  {57, "CTBPostSIT2"},   {58, "CTBPostTIC2"}};
    for (const auto& [tab, className] : expected) EXPECT_EQ(FindResultTab(tab)->className, className);
}

TEST(ResultCatalogue, NumbersTheDirectionsOfTabsThatShareAClass) {
    for (const int tab : {20, 21, 22}) {
        EXPECT_EQ(FindResultTab(tab)->className, "CTBPostStDisp");
        EXPECT_EQ(FindResultTab(tab)->argument, tab - 20);
    }
    for (const int tab : From(106, 111)) EXPECT_EQ(FindResultTab(tab)->argument, tab - 106);
    for (const int tab : From(144, 149)) EXPECT_EQ(FindResultTab(tab)->argument, tab - 144);
    EXPECT_EQ(FindResultTab(1)->argument, ResultTabEntry::kNoArgument);
    EXPECT_EQ(FindResultTab(118)->argument, ResultTabEntry::kNoArgument);
}

TEST(ResultCatalogue, NamesDesignTabsByTheirClass) {
    for (const int tab : {166, 167, 168, 169, 170, 171, 172, 173, 174, 175, 177, 178, 183, 184, 185, 186}) {
        const ResultTabEntry& entry = *FindResultTab(tab);
        constexpr std::string_view kPrefix = "CTBPostDgn";
        ASSERT_TRUE(entry.className.starts_with(kPrefix)) << tab;
        EXPECT_EQ(entry.titleKey, "IDS_TB_RESULTVIEW_Dgn_" + std::string(entry.className.substr(kPrefix.size())));
    }
}

// ---- tables ----

TEST(ResultCatalogue, LeavesSomeIdsWithoutAnOperation) {
    EXPECT_THAT(IdsWhere([](int id) { return FindResultTable(id) && FindResultTable(id)->operation.empty(); }),
                ElementsAre(7, 11, 12, 25, 26, 33, 37, 39, 40, 41, 47));
    for (const int id : {7, 11, 12, 25, 26, 33, 37, 39, 40, 41, 47}) {
        EXPECT_THAT(TabsOf(*FindResultTable(id)), IsEmpty());
        EXPECT_EQ(GetTableName(id), "");
    }
}

TEST(ResultCatalogue, FindsATableByItsOperation) {
    for (const ResultTableEntry& table : ResultTables()) {
        if (table.operation.empty()) continue;
        const ResultTableEntry* found = FindResultTable(table.operation);
        ASSERT_NE(found, nullptr);
        EXPECT_EQ(found->id, table.operation == "AddDgnMaxFctView" ? 49 : table.id);
    }
    EXPECT_EQ(FindResultTable("AddNothing"), nullptr);
    EXPECT_EQ(FindResultTable(std::string_view{}), nullptr);
    EXPECT_EQ(FindResultTable("adddispview"), nullptr);
}

TEST(ResultCatalogue, KnowsOperationsThatOpenNothing) {
    EXPECT_THAT(IdleResultOperations(),
                ElementsAre("AddStorDrftView", "AddStorDrftFctView", "AddStorModeView", "AddDgnForceView"));
    for (const std::string_view operation : IdleResultOperations()) EXPECT_EQ(FindResultTable(operation), nullptr);
}

TEST(ResultCatalogue, NamesWindowsExceptAtBothEndsOfTheList) {
    EXPECT_EQ(GetTableName(2), "Nodal Displacement");
    EXPECT_EQ(GetTableName(48), "Frame Member Force");
    EXPECT_EQ(GetTableName(95), "Beam Deflection");
    for (const int id : {-1, 0, 1, 4, 42, 49, 91, 96, 97}) EXPECT_EQ(GetTableName(id), "") << id;
}

TEST(ResultCatalogue, OpensTheTabsOfATable) {
    EXPECT_THAT(TabsOf(*FindResultTable(2)), ElementsAre(1));
    EXPECT_THAT(TabsOf(*FindResultTable(10)), ElementsAre(14, 15, 16, 17));
    EXPECT_THAT(TabsOf(*FindResultTable(15)), ElementsAre(20, 21));
    EXPECT_THAT(TabsOf(*FindResultTable(43)), ElementsAre(60, 61, 62));
    EXPECT_THAT(TabsOf(*FindResultTable(44)), ElementsAre(61));
    EXPECT_THAT(TabsOf(*FindResultTable(45)), ElementsAre(62));
    EXPECT_THAT(TabsOf(*FindResultTable(46)), ElementsAre(60));
    EXPECT_THAT(TabsOf(*FindResultTable(61)), ElementsAre(84, 85, 86, 87));
    EXPECT_THAT(TabsOf(*FindResultTable(95)), ElementsAre(177, 178));
}

TEST(ResultCatalogue, TellsWhoChoosesTheTabsOfATable) {
    const auto chosen = [](TabChoice choice) {
        return IdsWhere([choice](int id) { return FindResultTable(id) && FindResultTable(id)->choice == choice; });
    };
    EXPECT_THAT(chosen(TabChoice::ByCaller), ElementsAre(4, 5, 6, 96));
    EXPECT_THAT(chosen(TabChoice::ByModelControl), ElementsAre(35));
    EXPECT_THAT(chosen(TabChoice::BySwitch), ElementsAre(49, 50, 51, 52, 53));
}

TEST(ResultCatalogue, OpensPerformanceTabsOnlyWhereTheyAreSwitchedOn) {
    std::vector<int> expected = From(166, 175);
    expected.push_back(183);
    for (const int id : From(49, 53)) EXPECT_EQ(TabsOf(*FindResultTable(id)), expected);
    {
        const Switch no("PerformDesign", "no");
        EXPECT_EQ(TabsOf(*FindResultTable(49)), expected);
    }
    const Switch yes("PerformDesign", "yes");
    for (const int tab : From(184, 186)) expected.push_back(tab);
    for (const int id : From(49, 53)) EXPECT_EQ(TabsOf(*FindResultTable(id)), expected);
    EXPECT_THAT(TabsOf(*FindResultTable(95)), ElementsAre(177, 178));
}

TEST(ResultCatalogue, CountsTheUseOfStoryTables) {
    const std::pair<int, std::string_view> expected[] = {
        {13, "TBSTRSHR"}, {14, "TBSTRDFT"}, {15, "TBSTRDSP"}, {16, "TBSTRECC"}, {17, "TBSTRTAF"},
        {18, "TBSTROTM"}, {19, "TBSTRVFS"}, {20, "TBSTRSTC"}, {21, "TBSTRTIC"}, {22, "TBSTRSIC"},
        {23, "TBSTRWIC"}, {24, "TBSTRCIC"}, {43, "TBSTRQRY"}};
    std::vector<std::pair<int, std::string_view>> counted;
    for (const ResultTableEntry& table : ResultTables()) {
        if (!table.usageKey.empty()) counted.emplace_back(table.id, table.usageKey);
    }
    EXPECT_THAT(counted, ::testing::ElementsAreArray(expected));
}

TEST(ResultCatalogue, MarksTablesOfMembers) {
    EXPECT_THAT(IdsWhere([](int id) { return FindResultTable(id) && FindResultTable(id)->isMemberTable; }),
                ElementsAre(48, 54, 55, 56, 58, 59, 65, 66, 73));
}

TEST(ResultCatalogue, KnowsTheTabThatTheTracerTurnsTo) {
    std::vector<std::pair<int, int>> found;
    for (const ResultTableEntry& table : ResultTables()) {
        if (table.tracerTab) found.emplace_back(table.id, *table.tracerTab);
    }
    EXPECT_THAT(found,
                ElementsAre(std::pair(15, 1), std::pair(48, 1), std::pair(51, 2), std::pair(52, 1), std::pair(53, 3)));
}

// ---- activation ----

TEST(ResultActivation, OpensByItselfExceptForTablesThatOfferNothing) {
    EXPECT_THAT(IdsWhere([](int id) { return !OpensActivation(id, 0); }), ElementsAre(16, 44, 45));
    EXPECT_THAT(TabsWhere([](int tab) { return !OpensActivation(10, tab); }), ElementsAre(14, 15, 16));
    EXPECT_TRUE(OpensActivation(11, 14));
}

TEST(ResultActivation, OpensAsSomeTabsComeToTheFrontForTheFirstTime) {
    EXPECT_THAT(TabsWhere(&NeedsActivationAtSwitch),
                ElementsAre(17, 67, 68, 70, 72, 73, 75, 78, 79, 81, 94, 95, 97, 104, 105, 120, 121, 123, 124, 126, 127,
                            129, 130, 132, 133, 136, 137, 152, 153, 155, 156, 158, 159, 161, 162, 164, 165));
}

TEST(ResultActivation, TakesStepsOfPushoverAnalysesOnSomeTabs) {
    std::vector<int> expected = {39, 46};
    for (const int tab : From(93, 99)) expected.push_back(tab);
    for (const int tab : From(101, 133)) expected.push_back(tab);
    EXPECT_EQ(TabsWhere(&IsPOResTableForActiveEtc), expected);
}

TEST(ResultActivation, ReadsSomeTablesAgainAfterACancel) {
    EXPECT_THAT(IdsWhere(&ReadsAgainAfterCancel), ElementsAre(14, 27, 28));
    EXPECT_THAT(IdsWhere(&AsksForDriftLimits), ElementsAre(26));
}

TEST(ResultActivation, KnowsTabsOfStoryLoads) { EXPECT_THAT(TabsWhere(&ShowsStoryLoads), ElementsAre(60, 63, 64, 65)); }

// ---- the context menu ----

/// The commands that go and come, those that come with a plus, an item by its position with a number sign.
std::vector<std::string> MenuOf(int id, int tab = 0, bool graphMenu = true) {
    const ContextMenuChange change = ContextMenuChangeOf(id, tab, graphMenu);
    std::vector<std::string> texts;
    for (const int command : change.deleted) texts.push_back(std::to_string(command));
    if (change.deletedPosition) texts.push_back("#" + std::to_string(*change.deletedPosition));
    for (const AppendedCommand& command : change.appended) {
        texts.push_back("+" + std::to_string(command.id));
        EXPECT_TRUE(velda::CatalogOf(velda::Language::Korean).Find(command.textKey)) << command.textKey;
    }
    return texts;
}

TEST(ResultContextMenu, LosesTheGraphForExcelInEveryTable) {
    for (const int id : {1, 2, 18, 60, 96}) EXPECT_THAT(MenuOf(id), ElementsAre("46527")) << id;
    EXPECT_THAT(MenuOf(0), IsEmpty());
}

TEST(ResultContextMenu, FollowsTheTabsOfModes) {
    EXPECT_THAT(MenuOf(10, 14), ElementsAre("46527", "46516"));
    EXPECT_THAT(MenuOf(10, 15), ElementsAre("46527", "46516", "#9", "+46529"));
    EXPECT_THAT(MenuOf(10, 16), ElementsAre("46527", "46516"));
    EXPECT_THAT(MenuOf(10, 17), ElementsAre("46527"));
}

TEST(ResultContextMenu, LosesTheGraphInTablesOfStories) {
    for (const int id : {15, 17, 19, 20, 21, 22, 23, 24}) EXPECT_THAT(MenuOf(id), ElementsAre("46527", "46501")) << id;
    EXPECT_THAT(MenuOf(16), ElementsAre("46527", "46501", "46516"));
    for (const int id : {31, 32}) EXPECT_THAT(MenuOf(id), ElementsAre("46527", "46501", "46500")) << id;
}

TEST(ResultContextMenu, GainsTheSettingsOfATable) {
    EXPECT_THAT(MenuOf(25), ElementsAre("46527", "+46515", "+46517"));
    EXPECT_THAT(MenuOf(26), ElementsAre("46527", "+46524"));
    EXPECT_THAT(MenuOf(70), ElementsAre("46527", "+46524"));
    EXPECT_THAT(MenuOf(28), ElementsAre("46527", "46501", "+46524"));
    EXPECT_THAT(MenuOf(29), ElementsAre("46527", "46501", "+46525"));
    EXPECT_THAT(MenuOf(34), ElementsAre("46527", "+46528"));
}

TEST(ResultContextMenu, HangsOnTheMarkInTheHistoryDriftTable) {
    EXPECT_THAT(MenuOf(27, 35, false), ElementsAre("46527", "46501"));
    EXPECT_THAT(MenuOf(27, 35, true), ElementsAre("46527", "46501", "+46524"));
}

TEST(ResultContextMenu, LosesTheSortOfMemberForces) {
    for (const int id : {48, 54, 55, 56, 58, 59, 65, 66}) EXPECT_THAT(MenuOf(id), ElementsAre("46527", "46500")) << id;
}

TEST(ResultContextMenu, KeepsTheActivationOfStoryLoadsOnly) {
    for (const int tab : {60, 63, 64, 65}) EXPECT_THAT(MenuOf(43, tab), ElementsAre("46527")) << tab;
    for (const int tab : {0, 59, 61, 62, 66, 186}) EXPECT_THAT(MenuOf(43, tab), ElementsAre("46527", "46516")) << tab;
    EXPECT_THAT(MenuOf(44, 61), ElementsAre("46527", "46516"));
    EXPECT_THAT(MenuOf(45, 62), ElementsAre("46527", "46516"));
}

TEST(ResultContextMenu, HasItsMarkSetByFourTabs) {
    for (const int tab : {19, 35}) EXPECT_THAT(GraphMenuOf(tab), Optional(true));
    for (const int tab : {34, 36}) EXPECT_THAT(GraphMenuOf(tab), Optional(false));
    EXPECT_EQ(TabsWhere([](int tab) { return GraphMenuOf(tab).has_value(); }), (std::vector{19, 34, 35, 36}));
}

// ---- closing ----

TEST(ResultClosing, FollowsTheModelAndTheDesign) {
    EXPECT_THAT(IdsWhere(&IsModelTable), ElementsAre(43, 44, 45, 46));
    EXPECT_THAT(IdsWhere(&IsDgnForceTable), ElementsAre(91, 92, 93, 94));
    EXPECT_THAT(IdsWhere(&ClosesOnDesignControl), ElementsAre(34));
}

TEST(ResultClosing, ByHintsOfTheDesign) {
    for (const int hint : {13, 14, 15}) {
        EXPECT_EQ(IdsWhere([hint](int id) { return ClosesOnHint(hint, id); }), From(49, 53));
    }
    for (const int hint : {0, 12, 16, 39}) {
        EXPECT_THAT(IdsWhere([hint](int id) { return ClosesOnHint(hint, id); }), IsEmpty());
    }
}

TEST(ResultClosing, ByTextsThatSayWhatEnded) {
    const auto closedBy = [](std::string_view text) {
        return IdsWhere([text](int id) { return ClosesOnText(text, id); });
    };
    EXPECT_THAT(closedBy("FINISH_STSR_TABLE"), ElementsAre(29));
    EXPECT_THAT(closedBy("FINISH_STAB_TABLE"), ElementsAre(35));
    EXPECT_THAT(closedBy("FINISH_YIELD_TABLE"), ElementsAre(36));
    EXPECT_THAT(closedBy("FINISH_STMASS_TABLE"), ElementsAre(61));
    EXPECT_EQ(closedBy("FINISH_MAXFCT_TABLE"), From(49, 53));
    EXPECT_THAT(closedBy("FINISH_OVTN_TABLE"), ElementsAre(18));
    EXPECT_THAT(closedBy("FINISH_FORCE_FRAME_TABLE"), ElementsAre(48));
    EXPECT_THAT(closedBy("FINISH_NOTHING"), IsEmpty());
    EXPECT_THAT(closedBy(""), IsEmpty());
}

}  // namespace
}  // namespace zt
