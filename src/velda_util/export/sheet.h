#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "velda_util/style/gx_style.h"

namespace velda {

/// A rectangle of cells of a sheet that are shown as one; rows and columns from 0.
struct SheetMerge {
    std::uint32_t firstRow = 0;
    std::uint32_t lastRow = 0;
    std::uint32_t firstCol = 0;
    std::uint32_t lastCol = 0;
    friend bool operator==(const SheetMerge&, const SheetMerge&) = default;
};

/// How a cell of a sheet looks.
struct SheetLook {
    /// Decimal places of a number; without them a number is shown as it is.
    std::optional<std::uint8_t> places;
    bool isHeader = false;
    bool bold = false;
    bool wrap = false;
    /// Colours are blue-green-red.
    std::optional<std::uint32_t> textColor;
    std::optional<std::uint32_t> interior;
    /// Without it numbers stand at the right and texts at the left.
    std::optional<HorizontalAlignment> horizontal;
    friend bool operator==(const SheetLook&, const SheetLook&) = default;
};

/// What stands in a cell of a sheet. Reused from cell to cell.
struct SheetCell {
    enum class Kind { Empty, Number, Text, Check };
    Kind kind = Kind::Empty;
    double number = 0.0;
    bool checked = false;
    std::string text;  ///< clean UTF-8, where the kind is Text
    SheetLook look;
};

/// A table as it goes to a spreadsheet, read cell by cell. Rows and columns count from 0, header rows come first.
class Sheet {
public:
    virtual ~Sheet() = default;

    virtual const std::string& Name() const = 0;
    virtual std::uint32_t RowCount() const = 0;
    virtual std::uint32_t ColumnCount() const = 0;
    /// Header rows; they stay in view.
    virtual std::uint32_t HeaderRowCount() const = 0;
    /// Columns from the left that stay in view.
    virtual std::uint32_t FrozenColumnCount() const = 0;
    /// In pixels.
    virtual int ColumnWidth(std::uint32_t col) const = 0;
    virtual int HeaderRowHeight() const = 0;
    /// Merged cells, of the header too. The first cell of each holds what is shown, the others are empty.
    virtual std::vector<SheetMerge> Merges() const = 0;
    virtual void ReadCell(std::uint32_t row, std::uint32_t col, SheetCell& cell) const = 0;
};

}  // namespace velda
