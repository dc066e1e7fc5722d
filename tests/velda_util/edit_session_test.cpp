#include "velda_util/edit/edit_session.h"

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "velda_lib/language.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velda {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr RowId kAppendRow = 100;
constexpr CellId kName{1, 1};
constexpr CellId kThickness{1, 2};

std::string Text(CellId cell) { return std::to_string(cell.row) + "," + std::to_string(cell.column); }

/// A table with rows 1 to 3, an append row, and a log of what the session called.
class TableDouble : public EditHost {
public:
    bool CanEditCell(CellId cell) const override { return !readOnly.contains(cell.column); }
    bool IsNewRow(RowId row) const override { return newRows.contains(row); }
    std::string EditText(CellId) const override { return "=1+2"; }
    void StoreCellText(CellId cell, const std::string& text) override {
        Log("store " + Text(cell) + " " + text);
        stored[cell.column] = text;
        Call("store");
    }
    void TakeBeforeEditCopy(RowId row) override { Log("copy " + std::to_string(row)); }
    void DropBeforeEditCopy() override { Log("drop copy"); }
    void SetRowInEdit(bool inEdit) override {
        flag = inEdit;
        Log(inEdit ? "flag on" : "flag off");
    }
    bool OnStartEditing(CellId cell) override {
        Log("start " + Text(cell));
        Call("start");
        return !vetoed;
    }
    void OnModifyCell(CellId cell, const std::string& text) override {
        Log("modify " + Text(cell) + " " + text);
        Call("modify");
    }
    bool OnValidateField(CellId cell, const std::string& text, std::vector<EditFinding>& findings) override {
        Log("field " + Text(cell) + " " + text);
        Call("field");
        if (text != "bad" && text != "silently bad") return true;
        if (text == "bad") findings.push_back({cell.row, cell.column, EditRule::Field, text, "No number"});
        return false;
    }
    void OnEndEditing(CellId cell) override {
        Log("end " + Text(cell));
        Call("end");
    }
    void OnCanceledEditing(CellId cell) override {
        Log("cancel " + Text(cell) + (flag ? "" : " without flag"));
        Call("cancel");
    }
    bool OnValidateRecord(RowId row, std::vector<EditFinding>& findings) override {
        Log("record " + std::to_string(row));
        Call("record");
        if (!recordRefused.empty()) findings.push_back({row, 3, EditRule::Missing, "", recordRefused});
        return recordValid;
    }
    Outcome OnAddNewRecord(RowId row) override { return Write("add", row); }
    Outcome OnModifyRecord(RowId row) override { return Write("write", row); }
    void OnCanceledAddNew(RowId row) override {
        Log("take back new " + std::to_string(row));
        Call("take back");
    }
    void OnCanceledModify(RowId row) override {
        Log("take back " + std::to_string(row));
        Call("take back");
    }
    std::optional<RowId> OnInsertEmptyRecord(RowId row) override {
        Log("insert before " + std::to_string(row));
        if (!inserts) return std::nullopt;
        newRows.insert(50);
        return 50;
    }
    Outcome DeleteSelectedRecords() override {
        Log("delete");
        return deleteReason.empty() ? Outcome::Done() : Outcome::Refused(deleteReason);
    }
    std::vector<ColumnId> RebaseRowInEdit(RowId row, const std::vector<EditedCell>& edits) override {
        Log("rebase " + std::to_string(row));
        rebased = edits;
        return changedElsewhere;
    }
    void OnEditLost(const LostEdit& edit) override {
        Log("lost " + std::to_string(edit.row));
        lost.push_back(edit);
        Call("lost");
    }

    /// What was called since the last time.
    std::vector<std::string> TakeLog() { return std::exchange(log_, {}); }

    /// Run within the hook of that name.
    std::map<std::string, std::function<void()>> within;
    std::set<ColumnId> readOnly;
    std::set<RowId> newRows{kAppendRow};
    std::map<ColumnId, std::string> stored;
    std::vector<EditedCell> rebased;
    std::vector<ColumnId> changedElsewhere;
    std::vector<LostEdit> lost;
    bool flag = false;
    bool vetoed = false;
    bool recordValid = true;
    bool inserts = true;
    bool writes = true;
    std::string recordRefused;
    std::string writeReason;
    std::string deleteReason;

private:
    void Log(std::string line) { log_.push_back(std::move(line)); }
    void Call(const std::string& hook) {
        const auto found = within.find(hook);
        if (found != within.end() && found->second) found->second();
    }
    Outcome Write(const std::string& what, RowId row) {
        Log(what + " " + std::to_string(row) + (flag ? "" : " without flag"));
        Call("write");
        return writes ? Outcome::Done() : Outcome::Refused(writeReason);
    }

    std::vector<std::string> log_;
};

/// A table and its session.
struct Scene {
    TableDouble table;
    EditSession session{table};

    void Reach(EditState state) {
        if (state == EditState::Replacing) {
            EXPECT_TRUE(session.StartTyping(kThickness, "5"));
        }
        if (state == EditState::RowDirty) {
            EXPECT_TRUE(session.EnterText(kThickness, "5"));
        }
        if (state == EditState::InPlace) {
            EXPECT_TRUE(session.EditInPlace(kThickness));
            EXPECT_TRUE(session.ChangeText("7"));
        }
        EXPECT_EQ(session.State(), state);
    }

    /// Lets an event happen as its owner would.
    void Send(EditEvent event) {
        switch (event) {
            case EditEvent::StartTyping: reply = session.StartTyping(kThickness, "6"); break;
            case EditEvent::EditInPlace: reply = session.EditInPlace(kThickness); break;
            case EditEvent::TextChanged: reply = session.ChangeText("8"); break;
            case EditEvent::AcceptCell: reply = session.AcceptCell(); break;
            case EditEvent::CancelCell: reply = session.CancelCell(); break;
            case EditEvent::CancelRow: reply = session.CancelRow(); break;
            case EditEvent::DeleteRequested: reply = session.DeleteSelected(); break;
            case EditEvent::InsertRequested: reply = session.InsertRow(2); break;
            case EditEvent::LeaveRow: report = session.RequestLeaveRow(); break;
            case EditEvent::CloseRequested: report = session.RequestClose(); break;
            case EditEvent::RowsChanged: session.OnRowsChanged(); break;
            case EditEvent::RowReplaced: session.OnRowReplaced(session.Row(), 9); break;
            case EditEvent::RowRemoved: session.OnRowRemoved(session.Row()); break;
            case EditEvent::TableLocked: session.Lock(true); break;
            case EditEvent::TableUnlocked: session.Lock(false); break;
            case EditEvent::CommitDone:
            case EditEvent::CommitRefused: ADD_FAILURE() << "raised by the session alone"; break;
        }
    }

    EditReply reply;
    LeaveReport report;
};

class EditSessionTest : public testing::Test, protected Scene {};

// Where each event leads when every hook agrees: Browsing, Replacing, In place, row Dirty; a dot where it cannot
// happen.
//  0 typing, F2, text, accept, cancel cell, 5 cancel row, leave, commit done, commit refused, delete,
// 10 insert, rows changed, replaced, removed, close, 15 lock, unlock
constexpr std::string_view kLetters = "BRID";
constexpr std::string_view kOutcomes[] = {
    "RIBBBBB..BDB..BBB",
    "RIRDBBB..BDRRBBRR",
    "IIIDBBB..BDIIBBII",
    "RIDDDBB..BDDDBBDD",
};

TEST(EditTransitions, EveryEventLeadsFromEveryStateWhereItShould) {
    for (std::size_t state = 0; state < kLetters.size(); ++state) {
        for (std::size_t event = 0; event < kEditEventCount; ++event) {
            SCOPED_TRACE("state " + std::to_string(state) + ", event " + std::to_string(event));
            const char expected = kOutcomes[state][event];
            const auto from = static_cast<EditState>(state);
            const auto what = static_cast<EditEvent>(event);
            EXPECT_EQ(TransitionOf(from, what).refusal == EditRefusal::Unreachable, expected == '.');
            if (expected == '.') continue;
            Scene scene;
            scene.Reach(from);
            scene.Send(what);
            EXPECT_EQ(kLetters[static_cast<std::size_t>(scene.session.State())], expected);
            EXPECT_EQ(scene.table.flag, scene.session.IsRowOpen());
        }
    }
}

TEST(EditTransitions, NoEventBeginsOrEndsAnythingWhileARowIsWritten) {
    for (std::size_t event = 0; event < kEditEventCount; ++event) {
        SCOPED_TRACE("event " + std::to_string(event));
        const auto what = static_cast<EditEvent>(event);
        if (what == EditEvent::CommitDone || what == EditEvent::CommitRefused) continue;
        Scene scene;
        scene.Reach(EditState::RowDirty);
        scene.table.within["write"] = [&] {
            static_cast<void>(scene.table.TakeLog());
            scene.Send(what);
            EXPECT_EQ(scene.session.State(), EditState::Committing);
            EXPECT_THAT(scene.table.TakeLog(), IsEmpty());
        };
        EXPECT_EQ(scene.session.RequestLeaveRow().result, LeaveResult::Committed);
        EXPECT_EQ(scene.session.State(), EditState::Browsing);
        EXPECT_THAT(scene.table.TakeLog(), ElementsAre("flag off", "drop copy"));
    }
}

TEST(EditTransitions, EveryLineThatRefusesLeavesTheStateAndDoesNothing) {
    for (const EditTransition& line : edit_table::kTransitions) {
        if (line.refusal == EditRefusal::None) continue;
        EXPECT_EQ(line.next, line.state);
        EXPECT_EQ(line.action, EditAction::None);
        EXPECT_EQ(line.then, EditFollowUp::None);
    }
}

TEST(EditTransitions, EveryRefusalThatAUserCanMeetHasWordsInEveryLanguage) {
    for (const Language language : {Language::English, Language::Korean}) {
        SetCurrentLanguage(language);
        for (int refusal = 1; refusal < static_cast<int>(EditRefusal::Unreachable); ++refusal) {
            const std::string text = ReasonText(static_cast<EditRefusal>(refusal));
            EXPECT_FALSE(text.empty()) << refusal;
            EXPECT_FALSE(text.starts_with("IDS_")) << text;
        }
    }
    SetCurrentLanguage(Language::English);
    EXPECT_EQ(ReasonText(EditRefusal::None), "");
}

TEST_F(EditSessionTest, AnEditOfARecordCallsTheHooksInTheirOrder) {
    EXPECT_TRUE(session.StartTyping(kThickness, "0"));
    EXPECT_TRUE(session.ChangeText("0.3"));
    EXPECT_EQ(session.Cell(), kThickness);
    EXPECT_EQ(session.EditorText(), "0.3");
    EXPECT_TRUE(session.AcceptCell());
    EXPECT_THAT(session.AcceptedCells(), ElementsAre(EditedCell{2, "0.3"}));
    EXPECT_EQ(session.RequestLeaveRow().result, LeaveResult::Committed);
    EXPECT_THAT(table.TakeLog(),
                ElementsAre("copy 1", "flag on", "start 1,2", "modify 1,2 0", "modify 1,2 0.3", "field 1,2 0.3",
                            "store 1,2 0.3", "end 1,2", "record 1", "write 1", "flag off", "drop copy"));
    EXPECT_EQ(session.Row(), kNoRow);
}

TEST_F(EditSessionTest, ANewRowIsAddedAndNotModified) {
    EXPECT_TRUE(session.EnterText({kAppendRow, 1}, "W200"));
    EXPECT_EQ(session.RequestLeaveRow().result, LeaveResult::Committed);
    EXPECT_THAT(table.TakeLog(),
                ElementsAre("copy 100", "flag on", "start 100,1", "modify 100,1 W200", "field 100,1 W200",
                            "store 100,1 W200", "end 100,1", "record 100", "add 100", "flag off", "drop copy"));
}

TEST_F(EditSessionTest, FurtherCellsOfARowBelongToTheSameEdit) {
    EXPECT_TRUE(session.EnterText(kName, "W200"));
    static_cast<void>(table.TakeLog());
    EXPECT_TRUE(session.EnterText(kThickness, "0.2"));
    EXPECT_TRUE(session.EnterText(kName, "W250"));
    EXPECT_THAT(session.AcceptedCells(), ElementsAre(EditedCell{1, "W250"}, EditedCell{2, "0.2"}));
    EXPECT_THAT(table.TakeLog(), testing::Not(testing::Contains("copy 1")));
}

TEST_F(EditSessionTest, AnotherCellOfTheRowAcceptsTheOpenOne) {
    EXPECT_TRUE(session.StartTyping(kName, "W200"));
    EXPECT_TRUE(session.StartTyping(kThickness, "0.2"));
    EXPECT_EQ(table.stored[1], "W200");
    EXPECT_EQ(session.Cell(), kThickness);
}

TEST_F(EditSessionTest, AnotherRowWritesTheOpenOne) {
    EXPECT_TRUE(session.StartTyping(kName, "W200"));
    static_cast<void>(table.TakeLog());
    EXPECT_TRUE(session.StartTyping({2, 1}, "W300"));
    EXPECT_THAT(table.TakeLog(),
                ElementsAre("field 1,1 W200", "store 1,1 W200", "end 1,1", "record 1", "write 1", "flag off",
                            "drop copy", "copy 2", "flag on", "start 2,1", "modify 2,1 W300"));
}

TEST_F(EditSessionTest, AnotherRowWaitsForARowThatIsRefused) {
    EXPECT_TRUE(session.StartTyping(kThickness, "bad"));
    EXPECT_EQ(session.StartTyping({2, 1}, "W300").refusal, EditRefusal::Invalid);
    EXPECT_EQ(session.Cell(), kThickness);
    EXPECT_FALSE(session.MoveTo({2, 1}));
    EXPECT_FALSE(session.MoveTo(kName));
    EXPECT_TRUE(session.MoveTo(kThickness));
}

TEST_F(EditSessionTest, MovingWithNothingOpenIsFree) {
    EXPECT_TRUE(session.MoveTo({2, 1}));
    EXPECT_THAT(table.TakeLog(), IsEmpty());
}

TEST_F(EditSessionTest, InPlaceOpensWithTheTypedExpression) {
    EXPECT_TRUE(session.EditInPlace(kThickness));
    EXPECT_EQ(session.EditorText(), "=1+2");
    EXPECT_EQ(session.State(), EditState::InPlace);
    EXPECT_THAT(table.TakeLog(), ElementsAre("copy 1", "flag on", "start 1,2"));
}

TEST_F(EditSessionTest, AnEditorLeftUntouchedWritesNothing) {
    EXPECT_TRUE(session.EditInPlace(kThickness));
    static_cast<void>(table.TakeLog());
    EXPECT_TRUE(session.AcceptCell());
    EXPECT_EQ(session.State(), EditState::Browsing);
    EXPECT_THAT(table.TakeLog(), ElementsAre("cancel 1,2", "take back 1", "flag off", "drop copy"));
    EXPECT_TRUE(session.EditInPlace(kThickness));
    EXPECT_EQ(session.RequestLeaveRow().result, LeaveResult::NothingOpen);
    EXPECT_THAT(table.stored, IsEmpty());
}

TEST_F(EditSessionTest, AnEditorLeftUntouchedKeepsTheOtherCellsOfItsRow) {
    EXPECT_TRUE(session.EnterText(kName, "W200"));
    EXPECT_TRUE(session.EditInPlace(kThickness));
    EXPECT_TRUE(session.AcceptCell());
    EXPECT_EQ(session.State(), EditState::RowDirty);
    EXPECT_THAT(session.AcceptedCells(), ElementsAre(EditedCell{1, "W200"}));
}

TEST_F(EditSessionTest, F2WhileTypingGoesOnInPlaceWithTheText) {
    EXPECT_TRUE(session.StartTyping(kThickness, "0.3"));
    EXPECT_TRUE(session.EditInPlace(kThickness));
    EXPECT_EQ(session.State(), EditState::InPlace);
    EXPECT_EQ(session.EditorText(), "0.3");
}

TEST_F(EditSessionTest, AFailedFieldKeepsTheCellOpenWithItsText) {
    EXPECT_TRUE(session.StartTyping(kThickness, "bad"));
    EXPECT_EQ(session.AcceptCell().refusal, EditRefusal::Invalid);
    EXPECT_EQ(session.State(), EditState::Replacing);
    EXPECT_EQ(session.EditorText(), "bad");
    EXPECT_THAT(session.Findings(), ElementsAre(EditFinding{1, 2, EditRule::Field, "bad", "No number"}));
    EXPECT_THAT(table.stored, IsEmpty());
    EXPECT_TRUE(session.ChangeText("0.3"));
    EXPECT_TRUE(session.AcceptCell());
    EXPECT_THAT(session.Findings(), IsEmpty());
}

TEST_F(EditSessionTest, AFieldRefusedWithoutAFindingIsStillTold) {
    EXPECT_EQ(session.EnterText(kThickness, "silently bad").refusal, EditRefusal::Invalid);
    ASSERT_THAT(session.Findings(), SizeIs(1));
    EXPECT_EQ(session.Findings()[0].rule, EditRule::Field);
    EXPECT_THAT(session.Findings()[0].message, HasSubstr("\"silently bad\""));
}

TEST_F(EditSessionTest, AFailedFieldKeepsTheRowOpenForWhateverWaits) {
    EXPECT_TRUE(session.StartTyping(kThickness, "bad"));
    const LeaveReport left = session.RequestLeaveRow();
    EXPECT_EQ(left.result, LeaveResult::KeptOpen);
    EXPECT_EQ(left.row, 1u);
    EXPECT_FALSE(session.RequestClose().MayGoOn());
    EXPECT_EQ(session.DeleteSelected().refusal, EditRefusal::Invalid);
    EXPECT_EQ(session.InsertRow(2).refusal, EditRefusal::Invalid);
    EXPECT_EQ(session.State(), EditState::Replacing);
    EXPECT_EQ(session.EditorText(), "bad");
}

TEST_F(EditSessionTest, AFailedRecordKeepsTheRowOpen) {
    table.recordValid = false;
    table.recordRefused = "Name has not been entered.";
    EXPECT_TRUE(session.EnterText(kThickness, "0.3"));
    EXPECT_EQ(session.RequestLeaveRow().result, LeaveResult::KeptOpen);
    EXPECT_EQ(session.State(), EditState::RowDirty);
    EXPECT_THAT(session.Findings(),
                ElementsAre(EditFinding{1, 3, EditRule::Missing, "", "Name has not been entered."}));
    EXPECT_THAT(session.AcceptedCells(), ElementsAre(EditedCell{2, "0.3"}));
}

TEST_F(EditSessionTest, ARecordRefusedWithoutAFindingIsStillTold) {
    table.recordValid = false;
    EXPECT_TRUE(session.EnterText(kThickness, "0.3"));
    EXPECT_EQ(session.RequestLeaveRow().result, LeaveResult::KeptOpen);
    ASSERT_THAT(session.Findings(), SizeIs(1));
    EXPECT_EQ(session.Findings()[0].rule, EditRule::Record);
    EXPECT_EQ(session.Findings()[0].column, kNoColumn);
}

TEST_F(EditSessionTest, ARefusedTransactionLeavesTheTextUntilItIsCorrected) {
    table.writes = false;
    table.writeReason = "The name is taken.";
    EXPECT_TRUE(session.EnterText(kName, "W200"));
    EXPECT_EQ(session.RequestLeaveRow().result, LeaveResult::KeptOpen);
    EXPECT_EQ(session.State(), EditState::RowDirty);
    EXPECT_TRUE(table.flag);
    EXPECT_THAT(session.Findings(), ElementsAre(EditFinding{1, kNoColumn, EditRule::Write, "", "The name is taken."}));
    table.writes = true;
    EXPECT_TRUE(session.EnterText(kName, "W201"));
    EXPECT_EQ(session.RequestLeaveRow().result, LeaveResult::Committed);
    EXPECT_THAT(session.Findings(), IsEmpty());
}

TEST_F(EditSessionTest, ATransactionRefusedWithoutAReasonIsStillTold) {
    table.writes = false;
    EXPECT_TRUE(session.EnterText(kName, "W200"));
    EXPECT_FALSE(session.RequestLeaveRow().MayGoOn());
    ASSERT_THAT(session.Findings(), SizeIs(1));
    EXPECT_FALSE(session.Findings()[0].message.empty());
}

TEST_F(EditSessionTest, EscapeRestoresTheCellAndASecondOneTheRow) {
    EXPECT_TRUE(session.EnterText(kName, "W200"));
    EXPECT_TRUE(session.StartTyping(kThickness, "0.3"));
    static_cast<void>(table.TakeLog());
    EXPECT_TRUE(session.Cancel());
    EXPECT_EQ(session.State(), EditState::RowDirty);
    EXPECT_THAT(table.TakeLog(), ElementsAre("cancel 1,2"));
    EXPECT_TRUE(session.Cancel());
    EXPECT_EQ(session.State(), EditState::Browsing);
    EXPECT_THAT(table.TakeLog(), ElementsAre("take back 1", "cancel 1,1", "flag off", "drop copy"));
    EXPECT_EQ(session.Cancel().refusal, EditRefusal::NothingOpen);
}

TEST_F(EditSessionTest, EscapeFromTheFirstCellClosesTheRow) {
    EXPECT_TRUE(session.StartTyping(kThickness, "0.3"));
    static_cast<void>(table.TakeLog());
    EXPECT_TRUE(session.Cancel());
    EXPECT_EQ(session.State(), EditState::Browsing);
    EXPECT_THAT(table.TakeLog(), ElementsAre("cancel 1,2", "take back 1", "flag off", "drop copy"));
}

TEST_F(EditSessionTest, CancellingTheRowCancelsItsOpenCellToo) {
    EXPECT_TRUE(session.EnterText(kName, "W200"));
    EXPECT_TRUE(session.StartTyping(kThickness, "0.3"));
    static_cast<void>(table.TakeLog());
    EXPECT_TRUE(session.CancelRow());
    EXPECT_THAT(table.TakeLog(), ElementsAre("cancel 1,2", "take back 1", "cancel 1,1", "flag off", "drop copy"));
}

TEST_F(EditSessionTest, ACancelledAppendRowTellsItsDependentCells) {
    EXPECT_TRUE(session.EnterText({kAppendRow, 1}, "W200"));
    static_cast<void>(table.TakeLog());
    EXPECT_TRUE(session.CancelRow());
    EXPECT_THAT(table.TakeLog(), ElementsAre("take back new 100", "cancel 100,1", "flag off", "drop copy"));
}

TEST_F(EditSessionTest, ACancelledInsertedRowMayGoWithoutBeingLost) {
    EXPECT_TRUE(session.InsertRow(2));
    EXPECT_EQ(session.Row(), 50u);
    EXPECT_TRUE(session.EnterText({50, 1}, "W200"));
    table.within["take back"] = [&] {
        table.newRows.erase(50);
        session.OnRowRemoved(50);
    };
    static_cast<void>(table.TakeLog());
    EXPECT_TRUE(session.CancelRow());
    EXPECT_THAT(table.TakeLog(), ElementsAre("take back new 50", "flag off", "drop copy"));
    EXPECT_THAT(table.lost, IsEmpty());
}

TEST_F(EditSessionTest, AnInsertedRowInWhichNothingWasTypedIsTakenBack) {
    EXPECT_TRUE(session.InsertRow(2));
    EXPECT_EQ(session.State(), EditState::RowDirty);
    EXPECT_THAT(table.TakeLog(), ElementsAre("insert before 2", "copy 50", "flag on"));
    EXPECT_EQ(session.RequestLeaveRow().result, LeaveResult::NothingOpen);
    EXPECT_THAT(table.TakeLog(), ElementsAre("take back new 50", "flag off", "drop copy"));
}

TEST_F(EditSessionTest, ATableThatInsertsNothingOpensNothing) {
    table.inserts = false;
    EXPECT_EQ(session.InsertRow(2).refusal, EditRefusal::NotEditable);
    EXPECT_EQ(session.State(), EditState::Browsing);
    EXPECT_FALSE(table.flag);
}

TEST_F(EditSessionTest, NothingOpensInAReadOnlyCell) {
    table.readOnly = {2};
    EXPECT_EQ(session.StartTyping(kThickness, "1").refusal, EditRefusal::NotEditable);
    EXPECT_EQ(session.EditInPlace(kThickness).refusal, EditRefusal::NotEditable);
    EXPECT_EQ(session.EnterText(kThickness, "1").refusal, EditRefusal::NotEditable);
    EXPECT_THAT(table.TakeLog(), IsEmpty());
}

TEST_F(EditSessionTest, AVetoOfTheTableLeavesNothingOpen) {
    table.vetoed = true;
    EXPECT_EQ(session.StartTyping(kThickness, "1").refusal, EditRefusal::NotEditable);
    EXPECT_EQ(session.State(), EditState::Browsing);
    EXPECT_THAT(table.TakeLog(), ElementsAre("copy 1", "flag on", "start 1,2", "flag off", "drop copy"));
}

TEST_F(EditSessionTest, AVetoInAnOpenRowKeepsTheRow) {
    EXPECT_TRUE(session.EnterText(kName, "W200"));
    table.vetoed = true;
    EXPECT_EQ(session.StartTyping(kThickness, "1").refusal, EditRefusal::NotEditable);
    EXPECT_EQ(session.State(), EditState::RowDirty);
    EXPECT_EQ(session.EditorText(), "");
    EXPECT_TRUE(table.flag);
}

TEST_F(EditSessionTest, ALockedTableBeginsNothing) {
    session.Lock(true);
    EXPECT_TRUE(session.IsLocked());
    EXPECT_EQ(session.StartTyping(kThickness, "1").refusal, EditRefusal::Locked);
    EXPECT_EQ(session.EditInPlace(kThickness).refusal, EditRefusal::Locked);
    EXPECT_EQ(session.DeleteSelected().refusal, EditRefusal::Locked);
    EXPECT_EQ(session.InsertRow(1).refusal, EditRefusal::Locked);
    EXPECT_THAT(table.TakeLog(), IsEmpty());
    session.Lock(false);
    EXPECT_TRUE(session.StartTyping(kThickness, "1"));
}

TEST_F(EditSessionTest, ALockLeavesAnOpenRowToItsUser) {
    EXPECT_TRUE(session.StartTyping(kThickness, "1"));
    session.Lock(true);
    EXPECT_TRUE(session.ChangeText("12"));
    EXPECT_TRUE(session.AcceptCell());
    EXPECT_EQ(session.StartTyping(kName, "W").refusal, EditRefusal::Locked);
    EXPECT_EQ(session.RequestLeaveRow().result, LeaveResult::Committed);
}

TEST_F(EditSessionTest, ADeletionWaitsForTheOpenRow) {
    EXPECT_TRUE(session.EnterText(kName, "W200"));
    static_cast<void>(table.TakeLog());
    EXPECT_TRUE(session.DeleteSelected());
    EXPECT_THAT(table.TakeLog(), ElementsAre("record 1", "write 1", "flag off", "drop copy", "delete"));
}

TEST_F(EditSessionTest, ARefusedDeletionIsAFinding) {
    table.deleteReason = "In use.";
    EXPECT_EQ(session.DeleteSelected().refusal, EditRefusal::NotWritten);
    EXPECT_THAT(session.Findings(), ElementsAre(EditFinding{kNoRow, kNoColumn, EditRule::Write, "", "In use."}));
    table.deleteReason.clear();
    EXPECT_TRUE(session.DeleteSelected());
    EXPECT_THAT(session.Findings(), IsEmpty());
}

TEST_F(EditSessionTest, ClosingWithNothingOpenIsAllowed) {
    const LeaveReport closed = session.RequestClose();
    EXPECT_EQ(closed.result, LeaveResult::NothingOpen);
    EXPECT_TRUE(closed.MayGoOn());
}

TEST_F(EditSessionTest, TheReplayOfACommitDoesNotEndTheSession) {
    EXPECT_TRUE(session.EnterText(kName, "W200"));
    table.within["write"] = [&] {
        session.OnRowReplaced(1, 17);
        session.OnRowRemoved(3);
        session.OnRowsChanged();
    };
    const LeaveReport left = session.RequestLeaveRow();
    EXPECT_EQ(left.result, LeaveResult::Committed);
    EXPECT_EQ(left.row, 17u);
    EXPECT_THAT(table.lost, IsEmpty());
    EXPECT_THAT(table.rebased, IsEmpty());
}

TEST_F(EditSessionTest, ARecordThatLeavesTheTableOnItsCommitIsNotLost) {
    EXPECT_TRUE(session.EnterText(kName, "W200"));
    table.within["write"] = [&] { session.OnRowRemoved(1); };
    const LeaveReport left = session.RequestLeaveRow();
    EXPECT_EQ(left.result, LeaveResult::Committed);
    EXPECT_EQ(left.row, kNoRow);
    EXPECT_THAT(table.lost, IsEmpty());
}

TEST_F(EditSessionTest, ARowThatGoesWhileItsRecordIsRefusedIsHandedBack) {
    table.writes = false;
    EXPECT_TRUE(session.EnterText(kName, "W200"));
    table.within["write"] = [&] { session.OnRowRemoved(1); };
    EXPECT_EQ(session.RequestLeaveRow().result, LeaveResult::Lost);
    ASSERT_THAT(table.lost, SizeIs(1));
    EXPECT_THAT(table.lost[0].cells, ElementsAre(EditedCell{1, "W200"}));
    EXPECT_EQ(session.State(), EditState::Browsing);
}

TEST_F(EditSessionTest, ACommitWithinACommitIsRefused) {
    EXPECT_TRUE(session.EnterText(kName, "W200"));
    LeaveReport inner;
    EditReply typed;
    table.within["write"] = [&] {
        inner = session.RequestLeaveRow();
        typed = session.StartTyping({2, 1}, "W300");
    };
    EXPECT_EQ(session.RequestLeaveRow().result, LeaveResult::Committed);
    EXPECT_EQ(inner.result, LeaveResult::KeptOpen);
    EXPECT_EQ(typed.refusal, EditRefusal::Committing);
    EXPECT_EQ(session.State(), EditState::Browsing);
}

TEST_F(EditSessionTest, AHookCannotLeadTheSessionOn) {
    EXPECT_TRUE(session.StartTyping(kName, "W200"));
    EditReply accepted;
    table.within["modify"] = [&] { accepted = session.AcceptCell(); };
    EXPECT_TRUE(session.ChangeText("W201"));
    EXPECT_EQ(accepted.refusal, EditRefusal::Busy);
    EXPECT_EQ(session.State(), EditState::Replacing);
}

TEST_F(EditSessionTest, OtherRowsComeAndGoWithoutTouchingTheEdit) {
    EXPECT_TRUE(session.EnterText(kName, "W200"));
    EXPECT_TRUE(session.StartTyping(kThickness, "0.3"));
    static_cast<void>(table.TakeLog());
    session.OnRowRemoved(2);
    session.OnRowReplaced(3, 8);
    session.OnRowsChanged();
    EXPECT_THAT(table.TakeLog(), IsEmpty());
    EXPECT_EQ(session.Cell(), kThickness);
    EXPECT_EQ(session.EditorText(), "0.3");
}

TEST_F(EditSessionTest, ARecordDeletedElsewhereHandsItsTextsBack) {
    EXPECT_TRUE(session.EnterText(kName, "W200"));
    EXPECT_TRUE(session.StartTyping(kThickness, "0.3"));
    static_cast<void>(table.TakeLog());
    session.OnRowRemoved(1);
    EXPECT_THAT(table.TakeLog(), ElementsAre("flag off", "drop copy", "lost 1"));
    EXPECT_EQ(session.State(), EditState::Browsing);
    ASSERT_THAT(table.lost, SizeIs(1));
    EXPECT_THAT(table.lost[0].cells, ElementsAre(EditedCell{1, "W200"}, EditedCell{2, "0.3"}));
    EXPECT_EQ(table.lost[0].message, "The edited record was deleted elsewhere.");
    ASSERT_THAT(session.Findings(), SizeIs(2));
    EXPECT_EQ(session.Findings()[1], (EditFinding{1, 2, EditRule::DeletedElsewhere, "0.3", table.lost[0].message}));
}

TEST_F(EditSessionTest, ARowThatGoesWithinAHookEndsTheEditThere) {
    for (const char* hook : {"field", "store", "end", "record"}) {
        SCOPED_TRACE(hook);
        Scene scene;
        scene.table.within[hook] = [&] { scene.session.OnRowRemoved(1); };
        EXPECT_TRUE(scene.session.StartTyping(kName, "W200"));
        EXPECT_EQ(scene.session.RequestLeaveRow().result, LeaveResult::Lost);
        EXPECT_EQ(scene.session.State(), EditState::Browsing);
        EXPECT_THAT(scene.session.AcceptedCells(), IsEmpty());
        EXPECT_EQ(scene.session.Row(), kNoRow);
        ASSERT_THAT(scene.table.lost, SizeIs(1));
        EXPECT_THAT(scene.table.lost[0].cells, ElementsAre(EditedCell{1, "W200"}));
        EXPECT_THAT(scene.table.TakeLog(), testing::Not(testing::Contains("write 1")));
    }
}

TEST_F(EditSessionTest, ADeletionDoesNotGoOnAfterALoss) {
    EXPECT_TRUE(session.EnterText(kName, "W200"));
    table.within["record"] = [&] { session.OnRowRemoved(1); };
    EXPECT_EQ(session.DeleteSelected().refusal, EditRefusal::Lost);
    EXPECT_THAT(table.TakeLog(), testing::Not(testing::Contains("delete")));
}

TEST_F(EditSessionTest, ARecordChangedElsewhereKeepsTheTextsOfTheUser) {
    table.changedElsewhere = {2};
    EXPECT_TRUE(session.EnterText(kName, "W200"));
    EXPECT_TRUE(session.StartTyping(kThickness, "0.3"));
    session.OnRowReplaced(1, 9);
    EXPECT_THAT(table.rebased, ElementsAre(EditedCell{1, "W200"}, EditedCell{2, "0.3"}));
    EXPECT_EQ(session.Cell(), (CellId{9, 2}));
    EXPECT_EQ(session.EditorText(), "0.3");
    ASSERT_THAT(session.Findings(), SizeIs(1));
    EXPECT_EQ(session.Findings()[0].rule, EditRule::ChangedElsewhere);
    EXPECT_EQ(session.Findings()[0].text, "0.3");
    EXPECT_EQ(session.RequestLeaveRow().result, LeaveResult::Committed);
    EXPECT_THAT(table.TakeLog(), testing::Contains("write 9"));
}

TEST_F(EditSessionTest, AnUntouchedEditorIsNoTextOfTheUser) {
    EXPECT_TRUE(session.EditInPlace(kThickness));
    session.OnRowReplaced(1, 9);
    EXPECT_THAT(table.rebased, IsEmpty());
    session.OnRowRemoved(9);
    ASSERT_THAT(table.lost, SizeIs(1));
    EXPECT_THAT(table.lost[0].cells, IsEmpty());
}

TEST_F(EditSessionTest, AWriteThatThrowsKeepsTheRowOpen) {
    EXPECT_TRUE(session.EnterText(kName, "W200"));
    table.within["write"] = [] { throw std::runtime_error("storage lost"); };
    EXPECT_THROW(static_cast<void>(session.RequestLeaveRow()), std::runtime_error);
    EXPECT_EQ(session.State(), EditState::RowDirty);
    EXPECT_TRUE(table.flag);
    table.within.clear();
    EXPECT_EQ(session.RequestLeaveRow().result, LeaveResult::Committed);
}

TEST_F(EditSessionTest, AHookThatThrowsOnOpeningLeavesNothingOpen) {
    table.within["start"] = [] { throw std::invalid_argument("index"); };
    EXPECT_THROW(static_cast<void>(session.StartTyping(kName, "W")), std::invalid_argument);
    EXPECT_EQ(session.State(), EditState::Browsing);
    EXPECT_EQ(session.Row(), kNoRow);
    EXPECT_FALSE(table.flag);
}

TEST_F(EditSessionTest, AHookThatThrowsOnClosingLeavesNothingOpen) {
    for (const char* hook : {"take back", "lost"}) {
        SCOPED_TRACE(hook);
        Scene scene;
        EXPECT_TRUE(scene.session.EnterText(kName, "W"));
        scene.table.within[hook] = [] { throw std::invalid_argument("index"); };
        const auto close = [&] {
            if (std::string_view(hook) == "lost") scene.session.OnRowRemoved(1);
            static_cast<void>(scene.session.CancelRow());
        };
        EXPECT_THROW(close(), std::invalid_argument);
        EXPECT_EQ(scene.session.State(), EditState::Browsing);
        EXPECT_FALSE(scene.table.flag);
    }
}

}  // namespace
}  // namespace velda
