#pragma once

#include "velda_util/clip/paste_report.h"
#include "velda_util/clip/replace_plan.h"
#include "velda_util/clip/text_block.h"
#include "velda_util/grid/tb_browser_wnd_ex.h"

namespace velda {

/// The life of records in a table: validating and writing an edited row, filling, pastes and other changes of many
/// cells. A change of many cells is planned, checked row by row, and written as one step of the undo history with one
/// report.
///
/// A column map holds, for each column identifier, the grid column whose text stands in the row texts: the text of
/// identifier `i` is `rowTexts[columnMap[i] - 1]`.
class CTBCommon : public CTBBrowserWndEx {
public:
    using RowTexts = std::vector<std::string>;
    using ColumnMap = std::vector<int>;
    using Keys = std::vector<std::uint32_t>;
    using KeyPointers = std::vector<std::uint32_t*>;
    using RecordPointers = std::vector<void*>;

    /// Prepares the grid: numeric right-aligned columns, titles, nothing in it.
    virtual bool Initialize();
    /// What a table sets up of its own while it is initialised.
    virtual void InitBrowserSettings() {}

    // ---- what a table supplies

    /// One transaction each; false when the database refused.
    virtual int AddRecords(const KeyPointers& keys, const RecordPointers& records) = 0;
    virtual int AddRecord(int row) = 0;
    virtual int DeleteRecords(const std::vector<int>& rows) = 0;
    virtual int DeleteRecord(int row) = 0;
    virtual int ModifyRecords(const RowTexts& oldKeyTexts, const KeyPointers& keys, const RecordPointers& records) = 0;
    virtual int ModifyRecord(int row) = 0;
    /// The next free key as text.
    virtual std::string GetNewKeyString() = 0;
    /// The text that a new row has in a column, and those of all columns.
    virtual std::string GetDefaultCellText(ColumnId column) = 0;
    virtual const RowTexts& GetDefaultCellTexts() const = 0;
    /// Allocates a key and a record for one pasted row, appends both to the arrays, and parses the texts into them.
    /// False when the row is not acceptable; the allocations stay in the arrays in either case.
    virtual bool NewPasteRecord(const RowTexts& rowTexts, const ColumnMap& columnMap, KeyPointers& keys,
                                RecordPointers& records) = 0;
    /// Frees what NewPasteRecord allocated, up to the shorter of the two counts.
    virtual void FreePasteRecords(KeyPointers& keys, RecordPointers& records) = 0;
    /// Whether a text may stand in a column.
    virtual int ValidateColumn(const std::string& text, ColumnId column) = 0;
    /// Whether the texts of a row may be written as a record.
    virtual int ValidateRowComplete(const RowTexts& rowTexts, const ColumnMap& columnMap) = 0;
    virtual int GetRecordCount() const = 0;
    /// Fills the table with the records of a key list, or with all.
    virtual void FillRows(int count, const std::uint32_t* keys, const ColumnMap& columnMap) = 0;
    virtual void FillAllRows(int count, const ColumnMap& columnMap) = 0;
    /// Writes a row from texts, by column identifier, that were written under the previous units.
    virtual void WriteRowFromText(int row, const RowTexts& texts) = 0;

    // ---- filling

    /// Without keys and with count -2 all records, otherwise those of the list. Flag 0 opens the table; flag 1 builds
    /// the rows anew that it shows now.
    virtual void MakeItemEx(const std::uint32_t* keys, int count, int flag);
    /// Waits as long as the open row cannot be left.
    void FilterRecord(const std::uint32_t* keys, int count) override;
    /// Gives the table a key list.
    virtual void PreFilterRecord(const Keys& keys);
    /// The table has been filled for the first time.
    virtual void OnAfterOpen() {}
    /// Whether the table opens with the last row current.
    virtual bool GoLastWhenOpen() const { return false; }
    /// The units were switched. Texts that the user typed in an open row are brought to the new units.
    virtual void UnitChanged();

    // ---- changes of many cells, each one step of the undo history

    /// Pastes the clipboard, or a text, into the selection. The report goes to the host; false when nothing was done.
    bool Paste() override { return Paste(OnRefusal::WriteOthers); }
    bool Paste(OnRefusal choice);
    bool CanPaste() const override { return !IsEditModeLocked() && CanCopy(); }
    bool PasteText(const std::string& text, OnRefusal choice = OnRefusal::WriteOthers);
    bool FillDown();
    bool ClearCells();
    bool Replace(const ReplaceSettings& settings);
    bool DoCommand(TableCommand command) override;

    // ---- what the engine calls

    /// A text is about to be pasted at a range; false keeps it out.
    virtual bool OnPasteFromClipboard(const CGXRange& /*range*/) { return true; }
    bool OnValidateField(int row, int col) override;
    bool OnValidateRecord(int row) override;
    bool OnAddNewRecord(int row) override { return AddRecord(row) != 0; }
    bool OnModifyRecord(int row) override { return ModifyRecord(row) != 0; }
    virtual bool OnDeleteRecord(int row) { return DeleteRecord(row) != 0; }
    bool OnDeleteRecords(const std::vector<int>& rows) override;
    RowTexts NewRowTexts() override;
    void OnRowClosed() override;
    /// An open new row whose key was taken elsewhere gets another one, unless the user typed it.
    void AdjustAppendRowNo(int row) override;

protected:
    ColumnMap CurrentColumnMap() const { return columns_.ColumnMap(); }
    /// Texts of a row by grid column, as the record operations take them.
    RowTexts GridTextsOf(int row) const;
    RowTexts NewAppendTexts() override;
    /// Texts of a row, by grid column, that a change of many cells gives: cells that depend on those that were given
    /// are brought in line. `before` is the row without the change.
    /// Returns how many of the given texts the row does not take.
    virtual std::size_t AdjustGivenTexts(RowTexts& /*texts*/, const RowTexts& /*before*/,
                                         const std::vector<bool>& /*given*/) const {
        return 0;
    }
    /// Whether other texts of a row decide what may stand in its cell of this column. A change of many cells may give
    /// the cell any text then; AdjustGivenTexts takes it or leaves it.
    virtual bool DependsOnRow(ColumnId /*column*/) const { return false; }
    /// Whether other texts of a row decide if its cell of this column can be entered. A change of many cells gives it
    /// any text of its list then; AdjustGivenTexts takes it or leaves it.
    virtual bool MayBeEnabledByRow(ColumnId /*column*/) const { return false; }
    /// Whether the table was filled with all its records, not with those of a key list.
    bool ShowsAll() const { return showsAll_; }
    /// The row that is being checked; 0 for one that will be added by a change of many cells.
    int CheckedRow() const { return checkedRow_; }
    /// Whether the text in such a column is among the choices that its row has; texts by grid column.
    virtual bool IsChoiceOfRow(ColumnId /*column*/, const RowTexts& /*texts*/) const { return true; }
    /// Several transactions as one step of the undo history.
    virtual bool BeginStep(const std::string& name) = 0;
    virtual bool EndStep() = 0;
    virtual void CancelStep() = 0;

private:
    struct Batch;
    PlanTarget PlanTargetNow() const;
    GridSelection SelectionOf(const PositionRange& range) const;
    CellAccess AccessOf(int row, int col) const;
    /// How a change of many cells finds a cell: as it will be, where that is decided by what the change gives its row.
    CellAccess PlannedAccessOf(int row, int col) const;
    bool Apply(const ChangePlan& plan, const char* stepKey, OnRefusal choice);
    RowTexts TextsToChange(int row, bool adds, std::int64_t newKey);
    void CheckRow(const ChangePlan& plan, const PlannedRow& row, Batch& batch);
    std::size_t Write(Batch& batch);
    std::size_t WriteRange(Batch& batch, bool adds, std::size_t first, std::size_t count);
    /// A change within the open row is an edit of it: the row need not be complete yet.
    bool IsInOpenRow(const PositionRange& range) const;
    bool EnterInOpenRow(const PositionRange& range, FunctionRef<std::string(int index, int col)> text);
    bool PasteInOpenRow(const TextBlock& block, PositionRange range);
    bool ToggleChecks();
    /// Changes of many cells work on one range; the user is told when there are several.
    bool HasOneRange();

    bool showsAll_ = true;
    int checkedRow_ = 0;
    std::optional<Keys> waitingFilter_;  ///< of FilterRecord, until the open row is closed
};

}  // namespace velda
