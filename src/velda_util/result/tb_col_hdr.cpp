#include "velda_util/result/tb_col_hdr.h"

#include <stdexcept>

namespace velda {

void CTBColHdr::SetRowColCount(int rows, int cols) {
    if (rows < 1 || cols < 0) throw std::invalid_argument("a header needs a row");
    rows_ = rows;
    cols_ = cols;
    titles_.assign(static_cast<std::size_t>(rows) * static_cast<std::size_t>(cols), {});
    groups_.clear();
}

std::size_t CTBColHdr::Index(int row, int col) const {
    if (row < 1 || row > rows_ || col < 1 || col > cols_) throw std::invalid_argument("no such cell in the header");
    return static_cast<std::size_t>((row - 1) * cols_ + col - 1);
}

void CTBColHdr::SetTitle(int row, int col, std::string text, int unitKind) {
    titles_[Index(row, col)] = {std::move(text), unitKind};
}

void CTBColHdr::SetGroup(int top, int left, int bottom, int right, std::string text) {
    static_cast<void>(Index(top, left));
    static_cast<void>(Index(bottom, right));
    const auto index = [](int at) { return static_cast<CGXRange::Index>(at); };
    groups_.push_back({CGXRange(index(top), index(left), index(bottom), index(right)), std::move(text)});
}

}  // namespace velda
