#pragma once

#include <string>
#include <vector>

#include "velda_util/style/gx_range.h"

namespace velda {

/// A title in the header of a result grid.
struct HeaderTitle {
    std::string text{};
    int unitKind = 0;
};

/// The header of a result grid: titles in rows and columns from 1, and groups that lay one title over several cells.
/// Cells out of range throw std::invalid_argument.
class CTBColHdr {
public:
    /// Starts anew with empty titles.
    void SetRowColCount(int rows, int cols);
    void SetTitle(int row, int col, std::string text, int unitKind);
    /// Joins cells under a title.
    void SetGroup(int top, int left, int bottom, int right, std::string text);

    int RowCount() const { return rows_; }
    int ColCount() const { return cols_; }
    const HeaderTitle& At(int row, int col) const { return titles_.at(Index(row, col)); }
    /// The title of a cell without its unit.
    const std::string& GetTitleString(int row, int col) const { return At(row, col).text; }

    struct Group {
        CGXRange cells;
        std::string text;
    };
    const std::vector<Group>& Groups() const { return groups_; }

private:
    std::size_t Index(int row, int col) const;

    int rows_ = 1;
    int cols_ = 0;
    std::vector<HeaderTitle> titles_;
    std::vector<Group> groups_;
};

}  // namespace velda
