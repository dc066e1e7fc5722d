#pragma once

#include <span>
#include <vector>

#include "zt_anl/analysis.h"
#include "zt_anl/element/frame_element.h"
#include "zt_anl/element/span_load.h"

namespace zt {

/// What the sections of an element carry at evenly spaced stations, from the forces at its end i and the loads between.
/// Where the element has an axial force of the second order, the moments are those of its deflected shape, by
/// displacements of its nodes in global axes; loads between the ends bend the element as if its ends were held, and
/// that part of the deflection does not count.
std::vector<StationForces> ForcesAtStations(const FrameSpan& span, const FrameElement& element, const EndVector& ends,
                                            const Vector12& displacements, std::span<const SpanLoad> loads,
                                            std::size_t stations);

}  // namespace zt
