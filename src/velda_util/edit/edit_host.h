#pragma once

#include <optional>
#include <string>
#include <vector>

#include "velda_lib/outcome.h"
#include "velda_util/edit/edit_finding.h"

namespace velda {

/// A text that the user entered in a column of the open row.
struct EditedCell {
    ColumnId column = kNoColumn;
    std::string text;

    bool operator==(const EditedCell&) const = default;
};

/// What was entered in a row that is no longer there.
struct LostEdit {
    RowId row = kNoRow;
    /// Accepted texts and that of an open cell editor, in the order of their first entry.
    std::vector<EditedCell> cells;
    std::string message;
};

/// What an edit session needs of its table. One edit calls in this order:
///   CanEditCell, TakeBeforeEditCopy, SetRowInEdit(true), OnStartEditing, OnModifyCell for each change of the text,
///   OnValidateField, StoreCellText, OnEndEditing; further cells of the row;
///   OnValidateRecord, OnAddNewRecord or OnModifyRecord, SetRowInEdit(false), DropBeforeEditCopy.
/// The copy is valid, and the flag set, in every hook in between. Hooks must not ask the user anything.
class EditHost {
public:
    virtual ~EditHost() = default;

    /// Whether the cell can be entered and is not read-only.
    virtual bool CanEditCell(CellId cell) const = 0;
    /// Whether the row is no record yet, that is, the append row or an inserted one. False for a row that is gone.
    virtual bool IsNewRow(RowId row) const = 0;
    /// The text that an editor opens with: the expression as it was typed rather than its value.
    virtual std::string EditText(CellId cell) const = 0;
    /// Puts an accepted text into the cell.
    virtual void StoreCellText(CellId cell, const std::string& text) = 0;

    /// Remembers the texts of a row, until the copy is dropped.
    virtual void TakeBeforeEditCopy(RowId row) = 0;
    virtual void DropBeforeEditCopy() = 0;
    virtual void SetRowInEdit(bool inEdit) = 0;

    /// An editor opens; false prevents it.
    virtual bool OnStartEditing(CellId cell) = 0;
    /// The text of the open editor changed.
    virtual void OnModifyCell(CellId cell, const std::string& text) = 0;
    /// Whether the text may stand in the cell; findings say why not.
    virtual bool OnValidateField(CellId cell, const std::string& text, std::vector<EditFinding>& findings) = 0;
    /// A cell was accepted.
    virtual void OnEndEditing(CellId cell) = 0;
    /// The edit of a cell was dropped; the cell shows its old text again.
    virtual void OnCanceledEditing(CellId cell) = 0;

    /// Whether the row may be written; findings say why not.
    virtual bool OnValidateRecord(RowId row, std::vector<EditFinding>& findings) = 0;
    /// Writes the row. The replay that follows may tell the session of removed and replaced rows before this returns.
    virtual Outcome OnAddNewRecord(RowId row) = 0;
    virtual Outcome OnModifyRecord(RowId row) = 0;
    /// Puts the texts of the before-edit copy back. A row that was inserted by OnInsertEmptyRecord is removed.
    virtual void OnCanceledAddNew(RowId row) = 0;
    virtual void OnCanceledModify(RowId row) = 0;
    /// Inserts an empty row before `row` and fills it with the texts of a new one; none where the table does not allow
    /// it.
    virtual std::optional<RowId> OnInsertEmptyRecord(RowId row) = 0;
    /// Deletes the selected records. Called with no row open.
    virtual Outcome DeleteSelectedRecords() = 0;

    /// A text that was entered in a column of the open row, as it reads now: in a switch of units, numbers are
    /// converted. Asked before RebaseRowInEdit.
    virtual std::string TextInCurrentUnits(ColumnId /*column*/, const std::string& text) const { return text; }
    /// The record of the open row was changed elsewhere and now stands in `row` with its new texts: takes the
    /// before-edit copy anew and puts the user's texts over it. Returns the columns of `edits` that were changed
    /// elsewhere too.
    virtual std::vector<ColumnId> RebaseRowInEdit(RowId row, const std::vector<EditedCell>& edits) = 0;
    /// The open row was removed elsewhere. The texts are handed over so that they can be shown or copied.
    virtual void OnEditLost(const LostEdit& edit) = 0;
};

}  // namespace velda
