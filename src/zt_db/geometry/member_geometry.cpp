#include "zt_db/geometry/member_geometry.h"

#include <cmath>
#include <numbers>

namespace zt {
namespace {

constexpr double kDegree = std::numbers::pi / 180.0;
constexpr double kVerticalWithin = 5.0 * kDegree;
constexpr double kRoofSlope = 30.0 * kDegree;
/// A member whose direction is this near to the vertical has no vertical plane of its own.
constexpr double kSmallSine = 1.0e-6;
constexpr double kAngleStep = 1.0e-12;

Vector3 Unit(const Vector3& a) {
    const double length = Length(a);
    if (length == 0.0) return {0.0, 0.0, 0.0};
    return {a[0] / length, a[1] / length, a[2] / length};
}

}  // namespace

Vector3 Minus(const Vector3& a, const Vector3& b) { return {a[0] - b[0], a[1] - b[1], a[2] - b[2]}; }

Vector3 Cross(const Vector3& a, const Vector3& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double Dot(const Vector3& a, const Vector3& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

double Length(const Vector3& a) { return std::hypot(a[0], a[1], a[2]); }

Lie LieOfLine(const Vector3& from, const Vector3& to) {
    const Vector3 along = Minus(to, from);
    const double rise = std::atan2(std::abs(along[2]), std::hypot(along[0], along[1]));
    if (rise > std::numbers::pi / 2.0 - kVerticalWithin) return Lie::Vertical;
    return rise < kRoofSlope ? Lie::Horizontal : Lie::Inclined;
}

MemberAxes AxesOfLine(const Vector3& from, const Vector3& to) {
    MemberAxes axes{Unit(Minus(to, from)), {}, {}};
    const bool vertical = std::hypot(axes.x[0], axes.x[1]) < kSmallSine;
    axes.y = Unit(Cross(vertical ? Vector3{1.0, 0.0, 0.0} : Vector3{0.0, 0.0, 1.0}, axes.x));
    axes.z = Cross(axes.x, axes.y);
    return axes;
}

MemberAxes TurnedAbout(const MemberAxes& axes, double angle) {
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    MemberAxes turned{axes.x, {}, {}};
    for (std::size_t i = 0; i < 3; ++i) {
        turned.y[i] = c * axes.y[i] + s * axes.z[i];
        turned.z[i] = c * axes.z[i] - s * axes.y[i];
    }
    return turned;
}

Vector3 NormalOf(std::span<const Vector3> corners) {
    Vector3 normal{};
    for (std::size_t at = 0; at < corners.size(); ++at) {
        // Counted from the first corner, so that far away from the origin no digits are lost.
        const Vector3 part =
            Cross(Minus(corners[at], corners.front()), Minus(corners[(at + 1) % corners.size()], corners.front()));
        for (std::size_t i = 0; i < 3; ++i) normal[i] += part[i];
    }
    return Unit(normal);
}

MemberAxes AxesOfFace(std::span<const Vector3> corners) {
    const Vector3 normal = NormalOf(corners);
    if (Length(normal) == 0.0) return {};
    const Vector3 edge = Minus(corners[1], corners[0]);
    // A bent polygon may have a first edge that is not quite square to its normal.
    const Vector3 y = Unit(Cross(normal, edge));
    return {Cross(y, normal), y, normal};
}

double AngleOfLocalZ(const MemberAxes& axes, const Vector3& vector) {
    const double along = Dot(vector, axes.z);
    const double across = Dot(vector, axes.y);
    if (std::hypot(along, across) <= kSmallSine * Length(vector)) return 0.0;
    return CleanAngle(std::atan2(-across, along));
}

double AngleOfLocalY(const MemberAxes& axes, const Vector3& vector) {
    const double along = Dot(vector, axes.y);
    const double across = Dot(vector, axes.z);
    if (std::hypot(along, across) <= kSmallSine * Length(vector)) return 0.0;
    return CleanAngle(std::atan2(across, along));
}

double CleanAngle(double angle) {
    const double turned = std::remainder(angle, 2.0 * std::numbers::pi);
    constexpr double kNear = 8.0 * kAngleStep;
    if (std::abs(turned) < kNear) return 0.0;
    // Half a turn to either side is the same.
    if (std::abs(turned) > std::numbers::pi - kNear) return std::numbers::pi;
    return std::round(turned / kAngleStep) * kAngleStep;
}

}  // namespace zt
