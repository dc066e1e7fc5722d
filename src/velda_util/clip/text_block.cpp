#include "velda_util/clip/text_block.h"

#include <algorithm>
#include <stdexcept>

namespace velda {

TextBlock::TextBlock(std::initializer_list<std::initializer_list<std::string_view>> rows) {
    for (const auto& row : rows) {
        for (const std::string_view text : row) AddCell(text);
        EndRow();
    }
}

void TextBlock::AddCell(std::string_view text) {
    AppendToCell(text);
    EndCell();
}

void TextBlock::EndRow() {
    const std::size_t first = rowEnds_.empty() ? 0 : rowEnds_.back();
    if (cellEnds_.size() == first) EndCell();
    width_ = std::max(width_, cellEnds_.size() - first);
    rowEnds_.push_back(cellEnds_.size());
}

std::size_t TextBlock::CellsInRow(std::size_t row) const {
    if (row >= RowCount()) throw std::invalid_argument("no such row in the block");
    return rowEnds_[row] - FirstCell(row);
}

std::string_view TextBlock::Cell(std::size_t row, std::size_t column) const {
    if (column >= CellsInRow(row)) throw std::invalid_argument("no such cell in the block");
    const std::size_t cell = FirstCell(row) + column;
    return std::string_view(bytes_).substr(FirstByte(cell), cellEnds_[cell] - FirstByte(cell));
}

bool TextBlock::IsEmptyRow(std::size_t row) const {
    const std::size_t count = CellsInRow(row);
    return FirstByte(FirstCell(row)) == cellEnds_[FirstCell(row) + count - 1];
}

}  // namespace velda
