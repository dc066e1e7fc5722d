#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace velda {

/// What an edit session is doing.
enum class EditState : std::uint8_t {
    Browsing,    ///< no row is open
    Replacing,   ///< a cell editor is open; typing replaced the old text
    InPlace,     ///< a cell editor is open on the old text
    RowDirty,    ///< the row is open, no cell editor is
    Committing,  ///< the row is being written; rows that come and go are the replay of that
};
inline constexpr std::size_t kEditStateCount = 5;

/// What can happen to an edit session.
enum class EditEvent : std::uint8_t {
    StartTyping,
    EditInPlace,
    TextChanged,
    AcceptCell,
    CancelCell,
    CancelRow,
    LeaveRow,
    CommitDone,     ///< raised by the session itself
    CommitRefused,  ///< raised by the session itself
    DeleteRequested,
    InsertRequested,
    RowsChanged,  ///< a change that does not touch the open row
    RowReplaced,  ///< the record of the open row changed and stands in another row now
    RowRemoved,   ///< the open row is gone
    CloseRequested,
    TableLocked,
    TableUnlocked,
};
inline constexpr std::size_t kEditEventCount = 17;

/// What the session does on a transition.
enum class EditAction : std::uint8_t {
    None,
    OpenReplacing,
    OpenInPlace,
    ChangeText,
    AcceptCell,
    CancelCell,
    CancelRow,
    LeaveRow,  ///< raises LeaveRow and goes on when no row is open any more
    ValidateRecord,
    CloseRow,
    DeleteRecords,
    InsertRow,
    RebaseRow,
    LoseRow,
    FollowRow,
    ForgetRow,
    Lock,
    Unlock,
};

/// What the session does when the next state is reached.
enum class EditFollowUp : std::uint8_t {
    None,
    Repeat,              ///< raises the same event again
    CancelUntouchedRow,  ///< closes the row when no cell of it was accepted
    WriteRecord,         ///< writes the row, then raises CommitDone or CommitRefused
};

/// Why a session did not do what it was asked for.
enum class EditRefusal : std::uint8_t {
    None,
    NothingOpen,  ///< there is no open editor or row that the event could mean
    EditorOpen,   ///< an editor is open already
    Committing,   ///< a row is being written
    Busy,         ///< asked from within a hook
    Locked,       ///< the table is locked
    NotEditable,  ///< the cell or the table does not allow it
    Invalid,      ///< the cell or the row stays open with its findings
    NotWritten,   ///< the database refused; the findings hold the reason
    Lost,         ///< the row was removed meanwhile
    Unreachable,  ///< cannot happen in this state
};

/// One line of the transition table. An action that fails leaves the state as it is.
struct EditTransition {
    EditState state;
    EditEvent event;
    EditRefusal refusal;
    EditAction action;
    EditState next;
    EditFollowUp then;
};

namespace edit_table {

using S = EditState;
using E = EditEvent;
using A = EditAction;
using F = EditFollowUp;
using R = EditRefusal;

constexpr EditTransition Go(S state, E event, A action, S next, F then = F::None) {
    return {state, event, R::None, action, next, then};
}
constexpr EditTransition Refuse(S state, E event, R refusal) {
    return {state, event, refusal, A::None, state, F::None};
}
constexpr EditTransition Never(S state, E event) { return Refuse(state, event, R::Unreachable); }

/// Every state with every event, in their order.
inline constexpr auto kTransitions = std::to_array<EditTransition>({
    // clang-format off
        Go(S::Browsing, E::StartTyping, A::OpenReplacing, S::Replacing),
        Go(S::Browsing, E::EditInPlace, A::OpenInPlace, S::InPlace),
        Refuse(S::Browsing, E::TextChanged, R::NothingOpen),
        Refuse(S::Browsing, E::AcceptCell, R::NothingOpen),
        Refuse(S::Browsing, E::CancelCell, R::NothingOpen),
        Refuse(S::Browsing, E::CancelRow, R::NothingOpen),
        Refuse(S::Browsing, E::LeaveRow, R::NothingOpen),
        Never(S::Browsing, E::CommitDone),
        Never(S::Browsing, E::CommitRefused),
        Go(S::Browsing, E::DeleteRequested, A::DeleteRecords, S::Browsing),
        Go(S::Browsing, E::InsertRequested, A::InsertRow, S::RowDirty),
        Go(S::Browsing, E::RowsChanged, A::None, S::Browsing),
        Never(S::Browsing, E::RowReplaced),
        Never(S::Browsing, E::RowRemoved),
        Go(S::Browsing, E::CloseRequested, A::None, S::Browsing),
        Go(S::Browsing, E::TableLocked, A::Lock, S::Browsing),
        Go(S::Browsing, E::TableUnlocked, A::Unlock, S::Browsing),

        Refuse(S::Replacing, E::StartTyping, R::EditorOpen),
        Go(S::Replacing, E::EditInPlace, A::None, S::InPlace),
        Go(S::Replacing, E::TextChanged, A::ChangeText, S::Replacing),
        Go(S::Replacing, E::AcceptCell, A::AcceptCell, S::RowDirty, F::CancelUntouchedRow),
        Go(S::Replacing, E::CancelCell, A::CancelCell, S::RowDirty, F::CancelUntouchedRow),
        Go(S::Replacing, E::CancelRow, A::CancelCell, S::RowDirty, F::Repeat),
        Go(S::Replacing, E::LeaveRow, A::AcceptCell, S::RowDirty, F::Repeat),
        Never(S::Replacing, E::CommitDone),
        Never(S::Replacing, E::CommitRefused),
        Go(S::Replacing, E::DeleteRequested, A::LeaveRow, S::Browsing, F::Repeat),
        Go(S::Replacing, E::InsertRequested, A::LeaveRow, S::Browsing, F::Repeat),
        Go(S::Replacing, E::RowsChanged, A::None, S::Replacing),
        Go(S::Replacing, E::RowReplaced, A::RebaseRow, S::Replacing),
        Go(S::Replacing, E::RowRemoved, A::LoseRow, S::Browsing),
        Go(S::Replacing, E::CloseRequested, A::LeaveRow, S::Browsing, F::Repeat),
        Go(S::Replacing, E::TableLocked, A::Lock, S::Replacing),
        Go(S::Replacing, E::TableUnlocked, A::Unlock, S::Replacing),

        Refuse(S::InPlace, E::StartTyping, R::EditorOpen),
        Refuse(S::InPlace, E::EditInPlace, R::EditorOpen),
        Go(S::InPlace, E::TextChanged, A::ChangeText, S::InPlace),
        Go(S::InPlace, E::AcceptCell, A::AcceptCell, S::RowDirty, F::CancelUntouchedRow),
        Go(S::InPlace, E::CancelCell, A::CancelCell, S::RowDirty, F::CancelUntouchedRow),
        Go(S::InPlace, E::CancelRow, A::CancelCell, S::RowDirty, F::Repeat),
        Go(S::InPlace, E::LeaveRow, A::AcceptCell, S::RowDirty, F::Repeat),
        Never(S::InPlace, E::CommitDone),
        Never(S::InPlace, E::CommitRefused),
        Go(S::InPlace, E::DeleteRequested, A::LeaveRow, S::Browsing, F::Repeat),
        Go(S::InPlace, E::InsertRequested, A::LeaveRow, S::Browsing, F::Repeat),
        Go(S::InPlace, E::RowsChanged, A::None, S::InPlace),
        Go(S::InPlace, E::RowReplaced, A::RebaseRow, S::InPlace),
        Go(S::InPlace, E::RowRemoved, A::LoseRow, S::Browsing),
        Go(S::InPlace, E::CloseRequested, A::LeaveRow, S::Browsing, F::Repeat),
        Go(S::InPlace, E::TableLocked, A::Lock, S::InPlace),
        Go(S::InPlace, E::TableUnlocked, A::Unlock, S::InPlace),

        Go(S::RowDirty, E::StartTyping, A::OpenReplacing, S::Replacing),
        Go(S::RowDirty, E::EditInPlace, A::OpenInPlace, S::InPlace),
        Refuse(S::RowDirty, E::TextChanged, R::NothingOpen),
        Refuse(S::RowDirty, E::AcceptCell, R::NothingOpen),
        Refuse(S::RowDirty, E::CancelCell, R::NothingOpen),
        Go(S::RowDirty, E::CancelRow, A::CancelRow, S::Browsing),
        Go(S::RowDirty, E::LeaveRow, A::ValidateRecord, S::Committing, F::WriteRecord),
        Never(S::RowDirty, E::CommitDone),
        Never(S::RowDirty, E::CommitRefused),
        Go(S::RowDirty, E::DeleteRequested, A::LeaveRow, S::Browsing, F::Repeat),
        Go(S::RowDirty, E::InsertRequested, A::LeaveRow, S::Browsing, F::Repeat),
        Go(S::RowDirty, E::RowsChanged, A::None, S::RowDirty),
        Go(S::RowDirty, E::RowReplaced, A::RebaseRow, S::RowDirty),
        Go(S::RowDirty, E::RowRemoved, A::LoseRow, S::Browsing),
        Go(S::RowDirty, E::CloseRequested, A::LeaveRow, S::Browsing, F::Repeat),
        Go(S::RowDirty, E::TableLocked, A::Lock, S::RowDirty),
        Go(S::RowDirty, E::TableUnlocked, A::Unlock, S::RowDirty),

        Refuse(S::Committing, E::StartTyping, R::Committing),
        Refuse(S::Committing, E::EditInPlace, R::Committing),
        Refuse(S::Committing, E::TextChanged, R::Committing),
        Refuse(S::Committing, E::AcceptCell, R::Committing),
        Refuse(S::Committing, E::CancelCell, R::Committing),
        Refuse(S::Committing, E::CancelRow, R::Committing),
        Refuse(S::Committing, E::LeaveRow, R::Committing),
        Go(S::Committing, E::CommitDone, A::CloseRow, S::Browsing),
        Go(S::Committing, E::CommitRefused, A::None, S::RowDirty),
        Refuse(S::Committing, E::DeleteRequested, R::Committing),
        Refuse(S::Committing, E::InsertRequested, R::Committing),
        Go(S::Committing, E::RowsChanged, A::None, S::Committing),
        Go(S::Committing, E::RowReplaced, A::FollowRow, S::Committing),
        Go(S::Committing, E::RowRemoved, A::ForgetRow, S::Committing),
        Refuse(S::Committing, E::CloseRequested, R::Committing),
        Go(S::Committing, E::TableLocked, A::Lock, S::Committing),
        Go(S::Committing, E::TableUnlocked, A::Unlock, S::Committing),
    // clang-format on
});

constexpr bool IsComplete() {
    if (kTransitions.size() != kEditStateCount * kEditEventCount) return false;
    for (std::size_t i = 0; i < kTransitions.size(); ++i) {
        if (static_cast<std::size_t>(kTransitions[i].state) != i / kEditEventCount) return false;
        if (static_cast<std::size_t>(kTransitions[i].event) != i % kEditEventCount) return false;
    }
    return true;
}
static_assert(IsComplete(), "every state has to tell what every event does, in order");

}  // namespace edit_table

/// What an event does in a state.
constexpr const EditTransition& TransitionOf(EditState state, EditEvent event) {
    return edit_table::kTransitions[static_cast<std::size_t>(state) * kEditEventCount +
                                    static_cast<std::size_t>(event)];
}

/// Whether an action begins a change of the table, which a lock forbids.
constexpr bool BeginsChange(EditAction action) {
    return action == EditAction::OpenReplacing || action == EditAction::OpenInPlace ||
           action == EditAction::DeleteRecords || action == EditAction::InsertRow;
}

}  // namespace velda
