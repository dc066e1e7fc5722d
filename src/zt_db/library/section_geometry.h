#pragma once

#include <array>
#include <optional>
#include <string_view>
#include <vector>

#include "zt_db/library/outline.h"
#include "zt_db/library/thin_wall.h"

namespace zt {

/// The nine sizes of a section.
using SectionSizes = std::array<double, 9>;

/// What the properties of a section are computed from.
struct SectionGeometry {
    std::vector<Outline> parts{};
    /// Walls of an open section. None for solid, closed and composite sections: their warping is not counted, and their
    /// shear centre is taken at the centroid.
    std::vector<Wall> walls{};
    double torsion = 0.0;
};

/// The geometry of a shape; none when the sizes make no such shape: one that is needed is 0, walls are too thick to
/// fit.
std::optional<SectionGeometry> RegularGeometry(std::string_view shape, const SectionSizes& sizes);
/// Sections of steel in concrete, as steel: concrete counts with 1 / kModularRatio. The sizes: depth of the concrete or
/// its diameter; its width (0 for a circle); then of the steel height or diameter, width (0 for a pipe), web or wall
/// thickness, flange thickness (0 for a pipe). An "Open" tube is hollow, a "Close" one is filled. A cross is two equal
/// H sections through each other.
std::optional<SectionGeometry> CompositeGeometry(std::string_view shape, const SectionSizes& sizes);
/// Sections of several steel parts, laid out as rectangles. combined_geometry.cpp tells the sizes of each.
std::optional<SectionGeometry> CombinedGeometry(std::string_view shape, const SectionSizes& sizes);

/// Elasticity of steel over that of concrete: 210000 N/mm2 over 25811 N/mm2, which KDS 14 20 10 gives for concrete of
/// 24 N/mm2, 8500 (fck + 4)^(1/3).
inline constexpr double kModularRatio = 8.136;

/// Torsion constant of a solid rectangle. Timoshenko and Goodier, Theory of elasticity, article 109.
double RectangleTorsion(double a, double b);

}  // namespace zt
