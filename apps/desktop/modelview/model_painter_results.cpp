#include "desktop/grid/qt_text.h"
#include "desktop/modelview/drawing.h"
#include "desktop/modelview/model_painter.h"

namespace zt {
namespace {

constexpr double kLineGap = 3.0;
constexpr double kBarWidth = 14.0;
constexpr double kBarGap = 6.0;
/// How much of what is behind the legend its own background hides.
constexpr float kLegendCover = 0.86F;

}  // namespace

double ModelPainter::PaintDeformationText(const ModelView& view) {
    const QString text = zt::ToQt(view.DeformationText());
    if (text.isEmpty()) return kCornerRoom;
    const QFontMetricsF metrics(painter_.font());
    const double lineHeight = metrics.height() + kLineGap;
    const double left = view.View().Width() - kCornerRoom - metrics.horizontalAdvance(text);
    painter_.fillRect(QRectF(left - 2.0, kCornerRoom, metrics.horizontalAdvance(text) + 4.0, lineHeight),
                      WithCover(colors_.background, kLegendCover));
    painter_.setPen(colors_.text);
    painter_.drawText(QPointF(left, kCornerRoom + metrics.ascent()), text);
    return kCornerRoom + lineHeight;
}

/// A bar of the steps in the lower right corner, the greatest value at its top, and below it what has no value.
void ModelPainter::PaintColorLegend(const SceneColors& values, const Camera& camera) {
    const QFontMetricsF metrics(painter_.font());
    const double height = metrics.height();
    const std::vector<double> limits = values.Limits();
    const double right = camera.Width() - kCornerRoom;
    QStringList texts;
    for (const double limit : limits) texts.append(zt::ToQt(ColorText(limit)));
    const QString none = Word("IDS_MODEL_VIEW_NO_VALUE");
    double width = metrics.horizontalAdvance(none);
    for (const QString& text : texts) width = std::max(width, metrics.horizontalAdvance(text));
    const QString title = zt::ToQt(values.Title());
    const double barLeft = right - width - kBarGap - kBarWidth;
    const double steps = limits.size() > 1 ? static_cast<double>(kColorSteps) : static_cast<double>(limits.size());
    const double bottom = camera.Height() - kCornerRoom - 1.5 * height;
    const double top = bottom - steps * height;
    const double titleLeft = std::min(barLeft, right - metrics.horizontalAdvance(title));
    painter_.fillRect(QRectF(QPointF(titleLeft - 4.0, top - 2.0 * height), QPointF(right + 4.0, camera.Height() - 8.0)),
                      WithCover(colors_.background, kLegendCover));
    painter_.setPen(colors_.text);
    painter_.drawText(QPointF(titleLeft, top - height), title);
    const auto write = [&](const QString& text, double y) {
        painter_.setPen(colors_.text);
        painter_.drawText(QPointF(right - metrics.horizontalAdvance(text), y + 0.5 * metrics.capHeight()), text);
    };
    const auto fill = [&](double y, std::size_t step) {
        painter_.fillRect(QRectF(barLeft, y, kBarWidth, height), colors_.OfStep(step));
    };
    if (limits.size() == 1) {
        fill(top, kColorSteps - 1);
        write(texts.front(), top + 0.5 * height);
    } else {
        for (std::size_t at = 0; at < limits.size(); ++at) {
            const double y = bottom - static_cast<double>(at) * height;
            if (at < kColorSteps) fill(y - height, at);
            write(texts[static_cast<qsizetype>(at)], y);
        }
    }
    fill(bottom + 0.75 * height, kNoColor);
    write(none, bottom + 1.25 * height);
}

}  // namespace zt
