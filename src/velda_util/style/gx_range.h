#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>

namespace velda {

/// No table has as many columns.
inline constexpr std::uint32_t kMaxColumns = 65536;

/// A cell by its position in the grid.
struct CellPosition {
    std::uint32_t row = 0;
    std::uint32_t col = 0;
    friend bool operator==(const CellPosition&, const CellPosition&) = default;
};

/// A rectangle of grid positions: cells, whole rows, whole columns or the whole table. Row and column 0 are the
/// headers. Whole rows and columns have no end until the range is expanded to the size of a grid. A new range is empty.
class CGXRange {
public:
    using Index = std::uint32_t;
    /// The last row or column of a range that has no end in that direction.
    static constexpr Index kEnd = std::numeric_limits<Index>::max();
    enum class Kind { Empty, Cells, Rows, Cols, Table };
    class Iterator;

    CGXRange() = default;
    CGXRange(Index row, Index col) { SetCells(row, col); }
    CGXRange(Index top, Index left, Index bottom, Index right) { SetCells(top, left, bottom, right); }

    CGXRange& SetCells(Index row, Index col) { return SetCells(row, col, row, col); }
    /// The corners may be given in any order; so may the ends below.
    CGXRange& SetCells(Index top, Index left, Index bottom, Index right);
    CGXRange& SetRows(Index row) { return SetRows(row, row); }
    CGXRange& SetRows(Index first, Index last) { return SetCells(first, 0, last, kEnd); }
    CGXRange& SetCols(Index col) { return SetCols(col, col); }
    CGXRange& SetCols(Index first, Index last) { return SetCells(0, first, kEnd, last); }
    CGXRange& SetTable() { return SetCells(0, 0, kEnd, kEnd); }

    Index Top() const { return top_; }
    Index Left() const { return left_; }
    Index Bottom() const { return bottom_; }
    Index Right() const { return right_; }
    Kind GetKind() const;
    bool IsEmpty() const { return top_ > bottom_; }
    /// The range ends in both directions, so that its cells can be walked.
    bool IsBounded() const { return bottom_ != kEnd && right_ != kEnd; }
    bool Contains(Index row, Index col) const { return top_ <= row && row <= bottom_ && left_ <= col && col <= right_; }

    /// The cells of the range in a grid whose last row and column are given. Headers are left out unless the first ones
    /// are 0.
    CGXRange Expanded(Index lastRow, Index lastCol, Index firstRow = 1, Index firstCol = 1) const;
    /// What both ranges cover; may be empty.
    CGXRange Intersection(const CGXRange& other) const;
    bool Intersects(const CGXRange& other) const { return !Intersection(other).IsEmpty(); }
    /// The smallest range that covers both.
    CGXRange UnionOfBounds(const CGXRange& other) const;
    /// Number of cells of a bounded range. Throws std::invalid_argument for another.
    std::uint64_t CellCount() const;

    /// Walks the cells of a bounded range row by row. Throws std::invalid_argument for another.
    Iterator begin() const;
    Iterator end() const;

    friend bool operator==(const CGXRange&, const CGXRange&) = default;

private:
    void RequireBounded() const;

    Index top_ = 1;
    Index left_ = 1;
    Index bottom_ = 0;
    Index right_ = 0;
};

class CGXRange::Iterator {
public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = CellPosition;
    using difference_type = std::ptrdiff_t;
    using pointer = const CellPosition*;
    using reference = const CellPosition&;

    Iterator() = default;
    Iterator(CellPosition at, Index left, Index right) : at_(at), left_(left), right_(right) {}

    reference operator*() const { return at_; }
    pointer operator->() const { return &at_; }
    Iterator& operator++() {
        if (at_.col < right_) {
            ++at_.col;
        } else {
            at_ = {at_.row + 1, left_};
        }
        return *this;
    }
    Iterator operator++(int) {
        Iterator before = *this;
        ++*this;
        return before;
    }
    friend bool operator==(const Iterator& a, const Iterator& b) { return a.at_ == b.at_; }

private:
    CellPosition at_;
    Index left_ = 0;
    Index right_ = 0;
};

}  // namespace velda
