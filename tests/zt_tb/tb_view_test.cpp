#include <filesystem>
#include <fstream>

#include "support/view_fixture.h"
#include "zt_tb/core/tb_find_dlg.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

TEST_F(TBViewTest, ADamagedFileOfPreferencesIsToldOnceAndTheTableOpens) {
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "zt_view_preferences.conf";
    std::ofstream(file) << "no preferences at all";
    velda::TableRegistry::OfProcess().UseFile(velda::PreferenceFile(file));
    view.BuildWorkbook();
    EXPECT_EQ(AddTable("A").RecordRowCount(), 4);
    ASSERT_THAT(host.messages.shown, SizeIs(1));
    EXPECT_THAT(host.messages.shown.front(), HasSubstr(file.filename().string()));
    AddTable("B");
    EXPECT_THAT(host.messages.shown, SizeIs(1)) << "told once";
    for (const auto& entry : std::filesystem::directory_iterator(file.parent_path())) {
        if (entry.path().filename().string().starts_with("zt_view_preferences")) std::filesystem::remove(entry.path());
    }
}

// ---- tabs

TEST_F(TBViewTest, TheFirstWorksheetTakesThePlaceOfThePlaceholder) {
    view.BuildWorkbook();
    EXPECT_EQ(view.GetTabCount(), 1);
    EXPECT_EQ(view.GetActiveGrid(), nullptr) << "the placeholder is no grid";
    HookedThik& table = AddTable("A");
    EXPECT_EQ(view.GetTabCount(), 1);
    EXPECT_EQ(view.GetTabLabel(0), "A");
    EXPECT_EQ(view.GetActiveGrid(), &table);
    AddTable("B");
    EXPECT_EQ(view.GetTabCount(), 2);
    view.ChangeTabLabel(1, "C");
    EXPECT_EQ(view.GetTabLabel(1), "C");
}

TEST_F(TBViewTest, AViewOfOneGridHasNoTabsAndOneGrid) {
    HookedThik& table = AddTable();
    std::vector<velda::CTBGrid*> grids{nullptr, nullptr};
    EXPECT_EQ(view.GetAllGrid(grids), 1);
    EXPECT_THAT(grids, ElementsAre(&table));
    EXPECT_EQ(view.GetTabCount(), 0);
}

TEST_F(TBViewTest, AllGridsComeInTheOrderOfTheirTabs) {
    view.BuildWorkbook();
    HookedThik& a = AddTable("A");
    view.AddWorksheet(nullptr, "Empty");
    HookedThik& b = AddTable("B");
    std::vector<velda::CTBGrid*> grids;
    EXPECT_EQ(view.GetAllGrid(grids), 2);
    EXPECT_THAT(grids, ElementsAre(&a, &b));
}

TEST_F(TBViewTest, IsToldThatAnotherTabIsInFront) {
    view.BuildWorkbook();
    AddTable("A");
    AddTable("B");
    EXPECT_EQ(view.switches, 0);
    view.SetCurrentTab(1);
    view.SetCurrentTab(1);
    view.SetCurrentTab(2);
    EXPECT_EQ(view.switches, 1);
}

// ---- hints

TEST_F(TBViewTest, EachHintHasItsOperationUnderAWaitCursor) {
    const std::vector<std::pair<int, std::string>> hints = {
        {3, "buffer"},  {4, "unit"},     {5, "selAdd"},       {6, "selDel"},   {7, "pre"},
        {8, "post"},    {9, "exeStart"}, {10, "exeEnd"},      {12, "refresh"}, {14, "forceRemoved"},
        {20, "postDb"}, {27, "pref"},    {30, "forceChanged"}};
    for (const auto& [code, call] : hints) {
        view.calls.clear();
        view.OnUpdate(nullptr, code, nullptr);
        EXPECT_THAT(view.calls, ElementsAre(call)) << code;
    }
    EXPECT_TRUE(view.waited);
    EXPECT_EQ(host.waitCursor.depth, 0);
}

TEST_F(TBViewTest, TheTablesFollowAChangeBeforeTheyAreLocked) {
    doc->SetExcuted(1);
    for (const int code : {0, 1}) {
        view.calls.clear();
        view.OnUpdate(nullptr, code, nullptr);
        EXPECT_THAT(view.calls, ElementsAre("buffer", "readOnly 1")) << code;
    }
    EXPECT_TRUE(view.waited);
}

TEST_F(TBViewTest, OtherHintsDoNothing) {
    for (const int code : {-1, 2, 11, 13, 18, 19, 21, 26, 28, 31, 39, 99}) view.OnUpdate(nullptr, code, nullptr);
    EXPECT_THAT(view.calls, IsEmpty());
}

TEST_F(TBViewTest, HintsOfTheRunStateLockTheTables) {
    HookedThik& table = AddTable();
    doc->SetExcuted(1);
    view.OnUpdate(nullptr, 3, nullptr);
    EXPECT_FALSE(table.IsEditModeLocked());
    view.OnUpdate(nullptr, 1, nullptr);
    EXPECT_TRUE(table.IsEditModeLocked());
    doc->SetExcuted(0);
    view.OnUpdate(nullptr, 0, nullptr);
    EXPECT_FALSE(table.IsEditModeLocked());
}

TEST_F(TBViewTest, AGridThatIsNoRecordBrowserTellsThatTheViewMustKnowIt) {
    view.BuildWorkbook();
    view.AddWorksheet(nullptr, "Empty");
    HookedThik& table = AddTable("A");
    view.SetTableReadOnlyMode(1);
    EXPECT_THAT(host.messages.shown, IsEmpty()) << "a tab without a pane is passed over";
    view.AddWorksheet(std::make_unique<PlainGrid>(), "Plain");
    view.SetTableReadOnlyMode(1);
    EXPECT_THAT(host.messages.shown, ElementsAre("The view must override SetTableReadOnlyMode."));
    EXPECT_TRUE(table.IsEditModeLocked());
}

TEST_F(TBViewTest, AGridAloneThatIsNoRecordBrowserTellsTheSame) {
    view.AddWorksheet(std::make_unique<PlainGrid>(), "Plain");
    view.SetTableReadOnlyMode(0);
    EXPECT_THAT(host.messages.shown, ElementsAre("The view must override SetTableReadOnlyMode."));
}

// ---- commands

TEST_F(TBViewTest, WithoutATableCommandsDoNothing) {
    for (const int id : {CommandId::EditCopy, CommandId::EditPaste, CommandId::FilePrint, CommandId::FilePrintPreview,
                         CommandId::EditFind, CommandId::FindNext, CommandId::Sort, CommandId::FitWidth,
                         CommandId::Style, CommandId::Graph, CommandId::LockColumns, CommandId::UnlockColumns, 50000}) {
        EXPECT_FALSE(view.IsCommandEnabled(id)) << id;
        EXPECT_FALSE(view.OnCommand(id)) << id;
    }
    view.OnTbGvFind();
    view.OnTbGvFindNext();
    view.OnTbGvSortDlg();
    view.OnTbGvResizeWidth();
    view.OnResizeWidth();
    view.OnTbGvStyleDlg();
    view.OnEnableCol();
    view.OnDisableCol();
    view.OnTbGvGraphView();
    view.OnContextMenu({});
    view.OnSetFocus();
    view.OnDraw(false);
    EXPECT_FALSE(view.Print(false));
    EXPECT_THAT(host.dialogs.shown, IsEmpty());
    EXPECT_THAT(host.messages.shown, IsEmpty());
    EXPECT_EQ(host.menus.last, std::nullopt);
}

TEST_F(TBViewTest, ATableWhoseWindowIsGoneTakesNoCommands) {
    AddTable();
    EXPECT_TRUE(view.IsCommandEnabled(CommandId::EditFind));
    window.Destroy();
    EXPECT_FALSE(view.IsCommandEnabled(CommandId::EditFind));
    EXPECT_FALSE(view.OnCommand(CommandId::EditFind));
}

TEST_F(TBViewTest, CopyAndPasteAreEnabledAsTheTableSays) {
    HookedThik& table = AddTable();
    EXPECT_FALSE(view.IsCommandEnabled(CommandId::EditCopy)) << "nothing is selected";
    ASSERT_TRUE(table.SetCurrentCell(1, Col(table, kName)));
    EXPECT_TRUE(view.OnCommand(CommandId::EditCopy));
    EXPECT_EQ(host.clipboard.GetText(), "Wall\n");
    ASSERT_TRUE(table.SetCurrentCell(3, Col(table, kName)));
    EXPECT_TRUE(view.OnCommand(CommandId::EditPaste));
    T_THIK_D record;
    CTBCommonWnd::GetDB()->GetClass<CClassThik>()->Get(3, record);
    EXPECT_EQ(record.name, "Wall");
    table.LockEditMode(true);
    EXPECT_FALSE(view.IsCommandEnabled(CommandId::EditPaste));
}

// ---- graph

TEST_F(TBViewTest, AnInvalidGraphRangeShowsTheMessageAndNoGraph) {
    AddTable();
    view.OnTbGvGraphView();
    EXPECT_THAT(host.messages.shown, ElementsAre("The selected range cannot be shown as a graph."));
    EXPECT_THAT(host.graphs.asked, IsEmpty());
}

TEST_F(TBViewTest, AGraphGoesToTheViewOfItsTitle) {
    AddTable().hasGraph = true;
    view.OnTbGvGraphView();
    EXPECT_THAT(host.graphs.asked, ElementsAre("Table Graph View"));
    ASSERT_NE(host.graphs.shown, nullptr);
    EXPECT_EQ(host.graphs.shown->title, "Graph");
    EXPECT_EQ(frame.activations, 1);
}

TEST_F(TBViewTest, NoGraphIsShownWithoutAViewOrADocument) {
    AddTable().hasGraph = true;
    host.graphs.fails = true;
    view.OnTbGvGraphView();
    EXPECT_EQ(frame.activations, 0);
    host.graphs.asked.clear();
    CDBDoc::m_pDBDoc = nullptr;
    view.OnTbGvGraphView();
    EXPECT_THAT(host.graphs.asked, IsEmpty());
    doc->MakeCurrent();
}

TEST_F(TBViewTest, NoGraphIsShownWhereThereIsNoServiceForGraphs) {
    class HostWithoutGraphs : public velda::HeadlessHost {
    public:
        velda::IGraphView* GetGraphView() override { return nullptr; }
    };
    HostWithoutGraphs without;
    const velda::UseHost useIt(without);
    AddTable().hasGraph = true;
    view.OnTbGvGraphView();
    EXPECT_EQ(frame.activations, 0);
    EXPECT_THAT(without.messages.shown, IsEmpty());
}

// ---- window

TEST_F(TBViewTest, TheFocusGoesToTheTableInFront) {
    struct FocusHost : velda::GridHost {
        void OnSetFocus() override { ++times; }
        int times = 0;
    };
    FocusHost front;
    FocusHost behind;
    view.BuildWorkbook();
    AddTable("A").SetHost(&behind);
    AddTable("B").SetHost(&front);
    view.SetCurrentTab(1);
    view.OnSetFocus();
    EXPECT_EQ(front.times, 1);
    EXPECT_EQ(behind.times, 0);
    view.SetGridHost(nullptr);
}

TEST_F(TBViewTest, WhatFillsTheViewFollowsIt) {
    HookedThik& table = AddTable();
    view.OnWindowPosChanging({1, 2, 300, 200});
    EXPECT_EQ(table.Place(), (velda::WindowRect{1, 2, 300, 200}));
    view.BuildWorkbook();
    view.OnWindowPosChanging({0, 0, 50, 60});
    EXPECT_EQ(view.GetTabWnd()->Place(), (velda::WindowRect{0, 0, 50, 60}));
}

// ---- context menu

TEST_F(TBViewTest, TheMenuIsChangedByTheViewAndThenByTheTable) {
    AddTable();
    view.OnContextMenu({5, 5});
    ASSERT_TRUE(host.menus.last);
    const velda::CMenu& menu = *host.menus.last;
    const auto& items = menu.Items();
    ASSERT_GE(items.size(), 3u);
    EXPECT_EQ(items[items.size() - 3].id, CommandId::Color);
    EXPECT_EQ(items[items.size() - 2].id, 50001);
    EXPECT_EQ(items[items.size() - 1].id, 50000);
    EXPECT_EQ(menu.Find(CommandId::ChangeUnit), nullptr);
    EXPECT_TRUE(menu.Find(CommandId::Sort)->enabled);
}

TEST_F(TBViewTest, TheMenuIsShownAtThePoint) {
    AddTable();
    view.OnContextMenu({17, 23});
    EXPECT_EQ(host.menus.lastPlace, (velda::WindowPoint{17, 23}));
}

TEST_F(TBViewTest, TheToolBarHasCommandsOfItsOwnToSortAndToFitWidths) {
    HookedThik& table = AddTable();
    EXPECT_TRUE(view.OnCommand(46509));
    EXPECT_THAT(host.dialogs.shown, ElementsAre("TableSort"));
    table.SetColWidth(Col(table, kName), 999);
    EXPECT_TRUE(view.OnCommand(46510));
    EXPECT_LT(table.GetColWidth(Col(table, kName)), 999);
}

TEST_F(TBViewTest, AnOpenRowKeepsTheTableFromBeingSorted) {
    HookedThik& table = AddTable();
    ASSERT_TRUE(table.EditCell(1, Col(table, kName), "X"));
    view.OnContextMenu({5, 5});
    EXPECT_FALSE(host.menus.last->Find(CommandId::Sort)->enabled);
}

TEST_F(TBViewTest, TheChosenCommandRunsAlsoWhenItIsTheTables) {
    HookedThik& table = AddTable();
    host.menus.choices = {50000, 50001, CommandId::Sort};
    view.OnContextMenu({5, 5});
    view.OnContextMenu({5, 5});
    view.OnContextMenu({5, 5});
    EXPECT_THAT(table.handled, ElementsAre(50000, 50001));
    EXPECT_THAT(host.dialogs.shown, ElementsAre("TableSort"));
}

// ---- find

velda::HeadlessDialogs::User Finds(const std::string& text, int direction = 1) {
    return [=](velda::ModalDialog& dialog) {
        auto& find = dynamic_cast<CTBFindDlg&>(dialog);
        find.text = text;
        find.direction = direction;
        find.allColumns = true;
        return true;
    };
}

TEST_F(TBViewTest, FindNextWithoutATextOpensTheDialog) {
    HookedThik& table = AddTable();
    host.dialogs.users.push_back(Finds("Slab"));
    view.OnTbGvFindNext();
    EXPECT_THAT(host.dialogs.shown, ElementsAre("TableFind"));
    int row = 0;
    int col = 0;
    ASSERT_TRUE(table.GetCurrentCell(row, col));
    EXPECT_EQ(row, 3);
    view.OnTbGvFindNext();
    EXPECT_EQ(host.dialogs.shown.size(), 1u) << "now it has a text";
}

TEST_F(TBViewTest, ASearchGoesOnInAnotherTable) {
    view.BuildWorkbook();
    AddTable("A");
    HookedThik& other = AddTable("B");
    host.dialogs.users.push_back(Finds("Slab"));
    view.OnTbGvFind();
    view.SetCurrentTab(1);
    view.OnTbGvFindNext();
    EXPECT_EQ(host.dialogs.shown.size(), 1u);
    int row = 0;
    int col = 0;
    ASSERT_TRUE(other.GetCurrentCell(row, col));
    EXPECT_EQ(row, 3);
    EXPECT_EQ(velda::CTBGrid::m_Find.text, "Slab");
}

TEST_F(TBViewTest, TheFindDialogTakesNoEmptyText) {
    AddTable();
    host.dialogs.users.push_back(Finds(""));
    view.OnTbGvFind();
    EXPECT_EQ(velda::CTBGrid::m_Find.text, "");
    EXPECT_TRUE(velda::CTBGrid::m_Find.direction == 1 && !velda::CTBGrid::m_Find.onlyCurrentColumn);
}

TEST_F(TBViewTest, TheFindDialogShowsAndKeepsTheSettings) {
    HookedThik& table = AddTable();
    velda::CTBGrid::m_Find = {"abc", true, true, 0, 0};
    CTBFindDlg dialog(table);
    dialog.OnInitDialog();
    EXPECT_EQ(dialog.text, "abc");
    EXPECT_TRUE(dialog.matchCase);
    EXPECT_FALSE(dialog.allColumns);
    EXPECT_EQ(dialog.direction, 0);
    EXPECT_TRUE(dialog.IsFindEnabled());
    dialog.text.clear();
    EXPECT_FALSE(dialog.IsFindEnabled());
    dialog.text = "xyz";
    dialog.allColumns = true;
    dialog.matchCase = false;
    dialog.direction = 1;
    EXPECT_TRUE(dialog.OnOK()) << "it closes though nothing was found";
    const velda::STBFindStruct& find = velda::CTBGrid::m_Find;
    EXPECT_EQ(find.text, "xyz");
    EXPECT_FALSE(find.onlyCurrentColumn);
    EXPECT_FALSE(find.matchCase);
    EXPECT_EQ(find.direction, 1);
}

TEST_F(TBViewTest, ACancelledFindChangesNothing) {
    AddTable();
    host.dialogs.users.push_back([](velda::ModalDialog& dialog) {
        dynamic_cast<CTBFindDlg&>(dialog).text = "Slab";
        return false;
    });
    view.OnTbGvFind();
    EXPECT_EQ(velda::CTBGrid::m_Find.text, "");
}

// ---- locked columns

TEST_F(TBViewTest, SelectedColumnsAreLockedButNotThatOfTheCurrentCell) {
    HookedThik& table = AddTable();
    const int name = Col(table, kName);
    const int thickness = Col(table, kThickness);
    ASSERT_TRUE(table.SetCurrentCell(1, name));
    table.SelectRange(velda::PositionRange::Columns(name, thickness));
    view.OnDisableCol();
    EXPECT_FALSE(ColumnsOf(table).IsLocked(kName));
    EXPECT_TRUE(ColumnsOf(table).IsLocked(kThickness));
    EXPECT_TRUE(table.Selected().IsEmpty());
    EXPECT_FALSE(table.IsUpdateLocked());
    table.SelectRange(velda::PositionRange::Columns(thickness, thickness));
    view.OnEnableCol();
    EXPECT_FALSE(ColumnsOf(table).IsLocked(kThickness));
}

TEST_F(TBViewTest, WithoutSelectedColumnsThatUnderTheMenuIsLocked) {
    HookedThik& table = AddTable();
    ASSERT_TRUE(table.SetCurrentCell(1, Col(table, kName)));
    view.OnDisableCol();
    EXPECT_FALSE(ColumnsOf(table).IsLocked(kThickness)) << "no menu was opened";
    view.OnContextMenu(*table.CellMiddle({2, Col(table, kThickness)}));
    view.OnDisableCol();
    EXPECT_TRUE(ColumnsOf(table).IsLocked(kThickness));
}

TEST_F(TBViewTest, TheColumnOfTheCurrentCellIsNotLockedByTheMenuEither) {
    HookedThik& table = AddTable();
    ASSERT_TRUE(table.SetCurrentCell(1, Col(table, kName)));
    table.SelectRange(velda::PositionRange::Columns(Col(table, kName), Col(table, kName)));
    view.OnContextMenu(*table.CellMiddle({2, Col(table, kName)}));
    view.OnDisableCol();
    EXPECT_FALSE(ColumnsOf(table).IsLocked(kName));
    EXPECT_FALSE(table.Selected().IsEmpty()) << "nothing was done";
    view.OnContextMenu({100000, 5});
    view.OnDisableCol();
    EXPECT_FALSE(ColumnsOf(table).IsLocked(kThickness)) << "there is no cell";
}

TEST_F(TBViewTest, ALockedKeyColumnIsFrozenUntilItIsUnlocked) {
    HookedThik& table = AddTable();
    ASSERT_TRUE(table.SetCurrentCell(1, Col(table, kName)));
    table.SelectRange(velda::PositionRange::Columns(1, 1));
    view.OnDisableCol();
    EXPECT_EQ(ColumnsOf(table).Frozen(), 1);
    table.SetTopLeft({3, 2});
    table.SelectRange(velda::PositionRange::Columns(1, 1));
    view.OnEnableCol();
    EXPECT_EQ(ColumnsOf(table).Frozen(), 0);
    EXPECT_EQ(table.TopLeft(), (velda::GridPosition{3, 1}));
}

// ---- widths

TEST_F(TBViewTest, FittingWidthsIsDrawnOnceFromTheMenu) {
    HookedThik& table = AddTable();
    table.SetColWidth(Col(table, kName), 999);
    const auto redraws = table.RedrawCount();
    view.OnResizeWidth();
    EXPECT_LT(table.GetColWidth(Col(table, kName)), 999);
    EXPECT_EQ(table.RedrawCount(), redraws + 1);
    EXPECT_FALSE(table.IsUpdateLocked());
}

TEST_F(TBViewTest, TheWidthsOfTheTableInFrontAreKept) {
    view.BuildWorkbook();
    HookedThik& front = AddTable("A");
    HookedThik& behind = AddTable("B");
    front.SetColWidth(Col(front, kName), 123);
    behind.SetColWidth(Col(behind, kName), 45);
    view.OnDestroy();
    EXPECT_EQ(MakeTable()->GetColWidth(Col(front, kName)), 123);
}

TEST_F(TBViewTest, TheWidthsOfTheTableInFrontAreThereAfterARestart) {
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "zt_view_widths.conf";
    std::filesystem::remove(file);
    velda::TableRegistry::OfProcess().UseFile(velda::PreferenceFile(file));
    HookedThik& table = AddTable();
    table.SetColWidth(Col(table, kName), 137);
    view.OnDestroy();
    velda::TableRegistry::OfProcess().UseFile(velda::PreferenceFile(file));
    TestView later;
    later.AddWorksheet(MakeTable(), "Thickness");
    EXPECT_EQ(later.GetActiveGrid()->GetColWidth(Col(table, kName)), 137);
    std::filesystem::remove(file);
}

}  // namespace
}  // namespace zt
