#pragma once

#include "desktop/host/dialogs.h"
#include "zt_tb/post/tb_active_new_dlg.h"

namespace zt {

/// The window in which users choose what a result table shows: a column for each section that the table has.
std::unique_ptr<BlockDialog> MakeActivationDialog(CTBActiveNewDlg& block, QWidget* parent);

}  // namespace zt
