#pragma once

#include "zt_db/geometry/member_geometry.h"

namespace zt {

inline Vector3 Plus(const Vector3& a, const Vector3& b) { return {a[0] + b[0], a[1] + b[1], a[2] + b[2]}; }
inline Vector3 Times(const Vector3& a, double factor) { return {a[0] * factor, a[1] * factor, a[2] * factor}; }

/// A vector in the axes of a member, and back.
inline Vector3 LocalOf(const MemberAxes& axes, const Vector3& global) {
    return {Dot(axes.x, global), Dot(axes.y, global), Dot(axes.z, global)};
}
inline Vector3 GlobalOf(const MemberAxes& axes, const Vector3& local) {
    return Plus(Plus(Times(axes.x, local[0]), Times(axes.y, local[1])), Times(axes.z, local[2]));
}

}  // namespace zt
