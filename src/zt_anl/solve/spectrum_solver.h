#pragma once

#include "zt_anl/model/dynamic_cases.h"
#include "zt_anl/solve/response_shapes.h"
#include "zt_anl/solve/work_goes.h"

namespace zt {

/// Solves a response spectrum load case: each displacement and force by itself is combined from those of the modes.
/// False when it was stopped.
bool SolveSpectrum(const ResponseShapes& shapes, const SpectrumCase& spectrumCase, const WorkGoes& goes,
                   SpectrumResult& result);

/// How far two modes swing together: the complete quadratic combination with one ratio of damping (Der Kiureghian,
/// 1981, A response spectrum method for random vibration analysis of MDF systems, Earthquake Eng. Struct. Dyn. 9,
/// 419-435).
double ModeCorrelation(double frequency, double other, double damping);

}  // namespace zt
