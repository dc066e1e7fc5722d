#include "zt_tb/model/tb_pre_view.h"

#include "support/number_tables.h"
#include "support/probe_table.h"
#include "velda_base/host/headless_dock_pane.h"
#include "velda_base/host/headless_host.h"
#include "velda_lib/language.h"
#include "zt_db/records/stnd.h"
#include "zt_tb/core/dock_view.h"
#include "zt_tb/model/tb_display_dlg.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zt {
namespace {

using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

using Calls = std::vector<std::string>;

class TBPreViewTest : public TableTest {
protected:
    TBPreViewTest() { velda::SetCurrentLanguage(velda::Language::English); }

    void SetUp() override {
        AddNode(3, 13);
        AddNode(5, 15);
        AddNode(7, 17);
    }

    static std::unique_ptr<CTBPreView> NewView() { return std::make_unique<CTBPreView>(&FindProbeMaker); }
    static std::unique_ptr<CTBPreView> Open(int kind) {
        auto view = NewView();
        view->SetTable(kind, nullptr);
        return view;
    }
    static std::unique_ptr<CTBPreView> OpenInitially(int kind) {
        auto view = NewView();
        view->StoreTableKind(kind);
        view->OnInitialUpdate();
        return view;
    }

    static std::vector<ProbeTable*> Tables(const CTBPreView& view) {
        std::vector<velda::CTBGrid*> grids;
        view.GetAllGrid(grids);
        std::vector<ProbeTable*> tables;
        for (velda::CTBGrid* grid : grids) tables.push_back(dynamic_cast<ProbeTable*>(grid));
        return tables;
    }
    static std::vector<int> Kinds(const CTBPreView& view) {
        std::vector<int> kinds;
        for (const ProbeTable* table : Tables(view)) kinds.push_back(table->kind);
        return kinds;
    }
    /// What each table was asked for since the last time.
    static std::vector<Calls> TakeCalls(const CTBPreView& view) {
        std::vector<Calls> calls;
        for (ProbeTable* table : Tables(view)) calls.push_back(std::exchange(table->calls, {}));
        return calls;
    }
    static ProbeTable& FirstTable(const CTBPreView& view) { return *Tables(view).at(0); }

    void Hint(int code, const std::string& text = "") {
        T_UPDATE_HINT hint;
        hint.text = text;
        doc->UpdateAllViews(nullptr, code, &hint);
    }
    std::vector<int> Modes(const CTBPreView& view) {
        std::vector<int> modes;
        for (const ProbeTable* table : Tables(view)) modes.push_back(table->GetTableRunMode());
        return modes;
    }
};

// ---- titles

TEST_F(TBPreViewTest, NamesEachKind) {
    EXPECT_EQ("No Table", CTBPreView::GetTableName(0));
    EXPECT_EQ("Node", CTBPreView::GetTableName(1));
    EXPECT_EQ("Member Line Load", CTBPreView::GetTableName(24));
    EXPECT_EQ("Nonlinear Time History Load", CTBPreView::GetTableName(32));
    EXPECT_EQ("Model Checker", CTBPreView::GetTableName(161));
    for (const int kind : {-1, 87, 120, 162, 1000}) EXPECT_EQ("", CTBPreView::GetTableName(kind)) << kind;
}

TEST_F(TBPreViewTest, IsTitledByItsKindOrByTheGroupThatTheKindOpens) {
    EXPECT_EQ("Node", Open(1)->GetTitle());
    EXPECT_EQ("Member Line Load", Open(26)->GetTitle());
    EXPECT_EQ("Protective Load", Open(36)->GetTitle());
    EXPECT_EQ("Design Factor", Open(50)->GetTitle());
    EXPECT_EQ("Effective Length Factor", Open(51)->GetTitle());
    EXPECT_EQ("Effective Length Factor", Open(56)->GetTitle());
    EXPECT_EQ("Member", Open(145)->GetTitle());
    EXPECT_EQ("Node Detail", Open(85)->GetTitle());
    EXPECT_EQ("FEMA Type", Open(122)->GetTitle());
}

TEST_F(TBPreViewTest, TitlesItselfAnewByItsCurrentKind) {
    const auto view = Open(26);
    view->UpdateViewTitle();
    EXPECT_EQ("Column Load", view->GetTitle());
}

TEST_F(TBPreViewTest, HasNoKindAndNoTitleAsItIsMade) {
    const auto view = NewView();
    EXPECT_EQ(0, view->GetTableKind());
    EXPECT_EQ("", view->GetTitle());
    EXPECT_EQ(nullptr, view->GetActiveGrid());
}

TEST_F(TBPreViewTest, MakesNoTableForAKindWithoutOneButIsTitled) {
    EXPECT_EQ("No Table", Open(0)->GetTitle());
    EXPECT_EQ("Nonlinear Time History Load", Open(32)->GetTitle());
    for (const int kind : {-5, -1, 87, 120, 162, 100000}) EXPECT_EQ("", Open(kind)->GetTitle()) << kind;
    for (const int kind : {-5, -1, 0, 32, 87, 120, 162, 100000}) {
        const auto view = Open(kind);
        EXPECT_EQ(0, view->GetTabCount()) << kind;
        EXPECT_EQ(nullptr, view->GetActiveGrid()) << kind;
        EXPECT_EQ(kind, view->GetTableKind());
        for (const int code : {0, 1, 3, 4, 5, 6, 9, 10, 12, 20}) Hint(code);
    }
}

// ---- single tables

TEST_F(TBPreViewTest, OpensEachKindThatStandsAloneAsOneTable) {
    for (const TableKindEntry& entry : TableKinds()) {
        if (entry.mnemonic.empty() || FindTableGroup(entry.kind)) continue;
        const auto view = Open(entry.kind);
        EXPECT_THAT(Kinds(*view), ElementsAre(entry.kind));
        EXPECT_EQ(CTBPreView::GetTableName(entry.kind), view->GetTitle());
        EXPECT_EQ(0, FirstTable(*view).GetTableRunMode());
    }
}

TEST_F(TBPreViewTest, FillsASingleTableWithAllRecordsAndTellsItOfItsOpening) {
    const auto view = Open(1);
    EXPECT_THAT(FirstTable(*view).ShownKeys(), ElementsAre(3, 5, 7));
    EXPECT_THAT(TakeCalls(*view), ElementsAre(Calls{"fill", "open"}));
    EXPECT_FALSE(FirstTable(*view).IsUpdateLocked());
}

TEST_F(TBPreViewTest, DrawsATableOnceAsItIsFilledAndTheOneInFrontOnceMore) {
    EXPECT_EQ(2u, FirstTable(*Open(1)).RedrawCount());
    const auto group = Open(26);
    std::vector<std::uint64_t> redraws;
    for (const ProbeTable* table : Tables(*group)) redraws.push_back(table->RedrawCount());
    EXPECT_THAT(redraws, ElementsAre(1u, 2u, 1u, 1u));
}

TEST_F(TBPreViewTest, LeavesTheCheckerTableToFillItself) { EXPECT_THAT(TakeCalls(*Open(161)), ElementsAre(IsEmpty())); }

TEST_F(TBPreViewTest, OpensLockedWhileResultsAreCurrent) {
    EXPECT_FALSE(FirstTable(*Open(1)).IsEditModeLocked());
    doc->SetExcuted(1);
    EXPECT_TRUE(FirstTable(*Open(1)).IsEditModeLocked());
    const auto group = Open(25);
    for (const ProbeTable* table : Tables(*group)) EXPECT_TRUE(table->IsEditModeLocked());
}

TEST_F(TBPreViewTest, MakesNothingButItsTitleWithoutAModel) {
    CDBDoc::m_pDBDoc = nullptr;
    for (const int kind : {1, 25, 85, 86, 121, 161}) {
        const auto view = Open(kind);
        EXPECT_EQ(nullptr, view->GetActiveGrid()) << kind;
        EXPECT_NE("", view->GetTitle());
    }
}

TEST_F(TBPreViewTest, OpensEmptyWithItsTitleWhereTheTableClassDoesNotExist) {
    CTBPreView single([](int) -> TableMaker { return nullptr; });
    single.SetTable(1, nullptr);
    EXPECT_EQ("Node", single.GetTitle());
    EXPECT_EQ(0, single.GetTabCount());
    CTBPreView group([](int kind) { return kind == 26 ? FindProbeMaker(kind) : nullptr; });
    group.SetTable(25, nullptr);
    EXPECT_THAT(group.DisplayedTables(), ElementsAre("Line Load", "Column Load", "Wall Load", "Beam Load"));
    EXPECT_EQ(nullptr, group.GetActiveGrid());
    group.SetCurrentTab(1);
    EXPECT_NE(nullptr, group.GetActiveGrid());
    AddNode(9, 19);
    for (const int code : {0, 1, 3, 4, 5, 6, 12}) Hint(code);
    EXPECT_THAT(dynamic_cast<ProbeTable&>(*group.GetActiveGrid()).ShownKeys(), ElementsAre(3, 5, 7, 9));
    EXPECT_TRUE(group.LeaveRows());
    group.SetGridHost(nullptr);
}

// ---- groups

struct OpenedGroup {
    int kind;
    int first;
    int last;
    int tab;
};

class TBPreViewGroupTest : public TBPreViewTest, public ::testing::WithParamInterface<OpenedGroup> {};

TEST_P(TBPreViewGroupTest, HasItsTablesOnTabsWithTheAskedOneInFront) {
    const OpenedGroup& expected = GetParam();
    const auto view = Open(expected.kind);
    std::vector<int> kinds;
    for (int kind = expected.first; kind <= expected.last; ++kind) kinds.push_back(kind);
    EXPECT_EQ(kinds, Kinds(*view));
    EXPECT_EQ(expected.tab, view->GetCurrentTab());
    EXPECT_EQ(expected.kind, view->GetTableKind());
    EXPECT_THAT(Modes(*view), Each(1));
    EXPECT_THAT(TakeCalls(*view), Each(Calls{"fill"}));
}

INSTANTIATE_TEST_SUITE_P(
    All, TBPreViewGroupTest,
    ::testing::Values(OpenedGroup{24, 25, 28, 0}, OpenedGroup{25, 25, 28, 0}, OpenedGroup{26, 25, 28, 1},
                      OpenedGroup{28, 25, 28, 3}, OpenedGroup{36, 36, 46, 0}, OpenedGroup{46, 36, 46, 10},
                      OpenedGroup{47, 36, 46, 0}, OpenedGroup{48, 48, 48, 0}, OpenedGroup{49, 48, 48, 0},
                      OpenedGroup{50, 48, 48, 0}, OpenedGroup{52, 48, 48, 0}, OpenedGroup{53, 53, 53, 0},
                      OpenedGroup{54, 53, 53, 0}, OpenedGroup{55, 53, 53, 0}, OpenedGroup{57, 53, 53, 0},
                      OpenedGroup{62, 62, 64, 0}, OpenedGroup{64, 62, 64, 2}, OpenedGroup{65, 62, 64, 0},
                      OpenedGroup{68, 66, 68, 2}, OpenedGroup{69, 66, 68, 0}, OpenedGroup{79, 80, 83, 0},
                      OpenedGroup{80, 80, 83, 0}, OpenedGroup{83, 80, 83, 3}, OpenedGroup{84, 1, 2, 0},
                      OpenedGroup{140, 140, 159, 0}, OpenedGroup{159, 140, 159, 19}, OpenedGroup{160, 140, 159, 0}),
    [](const auto& test) { return "Kind" + std::to_string(test.param.kind); });

TEST_F(TBPreViewTest, LabelsTabsByTheirTabTexts) {
    EXPECT_THAT(Open(84)->DisplayedTables(), ElementsAre("Node", "Member"));
    EXPECT_THAT(Open(132)->DisplayedTables(), ElementsAre("Concrete", "Steel", "Shear"));
}

TEST_F(TBPreViewTest, StylesTheTabStripOfAGroup) {
    const velda::TabStyle usual;
    const velda::TabStyle style = Open(26)->GetTabWnd()->GetStyle();
    EXPECT_EQ(0xff0000u, style.activeText);
    EXPECT_EQ(16760992u, style.activeBackground);
    EXPECT_EQ(10526878u, style.otherText);
    EXPECT_EQ("Arial", style.faceName);
    EXPECT_EQ(15, style.fontHeight);
    EXPECT_EQ(16, style.activeFontHeight);
    EXPECT_EQ(700, style.activeFontWeight);
    EXPECT_EQ(usual.stripHeight + usual.stripHeight / 2, style.stripHeight);
    Open(1)->SetTabStyle();
}

TEST_F(TBPreViewTest, KeepsATableThatIsAskedForAgain) {
    const auto view = Open(84);
    ProbeTable* table = Tables(*view).front();
    const int kinds[] = {1, 3};
    view->AddTables(doc.get(), kinds);
    EXPECT_THAT(Kinds(*view), ElementsAre(1, 2, 3));
    EXPECT_EQ(table, Tables(*view).front());
}

TEST_F(TBPreViewTest, AddsNoTablesOfUnknownKindsOrWithoutAModel) {
    const auto view = Open(84);
    const int unknown[] = {-1, 100, 162};
    view->AddTables(doc.get(), unknown);
    const int known[] = {3};
    view->AddTables(nullptr, known);
    EXPECT_THAT(Kinds(*view), ElementsAre(1, 2));
}

// ---- details

TEST_F(TBPreViewTest, OpensNodeDetailWithTheSelectedNodesInTheOrderOfTheirKeys) {
    Db().GetViewCtrl()->SelectPont(nullptr, {7, 3});
    const auto view = Open(85);
    EXPECT_THAT(Kinds(*view), ElementsAre(1, 3, 7, 6, 17));
    EXPECT_THAT(Modes(*view), Each(2));
    for (const ProbeTable* table : Tables(*view)) {
        EXPECT_THAT(table->filteredBy, ElementsAre(3, 7));
        EXPECT_THAT(table->ShownKeys(), ElementsAre(3, 7));
    }
    EXPECT_THAT(TakeCalls(*view), Each(Calls{"filter", "fill", "open"}));
    EXPECT_EQ(0, view->GetCurrentTab());
}

TEST_F(TBPreViewTest, OpensDetailEmptyWhenNothingIsSelected) {
    for (const int kind : {85, 86}) {
        const auto view = Open(kind);
        for (const ProbeTable* table : Tables(*view)) EXPECT_THAT(table->ShownKeys(), IsEmpty());
    }
}

TEST_F(TBPreViewTest, OpensMemberDetailWithTheSelectedMembers) {
    AddMember(9, 1, {3, 5});
    AddMember(8, 2, {3, 7});
    Db().GetViewCtrl()->Select(nullptr, {7}, {9, 8});
    const auto view = Open(86);
    EXPECT_THAT(Kinds(*view), SizeIs(35));
    EXPECT_EQ(2, Kinds(*view).front());
    EXPECT_EQ(61, Kinds(*view).back());
    EXPECT_THAT(Modes(*view), Each(2));
    for (const ProbeTable* table : Tables(*view)) EXPECT_THAT(table->filteredBy, ElementsAre(8, 9));
}

TEST_F(TBPreViewTest, OpensMemberDetailWithFewerTablesOnTheResultSide) {
    doc->SetModePost();
    EXPECT_THAT(Kinds(*Open(86)), ElementsAre(59, 66, 67, 68, 53, 54, 55, 56, 61, 73, 74, 75, 76));
    EXPECT_THAT(Kinds(*Open(85)), SizeIs(5));
}

TEST_F(TBPreViewTest, DisplaysOtherTablesInMemberDetailByTheSelectedNodes) {
    AddMember(9, 1, {3, 5});
    doc->SetModePost();
    Db().GetViewCtrl()->Select(nullptr, {7, 5}, {9});
    const auto view = Open(86);
    TakeCalls(*view);
    const std::string remove[] = {"Unbraced Length", "No such table"};
    const int add[] = {2, 30};
    view->DisplayTables(remove, add);
    EXPECT_THAT(Kinds(*view), ElementsAre(59, 66, 67, 68, 53, 54, 55, 56, 61, 74, 75, 76, 2, 30));
    EXPECT_THAT(view->DisplayedTables(), Not(Contains("Unbraced Length")));
    EXPECT_THAT(Modes(*view), Each(2));
    EXPECT_THAT(TakeCalls(*view), Each(Calls{"filter", "fill", "open"}));
    for (const ProbeTable* table : Tables(*view)) EXPECT_THAT(table->filteredBy, ElementsAre(5, 7));
}

TEST_F(TBPreViewTest, KeepsItsTablesWhenItIsOpenedAgain) {
    for (const int kind : {1, 26, 85}) {
        const auto view = Open(kind);
        const std::vector<ProbeTable*> tables = Tables(*view);
        TakeCalls(*view);
        view->SetTable(84, nullptr);
        view->OnInitialUpdate();
        EXPECT_EQ(Tables(*view), tables) << kind;
        EXPECT_EQ(view->GetTableKind(), kind);
        EXPECT_THAT(TakeCalls(*view), Each(IsEmpty()));
        Hint(HintCode::Changed);
        EXPECT_THAT(TakeCalls(*view), Each(Calls{"changes"})) << "it listens once";
    }
}

TEST_F(TBPreViewTest, LocksTablesThatAreAddedWhileResultsAreCurrent) {
    doc->SetExcuted(1);
    const auto view = Open(86);
    const int add[] = {1};
    view->DisplayTables({}, add);
    for (const ProbeTable* table : Tables(*view)) EXPECT_TRUE(table->IsEditModeLocked()) << table->kind;
}

TEST_F(TBPreViewTest, FollowsNoSelectionWithoutAModel) {
    const auto view = Open(85);
    TakeCalls(*view);
    CDBDoc::m_pDBDoc = nullptr;
    view->UpdateSelAdd();
    view->UpdateSelDel();
    EXPECT_THAT(TakeCalls(*view), Each(IsEmpty()));
    view->DisplayTables({}, {});
    EXPECT_THAT(Kinds(*view), SizeIs(5));
    doc->MakeCurrent();
}

TEST_F(TBPreViewTest, LetsNoTablesBeChosenWhileARowCannotBeLeft) {
    velda::HeadlessHost host;
    const velda::UseHost use(host);
    AddMember(9, 1, {3, 5});
    Db().GetViewCtrl()->Select(nullptr, {3, 5}, {9});
    const auto view = Open(86);
    const int pont[] = {1};
    view->DisplayTables({}, pont);
    ProbeTable& nodes = *Tables(*view).back();
    ASSERT_GT(nodes.RecordRowCount(), 0);
    ASSERT_TRUE(nodes.SetCurrentCell(1, 2));
    nodes.TypeText("no number");
    view->OnTableDisplayDlg();
    EXPECT_THAT(host.dialogs.shown, IsEmpty());
    EXPECT_TRUE(nodes.IsRowInEdit());
}

TEST_F(TBPreViewTest, WritesAnOpenRowBeforeTheTablesAreChosen) {
    velda::HeadlessHost host;
    const velda::UseHost use(host);
    Db().GetViewCtrl()->SelectPont(nullptr, {3});
    const auto view = Open(86);
    const int pont[] = {1};
    view->DisplayTables({}, pont);
    ProbeTable& nodes = *Tables(*view).back();
    ASSERT_TRUE(nodes.EditCell(1, 2, "44"));
    view->OnTableDisplayDlg();
    T_PONT_D node;
    ASSERT_TRUE(Records<CClassPont>().Get(3, node));
    EXPECT_EQ(node.x, 44.0);
}

TEST_F(TBPreViewTest, MakesATableAnewThatWasTakenAway) {
    const auto view = Open(85);
    const std::string node[] = {"Node"};
    const int pont[] = {1};
    view->SetCurrentTab(4);
    view->DisplayTables(node, {});
    EXPECT_THAT(Kinds(*view), ElementsAre(3, 7, 6, 17));
    EXPECT_EQ(3, view->GetCurrentTab());
    view->DisplayTables({}, pont);
    EXPECT_THAT(Kinds(*view), ElementsAre(3, 7, 6, 17, 1));
}

TEST_F(TBPreViewTest, LetsTheUserChooseTheTablesOfMemberDetail) {
    velda::HeadlessHost host;
    const velda::UseHost use(host);
    const auto view = Open(86);
    const std::size_t count = Kinds(*view).size();
    host.dialogs.users.push_back([](velda::ModalDialog& dialog) {
        for (auto& item : dynamic_cast<CTBDisplayDlg&>(dialog).Page().Items()) {
            if (item.kind != 1 && item.kind != 2) continue;
            EXPECT_EQ(item.isShown, item.kind == 2);
            item.isShown = item.kind == 1;
        }
        return true;
    });
    EXPECT_TRUE(view->OnCommand(CTBPreView::kOnTableDisplayDlg));
    EXPECT_THAT(host.dialogs.shown, ElementsAre(CTBDisplayDlg::kName));
    EXPECT_THAT(Kinds(*view), SizeIs(count));
    EXPECT_EQ(30, Kinds(*view).front());
    EXPECT_EQ(1, Kinds(*view).back());
}

TEST_F(TBPreViewTest, KeepsItsTablesWhenTheChoiceIsCancelledOrUnchanged) {
    velda::HeadlessHost host;
    const velda::UseHost use(host);
    const auto view = Open(86);
    const std::vector<int> before = Kinds(*view);
    host.dialogs.users.push_back([](velda::ModalDialog& dialog) {
        for (auto& item : dynamic_cast<CTBDisplayDlg&>(dialog).Page().Items()) item.isShown = false;
        return false;
    });
    host.dialogs.users.push_back([](velda::ModalDialog&) { return true; });
    view->OnTableDisplayDlg();
    EXPECT_EQ(Kinds(*view), before);
    view->OnTableDisplayDlg();
    EXPECT_EQ(Kinds(*view), before);
    EXPECT_FALSE(Open(85)->OnCommand(CTBPreView::kOnTableDisplayDlg)) << "the tables of a node cannot be chosen";
}

// ---- hinges

TEST_F(TBPreViewTest, OpensHingeGroupsAndTellsEachTable) {
    EXPECT_THAT(Kinds(*Open(121)), ElementsAre(122, 123));
    EXPECT_THAT(Kinds(*Open(124)), ElementsAre(125, 126));
    EXPECT_THAT(Kinds(*Open(127)), ElementsAre(128));
    EXPECT_THAT(Kinds(*Open(132)), ElementsAre(133, 134, 135));
    EXPECT_THAT(Kinds(*Open(136)), ElementsAre(137, 138, 139));
    for (const int kind : {121, 124, 127, 132, 136}) {
        const auto view = Open(kind);
        EXPECT_THAT(TakeCalls(*view), Each(Calls{"fill", "open"}));
        EXPECT_EQ(0, view->GetCurrentTab());
    }
}

TEST_F(TBPreViewTest, GivesItsDataToHingeKindsOnly) {
    int data = 0;
    for (const int kind : {1, 25, 86, 140, 161}) {
        CTBPreView view(&FindProbeMaker);
        view.SetTable(kind, &data);
        EXPECT_EQ(nullptr, view.GetHingeData()) << kind;
    }
    for (const int kind : {121, 122, 131, 139}) {
        CTBPreView view(&FindProbeMaker);
        view.SetTable(kind, &data);
        EXPECT_EQ(&data, view.GetHingeData()) << kind;
    }
}

// ---- the first update

TEST_F(TBPreViewTest, FirstUpdateShowsTheStoredKindWithoutTitleAndOpening) {
    const auto view = OpenInitially(1);
    EXPECT_EQ("", view->GetTitle());
    EXPECT_THAT(Kinds(*view), ElementsAre(1));
    EXPECT_THAT(TakeCalls(*view), ElementsAre(Calls{"fill"}));
    EXPECT_THAT(FirstTable(*view).ShownKeys(), ElementsAre(3, 5, 7));
    EXPECT_EQ(1, view->GetTableKind());
}

TEST_F(TBPreViewTest, FirstUpdateMakesTheKindOfTheGroupTheKindOfTheView) {
    const auto view = OpenInitially(26);
    EXPECT_EQ(24, view->GetTableKind());
    EXPECT_EQ(1, view->GetCurrentTab());
    EXPECT_THAT(TakeCalls(*view), Each(Calls{"fill"}));
    EXPECT_EQ(52, OpenInitially(50)->GetTableKind());
    EXPECT_EQ(57, OpenInitially(54)->GetTableKind());
    EXPECT_EQ(65, OpenInitially(62)->GetTableKind());
    EXPECT_EQ(69, OpenInitially(67)->GetTableKind());
    EXPECT_EQ(79, OpenInitially(81)->GetTableKind());
    EXPECT_EQ(160, OpenInitially(141)->GetTableKind());
    EXPECT_EQ(86, OpenInitially(86)->GetTableKind());
}

TEST_F(TBPreViewTest, FirstUpdateOpensProtectiveLoadsByTheirTablesOnly) {
    const auto byTable = OpenInitially(38);
    EXPECT_THAT(Kinds(*byTable), SizeIs(11));
    EXPECT_EQ(2, byTable->GetCurrentTab());
    EXPECT_EQ(47, byTable->GetTableKind());
    TakeCalls(*byTable);
    Hint(HintCode::Changed);
    EXPECT_THAT(TakeCalls(*byTable), Each(Calls{"changes"}));
    const auto byGroup = OpenInitially(47);
    EXPECT_EQ(0, byGroup->GetTabCount());
    EXPECT_EQ(47, byGroup->GetTableKind());
}

TEST_F(TBPreViewTest, FirstUpdateTellsHingeAndDetailTablesOfTheirOpening) {
    EXPECT_THAT(TakeCalls(*OpenInitially(121)), Each(Calls{"fill", "open"}));
    EXPECT_THAT(TakeCalls(*OpenInitially(85)), Each(Calls{"filter", "fill", "open"}));
}

TEST_F(TBPreViewTest, FirstUpdateWithoutAKindShowsNothing) {
    const auto view = OpenInitially(0);
    EXPECT_EQ(0, view->GetTabCount());
    EXPECT_EQ("", view->GetTitle());
}

// ---- changes and units

TEST_F(TBPreViewTest, PassesChangesAndUnitsOnToItsTables) {
    for (const int kind : {1, 24, 26, 47, 52, 57, 65, 69, 79, 84, 85, 86, 121, 131, 136, 140, 160}) {
        const auto view = Open(kind);
        TakeCalls(*view);
        Hint(HintCode::Changed);
        EXPECT_THAT(TakeCalls(*view), Each(Calls{"changes"})) << kind;
        Hint(HintCode::Unit);
        for (const Calls& calls : TakeCalls(*view)) EXPECT_EQ("units", calls.front()) << kind;
    }
}

TEST_F(TBPreViewTest, TellsTablesInTheOrderOfTheirTabsWhileTheyReplay) {
    const auto view = Open(84);
    AddNode(9, 19);
    for (const ProbeTable* table : Tables(*view)) EXPECT_THAT(table->ShownKeys(), ElementsAre(3, 5, 7, 9));
}

TEST_F(TBPreViewTest, DoesNotPassEverythingOnToSpansExposuresAndTheChecker) {
    const auto told = [&](int kind, int code) {
        const auto view = Open(kind);
        TakeCalls(*view);
        Hint(code);
        return TakeCalls(*view).front();
    };
    EXPECT_THAT(told(77, HintCode::Changed), IsEmpty());
    EXPECT_THAT(told(77, HintCode::Unit), IsEmpty());
    EXPECT_THAT(told(78, HintCode::Changed), ElementsAre("changes"));
    EXPECT_THAT(told(78, HintCode::Unit), IsEmpty());
    EXPECT_THAT(told(161, HintCode::Changed), ElementsAre("changes"));
    EXPECT_THAT(told(161, HintCode::Unit), IsEmpty());
}

TEST_F(TBPreViewTest, LocksItsTablesByTheRunStateThatComesWithAChange) {
    const auto view = Open(25);
    doc->SetExcuted(1);
    Hint(HintCode::Changed);
    for (const ProbeTable* table : Tables(*view)) EXPECT_FALSE(table->IsEditModeLocked());
    Hint(HintCode::Changed0);
    for (const ProbeTable* table : Tables(*view)) EXPECT_TRUE(table->IsEditModeLocked());
    doc->SetExcuted(0);
    Hint(HintCode::Changed1);
    for (const ProbeTable* table : Tables(*view)) EXPECT_FALSE(table->IsEditModeLocked());
}

TEST_F(TBPreViewTest, OtherHintsOfTheApplicationDoNothing) {
    for (const int kind : {1, 25, 85}) {
        const auto view = Open(kind);
        TakeCalls(*view);
        std::vector<std::uint64_t> before;
        for (const ProbeTable* table : Tables(*view)) before.push_back(table->RedrawCount());
        for (const int code : {9, 10, 12, 14, 20, 27, 30}) Hint(code);
        std::vector<std::uint64_t> after;
        for (const ProbeTable* table : Tables(*view)) after.push_back(table->RedrawCount());
        EXPECT_EQ(before, after) << kind;
        EXPECT_THAT(TakeCalls(*view), Each(IsEmpty())) << kind;
    }
}

// ---- selection

TEST_F(TBPreViewTest, DetailFollowsTheSelectionOfNodesOrMembers) {
    AddMember(9, 1, {3, 5});
    const auto nodes = Open(85);
    const auto members = Open(86);
    TakeCalls(*nodes);
    TakeCalls(*members);
    Db().GetViewCtrl()->Select(nullptr, {7, 3}, {9});
    EXPECT_THAT(TakeCalls(*nodes), Each(Calls{"selection 5 7 3"}));
    EXPECT_THAT(TakeCalls(*members), Each(Calls{"selection 5 9"}));
    EXPECT_THAT(FirstTable(*nodes).ShownKeys(), ElementsAre(3, 7));
    Db().GetViewCtrl()->Select(nullptr, {3}, {});
    EXPECT_THAT(TakeCalls(*nodes), Each(Calls{"selection 6 7"}));
    EXPECT_THAT(TakeCalls(*members), Each(Calls{"selection 6 9"}));
    EXPECT_THAT(FirstTable(*nodes).ShownKeys(), ElementsAre(3));
}

TEST_F(TBPreViewTest, HingeGroupsAreToldOfTheSelectionWithoutKeys) {
    for (const int kind : {121, 127, 132, 136}) {
        const auto view = Open(kind);
        TakeCalls(*view);
        Db().GetViewCtrl()->SelectPont(nullptr, {7});
        EXPECT_THAT(TakeCalls(*view), Each(Calls{"selection 5"})) << kind;
        Db().GetViewCtrl()->SelectPont(nullptr, {});
        EXPECT_THAT(TakeCalls(*view), Each(Calls{"selection 6"})) << kind;
    }
}

TEST_F(TBPreViewTest, NoOtherKindFollowsTheSelection) {
    for (const int kind : {1, 33, 84, 122, 124, 160, 161}) {
        const auto view = Open(kind);
        TakeCalls(*view);
        Db().GetViewCtrl()->SelectPont(nullptr, {7});
        Db().GetViewCtrl()->SelectPont(nullptr, {});
        EXPECT_THAT(TakeCalls(*view), Each(IsEmpty())) << kind;
    }
}

// ---- tables by member type, checker

TEST_F(TBPreViewTest, FillsTheTablesByMemberTypeAnewForOneOfTheirKinds) {
    const auto view = Open(142);
    TakeCalls(*view);
    for (const int kind : {-1, 0, 24, 139, 161}) {
        view->UpdateMemberTable(kind);
        EXPECT_THAT(TakeCalls(*view), Each(IsEmpty())) << kind;
    }
    for (const int kind : {140, 151, 160}) {
        view->UpdateMemberTable(kind);
        EXPECT_THAT(TakeCalls(*view), Each(Calls{"fill"})) << kind;
    }
}

TEST_F(TBPreViewTest, PassesCheckItemsAndSizesOnToTheCheckerTable) {
    const auto view = Open(161);
    view->UpdateChk();
    view->OnSize();
    EXPECT_THAT(TakeCalls(*view), ElementsAre(Calls{"check", "layout"}));
    for (const int kind : {0, 1, 25}) {
        const auto other = Open(kind);
        TakeCalls(*other);
        other->UpdateChk();
        other->OnSize();
        EXPECT_THAT(TakeCalls(*other), Each(IsEmpty())) << kind;
    }
}

TEST_F(TBPreViewTest, TellsTheCheckerTableOfTheSizeOfItsWindow) {
    const auto view = Open(161);
    view->OnWindowPosChanging({0, 0, 300, 200});
    EXPECT_THAT(TakeCalls(*view), ElementsAre(Calls{"layout"}));
    EXPECT_EQ((velda::WindowRect{0, 0, 300, 200}), FirstTable(*view).Place());
}

// ---- frames and panes

/// Views in frames, and the two docking panes.
class TBPreViewFrameTest : public TBPreViewTest {
protected:
    struct Framed {
        Framed(velda::HeadlessHost& host, std::unique_ptr<CTBPreView> shown)
            : frame(host.queue), window(host.queue), view(std::move(shown)) {
            window.SetParentFrame(&frame);
            view->SetWindow(&window);
            frame.onClosed = [this] { view.reset(); };
        }
        bool IsOpen() const { return frame.IsOpen(); }

        velda::HeadlessFrame frame;
        velda::HeadlessWindow window;
        std::unique_ptr<CTBPreView> view;  ///< gone with the frame
    };
    struct Pane : velda::CDockViewBase {
        Pane(velda::HeadlessHost& host, std::uint32_t id) : window(host.queue, *this) { SetDockViewWithID(id, this); }
        bool IsShown() const { return window.IsVisible(); }

        velda::HeadlessDockPane window;
    };

    std::unique_ptr<Framed> OpenFramed(int kind) { return std::make_unique<Framed>(host_, Open(kind)); }
    bool StaysOpen(int kind, int code, const std::string& text = "") {
        const auto framed = OpenFramed(kind);
        Hint(code, text);
        EXPECT_EQ(framed->IsOpen(), framed->view != nullptr);
        return framed->IsOpen();
    }
    std::vector<int> KindsClosedBy(int code, const std::string& text = "") {
        std::vector<int> closed;
        for (const TableKindEntry& entry : TableKinds()) {
            if (!StaysOpen(entry.kind, code, text)) closed.push_back(entry.kind);
        }
        return closed;
    }

    velda::HeadlessHost host_;
    velda::UseHost use_{host_};
    Pane checker_{host_, 34551};
    Pane other_{host_, 7};
};

TEST_F(TBPreViewFrameTest, GivesItsTitleToItsFrameAndIsDrawnAtOnceWhileItOpens) {
    Framed framed(host_, NewView());
    framed.view->SetTable(26, nullptr);
    EXPECT_EQ("Member Line Load", framed.frame.GetTitle());
    EXPECT_EQ(1, framed.frame.RedrawCount());
    EXPECT_EQ(1, framed.window.RedrawCount());
    EXPECT_EQ(1, host_.waitCursor.times);
    EXPECT_EQ(0, host_.waitCursor.depth);
}

TEST_F(TBPreViewFrameTest, WithoutAKindNothingIsDrawn) {
    Framed framed(host_, NewView());
    framed.view->SetTable(0, nullptr);
    EXPECT_EQ("No Table", framed.frame.GetTitle());
    EXPECT_EQ(0, framed.window.RedrawCount());
}

TEST_F(TBPreViewFrameTest, ClosesOnTheTextCommandOfItsKind) {
    std::vector<int> memberTypes;
    for (const TableKindRange& range : {TableKindRange{140, 153}, TableKindRange{156, 157}, TableKindRange{160, 160}}) {
        for (int kind = range.first; kind <= range.last; ++kind) memberTypes.push_back(kind);
    }
    EXPECT_EQ(memberTypes, KindsClosedBy(39, "FINISH_MBTB_TABLE"));
    EXPECT_THAT(KindsClosedBy(39, "FINISH_SBLA_TABLE"), ElementsAre(34));
    EXPECT_THAT(KindsClosedBy(39, "FINISH_LNLD_TABLE"), ElementsAre(25));
    EXPECT_THAT(KindsClosedBy(39, "FINISH_BNDR_OFFS_TABLE"), ElementsAre(31));
    EXPECT_THAT(KindsClosedBy(39, "FINISH"), IsEmpty());
    EXPECT_THAT(KindsClosedBy(39), IsEmpty());
    EXPECT_THAT(KindsClosedBy(3, "FINISH_SBLA_TABLE"), IsEmpty());
    EXPECT_TRUE(checker_.IsShown());
}

TEST_F(TBPreViewFrameTest, TextCommandsTellTheAskedKindFromTheKindOfTheGroup) {
    const auto asked = OpenFramed(25);
    Framed initial(host_, OpenInitially(25));
    Hint(39, "FINISH_LNLD_TABLE");
    EXPECT_FALSE(asked->IsOpen());
    EXPECT_TRUE(initial.IsOpen());
}

TEST_F(TBPreViewFrameTest, TextCommandWithoutAHintIsPassedOver) {
    const auto framed = OpenFramed(25);
    doc->UpdateAllViews(nullptr, 39, nullptr);
    EXPECT_TRUE(framed->IsOpen());
}

TEST_F(TBPreViewFrameTest, ClosesThePaneOfTheCheckerWhenItIsVisible) {
    const auto framed = OpenFramed(1);
    Hint(39, "FINISH_CHECKING");
    EXPECT_FALSE(checker_.IsShown());
    EXPECT_EQ(1, checker_.window.stored);
    EXPECT_TRUE(other_.IsShown());
    EXPECT_TRUE(framed->IsOpen());
    Hint(39, "FINISH_CHECKING");
    EXPECT_EQ(1, checker_.window.stored);
}

TEST_F(TBPreViewFrameTest, ClosesOnTheSwitchToTheModellingSideUnlessItShowsADetail) {
    std::vector<int> expected;
    for (const TableKindEntry& entry : TableKinds()) {
        if (entry.kind != 85 && entry.kind != 86) expected.push_back(entry.kind);
    }
    EXPECT_EQ(expected, KindsClosedBy(HintCode::PreMode));
    EXPECT_FALSE(other_.IsShown());
}

TEST_F(TBPreViewFrameTest, ClosesAllPanesOnTheSwitchToTheModellingSide) {
    const auto framed = OpenFramed(85);
    doc->SetModePre();
    EXPECT_TRUE(framed->IsOpen());
    EXPECT_FALSE(checker_.IsShown());
    EXPECT_FALSE(other_.IsShown());
}

TEST_F(TBPreViewFrameTest, ClosesModelTablesOnTheSwitchToTheResultSide) {
    std::vector<int> expected;
    for (const TableKindEntry& entry : TableKinds()) {
        const int kind = entry.kind;
        if ((kind >= 1 && kind <= 76) || (kind >= 79 && kind <= 84) || (kind >= 140 && kind <= 160)) {
            expected.push_back(kind);
        }
    }
    EXPECT_EQ(expected, KindsClosedBy(HintCode::PostMode));
}

TEST_F(TBPreViewFrameTest, ClosesAllPanesOnTheSwitchToTheResultSideUnlessTheCheckerTraces) {
    const auto checker = OpenFramed(161);
    doc->StartTracerMode();
    doc->SetModePost();
    EXPECT_TRUE(other_.IsShown());
    doc->EndTracerMode();
    doc->SetModePost();
    EXPECT_FALSE(other_.IsShown());
    EXPECT_TRUE(checker->IsOpen());
    other_.window.Show(true);
    doc->StartTracerMode();
    const auto hinges = OpenFramed(121);
    doc->SetModePost();
    EXPECT_FALSE(other_.IsShown());
    EXPECT_TRUE(hinges->IsOpen());
}

TEST_F(TBPreViewFrameTest, ExposuresCloseWhenTheStandardsChange) {
    for (const int code : {0, 1, 3}) {
        const auto exposures = OpenFramed(78);
        const auto nodes = OpenFramed(1);
        AddNode(20 + static_cast<std::uint32_t>(code), 0);
        EXPECT_TRUE(exposures->IsOpen());
        EXPECT_THAT(FirstTable(*exposures->view).ShownKeys(), Contains(20u + static_cast<std::uint32_t>(code)));
        Hint(code);
        EXPECT_TRUE(exposures->IsOpen());
        T_STND_D standards;
        standards.concrete = "code " + std::to_string(code);
        Add<CClassStnd>(10 + static_cast<std::uint32_t>(code), standards);
        EXPECT_FALSE(exposures->IsOpen());
        EXPECT_TRUE(nodes->IsOpen());
        const auto late = OpenFramed(78);
        Hint(code);
        EXPECT_FALSE(late->IsOpen());
    }
}

TEST_F(TBPreViewFrameTest, ExposuresCloseOnEachKindOfChangeOfTheStandards) {
    T_STND_D standards;
    standards.concrete = "A";
    Add<CClassStnd>(1, standards);
    standards.concrete = "B";
    const auto modified = OpenFramed(78);
    ASSERT_TRUE(Records<CClassStnd>().TR_Modify(1, 1, standards));
    EXPECT_FALSE(modified->IsOpen());
    const auto deleted = OpenFramed(78);
    ASSERT_TRUE(Records<CClassStnd>().TR_Del(1));
    EXPECT_FALSE(deleted->IsOpen());
}

TEST_F(TBPreViewFrameTest, OutdatedExposuresAreNotUpdated) {
    const auto view = Open(78);
    TakeCalls(*view);
    Add<CClassStnd>(1, {});
    EXPECT_THAT(TakeCalls(*view), ElementsAre(IsEmpty()));
}

TEST_F(TBPreViewFrameTest, IsHostedByAPaneAndGoesWithIt) {
    CTBPreView::RegisterWithPanes();
    CDockView_PreTable pane;
    velda::HeadlessDockPane window(host_.queue, pane);
    const int kind = 26;
    ASSERT_TRUE(pane.SetInitData(99, &kind));
    const auto* view = dynamic_cast<CTBPreView*>(pane.GetOrCreateView());
    ASSERT_NE(nullptr, view);
    EXPECT_EQ(26, view->GetTableKind());
    EXPECT_EQ(4, view->GetTabCount());
    doc->SetModePre();
    EXPECT_EQ(nullptr, pane.GetCurrentView());
    EXPECT_FALSE(window.IsVisible());
    CDockView_PreTable::RegisterView({});
}

TEST_F(TBPreViewFrameTest, FindsTheFrameOfTheFirstViewWithATitle) {
    const auto nodes = OpenFramed(1);
    const auto first = OpenFramed(26);
    const auto second = OpenFramed(25);
    EXPECT_EQ(&first->frame, CTBPreView::FindTBFrame<CTBPreView>(*doc, "Member Line Load"));
    EXPECT_EQ(&nodes->frame, CTBPreView::FindTBFrame<CTitleCtrlView>(*doc, "Node"));
    EXPECT_EQ(nullptr, CTBPreView::FindTBFrame<CTBPreView>(*doc, "Line Load"));
    EXPECT_EQ(nullptr, CTBPreView::FindTBFrame<CTBPreView>(*doc, ""));
    EXPECT_EQ(nullptr, CTBPreView::FindTBFrame<OneTableView<PartTable>>(*doc, "Node"));
    first->frame.Close();
    EXPECT_EQ(&second->frame, CTBPreView::FindTBFrame<CTBPreView>(*doc, "Member Line Load"));
}

TEST_F(TBPreViewTest, TheCheckerGoesWithItsOwnPaneWhenItHasFinished) {
    velda::HeadlessHost host;
    const velda::UseHost use(host);
    CTBPreView::RegisterWithPanes();
    CDockView_PreTable pane;
    velda::HeadlessDockPane window(host.queue, pane);
    const int kind = kTableChk;
    ASSERT_TRUE(pane.SetInitData(34551, &kind));
    ASSERT_NE(nullptr, pane.GetOrCreateView());
    Hint(39, "FINISH_CHECKING");
    EXPECT_EQ(nullptr, pane.GetCurrentView());
    EXPECT_FALSE(window.IsVisible());
    CDockView_PreTable::RegisterView({});
}

// ---- context menu

TEST_F(TBPreViewTest, AddsItsEntriesToTheContextMenu) {
    const auto entries = [](int kind) {
        velda::CMenu menu;
        Open(kind)->CustomizeContextMenu(menu);
        return menu.Items();
    };
    ASSERT_THAT(entries(86), SizeIs(1));
    EXPECT_EQ(CTBPreView::kOnTableDisplayDlg, entries(86)[0].id);
    EXPECT_EQ("Display Tables...", entries(86)[0].text);
    for (const int kind : {121, 127}) {
        ASSERT_THAT(entries(kind), SizeIs(1));
        EXPECT_EQ(CTBPreView::kOnTableHingePropSetting, entries(kind)[0].id);
        EXPECT_EQ("Hinge Table Settings...", entries(kind)[0].text);
    }
    for (const int kind : {0, 1, 85, 122, 124, 132, 136, 161}) EXPECT_THAT(entries(kind), IsEmpty()) << kind;
}

}  // namespace
}  // namespace zt
