#pragma once

#include <vector>

#include "zt_tb/modelview/scene_projection.h"

namespace zt {

/// Keys of nodes and of members.
struct PickedKeys {
    std::vector<std::uint32_t> nodes;
    std::vector<std::uint32_t> members;

    bool IsEmpty() const { return nodes.empty() && members.empty(); }
    bool operator==(const PickedKeys&) const = default;
};

/// What is seen at a place of the picture: a node before a member that is a line, that before one that is a face, and
/// the nearest of its sort. Nothing where there is none within some pixels.
PickedKeys PickAt(const SceneProjection& projection, Point2 place);

enum class BandRule {
    Inside,   ///< takes what lies wholly inside
    Touching  ///< takes what it touches as well
};

/// What a rectangle of the picture takes, ascending by key.
PickedKeys PickIn(const SceneProjection& projection, const Rect2& band, BandRule rule);

}  // namespace zt
