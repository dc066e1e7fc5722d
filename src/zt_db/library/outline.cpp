#include "zt_db/library/outline.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zt {
namespace {

/// Chords of a quarter of a circle.
constexpr int kQuarterChords = 16;
/// Corners of a circle.
constexpr int kCircleCorners = 96;

double Distance(SectionPoint a, SectionPoint b) { return std::hypot(b.y - a.y, b.z - a.z); }

SectionPoint Toward(SectionPoint from, SectionPoint to, double distance) {
    const double ratio = distance / Distance(from, to);
    return {from.y + (to.y - from.y) * ratio, from.z + (to.z - from.z) * ratio};
}

SectionBounds BoundsOf(std::span<const OutlineCorner> corners) {
    SectionBounds bounds{corners[0].y, corners[0].y, corners[0].z, corners[0].z};
    for (const OutlineCorner& corner : corners) {
        bounds.left = std::min(bounds.left, corner.y);
        bounds.right = std::max(bounds.right, corner.y);
        bounds.bottom = std::min(bounds.bottom, corner.z);
        bounds.top = std::max(bounds.top, corner.z);
    }
    return bounds;
}

/// A corner with its neighbours: how the outline turns there, and how far its fillet reaches along both edges.
struct Turn {
    SectionPoint at{};
    double in = 0.0;
    double angle = 0.0;
    double reach = 0.0;
};

Turn TurnAt(const OutlineCorner& before, const OutlineCorner& corner, const OutlineCorner& after) {
    const double in = std::atan2(corner.z - before.z, corner.y - before.y);
    const double out = std::atan2(after.z - corner.z, after.y - corner.y);
    const double angle = std::remainder(out - in, 2.0 * std::numbers::pi);
    return {{corner.y, corner.z}, in, angle, corner.radius * std::tan(std::abs(angle) / 2.0)};
}

/// What a fillet may reach at most, when it shares an edge with the next one in proportion.
double Shared(const Turn& one, const Turn& other) {
    const double length = Distance(one.at, other.at);
    const double wanted = one.reach + other.reach;
    return wanted > length ? length * one.reach / wanted : one.reach;
}

/// Adds the fillet of a corner and returns by how much the outline is shorter than through the corner.
double AddCorner(std::vector<SectionPoint>& points, const Turn& turn, SectionPoint before, double reach) {
    const double slope = std::tan(std::abs(turn.angle) / 2.0);
    if (reach <= 0.0) {
        points.push_back(turn.at);
        return 0.0;
    }
    const double radius = reach / slope;
    const double side = turn.angle > 0.0 ? radius : -radius;
    const SectionPoint start = Toward(turn.at, before, reach);
    const SectionPoint centre{start.y - side * std::sin(turn.in), start.z + side * std::cos(turn.in)};
    const double quarters = std::abs(turn.angle) * 2.0 / std::numbers::pi;
    const int chords = std::max(1, static_cast<int>(std::ceil(kQuarterChords * quarters - 1e-9)));
    for (int i = 0; i <= chords; ++i) {
        const double angle = turn.in + turn.angle * i / chords;
        points.push_back({centre.y + side * std::sin(angle), centre.z - side * std::cos(angle)});
    }
    return 2.0 * reach - radius * std::abs(turn.angle);
}

/// The part of two edges that lies on each other, running against each other.
double Overlap(SectionPoint a, SectionPoint b, SectionPoint c, SectionPoint d, double tolerance) {
    const double length = Distance(a, b);
    if (length <= tolerance) return 0.0;
    const double y = (b.y - a.y) / length;
    const double z = (b.z - a.z) / length;
    const auto along = [&](SectionPoint p) { return (p.y - a.y) * y + (p.z - a.z) * z; };
    const auto beside = [&](SectionPoint p) { return std::abs((p.z - a.z) * y - (p.y - a.y) * z); };
    if (beside(c) > tolerance || beside(d) > tolerance || along(c) <= along(d)) return 0.0;
    return std::max(0.0, std::min(length, along(c)) - std::max(0.0, along(d)));
}

double SharedLength(const Outline& one, const Outline& other, double tolerance) {
    double shared = 0.0;
    for (std::size_t i = 0; i < one.points.size(); ++i) {
        const SectionPoint a = one.points[i];
        const SectionPoint b = one.points[(i + 1) % one.points.size()];
        for (std::size_t j = 0; j < other.points.size(); ++j) {
            shared += Overlap(a, b, other.points[j], other.points[(j + 1) % other.points.size()], tolerance);
        }
    }
    return shared;
}

}  // namespace

Outline RoundedOutline(std::span<const OutlineCorner> corners) {
    const std::size_t count = corners.size();
    std::vector<Turn> turns;
    for (std::size_t i = 0; i < count; ++i) {
        turns.push_back(TurnAt(corners[(i + count - 1) % count], corners[i], corners[(i + 1) % count]));
    }
    Outline outline;
    outline.bounds = BoundsOf(corners);
    for (std::size_t i = 0; i < count; ++i) {
        const Turn& before = turns[(i + count - 1) % count];
        const Turn& after = turns[(i + 1) % count];
        const double reach = std::min(Shared(turns[i], before), Shared(turns[i], after));
        outline.length += Distance(turns[i].at, after.at);
        outline.length -= AddCorner(outline.points, turns[i], before.at, reach);
    }
    return outline;
}

Outline RectangleOutline(const SectionBounds& bounds, double radius) {
    const OutlineCorner corners[] = {{bounds.left, bounds.bottom, radius},
                                     {bounds.right, bounds.bottom, radius},
                                     {bounds.right, bounds.top, radius},
                                     {bounds.left, bounds.top, radius}};
    return RoundedOutline(corners);
}

Outline CircleOutline(double diameter) {
    const double half = diameter / 2.0;
    const double step = 2.0 * std::numbers::pi / kCircleCorners;
    const double radius = half * std::sqrt(step / std::sin(step));
    Outline outline;
    for (int i = 0; i < kCircleCorners; ++i) {
        outline.points.push_back({radius * std::cos(step * (i + 0.5)), radius * std::sin(step * (i + 0.5))});
    }
    outline.length = std::numbers::pi * diameter;
    outline.bounds = {-half, half, -half, half};
    return outline;
}

Outline Mirrored(Outline outline) {
    std::reverse(outline.points.begin(), outline.points.end());
    for (SectionPoint& point : outline.points) point.y = -point.y;
    outline.bounds = {-outline.bounds.right, -outline.bounds.left, outline.bounds.bottom, outline.bounds.top};
    return outline;
}

Outline Moved(Outline outline, double y, double z) {
    for (SectionPoint& point : outline.points) point = {point.y + y, point.z + z};
    SectionBounds& bounds = outline.bounds;
    bounds = {bounds.left + y, bounds.right + y, bounds.bottom + z, bounds.top + z};
    return outline;
}

double PerimeterOf(std::span<const Outline> parts, OutlineSide side) {
    double length = 0.0;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (parts[i].side != side) continue;
        length += parts[i].length;
        for (std::size_t j = 0; j < i; ++j) {
            if (parts[j].side != side) continue;
            length -= 2.0 * SharedLength(parts[i], parts[j], parts[i].length * 1e-9);
        }
    }
    return length;
}

}  // namespace zt
