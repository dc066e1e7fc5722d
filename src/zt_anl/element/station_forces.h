#pragma once

#include <span>
#include <vector>

#include "zt_anl/analysis.h"
#include "zt_anl/element/span_load.h"

namespace zt {

/// What the sections of an element carry at evenly spaced stations, from the forces at its end i and the loads between.
std::vector<StationForces> ForcesAtStations(const FrameSpan& span, const EndVector& ends,
                                            std::span<const SpanLoad> loads, std::size_t stations);

}  // namespace zt
