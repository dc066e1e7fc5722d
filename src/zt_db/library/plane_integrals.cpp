#include "zt_db/library/plane_integrals.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace zt {
namespace {

/// An edge seen along an axis: levels and places across. Above a level lies what has a greater one. `weight` has the
/// sign by which the area above is positive.
struct Edge {
    double level0;
    double level1;
    double across0;
    double across1;
    double weight;

    double Top() const { return std::max(level0, level1); }
};

/// The edges from the top down.
std::vector<Edge> EdgesOf(std::span<const Outline> parts, BendingAxis axis) {
    std::vector<Edge> edges;
    for (const Outline& part : parts) {
        for (std::size_t i = 0; i < part.points.size(); ++i) {
            const SectionPoint a = part.points[i];
            const SectionPoint b = part.points[(i + 1) % part.points.size()];
            if (axis == BendingAxis::Y) {
                edges.push_back({a.z, b.z, a.y, b.y, -part.weight});
            } else {
                edges.push_back({a.y, b.y, a.z, b.z, part.weight});
            }
        }
    }
    std::sort(edges.begin(), edges.end(), [](const Edge& a, const Edge& b) { return a.Top() > b.Top(); });
    return edges;
}

/// What lies above a level: its area, its first moment about the level, and the width of the cut.
struct Above {
    double area = 0.0;
    double moment = 0.0;
    double width = 0.0;
};

// By Green's theorem area and moment above a level are line integrals of (level - cut)+ and of half its square, which
// are 0 along the cut itself, so that nothing needs to be clipped.
Above AboveLevel(const std::vector<Edge>& edges, double cut) {
    Above above;
    for (const Edge& edge : edges) {
        const double h0 = edge.level0 - cut;
        const double h1 = edge.level1 - cut;
        if (h0 <= 0.0 && h1 <= 0.0) break;
        const double run = edge.across1 - edge.across0;
        const double low = std::min(h0, h1);
        const double high = std::max(h0, h1);
        if (low < 0.0) {
            const double part = high / (high - low);
            const double across = edge.across0 + run * (h0 / (h0 - h1));
            above.width += edge.weight * (h0 > h1 ? across : -across);
            above.area += edge.weight * run * part * high / 2.0;
            above.moment += edge.weight * run * part * high * high / 6.0;
        } else {
            above.area += edge.weight * run * (h0 + h1) / 2.0;
            above.moment += edge.weight * run * (h0 * h0 + h0 * h1 + h1 * h1) / 6.0;
        }
    }
    return above;
}

std::vector<double> LevelsOf(const std::vector<Edge>& edges) {
    std::vector<double> levels;
    for (const Edge& edge : edges) levels.push_back(edge.level0);
    std::sort(levels.begin(), levels.end());
    const double nearness = (levels.back() - levels.front()) * 1e-9;
    const auto last = std::unique(levels.begin(), levels.end(), [&](double a, double b) { return b - a <= nearness; });
    levels.erase(last, levels.end());
    return levels;
}

struct GaussPoint {
    double at;
    double weight;
};
constexpr GaussPoint kOnePoint[] = {{0.0, 2.0}};
constexpr GaussPoint kThreePoints[] = {
    {-0.774596669241483377, 5.0 / 9.0}, {0.0, 8.0 / 9.0}, {0.774596669241483377, 5.0 / 9.0}};

/// Between two levels an integrand is smooth; a band that is thin, as within fillets, needs one point.
std::span<const GaussPoint> GaussPoints(double band, double depth) {
    if (band < depth * 0.02) return kOnePoint;
    return kThreePoints;
}

/// Shear area of a part of a section that is one.
double WholeShearArea(std::span<const Outline> parts, BendingAxis axis) {
    const PlaneMoments moments = MomentsOf(parts);
    const std::vector<Edge> edges = EdgesOf(parts, axis);
    const std::vector<double> levels = LevelsOf(edges);
    const double centroid = axis == BendingAxis::Y ? moments.centroid.z : moments.centroid.y;
    const double inertia = axis == BendingAxis::Y ? moments.iyy : moments.izz;
    const double least = (levels.back() - levels.front()) * 1e-9;
    double sum = 0.0;
    for (std::size_t i = 1; i < levels.size(); ++i) {
        const double half = (levels[i] - levels[i - 1]) / 2.0;
        for (const GaussPoint& point : GaussPoints(2.0 * half, levels.back() - levels.front())) {
            const double level = levels[i - 1] + half * (1.0 + point.at);
            const Above above = AboveLevel(edges, level);
            const double moment = above.moment + above.area * (level - centroid);
            if (above.width > least) sum += point.weight * half * moment * moment / above.width;
        }
    }
    return sum > 0.0 ? inertia * inertia / sum : 0.0;
}

/// The stretch of an axis that something takes, and the outlines within.
struct Stretch {
    double low;
    double high;
    std::vector<Outline> parts;
};

/// Outlines by where gaps part them along an axis. What touches is one.
std::vector<Stretch> PartedByGaps(std::span<const Outline> parts, BendingAxis axis) {
    std::vector<Stretch> stretches;
    for (const Outline& part : parts) {
        const SectionBounds& bounds = part.bounds;
        Stretch whole = axis == BendingAxis::Y ? Stretch{bounds.bottom, bounds.top, {part}}
                                               : Stretch{bounds.left, bounds.right, {part}};
        const double nearness = (whole.high - whole.low) * 1e-9;
        std::erase_if(stretches, [&](const Stretch& other) {
            if (other.low > whole.high + nearness || whole.low > other.high + nearness) return false;
            whole.low = std::min(whole.low, other.low);
            whole.high = std::max(whole.high, other.high);
            whole.parts.insert(whole.parts.end(), other.parts.begin(), other.parts.end());
            return true;
        });
        stretches.push_back(std::move(whole));
    }
    return stretches;
}

}  // namespace

PlaneMoments MomentsOf(std::span<const Outline> parts) {
    double area = 0.0, sy = 0.0, sz = 0.0, yy = 0.0, zz = 0.0, yz = 0.0;
    for (const Outline& part : parts) {
        for (std::size_t i = 0; i < part.points.size(); ++i) {
            const SectionPoint a = part.points[i];
            const SectionPoint b = part.points[(i + 1) % part.points.size()];
            const double cross = part.weight * (a.y * b.z - b.y * a.z);
            area += cross / 2.0;
            sy += cross * (a.y + b.y) / 6.0;
            sz += cross * (a.z + b.z) / 6.0;
            yy += cross * (a.y * a.y + a.y * b.y + b.y * b.y) / 12.0;
            zz += cross * (a.z * a.z + a.z * b.z + b.z * b.z) / 12.0;
            yz += cross * (a.y * b.z + 2.0 * a.y * a.z + 2.0 * b.y * b.z + b.y * a.z) / 24.0;
        }
    }
    if (!(area > 0.0)) return {};
    const SectionPoint centroid{sy / area, sz / area};
    return {area, centroid, zz - area * centroid.z * centroid.z, yy - area * centroid.y * centroid.y,
            yz - area * centroid.y * centroid.z};
}

SectionBounds BoundsOf(std::span<const Outline> parts) {
    SectionBounds bounds = parts.front().bounds;
    for (const Outline& part : parts) {
        bounds.left = std::min(bounds.left, part.bounds.left);
        bounds.right = std::max(bounds.right, part.bounds.right);
        bounds.bottom = std::min(bounds.bottom, part.bounds.bottom);
        bounds.top = std::max(bounds.top, part.bounds.top);
    }
    return bounds;
}

double PlasticModulus(std::span<const Outline> parts, BendingAxis axis) {
    const std::vector<Edge> edges = EdgesOf(parts, axis);
    const std::vector<double> levels = LevelsOf(edges);
    double low = levels.front();
    double high = levels.back();
    const Above whole = AboveLevel(edges, low);
    for (int i = 0; i < 60; ++i) {
        const double middle = (low + high) / 2.0;
        (AboveLevel(edges, middle).area > whole.area / 2.0 ? low : high) = middle;
    }
    // The moment of all about the cut is that of the part above less that of the part below.
    const double cut = (low + high) / 2.0;
    const double allAboutCut = whole.moment - whole.area * (cut - levels.front());
    return 2.0 * AboveLevel(edges, cut).moment - allAboutCut;
}

double ShearArea(std::span<const Outline> parts, BendingAxis axis) {
    double area = 0.0;
    for (const Stretch& stretch : PartedByGaps(parts, axis)) area += WholeShearArea(stretch.parts, axis);
    return area;
}

}  // namespace zt
