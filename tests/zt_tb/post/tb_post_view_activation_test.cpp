#include "velda_lib/language.h"
#include "zt_tb/post/fake_checker.h"
#include "zt_tb/post/post_view_fixture.h"
#include "zt_tb/post/tb_active_new_dlg.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr LoadChoice kDeadLoad{.key = 1};
constexpr LoadChoice kWindLoad{.key = 2};

class PostViewActivation : public PostViewTest {
protected:
    ~PostViewActivation() override { velda::SetCurrentLanguage(velda::Language::English); }

    static CTBActiveNewDlg& DialogOf(velda::ModalDialog& dialog) { return dynamic_cast<CTBActiveNewDlg&>(dialog); }
    /// Opens the dialog and presses OK with the load cases of these places ticked, and no others.
    void Accept(std::vector<std::size_t> loads) {
        host.dialogs.users.push_back([loads](velda::ModalDialog& dialog) {
            CTBActiveNewDlg& opened = DialogOf(dialog);
            opened.TickFound(ActiveSection::Loads, false);
            for (const std::size_t load : loads) opened.Tick(ActiveSection::Loads, load, true);
            return true;
        });
        view.OnActiveNewDlg();
    }
    /// Cancels the dialog after ticking all.
    void Cancel() {
        host.dialogs.users.push_back([](velda::ModalDialog& dialog) {
            DialogOf(dialog).TickFound(ActiveSection::Loads, true);
            return false;
        });
        view.OnActiveNewDlg();
    }
    std::vector<bool> ReRead() const {
        std::vector<bool> flags;
        for (const int tab : Tabs()) flags.push_back(SourceOf(tab)->IsReRead());
        return flags;
    }
};

// ---- the dialog ----

TEST_F(PostViewActivation, ACancelHasTheTablesReadAgainWhereTheirFirstDisplayShowsTheDefaults) {
    UseResults();
    for (const int id : {2, 14, 15, 27, 28, 48, 70}) {
        CTBPostView one;
        ASSERT_TRUE(one.AddTable(id));
        one.OnActiveNewDlg();
        for (const int tab : TabsOf(*FindResultTable(id))) {
            EXPECT_EQ(id == 14 || id == 27 || id == 28, PostSourceOf(one.GridOf(tab))->IsReRead()) << id << " " << tab;
        }
    }
}

TEST_F(PostViewActivation, AFirstCancelShowsTheDefaultsOfDriftsAndALaterOneChangesNothing) {
    Records<CClassStld>().TR_Add(3, T_STLD_D{.name = "EX", .type = "E"});
    UseResults([](ResultSink& sink) { EXPECT_TRUE(sink.PutCase({LoadCaseKind::Static, 3, "EX", "E"})); });
    view.AddStorDrftAngView();
    EXPECT_THAT(LoadsOf(19), IsEmpty());
    Cancel();
    const std::vector<LoadChoice> defaults = LoadsOf(19);
    EXPECT_THAT(defaults, ElementsAre(LoadChoice{.key = 3}, LoadChoice{kSpectrum, LoadCaseKind::Spectrum}));
    Cancel();
    EXPECT_EQ(defaults, LoadsOf(19));
    Accept({});
    EXPECT_THAT(LoadsOf(19), IsEmpty());
    Cancel();
    EXPECT_THAT(LoadsOf(19), IsEmpty()) << "nothing was chosen on purpose";
}

TEST_F(PostViewActivation, ACancelBeforeAnyChoiceShowsWhatTheDialogOffered) {
    UseResults();
    view.AddStorDrftAngTHView();
    Cancel();
    for (const int tab : {35, 36}) EXPECT_EQ(3u, LoadsOf(tab).size()) << tab << ": greatest, least and all";
    Accept({0});
    const std::vector<LoadChoice> chosen = LoadsOf(36);
    EXPECT_EQ(1u, chosen.size());
    Cancel();
    for (const int tab : {35, 36}) EXPECT_EQ(chosen, LoadsOf(tab)) << tab;
}

TEST_F(PostViewActivation, ACancelOfOtherTablesChangesNothing) {
    UseResults();
    view.AddStorDispView();
    Cancel();
    EXPECT_THAT(LoadsOf(20), IsEmpty());
    EXPECT_THAT(ReRead(), ElementsAre(false, false));
    EXPECT_EQ(0, view.GridOf(20)->RowCount());
}

TEST_F(PostViewActivation, AChoiceReachesAllTabsOfStories) {
    UseResults();
    view.AddStorDispView();
    view.SetCurrentTab(1);
    Accept({0});
    EXPECT_EQ(1u, LoadsOf(20).size());
    EXPECT_EQ(LoadsOf(20), LoadsOf(21));
    EXPECT_THAT(ReRead(), ElementsAre(true, true));
}

TEST_F(PostViewActivation, AChoiceOfMembersReachesTheTabInFrontAlone) {
    UseResults();
    view.AddMembForceView();
    view.SetCurrentTab(1);
    Accept({1});
    EXPECT_THAT(LoadsOf(66), IsEmpty());
    EXPECT_THAT(LoadsOf(67), ElementsAre(kWindLoad));
    EXPECT_THAT(LoadsOf(68), IsEmpty());
    EXPECT_THAT(ReRead(), ElementsAre(false, true, false));
}

TEST_F(PostViewActivation, TheTabWhoseDialogOpenedKnowsIt) {
    UseResults();
    view.AddStorDispView();
    EXPECT_FALSE(SourceOf(20)->WasDialogSeen());
    view.OnActiveNewDlg();
    EXPECT_TRUE(SourceOf(20)->WasDialogSeen());
    EXPECT_FALSE(SourceOf(21)->WasDialogSeen());
}

TEST_F(PostViewActivation, EntriesAreCheckedByKeyKindAndSubKindTogether) {
    UseResults();
    view.AddDispView();
    view.Activate({.hasLoads = true,
                   .loads = {.selected = {kDeadLoad, {.key = 6, .kind = LoadCaseKind::TimeHistory, .subKind = 1}}}});
    const std::vector<LoadChoice> entries = {{.key = 6, .kind = LoadCaseKind::TimeHistory, .subKind = 1},
                                             {.key = 6, .kind = LoadCaseKind::TimeHistory, .subKind = -1},
                                             {.key = 6, .kind = LoadCaseKind::Static, .subKind = 1},
                                             kWindLoad,
                                             kDeadLoad};
    EXPECT_THAT(CTBPostView::SetActiveCheck(*SourceOf(1), entries), ElementsAre(true, false, false, false, true));
    EXPECT_THAT(CTBPostView::SetActiveCheck(*SourceOf(1), {}), IsEmpty());
}

// ---- a tab comes to the front ----

TEST_F(PostViewActivation, ATabAsksForItsActivationTheFirstTimeOnly) {
    view.AddMembForceView();
    EXPECT_FALSE(SourceOf(66)->GetNeedsActivation());
    EXPECT_TRUE(SourceOf(67)->GetNeedsActivation());
    EXPECT_TRUE(SourceOf(68)->GetNeedsActivation());
    host.queue.Deliver();
    view.OnActiveNewDlg();
    int posted = window.commands;
    EXPECT_EQ(1, posted);
    for (const int tab : {1, 2}) {
        view.SetCurrentTab(tab);
        EXPECT_FALSE(SourceOf(66 + tab)->GetNeedsActivation());
        host.queue.Deliver();
        EXPECT_EQ(++posted, window.commands) << tab;
        view.OnActiveNewDlg();
    }
    for (const int tab : {0, 1, 2}) view.SetCurrentTab(tab);
    host.queue.Deliver();
    EXPECT_EQ(posted, window.commands);
}

TEST_F(PostViewActivation, ATabOfATracedTableStartsTheTracerWhereTheCheckerFiltersTables) {
    for (const int table : {0, kFilteredResultTable + 1, kFilteredResultTable}) {
        doc->EndTracerMode();
        doc->SetTableID4Checker(table);
        CTBPostView one;
        one.AddMembForceView();
        EXPECT_EQ(0, doc->IsTracerMode());
        one.SetCurrentTab(1);
        EXPECT_EQ(table == kFilteredResultTable ? 1 : 0, doc->IsTracerMode()) << table;
        // Only where the tab asks for its activation.
        doc->EndTracerMode();
        one.SetCurrentTab(0);
        one.SetCurrentTab(1);
        EXPECT_EQ(0, doc->IsTracerMode());
    }
}

// ---- traced findings ----

TEST_F(PostViewActivation, ATracedFindingTurnsToTheTabOfItsTable) {
    FakeChecker checker;
    doc->SetChekCtrl(&checker);
    const std::pair<int, int> expected[] = {{2, 1},    {15, 21},  {48, 67},  {49, 166},
                                            {51, 168}, {52, 167}, {53, 169}, {54, 69}};
    for (const auto& [id, tab] : expected) {
        doc->EndTracerMode();
        CTBPostView untraced;
        ASSERT_TRUE(untraced.AddTable(id));
        EXPECT_EQ(TabsOf(*FindResultTable(id)).front(), untraced.ActiveTab()) << id;
        doc->StartTracerMode();
        CTBPostView one;
        ASSERT_TRUE(one.AddTable(id));
        EXPECT_EQ(tab, one.ActiveTab()) << id;
    }
    doc->SetChekCtrl(nullptr);
}

TEST_F(PostViewActivation, AFindingOfStoryDisplacementsTurnsToYWhereItsSecondNumberSaysSo) {
    FakeChecker checker;
    doc->SetChekCtrl(&checker);
    doc->StartTracerMode();
    for (const int key2 : {0, 1, 2}) {
        checker.key2 = key2;
        CTBPostView one;
        one.AddStorDispView();
        EXPECT_EQ(key2 == 1 ? 21 : 20, one.ActiveTab()) << key2;
    }
    doc->SetChekCtrl(nullptr);
}

TEST_F(PostViewActivation, WithoutACheckerNothingIsAskedForStoryDisplacements) {
    doc->StartTracerMode();
    view.AddStorDispView();
    host.queue.Deliver();
    EXPECT_EQ(20, view.ActiveTab());
    EXPECT_EQ(0, window.commands);
}

TEST_F(PostViewActivation, WithoutADocumentTracedTablesOpenQuietly) {
    CDBDoc::m_pDBDoc = nullptr;
    view.AddMembForceView();
    host.queue.Deliver();
    EXPECT_EQ(66, view.ActiveTab());
    EXPECT_EQ(0, window.commands);
    view.OnActiveNewDlg();
    EXPECT_THAT(host.dialogs.shown, IsEmpty());
    doc->MakeCurrent();
}

// ---- what is read ----

TEST_F(PostViewActivation, StepsAreOfferedWhereResultsAreRead) {
    UseResults([](ResultSink& sink) {
        EXPECT_TRUE(sink.PutCase({LoadCaseKind::Pushover, 1, "PX", ""}));
        EXPECT_TRUE(sink.PutKeys(ResultName::PushoverCases, std::vector<std::uint32_t>{1, 3, 0, 0}));
    });
    const auto steps = [this] {
        TB_ACTIVE_PARAM param;
        EXPECT_TRUE(view.GetActivation(param));
        return param.steps.names;
    };
    view.AddPSOVStorDrftAngView();
    EXPECT_THAT(steps(), ElementsAre("1", "2", "3"));
    doc->SetExcuted(0);
    EXPECT_THAT(steps(), IsEmpty());
    doc->SetModePost();
    EXPECT_THAT(steps(), ElementsAre("1", "2", "3")) << "on the side of the program that shows results";
}

TEST_F(PostViewActivation, TablesOfTheModelReadResultsOnceThereAreSome) {
    const auto readsModel = [this](int id) {
        CTBPostView one;
        EXPECT_TRUE(one.AddTable(id));
        return &one.GetDB() == doc->GetMDBCtrl()->GetDBPre();
    };
    for (const int id : {43, 44, 45, 46}) EXPECT_TRUE(readsModel(id)) << id;
    for (const int id : {2, 42, 48}) EXPECT_FALSE(readsModel(id)) << id;
    doc->SetModePost();
    for (const int id : {43, 44, 45, 46}) EXPECT_FALSE(readsModel(id)) << id;
    doc->SetModePre();
    UseResults();
    for (const int id : {43, 44, 45, 46}) EXPECT_FALSE(readsModel(id)) << id;
}

// ---- language ----

TEST_F(PostViewActivation, AnotherLanguageKeepsWhatIsShown) {
    Records<CClassMdul>().TR_Add(2, {.name = "Annex"});
    UseResults();
    view.AddMembForceView();
    view.SetCurrentTab(1);
    view.Activate({.hasObjects = true,
                   .objectDomain = KeyDomain::Members,
                   .selectedObjects = {12, 11},
                   .hasLoads = true,
                   .loads = {.selected = {kWindLoad, kDeadLoad}},
                   .parts = {.isOn = true, .selected = {1, 0}}});
    velda::CTBCore& grid = *view.GridOf(67);
    CTBPostDS& source = *SourceOf(67);
    // The row before the records chooses a module: its list, then its button.
    constexpr int kList = 3;
    constexpr int kButton = 6;
    grid.SetValueRange(1, kList, "Tower");
    source.OnEvent({.kind = velda::T_TB_EVENT_D::kClick, .row = 1, .column = kButton});
    ASSERT_EQ(1u, source.GetCurModuleKey());
    const std::vector<velda::STBSortItem> order{{.column = 0, .order = 1}};
    ASSERT_TRUE(grid.Sort(order));
    const auto rows = [&grid] {
        std::vector<std::string> texts;
        for (int row = 2; row <= grid.RowCount(); ++row) {
            texts.push_back(grid.GetValueRowCol(row, 1) + " " + grid.GetValueRowCol(row, 7));
        }
        return texts;
    };
    host.queue.Deliver();
    window.commands = 0;
    const std::vector<std::string> before = rows();
    const std::string title = view.GetTitle();
    const std::string label = view.GetTabLabel(1);
    ASSERT_EQ(8u, before.size());

    velda::SetCurrentLanguage(velda::Language::Korean);
    EXPECT_TRUE(view.UpdateLanguage());
    EXPECT_EQ("골조 부재력", view.GetTitle());
    EXPECT_EQ("기둥", view.GetTabLabel(1));
    EXPECT_EQ(3, view.GetTabCount());
    EXPECT_EQ(67, view.ActiveTab());
    EXPECT_EQ(&grid, view.GridOf(67));
    EXPECT_EQ(before, rows());
    EXPECT_EQ(order, grid.SortInfo());
    EXPECT_THAT(LoadsOf(67), ElementsAre(kWindLoad, kDeadLoad));
    TB_ACTIVE_PARAM param;
    ASSERT_TRUE(view.GetActivation(param));
    EXPECT_THAT(param.parts.selected, ElementsAre(1, 0));
    EXPECT_EQ(1u, source.GetCurModuleKey());
    EXPECT_EQ("Tower", grid.GetValueRowCol(1, kList));
    EXPECT_EQ("모듈", grid.GetValueRowCol(1, 1));
    host.queue.Deliver();
    EXPECT_EQ(0, window.commands) << "nobody is asked again";

    velda::SetCurrentLanguage(velda::Language::English);
    view.UpdateLanguage();
    EXPECT_EQ(title, view.GetTitle());
    EXPECT_EQ(label, view.GetTabLabel(1));
}

TEST_F(PostViewActivation, AnotherLanguageNamesLoadCasesAndColumnsAnew) {
    UseResults();
    view.AddDispView();
    view.Activate({.hasObjects = true,
                   .objectDomain = KeyDomain::Nodes,
                   .selectedObjects = {3},
                   .hasLoads = true,
                   .loads = {.selected = {{kHistory, LoadCaseKind::TimeHistory, LoadCaseSubKind::Max}}}});
    const velda::CTBCore& grid = *view.GridOf(1);
    EXPECT_EQ("EQ(max)", grid.GetValueRowCol(1, 2));
    const std::string header = grid.Header().ColumnTitle(0);
    for (int times = 0; times < 2; ++times) {
        velda::SetCurrentLanguage(velda::Language::Korean);
        view.UpdateLanguage();
        EXPECT_EQ("EQ(최대)", grid.GetValueRowCol(1, 2));
        EXPECT_NE(header, grid.Header().ColumnTitle(0));
        velda::SetCurrentLanguage(velda::Language::English);
        view.UpdateLanguage();
        EXPECT_EQ("EQ(max)", grid.GetValueRowCol(1, 2));
        EXPECT_EQ(header, grid.Header().ColumnTitle(0));
    }
}

}  // namespace
}  // namespace zt
