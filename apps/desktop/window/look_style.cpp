#include "desktop/window/look_style.h"

#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>

namespace zt {
namespace {

bool IsDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

}  // namespace

LookStyle::LookStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void LookStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool isBox = element == PE_IndicatorCheckBox || element == PE_IndicatorItemViewItemCheck;
    if ((!isBox && element != PE_IndicatorRadioButton) || !IsDark(option->palette)) return;
    QColor frame = option->palette.color(QPalette::WindowText);
    frame.setAlphaF(option->state & State_Enabled ? 0.55f : 0.25f);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(frame);
    painter->setBrush(Qt::NoBrush);
    const QRectF box = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
    const double radius = isBox ? 2.0 : box.width() / 2;
    painter->drawRoundedRect(box, radius, radius);
    painter->restore();
}

}  // namespace zt
