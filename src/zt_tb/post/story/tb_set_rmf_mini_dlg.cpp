#include "zt_tb/post/story/tb_set_rmf_mini_dlg.h"

#include <cmath>

#include "velda_base/host/message_box.h"
#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"

namespace zt {
namespace {

std::string Text(const char* key) { return velda::CMsgDll::pfuncLoadStr(key, 0); }

/// False for what is no limit.
bool ReadLimit(const std::string& text, double& limit) {
    return velda::ReadWholeDouble(text, limit) && std::isfinite(limit) && limit > 0.0;
}

}  // namespace

std::string CTBSetRMFMiniDlg::Title() { return Text("IDS_TB_POSTDISP_Allowable_Story_Drift_Angle_0"); }

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
            velda::AfxMessageBox(Text("IDS_TB_SETRMFDLG_Error___Invalid_Allowable_Ratio_"));
            return false;
        }
    }
    limits_ = typed;
    return true;
}

}  // namespace zt
