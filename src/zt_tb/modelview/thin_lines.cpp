#include "zt_tb/modelview/thin_lines.h"

#include <cmath>
#include <cstddef>

namespace zt {
namespace {

/// Steps along the longer way of a line count in 65536ths of a pixel across.
constexpr double kFraction = 65536.0;
constexpr int kFractionBits = 16;

void DrawLine(const PixelPlane& plane, Point2 a, Point2 b, std::uint32_t color) {
    const bool isFlat = std::abs(b.x - a.x) >= std::abs(b.y - a.y);
    if (isFlat ? a.x > b.x : a.y > b.y) std::swap(a, b);
    const double length = isFlat ? b.x - a.x : b.y - a.y;
    const int start = static_cast<int>(isFlat ? a.x : a.y);
    const int end = static_cast<int>(isFlat ? b.x : b.y);
    const double slope = length > 0.0 ? (isFlat ? b.y - a.y : b.x - a.x) / length : 0.0;
    auto across = static_cast<std::int64_t>((isFlat ? a.y : a.x) * kFraction);
    const auto step = static_cast<std::int64_t>(slope * kFraction);
    const std::int64_t most = isFlat ? plane.height - 1 : plane.width - 1;
    const std::ptrdiff_t along = isFlat ? 1 : plane.rowLength;
    const std::ptrdiff_t aside = isFlat ? plane.rowLength : 1;
    for (int at = start; at <= end; ++at, across += step) {
        const std::int64_t row = std::clamp<std::int64_t>(across >> kFractionBits, 0, most);
        plane.pixels[at * along + static_cast<std::ptrdiff_t>(row) * aside] = color;
    }
}

}  // namespace

void DrawThinLines(const PixelPlane& plane, std::span<const LineStroke> lines, double scale, std::uint32_t color) {
    // The last place whose pixel is in the plane.
    const Rect2 frame{0.0, 0.0, std::nextafter(plane.width, 0.0), std::nextafter(plane.height, 0.0)};
    for (const LineStroke& line : lines) {
        Point2 a{line.from.x * scale, line.from.y * scale};
        Point2 b{line.to.x * scale, line.to.y * scale};
        if (ClipLine(frame, a, b)) DrawLine(plane, a, b, color);
    }
}

}  // namespace zt
