#pragma once

#include <map>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "velda_util/clip/change_plan.h"

namespace velda {

/// A planned row in a form that tests can compare: where it goes, and its texts by column id.
struct RowView {
    int source = 0;
    int target = kNewRow;
    std::vector<std::pair<int, std::string>> cells{};

    friend bool operator==(const RowView&, const RowView&) = default;
    friend std::ostream& operator<<(std::ostream& out, const RowView& row) {
        out << row.source << "->" << row.target << ":";
        for (const auto& [column, text] : row.cells) out << " " << column << "=" << text;
        return out;
    }
};

inline std::vector<RowView> RowsOf(const ChangePlan& plan) {
    std::vector<RowView> rows;
    for (const PlannedRow& row : plan.rows.Rows()) {
        rows.push_back({row.source, row.target});
        for (const PlannedCell& cell : plan.rows.Cells(row)) {
            rows.back().cells.emplace_back(cell.column, plan.rows.Text(cell));
        }
    }
    return rows;
}

/// A table of three records and the columns with the ids 10, 11 and 12; all cells can be changed unless a test says
/// otherwise. The text of a cell tells its place.
struct PlanTestTable {
    PlanTarget target{.recordCount = 3, .columns = {{10}, {11}, {12}}};
    std::map<std::pair<int, int>, CellAccess> locked;  ///< by row and grid column
    std::map<std::pair<int, int>, std::string> texts;  ///< by row and grid column
    std::vector<std::pair<int, int>> askedOutside;     ///< cells asked for that no table of this size has

    CellAccess Access(int row, int column) {
        if (row < 1 || row > target.recordCount + 1) askedOutside.emplace_back(row, column);
        const auto found = locked.find({row, column});
        return found == locked.end() ? CellAccess::Editable : found->second;
    }
    std::string_view Text(int row, int column) {
        std::string& text = texts[{row, column}];
        if (text.empty()) text = "r" + std::to_string(row) + "c" + std::to_string(column);
        return text;
    }
};

}  // namespace velda
