#include "zt_db/records/rstp.h"

#include <algorithm>

namespace zt {

ZT_DEFINE_RECORD(RSTP)

double CClassRstp::GetBeta(std::uint32_t story) const {
    const T_RSTP_D* record = Stored(T_RSTP_D::kKey);
    if (!record) return 1.0;
    const auto found = std::find_if(record->betas.begin(), record->betas.end(),
                                    [story](const T_RSTP_BETA& beta) { return beta.story == story; });
    return found == record->betas.end() ? 1.0 : found->beta;
}

double CClassRstp::GetAllowableLimit(std::uint32_t story, int, std::uint32_t) const {
    constexpr double kMost = 0.25;
    const T_RSTP_D* record = Stored(T_RSTP_D::kKey);
    const double divisor = GetBeta(story) * (record ? record->amplification : 1.0);
    return divisor > 0.0 ? std::min(0.5 / divisor, kMost) : kMost;
}

}  // namespace zt
