#include "desktop/grid/qt_text.h"
#include "desktop/modelview/drawing.h"
#include "desktop/modelview/model_painter.h"
#include "zt_tb/modelview/load_legend.h"

namespace zt {
namespace {

constexpr double kLoadWidth = 1.1;
constexpr double kSingleWidth = 1.8;
constexpr float kAreaCover = 0.07F;
constexpr double kDotRadius = 2.5;
/// How much of what is behind a text its own background hides.
constexpr float kTextCover = 0.78F;
constexpr float kLegendCover = 0.92F;
/// The arrow of the self-weight in its line of the legend.
constexpr double kWeightLength = 13.0;
constexpr double kWeightHead = 4.5;
constexpr double kWeightRoom = 20.0;
constexpr double kLineGap = 3.0;

}  // namespace

void ModelPainter::PaintLoads(const SceneProjection& projection, const ModelView& view) {
    const LoadPicture picture(projection, view.Loads());
    for (const LoadSlice& slice : picture.Slices()) {
        PaintShapes(slice.forces, colors_.AtDepth(colors_.force, slice.nearness));
        PaintShapes(slice.moments, colors_.AtDepth(colors_.moment, slice.nearness));
    }
    if (isDense_ && isMoving_) return;
    const QFontMetricsF metrics(painter_.font());
    const auto width = [&metrics](const std::string& text) { return metrics.horizontalAdvance(zt::ToQt(text)); };
    PaintLabels(picture.Labels({*view.Units(), width, metrics.height()}));
}

void ModelPainter::PaintShapes(const LoadShapes& shapes, const QColor& color) {
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(WithCover(color, kAreaCover));
    for (const auto& [a, b, c, d] : shapes.areas) painter_.drawPolygon(QPolygonF({ToQt(a), ToQt(b), ToQt(c), ToQt(d)}));
    PaintLines(shapes.lines, color, isDense_ ? 0.0 : kLoadWidth);
    PaintLines(shapes.stems, color, isDense_ ? 0.0 : kSingleWidth);
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(color);
    for (const auto& [tip, left, right] : shapes.heads) {
        painter_.drawPolygon(QPolygonF({ToQt(tip), ToQt(left), ToQt(right)}));
    }
    PaintNodes(shapes.dots, color, 2.0 * kDotRadius);
}

void ModelPainter::PaintLabels(const std::vector<LoadLabel>& labels) {
    const QFontMetricsF metrics(painter_.font());
    for (const LoadLabel& label : labels) {
        const QString text = zt::ToQt(label.text);
        const double width = metrics.horizontalAdvance(text);
        const QPointF middle = ToQt(label.place);
        const double height = metrics.capHeight() + 2.0;
        painter_.fillRect(QRectF(middle.x() - 0.5 * width - 1.0, middle.y() - 0.5 * height, width + 2.0, height),
                          WithCover(colors_.background, kTextCover));
        painter_.setPen(colors_.text);
        painter_.drawText(middle + QPointF(-0.5 * width, 0.5 * metrics.capHeight()), text);
    }
}

/// In the upper right corner, since the names of levels stand at the left.
void ModelPainter::PaintLoadLegend(const ModelView& view, double top) {
    const LoadLegend legend = LegendOf(view.Loads(), *view.Units());
    const Vec3& weight = view.Loads().SelfWeight();
    const bool hasWeight = weight != Vec3{};
    const QFontMetricsF metrics(painter_.font());
    const double lineHeight = metrics.height() + kLineGap;
    double y = top + metrics.ascent();
    // Returns where the line begins.
    const auto write = [&](const std::string& text, const QColor& color, double room) {
        const QString shown = zt::ToQt(text);
        const double width = room + metrics.horizontalAdvance(shown);
        const QPointF place(view.View().Width() - kCornerRoom - width, y);
        painter_.fillRect(QRectF(place.x() - 2.0, y - metrics.ascent(), width + 4.0, lineHeight),
                          WithCover(colors_.background, kLegendCover));
        painter_.setPen(color);
        painter_.drawText(place + QPointF(room, 0.0), shown);
        return place;
    };
    write(legend.title, colors_.text, 0.0);
    for (std::size_t line = 0; line < legend.lines.size(); ++line) {
        y += lineHeight;
        // The self-weight stands in the first line.
        const bool isWeight = hasWeight && line == 0;
        const QPointF place = write(legend.lines[line], colors_.faint, isWeight ? kWeightRoom : 0.0);
        const QPointF middle = place + QPointF(0.5 * kWeightLength, -0.5 * metrics.capHeight());
        if (isWeight) PaintSelfWeight(view.View(), weight, middle);
    }
}

/// An arrow about its middle, or a dot where the self-weight is looked along.
void ModelPainter::PaintSelfWeight(const Camera& camera, const Vec3& factors, const QPointF& place) {
    const double length = std::sqrt(Dot(factors, factors));
    const QPointF way = ToQt(camera.Direction(factors * (1.0 / length))) * kWeightLength;
    const double shown = std::hypot(way.x(), way.y());
    painter_.setBrush(colors_.force);
    if (shown < kWeightHead) {
        painter_.setPen(Qt::NoPen);
        painter_.drawEllipse(place, kDotRadius, kDotRadius);
        return;
    }
    const QPointF tip = place + way * 0.5;
    const QPointF foot = tip - way * (kWeightHead / shown);
    const QPointF aside = QPointF(-way.y(), way.x()) * (0.45 * kWeightHead / shown);
    painter_.setPen(QPen(colors_.force, kLoadWidth, Qt::SolidLine, Qt::FlatCap));
    painter_.drawLine(place - way * 0.5, foot);
    painter_.setPen(Qt::NoPen);
    painter_.drawPolygon(QPolygonF({tip, foot + aside, foot - aside}));
}

}  // namespace zt
