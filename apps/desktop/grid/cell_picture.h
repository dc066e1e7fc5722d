#pragma once

#include <QColor>
#include <QPainter>
#include <string_view>

namespace zt {

/// Draws the picture of a control into a square: an SVG file whose ink is `currentColor`, in a colour that can be seen
/// on the cell. Nothing for a file that cannot be read.
void DrawCellPicture(QPainter& painter, const QRectF& square, std::string_view svg, const QColor& ink);

}  // namespace zt
