#include "zt_tb/modelview/model_mouse.h"

#include <cmath>

namespace zt {
namespace {

/// A hand that clicks moves the mouse by no more pixels than these.
constexpr double kClickRoom = 4.0;
constexpr double kZoomOfNotch = 1.2;

}  // namespace

void ModelMouse::Press(MouseButton button, MouseKeys keys, Point2 place) {
    if (pressed_) return;
    pressed_ = button;
    keys_ = keys;
    isDragging_ = false;
    start_ = last_ = place;
    drag_ = Drag::Orbit;
    if (button == MouseButton::Right || keys.shift) {
        drag_ = Drag::Pan;
    } else if (button == MouseButton::Left && (usesBands_ || keys.control)) {
        drag_ = Drag::Band;
    }
}

void ModelMouse::Move(Point2 place) {
    if (!pressed_) return;
    const Point2 fromStart = place - start_;
    if (!isDragging_ && std::max(std::abs(fromStart.x), std::abs(fromStart.y)) < kClickRoom) return;
    isDragging_ = true;
    const Point2 way = place - last_;
    last_ = place;
    if (drag_ == Drag::Orbit) view_.Orbit(way);
    if (drag_ == Drag::Pan) view_.Pan(way);
}

void ModelMouse::Release(MouseButton button, Point2 place) {
    if (pressed_ != button) return;
    Move(place);
    const std::optional<SelectionBand> band = Band();
    const bool isClick = !isDragging_ && button == MouseButton::Left;
    pressed_.reset();
    isDragging_ = false;
    if (band) {
        view_.SelectIn(band->rect, band->rule, keys_.control);
    } else if (isClick) {
        view_.SelectAt(start_, keys_.control);
    } else {
        // What was left out while the model moved is drawn again.
        view_.Refresh();
    }
}

void ModelMouse::Wheel(Point2 place, double notches) { view_.ZoomAt(place, std::pow(kZoomOfNotch, notches)); }

bool ModelMouse::Cancel() {
    const bool wasPressed = pressed_.has_value();
    pressed_.reset();
    isDragging_ = false;
    if (wasPressed) view_.Refresh();
    return wasPressed;
}

std::optional<SelectionBand> ModelMouse::Band() const {
    if (!isDragging_ || drag_ != Drag::Band) return std::nullopt;
    return SelectionBand{Rect2::Between(start_, last_), last_.x >= start_.x ? BandRule::Inside : BandRule::Touching};
}

}  // namespace zt
