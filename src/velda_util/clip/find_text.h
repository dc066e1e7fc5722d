#pragma once

#include <string>
#include <vector>

#include "velda_util/clip/change_plan.h"

namespace velda {

/// Settings of a search; they survive from one table to the next.
struct STBFindStruct {
    std::string text{};
    bool onlyCurrentColumn = false;
    bool matchCase = false;
    int direction = 1;  ///< 1 forward, 0 backward
    int currentRow = 0;
};

/// The rows and columns that are searched.
struct FindArea {
    int rowCount = 0;
    std::vector<PlanColumn> columns{};  ///< all columns in their current order; hidden ones are passed over
    int currentColumn = 1;              ///< grid column from 1
};

/// Where a text was found.
struct FindResult {
    bool found = false;
    int row = 0;
    int column = 0;        ///< grid column from 1
    bool wrapped = false;  ///< the search went past an end of the table and on from the other one
};

/// Searches cell by cell, row by row, each cell once: from the current row and column on, that cell included, to the
/// end, and from the other end back to the start. A current row outside the table is what stands one past an end: the
/// search begins at the end that comes next in its direction, and has wrapped when that is the other end. Throws
/// std::invalid_argument for a current column that does not exist.
FindResult FindText(const STBFindStruct& settings, const FindArea& area, CellTextQuery text);

/// Whether a row may hold the text; asked once for each row that the search comes to.
using RowQuery = FunctionRef<bool(int row)>;
/// The same, passing over rows that cannot hold the text.
FindResult FindText(const STBFindStruct& settings, const FindArea& area, CellTextQuery text, RowQuery mayHold);

}  // namespace velda
