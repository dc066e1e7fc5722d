#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "velda_util/export/sheet.h"
#include "velda_util/grid/tb_grid.h"

namespace velda {

/// A grid of texts, column ids from 0.
class TextGrid : public CTBGrid {
public:
    /// Adds a column of a type, with the styles that tables give columns of it.
    void AddColumn(const std::string& title, ColumnType type = ColumnType::Double) {
        const int id = columns_.AddColInfo(title, type, 0);
        header_.SetTitle(header_.RowCount() - 1, static_cast<std::uint32_t>(id), title);
        const ValueType value = type == ColumnType::String ? ValueType::String : ValueType::Numeric;
        StyleColumn(id + 1, CGXStyle().SetValueType(value));
    }
    void StyleColumn(int col, const CGXStyle& style) {
        SetStyleRange(CGXRange().SetCols(static_cast<std::uint32_t>(col)), style);
    }
    void AddRow(std::vector<std::string> texts) { rows_.push_back(std::move(texts)); }
    void SetAppendRow(bool append) { append_ = append; }

    int GetRowCount() const override { return static_cast<int>(rows_.size()); }
    int RowCount() const override { return GetRowCount(); }
    bool HasAppendRow() const override { return append_; }
    RowId RowIdAt(int row) const override { return static_cast<RowId>(row); }
    int PositionOfRow(RowId row) const override { return static_cast<int>(row); }
    std::string GetValueRowCol(int row, int col) const override {
        return rows_.at(static_cast<std::size_t>(row - 1)).at(static_cast<std::size_t>(IdOfColumn(col)));
    }

private:
    std::vector<std::vector<std::string>> rows_;
    bool append_ = false;
};

/// A sheet of a given size whose cells are made as they are read.
class MadeSheet : public Sheet {
public:
    using Make = std::function<void(std::uint32_t row, std::uint32_t col, SheetCell& cell)>;
    MadeSheet(std::string name, std::uint32_t rows, std::uint32_t columns, Make make = nullptr)
        : name_(std::move(name)), rows_(rows), columns_(columns), make_(std::move(make)) {}

    const std::string& Name() const override { return name_; }
    std::uint32_t RowCount() const override { return rows_; }
    std::uint32_t ColumnCount() const override { return columns_; }
    std::uint32_t HeaderRowCount() const override { return 1; }
    std::uint32_t FrozenColumnCount() const override { return 0; }
    int ColumnWidth(std::uint32_t) const override { return 64; }
    int HeaderRowHeight() const override { return 20; }
    std::vector<SheetMerge> Merges() const override { return {}; }
    void ReadCell(std::uint32_t row, std::uint32_t col, SheetCell& cell) const override {
        cell.kind = SheetCell::Kind::Number;
        cell.number = row * 100.0 + col;
        cell.look = SheetLook{};
        if (make_) make_(row, col, cell);
    }

private:
    std::string name_;
    std::uint32_t rows_;
    std::uint32_t columns_;
    Make make_;
};

}  // namespace velda
