#pragma once

#include "zt_anl/analysis.h"
#include "zt_anl/solve/structure.h"

namespace zt {

/// How a structure should act by the results that it gave as it acts now: members and supports of one sense, and with
/// `secondOrder` its axial forces. The state of the structure itself when it acts right; axial forces that changed by
/// no more than 1e-6 of the greatest one are right.
StructureState NextState(const Structure& structure, const CaseLoads& loads, const CaseResult& result,
                         bool secondOrder);

}  // namespace zt
