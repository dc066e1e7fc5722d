#include "zt_tb/modelview/camera.h"

#include <cmath>
#include <numbers>

namespace zt {
namespace {

constexpr double kPi = std::numbers::pi;
/// A way over this many pixels turns the model by half a turn.
constexpr double kHalfTurn = 600.0;
constexpr double kLeastScale = 1e-4;
constexpr double kMostScale = 1e5;

struct ViewAngles {
    double azimuth;
    double elevation;
};
/// By standard view. The isometric one makes equal lengths along the three axes look equal.
const ViewAngles kViews[] = {
    {0.0, kPi / 2.0}, {0.0, 0.0}, {kPi / 2.0, 0.0}, {-kPi / 4.0, std::atan(1.0 / std::numbers::sqrt2)}};

}  // namespace

void Camera::SetSize(double width, double height) {
    width_ = width;
    height_ = height;
}

void Camera::Turn(double azimuth, double elevation) {
    azimuth_ = std::remainder(azimuth, 2.0 * kPi);
    elevation_ = std::clamp(elevation, -kPi / 2.0, kPi / 2.0);
    const double ca = std::cos(azimuth_);
    const double sa = std::sin(azimuth_);
    const double ce = std::cos(elevation_);
    const double se = std::sin(elevation_);
    right_ = {ca, sa, 0.0};
    forward_ = {-sa * ce, ca * ce, -se};
    up_ = {-sa * se, ca * se, ce};
}

void Camera::SetView(StandardView view) {
    const ViewAngles& angles = kViews[static_cast<int>(view)];
    Turn(angles.azimuth, angles.elevation);
}

void Camera::Fit(const Box3& box, double margin) {
    if (box.IsEmpty() || width_ <= 0.0 || height_ <= 0.0) return;
    target_ = box.Center();
    double halfWidth = 0.0;
    double halfHeight = 0.0;
    for (int at = 0; at < 8; ++at) {
        const Vec3 way = box.Corner(at) - target_;
        halfWidth = std::max(halfWidth, std::abs(Dot(way, right_)));
        halfHeight = std::max(halfHeight, std::abs(Dot(way, up_)));
    }
    const auto room = [margin](double size) { return std::max(0.5 * size - margin, 0.25 * size); };
    // A single node has no extent: it is shown as if it had a metre.
    constexpr double kLeastExtent = 0.5;
    halfWidth = std::max(halfWidth, halfHeight > kLeastExtent ? 1e-9 : kLeastExtent);
    halfHeight = std::max(halfHeight, 1e-9);
    scale_ = std::clamp(std::min(room(width_) / halfWidth, room(height_) / halfHeight), kLeastScale, kMostScale);
}

void Camera::Orbit(Point2 way, const Vec3& about) {
    const ScreenPoint before = Project(about);
    Turn(azimuth_ - way.x * kPi / kHalfTurn, elevation_ + way.y * kPi / kHalfTurn);
    const ScreenPoint after = Project(about);
    Pan(before.Flat() - after.Flat());
    // The place keeps its distance as well, so that turning to and fro comes back to the same view.
    target_ = target_ + forward_ * (after.depth - before.depth);
}

void Camera::Pan(Point2 way) { target_ = target_ - right_ * (way.x / scale_) + up_ * (way.y / scale_); }

void Camera::ZoomAt(Point2 place, double factor) {
    const Vec3 before = Unproject(place);
    scale_ = std::clamp(scale_ * factor, kLeastScale, kMostScale);
    target_ = target_ + (before - Unproject(place));
}

Vec3 Camera::Unproject(Point2 place) const {
    return target_ + right_ * ((place.x - 0.5 * width_) / scale_) + up_ * ((0.5 * height_ - place.y) / scale_);
}

}  // namespace zt
