#include "velda_util/style/gx_range.h"

#include <algorithm>
#include <stdexcept>

namespace velda {

CGXRange& CGXRange::SetCells(Index top, Index left, Index bottom, Index right) {
    top_ = std::min(top, bottom);
    bottom_ = std::max(top, bottom);
    left_ = std::min(left, right);
    right_ = std::max(left, right);
    return *this;
}

CGXRange::Kind CGXRange::GetKind() const {
    if (IsEmpty()) return Kind::Empty;
    const bool allRows = top_ == 0 && bottom_ == kEnd;
    const bool allCols = left_ == 0 && right_ == kEnd;
    if (allRows) return allCols ? Kind::Table : Kind::Cols;
    return allCols ? Kind::Rows : Kind::Cells;
}

CGXRange CGXRange::Expanded(Index lastRow, Index lastCol, Index firstRow, Index firstCol) const {
    if (lastRow < firstRow || lastCol < firstCol) return {};
    return Intersection({firstRow, firstCol, lastRow, lastCol});
}

CGXRange CGXRange::Intersection(const CGXRange& other) const {
    const Index top = std::max(top_, other.top_);
    const Index bottom = std::min(bottom_, other.bottom_);
    const Index left = std::max(left_, other.left_);
    const Index right = std::min(right_, other.right_);
    if (IsEmpty() || other.IsEmpty() || top > bottom || left > right) return {};
    return {top, left, bottom, right};
}

CGXRange CGXRange::UnionOfBounds(const CGXRange& other) const {
    if (IsEmpty()) return other;
    if (other.IsEmpty()) return *this;
    return {std::min(top_, other.top_), std::min(left_, other.left_), std::max(bottom_, other.bottom_),
            std::max(right_, other.right_)};
}

std::uint64_t CGXRange::CellCount() const {
    RequireBounded();
    if (IsEmpty()) return 0;
    return (std::uint64_t{bottom_} - top_ + 1) * (std::uint64_t{right_} - left_ + 1);
}

CGXRange::Iterator CGXRange::begin() const {
    RequireBounded();
    if (IsEmpty()) return end();
    return {{top_, left_}, left_, right_};
}

CGXRange::Iterator CGXRange::end() const {
    RequireBounded();
    return {{bottom_ + 1, left_}, left_, right_};
}

void CGXRange::RequireBounded() const {
    if (!IsBounded()) throw std::invalid_argument("a range without an end has to be expanded to a grid first");
}

}  // namespace velda
