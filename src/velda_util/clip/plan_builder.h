#pragma once

#include <string_view>
#include <vector>

#include "velda_util/clip/change_plan.h"

namespace velda {

/// A visible column of a plan: where it stands and what it is.
struct TargetColumn {
    int position = 0;
    int id = 0;
};

/// The visible columns among the grid columns from `first` to `last`.
std::vector<TargetColumn> VisibleColumns(const PlanTarget& target, int first, int last);

/// Throws std::invalid_argument unless the selection is made of rows and columns of the table, its append row included.
void CheckSelection(const PlanTarget& target, const GridSelection& selection);

/// Puts a plan together row by row and applies the rule for locked cells, which is the same for every kind of plan.
class PlanBuilder {
public:
    PlanBuilder(const PlanTarget& target, CellAccessQuery access) : target_(target), access_(access) {}

    void BeginRow(int source, int row);
    /// Writes a text into a cell of the row; false when the cell takes none or the row was refused.
    bool SetCell(TargetColumn column, std::string_view text);
    /// Refuses the row for a cell of it.
    void Refuse(int column, std::string_view text, std::string_view reasonKey);
    /// A row that was refused, or in which nothing remained to be written, is left out; false then.
    bool EndRow();
    /// Counts towards a note.
    void Note(std::string_view key, std::size_t count);

    ChangePlan Take();

private:
    void RejectCell(TargetColumn column, std::string_view text, CellAccess access);

    const PlanTarget& target_;
    CellAccessQuery access_;
    ChangePlan plan_;
    int source_ = 0;
    int row_ = 0;
    bool refused_ = false;
    std::size_t skipped_ = 0;
};

}  // namespace velda
