#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace velda {

/// A table of texts whose rows may differ in length. The texts stand behind each other in one string, so that a block
/// of millions of cells needs no object for each. Rows and columns count from 0; each row has at least one cell.
class TextBlock {
public:
    TextBlock() = default;
    TextBlock(std::initializer_list<std::initializer_list<std::string_view>> rows);

    void AddCell(std::string_view text);
    /// A cell that is put together from parts: AppendToCell for each, then EndCell.
    void AppendToCell(std::string_view part) { bytes_ += part; }
    void EndCell() { cellEnds_.push_back(bytes_.size()); }
    /// Ends the row; a row without cells gets an empty one.
    void EndRow();

    std::size_t RowCount() const { return rowEnds_.size(); }
    std::size_t CellCount() const { return cellEnds_.size(); }
    std::size_t ByteCount() const { return bytes_.size(); }
    /// Number of cells of a row. Throws std::invalid_argument for a row that does not exist.
    std::size_t CellsInRow(std::size_t row) const;
    /// Number of cells of the longest row.
    std::size_t Width() const { return width_; }
    /// Text of a cell; the view holds until the block changes. Throws std::invalid_argument for a cell that does not
    /// exist.
    std::string_view Cell(std::size_t row, std::size_t column) const;
    /// Whether no cell of a row holds a text.
    bool IsEmptyRow(std::size_t row) const;

    friend bool operator==(const TextBlock&, const TextBlock&) = default;

private:
    std::size_t FirstCell(std::size_t row) const { return row == 0 ? 0 : rowEnds_[row - 1]; }
    std::size_t FirstByte(std::size_t cell) const { return cell == 0 ? 0 : cellEnds_[cell - 1]; }

    std::string bytes_;
    std::vector<std::size_t> cellEnds_;  ///< in bytes
    std::vector<std::size_t> rowEnds_;   ///< in cells
    std::size_t width_ = 0;
};

}  // namespace velda
