#pragma once

#include <vector>

#include "zt_tb/modelview/camera.h"
#include "zt_tb/modelview/scene_results.h"

namespace zt {

/// A scene as a camera sees it: where every node stands in the picture, moved where a deformation is given. It looks at
/// what it was given as long as it lives.
class SceneProjection {
public:
    SceneProjection(const ModelScene& scene, const Camera& camera, const SceneDeformation* deformation = nullptr);

    const ModelScene& Scene() const { return scene_; }
    const Camera& View() const { return camera_; }
    /// The picture's whole extent.
    Rect2 Frame() const { return {0.0, 0.0, camera_.Width(), camera_.Height()}; }
    /// Where the node of a place in the list of nodes stands.
    const ScreenPoint& At(std::uint32_t node) const { return points_[node]; }
    /// Whether members are bent.
    bool IsDeformed() const { return deformation_ != nullptr; }
    /// Where a place on a member is, from 0 to 1 along it.
    Point2 PlaceOn(const SceneLine& line, double along) const;
    /// Whether nodes stand far enough apart to be drawn as dots and to be taken by the mouse.
    bool ShowsNodes() const { return showsNodes_; }
    /// Size in pixels of a symbol that is a share of a member's usual length, between a least and a greatest size.
    double SymbolSize(double share, double least, double most) const {
        return std::clamp(share * UsualLength(), least, most);
    }
    /// A member's usual length in pixels.
    double UsualLength() const { return scene_.UsualLength() * camera_.Scale(); }
    /// The least and the greatest depth.
    double Near() const { return near_; }
    double Far() const { return far_; }

    /// The corners of a face in the picture.
    void OutlineOf(const SceneFace& face, std::vector<Point2>& outline) const;
    /// Whether a place of the picture lies on a face and not in one of its openings.
    bool IsOnFace(const SceneFace& face, Point2 place) const;

private:
    const ModelScene& scene_;
    const Camera& camera_;
    const SceneDeformation* deformation_ = nullptr;
    std::vector<ScreenPoint> points_;
    bool showsNodes_ = false;
    double near_ = 0.0;
    double far_ = 0.0;
};

}  // namespace zt
