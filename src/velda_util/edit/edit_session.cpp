#include "velda_util/edit/edit_session.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

#include "velda_lib/key_text.h"
#include "velda_lib/msg_dll.h"

namespace velda {
namespace {

/// Sets a flag until the end of the scope.
class Raised {
public:
    explicit Raised(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
    ~Raised() { flag_ = before_; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;

private:
    bool& flag_;
    bool before_;
};

struct Reason {
    EditRefusal refusal;
    std::string_view key;
};
constexpr auto kReasons = std::to_array<Reason>({
    {EditRefusal::NothingOpen, "IDS_TB_ENGINE_EDIT_NOTHING_OPEN"},
    {EditRefusal::EditorOpen, "IDS_TB_ENGINE_EDIT_EDITOR_OPEN"},
    {EditRefusal::Committing, "IDS_TB_ENGINE_EDIT_BUSY"},
    {EditRefusal::Busy, "IDS_TB_ENGINE_EDIT_BUSY"},
    {EditRefusal::Locked, "IDS_TB_ENGINE_EDIT_LOCKED"},
    {EditRefusal::NotEditable, "IDS_TB_ENGINE_EDIT_NOT_EDITABLE"},
    {EditRefusal::Invalid, "IDS_TB_ENGINE_EDIT_RECORD_REFUSED"},
    {EditRefusal::NotWritten, "IDS_TB_ENGINE_EDIT_WRITE_REFUSED"},
    {EditRefusal::Lost, "IDS_TB_ENGINE_EDIT_DELETED_ELSEWHERE"},
});

void Enter(std::vector<EditedCell>& cells, ColumnId column, const std::string& text) {
    const auto found =
        std::find_if(cells.begin(), cells.end(), [column](const EditedCell& cell) { return cell.column == column; });
    if (found == cells.end()) {
        cells.push_back({column, text});
    } else {
        found->text = text;
    }
}

}  // namespace

std::string ReasonText(EditRefusal refusal) {
    for (const Reason& reason : kReasons) {
        if (reason.refusal == refusal) return KeyText(reason.key);
    }
    return {};
}

EditReply EditSession::StartTyping(CellId cell, std::string text) {
    const EditReply way = MakeWay(cell);
    if (!way) return way;
    return Ask(EditEvent::StartTyping, {cell, std::move(text), kNoRow});
}

EditReply EditSession::EditInPlace(CellId cell) {
    const EditReply way = MakeWay(cell);
    if (!way) return way;
    return Ask(EditEvent::EditInPlace, {cell, {}, kNoRow});
}

EditReply EditSession::ChangeText(std::string text) {
    return Ask(EditEvent::TextChanged, {{}, std::move(text), kNoRow});
}

EditReply EditSession::EnterText(CellId cell, std::string text) {
    const EditReply typed = StartTyping(cell, std::move(text));
    return typed ? AcceptCell() : typed;
}

EditReply EditSession::MakeWay(CellId cell) {
    if (!IsRowOpen()) return {};
    if (cell.row != open_.row) return Ask(EditEvent::LeaveRow, {});
    if (IsCellOpen() && cell.column != open_.editor.column) return AcceptCell();
    return {};
}

void EditSession::OnRowRemoved(RowId row) {
    Run(row == open_.row ? EditEvent::RowRemoved : EditEvent::RowsChanged, {});
}

void EditSession::OnRowReplaced(RowId from, RowId to) {
    Run(from == open_.row ? EditEvent::RowReplaced : EditEvent::RowsChanged, {{}, {}, to});
}

// While a row is written the table of transitions answers; within every other hook the state is about to change.
EditReply EditSession::Ask(EditEvent event, const Arguments& arguments) {
    if (acting_ && state_ != EditState::Committing) return {EditRefusal::Busy};
    return {Run(event, arguments)};
}

EditRefusal EditSession::Run(EditEvent event, const Arguments& arguments) {
    const Raised acting(acting_);
    try {
        return Raise(event, arguments);
    } catch (...) {
        // A hook threw while the row was being opened or closed: it counts as closed.
        if ((state_ == EditState::Browsing) != (open_.row == kNoRow)) {
            EndRow();
            state_ = EditState::Browsing;
        }
        throw;
    }
}

LeaveReport EditSession::Leave(EditEvent event) {
    const std::uint64_t writes = writes_;
    const std::uint64_t losses = losses_;
    static_cast<void>(Ask(event, {}));
    if (losses != losses_) return {LeaveResult::Lost, kNoRow};
    if (IsRowOpen()) return {LeaveResult::KeptOpen, open_.row};
    if (writes != writes_) return {LeaveResult::Committed, writtenRow_};
    return {};
}

EditRefusal EditSession::Raise(EditEvent event, const Arguments& arguments) {
    const bool leavesUntouched =
        event == EditEvent::LeaveRow && state_ == EditState::RowDirty && open_.accepted.empty();
    const EditTransition& transition = TransitionOf(state_, leavesUntouched ? EditEvent::CancelRow : event);
    if (transition.refusal != EditRefusal::None) return transition.refusal;
    if (locked_ && BeginsChange(transition.action)) return EditRefusal::Locked;
    const std::uint64_t losses = losses_;
    const EditRefusal refusal = Act(transition.action, arguments);
    if (losses != losses_) return EditRefusal::Lost;
    if (refusal != EditRefusal::None) return refusal;
    state_ = transition.next;
    if (transition.action == EditAction::LoseRow) ++losses_;
    return FollowUp(transition.then, event, arguments);
}

EditRefusal EditSession::Act(EditAction action, const Arguments& arguments) {
    switch (action) {
        case EditAction::None: break;
        case EditAction::OpenReplacing: return OpenEditor(arguments.cell, &arguments.text);
        case EditAction::OpenInPlace: return OpenEditor(arguments.cell, nullptr);
        case EditAction::ChangeText: return ChangeEditorText(arguments.text);
        case EditAction::AcceptCell: return AcceptEditor();
        case EditAction::CancelCell: return CancelEditor();
        case EditAction::CancelRow: return TakeRowBack();
        case EditAction::LeaveRow: return LeaveOpenRow();
        case EditAction::ValidateRecord: return ValidateRecord();
        case EditAction::CloseRow: EndRow(); break;
        case EditAction::DeleteRecords: return DeleteRecords();
        case EditAction::InsertRow: return InsertEmptyRow(arguments.cell.row);
        case EditAction::RebaseRow: return RebaseRow(arguments.row);
        case EditAction::LoseRow: return LoseRow();
        case EditAction::FollowRow: open_.row = arguments.row; break;
        case EditAction::ForgetRow: open_.removed = true; break;
        case EditAction::Lock: locked_ = true; break;
        case EditAction::Unlock: locked_ = false; break;
    }
    return EditRefusal::None;
}

EditRefusal EditSession::FollowUp(EditFollowUp then, EditEvent event, const Arguments& arguments) {
    switch (then) {
        case EditFollowUp::None: break;
        case EditFollowUp::Repeat: return Raise(event, arguments);
        case EditFollowUp::CancelUntouchedRow:
            return open_.accepted.empty() ? Raise(EditEvent::CancelRow, arguments) : EditRefusal::None;
        case EditFollowUp::WriteRecord: return WriteRecord();
    }
    return EditRefusal::None;
}

EditRefusal EditSession::OpenEditor(CellId cell, const std::string* typed) {
    if (!host_.CanEditCell(cell)) return EditRefusal::NotEditable;
    std::string text = typed ? *typed : host_.EditText(cell);
    const bool opensRow = state_ == EditState::Browsing;
    if (opensRow) BeginRow(cell.row);
    open_.editor = {cell.column, std::move(text), typed != nullptr};
    if (!host_.OnStartEditing(cell)) {
        if (opensRow) EndRow();
        open_.editor = {};
        return EditRefusal::NotEditable;
    }
    if (typed) host_.OnModifyCell(cell, open_.editor.text);
    return EditRefusal::None;
}

EditRefusal EditSession::ChangeEditorText(const std::string& text) {
    open_.editor.text = text;
    open_.editor.touched = true;
    host_.OnModifyCell(Cell(), text);
    return EditRefusal::None;
}

EditRefusal EditSession::AcceptEditor() {
    if (!open_.editor.touched) return CancelEditor();
    const std::uint64_t losses = losses_;
    const Editor editor = open_.editor;
    std::vector<EditFinding> findings;
    const bool valid = host_.OnValidateField(Cell(), editor.text, findings);
    if (losses != losses_) return EditRefusal::Lost;
    findings_ = std::move(findings);
    if (!valid) {
        if (findings_.empty()) {
            findings_.push_back({open_.row, editor.column, EditRule::Field, editor.text,
                                 FormatText("IDS_TB_ENGINE_EDIT_FIELD_REFUSED", {editor.text})});
        }
        return EditRefusal::Invalid;
    }
    host_.StoreCellText(Cell(), editor.text);
    if (losses != losses_) return EditRefusal::Lost;
    Enter(open_.accepted, editor.column, editor.text);
    host_.OnEndEditing(Cell());
    if (losses == losses_) open_.editor = {};
    return EditRefusal::None;
}

// The cell itself still holds its old text; the hook brings the cells that depend on it back.
EditRefusal EditSession::CancelEditor() {
    const CellId cell = Cell();
    open_.editor = {};
    findings_.clear();
    host_.OnCanceledEditing(cell);
    return EditRefusal::None;
}

// The session lets go of the row first: that the host removes an inserted row is then no removal from elsewhere.
EditRefusal EditSession::TakeRowBack() {
    const OpenRow row = std::exchange(open_, {});
    findings_.clear();
    if (row.isNew) {
        host_.OnCanceledAddNew(row.row);
    } else {
        host_.OnCanceledModify(row.row);
    }
    if (!row.isNew || host_.IsNewRow(row.row)) {
        for (const EditedCell& cell : row.accepted) host_.OnCanceledEditing({row.row, cell.column});
    }
    EndRow();
    return EditRefusal::None;
}

EditRefusal EditSession::LeaveOpenRow() { return Raise(EditEvent::LeaveRow, {}); }

EditRefusal EditSession::ValidateRecord() {
    const std::uint64_t losses = losses_;
    std::vector<EditFinding> findings;
    const bool valid = host_.OnValidateRecord(open_.row, findings);
    if (losses != losses_) return EditRefusal::Lost;
    findings_ = std::move(findings);
    if (valid) return EditRefusal::None;
    if (findings_.empty()) {
        findings_.push_back({open_.row, kNoColumn, EditRule::Record, {}, KeyText("IDS_TB_ENGINE_EDIT_RECORD_REFUSED")});
    }
    return EditRefusal::Invalid;
}

EditRefusal EditSession::WriteRecord() {
    Outcome outcome = Outcome::Done();
    try {
        outcome = open_.isNew ? host_.OnAddNewRecord(open_.row) : host_.OnModifyRecord(open_.row);
    } catch (...) {
        RefuseCommit();
        throw;
    }
    if (outcome) {
        writtenRow_ = open_.removed ? kNoRow : open_.row;
        ++writes_;
        return Raise(EditEvent::CommitDone, {});
    }
    RefusedByDatabase(outcome);
    return RefuseCommit();
}

// A row that went while its record was refused did not go because of the replay.
EditRefusal EditSession::RefuseCommit() {
    Raise(EditEvent::CommitRefused, {});
    if (!open_.removed) return EditRefusal::NotWritten;
    Raise(EditEvent::RowRemoved, {});
    return EditRefusal::Lost;
}

EditRefusal EditSession::DeleteRecords() {
    findings_.clear();
    const Outcome outcome = host_.DeleteSelectedRecords();
    return outcome ? EditRefusal::None : RefusedByDatabase(outcome);
}

EditRefusal EditSession::InsertEmptyRow(RowId before) {
    const std::optional<RowId> row = host_.OnInsertEmptyRecord(before);
    if (!row) return EditRefusal::NotEditable;
    BeginRow(*row);
    return EditRefusal::None;
}

EditRefusal EditSession::RebaseRow(RowId row) {
    for (EditedCell& edit : open_.accepted) edit.text = host_.TextInCurrentUnits(edit.column, edit.text);
    open_.editor.text = host_.TextInCurrentUnits(open_.editor.column, open_.editor.text);
    open_.row = row;
    const std::vector<EditedCell> edits = EditedCells();
    const std::vector<ColumnId> changed = host_.RebaseRowInEdit(row, edits);
    findings_.clear();
    for (const EditedCell& edit : edits) {
        if (std::find(changed.begin(), changed.end(), edit.column) == changed.end()) continue;
        findings_.push_back(
            {row, edit.column, EditRule::ChangedElsewhere, edit.text, KeyText("IDS_TB_ENGINE_EDIT_CHANGED_ELSEWHERE")});
    }
    return EditRefusal::None;
}

EditRefusal EditSession::LoseRow() {
    const LostEdit lost{open_.row, EditedCells(), KeyText("IDS_TB_ENGINE_EDIT_DELETED_ELSEWHERE")};
    EndRow();
    findings_.clear();
    for (const EditedCell& cell : lost.cells) {
        findings_.push_back({lost.row, cell.column, EditRule::DeletedElsewhere, cell.text, lost.message});
    }
    host_.OnEditLost(lost);
    return EditRefusal::None;
}

void EditSession::BeginRow(RowId row) {
    open_ = {};
    open_.row = row;
    open_.isNew = host_.IsNewRow(row);
    findings_.clear();
    host_.TakeBeforeEditCopy(row);
    host_.SetRowInEdit(true);
}

void EditSession::EndRow() {
    open_ = {};
    host_.SetRowInEdit(false);
    host_.DropBeforeEditCopy();
}

EditRefusal EditSession::RefusedByDatabase(const Outcome& outcome) {
    const std::string& reason = outcome.Reason();
    findings_ = {{open_.row,
                  kNoColumn,
                  EditRule::Write,
                  {},
                  reason.empty() ? KeyText("IDS_TB_ENGINE_EDIT_WRITE_REFUSED") : reason}};
    return EditRefusal::NotWritten;
}

std::vector<EditedCell> EditSession::EditedCells() const {
    std::vector<EditedCell> cells = open_.accepted;
    if (IsCellOpen() && open_.editor.touched) Enter(cells, open_.editor.column, open_.editor.text);
    return cells;
}

}  // namespace velda
