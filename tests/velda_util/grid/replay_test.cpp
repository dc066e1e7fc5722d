#include "velda_util/support/plate_table.h"

namespace velda {
namespace {

using GridReplay = PlateTableTest;

TEST_F(GridReplay, RemovingARowLeavesTheRecord) {
    table.RemoveRow(2);
    EXPECT_EQ(table.ColumnTexts(PlateTable::Name), (Texts{"A", "C"}));
    EXPECT_EQ(db.plates.size(), 3u);
    EXPECT_EQ(db.transactions, 0);
    EXPECT_THROW(table.RemoveRow(3), std::invalid_argument) << "the append row";
    EXPECT_THROW(table.RemoveRow(0), std::invalid_argument);
}

TEST_F(GridReplay, ARecordInAnotherSortPositionMovesItsRow) {
    db.Put(1, {99, "A", 0.1, 1, false, ""});
    EXPECT_EQ(table.ColumnTexts(PlateTable::Number), (Texts{"20", "30", "99"}));
    EXPECT_EQ(table.RowOfKey(1), 3);
}

TEST_F(GridReplay, AReplayIsDrawnOnce) {
    host.redraws = 0;
    db.Delete({1, 2});
    EXPECT_EQ(host.redraws, 1);
}

TEST_F(GridReplay, TypedTextsStayWhenTheRecordIsChangedElsewhere) {
    table.Enter(1, PlateTable::Name, "Mine");
    table.GoTo(1, PlateTable::Note);
    table.TypeText("typing");
    db.Put(1, {40, "Theirs", 9.0, 1, false, ""});
    EXPECT_TRUE(table.IsRowInEdit());
    EXPECT_EQ(table.RowOfKey(1), 3) << "the row went to its new place";
    EXPECT_EQ(At(), Cell(3, PlateTable::Note));
    EXPECT_EQ(table.Session().EditorText(), "typing");
    EXPECT_EQ(table.Text(3, PlateTable::Name), "Mine");
    EXPECT_EQ(table.Text(3, PlateTable::Thickness), "9") << "what was not typed follows";
    ASSERT_EQ(table.Session().Findings().size(), 1u);
    EXPECT_EQ(table.Session().Findings()[0].column, PlateTable::Name);
    EXPECT_EQ(table.Session().Findings()[0].rule, EditRule::ChangedElsewhere);
    ASSERT_TRUE(table.LeaveRow());
    EXPECT_EQ(db.plates.at(1), (Plate{40, "Mine", 9.0, 1, false, "typing"}));
}

TEST_F(GridReplay, EscapeGoesBackToWhatWasChangedElsewhere) {
    table.Enter(1, PlateTable::Name, "Mine");
    db.Put(1, {10, "Theirs", 9.0, 1, false, ""});
    table.Press("Esc");
    EXPECT_EQ(table.Text(1, PlateTable::Name), "Theirs");
}

TEST_F(GridReplay, AnOpenRowThatIsDeletedElsewhereHandsItsTextsOver) {
    table.Enter(2, PlateTable::Name, "Mine");
    table.GoTo(2, PlateTable::Note);
    table.TypeText("typing");
    db.Delete({2});
    EXPECT_FALSE(table.IsRowInEdit());
    EXPECT_EQ(LastMessage(), "The edited record was deleted elsewhere.\nName: Mine\nNote: typing");
    EXPECT_EQ(table.ColumnTexts(PlateTable::Name), (Texts{"A", "C"}));
    EXPECT_EQ(At().row, 2) << "the row that took its place";
}

TEST_F(GridReplay, TypingGoesOnInTheRowThatTookThePlaceOfADeletedOne) {
    table.GoTo(2, PlateTable::Note);
    db.Delete({2});
    ASSERT_TRUE(table.TypeText("n"));
    ASSERT_TRUE(table.Press("Enter"));
    EXPECT_EQ(db.plates.at(3).note, "n");
}

TEST_F(GridReplay, AChangeOfAnotherRecordLeavesTheOpenRowAlone) {
    table.Enter(2, PlateTable::Name, "Mine");
    db.Put(9, {5, "New", 1.0, 1, false, ""});
    EXPECT_EQ(table.Text(3, PlateTable::Name), "Mine");
    EXPECT_EQ(At(), Cell(3, PlateTable::Name));
    EXPECT_TRUE(table.Session().Findings().empty());
    ASSERT_TRUE(table.LeaveRow());
    EXPECT_EQ(db.plates.at(2).name, "Mine");
}

TEST_F(GridReplay, TheOpenRecordIsFollowedToItsNewKey) {
    table.Enter(2, PlateTable::Name, "Mine");
    db.Modify({2}, {7}, {{20, "B", 0.2, 2, true, "x"}});
    EXPECT_TRUE(table.IsRowInEdit());
    EXPECT_EQ(At(), Cell(2, PlateTable::Name));
    ASSERT_TRUE(table.LeaveRow());
    EXPECT_EQ(db.plates.at(7).name, "Mine");
    EXPECT_EQ(db.plates.count(2), 0u);
}

TEST_F(GridReplay, AnOpenNewRowTakesAnotherKeyWhenItsOwnIsTaken) {
    table.Enter(4, PlateTable::Name, "Mine");
    table.Enter(4, PlateTable::Thickness, "1");
    db.Put(4, {40, "Theirs", 1.0, 1, false, ""});
    EXPECT_TRUE(table.IsRowInEdit());
    ASSERT_TRUE(table.LeaveRow());
    EXPECT_EQ(db.plates.at(4).name, "Theirs");
    EXPECT_EQ(db.plates.at(5).name, "Mine");
}

TEST_F(GridReplay, AnUndoBringsDeletedRowsBackInTheirPlaces) {
    table.SelectKeys(std::vector<std::uint32_t>{1, 2});
    table.Press("Delete");
    ASSERT_TRUE(db.Undo());
    EXPECT_EQ(table.ColumnTexts(PlateTable::Name), (Texts{"A", "B", "C"}));
    EXPECT_EQ(table.Selected().WholeRowIds(table).size(), 2u) << "selected as they were";
}

TEST_F(GridReplay, CurrentCellAndSelectedRowsFollowTheirRecords) {
    table.GoTo(3, PlateTable::Note);
    table.SelectKeys(std::vector<std::uint32_t>{1, 3});
    db.Put(3, {1, "C", 0.3, 1, false, ""});
    db.Put(8, {2, "D", 0.3, 1, false, ""});
    EXPECT_EQ(At(), Cell(1, PlateTable::Note));
    EXPECT_EQ(table.GetKeysForSelectedRows(), (Keys{3, 1}));
    EXPECT_EQ(table.selected, (Keys{1, 3}));
}

TEST_F(GridReplay, ASelectionOfCellsFollowsItsEnds) {
    SelectCells(1, PlateTable::Name, 2, PlateTable::Thickness);
    db.Put(8, {5, "D", 0.3, 1, false, ""});
    EXPECT_EQ(table.CommandRange(), PositionRange::Of(Cell(2, PlateTable::Name), Cell(3, PlateTable::Thickness)));
}

TEST_F(GridReplay, SelectedColumnsStaySelected) {
    table.SelectRange(PositionRange::Columns(3, 4));
    db.Put(8, {5, "D", 0.3, 1, false, ""});
    ASSERT_EQ(table.Selected().Ranges().size(), 1u);
    EXPECT_EQ(table.Selected().Ranges()[0], PositionRange::Columns(3, 4));
}

TEST_F(GridReplay, TheSelectionIsToldByKeys) {
    table.SelectRange(PositionRange::Rows(2, 3));
    EXPECT_EQ(table.selected, (Keys{2, 3}));
    table.SelectRange(PositionRange::Of({1, 2}, {2, 3}));
    EXPECT_TRUE(table.selected.empty());
    table.SelectRange(PositionRange::All());
    EXPECT_EQ(table.selected, (Keys{1, 2, 3})) << "the append row is no record";
    table.GoTo(1, PlateTable::Name);
    EXPECT_TRUE(table.selected.empty());
}

TEST_F(GridReplay, TwoTablesOfOneDatabaseShowTheSame) {
    PlateTable other(db);
    other.Initialize();
    other.MakeItemEx(nullptr, -2, 0);
    table.Enter(1, PlateTable::Name, "New");
    ASSERT_TRUE(table.LeaveRow());
    EXPECT_EQ(other.ColumnTexts(PlateTable::Name), (Texts{"New", "B", "C"}));
}

// ---- units

TEST_F(GridReplay, AUnitChangeConvertsWhatIsTypedInTheOpenRow) {
    table.Enter(1, PlateTable::Thickness, "0.25");
    table.Enter(1, PlateTable::Note, "n");
    db.lengthFactor = 1000.0;
    table.UnitChanged();
    EXPECT_EQ(table.Text(1, PlateTable::Thickness), "250");
    EXPECT_EQ(table.GetValueRowColBeforeEdit(1, table.Col(PlateTable::Thickness)), "100");
    EXPECT_EQ(table.Text(2, PlateTable::Thickness), "200");
    EXPECT_EQ(table.Text(1, PlateTable::Note), "n");
    EXPECT_EQ(table.Header().Text(0, PlateTable::Thickness), "Thickness (mm)");
    ASSERT_TRUE(table.LeaveRow());
    EXPECT_EQ(db.plates.at(1).thickness, 0.25);
}

TEST_F(GridReplay, AUnitChangeConvertsAnOpenEditorAndAFormula) {
    table.GoTo(2, PlateTable::Thickness);
    table.TypeText("=0.1+0.2");
    db.lengthFactor = 1000.0;
    table.UnitChanged();
    EXPECT_EQ(table.Text(2, PlateTable::Thickness), "300");
    table.Press("F2");
    EXPECT_EQ(table.Session().EditorText(), "300") << "the formula was in the old unit";
    table.Press("Esc");
    ASSERT_TRUE(table.LeaveRow());
    EXPECT_NEAR(db.plates.at(2).thickness, 0.3, 1e-12);
}

TEST_F(GridReplay, AUnitChangeConvertsANewRow) {
    table.Enter(4, PlateTable::Name, "New");
    table.Enter(4, PlateTable::Thickness, "0.5");
    db.lengthFactor = 1000.0;
    table.UnitChanged();
    EXPECT_EQ(table.Text(4, PlateTable::Thickness), "500");
    ASSERT_TRUE(table.LeaveRow());
    EXPECT_EQ(db.plates.at(4), (Plate{0, "New", 0.5, 1, false, ""}));
}

TEST_F(GridReplay, AUnitChangeKeepsTheFilterOfKeys) {
    table.PreFilterRecord({3, 1});
    db.lengthFactor = 1000.0;
    table.UnitChanged();
    EXPECT_EQ(table.ColumnTexts(PlateTable::Thickness), (Texts{"100", "300"}));
}

TEST_F(GridReplay, ARowIsWrittenFromTextsOfThePreviousUnit) {
    db.lengthFactor = 1000.0;
    table.WriteRowFromText(1, {"1", "10", "A", "0.4", "1", "0", "", "12.5", ""});
    EXPECT_EQ(table.Text(1, PlateTable::Thickness), "400");
}

// ---- few records

TEST_F(GridReplay, AnEmptyTableShowsTheAppendRowOnly) {
    FillWith(0);
    EXPECT_EQ(table.RecordRowCount(), 0);
    EXPECT_EQ(table.RowCount(), 1);
    EXPECT_TRUE(table.Press("Ctrl+Home"));
    EXPECT_EQ(At(), Cell(1, PlateTable::Number));
    table.EnableAppendRow(false);
    EXPECT_EQ(table.RowCount(), 0);
    EXPECT_FALSE(table.Press("Ctrl+C"));
    EXPECT_FALSE(table.PasteText("x"));
}

TEST_F(GridReplay, TheLastRowIsShownAgainWhenAppendingIsEnabled) {
    table.HideLastRow();
    EXPECT_EQ(table.RowCount(), 3);
    EXPECT_FALSE(table.GoTo(4, PlateTable::Name));
    table.EnableAppendRow(true);
    EXPECT_EQ(table.RowCount(), 4);
}

}  // namespace
}  // namespace velda
