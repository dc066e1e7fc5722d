#pragma once

#include <array>
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

/// A single force or moment at a distance from the begin of a stretch.
struct SingleLoad {
    double at = 0.0;
    Vector3 value{};
};

/// What a load that runs from one value per length to another over a stretch is worth: a trapezium is the sum of two
/// triangles, each acting at a third of its length.
inline std::array<SingleLoad, 2> SinglesOf(double run, const Vector3& first, const Vector3& last) {
    std::array<SingleLoad, 2> singles{{{run / 3.0, {}}, {2.0 * run / 3.0, {}}}};
    for (std::size_t i = 0; i < 3; ++i) {
        singles[0].value[i] = 0.5 * run * first[i];
        singles[1].value[i] = 0.5 * run * last[i];
    }
    return singles;
}

}  // namespace zt
