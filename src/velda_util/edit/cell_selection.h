#pragma once

#include <algorithm>
#include <compare>
#include <limits>
#include <span>
#include <vector>

#include "velda_util/edit/navigation.h"

namespace velda {

/// The current cell, where typing goes, and the other end of the selection that Shift extends from it. Both are known
/// by row and column id and so survive that rows and columns move.
class CurrentCell {
public:
    /// Makes a cell the current one and draws the selection together on it.
    void Set(const NavigationSpace& space, GridPosition position);
    /// Extends the selection to a cell; the current cell stays.
    void Extend(const NavigationSpace& space, GridPosition position);
    void Clear() { *this = {}; }

    CellId Cell() const { return anchor_.cell; }
    CellId ExtentCell() const { return extent_.cell; }
    bool IsExtended() const { return anchor_.cell != extent_.cell; }
    /// Where the cell stands now. When its row is gone, the row that took its place, or the last one; no place in an
    /// empty table.
    GridPosition Position(const NavigationSpace& space) const { return anchor_.Position(space); }
    GridPosition ExtentPosition(const NavigationSpace& space) const { return extent_.Position(space); }
    /// The record of the current cell was written and stands in another row.
    void RowReplaced(RowId from, RowId to);

private:
    struct End {
        CellId cell;
        /// Where it stood when it was set.
        GridPosition place;

        GridPosition Position(const NavigationSpace& space) const;
    };
    static End EndAt(const NavigationSpace& space, GridPosition position);

    End anchor_;
    End extent_;
};

/// A rectangle of positions, both ends included.
struct PositionRange {
    /// Stands for the last row or column, however many there are.
    static constexpr int kLast = std::numeric_limits<int>::max();

    int top = 0;
    int left = 0;
    int bottom = 0;
    int right = 0;

    static constexpr PositionRange Of(GridPosition a, GridPosition b) {
        return {std::min(a.row, b.row), std::min(a.column, b.column), std::max(a.row, b.row),
                std::max(a.column, b.column)};
    }
    static constexpr PositionRange Rows(int first, int last) { return {first, 1, last, kLast}; }
    static constexpr PositionRange Columns(int first, int last) { return {1, first, kLast, last}; }
    static constexpr PositionRange All() { return {1, 1, kLast, kLast}; }

    constexpr bool HoldsWholeRows() const { return left == 1 && right == kLast; }
    constexpr bool HoldsWholeColumns() const { return top == 1 && bottom == kLast; }
    constexpr bool Contains(GridPosition p) const {
        return p.row >= top && p.row <= bottom && p.column >= left && p.column <= right;
    }
    constexpr bool operator==(const PositionRange&) const = default;
};

/// A run of rows or columns, both ends included.
struct PositionSpan {
    int first = 0;
    int last = 0;

    constexpr auto operator<=>(const PositionSpan&) const = default;
};

/// The selected cells, rows and columns, as ranges of positions. When rows move, the owner selects anew by row id.
class CellSelection {
public:
    void Clear() { ranges_.clear(); }
    bool IsEmpty() const { return ranges_.empty(); }
    /// Makes a range the selection.
    void Select(PositionRange range) { ranges_.assign(1, range); }
    /// Adds a range to the selection.
    void Add(PositionRange range) { ranges_.push_back(range); }
    /// Replaces the range that was added last: what dragging or Shift does.
    void ReplaceLast(PositionRange range);
    /// Makes whole rows the selection; ids of rows that are gone or not shown are passed over.
    void SelectRows(const NavigationSpace& space, std::span<const RowId> rows);

    const std::vector<PositionRange>& Ranges() const { return ranges_; }
    bool Contains(GridPosition position) const;
    /// Whether whole rows are selected, and nothing less.
    bool IsOfRows() const;
    /// Whether whole columns are selected, and nothing less.
    bool IsOfColumns() const;

    /// Rows that are selected as a whole, rows and columns that are touched by a selected cell; sorted, without
    /// overlap.
    std::vector<PositionSpan> WholeRows(const NavigationSpace& space) const;
    std::vector<PositionSpan> TouchedRows(const NavigationSpace& space) const;
    std::vector<PositionSpan> TouchedColumns(const NavigationSpace& space) const;
    /// The same as ids, in the order of the rows; the append row is no record and left out.
    std::vector<RowId> WholeRowIds(const NavigationSpace& space) const;
    std::vector<RowId> TouchedRowIds(const NavigationSpace& space) const;

private:
    std::vector<PositionRange> ranges_;
};

}  // namespace velda
