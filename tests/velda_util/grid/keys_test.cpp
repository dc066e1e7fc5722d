#include "velda_util/support/plate_table.h"

namespace velda {
namespace {

using GridKeys = PlateTableTest;

TEST_F(GridKeys, TypingReplacesTheText) {
    table.GoTo(1, PlateTable::Name);
    ASSERT_TRUE(table.TypeText("N"));
    ASSERT_TRUE(table.TypeText("ew"));
    EXPECT_EQ(table.Session().EditorText(), "New");
    EXPECT_EQ(table.Text(1, PlateTable::Name), "A") << "nothing is accepted yet";
    EXPECT_TRUE(table.IsRowInEdit());
}

TEST_F(GridKeys, F2EditsInPlace) {
    table.GoTo(1, PlateTable::Name);
    ASSERT_TRUE(table.Press("F2"));
    table.TypeText("2");
    EXPECT_EQ(table.Session().EditorText(), "A2");
}

TEST_F(GridKeys, F2WithoutACurrentCellIsRefused) {
    EXPECT_FALSE(table.Press("F2"));
    EXPECT_FALSE(table.IsRowInEdit());
}

TEST_F(GridKeys, EnterAcceptsGoesDownAndWritesTheRow) {
    table.GoTo(1, PlateTable::Name);
    table.TypeText("New");
    ASSERT_TRUE(table.Press("Enter"));
    EXPECT_EQ(At(), Cell(2, PlateTable::Name));
    EXPECT_EQ(db.plates.at(1).name, "New");
    EXPECT_EQ(db.transactions, 1);
    EXPECT_FALSE(table.IsRowInEdit());
}

TEST_F(GridKeys, EnterGoesBackToTheColumnWhereTheEntryBegan) {
    table.GoTo(1, PlateTable::Name);
    table.TypeText("New");
    ASSERT_TRUE(table.Press("Tab"));
    EXPECT_EQ(At(), Cell(1, PlateTable::Thickness));
    table.TypeText("0.5");
    ASSERT_TRUE(table.Press("Enter"));
    EXPECT_EQ(At(), Cell(2, PlateTable::Name));
    EXPECT_EQ(db.plates.at(1), (Plate{10, "New", 0.5, 1, false, ""}));
    EXPECT_EQ(db.transactions, 1) << "the row is written once";
}

TEST_F(GridKeys, EnterInTheLastRowOfATableWithoutAppendRowWritesAndStays) {
    table.EnableAppendRow(false);
    table.GoTo(3, PlateTable::Name);
    table.TypeText("New");
    ASSERT_TRUE(table.Press("Enter"));
    EXPECT_EQ(At(), Cell(3, PlateTable::Name));
    EXPECT_EQ(db.plates.at(3).name, "New");
}

TEST_F(GridKeys, TabPassesOverCellsThatCannotBeEntered) {
    table.GoTo(1, PlateTable::Note);
    table.Press("Tab");
    EXPECT_EQ(At(), Cell(1, PlateTable::Area)) << "a read-only cell can be entered";
    table.Press("Tab");
    EXPECT_EQ(At(), Cell(2, PlateTable::Number)) << "a disabled and a hidden one cannot";
    table.Press("Shift+Tab");
    EXPECT_EQ(At(), Cell(1, PlateTable::Area));
}

TEST_F(GridKeys, ArrowsAcceptWhatWasTyped) {
    table.GoTo(2, PlateTable::Name);
    table.TypeText("New");
    table.Press("Right");
    EXPECT_EQ(table.Text(2, PlateTable::Name), "New");
    EXPECT_TRUE(table.IsRowInEdit()) << "the row is still the same";
    EXPECT_EQ(db.transactions, 0);
    table.Press("Up");
    EXPECT_EQ(db.plates.at(2).name, "New");
    EXPECT_EQ(At(), Cell(1, PlateTable::Thickness));
}

TEST_F(GridKeys, EscapeRestoresTheCellAndASecondOneTheRow) {
    table.GoTo(1, PlateTable::Name);
    table.TypeText("New");
    table.Press("Right");
    table.TypeText("7");
    table.Press("Esc");
    EXPECT_EQ(table.Text(1, PlateTable::Thickness), "0.1");
    EXPECT_EQ(table.Text(1, PlateTable::Name), "New");
    EXPECT_TRUE(table.IsRowInEdit());
    table.Press("Esc");
    EXPECT_EQ(table.Text(1, PlateTable::Name), "A");
    EXPECT_FALSE(table.IsRowInEdit());
    EXPECT_EQ(db.transactions, 0);
    EXPECT_TRUE(host.warnings.empty());
}

TEST_F(GridKeys, ARefusedCellStaysOpenWithItsText) {
    table.GoTo(1, PlateTable::Thickness);
    table.TypeText("thick");
    EXPECT_FALSE(table.Press("Enter"));
    EXPECT_EQ(At(), Cell(1, PlateTable::Thickness));
    EXPECT_EQ(table.Session().EditorText(), "thick");
    EXPECT_EQ(LastWarning(), "Thickness: \"thick\" is not a number.");
}

TEST_F(GridKeys, MovesOverTheTable) {
    FillWith(50);
    table.SetPageRows(10);
    table.GoTo(5, PlateTable::Thickness);
    const auto after = [&](std::string_view chord) {
        table.Press(chord);
        return At();
    };
    EXPECT_EQ(after("Home"), Cell(5, PlateTable::Number));
    EXPECT_EQ(after("End"), Cell(5, PlateTable::Area));
    EXPECT_EQ(after("PgDn"), Cell(15, PlateTable::Area));
    EXPECT_EQ(after("PgUp"), Cell(5, PlateTable::Area));
    EXPECT_EQ(after("Ctrl+Home"), Cell(1, PlateTable::Number));
    EXPECT_EQ(after("Ctrl+Down"), Cell(50, PlateTable::Number));
    EXPECT_EQ(after("Ctrl+Up"), Cell(1, PlateTable::Number));
    EXPECT_EQ(after("Ctrl+Right"), Cell(1, PlateTable::Check)) << "the note is empty";
    EXPECT_EQ(after("Ctrl+Left"), Cell(1, PlateTable::Number));
    EXPECT_EQ(after("Ctrl+End"), Cell(51, PlateTable::Area)) << "the append row is the last one";
}

TEST_F(GridKeys, ShiftExtendsFromTheCurrentCell) {
    table.GoTo(1, PlateTable::Name);
    table.Press("Shift+Down");
    table.Press("Shift+Right");
    EXPECT_EQ(table.CommandRange(), PositionRange::Of(Cell(1, PlateTable::Name), Cell(2, PlateTable::Thickness)));
    EXPECT_EQ(At(), Cell(1, PlateTable::Name));
    table.Press("Ctrl+Shift+Down");
    EXPECT_EQ(table.CommandRange().bottom, 3) << "the append row holds no thickness";
    table.Press("Down");
    EXPECT_TRUE(table.Selected().IsEmpty());
}

TEST_F(GridKeys, SpaceTogglesOneCheckBox) {
    table.GoTo(1, PlateTable::Check);
    ASSERT_TRUE(table.Press("Space"));
    EXPECT_EQ(table.Text(1, PlateTable::Check), "1");
    table.Press("Down");
    EXPECT_TRUE(db.plates.at(1).check);
}

TEST_F(GridKeys, SpaceTogglesASelectionAsOneStep) {
    SelectCells(1, PlateTable::Check, 3, PlateTable::Check);
    ASSERT_TRUE(table.Press("Space"));
    for (const std::uint32_t key : {1u, 2u, 3u}) EXPECT_TRUE(db.plates.at(key).check) << key;
    EXPECT_EQ(db.StepCount(), 1u);
    ASSERT_TRUE(db.Undo());
    EXPECT_EQ(table.ColumnTexts(PlateTable::Check), (Texts{"0", "1", "0"}));
}

TEST_F(GridKeys, ACheckBoxTakesNothingButItsTwoValues) {
    EXPECT_FALSE(table.Enter(1, PlateTable::Check, "7"));
    EXPECT_TRUE(table.Press("Esc"));
    EXPECT_EQ(table.Text(1, PlateTable::Check), "0");
}

TEST_F(GridKeys, InsertOpensAnEmptyRowBeforeTheCurrentOne) {
    table.GoTo(2, PlateTable::Name);
    ASSERT_TRUE(table.Press("Insert"));
    EXPECT_EQ(table.RecordRowCount(), 4);
    EXPECT_EQ(At(), Cell(2, PlateTable::Name)) << "in the new row";
    EXPECT_EQ(table.Text(2, PlateTable::Key), "4");
    EXPECT_EQ(table.Text(2, PlateTable::Kind), "1");
    EXPECT_EQ(table.Text(3, PlateTable::Name), "B");
    table.TypeText("Between");
    table.Press("Tab");
    table.TypeText("0.5");
    ASSERT_TRUE(table.Press("Enter"));
    EXPECT_EQ(db.plates.at(4), (Plate{0, "Between", 0.5, 1, false, ""}));
    EXPECT_EQ(table.ColumnTexts(PlateTable::Name), (Texts{"Between", "A", "B", "C"})) << "sorted by its number";
}

TEST_F(GridKeys, EscapeTakesAnInsertedRowBack) {
    table.GoTo(2, PlateTable::Name);
    table.Press("Insert");
    table.TypeText("x");
    table.Press("Esc");
    table.Press("Esc");
    EXPECT_EQ(table.RecordRowCount(), 3);
    EXPECT_EQ(At(), Cell(2, PlateTable::Name));
    EXPECT_EQ(db.transactions, 0);
}

TEST_F(GridKeys, InsertDoesNothingWhereTheTableDoesNotAllowIt) {
    table.EnableInsertRowByPressingKey(false);
    table.GoTo(2, PlateTable::Name);
    EXPECT_FALSE(table.Press("Insert"));
    EXPECT_EQ(table.RecordRowCount(), 3);
}

TEST_F(GridKeys, DeleteRemovesSelectedRowsInOneTransaction) {
    table.SelectKeys(std::vector<std::uint32_t>{1, 3});
    ASSERT_TRUE(table.Press("Delete"));
    EXPECT_EQ(db.plates.size(), 1u);
    EXPECT_EQ(db.transactions, 1);
    EXPECT_EQ(table.singleDeletes, 0);
    EXPECT_EQ(table.RecordRowCount(), 1);
}

TEST_F(GridKeys, DeletingOneRowGoesThroughTheSingleDelete) {
    table.SelectKeys(std::vector<std::uint32_t>{2});
    ASSERT_TRUE(table.Press("Delete"));
    EXPECT_EQ(table.singleDeletes, 1);
    EXPECT_EQ(db.plates.count(2), 0u);
}

TEST_F(GridKeys, DeleteDoesNothingToRowsWhereTheTableDoesNotAllowIt) {
    table.EnableDeleteRowByPressingKey(false);
    table.SelectKeys(std::vector<std::uint32_t>{2});
    EXPECT_FALSE(table.Press("Delete"));
    EXPECT_EQ(db.plates.size(), 3u);
}

TEST_F(GridKeys, DeleteClearsCellsWhenNoRowsAreSelected) {
    table.GoTo(2, PlateTable::Note);
    ASSERT_TRUE(table.Press("Delete"));
    EXPECT_EQ(db.plates.at(2).note, "");
    EXPECT_EQ(db.StepCount(), 1u);
}

TEST_F(GridKeys, DeleteInTheOpenRowIsAnEditOfIt) {
    table.Enter(4, PlateTable::Name, "New");
    table.Enter(4, PlateTable::Note, "n");
    ASSERT_TRUE(table.Press("Delete"));
    EXPECT_EQ(table.Text(4, PlateTable::Note), "");
    EXPECT_TRUE(table.IsRowInEdit());
    EXPECT_EQ(db.transactions, 0);
}

TEST_F(GridKeys, DeletingNoRowsIsASuccessThatSendsNothing) {
    EXPECT_EQ(table.DeleteRecords({}), 1);
    EXPECT_EQ(db.transactions, 0);
}

}  // namespace
}  // namespace velda
