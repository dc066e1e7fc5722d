#include "zt_tb/modelview/geometry.h"

#include <vector>

namespace zt {

Vec3 NormalOf(std::span<const Vec3> polygon) {
    std::vector<Vector3> corners;
    for (const Vec3& place : polygon) corners.push_back(ToVector(place));
    return FromVector(NormalOf(corners));
}

LineDistance DistanceToLine(Point2 p, Point2 a, Point2 b) {
    const Point2 line = b - a;
    const Point2 way = p - a;
    const double length = line.x * line.x + line.y * line.y;
    const double along = length > 0.0 ? std::clamp((way.x * line.x + way.y * line.y) / length, 0.0, 1.0) : 0.0;
    const Point2 off{way.x - along * line.x, way.y - along * line.y};
    return {off.x * off.x + off.y * off.y, along};
}

// The line is cut by the four sides in turn until nothing of it is left.
bool ClipLine(const Rect2& rect, Point2& a, Point2& b) {
    double from = 0.0;
    double to = 1.0;
    const auto cut = [&](double step, double room) {
        if (step == 0.0) return room >= 0.0;
        const double at = room / step;
        if (step > 0.0) {
            to = std::min(to, at);
        } else {
            from = std::max(from, at);
        }
        return from <= to;
    };
    const Point2 line = b - a;
    if (!cut(-line.x, a.x - rect.left) || !cut(line.x, rect.right - a.x) || !cut(-line.y, a.y - rect.top) ||
        !cut(line.y, rect.bottom - a.y)) {
        return false;
    }
    // What is cut stands on a side; rounding may put it beside.
    const auto placeAt = [&](double at) {
        return Point2{std::clamp(a.x + line.x * at, rect.left, rect.right),
                      std::clamp(a.y + line.y * at, rect.top, rect.bottom)};
    };
    const Point2 start = placeAt(from);
    b = placeAt(to);
    a = start;
    return true;
}

bool LineTouches(const Rect2& rect, Point2 a, Point2 b) { return ClipLine(rect, a, b); }

bool PolygonHolds(std::span<const Point2> polygon, Point2 p) {
    bool inside = false;
    for (std::size_t at = 0, before = polygon.size() - 1; at < polygon.size(); before = at++) {
        const Point2 a = polygon[at];
        const Point2 b = polygon[before];
        if ((a.y > p.y) != (b.y > p.y) && p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x) inside = !inside;
    }
    return inside;
}

bool PolygonTouches(const Rect2& rect, std::span<const Point2> polygon) {
    for (std::size_t at = 0, before = polygon.size() - 1; at < polygon.size(); before = at++) {
        if (LineTouches(rect, polygon[before], polygon[at])) return true;
    }
    return PolygonHolds(polygon, {rect.left, rect.top});
}

}  // namespace zt
