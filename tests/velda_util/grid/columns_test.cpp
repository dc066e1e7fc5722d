#include "velda_util/preference_folder.h"
#include "velda_util/support/plate_table.h"

namespace velda {
namespace {

using GridColumns = PlateTableTest;

TEST_F(GridColumns, AMovedColumnStillReadsAndWritesItsField) {
    ASSERT_TRUE(table.MoveColumn(table.Col(PlateTable::Thickness), 2));
    EXPECT_EQ(table.Col(PlateTable::Thickness), 2);
    EXPECT_EQ(table.GetValueRowCol(2, 2), "0.2");
    ASSERT_TRUE(table.EditCell(1, 2, "0.9"));
    ASSERT_TRUE(table.LeaveRow());
    EXPECT_EQ(db.plates.at(1), (Plate{10, "A", 0.9, 1, false, ""}));
    int number = 0;
    ColumnId id = 0;
    EXPECT_TRUE(table.GetColumnNoFor("Thickness", number));
    EXPECT_EQ(number, 2);
    EXPECT_TRUE(table.GetColumnIDFor(3, id));
    EXPECT_EQ(id, PlateTable::Number);
    EXPECT_FALSE(table.GetColumnNoFor(99, number));
    EXPECT_FALSE(table.MoveColumn(0, 99));
}

TEST_F(GridColumns, AColumnIsMovedWhileItsCellIsOpen) {
    table.GoTo(1, PlateTable::Name);
    table.TypeText("New");
    table.MoveColumn(table.Col(PlateTable::Name), table.GetColCount() + 1);
    ASSERT_TRUE(table.LeaveRow());
    EXPECT_EQ(db.plates.at(1).name, "New");
}

TEST_F(GridColumns, ColumnsHiddenByIntendAreNotShownByTheUser) {
    const int col = table.Col(PlateTable::Key);
    EXPECT_TRUE(table.IsHiddenByIntend(col));
    table.SetColHidden(col, false);
    EXPECT_TRUE(table.IsColumnHidden(col));
    table.HideColsByIntend(col, col, false);
    EXPECT_FALSE(table.IsColumnHidden(col));
}

TEST_F(GridColumns, ALockedColumnCannotBeEntered) {
    table.SetColLocked(table.Col(PlateTable::Name), true);
    EXPECT_FALSE(table.GoTo(1, PlateTable::Name));
    EXPECT_FALSE(table.Enter(1, PlateTable::Name, "x"));
}

TEST_F(GridColumns, TitlesTellTheirUnits) {
    EXPECT_EQ(table.Header().Text(0, PlateTable::Thickness), "Thickness (m)");
    EXPECT_EQ(table.Header().Text(0, PlateTable::Name), "Name");
}

TEST_F(GridColumns, FrozenColumnsAreKept) {
    table.SetFrozenCols(2);
    EXPECT_EQ(table.Columns().Frozen(), 2);
    table.SetFrozenCols(-1);
    EXPECT_EQ(table.Columns().Frozen(), 0);
}

TEST_F(GridColumns, DecimalPlacesComeFromThePreferences) {
    db.Put(1, {10, "A", 0.123456, 1, false, ""});
    EXPECT_EQ(table.GetShownText(1, table.Col(PlateTable::Thickness)), "0.12");
    EXPECT_EQ(table.Text(1, PlateTable::Thickness), "0.123456") << "rounded for drawing only";
}

class GridPreferences : public PreferenceFolderTest {
protected:
    GridPreferences() { TableRegistry::OfProcess().UseFile(PreferenceFile(path)); }
    ~GridPreferences() override { TableRegistry::OfProcess().UseFile(PreferenceFile(folder / "none.conf")); }

    PlateDatabase db;
};

TEST_F(GridPreferences, OrderWidthsLockedAndHiddenComeBack) {
    {
        PlateTable table(db);
        table.Initialize();
        EXPECT_EQ(table.GetColWidth(table.Col(PlateTable::Name)), 80);
        table.MoveColumn(table.Col(PlateTable::Note), 2);
        table.SetColWidth(table.Col(PlateTable::Name), 123);
        table.SetColHidden(table.Col(PlateTable::Kind), true);
        table.SetColLocked(table.Col(PlateTable::Check), true);
        ASSERT_TRUE(table.SaveLayout());
    }
    TableRegistry::OfProcess().UseFile(PreferenceFile(path));
    PlateTable table(db);
    table.Initialize();
    EXPECT_EQ(table.Col(PlateTable::Note), 2);
    EXPECT_EQ(table.GetColWidth(table.Col(PlateTable::Name)), 123);
    EXPECT_TRUE(table.IsColumnHidden(table.Col(PlateTable::Kind)));
    EXPECT_TRUE(table.Columns().IsLocked(PlateTable::Check));
    EXPECT_TRUE(table.IsColumnHidden(table.Col(PlateTable::Key)));
    table.HideColsByIntend(table.Col(PlateTable::Key), table.Col(PlateTable::Key), false);
    EXPECT_FALSE(table.IsColumnHidden(table.Col(PlateTable::Key))) << "it was not the user who hid it";
}

// ---- find

TEST_F(GridColumns, FindGoesOnAndWrapsOnceTellingSo) {
    FillWith(3);
    CTBGrid::m_Find.text = "p";
    table.GoTo(1, PlateTable::Number);
    ASSERT_TRUE(table.Press("F3"));
    EXPECT_EQ(At(), Cell(1, PlateTable::Name));
    table.Press("F3");
    table.Press("F3");
    EXPECT_EQ(At(), Cell(3, PlateTable::Name));
    EXPECT_TRUE(host.messages.empty());
    ASSERT_TRUE(table.Press("F3"));
    EXPECT_EQ(At(), Cell(1, PlateTable::Name));
    EXPECT_EQ(host.messages, (Texts{"The search reached the end of the table and went on from its beginning."}));
    ASSERT_TRUE(table.Press("Shift+F3"));
    EXPECT_EQ(At(), Cell(3, PlateTable::Name));
    EXPECT_EQ(LastMessage(), "The search reached the beginning of the table and went on from its end.");
}

TEST_F(GridColumns, FindTellsWhenThereIsNone) {
    CTBGrid::m_Find.text = "nowhere";
    table.GoTo(1, PlateTable::Number);
    EXPECT_FALSE(table.Press("F3"));
    EXPECT_EQ(LastMessage(), "\"nowhere\" was not found.");
    EXPECT_EQ(At(), Cell(1, PlateTable::Number));
}

TEST_F(GridColumns, FindLooksAtNamesOfListsAndOnlyAtShownColumns) {
    CTBGrid::m_Find.text = "wall";
    table.GoTo(1, PlateTable::Number);
    ASSERT_TRUE(table.Press("F3"));
    EXPECT_EQ(At(), Cell(2, PlateTable::Kind));
    table.SetColHidden(table.Col(PlateTable::Kind), true);
    table.GoTo(1, PlateTable::Number);
    EXPECT_FALSE(table.Press("F3"));
}

TEST_F(GridColumns, FindGoesOnBehindACellThatCannotBeEntered) {
    CTBGrid::m_Find.text = "m";
    table.GoTo(1, PlateTable::Number);
    ASSERT_TRUE(table.Press("F3"));
    EXPECT_EQ(table.CommandRange(), PositionRange::Of(Cell(1, PlateTable::Mark), Cell(1, PlateTable::Mark)));
    ASSERT_TRUE(table.Press("F3"));
    EXPECT_EQ(table.CommandRange(), PositionRange::Of(Cell(2, PlateTable::Mark), Cell(2, PlateTable::Mark)));
}

TEST_F(GridColumns, FindWritesTheOpenRowFirst) {
    CTBGrid::m_Find.text = "C";
    table.Enter(1, PlateTable::Name, "New");
    ASSERT_TRUE(table.Press("F3"));
    EXPECT_EQ(db.plates.at(1).name, "New");
    EXPECT_EQ(At(), Cell(3, PlateTable::Name));
}

TEST_F(GridColumns, FindKeyLeavesTheOpenRow) {
    table.Enter(1, PlateTable::Name, "New");
    EXPECT_FALSE(table.Press("Ctrl+F")) << "the window asks for the text";
    EXPECT_EQ(db.plates.at(1).name, "New");
}

// ---- filter

TEST_F(GridColumns, AFilterHidesAndItsEndShowsAgain) {
    ASSERT_TRUE(table.FilterColumn(PlateTable::Kind, "slab"));
    EXPECT_EQ(table.ColumnTexts(PlateTable::Name), (Texts{"A", "C"}));
    EXPECT_TRUE(table.IsColumnFiltered());
    EXPECT_EQ(table.FilterTextOf(PlateTable::Kind), "slab");
    ASSERT_TRUE(table.RemoveFilter());
    EXPECT_EQ(table.RecordRowCount(), 3);
    EXPECT_EQ(table.FilterTextOf(PlateTable::Kind), "");
}

TEST_F(GridColumns, FiltersOfSeveralColumnsHoldTogether) {
    table.FilterColumn(PlateTable::Kind, "slab");
    ASSERT_TRUE(table.FilterColumn(PlateTable::Name, "c"));
    EXPECT_EQ(table.ColumnTexts(PlateTable::Name), (Texts{"C"}));
    ASSERT_TRUE(table.FilterColumn(PlateTable::Name, "a"));
    EXPECT_EQ(table.ColumnTexts(PlateTable::Name), (Texts{"A"})) << "a column has one filter";
    ASSERT_TRUE(table.FilterColumn(PlateTable::Name, ""));
    EXPECT_EQ(table.ColumnTexts(PlateTable::Name), (Texts{"A", "C"}));
}

TEST_F(GridColumns, AFilterIsOneRedraw) {
    table.FilterColumn(PlateTable::Kind, "slab");
    const std::uint64_t before = table.RedrawCount();
    table.FilterColumn(PlateTable::Name, "c");
    EXPECT_EQ(table.RedrawCount(), before + 1);
}

TEST_F(GridColumns, ARecordThatIsShownStaysWhenItNoLongerMatches) {
    table.FilterColumn(PlateTable::Kind, "slab");
    table.Enter(1, PlateTable::Kind, "Wall");
    ASSERT_TRUE(table.LeaveRow());
    EXPECT_EQ(table.ColumnTexts(PlateTable::Name), (Texts{"A", "C"}));
    db.Put(7, {1, "Z", 1.0, 3, false, ""});
    EXPECT_EQ(table.RecordRowCount(), 2) << "one that came and does not match is hidden";
    table.RemoveFilter();
    EXPECT_EQ(table.ColumnTexts(PlateTable::Name), (Texts{"Z", "A", "B", "C"}));
}

TEST_F(GridColumns, AFilteredTableChangesOnlyWhatItShows) {
    table.FilterColumn(PlateTable::Kind, "slab");
    SelectCells(1, PlateTable::Thickness, 2, PlateTable::Thickness);
    ASSERT_TRUE(table.PasteText("5"));
    EXPECT_EQ(db.plates.at(1).thickness, 5.0);
    EXPECT_EQ(db.plates.at(2).thickness, 0.2);
    EXPECT_EQ(db.plates.at(3).thickness, 5.0);
}

}  // namespace
}  // namespace velda
