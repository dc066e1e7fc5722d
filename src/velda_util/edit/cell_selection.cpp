#include "velda_util/edit/cell_selection.h"

namespace velda {
namespace {

/// Sorts spans, cuts them at `count` and joins those that meet.
std::vector<PositionSpan> Joined(std::vector<PositionSpan> spans, int count) {
    std::sort(spans.begin(), spans.end());
    std::vector<PositionSpan> joined;
    for (PositionSpan span : spans) {
        span.last = std::min(span.last, count);
        if (span.first > span.last) continue;
        if (joined.empty() || span.first > joined.back().last + 1) {
            joined.push_back(span);
        } else {
            joined.back().last = std::max(joined.back().last, span.last);
        }
    }
    return joined;
}

std::vector<RowId> RecordsIn(const NavigationSpace& space, const std::vector<PositionSpan>& spans) {
    const int records = space.RowCount() - (space.HasAppendRow() ? 1 : 0);
    std::vector<RowId> ids;
    for (const PositionSpan& span : spans) {
        for (int row = span.first; row <= std::min(span.last, records); ++row) ids.push_back(space.RowIdAt(row));
    }
    return ids;
}

}  // namespace

CurrentCell::End CurrentCell::EndAt(const NavigationSpace& space, GridPosition position) {
    if (!position.IsValid()) return {};
    return {{space.RowIdAt(position.row), space.ColumnIdAt(position.column)}, position};
}

GridPosition CurrentCell::End::Position(const NavigationSpace& space) const {
    if (!place.IsValid()) return {};
    const int row = space.PositionOfRow(cell.row);
    // The row is gone, or it is the append row and not shown any more.
    const GridPosition now{std::min(row > 0 ? row : place.row, space.RowCount()), space.PositionOfColumn(cell.column)};
    return now.IsValid() ? now : GridPosition{};
}

void CurrentCell::Set(const NavigationSpace& space, GridPosition position) {
    anchor_ = EndAt(space, position);
    extent_ = anchor_;
}

void CurrentCell::Extend(const NavigationSpace& space, GridPosition position) { extent_ = EndAt(space, position); }

void CurrentCell::RowReplaced(RowId from, RowId to) {
    for (End* end : {&anchor_, &extent_}) {
        if (end->cell.row == from) end->cell.row = to;
    }
}

void CellSelection::ReplaceLast(PositionRange range) {
    if (!ranges_.empty()) ranges_.pop_back();
    ranges_.push_back(range);
}

void CellSelection::SelectRows(const NavigationSpace& space, std::span<const RowId> rows) {
    std::vector<PositionSpan> spans;
    spans.reserve(rows.size());
    for (const RowId row : rows) {
        if (const int position = space.PositionOfRow(row); position > 0) spans.push_back({position, position});
    }
    ranges_.clear();
    for (const PositionSpan& span : Joined(std::move(spans), space.RowCount())) {
        ranges_.push_back(PositionRange::Rows(span.first, span.last));
    }
}

bool CellSelection::Contains(GridPosition position) const {
    return std::any_of(ranges_.begin(), ranges_.end(),
                       [position](const PositionRange& range) { return range.Contains(position); });
}

bool CellSelection::IsOfRows() const {
    return !ranges_.empty() && std::all_of(ranges_.begin(), ranges_.end(),
                                           [](const PositionRange& range) { return range.HoldsWholeRows(); });
}

bool CellSelection::IsOfColumns() const {
    return !ranges_.empty() && std::all_of(ranges_.begin(), ranges_.end(),
                                           [](const PositionRange& range) { return range.HoldsWholeColumns(); });
}

std::vector<PositionSpan> CellSelection::WholeRows(const NavigationSpace& space) const {
    std::vector<PositionSpan> spans;
    for (const PositionRange& range : ranges_) {
        if (range.HoldsWholeRows()) spans.push_back({range.top, range.bottom});
    }
    return Joined(std::move(spans), space.RowCount());
}

std::vector<PositionSpan> CellSelection::TouchedRows(const NavigationSpace& space) const {
    std::vector<PositionSpan> spans;
    for (const PositionRange& range : ranges_) spans.push_back({range.top, range.bottom});
    return Joined(std::move(spans), space.RowCount());
}

std::vector<PositionSpan> CellSelection::TouchedColumns(const NavigationSpace& space) const {
    std::vector<PositionSpan> spans;
    for (const PositionRange& range : ranges_) spans.push_back({range.left, range.right});
    return Joined(std::move(spans), space.ColumnCount());
}

std::vector<RowId> CellSelection::WholeRowIds(const NavigationSpace& space) const {
    return RecordsIn(space, WholeRows(space));
}

std::vector<RowId> CellSelection::TouchedRowIds(const NavigationSpace& space) const {
    return RecordsIn(space, TouchedRows(space));
}

}  // namespace velda
