#pragma once

#include <array>
#include <vector>

#include "zt_tb/modelview/camera.h"
#include "zt_tb/modelview/model_scene.h"
#include "zt_tb/modelview/thin_lines.h"

namespace zt {

/// The symbols of supports in a picture, in pixels.
struct SupportSymbols {
    std::vector<Rect2> plates;
    std::vector<std::array<Point2, 3>> triangles;
    std::vector<LineStroke> lines;
};

/// Adds the symbol of a support under its node. A node that is held in all ways stands on a plate, one that may turn in
/// all ways on a triangle. Any other support has a mark for each way: a line along the axis with a bar at its end, two
/// bars for a turn, a zigzag for a spring. A way that is looked along has a small square.
void AddSupport(SupportSymbols& symbols, const SceneSupport& support, Point2 node, const Camera& camera, double size);

}  // namespace zt
