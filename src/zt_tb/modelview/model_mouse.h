#pragma once

#include <optional>

#include "zt_tb/modelview/model_view.h"

namespace zt {

enum class MouseButton { Left, Middle, Right };

/// Keys that are held while the mouse is used.
struct MouseKeys {
    bool shift = false;
    bool control = false;
};

/// A rectangle that the user draws: from left to right it takes what lies wholly inside, from right to left what it
/// touches.
struct SelectionBand {
    Rect2 rect;
    BandRule rule = BandRule::Inside;
};

/// What the mouse does in the model view. The left button selects where it is clicked; dragged it turns the model, or
/// draws a band when bands are chosen or Ctrl is held. The middle button turns, the right one and Shift move the model,
/// the wheel zooms.
class ModelMouse {
public:
    explicit ModelMouse(ModelView& view) : view_(view) {}

    /// Whether the left button draws bands.
    void UseBands(bool use) { usesBands_ = use; }
    bool UsesBands() const { return usesBands_; }

    void Press(MouseButton button, MouseKeys keys, Point2 place);
    void Move(Point2 place);
    void Release(MouseButton button, Point2 place);
    /// Zooms by notches of the wheel, away from the user into the model.
    void Wheel(Point2 place, double notches);
    /// Drops what the mouse is at. False when it is at nothing.
    bool Cancel();

    /// Whether the model is being turned or moved.
    bool IsMovingModel() const { return isDragging_ && drag_ != Drag::Band; }
    /// The band that is being drawn.
    std::optional<SelectionBand> Band() const;

private:
    enum class Drag { Orbit, Pan, Band };

    ModelView& view_;
    bool usesBands_ = false;
    std::optional<MouseButton> pressed_;
    MouseKeys keys_;
    Drag drag_ = Drag::Orbit;
    bool isDragging_ = false;
    Point2 start_;
    Point2 last_;
};

}  // namespace zt
