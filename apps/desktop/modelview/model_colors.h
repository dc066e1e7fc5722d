#pragma once

#include <QColor>
#include <QPalette>
#include <array>

#include "zt_tb/modelview/drawn_kind.h"

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

    static ModelColors Of(const QPalette& palette);
    QColor OfKind(DrawnKind kind) const { return kinds[static_cast<std::size_t>(kind)]; }
    /// A colour as it is seen at a depth: it fades into the background with the distance.
    QColor AtDepth(const QColor& color, double nearness) const;
};

}  // namespace zt
