#include "velda_util/edit/navigation.h"

#include <algorithm>

namespace velda {
namespace {

constexpr GridPosition kNowhere;

constexpr bool IsVertical(Direction direction) { return direction == Direction::Up || direction == Direction::Down; }

bool IsInside(const NavigationSpace& space, GridPosition position) {
    return position.IsValid() && position.row <= space.RowCount() && position.column <= space.ColumnCount();
}

bool CanStandIn(const NavigationSpace& space, GridPosition position) {
    return !space.IsColumnHidden(position.column) && space.CanEnter(position);
}

/// The neighbour in a direction, hidden columns passed over; nowhere beyond the edge.
GridPosition Beside(const NavigationSpace& space, GridPosition position, Direction direction) {
    const int step = direction == Direction::Up || direction == Direction::Left ? -1 : 1;
    do {
        (IsVertical(direction) ? position.row : position.column) += step;
        if (!IsInside(space, position)) return kNowhere;
    } while (!IsVertical(direction) && space.IsColumnHidden(position.column));
    return position;
}

/// The first cell that can be entered from `position` on, itself included; nowhere beyond `last`.
GridPosition FirstEnterable(const NavigationSpace& space, GridPosition position, Direction direction,
                            GridPosition last = kNowhere) {
    while (position.IsValid() && position != last) {
        if (CanStandIn(space, position)) return position;
        position = Beside(space, position, direction);
    }
    return kNowhere;
}

GridPosition Or(GridPosition position, GridPosition otherwise) { return position.IsValid() ? position : otherwise; }

GridPosition FirstOfRow(const NavigationSpace& space, int row) {
    return FirstEnterable(space, Beside(space, {row, 0}, Direction::Right), Direction::Right);
}
GridPosition LastOfRow(const NavigationSpace& space, int row) {
    return FirstEnterable(space, Beside(space, {row, space.ColumnCount() + 1}, Direction::Left), Direction::Left);
}

GridPosition FirstFromRow(const NavigationSpace& space, int row) {
    for (; row <= space.RowCount(); ++row) {
        if (const GridPosition found = FirstOfRow(space, row); found.IsValid()) return found;
    }
    return kNowhere;
}
GridPosition LastFromRow(const NavigationSpace& space, int row) {
    for (; row > 0; --row) {
        if (const GridPosition found = LastOfRow(space, row); found.IsValid()) return found;
    }
    return kNowhere;
}

GridPosition NextCell(const NavigationSpace& space, GridPosition from) {
    const GridPosition inRow = FirstEnterable(space, Beside(space, from, Direction::Right), Direction::Right);
    return Or(Or(inRow, FirstFromRow(space, from.row + 1)), from);
}
GridPosition PreviousCell(const NavigationSpace& space, GridPosition from) {
    const GridPosition inRow = FirstEnterable(space, Beside(space, from, Direction::Left), Direction::Left);
    return Or(Or(inRow, LastFromRow(space, from.row - 1)), from);
}

GridPosition Adjacent(const NavigationSpace& space, GridPosition from, Direction direction) {
    return Or(FirstEnterable(space, Beside(space, from, direction), direction), from);
}

constexpr Direction Opposite(Direction direction) {
    switch (direction) {
        case Direction::Up: return Direction::Down;
        case Direction::Down: return Direction::Up;
        case Direction::Left: return Direction::Right;
        case Direction::Right: break;
    }
    return Direction::Left;
}

/// The cell nearest to `target` that can be entered, looked for back towards `from`.
GridPosition BackTowards(const NavigationSpace& space, GridPosition target, GridPosition from, Direction direction) {
    return Or(FirstEnterable(space, target, Opposite(direction), from), from);
}

GridPosition PageAway(const NavigationSpace& space, GridPosition from, Direction direction) {
    const int page = std::max(1, space.PageRows());
    const int row = direction == Direction::Up
                        ? std::max(1, from.row - page)
                        : static_cast<int>(std::min<std::int64_t>(space.RowCount(), std::int64_t{from.row} + page));
    return {row, from.column};
}

GridPosition Page(const NavigationSpace& space, GridPosition from, Direction direction) {
    const GridPosition target = PageAway(space, from, direction);
    const GridPosition found = BackTowards(space, target, from, direction);
    return found != from ? found : Adjacent(space, from, direction);
}

GridPosition Edge(const NavigationSpace& space, GridPosition from, Direction direction) {
    return BackTowards(space, space.DataEdge(from, direction), from, direction);
}

/// The last column that is not hidden, from an end of the row on; nowhere when all are hidden.
GridPosition VisibleEnd(const NavigationSpace& space, int row, Direction towards) {
    return towards == Direction::Left ? Beside(space, {row, 0}, Direction::Right)
                                      : Beside(space, {row, space.ColumnCount() + 1}, Direction::Left);
}

}  // namespace

GridPosition NavigationSpace::DataEdge(GridPosition from, Direction direction) const {
    GridPosition at = from;
    GridPosition next = Beside(*this, at, direction);
    const bool inRun = HasText(from) && next.IsValid() && HasText(next);
    while (next.IsValid() && (inRun ? HasText(next) : true)) {
        at = next;
        if (!inRun && HasText(at)) break;
        next = Beside(*this, at, direction);
    }
    return at;
}

GridPosition Navigate(const NavigationSpace& space, GridPosition from, NavigationStep step) {
    if (!IsInside(space, from)) return FirstFromRow(space, 1);
    switch (step) {
        case NavigationStep::Up: return Adjacent(space, from, Direction::Up);
        case NavigationStep::Down: return Adjacent(space, from, Direction::Down);
        case NavigationStep::Left: return Adjacent(space, from, Direction::Left);
        case NavigationStep::Right: return Adjacent(space, from, Direction::Right);
        case NavigationStep::EdgeUp: return Edge(space, from, Direction::Up);
        case NavigationStep::EdgeDown: return Edge(space, from, Direction::Down);
        case NavigationStep::EdgeLeft: return Edge(space, from, Direction::Left);
        case NavigationStep::EdgeRight: return Edge(space, from, Direction::Right);
        case NavigationStep::RowStart: return Or(FirstOfRow(space, from.row), from);
        case NavigationStep::RowEnd: return Or(LastOfRow(space, from.row), from);
        case NavigationStep::PageUp: return Page(space, from, Direction::Up);
        case NavigationStep::PageDown: return Page(space, from, Direction::Down);
        case NavigationStep::TableStart: return Or(FirstFromRow(space, 1), from);
        case NavigationStep::TableEnd: return Or(LastFromRow(space, space.RowCount()), from);
        case NavigationStep::Next: return NextCell(space, from);
        case NavigationStep::Previous: return PreviousCell(space, from);
    }
    return from;
}

GridPosition ExtendTo(const NavigationSpace& space, GridPosition from, NavigationStep step) {
    if (!IsInside(space, from)) return kNowhere;
    switch (step) {
        case NavigationStep::Up: return Or(Beside(space, from, Direction::Up), from);
        case NavigationStep::Down: return Or(Beside(space, from, Direction::Down), from);
        case NavigationStep::Left: return Or(Beside(space, from, Direction::Left), from);
        case NavigationStep::Right: return Or(Beside(space, from, Direction::Right), from);
        case NavigationStep::EdgeUp: return space.DataEdge(from, Direction::Up);
        case NavigationStep::EdgeDown: return space.DataEdge(from, Direction::Down);
        case NavigationStep::EdgeLeft: return space.DataEdge(from, Direction::Left);
        case NavigationStep::EdgeRight: return space.DataEdge(from, Direction::Right);
        case NavigationStep::RowStart: return Or(VisibleEnd(space, from.row, Direction::Left), from);
        case NavigationStep::RowEnd: return Or(VisibleEnd(space, from.row, Direction::Right), from);
        case NavigationStep::PageUp: return PageAway(space, from, Direction::Up);
        case NavigationStep::PageDown: return PageAway(space, from, Direction::Down);
        case NavigationStep::TableStart: return Or(VisibleEnd(space, 1, Direction::Left), from);
        case NavigationStep::TableEnd: return Or(VisibleEnd(space, space.RowCount(), Direction::Right), from);
        case NavigationStep::Next:
        case NavigationStep::Previous: break;
    }
    return from;
}

GridPosition EnterDown(const NavigationSpace& space, GridPosition from, int column) {
    if (!IsInside(space, from)) return FirstFromRow(space, 1);
    const bool known = IsInside(space, {from.row, column}) && !space.IsColumnHidden(column);
    const GridPosition start{from.row, known ? column : from.column};
    const GridPosition below = FirstEnterable(space, Beside(space, start, Direction::Down), Direction::Down);
    if (below.IsValid()) return below;
    return CanStandIn(space, start) ? start : from;
}

}  // namespace velda
