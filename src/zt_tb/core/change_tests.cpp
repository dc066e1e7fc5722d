#include <algorithm>

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
namespace {

template <class R>
bool IsOf(int code) {
    const auto& codes = IdentityOf<R>::value.codes;
    return std::find(std::begin(codes), std::end(codes), code) != std::end(codes);
}

/// Whether a change names a record of these classes.
template <class... R>
bool Names(const CViewBuff& buffer) {
    for (POSITION at = buffer.GetHeadPosition(); at;) {
        const int code = static_cast<int>(static_cast<std::uint32_t>(buffer.GetNext(at)));
        if ((IsOf<R>(code) || ...)) return true;
    }
    return false;
}

}  // namespace

bool CTBCommonWnd::ChangesStories(const CViewBuff& buffer) { return Names<T_STOR_D, T_MDUL_D>(buffer); }

bool CTBCommonWnd::ChangesLoadCases(const CViewBuff& buffer) { return Names<T_STLD_D>(buffer); }

bool CTBCommonWnd::ChangesLoadTypes(const CViewBuff& buffer) { return Names<T_BLTP_D, T_BWTP_D, T_SLTP_D>(buffer); }

bool CTBCommonWnd::ChangesMatls(const CViewBuff& buffer) { return Names<T_MATL_D>(buffer); }

bool CTBCommonWnd::ChangesProperties(const CViewBuff& buffer) { return Names<T_SECT_D, T_THIK_D>(buffer); }

}  // namespace zt
