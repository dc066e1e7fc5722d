#pragma once

#include "zt_tb/core/tb_view.h"

namespace zt {

/// Leaves the open rows of a view before something else goes on. Where one stays open the user is asked, with what was
/// found in it, whether to stay or to drop the row. False when he stays.
bool LeaveOrDropRows(CTBView& view);

}  // namespace zt
