#include "zt_tb/post/tb_post_view.h"

#include <set>

#include "zt_db/records/mctl.h"
#include "zt_tb/core/usage_counter.h"
#include "zt_tb/post/post_view_fixture.h"
#include "zt_tb/post/result_sources.h"
#include <gtest/gtest.h>

namespace zt {
namespace {

using TBPostView = PostViewTest;

TEST_F(TBPostView, EveryOperationOpensTheTabsOfItsTable) {
    for (const ResultTableEntry& table : ResultTables()) {
        if (table.operation.empty()) continue;
        const std::vector<int> tabs = TabsOf(table);
        CTBPostView one;
        std::vector<int> arguments;
        if (table.choice == TabChoice::ByCaller) arguments.assign(tabs.size(), 1);
        if (table.choice == TabChoice::BySwitch) arguments = {table.id};
        EXPECT_TRUE(one.AddTable(table.operation, arguments)) << table.operation;
        EXPECT_EQ(table.id, one.GetResultTableId());
        EXPECT_EQ(GetTableName(table.id), one.GetTitle());
        const int expected = table.choice == TabChoice::ByModelControl ? 1 : static_cast<int>(tabs.size());
        EXPECT_EQ(std::max(expected, 1), one.GetTabCount()) << table.operation;
    }
}

TEST_F(TBPostView, TabsWithoutAClassAreGridsWithoutASource) {
    view.AddColmView(true, true);
    ASSERT_EQ(2, view.GetTabCount());
    EXPECT_EQ(nullptr, view.GridOf(3)->GetDataSrc());
    EXPECT_EQ(0, view.GridOf(3)->RowCount());
    TB_ACTIVE_PARAM param;
    EXPECT_FALSE(view.GetActivation(param));
}

/// Classes of the catalogue that do not exist yet; a class that comes goes from this list.
constexpr std::string_view kMissingClasses =
    "CTBPostDgnBeamDeflection CTBPostDgnMaxBeamFactor CTBPostDgnMaxColmFactor CTBPostDgnMaxSRCColmFactor "
    "CTBPostDgnMaxSRCEBCColmFactor CTBPostDgnMaxSteelBeamFactor CTBPostDgnMaxSteelBraceFactor "
    "CTBPostDgnMaxSteelColmFactor CTBPostDgnMaxSteelJointFactor CTBPostDgnMaxWBeamFactor "
    "CTBPostDgnMaxWColmFactor CTBPostDgnPerformResultCapaCon CTBPostDgnPerformResultCapaStl "
    "CTBPostDgnPerformResultDrft CTBPostDgnSCWBResult CTBPostDgnSlabDeflection "
    "CTBPostModeEigenVal CTBPostModeEigenVec CTBPostModeModalDir CTBPostModeModalMas CTBPostNLTHAAcc "
    "CTBPostNLTHBeamSummary CTBPostNLTHBraceSummary CTBPostNLTHColumnSummary CTBPostNLTHDermBeam "
    "CTBPostNLTHDermBrace CTBPostNLTHDermColumn CTBPostNLTHDisp CTBPostNLTHDuct1Beam "
    "CTBPostNLTHDuct1Brace CTBPostNLTHDuct1Column CTBPostNLTHDuct2Beam CTBPostNLTHDuct2Brace "
    "CTBPostNLTHDuct2Column CTBPostNLTHEventStepBeam CTBPostNLTHEventStepBrace CTBPostNLTHEventStepColumn "
    "CTBPostNLTHForcBeam CTBPostNLTHForcBrace CTBPostNLTHForcColumn CTBPostNLTHPDermBeam "
    "CTBPostNLTHPDermBrace CTBPostNLTHPDermColumn CTBPostNLTHRAcc CTBPostNLTHVelo CTBPostPOBeamSummary "
    "CTBPostPOBraceSummary CTBPostPOColumnSummary CTBPostPODermBeam CTBPostPODermBrace "
    "CTBPostPODermColumn CTBPostPODuct1Beam CTBPostPODuct1Brace CTBPostPODuct1Column CTBPostPODuct2Beam "
    "CTBPostPODuct2Brace CTBPostPODuct2Column CTBPostPOEventStepBeam CTBPostPOEventStepBrace "
    "CTBPostPOEventStepColumn CTBPostPOForcBeam CTBPostPOForcBrace CTBPostPOForcColumn CTBPostPOPDermBeam "
    "CTBPostPOPDermBrace CTBPostPOPDermColumn CTBPostPSOVBeamForce CTBPostPSOVBraceForce "
    "CTBPostPSOVColmForce CTBPostPSOVDeform CTBPostPSOVReac CTBPostPSOVStek CTBPostPSOVWBeamForce "
    "CTBPostPSOVWColmForce CTBPostReacNLTH CTBPostReacTH CTBPostS02Q CTBPostSIA CTBPostSIB CTBPostSIG "
    "CTBPostSIT CTBPostSIT2 CTBPostSsfc CTBPostStAFS CTBPostStCIC CTBPostStEccent CTBPostStLoad "
    "CTBPostStMass CTBPostStMode CTBPostStOTMQorv CTBPostStPOSH CTBPostStSIC CTBPostStSsrt "
    "CTBPostStStbCoef CTBPostStStiff CTBPostStTAF CTBPostStTIC CTBPostStWIC CTBPostStWgt "
    "CTBPostStabChk_FrmSt CTBPostStabChk_NorSt CTBPostStekNLTH CTBPostStekTH CTBPostStsr "
    "CTBPostTHBeamForce CTBPostTHBraceForce CTBPostTHColmForce CTBPostTHNLBeamForce CTBPostTHNLBraceForce "
    "CTBPostTHNLColmForce CTBPostTHNLShearForce CTBPostTHNLWBeamForce CTBPostTHNLWColmForce "
    "CTBPostTHShearForce CTBPostTHWBeamForce CTBPostTHWColmForce CTBPostTIC2 CTBPostThisAAcc "
    "CTBPostThisDisp CTBPostThisRAcc CTBPostThisVelo CTBPostThss CTBPostYieldStrenFctChk CTBPsovHgst "
    "CTBPsovHgstM";

TEST_F(TBPostView, EachTabOfTheCatalogueHasItsSourceOrIsListedAsWithoutOne) {
    std::set<std::string> missing;
    for (const ResultTabEntry& tab : ResultTabs()) {
        const auto source = MakeResultSource(tab.className, tab.tab, tab.argument);
        if (source) {
            EXPECT_EQ(tab.tab, source->GetKind());
        } else if (!tab.className.empty()) {
            missing.emplace(tab.className);
        }
    }
    std::string listed;
    for (const std::string& name : missing) listed += (listed.empty() ? "" : " ") + name;
    EXPECT_EQ(kMissingClasses, listed);
}

TEST_F(TBPostView, TheCheckOfStabilityIsThatOfTheSystemOfTheModel) {
    CDataBase& model = *doc->GetMDBCtrl()->GetCurrentDB();
    const auto tabs = [] {
        CTBPostView one;
        one.AddStorStabChkView();
        return std::pair{one.GridOf(51) != nullptr, one.GridOf(52) != nullptr};
    };
    EXPECT_EQ(tabs(), std::pair(false, true)) << "without a control record";
    ASSERT_TRUE(model.GetClass<CClassMctl>()->TR_Add(T_MCTL_D::kKey, T_MCTL_D{.system = StructureSystem::Other}));
    EXPECT_EQ(tabs(), std::pair(true, false));
    model.Undo();
    EXPECT_EQ(tabs(), std::pair(false, true));
}

TEST_F(TBPostView, ArgumentsThatDoNotFitAreRefused) {
    EXPECT_FALSE(view.AddTable("AddNothingView"));
    const std::pair<std::string_view, std::vector<int>> refused[] = {{"AddDispView", {5}},
                                                                     {"AddDispView", {5, 6}},
                                                                     {"AddStorStabChkView", {51}},
                                                                     {"AddColmView", {}},
                                                                     {"AddColmView", {1}},
                                                                     {"AddColmView", {1, 1, 1}},
                                                                     {"AddTGView", {}},
                                                                     {"AddTGView", {1, 1}},
                                                                     {"AddDgnMaxFctView", {2}},
                                                                     {"AddDgnMaxFctView", {48}},
                                                                     {"AddDgnMaxFctView", {54}},
                                                                     {"AddDgnMaxFctView", {-1}},
                                                                     {"AddDgnMaxFctView", {51, 1}}};
    for (const auto& [operation, arguments] : refused) {
        EXPECT_FALSE(view.AddTable(operation, arguments)) << operation;
        EXPECT_EQ(0, view.GetResultTableId());
        EXPECT_EQ(0, view.GetTabCount());
    }
    for (const int id : {-1, 0, 7, 97}) EXPECT_FALSE(view.AddTable(id)) << id;
}

TEST_F(TBPostView, FlagsOfTheCallerChooseTheTabs) {
    view.AddBeamView(false, true);
    EXPECT_EQ(std::vector<int>{6}, Tabs());
}

TEST_F(TBPostView, DesignFactorsOpenUnderTheIdThatIsAskedFor) {
    const std::pair<int, int> expected[] = {{0, 49}, {49, 49}, {50, 50}, {53, 53}};
    for (const auto& [asked, id] : expected) {
        CTBPostView one;
        one.AddDgnMaxFctView(asked);
        EXPECT_EQ(id, one.GetResultTableId());
    }
}

TEST_F(TBPostView, ATableThatIsOpenedByItsNumberHasAllItsTabs) {
    for (const ResultTableEntry& table : ResultTables()) {
        if (table.operation.empty() || table.choice == TabChoice::ByModelControl) continue;
        CTBPostView one;
        ASSERT_TRUE(one.AddTable(table.id)) << table.id;
        EXPECT_EQ(table.id, one.GetResultTableId());
        EXPECT_EQ(static_cast<int>(TabsOf(table).size()), one.GetTabCount()) << table.id;
        for (const int tab : TabsOf(table)) EXPECT_NE(nullptr, one.GridOf(tab)) << table.id;
    }
}

TEST_F(TBPostView, TheStripOfTabsGrowsByTwoThirdsOnce) {
    const int usual = velda::TabStyle{}.stripHeight;
    view.AddStorQueryView();
    EXPECT_EQ(usual + usual * 2 / 3, view.GetTabWnd()->GetStyle().stripHeight);
    CTBPostView::TabFlags flags{};
    flags[61] = true;
    view.AddnDelView(flags);
    EXPECT_EQ(usual + usual * 2 / 3, view.GetTabWnd()->GetStyle().stripHeight);
}

TEST_F(TBPostView, TheDeleteKeyIsOff) {
    EXPECT_TRUE(velda::CTBCore().KeyCtrl().IsDeleteKeyEnabled());
    view.AddMembForceView();
    for (const int tab : Tabs()) EXPECT_FALSE(view.GridOf(tab)->KeyCtrl().IsDeleteKeyEnabled()) << tab;
}

TEST_F(TBPostView, AViewKeepsItsTable) {
    view.AddDispView();
    EXPECT_FALSE(view.AddTable("AddReacView"));
    EXPECT_EQ(2, view.GetResultTableId());
}

TEST_F(TBPostView, OperationsThatOpenNothingDoSo) {
    view.AddStorDrftView();
    view.AddStorModeView();
    EXPECT_EQ(0, view.GetResultTableId());
    EXPECT_EQ(0, view.GetTabCount());
}

TEST_F(TBPostView, ASecondChoiceOfTabsTakesSomeAwayButNeverTheLast) {
    view.AddStorQueryView();
    EXPECT_EQ((std::vector<int>{60, 61, 62}), Tabs());
    CTBPostView::TabFlags flags{};
    flags[61] = true;
    view.AddnDelView(flags);
    EXPECT_EQ(std::vector<int>{61}, Tabs());
    flags[61] = false;
    view.AddnDelView(flags);
    EXPECT_EQ(std::vector<int>{61}, Tabs());
}

TEST_F(TBPostView, TheActivationIsPostedOnceAndRunsAfterTheOperation) {
    view.AddMembForceView();
    EXPECT_EQ(0, window.commands);
    // Another tab that wants to be activated asks while the first request waits.
    view.SetCurrentTab(1);
    host.queue.Deliver();
    EXPECT_EQ(1, window.commands);
}

TEST_F(TBPostView, SomeTablesOpenWithoutTheDialog) {
    view.AddVibrModeView();
    host.queue.Deliver();
    EXPECT_EQ(0, window.commands);
}

TEST_F(TBPostView, TabsOfStoryDisplacementsAreChosenWithinBounds) {
    EXPECT_TRUE(view.ActiveStorDispTab(1));
    view.AddStorDispView();
    EXPECT_TRUE(view.ActiveStorDispTab(1));
    EXPECT_EQ(21, view.ActiveTab());
    EXPECT_FALSE(view.ActiveStorDispTab(2));
    EXPECT_FALSE(view.ActiveMaxFctTab(4));
    EXPECT_EQ(21, view.ActiveTab());
}

TEST_F(TBPostView, UsesOfStoryTablesAreCounted) {
    const int before = IUsageCounter::Current().CountOf("TBSTRDSP");
    view.AddStorDispView();
    EXPECT_EQ(before + 1, IUsageCounter::Current().CountOf("TBSTRDSP"));
}

TEST_F(TBPostView, OnlyMemberTablesHaveTheirMark) {
    view.AddMembForceView();
    EXPECT_EQ(3, view.GetMemberTableMark());
    CTBPostView other;
    other.AddDispView();
    EXPECT_EQ(0, other.GetMemberTableMark());
}

}  // namespace
}  // namespace zt
