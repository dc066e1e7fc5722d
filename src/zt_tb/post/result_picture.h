#pragma once

#include <optional>

#include "velda_util/result/tb_core.h"
#include "zt_tb/modelview/scene_results.h"
#include "zt_tb/post/tb_post_ds.h"

namespace zt {

// What the model view shows of a result table.

/// The load case of a row; none for rows without a record.
std::optional<LoadChoice> LoadOfRow(const velda::CTBCore& grid, int row);

/// The values of a column for all objects of the table, under the load case and the step of a row. Of a record with
/// several rows the value of greatest magnitude counts. No values where the table has no nodes or members, the column
/// has no numbers or the row no record.
ResultColours ColoursOfColumn(velda::CTBCore& grid, int row, int col);

}  // namespace zt
