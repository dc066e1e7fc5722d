#include "zt_db/core/change_test.h"
#include "zt_db/records/bmla.h"
#include "zt_db/records/bwld.h"
#include "zt_db/records/load.h"
#include "zt_db/records/matl.h"
#include "zt_db/records/sbla.h"
#include "zt_db/records/sect.h"
#include "zt_db/records/stor.h"
#include "zt_db/records/thik.h"
#include "zt_tb/core/tb_common_wnd.h"

namespace zt {

bool CTBCommonWnd::ChangesStories(const CViewBuff& buffer) { return Touches<T_STOR_D, T_MDUL_D>(buffer); }

bool CTBCommonWnd::ChangesLoadCases(const CViewBuff& buffer) { return Touches<T_STLD_D>(buffer); }

bool CTBCommonWnd::ChangesLoadTypes(const CViewBuff& buffer) { return Touches<T_BLTP_D, T_BWTP_D, T_SLTP_D>(buffer); }

bool CTBCommonWnd::ChangesMatls(const CViewBuff& buffer) { return Touches<T_MATL_D>(buffer); }

bool CTBCommonWnd::ChangesProperties(const CViewBuff& buffer) { return Touches<T_SECT_D, T_THIK_D>(buffer); }

}  // namespace zt
