#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <vector>

#include "velda_lib/outcome.h"
#include "velda_util/style/gx_range.h"

namespace velda {

/// Rectangles of cells that are shown as one, by their positions in the grid. No two of them overlap.
class MergedCells {
public:
    /// Merges the cells of a range that has been expanded to the grid (throws std::invalid_argument for another).
    /// Refused when it overlaps a merge, unless it is the same one. One cell alone needs no merge, and none is kept.
    Outcome Add(const CGXRange& cells);
    /// Undoes the merge that covers a cell; false when there is none.
    bool Remove(std::uint32_t row, std::uint32_t col);
    /// The merge that covers a cell, in time logarithmic in the number of merges.
    std::optional<CGXRange> Find(std::uint32_t row, std::uint32_t col) const;

    /// Rows come in before `row`: merges from there on move down, a merge that reaches across it grows.
    void InsertRows(std::uint32_t row, std::uint32_t count);
    /// Rows from `row` on go: merges below move up, merges in part among them shrink, and go when one cell or none is
    /// left.
    void RemoveRows(std::uint32_t row, std::uint32_t count);
    void Clear() { columns_.clear(); }

    std::size_t Count() const;
    /// All merges, by column and row of their first cell.
    std::vector<CGXRange> All() const;

private:
    /// The merges that cover one column, by row: each stands in every column that it covers.
    using Column = std::vector<CGXRange>;

    std::optional<CGXRange> FirstOverlap(const CGXRange& cells) const;
    /// Gives every merge new rows; those for which `shift` returns no range go.
    template <class Shift>
    void ShiftAll(Shift shift);

    std::map<std::uint32_t, Column> columns_;
};

}  // namespace velda
