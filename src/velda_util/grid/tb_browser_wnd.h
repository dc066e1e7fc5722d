#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>

#include "velda_util/edit/edit_session.h"
#include "velda_util/edit/key_map.h"
#include "velda_util/formula/cell_number.h"
#include "velda_util/grid/browser_edit_host.h"
#include "velda_util/grid/row_in_edit.h"
#include "velda_util/grid/tb_grid.h"
#include "velda_util/list/choice_list.h"
#include "velda_util/rows/record_rows.h"
#include "velda_util/rows/row_changes.h"

namespace velda {

/// The record browser: one grid row is one record. It holds the rows, the edit of at most one of them, the append row,
/// formulas in cells, and the channel of warnings.
///
/// A trailing row always stands behind the records; it is shown, and can be entered, while appending is enabled. The
/// engine's RemoveRow removes a row and nothing else; DeleteRecords deletes records in the database.
class CTBBrowserWnd : public CTBGrid {
public:
    CTBBrowserWnd();

    /// Compares two keys, for qsort.
    static int CompareKey(const void* a, const void* b);

    // ---- rows

    int GetRowCount() const override { return RecordRowCount() + 1; }
    /// Rows of records, an inserted one that is none yet included.
    int RecordRowCount() const { return rows_.Count() + (insertedAt_ > 0 ? 1 : 0); }
    int RowCount() const override { return RecordRowCount() + (HasAppendRow() ? 1 : 0); }
    bool HasAppendRow() const override { return appendEnabled_ && !lastRowHidden_; }
    RowId RowIdAt(int row) const override;
    int PositionOfRow(RowId row) const override;
    /// Key under which a row was filled; 0 for a row that is no record.
    std::uint32_t KeyOfRow(int row) const;
    /// Row of a record; 0 when it is not shown.
    int RowOfKey(std::uint32_t key) const;
    /// Keys of all rows that are shown, in their order.
    std::vector<std::uint32_t> ShownKeys() const;
    /// Inserts an empty row that is no record yet; one at a time. False while there is one, or outside the rows.
    bool InsertRecord(int row);
    /// Removes the row of a record, and nothing but the row. The record stays.
    void RemoveRow(int row);
    std::size_t MemoryBytes() const { return rows_.MemoryBytes(); }

    // ---- cells

    std::string GetValueRowCol(int row, int col) const override;
    /// Text of a cell before the edit of its row began; the stored text when no edit is open.
    std::string GetValueRowColBeforeEdit(int row, int col) const;
    /// Replaces the text before the edit, of the row that is being edited.
    void SetValueRowColBeforeEdit(int col, std::string_view text);
    /// Writes a text into a cell without starting an edit and without sorting; in the row that is being edited, over
    /// what the user sees there.
    void SetValueRange(int row, int col, std::string_view text);
    void WriteToReadOnlyCell(int row, int col, std::string_view text) { SetValueRange(row, col, text); }
    void WriteToReadOnlyCell(int row, int col, double value);
    void SetDataRowCol(int row, int col, std::string_view text) { SetValueRange(row, col, text); }
    void SetDataRowCol(int row, int col, int value);
    void SetDataRowCol(int row, int col, double value) { WriteToReadOnlyCell(row, col, value); }
    int GetDataRowColInt(int row, int col) const;
    double GetDataRowColDbl(int row, int col) const;
    std::string GetDataRowColStr(int row, int col) const { return GetValueRowCol(row, col); }
    /// Writes a ratio and colours it: not OK above 1.
    void WriteRatio(int row, int col, std::string_view text);
    /// What the control of the current cell reports, and whether it is active. While a check box is not active, this is
    /// the inverse of its value. False for any other cell.
    bool GetControlText(int row, int col, std::string& text, bool& active) const;
    static const char* InverseCheck(std::string_view text) { return text == "1" ? "0" : "1"; }
    /// The text of a cell with what is being typed in it.
    std::string GetLiveText(int row, int col) const;
    /// Replaces a formula by the text of its value; a text that is none, or has no value, stays as it is.
    void ConvertFormulaToValue(ColumnId column, std::string& text) const;
    /// Lines of the choice list of a cell; empty where it has none.
    ChoiceList ChoicesOf(int row, int col) const;

    // ---- numbers and warnings

    /// Strict readers of a cell text, a formula included; they keep the text for the report that may follow.
    bool IsValidLongNumber(const std::string& text, long long& value);
    bool IsValidDoubleNumber(const std::string& text, double& value);
    /// Report the text that was read last as no number of its kind. Both return what the validation is to return.
    int InvalidLongNumber(ColumnId column) { return InvalidNumber(column, CellNumberKind::Long); }
    int InvalidDoubleNumber(ColumnId column) { return InvalidNumber(column, CellNumberKind::Double); }
    /// The warning channel.
    void SetWarningText(const std::string& text);
    const std::string& GetWarningText() const { return warning_; }

    // ---- what the table allows

    void EnableInsertRowByPressingKey(bool enable) { insertEnabled_ = enable; }
    void EnableDeleteRowByPressingKey(bool enable) { deleteEnabled_ = enable; }
    void EnableAppendRow(bool enable);
    bool IsAppendRowEnabled() const { return appendEnabled_; }
    /// Hides the append row, where a table shows none in its mode.
    void HideLastRow() { lastRowHidden_ = true; }
    /// While set, no cell of the table can be edited.
    void LockEditMode(bool lock) { session_.Lock(lock); }
    bool IsEditModeLocked() const { return session_.IsLocked(); }
    /// A change was refused because the table is locked. True when the table deals with that, so that no warning is due.
    virtual bool OnLockedEdit() { return false; }
    /// Whether the row may be written to the database now.
    virtual bool CanSaveData() { return !IsEditModeLocked(); }
    virtual bool CanInsertRowByPressingKey() const { return insertEnabled_ && !IsEditModeLocked(); }
    virtual bool CanDeleteRowByPressingKey() const { return deleteEnabled_ && !IsEditModeLocked(); }

    // ---- the edit

    const EditSession& Session() const { return session_; }
    /// Whether a row is being edited.
    bool IsRowInEdit() const { return rowInEdit_; }
    bool SetCurrentCell(int row, int col, int flags = 0) override;
    bool DoCommand(TableCommand command) override;
    /// Types into the current cell: over its text, or on in the open editor. In a closed list, and wherever a list is
    /// open, it leads to the line that begins so.
    bool TypeText(const std::string& text);
    /// Replaces the text of the open editor: what a window does at each change.
    bool ChangeEditorText(const std::string& text) { return Told(session_.ChangeText(text)); }
    /// Accepts the open editor; the row stays open.
    bool AcceptEditor() { return Told(session_.AcceptCell()); }
    /// Types a text into a cell and accepts it; the row stays open.
    bool EditCell(int row, int col, const std::string& text);
    /// Leaves the open row before something else goes on; false when it stays open with its findings.
    bool LeaveRow() override;
    bool IsListOpen() const { return listOpen_; }

    // ---- filling; for the classes above and for tests of them

    /// Writes the cells of one record.
    using WriteCells = RecordRows::WriteCells;
    /// Fills the table anew with these records. The current cell, the open row and the selection follow their records.
    void FillRecordRows(std::span<const std::uint32_t> keys, const WriteCells& write);
    /// Brings the rows up to a change of the database, in the same way.
    void ReplayRows(const RowChanges& changes, const WriteCells& write);
    const CGXData& Data() const { return rows_.Data(); }

    // ---- hooks of tables, by position

    virtual bool OnStartEditing(int /*row*/, int /*col*/) { return true; }
    virtual void OnModifyCell(int /*row*/, int /*col*/) {}
    virtual void OnCanceledEditing(int /*row*/, int /*col*/) {}
    virtual void OnEndEditing(int /*row*/, int /*col*/) {}
    virtual void OnClickedButtonRowCol(int /*row*/, int /*col*/) {}
    virtual bool OnLButtonDblClk(int /*row*/, int /*col*/) { return false; }
    virtual bool OnValidateField(int row, int col) = 0;
    virtual bool OnValidateRecord(int row) = 0;
    virtual bool OnAddNewRecord(int row) = 0;
    virtual bool OnModifyRecord(int row) = 0;
    virtual bool OnDeleteRecords(const std::vector<int>& rows) = 0;
    virtual bool CanDeleteRecords(const std::vector<int>& /*rows*/) { return true; }
    virtual void OnCanceledAddNew() {}
    virtual void OnCanceledModify() {}
    /// The open row was written, dropped or lost.
    virtual void OnRowClosed() {}
    /// Fills the texts of the row that was inserted by key.
    virtual void OnInsertEmptyRecord(int /*row*/) {}
    /// Texts with which a new row begins, by column id.
    virtual std::vector<std::string> NewRowTexts() { return std::vector<std::string>(ColumnSlots()); }
    /// Refreshes what the append row shows.
    virtual void AdjustAppendRowNo(int row);
    /// Why the database refused the last change; empty where it does not tell.
    virtual std::string GetRefusalReason() const { return {}; }
    /// Whether other cells of a row decide on the unit of a number. What an open row shows then counts as typed.
    virtual bool HasUnitOfRow(ColumnId /*column*/) const { return false; }
    /// Brings texts that were typed under the previous units to the current ones.
    virtual void ConvertTypedTexts(std::vector<std::string>& /*texts*/) {}

protected:
    RecordRows& Rows() { return rows_; }
    const RecordRows& Rows() const { return rows_; }
    /// Lays the store out for the declared columns; what stands in it goes.
    void ConfigureRows(ColumnId keyColumn, std::vector<STBSortItem> sort);
    /// Sorts anew, now or when the open row is closed.
    void SortRows(std::vector<STBSortItem> sort);
    void AppendChanged() { appendTexts_ = NewAppendTexts(); }
    /// Texts that the append row shows while it is not being edited.
    virtual std::vector<std::string> NewAppendTexts() { return std::vector<std::string>(ColumnSlots()); }
    std::size_t ColumnSlots() const { return static_cast<std::size_t>(columns_.Count()); }
    FindResult Search(const STBFindStruct& find, const FindArea& area) const override;
    /// The record rows were filled or replayed: selections are put to their new places.
    virtual void OnRowsMoved() {}
    /// Adds a finding about the cell or row that is being checked.
    void AddFinding(EditFinding finding);
    /// What a typed or pasted text means in a cell: the key of a listed name; any other text as it stands. False for a
    /// text that is not in a closed list, and for one that is no state of a check box.
    bool ReadChoice(int row, int col, std::string& text) const;
    /// Why ReadChoice refused a text.
    std::string ChoiceReason(int row, int col, const std::string& text) const;
    /// Collects findings instead of telling them, as long as it lives.
    class FindingCollector;
    bool ToggleCheck();
    /// Tells the host why the session refused something; true when it did not.
    bool Told(const EditReply& reply);
    EditSession& OpenSession() { return session_; }
    bool MoveBy(NavigationStep step) override;
    /// The units were switched while a row is open.
    bool unitsSwitched_ = false;

private:
    friend class BrowserEditHost;
    struct Anchors;

    std::vector<bool> RowsThatMayHold(const STBFindStruct& find, const FindArea& area) const;
    bool IsSortColumn(ColumnId column) const;
    std::string LiveText(RowId row, ColumnId column) const;
    std::vector<std::string> TextsOf(RowId row) const;
    int InvalidNumber(ColumnId column, CellNumberKind kind);
    Anchors TakeAnchors() const;
    void FollowAnchors(const Anchors& anchors, const std::vector<RowChanges::Rekeyed>& rekeyed);
    void SortWhenClosed();
    KeySituation Situation() const override;
    CellId CellAt(int row, int col) const { return {RowIdAt(row), IdOfColumn(col)}; }
    bool EnterDown();
    bool InsertBeforeCurrent();
    bool BeginNextRow();
    bool StepList(int step);
    /// A list that takes no text but its own.
    bool IsClosedList(CellId cell) const;
    /// The key of the line that typing leads to. What does not go on from what was typed before begins anew.
    std::optional<std::string> TypedKey(const std::string& text, const std::string& current);
    void RememberFormulas(RowId row);
    bool IsNumericColumn(ColumnId column) const { return columns_.Info(column).type != ColumnType::String; }

    RecordRows rows_;
    BrowserEditHost editHost_{*this};
    EditSession session_{editHost_};
    RowInEdit edit_;
    bool rowInEdit_ = false;
    std::vector<std::string> appendTexts_;
    int insertedAt_ = 0;
    bool sortWhenClosed_ = false;
    bool insertEnabled_ = true;
    bool deleteEnabled_ = true;
    bool appendEnabled_ = false;
    bool lastRowHidden_ = false;

    RowEntry rowEntry_;
    bool listOpen_ = false;
    std::string typedInList_;

    std::string warning_;
    std::string checkedText_;
    std::vector<EditFinding>* findings_ = nullptr;
    bool quiet_ = false;

    /// A formula as it was typed, and the text that its cell got from it.
    struct Formula {
        std::string expression;
        std::string value;
    };
    std::map<std::pair<std::uint32_t, ColumnId>, Formula> formulas_;
    std::map<ColumnId, Formula> typedFormulas_;  ///< of the open row
    std::uint32_t lastCome_ = 0;                 ///< key of the record that came alone with the last replay
};

class CTBBrowserWnd::FindingCollector {
public:
    /// A quiet one keeps warnings from the host, for many rows at once.
    FindingCollector(CTBBrowserWnd& browser, std::vector<EditFinding>& findings, bool quiet)
        : browser_(browser),
          before_(std::exchange(browser.findings_, &findings)),
          quietBefore_(std::exchange(browser.quiet_, quiet)) {}
    ~FindingCollector() {
        browser_.findings_ = before_;
        browser_.quiet_ = quietBefore_;
    }
    FindingCollector(const FindingCollector&) = delete;
    FindingCollector& operator=(const FindingCollector&) = delete;

private:
    CTBBrowserWnd& browser_;
    std::vector<EditFinding>* before_;
    bool quietBefore_;
};

}  // namespace velda
