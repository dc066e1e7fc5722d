#include "zt_db/library/thin_wall.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace zt {
namespace {

SectionPoint operator+(SectionPoint a, SectionPoint b) { return {a.y + b.y, a.z + b.z}; }
SectionPoint operator-(SectionPoint a, SectionPoint b) { return {a.y - b.y, a.z - b.z}; }
SectionPoint operator*(SectionPoint a, double factor) { return {a.y * factor, a.z * factor}; }
double Cross(SectionPoint a, SectionPoint b) { return a.y * b.z - a.z * b.y; }
double Dot(SectionPoint a, SectionPoint b) { return a.y * b.y + a.z * b.z; }
double Length(SectionPoint a) { return std::hypot(a.y, a.z); }

/// The points at which two walls are nearest.
struct Joint {
    SectionPoint one{};
    SectionPoint other{};
    double distance = 0.0;
};

SectionPoint NearestOn(const Wall& wall, SectionPoint point) {
    const SectionPoint along = wall.to - wall.from;
    const double ratio = Dot(point - wall.from, along) / Dot(along, along);
    return wall.from + along * std::clamp(ratio, 0.0, 1.0);
}

bool FindCrossing(const Wall& one, const Wall& other, Joint& joint) {
    const SectionPoint a = one.to - one.from;
    const SectionPoint b = other.to - other.from;
    const double turn = Cross(a, b);
    if (std::abs(turn) < 1e-9 * Length(a) * Length(b)) return false;
    const double onOne = Cross(other.from - one.from, b) / turn;
    const double onOther = Cross(other.from - one.from, a) / turn;
    if (onOne < 0.0 || onOne > 1.0 || onOther < 0.0 || onOther > 1.0) return false;
    joint.one = joint.other = one.from + a * onOne;
    return true;
}

/// Walls that run side by side are joined in the middle of the stretch that they share.
Joint JointOf(const Wall& one, const Wall& other) {
    Joint crossing;
    if (FindCrossing(one, other, crossing)) return crossing;
    const auto pair = [](SectionPoint a, SectionPoint b) { return Joint{a, b, Length(a - b)}; };
    const Joint pairs[] = {pair(one.from, NearestOn(other, one.from)), pair(one.to, NearestOn(other, one.to)),
                           pair(NearestOn(one, other.from), other.from), pair(NearestOn(one, other.to), other.to)};
    const auto nearer = [](const Joint& a, const Joint& b) { return a.distance < b.distance; };
    const double least = std::min_element(std::begin(pairs), std::end(pairs), nearer)->distance;
    const double limit = least + 1e-9 * Length(one.to - one.from);
    Joint sum;
    int count = 0;
    for (const Joint& candidate : pairs) {
        if (candidate.distance > limit) continue;
        sum.one = sum.one + candidate.one;
        sum.other = sum.other + candidate.other;
        ++count;
    }
    return {sum.one * (1.0 / count), sum.other * (1.0 / count), least};
}

/// Twice the area that the radius from the pole sweeps over, at the ends of each wall.
struct Sectorial {
    double from = 0.0;
    double to = 0.0;
};

/// Integral of the product of two quantities that are linear along a wall.
double Product(const Wall& wall, Sectorial f, Sectorial g) {
    const double area = wall.thickness * Length(wall.to - wall.from);
    return area / 6.0 * (2.0 * f.from * g.from + f.from * g.to + f.to * g.from + 2.0 * f.to * g.to);
}

std::vector<Sectorial> SectorialOf(std::span<const Wall> walls, SectionPoint pole) {
    std::vector<Sectorial> values(walls.size());
    const auto swept = [&](SectionPoint a, SectionPoint b) { return Cross(a - pole, b - pole); };
    values[0].to = swept(walls[0].from, walls[0].to);
    for (std::size_t i = 1; i < walls.size(); ++i) {
        std::size_t parent = 0;
        Joint best = JointOf(walls[0], walls[i]);
        for (std::size_t j = 1; j < i; ++j) {
            const Joint joint = JointOf(walls[j], walls[i]);
            if (joint.distance < best.distance) best = joint, parent = j;
        }
        const double atParent = values[parent].from + swept(walls[parent].from, best.one);
        const double atJoint = atParent + swept(best.one, best.other);
        values[i] = {atJoint + swept(best.other, walls[i].from), atJoint + swept(best.other, walls[i].to)};
    }
    return values;
}

SectionPoint CentroidOf(std::span<const Wall> walls) {
    double area = 0.0;
    SectionPoint moment;
    for (const Wall& wall : walls) {
        const double part = wall.thickness * Length(wall.to - wall.from);
        area += part;
        moment = moment + (wall.from + wall.to) * (part / 2.0);
    }
    return moment * (1.0 / area);
}

SectionPoint ShearCentreOf(std::span<const Wall> walls, SectionPoint centroid) {
    const std::vector<Sectorial> sectorial = SectorialOf(walls, centroid);
    double iyy = 0.0, izz = 0.0, iyz = 0.0, wy = 0.0, wz = 0.0;
    for (std::size_t i = 0; i < walls.size(); ++i) {
        const Wall& wall = walls[i];
        const Sectorial y{wall.from.y - centroid.y, wall.to.y - centroid.y};
        const Sectorial z{wall.from.z - centroid.z, wall.to.z - centroid.z};
        iyy += Product(wall, z, z);
        izz += Product(wall, y, y);
        iyz += Product(wall, y, z);
        wy += Product(wall, sectorial[i], y);
        wz += Product(wall, sectorial[i], z);
    }
    const double determinant = iyz * iyz - iyy * izz;
    if (std::abs(determinant) <= 1e-12 * (iyy + izz) * (iyy + izz)) return centroid;
    return centroid + SectionPoint{(iyz * wy - izz * wz) / determinant, (iyy * wy - iyz * wz) / determinant};
}

}  // namespace

WarpingValues WarpingOf(std::span<const Wall> walls) {
    WarpingValues values;
    values.shearCentre = ShearCentreOf(walls, CentroidOf(walls));
    const std::vector<Sectorial> sectorial = SectorialOf(walls, values.shearCentre);
    double area = 0.0, first = 0.0;
    for (std::size_t i = 0; i < walls.size(); ++i) {
        area += Product(walls[i], {1.0, 1.0}, {1.0, 1.0});
        first += Product(walls[i], sectorial[i], {1.0, 1.0});
        values.cw += Product(walls[i], sectorial[i], sectorial[i]);
    }
    values.cw = std::max(0.0, values.cw - first * first / area);
    return values;
}

}  // namespace zt
