#pragma once

#include "zt_anl/model/dynamic_cases.h"
#include "zt_anl/solve/response_shapes.h"
#include "zt_anl/solve/work_goes.h"

namespace zt {

/// Solves a response spectrum load case: each displacement and force by itself is combined from those of the modes.
/// False when it was stopped.
bool SolveSpectrum(const ResponseShapes& shapes, const SpectrumCase& spectrumCase, const WorkGoes& goes,
                   SpectrumResult& result);

}  // namespace zt
