#pragma once

#include <string_view>

#include "velda_util/clip/change_plan.h"

namespace velda {

/// Plans of changes to the selected cells of records. Hidden columns and the append row are left alone; a fill never
/// adds a record. All throw std::invalid_argument for a selection that is no part of the table.

/// The texts of the first selected row go into the selected rows below it. When one row is selected, the texts of the
/// row above go into it; the first row has none above and stays as it is.
ChangePlan PlanFillDown(const GridSelection& selection, const PlanTarget& target, CellAccessQuery access,
                        CellTextQuery text);

/// One text goes into every selected cell.
ChangePlan PlanSetValue(const GridSelection& selection, const PlanTarget& target, CellAccessQuery access,
                        std::string_view value);

/// Every selected cell is emptied.
inline ChangePlan PlanClear(const GridSelection& selection, const PlanTarget& target, CellAccessQuery access) {
    return PlanSetValue(selection, target, access, {});
}

}  // namespace velda
