#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "velda_lib/flat_index.h"
#include "velda_lib/function_ref.h"
#include "velda_util/cells/cell_data.h"
#include "velda_util/cells/row_sort.h"

namespace velda {

/// The rows of a record browser: one row for each record that the table shows, always in the order of the sort
/// specification, each known by the key of its record. Positions count from 1, as rows of the grid do; row 0 is the
/// header.
///
/// A change of few records is replayed row by row; a change of many is collected and merged in one pass. In both cases
/// equal rows stand in the order of their keys.
class RecordRows {
public:
    /// `types` are the column types by column id, `sort` the items to sort by; no items stand for the key column,
    /// ascending.
    void Configure(std::vector<ColumnType> types, int keyColumn, std::vector<STBSortItem> sort);
    const std::vector<STBSortItem>& SortItems() const { return comparison_ ? comparison_->Items() : noItems_; }

    CGXData& Data() { return data_; }
    const CGXData& Data() const { return data_; }
    int Count() const { return static_cast<int>(data_.Order().Count()); }

    /// Row id at a position from 1 to Count(), and back; 0 for a row that is not shown.
    RowId IdAt(int position) const { return data_.Order().At(static_cast<std::size_t>(position - 1)); }
    int PositionOf(RowId row) const;

    /// Writes the cells of one record into a row; the row's key is given apart, and its cell need not show it.
    using WriteCells = FunctionRef<void(std::uint32_t key, CGXData& data, RowId row)>;

    /// Fills the table anew with the records of `keys`.
    void Fill(std::span<const std::uint32_t> keys, const WriteCells& write);

    /// The row of a record; kNoRow when it is not shown. Its key.
    RowId RowOfKey(std::uint32_t key) const;
    std::uint32_t KeyOf(RowId row) const { return keys_[row]; }

    /// Searches in sort order: true when a row with exactly these sort texts exists, and `position` is that row; false
    /// when none exists, and `position` is where it belongs. Among rows with equal texts the one with `key` counts,
    /// where there is one.
    bool FindRecordByKey(std::span<const std::string> keyTexts, std::uint32_t key, int& position) const;

    /// Brings the rows up to a change of the database: the rows of `gone` leave, the records of `come` are written and
    /// stand at their places. A key may stand in both. Keys that are not shown may stand in `gone`, and keys that are
    /// shown in `come`. Returns the rows that left.
    std::vector<RowId> Replay(std::span<const std::uint32_t> gone, std::span<const std::uint32_t> come,
                              const WriteCells& write);

    /// Removes a row, and nothing but the row.
    void RemoveRow(int position);
    /// Takes another sort specification; the rows stay where they are until SortTable.
    void SetSort(std::vector<STBSortItem> sort);
    /// Sorts all rows anew.
    void SortTable();
    /// Puts a row whose cells were changed to its place; its new position.
    int Replace(RowId row);

    std::size_t MemoryBytes() const;

private:
    static constexpr std::size_t kFewChanges = 8;  ///< up to here rows are moved one by one

    RowId NewRow(std::uint32_t key, const WriteCells& write);
    void PutInPlace(RowId row);
    void Merge(std::span<const RowId> removed, std::vector<RowId> added);
    bool StandsBefore(RowId a, RowId b) const;
    void SortIds(std::vector<RowId>& rows) const;

    CGXData data_;
    std::vector<ColumnType> types_;
    int keyColumn_ = 0;
    std::optional<RowComparison> comparison_;
    std::vector<STBSortItem> noItems_;
    FlatIndex rowOfKey_;
    std::vector<std::uint32_t> keys_;  ///< by row id
};

}  // namespace velda
