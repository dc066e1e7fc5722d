#include "zt_tb/post/story/tb_set_rmf_mini_dlg.h"

#include <cmath>

#include "velda_base/host/message_box.h"
#include "velda_lib/key_text.h"
#include "velda_lib/number_text.h"

namespace zt {

using velda::KeyText;

namespace {

/// False for what is no limit.
bool ReadLimit(const std::string& text, double& limit) {
    return velda::ReadWholeDouble(text, limit) && std::isfinite(limit) && limit > 0.0;
}

}  // namespace

std::string CTBSetRMFMiniDlg::Title() { return KeyText("IDS_TB_POSTDISP_Allowable_Story_Drift_Angle_0"); }

void CTBSetRMFMiniDlg::OnInitDialog() {
    for (std::size_t i = 0; i < entries.size(); ++i) {
        entries[i] = {velda::FormatDouble(limits_.limit[i].ratio), velda::FormatDouble(limits_.limit[i].denominator)};
    }
}

bool CTBSetRMFMiniDlg::OnOK() {
    DriftLimits typed;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (!ReadLimit(entries[i].ratio, typed.limit[i].ratio) ||
            !ReadLimit(entries[i].denominator, typed.limit[i].denominator)) {
            velda::AfxMessageBox(KeyText("IDS_TB_SETRMFDLG_Error___Invalid_Allowable_Ratio_"));
            return false;
        }
    }
    limits_ = typed;
    return true;
}

}  // namespace zt
