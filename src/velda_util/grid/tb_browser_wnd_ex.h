#pragma once

#include <map>
#include <optional>

#include "velda_util/clip/text_matcher.h"
#include "velda_util/grid/tb_browser_wnd.h"

namespace velda {

/// The column list with its identifiers, the sort specification, rows found by key, the filter, the keys of selected
/// rows, and the preferences of columns.
class CTBBrowserWndEx : public CTBBrowserWnd {
public:
    // ---- columns

    /// Appends a column; its identifier is the number of those before it. `title` is a text, not a key.
    ColumnId AddColInfo(std::string title, ColumnType type, int unitCode);
    int GetInitialColCount() const { return columns_.Count(); }
    bool GetColumnNoFor(ColumnId id, int& number) const { return columns_.GetColumnNoFor(id, number); }
    bool GetColumnNoFor(std::string_view title, int& number) const { return columns_.GetColumnNoFor(title, number); }
    bool GetColumnIDFor(int number, ColumnId& id) const { return columns_.GetColumnIDFor(number, id); }
    /// Identifiers of the columns that identify a record.
    std::vector<ColumnId>& KeyColumns() { return keyColumns_; }
    /// Identifier of the column that holds the record key.
    virtual ColumnId GetKeyColID() const { return 0; }

    // ---- order of the rows

    /// The sort items that the rows are kept by, which are also the search key of FindRecordByKey. No items stand for
    /// the key column, ascending.
    const std::vector<STBSortItem>& SortInfo() const override { return sortInfo_; }
    void SetSortInfo(std::vector<STBSortItem> items) { sortInfo_ = std::move(items); }
    /// Sorts the rows by a specification, and keeps it.
    void SortTable(std::vector<STBSortItem> sortInfo);
    /// The user sorts: leaves the open row first. False when it stays open.
    bool Sort(const std::vector<STBSortItem>& items) override;
    /// Searches the rows in sort order, one text for each sort item. True when a row with exactly these texts exists,
    /// and `row` is that row; false when none exists, and `row` is where such a record belongs. Among rows with equal
    /// texts the one of the record `key` is chosen.
    bool FindRecordByKey(const std::vector<std::string>& keyTexts, int& row, std::uint32_t key = 0) const;

    // ---- what is shown

    /// Shows only the records of a key list; a count of 0 shows none.
    virtual void FilterRecord(const std::uint32_t* keys, int count) = 0;
    /// Shows only those of the table's rows whose cell holds a text, without regard to case; filters of several columns
    /// hold together, an empty text takes that of its column away. False when the open row cannot be left.
    bool FilterColumn(ColumnId column, const std::string& text);
    /// Shows the rows again that filters of columns hid.
    bool RemoveFilter();
    bool IsColumnFiltered() const { return filter_.has_value(); }
    /// What a column is filtered by; empty when it is not.
    std::string FilterTextOf(ColumnId column) const;

    // ---- selection

    /// Keys of the selected rows, in their order.
    std::vector<std::uint32_t> GetKeysForSelectedRows() const;
    /// Text of the record key of a row, now and before the edit of the row. Tables whose key column shows a number of
    /// the user convert here.
    virtual std::string GetKeyString(int row) const { return GetValueRowCol(row, KeyColumnNo()); }
    virtual std::string GetKeyStringBeforeEdit(int row) const { return GetValueRowColBeforeEdit(row, KeyColumnNo()); }
    /// The selection changed; `keys` are those of the selected rows.
    virtual void OnChangedSelectionPublic(const std::uint32_t* keys, int count) = 0;
    /// Keys of the selected rows as the table stored them; their number.
    virtual int GetSelectedKeys(std::vector<std::uint32_t>& keys) const = 0;
    /// Selects the rows of the stored keys again, after rows have moved.
    void ShowSelected();
    /// Selects the rows of these records, as the user would.
    void SelectKeys(std::span<const std::uint32_t> keys);

    // ---- preferences and titles

    /// Applies what is stored under the table's name: widths, decimal places, order, hidden and locked columns. The
    /// store of the rows is laid out here, too.
    void ApplyPreference();
    void ApplyColumnPreferences() override;
    /// Writes the titles of all columns into the header, with the labels of their current units.
    void SetHeaderTitle(int flagA, int flagB);
    /// Writes titles into the header for some grid columns.
    void SetHeaderTitle(std::span<const int> colNumbers, int flag);

protected:
    void OnChangedSelection() override;
    void OnRowsMoved() override;
    int KeyColumnNo() const { return PositionOfColumn(GetKeyColID()); }
    /// The cell writer of the table's records.
    virtual void WriteRecordCells(std::uint32_t key, CGXData& data, RowId row) = 0;
    virtual bool RecordExists(std::uint32_t key) const = 0;
    /// Takes the column filter into account: hides records that came and do not match, unless they were shown.
    void ReplayFiltered(const RowChanges& changes);
    /// Keys of the records that the table holds, those included that a column filter hides.
    std::vector<std::uint32_t> FilledKeys() const;
    void DropFilter() { filter_.reset(); }
    void ReplayRecords(const RowChanges& changes);

private:
    struct ColumnFilters {
        std::map<ColumnId, std::string> texts{};
        std::vector<std::uint32_t> hidden{};  ///< keys that they keep from being shown
    };
    bool MatchesFilter(RowId row) const;
    void ShowFilteredRows();
    std::vector<RowId> RowsOfKeys(std::span<const std::uint32_t> keys) const;

    std::vector<ColumnId> keyColumns_;
    std::vector<STBSortItem> sortInfo_;
    std::optional<ColumnFilters> filter_;
};

}  // namespace velda
