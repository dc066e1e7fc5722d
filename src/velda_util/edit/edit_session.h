#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "velda_util/edit/edit_host.h"
#include "velda_util/edit/edit_transitions.h"

namespace velda {

/// Whether a session did what it was asked for.
struct [[nodiscard]] EditReply {
    EditRefusal refusal = EditRefusal::None;

    explicit operator bool() const { return refusal == EditRefusal::None; }
    bool operator==(const EditReply&) const = default;
};

/// The words for a refusal, in the current language; empty for none.
std::string ReasonText(EditRefusal refusal);

/// What became of the open row when something else wanted to go on.
enum class LeaveResult {
    NothingOpen,  ///< no row was open, or nothing was typed in it: go on
    Committed,    ///< the row was written: go on
    KeptOpen,     ///< the row stays open with its findings: do not go on
    Lost,         ///< the row was removed meanwhile and its texts were handed to the host: do not go on
};

struct [[nodiscard]] LeaveReport {
    LeaveResult result = LeaveResult::NothingOpen;
    /// The row that is kept open; or the row where the written record stands now, as far as the replay told.
    RowId row = kNoRow;

    bool MayGoOn() const { return result == LeaveResult::NothingOpen || result == LeaveResult::Committed; }
};

/// The edit of a table: at most one row is open, in it at most one cell editor. The session knows the row by its id,
/// calls the hooks of the host in their order, and keeps the user's texts until they are written, cancelled or handed
/// back.
///
/// An editor that was opened and left without typing counts as cancelled, and a row in which no cell was accepted is
/// closed without being written: looking at a cell sends no transaction and does not write back a rounded number.
class EditSession {
public:
    explicit EditSession(EditHost& host) : host_(host) {}
    EditSession(const EditSession&) = delete;
    EditSession& operator=(const EditSession&) = delete;

    EditState State() const { return state_; }
    bool IsCellOpen() const { return state_ == EditState::Replacing || state_ == EditState::InPlace; }
    bool IsRowOpen() const { return state_ != EditState::Browsing; }
    bool IsLocked() const { return locked_; }
    /// The open row; kNoRow when there is none.
    RowId Row() const { return open_.row; }
    /// The cell of the open editor.
    CellId Cell() const { return IsCellOpen() ? CellId{open_.row, open_.editor.column} : CellId{}; }
    /// The text of the open editor.
    const std::string& EditorText() const { return open_.editor.text; }
    /// The texts that were accepted in the open row.
    const std::vector<EditedCell>& AcceptedCells() const { return open_.accepted; }
    /// What the last check, write or change from elsewhere found; empty when it found nothing.
    const std::vector<EditFinding>& Findings() const { return findings_; }

    // What the user does. Editing another cell accepts the open editor and leaves the open row first.
    EditReply StartTyping(CellId cell, std::string text);
    EditReply EditInPlace(CellId cell);
    EditReply ChangeText(std::string text);
    EditReply AcceptCell() { return Ask(EditEvent::AcceptCell, {}); }
    EditReply CancelCell() { return Ask(EditEvent::CancelCell, {}); }
    EditReply CancelRow() { return Ask(EditEvent::CancelRow, {}); }
    /// The Escape key: the open editor, or when there is none the open row.
    EditReply Cancel() { return IsCellOpen() ? CancelCell() : CancelRow(); }
    /// Types a text into a cell and accepts it; the editor stays open when the text is refused.
    EditReply EnterText(CellId cell, std::string text);
    /// Inserts a new row before `row` and opens it.
    EditReply InsertRow(RowId row) { return Ask(EditEvent::InsertRequested, {{row, kNoColumn}, {}, kNoRow}); }
    EditReply DeleteSelected() { return Ask(EditEvent::DeleteRequested, {}); }
    /// The current cell is to go to `cell`; false when it has to stay where it is.
    bool MoveTo(CellId cell) { return static_cast<bool>(MakeWay(cell)); }

    /// Whatever needs the rows as they are stored (sort, filter, find, undo, save) asks for this first.
    LeaveReport RequestLeaveRow() { return Leave(EditEvent::LeaveRow); }
    /// The table is to be closed.
    LeaveReport RequestClose() { return Leave(EditEvent::CloseRequested); }

    // What happens to the table, in whatever state the session is.
    /// Rows were added, removed or sorted.
    void OnRowsChanged() { Run(EditEvent::RowsChanged, {}); }
    /// A row was removed for good.
    void OnRowRemoved(RowId row);
    /// A record was taken out of `from` and stands in `to` now.
    void OnRowReplaced(RowId from, RowId to);
    void Lock(bool locked) { Run(locked ? EditEvent::TableLocked : EditEvent::TableUnlocked, {}); }

private:
    struct Arguments {
        CellId cell;
        std::string text;
        RowId row = kNoRow;
    };
    struct Editor {
        ColumnId column = kNoColumn;
        std::string text;
        bool touched = false;
    };
    /// The open row.
    struct OpenRow {
        RowId row = kNoRow;
        bool isNew = false;
        bool removed = false;
        std::vector<EditedCell> accepted;
        Editor editor;
    };

    EditReply Ask(EditEvent event, const Arguments& arguments);
    EditRefusal Run(EditEvent event, const Arguments& arguments);
    EditReply MakeWay(CellId cell);
    LeaveReport Leave(EditEvent event);

    EditRefusal Raise(EditEvent event, const Arguments& arguments);
    EditRefusal Act(EditAction action, const Arguments& arguments);
    EditRefusal FollowUp(EditFollowUp then, EditEvent event, const Arguments& arguments);

    /// Opens the editor of a cell with what was typed, or in place with the text of the host.
    EditRefusal OpenEditor(CellId cell, const std::string* typed);
    EditRefusal ChangeEditorText(const std::string& text);
    EditRefusal AcceptEditor();
    EditRefusal CancelEditor();
    EditRefusal TakeRowBack();
    EditRefusal LeaveOpenRow();
    EditRefusal ValidateRecord();
    EditRefusal WriteRecord();
    EditRefusal RefuseCommit();
    EditRefusal DeleteRecords();
    EditRefusal InsertEmptyRow(RowId before);
    EditRefusal RebaseRow(RowId row);
    EditRefusal LoseRow();

    void BeginRow(RowId row);
    void EndRow();
    EditRefusal RefusedByDatabase(const Outcome& outcome);
    std::vector<EditedCell> EditedCells() const;

    EditHost& host_;
    EditState state_ = EditState::Browsing;
    bool locked_ = false;
    bool acting_ = false;
    OpenRow open_;
    std::vector<EditFinding> findings_;
    /// Where the last written record stands.
    RowId writtenRow_ = kNoRow;
    std::uint64_t writes_ = 0;
    /// Counts rows that were lost, so that an action notices when its row went while a hook ran.
    std::uint64_t losses_ = 0;
};

}  // namespace velda
