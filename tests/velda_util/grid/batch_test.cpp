#include "velda_util/support/plate_table.h"

namespace velda {
namespace {

using GridBatch = PlateTableTest;

TEST_F(GridBatch, PasteOverRecordsIsOneStep) {
    table.GoTo(1, PlateTable::Name);
    ASSERT_TRUE(table.PasteText("X\t1.5\nY\t2.5\n"));
    EXPECT_EQ(db.plates.at(1), (Plate{10, "X", 1.5, 1, false, ""}));
    EXPECT_EQ(db.plates.at(2), (Plate{20, "Y", 2.5, 2, true, "x"}));
    EXPECT_EQ(db.plates.size(), 3u);
    EXPECT_EQ(db.transactions, 1);
    ASSERT_EQ(db.StepCount(), 1u);
    db.Undo();
    EXPECT_EQ(table.ColumnTexts(PlateTable::Name), (Texts{"A", "B", "C"}));
    EXPECT_TRUE(host.messages.empty()) << "nothing to tell";
    EXPECT_EQ(table.allocated, 0);
}

TEST_F(GridBatch, RowsFromTheAppendRowOnAreAdded) {
    table.GoTo(3, PlateTable::Name);
    ASSERT_TRUE(table.PasteText("X\t1\nY\t2\nZ\t3"));
    EXPECT_EQ(db.plates.at(3).name, "X");
    EXPECT_EQ(db.plates.at(4).name, "Y");
    EXPECT_EQ(db.plates.at(5).name, "Z");
    EXPECT_EQ(db.transactions, 2) << "one that modifies, one that adds";
    EXPECT_EQ(db.StepCount(), 1u);
    EXPECT_EQ(db.plates.at(5).kind, 1) << "a column that was not pasted gets its default";
}

TEST_F(GridBatch, AddedRowsPassOverKeysThatExist) {
    db.firstFreeKey = true;
    db.plates.erase(2);
    Open();
    table.GoTo(3, PlateTable::Name);
    ASSERT_TRUE(table.PasteText("X\t1\nY\t2\nZ\t3"));
    EXPECT_EQ(db.plates.at(2).name, "X");
    EXPECT_EQ(db.plates.at(3).name, "C");
    EXPECT_EQ(db.plates.at(4).name, "Y");
    EXPECT_EQ(db.plates.at(5).name, "Z");
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(GridBatch, ASingleValueFillsTheSelection) {
    SelectCells(1, PlateTable::Thickness, 3, PlateTable::Thickness);
    ASSERT_TRUE(table.PasteText("0.7"));
    EXPECT_EQ(table.ColumnTexts(PlateTable::Thickness), (Texts{"0.7", "0.7", "0.7"}));
    EXPECT_EQ(db.StepCount(), 1u);
}

TEST_F(GridBatch, ABlockRepeatsIntoALargerSelection) {
    FillWith(4);
    SelectCells(1, PlateTable::Name, 4, PlateTable::Name);
    ASSERT_TRUE(table.PasteText("X\nY"));
    EXPECT_EQ(table.ColumnTexts(PlateTable::Name), (Texts{"X", "Y", "X", "Y"}));
}

TEST_F(GridBatch, RefusedRowsAreNamedAndTheOthersWritten) {
    table.GoTo(1, PlateTable::Name);
    ASSERT_TRUE(table.PasteText("X\tthick\nY\t2\n\t3"));
    EXPECT_EQ(db.plates.at(1).name, "A");
    EXPECT_EQ(db.plates.at(2).name, "Y");
    EXPECT_EQ(db.plates.at(3).name, "C");
    EXPECT_EQ(host.messages, (Texts{"Rows written: 1, rows refused: 2\n"
                                    "Row 1, Thickness, \"thick\": \"thick\" is not a number.\n"
                                    "Row 3, Name, \"\": Name has not been entered."}));
    EXPECT_TRUE(host.warnings.empty()) << "one report, not a warning for each row";
    EXPECT_EQ(table.allocated, 0);
}

TEST_F(GridBatch, AllOrNothingWritesNothingWhenARowIsRefused) {
    table.GoTo(1, PlateTable::Name);
    EXPECT_FALSE(table.PasteText("X\tthick\nY\t2", OnRefusal::WriteNothing));
    EXPECT_EQ(db.plates.at(2).name, "B");
    EXPECT_EQ(db.transactions, 0);
    EXPECT_EQ(db.StepCount(), 0u);
    EXPECT_EQ(LastMessage().substr(0, 36), "Nothing was written. Rows refused: 1");
}

TEST_F(GridBatch, AllOrNothingTakesBackWhatWasWrittenBeforeTheDatabaseRefused) {
    db.rule = [](const Plate& plate) { return plate.name == "Z" ? "No Z." : ""; };
    table.GoTo(3, PlateTable::Name);
    EXPECT_FALSE(table.PasteText("X\t1\nY\t2\nZ\t3", OnRefusal::WriteNothing));
    EXPECT_EQ(table.ColumnTexts(PlateTable::Name), (Texts{"A", "B", "C"}));
    EXPECT_EQ(db.plates.size(), 3u);
    EXPECT_EQ(db.StepCount(), 0u);
    EXPECT_FALSE(db.IsStepOpen());
}

TEST_F(GridBatch, RowsThatTheDatabaseRefusesAreFoundByHalving) {
    FillWith(64);
    db.rule = [](const Plate& plate) { return plate.name == "bad" ? "No such name." : ""; };
    std::string text;
    for (int row = 1; row <= 64; ++row) text += row == 40 ? "bad\n" : "good\n";
    table.GoTo(1, PlateTable::Name);
    ASSERT_TRUE(table.PasteText(text));
    EXPECT_EQ(LastMessage(), "Rows written: 63, rows refused: 1\nRow 40, \"\": No such name.");
    EXPECT_EQ(db.plates.at(39).name, "good");
    EXPECT_EQ(db.plates.at(40).name, "P40");
    EXPECT_EQ(db.StepCount(), 1u);
    EXPECT_LE(db.transactions, 14);
}

TEST_F(GridBatch, ABatchOfWhichNothingIsWrittenLeavesNoStep) {
    db.rule = [](const Plate&) { return "No."; };
    table.GoTo(1, PlateTable::Name);
    EXPECT_FALSE(table.PasteText("X\nY"));
    EXPECT_EQ(db.StepCount(), 0u);
    EXPECT_FALSE(db.IsStepOpen());
    EXPECT_EQ(LastMessage().substr(0, 32), "Rows written: 0, rows refused: 2");
}

TEST_F(GridBatch, ManyRowsArePastedInOneRedraw) {
    std::string text;
    for (int row = 0; row < 10'000; ++row) text += "N" + std::to_string(row) + "\t0.5\n";
    table.GoTo(4, PlateTable::Name);
    host.redraws = 0;
    ASSERT_TRUE(table.PasteText(text));
    EXPECT_EQ(host.redraws, 1);
    EXPECT_EQ(table.RecordRowCount(), 10'003);
    EXPECT_EQ(db.transactions, 1);
}

TEST_F(GridBatch, NothingIsDrawnWhileTheTableIsLocked) {
    table.LockUpdate(true);
    host.redraws = 0;
    table.GoTo(1, PlateTable::Name);
    table.PasteText("X");
    EXPECT_EQ(host.redraws, 0);
    EXPECT_TRUE(table.IsUpdateLocked());
}

TEST_F(GridBatch, NamesOfAListArePastedAsKeysAndOthersRefused) {
    table.GoTo(1, PlateTable::Kind);
    ASSERT_TRUE(table.PasteText("Shell\nwall\nBeam"));
    EXPECT_EQ(table.ColumnTexts(PlateTable::Kind), (Texts{"3", "2", "1"}));
    EXPECT_EQ(LastMessage(), "Rows written: 2, rows refused: 1\nRow 3, Kind, \"Beam\": \"Beam\" is not in the list.");
}

TEST_F(GridBatch, FormulasArePastedAsTheirValues) {
    table.GoTo(1, PlateTable::Thickness);
    ASSERT_TRUE(table.PasteText("2*3.2+0.15\n=sqrt(4)\n=1/0"));
    EXPECT_EQ(table.ColumnTexts(PlateTable::Thickness), (Texts{"6.55", "2", "0.3"}));
    EXPECT_EQ(LastMessage().substr(0, 32), "Rows written: 2, rows refused: 1");
}

TEST_F(GridBatch, CellsThatCannotBeChangedArePassedOver) {
    table.GoTo(1, PlateTable::Note);
    ASSERT_TRUE(table.PasteText("n\t99\tmark"));
    EXPECT_EQ(db.plates.at(1).note, "n");
    EXPECT_EQ(table.Text(1, PlateTable::Area), "12.5");
    EXPECT_EQ(LastMessage(), "Rows written: 1, rows refused: 0\nCells that cannot be changed, passed over: 2");
}

TEST_F(GridBatch, ACopiedBlockGoesToTheSameColumnsAfterOneWasMoved) {
    SelectCells(1, PlateTable::Name, 1, PlateTable::Thickness);
    table.Press("Ctrl+C");
    EXPECT_EQ(host.GetClipboardText(), "A\t0.1\n");
    table.MoveColumn(table.Col(PlateTable::Note), table.Col(PlateTable::Number));
    table.GoTo(2, PlateTable::Name);
    ASSERT_TRUE(table.Press("Ctrl+V"));
    EXPECT_EQ(db.plates.at(2), (Plate{20, "A", 0.1, 2, true, "x"}));
}

TEST_F(GridBatch, CopiesNamesOfListsAndHeadersWithUnits) {
    SelectCells(1, PlateTable::Thickness, 2, PlateTable::Kind);
    ASSERT_TRUE(table.Press("Ctrl+Shift+C"));
    const std::string text = host.GetClipboardText();
    EXPECT_NE(text.find("Thickness"), std::string::npos);
    EXPECT_NE(text.find("m"), std::string::npos);
    EXPECT_NE(text.find("0.1\tSlab"), std::string::npos);
    EXPECT_NE(text.find("0.2\tWall"), std::string::npos);
}

TEST_F(GridBatch, TheAppendRowIsNotCopiedWithTheRecords) {
    table.Press("Ctrl+Home");
    table.Press("Ctrl+A");
    ASSERT_TRUE(table.Press("Ctrl+C"));
    const std::string text = host.GetClipboardText();
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 3);
}

TEST_F(GridBatch, FillsDownAsOneStep) {
    SelectCells(1, PlateTable::Thickness, 3, PlateTable::Kind);
    ASSERT_TRUE(table.Press("Ctrl+D"));
    EXPECT_EQ(table.ColumnTexts(PlateTable::Thickness), (Texts{"0.1", "0.1", "0.1"}));
    EXPECT_EQ(table.ColumnTexts(PlateTable::Kind), (Texts{"1", "1", "1"}));
    EXPECT_EQ(db.StepCount(), 1u);
}

TEST_F(GridBatch, FillingTheOpenRowTakesTheTextAbove) {
    table.Enter(4, PlateTable::Name, "New");
    table.GoTo(4, PlateTable::Thickness);
    ASSERT_TRUE(table.Press("Ctrl+D"));
    EXPECT_EQ(table.Text(4, PlateTable::Thickness), "0.3");
    EXPECT_EQ(db.transactions, 0) << "the row is still open";
    ASSERT_TRUE(table.LeaveRow());
    EXPECT_EQ(db.plates.at(4).thickness, 0.3);
}

TEST_F(GridBatch, PastingOneRowIntoTheOpenRowIsAnEditOfIt) {
    table.Enter(4, PlateTable::Number, "5");
    table.GoTo(4, PlateTable::Name);
    ASSERT_TRUE(table.PasteText("New\t2*0.2\tWall"));
    EXPECT_TRUE(table.IsRowInEdit());
    EXPECT_EQ(db.transactions, 0);
    ASSERT_TRUE(table.LeaveRow());
    EXPECT_EQ(db.plates.at(4), (Plate{5, "New", 0.4, 2, false, ""}));
}

TEST_F(GridBatch, ABadTextPastedIntoTheOpenRowStaysOpenInItsCell) {
    table.Enter(4, PlateTable::Number, "5");
    table.GoTo(4, PlateTable::Name);
    EXPECT_FALSE(table.PasteText("New\tthick\tWall"));
    EXPECT_EQ(At(), Cell(4, PlateTable::Thickness));
    EXPECT_EQ(table.Session().EditorText(), "thick");
    EXPECT_EQ(table.Text(4, PlateTable::Name), "New");
}

TEST_F(GridBatch, ClearingRefusesRowsThatNeedTheText) {
    SelectCells(1, PlateTable::Name, 2, PlateTable::Name);
    EXPECT_FALSE(table.Press("Delete"));
    EXPECT_EQ(table.ColumnTexts(PlateTable::Name), (Texts{"A", "B", "C"}));
    EXPECT_EQ(LastMessage().substr(0, 32), "Rows written: 0, rows refused: 2");
    EXPECT_EQ(db.StepCount(), 0u);
}

TEST_F(GridBatch, CutCopiesAndClears) {
    table.GoTo(2, PlateTable::Note);
    ASSERT_TRUE(table.Press("Ctrl+X"));
    EXPECT_EQ(host.GetClipboardText(), "x\n");
    EXPECT_EQ(db.plates.at(2).note, "");
}

TEST_F(GridBatch, ReplacesInTheWholeTableAsOneStep) {
    FillWith(3);
    ASSERT_TRUE(table.Replace({.text = "p", .replacement = "Plate ", .columnId = PlateTable::Name}));
    EXPECT_EQ(table.ColumnTexts(PlateTable::Name), (Texts{"Plate 1", "Plate 2", "Plate 3"}));
    EXPECT_EQ(db.StepCount(), 1u);
    EXPECT_FALSE(table.Replace({.text = "nowhere", .replacement = "x"}));
    EXPECT_EQ(LastMessage(), "\"nowhere\" was not found.");
}

TEST_F(GridBatch, ABatchWaitsUntilTheOpenRowCanBeWritten) {
    ASSERT_TRUE(table.Enter(4, PlateTable::Name, "New"));
    table.SelectRange(PositionRange::Of(Cell(1, PlateTable::Note), Cell(2, PlateTable::Note)));
    EXPECT_FALSE(table.PasteText("a\nb"));
    EXPECT_TRUE(table.IsRowInEdit());
    EXPECT_EQ(table.Text(4, PlateTable::Name), "New");
    EXPECT_EQ(db.transactions, 0);
    EXPECT_EQ(LastWarning(), "Thickness has not been entered.");
}

TEST_F(GridBatch, ALockedTableTakesNoBatch) {
    table.LockEditMode(true);
    table.GoTo(1, PlateTable::Name);
    EXPECT_FALSE(table.PasteText("X"));
    EXPECT_EQ(db.plates.at(1).name, "A");
    EXPECT_EQ(LastWarning(), "The table is locked and cannot be edited.");
}

TEST_F(GridBatch, ATableWithoutAppendRowRefusesRowsBeyondItsEnd) {
    table.EnableAppendRow(false);
    table.GoTo(3, PlateTable::Name);
    ASSERT_TRUE(table.PasteText("X\nY"));
    EXPECT_EQ(db.plates.size(), 3u);
    EXPECT_EQ(LastMessage(), "Rows written: 1, rows refused: 1\nRow 2, \"Y\": The table takes no new rows.");
}

TEST_F(GridBatch, SelectedRowsAndCurrentCellFollowTheirRecordsThroughAPaste) {
    table.GoTo(1, PlateTable::Number);
    ASSERT_TRUE(table.PasteText("99"));
    EXPECT_EQ(table.ColumnTexts(PlateTable::Name), (Texts{"B", "C", "A"}));
    EXPECT_EQ(At(), Cell(3, PlateTable::Number));
}

}  // namespace
}  // namespace velda
