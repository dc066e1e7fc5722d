#pragma once

#include "desktop/host/dialogs.h"
#include "zt_tb/post/story/tb_set_rmf_mini_dlg.h"

namespace zt {

/// The window in which users set the limits of a drift table.
std::unique_ptr<BlockDialog> MakeDriftLimitsDialog(CTBSetRMFMiniDlg& block, QWidget* parent);

}  // namespace zt
