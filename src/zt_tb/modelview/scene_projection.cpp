#include "zt_tb/modelview/scene_projection.h"

namespace zt {
namespace {

/// Area of the picture that a node needs for itself, in square pixels, and the room around the outermost nodes.
constexpr double kNodeArea = 150.0;
constexpr double kNodeRoom = 20.0;

}  // namespace

SceneProjection::SceneProjection(const ModelScene& scene, const Camera& camera, const SceneDeformation* deformation)
    : scene_(scene), camera_(camera), deformation_(deformation && !deformation->IsEmpty() ? deformation : nullptr) {
    const std::vector<SceneNode>& nodes = scene.Nodes();
    const Rect2 frame = Frame();
    points_.resize(nodes.size());
    std::size_t visible = 0;
    Box3 extent;
    bool isFirst = true;
    for (std::size_t at = 0; at < nodes.size(); ++at) {
        if (nodes[at].key == 0) continue;
        const Vec3 place =
            deformation_ ? deformation_->PlaceOf(nodes[at], static_cast<std::uint32_t>(at)) : nodes[at].place;
        const ScreenPoint point = points_[at] = camera.Project(place);
        near_ = isFirst ? point.depth : std::min(near_, point.depth);
        far_ = isFirst ? point.depth : std::max(far_, point.depth);
        isFirst = false;
        if (!frame.Holds(point.Flat())) continue;
        ++visible;
        extent.Add({point.x, point.y, 0.0});
    }
    const double area = (extent.high.x - extent.low.x + kNodeRoom) * (extent.high.y - extent.low.y + kNodeRoom);
    showsNodes_ = visible > 0 && static_cast<double>(visible) * kNodeArea <= area;
}

Point2 SceneProjection::PlaceOn(const SceneLine& line, double along) const {
    if (deformation_) return camera_.Project(deformation_->PlaceOn(scene_, line, along)).Flat();
    const Point2 start = At(line.start).Flat();
    const Point2 way = At(line.end).Flat() - start;
    return {start.x + way.x * along, start.y + way.y * along};
}

void SceneProjection::OutlineOf(const SceneFace& face, std::vector<Point2>& outline) const {
    outline.clear();
    for (const std::uint32_t corner : face.corners) outline.push_back(At(corner).Flat());
}

bool SceneProjection::IsOnFace(const SceneFace& face, Point2 place) const {
    std::vector<Point2> outline;
    OutlineOf(face, outline);
    if (!PolygonHolds(outline, place)) return false;
    for (const std::uint32_t hole : face.holes) {
        OutlineOf(scene_.Faces()[hole], outline);
        if (PolygonHolds(outline, place)) return false;
    }
    return true;
}

}  // namespace zt
