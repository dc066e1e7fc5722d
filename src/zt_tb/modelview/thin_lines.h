#pragma once

#include <cstdint>
#include <span>

#include "zt_tb/modelview/geometry.h"

namespace zt {

struct LineStroke {
    Point2 from;
    Point2 to;
};

/// Pixels of 32 bits, row by row from the top.
struct PixelPlane {
    std::uint32_t* pixels = nullptr;
    int width = 0;
    int height = 0;
    int rowLength = 0;  ///< pixels from one row to the next
};

/// Draws lines of one pixel's width, without smooth edges, each many times faster than a general painter does. `scale`
/// is the number of pixels in one of the lines' own.
void DrawThinLines(const PixelPlane& plane, std::span<const LineStroke> lines, double scale, std::uint32_t color);

}  // namespace zt
