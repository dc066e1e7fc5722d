#include "velda_util/grid/gx_grid_core.h"

#include <algorithm>
#include <numeric>
#include <stdexcept>
#include <utility>

#include "velda_util/style/display_text.h"

namespace velda {
namespace {

constexpr int kRowHeight = 20;
/// Identifier of the column that holds the key in most tables.
constexpr ColumnId kKeyColumn = 0;
/// Colours of verdicts, blue-green-red.
constexpr std::uint32_t kColorNG = 255;
constexpr std::uint32_t kColorOK = 0xFF0000;

std::vector<std::uint32_t> ColumnIds(const ColumnList& columns, int first, int last) {
    std::vector<std::uint32_t> ids;
    for (int col = std::max(first, 1); col <= std::min(last, columns.Count()); ++col) {
        int id = 0;
        if (columns.GetColumnIDFor(col, id)) ids.push_back(static_cast<std::uint32_t>(id));
    }
    return ids;
}

}  // namespace

// ---- rows and columns ----

ColumnId CGXGridCore::IdOfColumn(int col) const {
    int id = 0;
    if (!columns_.GetColumnIDFor(col, id)) throw std::invalid_argument("no grid column " + std::to_string(col));
    return id;
}

void CGXGridCore::RequireRow(int row) const {
    if (row < 1 || row > GetRowCount()) throw std::invalid_argument("no row " + std::to_string(row));
}

void CGXGridCore::ForgetRowHeights() { rowHeights_.erase(rowHeights_.upper_bound(0), rowHeights_.end()); }

std::string CGXGridCore::GetShownText(int row, int col) const {
    return DisplayText(GetValueRowCol(row, col), StyleOf(row, col));
}

bool CGXGridCore::MoveColumn(int col, int before) { return movesCols_ && columns_.Move(col, before); }

void CGXGridCore::SetColWidth(int col, int width) { columns_.SetWidth(IdOfColumn(col), width); }

void CGXGridCore::HideColsByIntend(int firstCol, int lastCol, bool hide) {
    columns_.HideColsByIntend(firstCol, lastCol, hide);
}

void CGXGridCore::SetColHidden(int col, bool hidden) { columns_.SetHidden(IdOfColumn(col), hidden); }

void CGXGridCore::SetColLocked(int col, bool locked) {
    const ColumnId id = IdOfColumn(col);
    columns_.SetLocked(id, locked);
    if (id != kKeyColumn) return;
    SetFrozenCols(locked ? col : 0);
    if (!locked) SetTopLeft({topLeft_.row, 1});
}

void CGXGridCore::SetFrozenCols(int count) { columns_.SetFrozen(count); }

void CGXGridCore::SetTopLeft(GridPosition cell) {
    topLeft_ = {std::clamp(cell.row, 1, std::max(RowCount(), 1)),
                std::clamp(cell.column, 1, std::max(GetColCount(), 1))};
    OnTopLeft();
}

bool CGXGridCore::IsInWindow(GridPosition cell) const {
    const bool inRows = cell.row == 0 || (cell.row >= topLeft_.row && cell.row <= RowCount());
    const bool inCols = cell.column >= 1 && cell.column <= GetColCount() && !IsColumnHidden(cell.column);
    return inRows && inCols && (cell.column <= columns_.Frozen() || cell.column >= topLeft_.column);
}

std::optional<GridPosition> CGXGridCore::HitTest(WindowPoint point) const {
    if (point.x < 0 || point.y < 0) return std::nullopt;
    GridPosition cell{0, 1};
    for (int y = GetRowHeight(0); y <= point.y; y += GetRowHeight(cell.row)) {
        cell.row = cell.row == 0 ? topLeft_.row : cell.row + 1;
        if (cell.row > RowCount()) return std::nullopt;
    }
    for (int x = 0; cell.column <= GetColCount(); ++cell.column) {
        if (!IsInWindow({0, cell.column})) continue;
        x += GetColWidth(cell.column);
        if (point.x < x) return cell;
    }
    return std::nullopt;
}

std::optional<WindowPoint> CGXGridCore::CellMiddle(GridPosition cell) const {
    if (!IsInWindow(cell)) return std::nullopt;
    WindowPoint middle{GetColWidth(cell.column) / 2, GetRowHeight(cell.row) / 2};
    for (int col = 1; col < cell.column; ++col) {
        if (IsInWindow({0, col})) middle.x += GetColWidth(col);
    }
    if (cell.row > 0) middle.y += GetRowHeight(0);
    for (int row = topLeft_.row; row < cell.row; ++row) middle.y += GetRowHeight(row);
    return middle;
}

int CGXGridCore::GetRowHeight(int row) const {
    const auto found = rowHeights_.find(row);
    return found == rowHeights_.end() ? kRowHeight : found->second;
}

Outcome CGXGridCore::SetCoveredCellsRowCol(int top, int left, int bottom, int right) {
    return merged_.Add(CGXRange(static_cast<std::uint32_t>(top), static_cast<std::uint32_t>(left),
                                static_cast<std::uint32_t>(bottom), static_cast<std::uint32_t>(right)));
}

// ---- styles ----

bool CGXGridCore::ChangeStandardStyle(const CGXStyle& style, StyleMode mode) {
    return styles_.ChangeStandardStyle(style, mode);
}

bool CGXGridCore::SetStyleRange(const CGXRange& range, const CGXStyle& style, StyleMode mode) {
    const auto columnsOf = [&] {
        return ColumnIds(columns_, static_cast<int>(std::min<std::uint32_t>(range.Left(), kMaxColumns)),
                         static_cast<int>(std::min<std::uint32_t>(range.Right(), kMaxColumns)));
    };
    if (range.GetKind() == CGXRange::Kind::Table) return styles_.SetStyleRange(StyleTarget::Table(), style, mode);
    if (range.GetKind() == CGXRange::Kind::Cols) {
        return styles_.SetStyleRange(StyleTarget::Columns(columnsOf()), style, mode);
    }
    std::vector<std::uint32_t> rows;
    const CGXRange cells = range.Expanded(static_cast<std::uint32_t>(GetRowCount()),
                                          static_cast<std::uint32_t>(std::max(GetColCount(), 1)), 0, 0);
    for (std::uint32_t row = std::max(cells.Top(), 1u); !cells.IsEmpty() && row <= cells.Bottom(); ++row) {
        rows.push_back(RowIdAt(static_cast<int>(row)));
    }
    if (range.GetKind() == CGXRange::Kind::Rows) return styles_.SetStyleRange(StyleTarget::Rows(rows), style, mode);
    const std::vector<std::uint32_t> ids = columnsOf();
    bool changed = styles_.SetStyleRange(StyleTarget::Cells(rows, ids), style, mode);
    if (cells.IsEmpty() || cells.Top() > 0) return changed;
    for (const std::uint32_t id : ids) changed = styles_.SetHeaderCellStyle(0, id, style, mode) || changed;
    return changed;
}

const CGXStyle& CGXGridCore::StyleOf(int row, int col) const {
    const auto id = static_cast<std::uint32_t>(IdOfColumn(col));
    if (row == 0) return styles_.ResolveHeader(0, id);
    const CGXStyle& style = styles_.Resolve(RowIdAt(row), id);
    if (!HasStyleHook()) return style;
    hooked_ = style;
    GetStyleRowCol(row, col, hooked_);
    return hooked_;
}

void CGXGridCore::ChangeState(int row, int col, const CGXStyle& style) {
    const auto id = static_cast<std::uint32_t>(IdOfColumn(col));
    if (row == 0) {
        styles_.SetStyleRange(StyleTarget::Columns({&id, 1}), style);
    } else {
        styles_.SetCellStyle(RowIdAt(row), id, style);
    }
}

void CGXGridCore::SetReadOnly(int row, int col, bool readOnly) {
    ChangeState(row, col, CGXStyle().SetReadOnly(readOnly));
}

void CGXGridCore::SetEnable(int row, int col, bool enabled) { ChangeState(row, col, CGXStyle().SetEnabled(enabled)); }

bool CGXGridCore::IsEnabled(int row, int col) const {
    return !columns_.IsLocked(IdOfColumn(col)) && StyleOf(row, col).GetEnabled();
}

bool CGXGridCore::IsReadOnly(int row, int col) const { return StyleOf(row, col).GetReadOnly(); }

void CGXGridCore::ApplyStyleOK(int row, int col) {
    ChangeState(row, col, CGXStyle().SetBold(false).SetTextColor(kColorOK));
}

void CGXGridCore::ApplyStyleNG(int row, int col) {
    ChangeState(row, col, CGXStyle().SetBold(true).SetTextColor(kColorNG));
}

void CGXGridCore::SetChoiceList(int row, int col, std::string_view lines) {
    ChangeState(row, col, CGXStyle().SetChoiceList(lines));
}

void CGXGridCore::SetStyleRangeCheckListComboBox(const CGXRange& range, std::string_view lines) {
    SetStyleRange(range, CGXStyle().SetControl(ControlKind::CheckListComboBox).SetChoiceList(lines));
}

// ---- lock and redraw ----

bool CGXGridCore::LockUpdate(bool lock) { return std::exchange(locked_, lock); }

void CGXGridCore::Redraw() {
    if (locked_) return;
    ++redraws_;
    OnRedrawn();
}

// ---- current cell and selection ----

bool CGXGridCore::SetCurrentCell(int row, int col, int flags) {
    const GridPosition position{row, col};
    if (row < 1 || row > RowCount() || col < 1 || col > GetColCount() || !CanEnter(position)) return false;
    if (flags == kRebuildControl && current_.Position(*this) == position) return true;
    current_.Set(*this, position);
    if (!selection_.IsEmpty()) {
        selection_.Clear();
        OnChangedSelection();
    }
    return true;
}

bool CGXGridCore::GetCurrentCell(int& row, int& col) const {
    const GridPosition position = current_.Position(*this);
    row = position.row;
    col = position.column;
    return position.IsValid();
}

CellId CGXGridCore::CurrentCellId() const {
    const GridPosition position = current_.Position(*this);
    return position.IsValid() ? CellId{RowIdAt(position.row), IdOfColumn(position.column)} : CellId{};
}

bool CGXGridCore::EnterNearest(int row, int col, int step) {
    if (row < 1 || row > RowCount()) return false;
    for (int at = std::clamp(col, 1, std::max(GetColCount(), 1)); at >= 1 && at <= GetColCount(); at += step) {
        if (CanEnter({row, at})) return SetCurrentCell(row, at);
    }
    return false;
}

bool CGXGridCore::SetLeftValidCell(int row, int col) { return EnterNearest(row, col, -1); }

bool CGXGridCore::SetRightValidCell(int row, int col) { return EnterNearest(row, col, 1); }

void CGXGridCore::ExtendSelection(GridPosition position) {
    current_.Extend(*this, position);
    selection_.Select(PositionRange::Of(current_.Position(*this), position));
    OnChangedSelection();
}

void CGXGridCore::SelectRange(PositionRange range) {
    selection_.Select(range);
    OnChangedSelection();
}

void CGXGridCore::AddRange(PositionRange range) {
    selection_.Add(range);
    OnChangedSelection();
}

void CGXGridCore::ClearSelection() {
    selection_.Clear();
    OnChangedSelection();
}

bool CGXGridCore::HasSeveralRanges() const { return selection_.Ranges().size() > 1; }

PositionRange CGXGridCore::CommandRange() const {
    if (!selection_.IsEmpty()) {
        PositionRange range = selection_.Ranges().back();
        range.bottom = std::min(range.bottom, RowCount());
        range.right = std::min(range.right, GetColCount());
        return range;
    }
    const GridPosition position = current_.Position(*this);
    if (!position.IsValid()) return {1, 1, 0, 0};
    return PositionRange::Of(position, position);
}

// ---- what moving about needs to know ----

bool CGXGridCore::IsColumnHidden(int column) const { return columns_.IsHidden(IdOfColumn(column)); }

bool CGXGridCore::CanEnter(GridPosition position) const {
    return !IsColumnHidden(position.column) && IsEnabled(position.row, position.column);
}

bool CGXGridCore::HasText(GridPosition position) const {
    return !GetValueRowCol(position.row, position.column).empty();
}

int CGXGridCore::PositionOfColumn(ColumnId column) const {
    int number = 0;
    columns_.GetColumnNoFor(column, number);
    return number;
}

}  // namespace velda
