#include "zt_tb/modelview/scene_picking.h"

#include <cmath>

namespace zt {
namespace {

/// How far from a node or a line the mouse may be, in pixels.
constexpr double kNodeReach = 6.0;
constexpr double kLineReach = 5.0;
/// A face that is looked at along its plane has no inside.
constexpr double kEdgeOn = 1e-6;

/// The nearest of what was found.
struct Nearest {
    std::uint32_t key = 0;
    double depth = 0.0;

    void Take(std::uint32_t foundKey, double foundDepth) {
        if (key != 0 && foundDepth >= depth) return;
        key = foundKey;
        depth = foundDepth;
    }
};

std::uint32_t NodeAt(const SceneProjection& projection, Point2 place) {
    Nearest nearest;
    const std::vector<SceneNode>& nodes = projection.Scene().Nodes();
    for (std::uint32_t at = 0; at < nodes.size(); ++at) {
        const ScreenPoint& point = projection.At(at);
        const bool isNear = std::abs(point.x - place.x) <= kNodeReach && std::abs(point.y - place.y) <= kNodeReach;
        if (nodes[at].key != 0 && isNear) nearest.Take(nodes[at].key, point.depth);
    }
    return nearest.key;
}

std::uint32_t LineAt(const SceneProjection& projection, Point2 place) {
    Nearest nearest;
    for (const SceneLine& line : projection.Scene().Lines()) {
        if (line.key == 0) continue;
        const ScreenPoint& a = projection.At(line.start);
        const ScreenPoint& b = projection.At(line.end);
        const LineDistance distance = DistanceToLine(place, a.Flat(), b.Flat());
        if (distance.squared > kLineReach * kLineReach) continue;
        nearest.Take(line.key, a.depth + distance.along * (b.depth - a.depth));
    }
    return nearest.key;
}

/// Depth of a face at a place of the picture; false when it is looked at along its plane.
bool DepthOf(const SceneProjection& projection, const SceneFace& face, Point2 place, double& depth) {
    std::vector<Vec3> corners;
    for (const std::uint32_t corner : face.corners) {
        const ScreenPoint& point = projection.At(corner);
        corners.push_back({point.x, point.y, point.depth * projection.View().Scale()});
    }
    const Vec3 normal = NormalOf(corners);
    if (std::abs(normal.z) < kEdgeOn) return false;
    const Vec3& first = corners.front();
    const double way = (normal.x * (place.x - first.x) + normal.y * (place.y - first.y)) / normal.z;
    depth = (first.z - way) / projection.View().Scale();
    return true;
}

std::uint32_t FaceAt(const SceneProjection& projection, Point2 place) {
    Nearest nearest;
    for (const SceneFace& face : projection.Scene().Faces()) {
        double depth = 0.0;
        if (face.key == 0 || !projection.IsOnFace(face, place) || !DepthOf(projection, face, place, depth)) continue;
        // An opening lies in the plane of its slab, which has none of that place.
        nearest.Take(face.key, depth);
    }
    return nearest.key;
}

}  // namespace

PickedKeys PickAt(const SceneProjection& projection, Point2 place) {
    if (projection.ShowsNodes()) {
        if (const std::uint32_t node = NodeAt(projection, place)) return {.nodes = {node}, .members = {}};
    }
    std::uint32_t member = LineAt(projection, place);
    if (member == 0) member = FaceAt(projection, place);
    if (member == 0) return {};
    return {.nodes = {}, .members = {member}};
}

PickedKeys PickIn(const SceneProjection& projection, const Rect2& band, BandRule rule) {
    PickedKeys picked;
    const ModelScene& scene = projection.Scene();
    const auto isInside = [&](std::uint32_t node) { return band.Holds(projection.At(node).Flat()); };
    for (std::uint32_t at = 0; at < scene.Nodes().size(); ++at) {
        if (scene.Nodes()[at].key != 0 && isInside(at)) picked.nodes.push_back(scene.Nodes()[at].key);
    }
    for (const SceneLine& line : scene.Lines()) {
        const auto touches = [&] {
            return LineTouches(band, projection.At(line.start).Flat(), projection.At(line.end).Flat());
        };
        if (line.key == 0) continue;
        if (rule == BandRule::Inside ? isInside(line.start) && isInside(line.end) : touches()) {
            picked.members.push_back(line.key);
        }
    }
    std::vector<Point2> outline;
    for (const SceneFace& face : scene.Faces()) {
        const auto touches = [&] {
            projection.OutlineOf(face, outline);
            return PolygonTouches(band, outline);
        };
        if (face.key == 0) continue;
        const bool taken =
            rule == BandRule::Inside ? std::all_of(face.corners.begin(), face.corners.end(), isInside) : touches();
        if (taken) picked.members.push_back(face.key);
    }
    std::sort(picked.nodes.begin(), picked.nodes.end());
    std::sort(picked.members.begin(), picked.members.end());
    return picked;
}

}  // namespace zt
