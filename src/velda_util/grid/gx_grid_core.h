#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "velda_base/host/window.h"
#include "velda_util/columns/column_list.h"
#include "velda_util/edit/cell_selection.h"
#include "velda_util/edit/navigation.h"
#include "velda_util/style/header_rows.h"
#include "velda_util/style/merged_cells.h"
#include "velda_util/style/style_sheet.h"

namespace velda {

/// The cell engine under all grids: rows and columns, styles, header rows, merged cells, current cell, selection, and
/// the lock that holds redrawing back. What stands in the cells is told by the derived classes.
///
/// Rows and columns count from 1; row 0 is the header. A row has an id beside its position, which lasts as long as the
/// row.
class CGXGridCore : public NavigationSpace {
public:
    CGXGridCore() = default;
    CGXGridCore(const CGXGridCore&) = delete;
    CGXGridCore& operator=(const CGXGridCore&) = delete;

    // ---- rows and columns

    /// Data rows, with the trailing row that is no record.
    virtual int GetRowCount() const = 0;
    int GetColCount() const { return columns_.Count(); }
    const ColumnList& Columns() const { return columns_; }
    /// Text of a cell as it stands now. Throws std::invalid_argument for a cell that does not exist.
    virtual std::string GetValueRowCol(int row, int col) const = 0;
    /// The text that a cell shows: numbers rounded to the places of their column, the name of a listed key.
    std::string GetShownText(int row, int col) const;

    /// Whether columns can be moved at all; they can at first.
    void EnableMoveCols(bool enable) { movesCols_ = enable; }
    bool CanMoveCols() const { return movesCols_; }
    /// Moves a grid column to stand before another; GetColCount() + 1 for the end. False for a wrong number, and where
    /// columns cannot be moved.
    bool MoveColumn(int col, int before);
    void SetColWidth(int col, int width);
    int GetColWidth(int col) const { return columns_.Width(IdOfColumn(col)); }
    void HideColsByIntend(int firstCol, int lastCol, bool hide);
    /// Whether a column was hidden by HideColsByIntend.
    virtual bool IsHiddenByIntend(int col) const { return columns_.IsHiddenByIntend(col); }
    /// Hides or shows a column for the user.
    void SetColHidden(int col, bool hidden);
    /// A locked column cannot be entered. The key column, and what stands before it, stays in view while it is locked.
    void SetColLocked(int col, bool locked);
    void SetFrozenCols(int count);

    /// The first cell that is shown behind the frozen columns. Places outside the table are drawn into it.
    void SetTopLeft(GridPosition cell);
    GridPosition TopLeft() const { return topLeft_; }
    /// The cell under a point of the grid's window; row 0 is the header. No position where there is no cell.
    std::optional<GridPosition> HitTest(WindowPoint point) const;
    /// The middle of a cell in the grid's window; none when the cell is hidden or scrolled away.
    std::optional<WindowPoint> CellMiddle(GridPosition cell) const;

    /// Heights in pixels; row 0 is the header, other rows share one height unless they have their own.
    void SetRowHeight(int row, int height) { rowHeights_[row] = height; }
    int GetRowHeight(int row) const;

    HeaderRows& Header() { return header_; }
    const HeaderRows& Header() const { return header_; }
    /// Shows a rectangle of cells as one. Refused when it overlaps another one.
    Outcome SetCoveredCellsRowCol(int top, int left, int bottom, int right);
    const MergedCells& CoveredCells() const { return merged_; }

    // ---- styles

    bool ChangeStandardStyle(const CGXStyle& style, StyleMode mode = StyleMode::Override);
    /// Applies a style to a range of positions: whole columns, rows and the table keep it for rows and columns that
    /// come later. Row 0 in a range of cells stands for the header.
    bool SetStyleRange(const CGXRange& range, const CGXStyle& style, StyleMode mode = StyleMode::Override);
    /// Changes the style with which a cell is drawn and answered, from data that the engine does not know. Called
    /// only where HasStyleHook says so.
    virtual void GetStyleRowCol(int /*row*/, int /*col*/, CGXStyle& /*style*/) const {}
    virtual bool HasStyleHook() const { return false; }
    /// The style of a cell as resolved. Valid until the next call.
    const CGXStyle& StyleOf(int row, int col) const;
    const StyleSheet& Styles() const { return styles_; }

    /// State of cells. Row 0 stands for the whole column.
    void SetReadOnly(int row, int col, bool readOnly);
    void SetEnable(int row, int col, bool enabled);
    bool IsEnabled(int row, int col) const;
    bool IsReadOnly(int row, int col) const;
    /// Colouring of verdicts: bold and red for what is not in order, blue for what is.
    void ApplyStyleOK(int row, int col);
    void ApplyStyleNG(int row, int col);
    /// Replaces the choice list of a cell, or of a column for row 0.
    void SetChoiceList(int row, int col, std::string_view lines);
    void SetStyleRangeCheckListComboBox(const CGXRange& range, std::string_view lines);

    // ---- lock and redraw

    /// Holds redrawing back, or lets it go; returns the previous state. Every mass update is bracketed by it.
    bool LockUpdate(bool lock);
    bool IsUpdateLocked() const { return locked_; }
    /// Draws the grid anew. While it is locked nothing is drawn.
    void Redraw();
    /// Redraws since the grid was made.
    std::uint64_t RedrawCount() const { return redraws_; }

    // ---- current cell and selection

    /// Flag of SetCurrentCell: the cell stays the current one, and its control is made anew.
    static constexpr int kRebuildControl = 10;
    /// Makes a cell the current one. False, and nothing moves, when it does not exist, cannot be entered, or the open
    /// row cannot be left.
    virtual bool SetCurrentCell(int row, int col, int flags = 0);
    /// Position of the current cell; false when there is none.
    bool GetCurrentCell(int& row, int& col) const;
    /// The current cell by ids; that of the row that took its place when its row is gone.
    CellId CurrentCellId() const;
    /// The nearest cell of a row that can be entered, from `col` to the left or to the right. False when there is none.
    bool SetLeftValidCell(int row, int col);
    bool SetRightValidCell(int row, int col);
    /// Extends the selection from the current cell.
    void ExtendSelection(GridPosition position);

    const CellSelection& Selected() const { return selection_; }
    void SelectRange(PositionRange range);
    void AddRange(PositionRange range);
    void ClearSelection();
    /// The rectangle that commands work on: the last selected one, or the current cell; an empty range without any.
    PositionRange CommandRange() const;
    bool HasSeveralRanges() const;

    // ---- what moving about needs to know

    int ColumnCount() const override { return columns_.Count(); }
    bool IsColumnHidden(int column) const override;
    bool CanEnter(GridPosition position) const override;
    bool HasText(GridPosition position) const override;
    int PageRows() const override { return pageRows_; }
    ColumnId ColumnIdAt(int column) const override { return IdOfColumn(column); }
    int PositionOfColumn(ColumnId column) const override;
    /// Rows that a page of the window holds.
    void SetPageRows(int rows) { pageRows_ = rows < 1 ? 1 : rows; }

protected:
    /// The selection changed, not only its place.
    virtual void OnChangedSelection() {}
    virtual void OnRedrawn() {}
    /// The first cell that is shown was set.
    virtual void OnTopLeft() {}
    /// Identifier of a grid column. Throws std::invalid_argument for a column that does not exist.
    ColumnId IdOfColumn(int col) const;
    void RequireRow(int row) const;
    /// All rows but the header have the usual height again.
    void ForgetRowHeights();

    ColumnList columns_;
    StyleSheet styles_;
    HeaderRows header_;
    MergedCells merged_;
    CurrentCell current_;
    CellSelection selection_;

private:
    bool EnterNearest(int row, int col, int step);
    bool IsInWindow(GridPosition cell) const;
    void ChangeState(int row, int col, const CGXStyle& style);

    std::map<int, int> rowHeights_;
    mutable CGXStyle hooked_;
    bool movesCols_ = true;
    GridPosition topLeft_{1, 1};
    int pageRows_ = 20;
    bool locked_ = false;
    std::uint64_t redraws_ = 0;
};

/// Holds the redrawing of a grid back; restores the state before, and draws once when the grid was not locked.
class GridUpdateLock {
public:
    explicit GridUpdateLock(CGXGridCore& grid) : grid_(grid), before_(grid.LockUpdate(true)) {}
    ~GridUpdateLock() {
        grid_.LockUpdate(before_);
        if (!before_) grid_.Redraw();
    }
    GridUpdateLock(const GridUpdateLock&) = delete;
    GridUpdateLock& operator=(const GridUpdateLock&) = delete;

private:
    CGXGridCore& grid_;
    bool before_;
};

}  // namespace velda
