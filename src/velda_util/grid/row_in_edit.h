#pragma once

#include <string>
#include <vector>

#include "velda_util/cells/cell_id.h"

namespace velda {

/// The texts of the row that is being edited, by column id. The cell store keeps what the database has, so that the
/// order of the rows stays right while the user types.
struct RowInEdit {
    RowId row = kNoRow;
    std::vector<std::string> live{};    ///< as they stand now
    std::vector<std::string> before{};  ///< as they stood before the edit
};

/// The trailing row, and a row that was inserted by key. Neither is a record nor stands in the cell store.
inline constexpr RowId kAppendRow = 0x7FFFFFF0u;
inline constexpr RowId kInsertedRow = 0x7FFFFFF1u;
constexpr bool IsNewRowId(RowId row) { return row == kAppendRow || row == kInsertedRow; }

}  // namespace velda
