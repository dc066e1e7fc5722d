#pragma once

#include <vector>

#include "zt_anl/model/frame_model.h"
#include "zt_anl/solve/structure.h"
#include "zt_db/records/actl.h"

namespace zt {

/// The masses of loads: the downward part of what each node gets from the load cases, times factor and divided by
/// gravity, as translational masses along all axes. Cases that are not known count nothing.
std::vector<FrameMass> MassesOfLoads(const Structure& structure, const std::vector<CaseLoads>& cases,
                                     const std::vector<T_STLD_FACTOR>& factors);

}  // namespace zt
