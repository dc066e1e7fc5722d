#pragma once

#include <span>
#include <vector>

namespace zt {

/// A point of a section: y to the right, z up.
struct SectionPoint {
    double y = 0.0;
    double z = 0.0;
};

/// A corner of an outline and the radius of its fillet.
struct OutlineCorner {
    double y = 0.0;
    double z = 0.0;
    double radius = 0.0;
};

/// The rectangle around something.
struct SectionBounds {
    double left = 0.0;
    double right = 0.0;
    double bottom = 0.0;
    double top = 0.0;
};

/// Which perimeter an outline counts for.
enum class OutlineSide { Outer, Inner, Hidden };

/// A closed outline, counter-clockwise. What it encloses counts with its weight: 1 for steel, -1 for a hole.
struct Outline {
    std::vector<SectionPoint> points{};
    double weight = 1.0;
    OutlineSide side = OutlineSide::Outer;
    double length = 0.0;
    SectionBounds bounds{};
};

/// The outline of a polygon with rounded corners. A radius that does not fit between its neighbours is made smaller.
Outline RoundedOutline(std::span<const OutlineCorner> corners);
Outline RectangleOutline(const SectionBounds& bounds, double radius = 0.0);
/// A circle around the origin, as a polygon of the same area.
Outline CircleOutline(double diameter);
/// The outline turned about the line y = 0.
Outline Mirrored(Outline outline);
Outline Moved(Outline outline, double y, double z);

/// Length of the outlines of one side, without the stretches where two of them lie on each other.
double PerimeterOf(std::span<const Outline> parts, OutlineSide side);

}  // namespace zt
