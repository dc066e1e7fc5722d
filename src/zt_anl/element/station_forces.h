#pragma once

#include <span>
#include <vector>

#include "zt_anl/analysis.h"
#include "zt_anl/element/frame_element.h"
#include "zt_anl/element/span_load.h"

namespace zt {

/// What the sections of an element carry at evenly spaced stations, from the forces at its end i and the loads between.
std::vector<StationForces> ForcesAtStations(const FrameSpan& span, const EndVector& ends,
                                            std::span<const SpanLoad> loads, std::size_t stations);

/// Adds the moments of the axial force of an element on its deflections. Loads between the ends bend the element as if
/// its ends were held; that part of the deflection does not count.
void AddDeflection(const FrameElement& element, const Vector12& ownEnds, std::vector<StationForces>& stations);

}  // namespace zt
