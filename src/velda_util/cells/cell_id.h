#pragma once

#include <cstdint>

namespace velda {

/// A row by its stable id: positions change, ids do not.
using RowId = std::uint32_t;
/// A column by its id, counted from 0: the order of declaration, whatever order the user sees.
using ColumnId = int;

inline constexpr RowId kNoRow = 0xFFFFFFFFu;
inline constexpr ColumnId kNoColumn = -1;

/// A cell that stays the same cell when rows are inserted or columns are moved.
struct CellId {
    RowId row = kNoRow;
    ColumnId column = kNoColumn;

    constexpr bool operator==(const CellId&) const = default;
};

}  // namespace velda
