#pragma once

#include <array>
#include <cstddef>

#include "zt_db/records/lnld.h"

namespace zt {

/// A stretch of a distributed load: its value runs along a line between two relative positions.
struct LoadStretch {
    double from = 0.0;
    double to = 0.0;
    double first = 0.0;
    double last = 0.0;
};

/// A single load at a relative position.
struct LoadPoint {
    double at = 0.0;
    double value = 0.0;
};

constexpr bool IsDistributedLoad(int type) {
    return type == LoadType::UniformLoads || type == LoadType::UniformMoments;
}
constexpr bool IsMomentLoad(int type) {
    return type == LoadType::ConcentratedMoments || type == LoadType::UniformMoments;
}
/// Whether a load has a type and a direction that tell what it is.
constexpr bool IsKnownLoad(int type, int direction) {
    return type >= LoadType::ConcentratedForces && type <= LoadType::UniformMoments &&
           direction >= LoadDirection::LocalX && direction <= LoadDirection::GlobalZ;
}

/// A few parts of a load, without memory of their own.
template <class Part, std::size_t Most>
class LoadParts {
public:
    void Add(Part part) { parts_[count_++] = part; }
    std::size_t size() const { return count_; }
    const Part* data() const { return parts_.data(); }
    const Part* begin() const { return data(); }
    const Part* end() const { return data() + count_; }
    const Part& operator[](std::size_t place) const { return parts_[place]; }

private:
    std::array<Part, Most> parts_{};
    std::size_t count_ = 0;
};

/// The stretches of a distributed load: one between each two places that rise and that have a value.
inline LoadParts<LoadStretch, 3> StretchesOf(const std::array<double, 4>& x, const std::array<double, 4>& p) {
    LoadParts<LoadStretch, 3> stretches;
    for (std::size_t i = 1; i < x.size(); ++i) {
        if (x[i] > x[i - 1] && (p[i] != 0.0 || p[i - 1] != 0.0)) stretches.Add({x[i - 1], x[i], p[i - 1], p[i]});
    }
    return stretches;
}

/// The single loads of a concentrated load.
inline LoadParts<LoadPoint, 4> PointsOf(const std::array<double, 4>& x, const std::array<double, 4>& p) {
    LoadParts<LoadPoint, 4> points;
    for (std::size_t i = 0; i < x.size(); ++i) {
        if (p[i] != 0.0) points.Add({x[i], p[i]});
    }
    return points;
}

}  // namespace zt
