#pragma once

#include <cstdint>
#include <vector>

#include "zt_anl/analysis_log.h"
#include "zt_db/core/database.h"
#include "zt_db/geometry/member_geometry.h"
#include "zt_db/records/splc.h"
#include "zt_db/records/thlc.h"

namespace zt {

/// A response spectrum load case with its spectrum.
struct SpectrumCase {
    std::uint32_t key = 0;
    T_SPLC_D record{};
    T_SPFC_D spectrum{};
};

/// A time-history load case with the time function of each of its items.
struct HistoryCase {
    std::uint32_t key = 0;
    T_THLC_D record{};
    std::vector<T_THFC_D> functions{};
};

/// The cases that can be analysed, in the order of their keys. Others are left out with a warning: those without a
/// function or with an empty one, and histories whose times or damping make no sense.
std::vector<SpectrumCase> ReadSpectrumCases(const CDataBase& database, AnalysisLog& log);
std::vector<HistoryCase> ReadHistoryCases(const CDataBase& database, AnalysisLog& log);

/// The direction of a ground motion in global axes.
Vector3 GroundDirectionOf(int direction, double angle);
/// The value of a spectrum, in shares of gravity.
double SpectrumAt(const T_SPFC_D& spectrum, double period);
/// States that a history stores.
std::size_t StatesOf(const T_THLC_D& record);

}  // namespace zt
