#include "desktop/graph/story_plot.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "desktop/grid/qt_text.h"

namespace zt {
namespace {

constexpr int kMargin = 10;
constexpr int kTicks = 4;
constexpr std::size_t kMostInLegend = 12;

/// A round number that divides a range into about `count` pieces.
double RoundStep(double range, int count) {
    if (range <= 0.0) return 1.0;
    const double rough = range / count;
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (rough <= factor * power) return factor * power;
    }
    return 10.0 * power;
}

}  // namespace

StoryPlot::StoryPlot(QWidget* parent) : QWidget(parent) {
    setMinimumWidth(160);
    hide();
}

void StoryPlot::Show(StoryProfile profile) {
    if (profile == profile_) return;
    profile_ = std::move(profile);
    setVisible(!profile_.curves.empty());
    setAccessibleName(ToQt(profile_.title));
    update();
}

StoryPlot::Extent StoryPlot::ExtentOfValues() const {
    Extent extent;
    for (const StoryCurve& curve : profile_.curves) {
        for (const double value : curve.values) {
            extent.least = std::min(extent.least, value);
            extent.greatest = std::max(extent.greatest, value);
        }
    }
    const double step = RoundStep(extent.greatest - extent.least, kTicks);
    extent.least = std::floor(extent.least / step) * step;
    extent.greatest = std::ceil(extent.greatest / step) * step;
    if (extent.greatest <= extent.least) extent.greatest = extent.least + 1.0;
    return extent;
}

QPointF StoryPlot::PlaceOf(const QRectF& area, const Extent& extent, std::size_t story, double value) const {
    const double along = (value - extent.least) / (extent.greatest - extent.least);
    const double down = (static_cast<double>(story) + 0.5) / static_cast<double>(profile_.stories.size());
    return {area.left() + along * area.width(), area.top() + down * area.height()};
}

// Colours that people who do not see red and green apart can tell, the lighter ones in dark windows.
QColor StoryPlot::ColourOf(std::size_t curve) const {
    static constexpr int kHues[] = {210, 30, 165, 330, 50, 190, 270, 0};
    const bool isDark = palette().color(QPalette::Window).lightness() < 128;
    const auto hue = kHues[curve % std::size(kHues)];
    return QColor::fromHsl(hue, 200, isDark ? 160 : 105);
}

void StoryPlot::PaintAxes(QPainter& painter, const QRectF& area, const Extent& extent) const {
    QColor line = palette().color(QPalette::Text);
    line.setAlphaF(0.25F);
    const double step = RoundStep(extent.greatest - extent.least, kTicks);
    const QFontMetricsF metrics(font());
    for (double value = extent.least; value <= extent.greatest + step / 2.0; value += step) {
        const double x = PlaceOf(area, extent, 0, value).x();
        painter.setPen(QPen(line, std::abs(value) < step / 2.0 ? 1.5 : 0.5));
        painter.drawLine(QPointF(x, area.top()), QPointF(x, area.bottom()));
        painter.setPen(palette().color(QPalette::Text));
        const QRectF place(x - 40.0, area.bottom() + 2.0, 80.0, metrics.height());
        painter.drawText(place, Qt::AlignHCenter, QString::number(std::abs(value) < step / 2.0 ? 0.0 : value, 'g', 4));
    }
    // Names of stories that would cover each other are left out.
    const double pitch = area.height() / static_cast<double>(profile_.stories.size());
    const auto every = static_cast<std::size_t>(std::max(1.0, std::ceil(metrics.height() / pitch)));
    for (std::size_t story = 0; story < profile_.stories.size(); story += every) {
        const double y = PlaceOf(area, extent, story, 0.0).y();
        const QRectF place(0.0, y - metrics.height() / 2.0, area.left() - 6.0, metrics.height());
        painter.drawText(place, Qt::AlignRight | Qt::AlignVCenter, ToQt(profile_.stories[story]));
    }
}

void StoryPlot::PaintCurves(QPainter& painter, const QRectF& area, const Extent& extent) const {
    for (std::size_t at = 0; at < profile_.curves.size(); ++at) {
        QPolygonF line;
        const std::vector<double>& values = profile_.curves[at].values;
        for (std::size_t story = 0; story < values.size(); ++story) line << PlaceOf(area, extent, story, values[story]);
        painter.setPen(QPen(ColourOf(at), 1.6));
        painter.drawPolyline(line);
        painter.setBrush(ColourOf(at));
        for (const QPointF& point : line) painter.drawEllipse(point, 2.2, 2.2);
        painter.setBrush(Qt::NoBrush);
    }
}

void StoryPlot::PaintLegend(QPainter& painter, const QRectF& area) const {
    const QFontMetricsF metrics(font());
    const std::size_t shown = std::min(profile_.curves.size(), kMostInLegend);
    for (std::size_t at = 0; at < shown; ++at) {
        const double y = area.top() + (static_cast<double>(at) + 0.5) * metrics.height();
        painter.setPen(QPen(ColourOf(at), 2.0));
        painter.drawLine(QPointF(area.left(), y), QPointF(area.left() + 16.0, y));
        painter.setPen(palette().color(QPalette::Text));
        const bool isLast = at + 1 == kMostInLegend && profile_.curves.size() > kMostInLegend;
        const QString name = isLast ? QStringLiteral("…") : ToQt(profile_.curves[at].name);
        painter.drawText(QRectF(area.left() + 22.0, y - metrics.height() / 2.0, area.width() - 22.0, metrics.height()),
                         Qt::AlignVCenter, metrics.elidedText(name, Qt::ElideRight, area.width() - 22.0));
    }
}

void StoryPlot::paintEvent(QPaintEvent* /*event*/) {
    if (profile_.curves.empty()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QFontMetricsF metrics(font());
    double names = 0.0;
    for (const std::string& story : profile_.stories) names = std::max(names, metrics.horizontalAdvance(ToQt(story)));
    const double title = metrics.height() + 6.0;
    const double legend =
        static_cast<double>(std::min(profile_.curves.size(), kMostInLegend)) * metrics.height() + kMargin;
    const double left = std::min(names, width() / 3.0) + kMargin + 6.0;
    const QRectF area(left, kMargin + title, width() - left - 2 * kMargin - 10.0,
                      height() - 2 * kMargin - title - legend - metrics.height() - 4.0);
    if (area.width() < 40.0 || area.height() < 40.0) return;
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(QRectF(kMargin, kMargin, width() - 2 * kMargin, title), Qt::AlignHCenter, ToQt(profile_.title));
    const Extent extent = ExtentOfValues();
    PaintAxes(painter, area, extent);
    PaintCurves(painter, area, extent);
    PaintLegend(painter, {left, area.bottom() + metrics.height() + kMargin, area.width(), legend});
}

}  // namespace zt
