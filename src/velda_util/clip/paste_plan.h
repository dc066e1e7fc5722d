#pragma once

#include "velda_util/clip/change_plan.h"
#include "velda_util/clip/text_block.h"

namespace velda {

/// Plans the paste of a block into a selection, before anything is changed.
///
/// The block goes to the visible columns from the first selected one on; hidden columns are passed over, columns of the
/// block beyond the last one are left out with a note. It repeats when the selected records and the selected visible
/// columns are each one or a whole multiple of its size; otherwise it is pasted once. Rows on records overwrite them,
/// rows from the append row on add records, or are refused where the table does not append. A repetition adds no
/// records: the append row at the end of a selection does not count for it. Rows of the block without any text
/// overwrite, but never add. Cells that a short row of the block lacks stay as they are. Texts are taken as they stand;
/// nothing is evaluated. Throws std::invalid_argument for a selection that is no part of the table.
ChangePlan PlanPaste(const TextBlock& block, const GridSelection& selection, const PlanTarget& target,
                     CellAccessQuery access);

}  // namespace velda
