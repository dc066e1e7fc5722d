#pragma once

#include <QColor>
#include <QPalette>
#include <array>

#include "zt_tb/modelview/drawn_kind.h"
#include "zt_tb/modelview/scene_results.h"

namespace zt {

/// The colours of the model view for a light or dark palette.
struct ModelColors {
    QColor background;
    QColor text;
    QColor faint;  ///< levels, frames
    QColor node;
    QColor support;
    QColor force;
    QColor moment;
    QColor selected;
    QColor highlighted;
    std::array<QColor, 3> axes;
    std::array<QColor, kDrawnKinds> kinds;
    /// From the least value to the greatest. Lightness rises or falls evenly, so that the order is seen without
    /// colours, and the ends keep clear of the background.
    std::array<QColor, kColorSteps> steps;
    QColor noValue;

    static ModelColors Of(const QPalette& palette);
    QColor OfKind(DrawnKind kind) const { return kinds[static_cast<std::size_t>(kind)]; }
    QColor OfStep(std::size_t step) const { return step < steps.size() ? steps[step] : noValue; }
    /// A colour as it is seen at a depth: it fades into the background with the distance.
    QColor AtDepth(const QColor& color, double nearness) const;
};

}  // namespace zt
