#pragma once

#include <array>
#include <span>

namespace zt {

/// A point or a vector in space, in m.
using Vector3 = std::array<double, 3>;

Vector3 Minus(const Vector3& a, const Vector3& b);
Vector3 Cross(const Vector3& a, const Vector3& b);
double Dot(const Vector3& a, const Vector3& b);
double Length(const Vector3& a);

/// How a line or a face stands.
enum class Lie { Vertical, Horizontal, Inclined };

/// Vertical within 5 degrees; horizontal up to the slope of a roof, 30 degrees.
Lie LieOfLine(const Vector3& from, const Vector3& to);

/// The axes of a member at angle 0: local x along it; local z in the vertical plane and upward, of a vertical member
/// along global X; local y square to both.
struct MemberAxes {
    Vector3 x;
    Vector3 y;
    Vector3 z;
};
MemberAxes AxesOfLine(const Vector3& from, const Vector3& to);
/// The axes of a member at an angle in rad: local y and z turned about local x by the right-hand rule, y towards z.
MemberAxes TurnedAbout(const MemberAxes& axes, double angle);

/// The direction across a polygon, of length 1: its corners run counterclockwise as seen from there. Zero for a polygon
/// without an area. The polygon may be bent a little.
Vector3 NormalOf(std::span<const Vector3> corners);
/// The axes of a wall or a slab: local x along its first edge, from the first to the second corner; local z its normal;
/// local y square to both. Zero without an area.
MemberAxes AxesOfFace(std::span<const Vector3> corners);

/// The angle about local x, in rad, that brings local z (or local y) at angle 0 to the side that a vector points to. A
/// vector along the member gives 0.
double AngleOfLocalZ(const MemberAxes& axes, const Vector3& vector);
double AngleOfLocalY(const MemberAxes& axes, const Vector3& vector);

/// An angle above minus half a turn and up to half a turn, without the last digits that conversions of units leave
/// behind.
double CleanAngle(double angle);

}  // namespace zt
