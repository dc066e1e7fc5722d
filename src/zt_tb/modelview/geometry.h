#pragma once

#include <algorithm>
#include <limits>
#include <span>

#include "zt_db/geometry/member_geometry.h"

namespace zt {

/// A place or direction in the model, in m.
struct Vec3 {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    bool operator==(const Vec3&) const = default;
    friend Vec3 operator+(const Vec3& a, const Vec3& b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
    friend Vec3 operator-(const Vec3& a, const Vec3& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
    friend Vec3 operator*(const Vec3& a, double factor) { return {a.x * factor, a.y * factor, a.z * factor}; }
};

inline double Dot(const Vec3& a, const Vec3& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
inline Vec3 Cross(const Vec3& a, const Vec3& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

inline Vector3 ToVector(const Vec3& place) { return {place.x, place.y, place.z}; }
inline Vec3 FromVector(const Vector3& place) { return {place[0], place[1], place[2]}; }

/// The direction across a polygon, of length 1; zero for one without an area. The polygon may be bent a little.
Vec3 NormalOf(std::span<const Vec3> polygon);

/// A place in the picture, in pixels from its top left corner.
struct Point2 {
    double x = 0.0;
    double y = 0.0;

    bool operator==(const Point2&) const = default;
    friend Point2 operator+(const Point2& a, const Point2& b) { return {a.x + b.x, a.y + b.y}; }
    friend Point2 operator-(const Point2& a, const Point2& b) { return {a.x - b.x, a.y - b.y}; }
};

/// A place in the picture and how far behind the middle of the view it lies, in m; greater is farther away.
struct ScreenPoint {
    double x = 0.0;
    double y = 0.0;
    double depth = 0.0;

    Point2 Flat() const { return {x, y}; }
};

/// A box around places; it holds nothing before the first one is added.
struct Box3 {
    Vec3 low{kNowhere, kNowhere, kNowhere};
    Vec3 high{-kNowhere, -kNowhere, -kNowhere};

    bool IsEmpty() const { return low.x > high.x; }
    Vec3 Center() const { return (low + high) * 0.5; }
    void Add(const Vec3& place) {
        low = {std::min(low.x, place.x), std::min(low.y, place.y), std::min(low.z, place.z)};
        high = {std::max(high.x, place.x), std::max(high.y, place.y), std::max(high.z, place.z)};
    }
    /// Whether a place lies inside, or outside by no more than a tolerance.
    bool Holds(const Vec3& place, double tolerance) const {
        const auto within = [tolerance](double value, double least, double most) {
            return value >= least - tolerance && value <= most + tolerance;
        };
        return within(place.x, low.x, high.x) && within(place.y, low.y, high.y) && within(place.z, low.z, high.z);
    }
    /// Corner 0 to 7: bit 0 is the greater x, bit 1 the greater y, bit 2 the greater z.
    Vec3 Corner(int at) const {
        return {(at & 1) != 0 ? high.x : low.x, (at & 2) != 0 ? high.y : low.y, (at & 4) != 0 ? high.z : low.z};
    }

private:
    static constexpr double kNowhere = std::numeric_limits<double>::infinity();
};

/// An upright rectangle of the picture.
struct Rect2 {
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;

    /// The rectangle between two opposite corners.
    static Rect2 Between(Point2 a, Point2 b) {
        return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
    }
    bool Holds(Point2 p) const { return p.x >= left && p.x <= right && p.y >= top && p.y <= bottom; }
};

/// Squared distance of a place from the line between two others, and where on it the nearest place lies: 0 at `a`, 1 at
/// `b`.
struct LineDistance {
    double squared = 0.0;
    double along = 0.0;
};
LineDistance DistanceToLine(Point2 p, Point2 a, Point2 b);

/// Whether a line runs through a rectangle.
bool LineTouches(const Rect2& rect, Point2 a, Point2 b);

/// Cuts a line off at the sides of a rectangle; false, and the line stays as it is, when nothing of it is inside.
bool ClipLine(const Rect2& rect, Point2& a, Point2& b);

/// Whether a place lies inside a polygon, by the even-odd rule.
bool PolygonHolds(std::span<const Point2> polygon, Point2 p);

/// Whether a polygon and a rectangle have any place in common.
bool PolygonTouches(const Rect2& rect, std::span<const Point2> polygon);

}  // namespace zt
