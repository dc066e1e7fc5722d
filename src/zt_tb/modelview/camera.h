#pragma once

#include "zt_tb/modelview/geometry.h"

namespace zt {

enum class StandardView { Plan, FrontElevation, SideElevation, Isometric };

/// Looks at the model by parallel projection: z stands upright in the picture, parallel lines stay parallel, and a
/// length looks the same near and far.
class Camera {
public:
    /// Size of the picture in pixels; nothing is projected into an empty one.
    void SetSize(double width, double height);
    double Width() const { return width_; }
    double Height() const { return height_; }
    /// Pixels of one metre.
    double Scale() const { return scale_; }
    /// Turn about the upright axis and height above the horizon, in radians.
    double Azimuth() const { return azimuth_; }
    double Elevation() const { return elevation_; }

    void SetView(StandardView view);
    /// Shows the whole of a box in the middle of the picture, inside of a margin in pixels. An empty box leaves the
    /// camera as it is.
    void Fit(const Box3& box, double margin);
    /// Turns the model about a place by the way of the mouse in pixels.
    void Orbit(Point2 way, const Vec3& about);
    /// Moves the model with the mouse.
    void Pan(Point2 way);
    /// Makes the model larger by a factor; what lies under the place of the picture stays there.
    void ZoomAt(Point2 place, double factor);

    ScreenPoint Project(const Vec3& place) const {
        const Vec3 way = place - target_;
        return {0.5 * width_ + Dot(way, right_) * scale_, 0.5 * height_ - Dot(way, up_) * scale_, Dot(way, forward_)};
    }
    /// A place of the model that is seen at a place of the picture, as far away as the middle of the view.
    Vec3 Unproject(Point2 place) const;
    /// Where a direction points to in the picture, without regard to the scale.
    Point2 Direction(const Vec3& direction) const { return {Dot(direction, right_), -Dot(direction, up_)}; }

    bool operator==(const Camera&) const = default;

private:
    void Turn(double azimuth, double elevation);

    double width_ = 0.0;
    double height_ = 0.0;
    double scale_ = 40.0;
    double azimuth_ = 0.0;
    double elevation_ = 0.0;
    Vec3 target_;
    Vec3 right_{1.0, 0.0, 0.0};
    Vec3 up_{0.0, 0.0, 1.0};
    Vec3 forward_{0.0, 1.0, 0.0};
};

}  // namespace zt
