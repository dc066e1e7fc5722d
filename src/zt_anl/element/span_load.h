#pragma once

#include <cstddef>

#include "zt_db/geometry/member_geometry.h"

namespace zt {

/// A load on a span, in its local axes: a single one at `from`, or one that runs along a line from `from` to `to`, in
/// shares of the length of the span. A strain is what the span would lengthen by if nothing held it, as a share of its
/// length.
struct SpanLoad {
    std::size_t span = 0;
    bool isMoment = false;
    bool isSingle = false;
    double from = 0.0;
    double to = 1.0;
    Vector3 first{};  ///< N, N/m, Nm or Nm/m
    Vector3 last{};
    double strain = 0.0;
};

}  // namespace zt
