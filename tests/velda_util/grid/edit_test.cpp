#include "velda_util/support/plate_table.h"

namespace velda {
namespace {

using GridEdit = PlateTableTest;

TEST_F(GridEdit, ANewRowIsWrittenFromTheAppendRowWhichStaysTheLast) {
    ASSERT_TRUE(table.GoTo(4, PlateTable::Number));
    table.TypeText("15");
    table.Press("Tab");
    table.TypeText("New");
    table.Press("Tab");
    table.TypeText("0.5");
    ASSERT_TRUE(table.Press("Enter"));
    EXPECT_EQ(db.plates.at(4), (Plate{15, "New", 0.5, 1, false, ""}));
    EXPECT_EQ(table.ColumnTexts(PlateTable::Number), (Texts{"10", "15", "20", "30"}));
    EXPECT_EQ(At(), Cell(5, PlateTable::Number)) << "ready for the next one";
    EXPECT_EQ(table.Text(5, PlateTable::Key), "5");
    EXPECT_EQ(table.Text(5, PlateTable::Name), "");
}

TEST_F(GridEdit, TabBehindTheLastCellOfANewRowBeginsTheNextOne) {
    table.Enter(4, PlateTable::Name, "New");
    table.Enter(4, PlateTable::Thickness, "1");
    table.Press("End");
    ASSERT_TRUE(table.Press("Tab"));
    EXPECT_EQ(db.plates.count(4), 1u);
    EXPECT_EQ(At(), Cell(5, PlateTable::Number));
}

TEST_F(GridEdit, ANewRowWithoutItsNeededTextsStaysOpen) {
    table.GoTo(4, PlateTable::Note);
    table.TypeText("only a note");
    EXPECT_FALSE(table.Press("Up"));
    EXPECT_EQ(At(), Cell(4, PlateTable::Note));
    EXPECT_EQ(table.Text(4, PlateTable::Note), "only a note");
    EXPECT_EQ(LastWarning(), "Name has not been entered.\nThickness has not been entered.");
    EXPECT_EQ(table.GetWarningText(), LastWarning());
    ASSERT_EQ(table.Session().Findings().size(), 2u);
    EXPECT_EQ(table.Session().Findings()[0].column, PlateTable::Name);
    EXPECT_EQ(db.transactions, 0);
}

TEST_F(GridEdit, ARowThatTheDatabaseRefusesStaysOpenAndTellsWhy) {
    db.rule = [](const Plate& plate) { return plate.name == "bad" ? "No such name." : ""; };
    table.GoTo(1, PlateTable::Name);
    table.TypeText("bad");
    EXPECT_FALSE(table.Press("Enter"));
    EXPECT_EQ(LastWarning(), "No such name.");
    EXPECT_EQ(table.Text(1, PlateTable::Name), "bad");
    EXPECT_EQ(table.GetValueRowColBeforeEdit(1, table.Col(PlateTable::Name)), "A");
    EXPECT_EQ(db.plates.at(1).name, "A");
    table.Press("Esc");
    EXPECT_EQ(table.Text(1, PlateTable::Name), "A");
}

TEST_F(GridEdit, LookingAtACellSendsNothing) {
    table.GoTo(1, PlateTable::Name);
    table.Press("F2");
    table.Press("Enter");
    EXPECT_EQ(db.transactions, 0);
    EXPECT_EQ(db.StepCount(), 0u);
}

TEST_F(GridEdit, TheRowMovesToItsNewPlaceAndTheCurrentCellWithIt) {
    table.Enter(1, PlateTable::Number, "25");
    ASSERT_TRUE(table.LeaveRow());
    EXPECT_EQ(table.ColumnTexts(PlateTable::Name), (Texts{"B", "A", "C"}));
    EXPECT_EQ(At(), Cell(2, PlateTable::Number));
}

TEST_F(GridEdit, TheOrderOfTheRowsHoldsWhileTheSortKeyIsTyped) {
    table.Enter(1, PlateTable::Number, "25");
    int row = 0;
    EXPECT_TRUE(table.FindRecordByKey({"10"}, row));
    EXPECT_EQ(row, 1);
    EXPECT_FALSE(table.FindRecordByKey({"25"}, row));
    EXPECT_EQ(row, 3);
    EXPECT_EQ(table.ColumnTexts(PlateTable::Name), (Texts{"A", "B", "C"}));
}

TEST_F(GridEdit, SortingWritesTheOpenRowFirst) {
    table.Enter(1, PlateTable::Name, "Z");
    ASSERT_TRUE(table.Sort({{PlateTable::Name, 0, 1}}));
    EXPECT_EQ(db.plates.at(1).name, "Z");
    EXPECT_EQ(table.ColumnTexts(PlateTable::Name), (Texts{"Z", "C", "B"}));
}

TEST_F(GridEdit, EverythingWaitsForARowThatCannotBeWritten) {
    table.Enter(4, PlateTable::Name, "New");
    CTBGrid::m_Find.text = "B";
    STBFindStruct find;
    find.text = "B";
    EXPECT_FALSE(table.Sort({{PlateTable::Name, 0, 1}}));
    EXPECT_FALSE(table.FilterColumn(PlateTable::Name, "B"));
    EXPECT_FALSE(table.RemoveFilter());
    EXPECT_FALSE(table.Find(find));
    EXPECT_FALSE(table.FindNext(find));
    EXPECT_FALSE(table.Press("F3"));
    EXPECT_FALSE(table.Replace({.text = "A", .replacement = "x"}));
    EXPECT_FALSE(table.Press("Insert"));
    EXPECT_FALSE(table.LeaveRow());
    EXPECT_EQ(table.RecordRowCount(), 3);
    EXPECT_EQ(table.Text(4, PlateTable::Name), "New");
    EXPECT_EQ(At(), Cell(4, PlateTable::Name));
    EXPECT_TRUE(table.Selected().IsEmpty());
}

TEST_F(GridEdit, AFilterOfKeysWaitsForTheOpenRow) {
    table.Enter(4, PlateTable::Name, "New");
    table.PreFilterRecord({1, 2});
    EXPECT_TRUE(table.IsRowInEdit());
    EXPECT_EQ(table.RecordRowCount(), 3) << "the filter waits";
    table.Press("Esc");
    EXPECT_EQ(table.ShownKeys(), (Keys{1, 2}));
}

TEST_F(GridEdit, AFilterOfKeysWritesTheOpenRowFirst) {
    table.Enter(3, PlateTable::Name, "New");
    table.PreFilterRecord({1, 2});
    EXPECT_EQ(db.plates.at(3).name, "New");
    EXPECT_EQ(table.ShownKeys(), (Keys{1, 2}));
    table.PreFilterRecord({});
    EXPECT_EQ(table.RecordRowCount(), 0);
}

TEST_F(GridEdit, ALockedTableStartsNoEdit) {
    table.LockEditMode(true);
    EXPECT_FALSE(table.Enter(1, PlateTable::Name, "x"));
    table.GoTo(1, PlateTable::Name);
    EXPECT_FALSE(table.TypeText("x"));
    EXPECT_FALSE(table.Press("F2"));
    EXPECT_FALSE(table.CanSaveData());
    table.LockEditMode(false);
    EXPECT_TRUE(table.TypeText("x"));
}

TEST_F(GridEdit, ARowThatIsOpenWhenTheTableIsLockedKeepsItsTexts) {
    table.Enter(1, PlateTable::Name, "New");
    table.LockEditMode(true);
    EXPECT_FALSE(table.LeaveRow());
    EXPECT_EQ(table.Text(1, PlateTable::Name), "New");
    EXPECT_EQ(db.transactions, 0);
    table.LockEditMode(false);
    EXPECT_TRUE(table.LeaveRow());
    EXPECT_EQ(db.plates.at(1).name, "New");
}

TEST_F(GridEdit, CellsThatAreReadOnlyDisabledHiddenOrOutsideTakeNoText) {
    EXPECT_FALSE(table.Enter(1, PlateTable::Area, "1"));
    EXPECT_FALSE(table.Enter(1, PlateTable::Mark, "1"));
    EXPECT_FALSE(table.Enter(1, PlateTable::Key, "1"));
    EXPECT_FALSE(table.EditCell(9, 2, "1"));
    EXPECT_FALSE(table.EditCell(1, 99, "1"));
    EXPECT_FALSE(table.EditCell(0, 0, "1"));
    EXPECT_EQ(db.transactions, 0);
    EXPECT_FALSE(table.IsRowInEdit());
}

TEST_F(GridEdit, ACellWhoseColumnWasHiddenTakesNoTyping) {
    table.GoTo(1, PlateTable::Note);
    table.SetColHidden(table.Col(PlateTable::Note), true);
    EXPECT_FALSE(table.TypeText("unseen"));
    EXPECT_FALSE(table.IsRowInEdit());
}

TEST_F(GridEdit, TheBeforeEditTextCanBeReplaced) {
    const int col = table.Col(PlateTable::Name);
    table.Enter(1, PlateTable::Thickness, "7");
    table.SetValueRowColBeforeEdit(col, "Renamed");
    EXPECT_EQ(table.GetValueRowColBeforeEdit(1, col), "Renamed");
    table.Press("Esc");
    EXPECT_EQ(table.GetValueRowColBeforeEdit(1, table.Col(PlateTable::Thickness)), "0.1");
}

// ---- formulas

TEST_F(GridEdit, AFormulaGivesItsValueAndIsShownAgainOnF2) {
    ASSERT_TRUE(table.Enter(1, PlateTable::Thickness, "2*3.2+0.15"));
    EXPECT_EQ(table.Text(1, PlateTable::Thickness), "6.55") << "accepted";
    table.Press("F2");
    EXPECT_EQ(table.Session().EditorText(), "2*3.2+0.15") << "in the open row";
    table.Press("Esc");
    ASSERT_TRUE(table.LeaveRow());
    EXPECT_EQ(db.plates.at(1).thickness, 6.55);
    EXPECT_EQ(table.Text(1, PlateTable::Thickness), "6.55");
    table.Press("F2");
    EXPECT_EQ(table.Session().EditorText(), "2*3.2+0.15") << "after the commit";
}

TEST_F(GridEdit, TheFormulaOfANewRowIsShownAgain) {
    table.Enter(4, PlateTable::Number, "=5*8");
    table.Enter(4, PlateTable::Name, "New");
    table.Enter(4, PlateTable::Thickness, "=sqrt(2)*400");
    ASSERT_TRUE(table.LeaveRow());
    EXPECT_EQ(db.plates.at(4).number, 40);
    EXPECT_NEAR(db.plates.at(4).thickness, 565.685424949238, 1e-9);
    table.GoTo(4, PlateTable::Thickness);
    table.Press("F2");
    EXPECT_EQ(table.Session().EditorText(), "=sqrt(2)*400");
}

TEST_F(GridEdit, AFormulaIsForgottenWhenItsValueWasChanged) {
    table.Enter(1, PlateTable::Thickness, "2*3");
    table.LeaveRow();
    db.Put(1, {10, "A", 7.0, 1, false, ""});
    table.GoTo(1, PlateTable::Thickness);
    table.Press("F2");
    EXPECT_EQ(table.Session().EditorText(), "7");
}

TEST_F(GridEdit, TextThatIsNoFormulaStays) {
    ASSERT_TRUE(table.Enter(1, PlateTable::Name, "2*3"));
    ASSERT_TRUE(table.LeaveRow());
    EXPECT_EQ(db.plates.at(1).name, "2*3");
}

TEST_F(GridEdit, AnErrorInAFormulaKeepsTheCellOpen) {
    EXPECT_FALSE(table.Enter(1, PlateTable::Thickness, "=1/0"));
    ASSERT_EQ(table.Session().Findings().size(), 1u);
    EXPECT_EQ(table.Session().Findings()[0].text, "=1/0");
    EXPECT_NE(LastWarning().find("Division by zero"), std::string::npos);
    EXPECT_FALSE(table.Enter(1, PlateTable::Number, "1/2"));
}

// ---- lists

TEST_F(GridEdit, ANameThatIsTypedBecomesItsKey) {
    ASSERT_TRUE(table.Enter(1, PlateTable::Kind, "shell"));
    EXPECT_EQ(table.Text(1, PlateTable::Kind), "3");
    EXPECT_EQ(table.GetShownText(1, table.Col(PlateTable::Kind)), "Shell");
    ASSERT_TRUE(table.Enter(2, PlateTable::Kind, "1"));
    ASSERT_TRUE(table.LeaveRow());
    EXPECT_EQ(db.plates.at(1).kind, 3);
    EXPECT_EQ(db.plates.at(2).kind, 1);
}

TEST_F(GridEdit, ATextThatIsNotInTheListIsRefused) {
    EXPECT_FALSE(table.Enter(1, PlateTable::Kind, "Beam"));
    EXPECT_EQ(LastWarning(), "Kind: \"Beam\" is not in the list.");
    EXPECT_EQ(table.Session().EditorText(), "Beam");
}

TEST_F(GridEdit, TypingInAListLeadsToTheLineThatBeginsSo) {
    table.GoTo(1, PlateTable::Kind);
    ASSERT_TRUE(table.TypeText("s"));
    EXPECT_TRUE(table.IsListOpen());
    EXPECT_EQ(table.Session().EditorText(), "3") << "past the current line";
    table.TypeText("l");
    EXPECT_EQ(table.Session().EditorText(), "1") << "Slab";
    table.TypeText("w");
    EXPECT_EQ(table.Session().EditorText(), "2") << "nothing begins with slw: it begins anew";
    table.Press("Enter");
    EXPECT_EQ(db.plates.at(1).kind, 2);
}

TEST_F(GridEdit, AnOpenListIsWalkedWithArrows) {
    table.GoTo(1, PlateTable::Kind);
    ASSERT_TRUE(table.Press("Alt+Down"));
    table.Press("Down");
    EXPECT_EQ(table.Session().EditorText(), "2");
    table.Press("Up");
    table.Press("Up");
    EXPECT_EQ(table.Session().EditorText(), "1") << "it ends at the first line";
    table.Press("Esc");
    EXPECT_FALSE(table.IsListOpen());
    EXPECT_TRUE(table.Session().IsCellOpen());
    table.Press("Esc");
    EXPECT_FALSE(table.IsRowInEdit());
}

TEST_F(GridEdit, ACellMayHaveAListOfItsOwn) {
    table.SetChoiceList(2, table.Col(PlateTable::Kind), "7\tRoof\n");
    EXPECT_FALSE(table.Enter(2, PlateTable::Kind, "Slab"));
    table.Press("Esc");
    EXPECT_TRUE(table.Enter(1, PlateTable::Kind, "Slab"));
    EXPECT_TRUE(table.Enter(2, PlateTable::Kind, "Roof"));
    EXPECT_EQ(table.Text(2, PlateTable::Kind), "7");
}

TEST_F(GridEdit, ACheckListTakesTextsOfItsListInItsOrder) {
    const int col = table.Col(PlateTable::Note);
    table.SetStyleRangeCheckListComboBox(CGXRange().SetCols(static_cast<std::uint32_t>(col)), "DL\nLL\nWL\n");
    EXPECT_TRUE(table.EditCell(1, col, "WL, DL"));
    EXPECT_EQ(table.Text(1, PlateTable::Note), "DL,WL");
    EXPECT_FALSE(table.EditCell(1, col, "DL,EQ"));
}

// ---- check boxes

TEST_F(GridEdit, TheControlOfACheckBoxReportsTheInverseUntilItIsActive) {
    const int col = table.Col(PlateTable::Check);
    std::string text;
    bool active = true;
    table.GoTo(2, PlateTable::Check);
    ASSERT_TRUE(table.GetControlText(2, col, text, active));
    EXPECT_EQ(text, "0");
    EXPECT_FALSE(active);
    EXPECT_EQ(table.GetLiveText(2, col), "1");
    EXPECT_FALSE(table.GetControlText(1, col, text, active)) << "not the current cell";
    table.GoTo(2, PlateTable::Name);
    EXPECT_FALSE(table.GetControlText(2, table.Col(PlateTable::Name), text, active)) << "no check box";
}

// ---- access

TEST_F(GridEdit, CellsAreReadAndWrittenByType) {
    const int col = table.Col(PlateTable::Area);
    table.WriteToReadOnlyCell(1, col, 2.5);
    EXPECT_EQ(table.GetDataRowColDbl(1, col), 2.5);
    EXPECT_EQ(table.GetDataRowColInt(1, col), 2);
    table.SetDataRowCol(1, col, 7);
    EXPECT_EQ(table.GetDataRowColStr(1, col), "7");
    table.WriteToReadOnlyCell(1, col, "text");
    EXPECT_EQ(table.GetDataRowColDbl(1, col), 0.0);
    EXPECT_FALSE(table.IsRowInEdit());
    EXPECT_THROW(table.GetValueRowCol(99, 1), std::invalid_argument);
    EXPECT_THROW(table.GetDataRowColInt(1, 99), std::invalid_argument);
    EXPECT_THROW(table.SetDataRowCol(0, 1, 7), std::invalid_argument);
}

TEST_F(GridEdit, ARatioIsColouredByItsVerdict) {
    const int col = table.Col(PlateTable::Area);
    table.WriteRatio(1, col, "1.2");
    EXPECT_EQ(table.StyleOf(1, col).GetTextColor(), 255u);
    table.WriteRatio(1, col, "1.0");
    EXPECT_EQ(table.StyleOf(1, col).GetTextColor(), 0xFF0000u);
}

TEST_F(GridEdit, CellsCanBeLockedFromDataThatTheEngineDoesNotKnow) {
    const int col = table.Col(PlateTable::Name);
    table.styleHook = [col](int row, int at, CGXStyle& style) {
        if (row == 2 && at == col) style.SetReadOnly(true);
    };
    EXPECT_FALSE(table.Enter(2, PlateTable::Name, "x"));
    EXPECT_TRUE(table.Enter(1, PlateTable::Name, "x"));
}

}  // namespace
}  // namespace velda
