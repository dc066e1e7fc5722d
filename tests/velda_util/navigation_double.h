#pragma once

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "velda_util/edit/navigation.h"

namespace velda {

/// A table drawn with a sign for each cell: x text, . empty, # disabled and empty, D disabled with text. The row at
/// position n has the id 10 n, the column at position n the id n - 1, unless a test moves them.
class GridDouble : public NavigationSpace {
public:
    explicit GridDouble(std::vector<std::string> lines) : lines_(std::move(lines)) {
        for (std::size_t row = 0; row < lines_.size(); ++row) rows.push_back(static_cast<RowId>(10 * (row + 1)));
        for (int column = 0; column < ColumnCount(); ++column) columns.push_back(column);
    }

    int RowCount() const override { return static_cast<int>(rows.size()); }
    bool HasAppendRow() const override { return appendRow; }
    int ColumnCount() const override { return lines_.empty() ? 0 : static_cast<int>(lines_.front().size()); }
    bool IsColumnHidden(int column) const override { return hidden.contains(column); }
    bool CanEnter(GridPosition position) const override { return Sign(position) == 'x' || Sign(position) == '.'; }
    bool HasText(GridPosition position) const override { return Sign(position) == 'x' || Sign(position) == 'D'; }
    int PageRows() const override { return pageRows; }
    RowId RowIdAt(int row) const override { return rows.at(static_cast<std::size_t>(row - 1)); }
    int PositionOfRow(RowId row) const override { return PositionIn(rows, row); }
    ColumnId ColumnIdAt(int column) const override { return columns.at(static_cast<std::size_t>(column - 1)); }
    int PositionOfColumn(ColumnId column) const override { return PositionIn(columns, column); }

    std::vector<RowId> rows;
    std::vector<ColumnId> columns;
    std::set<int> hidden;
    bool appendRow = false;
    int pageRows = 10;

private:
    char Sign(GridPosition p) const {
        return lines_.at(static_cast<std::size_t>(p.row - 1)).at(static_cast<std::size_t>(p.column - 1));
    }
    template <class Id>
    static int PositionIn(const std::vector<Id>& ids, Id id) {
        for (std::size_t i = 0; i < ids.size(); ++i) {
            if (ids[i] == id) return static_cast<int>(i + 1);
        }
        return 0;
    }

    std::vector<std::string> lines_;
};

}  // namespace velda
