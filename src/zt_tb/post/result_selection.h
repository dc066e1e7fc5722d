#pragma once

#include "velda_util/result/tb_core.h"
#include "zt_tb/post/tb_post_ds.h"

namespace zt {

// A result table and the selection of the model follow each other.

/// Makes the nodes or members that the selected rows of a table are about, or its current row, the selection of the
/// model. Nothing happens for tables of other objects, and when that is the selection already.
void PushObjects(CDataBase& database, const velda::CTBCore& grid, CDBUpdateConnector* sender);

/// Selects the rows of the selected nodes or members, under the load case of the current row or the first one, and
/// brings the first of them in sight. Nothing happens when the table has none of them.
void SelectRowsOfObjects(CDataBase& database, velda::CTBCore& grid);

}  // namespace zt
