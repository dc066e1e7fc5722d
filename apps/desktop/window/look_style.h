#pragma once

#include <QProxyStyle>

namespace zt {

/// The look of the program's own themes. The style below it draws the frames of check boxes and radio buttons from the
/// colour of the window, which does not show on a dark one.
class LookStyle final : public QProxyStyle {
public:
    LookStyle();
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

}  // namespace zt
