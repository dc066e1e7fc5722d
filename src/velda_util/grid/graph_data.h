#pragma once

#include "velda_base/host/graph_view.h"
#include "velda_util/grid/gx_grid_core.h"

namespace velda {

/// A range of cells as a graph: each shown column of numbers is an item, the first other one gives the labels; without
/// one the row numbers do. Choice lists and check boxes are no numbers, and the append row is left out. False, and
/// `data` stays as it is, when the range has no numbers.
bool GraphDataOf(const CGXGridCore& grid, const CGXRange& range, T_GRAPH_D& data);

}  // namespace velda
