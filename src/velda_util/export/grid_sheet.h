#pragma once

#include "velda_util/export/sheet.h"
#include "velda_util/grid/tb_grid.h"

namespace velda {

/// The rows and shown columns of a grid as a sheet. The append row is left out. The grid must outlive the sheet and not
/// change meanwhile.
///
/// Numbers of numeric cells are numbers, shown with the places of a fixed format; what stands in a text cell is a text,
/// also when it reads as a number. A key is given by its listed name. Check boxes are checked or not.
class GridSheet final : public Sheet {
public:
    GridSheet(const CTBGrid& grid, std::string name);

    const std::string& Name() const override { return name_; }
    std::uint32_t RowCount() const override { return headerRows_ + dataRows_; }
    std::uint32_t ColumnCount() const override { return static_cast<std::uint32_t>(cols_.size()); }
    std::uint32_t HeaderRowCount() const override { return headerRows_; }
    std::uint32_t FrozenColumnCount() const override;
    int ColumnWidth(std::uint32_t col) const override { return grid_.GetColWidth(cols_[col]); }
    int HeaderRowHeight() const override;
    std::vector<SheetMerge> Merges() const override;
    void ReadCell(std::uint32_t row, std::uint32_t col, SheetCell& cell) const override;

private:
    void ReadHeaderCell(std::uint32_t row, std::uint32_t col, SheetCell& cell) const;
    void ReadDataCell(int row, int col, SheetCell& cell) const;
    void AddDataMerge(const CGXRange& range);
    /// The first shown grid column of a merge.
    int FirstShown(const CGXRange& range) const;

    const CTBGrid& grid_;
    std::string name_;
    std::vector<int> cols_;  ///< grid columns that are shown, in their order
    std::uint32_t headerRows_ = 0;
    std::uint32_t dataRows_ = 0;
    std::vector<HeaderSpan> spans_;
    std::vector<SheetMerge> dataMerges_;
};

}  // namespace velda
