#pragma once

#include <span>

#include "zt_db/library/outline.h"

namespace zt {

/// A straight wall of a section by its middle line.
struct Wall {
    SectionPoint from{};
    SectionPoint to{};
    double thickness = 0.0;
};

/// Where the shear centre lies and how much a section resists warping.
struct WarpingValues {
    SectionPoint shearCentre{};
    double cw = 0.0;
};

/// Values of an open section by sectorial coordinates (Vlasov, Thin-walled elastic beams, chapter 1). Each wall but the
/// first joins the nearest of those before it; where a gap lies between them, the link is taken as stiff.
WarpingValues WarpingOf(std::span<const Wall> walls);

}  // namespace zt
