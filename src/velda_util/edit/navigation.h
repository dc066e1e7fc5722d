#pragma once

#include <compare>
#include <cstdint>

#include "velda_util/cells/cell_id.h"

namespace velda {

/// A place in the table as the user sees it: rows and columns count from 1. 0 is no place.
struct GridPosition {
    int row = 0;
    int column = 0;

    constexpr bool IsValid() const { return row > 0 && column > 0; }
    constexpr auto operator<=>(const GridPosition&) const = default;
};

enum class Direction : std::uint8_t { Up, Down, Left, Right };

/// What moving about needs to know of a table.
class NavigationSpace {
public:
    virtual ~NavigationSpace() = default;

    /// Rows that are shown, the append row included where there is one.
    virtual int RowCount() const = 0;
    /// Whether the last row is the append row, which is no record.
    virtual bool HasAppendRow() const = 0;
    /// Columns by position, hidden ones included.
    virtual int ColumnCount() const = 0;
    virtual bool IsColumnHidden(int column) const = 0;
    /// Whether the cell can be entered.
    virtual bool CanEnter(GridPosition position) const = 0;
    virtual bool HasText(GridPosition position) const = 0;
    /// Rows that a page holds.
    virtual int PageRows() const = 0;

    virtual RowId RowIdAt(int row) const = 0;
    /// Position of a row; 0 when it is gone or not shown.
    virtual int PositionOfRow(RowId row) const = 0;
    virtual ColumnId ColumnIdAt(int column) const = 0;
    virtual int PositionOfColumn(ColumnId column) const = 0;

    /// Where a run of texts ends: the last text of the run that `from` stands in; otherwise the next text; otherwise
    /// the edge of the table. Walks cell by cell; a table that knows its runs answers faster.
    virtual GridPosition DataEdge(GridPosition from, Direction direction) const;
};

/// A move of the current cell, or of the end of a selection.
enum class NavigationStep : std::uint8_t {
    Up,
    Down,
    Left,
    Right,
    EdgeUp,
    EdgeDown,
    EdgeLeft,
    EdgeRight,
    RowStart,
    RowEnd,
    PageUp,
    PageDown,
    TableStart,
    TableEnd,
    Next,      ///< forward in reading order
    Previous,  ///< backward in reading order
};

/// Where the current cell goes: a cell that can be entered and is not hidden, or `from` when there is none that way.
/// From no place, the first cell that can be entered; no place when there is none at all.
GridPosition Navigate(const NavigationSpace& space, GridPosition from, NavigationStep step);

/// Where the end of a selection goes: a cell that is not hidden, whether it can be entered or not.
GridPosition ExtendTo(const NavigationSpace& space, GridPosition from, NavigationStep step);

/// Where Enter goes: the next row below that can be entered in `column`. In the last one it stays in the row.
GridPosition EnterDown(const NavigationSpace& space, GridPosition from, int column);

/// The column where the entry of a row began. Enter goes back there.
class RowEntry {
public:
    /// An edit or a Tab begins the entry of a row, unless it has begun.
    void Begin(CellId cell) {
        if (cell.row != cell_.row) cell_ = cell;
    }
    /// The current cell went to another place; in another row the entry has not begun.
    void MovedTo(CellId cell) {
        if (cell.row != cell_.row) cell_ = {};
    }
    /// Ends the entry; the column where it began, or that of `cell` when it had not begun in its row.
    ColumnId End(CellId cell) {
        const ColumnId column = cell.row == cell_.row ? cell_.column : cell.column;
        cell_ = {};
        return column;
    }

private:
    CellId cell_;
};

}  // namespace velda
