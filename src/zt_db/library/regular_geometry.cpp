#include <algorithm>
#include <cmath>
#include <numbers>

#include "zt_db/library/sect_shape.h"
#include "zt_db/library/section_geometry.h"

namespace zt {
namespace {

using Geometry = std::optional<SectionGeometry>;

/// The sizes of a shape by what they are.
struct Dimensions {
    double h;
    double b;
    double tw;
    double tf;
    double root;
    double toe;
    double gap;
    double taper;

    double FlangeEdge() const { return tf - taper / 2.0; }
    double FlangeAtWeb() const { return tf + taper / 2.0; }
    /// Height of the web between the middle lines of two flanges.
    double MiddleHeight() const { return h - tf; }
    bool HasWalls() const { return h > 0.0 && b > 0.0 && tw > 0.0 && tf > 0.0 && FlangeEdge() > 0.0; }
};

Dimensions DimensionsOf(const RegularShape& shape, const SectionSizes& sizes) {
    const auto size = [&](SizeRole role) {
        const SizePlace place = shape.places[static_cast<std::size_t>(role)];
        const double first = place.first == kNoSize ? 0.0 : sizes[static_cast<std::size_t>(place.first)];
        if (first != 0.0 || place.second == kNoSize) return first;
        return sizes[static_cast<std::size_t>(place.second)];
    };
    return {size(SizeRole::Height), size(SizeRole::Width), size(SizeRole::Web), size(SizeRole::Flange),
            size(SizeRole::Root),   size(SizeRole::Toe),   size(SizeRole::Gap), size(SizeRole::Taper)};
}

double Cube(double x) { return x * x * x; }
double Fourth(double x) { return x * x * x * x; }

// Torsion of rolled sections: El Darwish and Johnston, Torsion of structural shapes, Journal of the Structural Division
// 91, 1965; for parallel flanges in SI form in SCI P363. Walls count with a third of length times cubed thickness; the
// circle that fits into a junction adds to them; free ends take away. The formulas for tapered flanges are for a slope
// of 1 in 6; for a smaller slope they are mixed with those for parallel flanges.

constexpr double kSteepSlope = 1.0 / 6.0;

/// Rise of the inner face of a flange of which `overhangs` stand out from the web, by length.
double SlopeOf(const Dimensions& d, double overhangs) { return d.taper * overhangs / (d.b - d.tw); }

/// The mean of the cubed thickness of an overhang.
double MeanCube(const Dimensions& d) { return Cube(d.tf) + d.tf * d.taper * d.taper / 4.0; }

/// A flange across a web: its wall, its junction, and its free ends.
double TeeFlange(const Dimensions& d) {
    const double slope = SlopeOf(d, 2.0);
    const double face = d.FlangeAtWeb();
    const double t = d.tw / face;
    const double r = d.root / face;
    const double level = -0.042 + 0.2204 * t + 0.1355 * r - 0.0865 * r * t - 0.0725 * t * t;
    const double steep = -0.0836 + 0.2536 * t + 0.1268 * r - 0.0806 * r * t - 0.0858 * t * t;
    const double alpha = std::lerp(level, steep, std::min(1.0, slope / kSteepSlope));
    // How far the fillet rises from the extended inner face.
    const double rise = d.root * (std::sqrt(1.0 + slope * slope) - slope) - slope * d.tw / 2.0;
    const double depth = std::max(0.0, rise) + face;
    const double circle = (depth * depth + d.tw * (d.root + d.tw / 4.0)) / (depth + d.root);
    const double ends = 0.10504 + 0.1 * slope + 0.0848 * slope * slope;
    return ((d.b - d.tw) * MeanCube(d) + d.tw * Cube(face)) / 3.0 + std::max(0.0, alpha) * Fourth(circle) -
           2.0 * ends * Fourth(d.FlangeEdge());
}

/// What the junction of a web with the end of a flange adds.
double CornerJunction(double web, double flange, double root) {
    const double t = web / flange;
    const double r = root / flange;
    const double alpha = -0.0908 + 0.2621 * t + 0.1231 * r - 0.0752 * r * t - 0.0945 * t * t;
    const double circle =
        2.0 * (3.0 * root + web + flange - std::sqrt(2.0 * (2.0 * root + web) * (2.0 * root + flange)));
    return std::max(0.0, alpha) * Fourth(circle);
}

Geometry BuildH(const Dimensions& d) {
    if (!d.HasWalls() || d.tw >= d.b || 2.0 * d.FlangeAtWeb() >= d.h) return {};
    const double y = d.b / 2.0;
    const double web = d.tw / 2.0;
    const double edge = d.FlangeEdge();
    const double face = d.FlangeAtWeb();
    const OutlineCorner corners[] = {{-y, 0.0},
                                     {y, 0.0},
                                     {y, edge, d.toe},
                                     {web, face, d.root},
                                     {web, d.h - face, d.root},
                                     {y, d.h - edge, d.toe},
                                     {y, d.h},
                                     {-y, d.h},
                                     {-y, d.h - edge, d.toe},
                                     {-web, d.h - face, d.root},
                                     {-web, face, d.root},
                                     {-y, edge, d.toe}};
    SectionGeometry geometry;
    geometry.parts = {RoundedOutline(corners)};
    const double low = d.tf / 2.0;
    const double high = d.h - low;
    geometry.walls = {{{0.0, low}, {0.0, high}, d.tw}, {{-y, low}, {y, low}, d.tf}, {{-y, high}, {y, high}, d.tf}};
    geometry.torsion = 2.0 * TeeFlange(d) + (d.h - 2.0 * d.FlangeAtWeb()) * Cube(d.tw) / 3.0;
    return geometry;
}

/// The flange lies above.
Geometry BuildT(const Dimensions& d) {
    if (!d.HasWalls() || d.tw >= d.b || d.FlangeAtWeb() >= d.h) return {};
    const double y = d.b / 2.0;
    const double web = d.tw / 2.0;
    const double edge = d.h - d.FlangeEdge();
    const double face = d.h - d.FlangeAtWeb();
    const OutlineCorner corners[] = {{-web, 0.0}, {web, 0.0}, {web, face, d.root}, {y, edge, d.toe},
                                     {y, d.h},    {-y, d.h},  {-y, edge, d.toe},   {-web, face, d.root}};
    SectionGeometry geometry;
    geometry.parts = {RoundedOutline(corners)};
    const double middle = d.h - d.tf / 2.0;
    geometry.walls = {{{0.0, 0.0}, {0.0, middle}, d.tw}, {{-y, middle}, {y, middle}, d.tf}};
    geometry.torsion = TeeFlange(d) + (d.h - d.FlangeAtWeb()) * Cube(d.tw) / 3.0 - 0.105 * Fourth(d.tw);
    return geometry;
}

/// The web stands at the left.
Geometry BuildC(const Dimensions& d) {
    if (!d.HasWalls() || d.tw >= d.b || 2.0 * d.FlangeAtWeb() >= d.h) return {};
    const double edge = d.FlangeEdge();
    const double face = d.FlangeAtWeb();
    const OutlineCorner corners[] = {{0.0, 0.0},
                                     {d.b, 0.0},
                                     {d.b, edge, d.toe},
                                     {d.tw, face, d.root},
                                     {d.tw, d.h - face, d.root},
                                     {d.b, d.h - edge, d.toe},
                                     {d.b, d.h},
                                     {0.0, d.h}};
    SectionGeometry geometry;
    geometry.parts = {RoundedOutline(corners)};
    const double web = d.tw / 2.0;
    const double low = d.tf / 2.0;
    const double high = d.h - low;
    geometry.walls = {
        {{web, low}, {web, high}, d.tw}, {{web, low}, {d.b, low}, d.tf}, {{web, high}, {d.b, high}, d.tf}};
    geometry.torsion = (2.0 * d.b * MeanCube(d) + (d.h - 2.0 * d.tf) * Cube(d.tw)) / 3.0 +
                       2.0 * CornerJunction(d.tw, d.tf, d.root) - 0.42 * Fourth(d.tf);
    return geometry;
}

/// The upright leg stands at the left, the other lies below.
Geometry BuildL(const Dimensions& d) {
    if (!d.HasWalls() || d.tw >= d.b || d.tf >= d.h) return {};
    const OutlineCorner corners[] = {{0.0, 0.0},           {d.b, 0.0},         {d.b, d.tf, d.toe},
                                     {d.tw, d.tf, d.root}, {d.tw, d.h, d.toe}, {0.0, d.h}};
    SectionGeometry geometry;
    geometry.parts = {RoundedOutline(corners)};
    const double y = d.tw / 2.0;
    const double z = d.tf / 2.0;
    geometry.walls = {{{y, z}, {y, d.h}, d.tw}, {{y, z}, {d.b, z}, d.tf}};
    geometry.torsion = (d.b * Cube(d.tf) + (d.h - d.tf) * Cube(d.tw)) / 3.0 + CornerJunction(d.tw, d.tf, d.root) -
                       0.105 * (Fourth(d.tf) + Fourth(d.tw));
    return geometry;
}

/// Two of a part back to back, mirrored, with a gap between them. They twist each for itself.
Geometry Doubled(const Geometry& one, double gap) {
    if (!one || gap < 0.0) return {};
    SectionGeometry geometry;
    const Outline right = Moved(one->parts.front(), gap / 2.0, 0.0);
    geometry.parts = {right, Mirrored(right)};
    for (Wall wall : one->walls) {
        for (SectionPoint* point : {&wall.from, &wall.to}) point->y += gap / 2.0;
        geometry.walls.push_back(wall);
    }
    for (std::size_t i = 0; i < one->walls.size(); ++i) {
        Wall wall = geometry.walls[i];
        for (SectionPoint* point : {&wall.from, &wall.to}) point->y = -point->y;
        geometry.walls.push_back(wall);
    }
    geometry.torsion = 2.0 * one->torsion;
    return geometry;
}

Geometry BuildDoubleL(const Dimensions& d) { return Doubled(BuildL(d), d.gap); }
Geometry BuildDoubleC(const Dimensions& d) { return Doubled(BuildC(d), d.gap); }

Outline Hole(Outline outline) {
    outline.weight = -1.0;
    outline.side = OutlineSide::Inner;
    return outline;
}

/// Torsion: Bredt's formula over the middle line and the walls' own, EN 10210-2 annex A.
Geometry BuildBox(const Dimensions& d) {
    if (!d.HasWalls() || 2.0 * d.tw >= d.b || 2.0 * d.tf >= d.h) return {};
    const double thickness = std::max(d.tw, d.tf);
    const double outer = d.root;
    const double inner = d.toe > 0.0 ? d.toe : std::max(0.0, outer - thickness);
    if (2.0 * outer > std::min(d.b, d.h)) return {};
    SectionGeometry geometry;
    geometry.parts = {RectangleOutline({0.0, d.b, 0.0, d.h}, outer),
                      Hole(RectangleOutline({d.tw, d.b - d.tw, d.tf, d.h - d.tf}, inner))};
    const double corner = (4.0 - std::numbers::pi) * (outer + inner) / 2.0;
    const double width = d.b - d.tw;
    const double height = d.MiddleHeight();
    const double enclosed = width * height - corner * (outer + inner) / 2.0;
    const double horizontal = 2.0 * width - corner;
    const double upright = 2.0 * height - corner;
    geometry.torsion = 4.0 * enclosed * enclosed / (horizontal / d.tf + upright / d.tw) +
                       (horizontal * Cube(d.tf) + upright * Cube(d.tw)) / 3.0;
    return geometry;
}

/// Torsion of a circle is its polar moment.
double CirclePolar(double diameter) { return std::numbers::pi * Fourth(diameter) / 32.0; }

Geometry BuildPipe(const Dimensions& d) {
    const double inner = d.h - 2.0 * d.tw;
    if (!d.HasWalls() || inner < 0.0) return {};
    SectionGeometry geometry;
    geometry.parts = {CircleOutline(d.h)};
    if (inner > 0.0) geometry.parts.push_back(Hole(CircleOutline(inner)));
    geometry.torsion = CirclePolar(d.h) - CirclePolar(inner);
    return geometry;
}

Geometry BuildRound(const Dimensions& d) {
    if (!(d.h > 0.0)) return {};
    SectionGeometry geometry;
    geometry.parts = {CircleOutline(d.h)};
    geometry.torsion = CirclePolar(d.h);
    return geometry;
}

Geometry BuildRectangle(const Dimensions& d) {
    if (!(d.h > 0.0) || !(d.b > 0.0)) return {};
    SectionGeometry geometry;
    geometry.parts = {RectangleOutline({-d.b / 2.0, d.b / 2.0, 0.0, d.h})};
    geometry.torsion = RectangleTorsion(d.h, d.b);
    return geometry;
}

/// The web stands at the left; the lips, whose depth stands in the place of the flange thickness, are bent inward. One
/// thickness everywhere; the radius is that inside a corner. Torsion: a third of area times squared thickness.
Geometry BuildLipped(const Dimensions& d) {
    const double t = d.tw;
    const double lip = d.tf;
    if (!d.HasWalls() || lip <= t || 2.0 * t >= d.b || 2.0 * lip >= d.h) return {};
    const double outer = d.root > 0.0 ? d.root + t : 0.0;
    const OutlineCorner corners[] = {{0.0, 0.0, outer},    {d.b, 0.0, outer},          {d.b, lip},
                                     {d.b - t, lip},       {d.b - t, t, d.root},       {t, t, d.root},
                                     {t, d.h - t, d.root}, {d.b - t, d.h - t, d.root}, {d.b - t, d.h - lip},
                                     {d.b, d.h - lip},     {d.b, d.h, outer},          {0.0, d.h, outer}};
    SectionGeometry geometry;
    geometry.parts = {RoundedOutline(corners)};
    const double left = t / 2.0;
    const double right = d.b - left;
    const double high = d.h - left;
    geometry.walls = {{{left, left}, {left, high}, t},
                      {{left, left}, {right, left}, t},
                      {{left, high}, {right, high}, t},
                      {{right, left}, {right, lip}, t},
                      {{right, high}, {right, d.h - lip}, t}};
    const double bend = outer > 0.0 ? (4.0 - std::numbers::pi) * (d.root + t / 2.0) : 0.0;
    const double middle = (d.h - t) + 2.0 * (d.b - t) + 2.0 * (lip - t / 2.0) - 2.0 * bend;
    geometry.torsion = middle * Cube(t) / 3.0;
    return geometry;
}

/// An upright bar of the web's thickness through a lying one of the flange's. Torsion: thin rectangles.
Geometry BuildCross(const Dimensions& d) {
    if (!d.HasWalls() || d.tw >= d.b || d.tf >= d.h) return {};
    const double y = d.b / 2.0;
    const double z = d.h / 2.0;
    const double web = d.tw / 2.0;
    const double bar = d.tf / 2.0;
    const OutlineCorner corners[] = {{-web, -z}, {web, -z}, {web, -bar}, {y, -bar}, {y, bar},   {web, bar},
                                     {web, z},   {-web, z}, {-web, bar}, {-y, bar}, {-y, -bar}, {-web, -bar}};
    SectionGeometry geometry;
    geometry.parts = {RoundedOutline(corners)};
    geometry.walls = {{{0.0, -z}, {0.0, z}, d.tw}, {{-y, 0.0}, {y, 0.0}, d.tf}};
    geometry.torsion = (d.h * Cube(d.tw) + (d.b - d.tw) * Cube(d.tf)) / 3.0;
    return geometry;
}

/// Builders in the order of the regular shapes.
constexpr Geometry (*kBuilders[])(const Dimensions&) = {BuildL,         BuildC,     BuildH,       BuildT,
                                                        BuildBox,       BuildPipe,  BuildDoubleL, BuildDoubleC,
                                                        BuildRectangle, BuildRound, BuildLipped,  BuildCross};

}  // namespace

double RectangleTorsion(double a, double b) {
    const double longer = std::max(a, b);
    const double shorter = std::min(a, b);
    double sum = 0.0;
    for (int n = 1; n <= 9; n += 2) {
        sum += std::tanh(n * std::numbers::pi * longer / (2.0 * shorter)) / std::pow(n, 5);
    }
    const double series = 192.0 / std::pow(std::numbers::pi, 5) * shorter / longer * sum;
    return longer * Cube(shorter) / 3.0 * (1.0 - series);
}

std::optional<SectionGeometry> RegularGeometry(std::string_view shape, const SectionSizes& sizes) {
    const RegularShape* found = FindRegularShape(shape);
    if (!found) return {};
    const bool sound = std::all_of(sizes.begin(), sizes.end(), [](double x) { return std::isfinite(x) && x >= 0.0; });
    if (!sound) return {};
    return kBuilders[found - RegularShapes().data()](DimensionsOf(*found, sizes));
}

}  // namespace zt
