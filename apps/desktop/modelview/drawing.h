#pragma once

#include <QColor>
#include <QPointF>

#include "zt_tb/modelview/geometry.h"

namespace zt {

/// Room between the corners of the model view and what stands in them, in pixels.
inline constexpr double kCornerRoom = 14.0;

inline QPointF ToQt(Point2 point) { return {point.x, point.y}; }

/// A colour that covers what is behind it by a share.
inline QColor WithCover(QColor color, float cover) {
    color.setAlphaF(cover);
    return color;
}

}  // namespace zt
