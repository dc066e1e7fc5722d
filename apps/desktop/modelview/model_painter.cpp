#include "desktop/modelview/model_painter.h"

#include <QPainterPath>
#include <algorithm>

#include "desktop/grid/qt_text.h"
#include "desktop/modelview/drawing.h"

namespace zt {
namespace {

constexpr double kLevelMargin = 5.0;  ///< around the name of a level

/// From this many lines on they are drawn thin, and without smooth edges while the model moves.
constexpr std::size_t kManyLines = 4000;
/// Widths of lines by kind.
constexpr double kWidths[kDrawnKinds] = {2.4, 1.7, 1.3, 1.7, 1.3, 1.0, 1.3};
constexpr double kMarkedWidth = 3.0;
constexpr double kColoredWidth = 2.6;
constexpr float kColoredCover = 0.6F;
constexpr double kColoredNodeSize = 7.0;
/// How near the model as it stands seems behind a deformed one.
constexpr double kFaintNearness = 0.3;
/// How much of a face covers what is behind it, by kind; an opening is only framed.
constexpr float kCover[kDrawnKinds] = {0.2F, 0.2F, 0.2F, 0.30F, 0.17F, 0.0F, 0.17F};
constexpr float kMarkedCover = 0.4F;
constexpr float kFrameCover = 0.55F;
constexpr double kNodeSize = 4.0;
constexpr double kMarkedNodeSize = 8.0;
constexpr double kAxisLength = 26.0;
/// The least width and height of a pane with axes and legend.
constexpr double kLeastPane = 220.0;

std::size_t LinesOf(const ScenePicture& picture) {
    std::size_t count = 0;
    for (const PictureSlice& slice : picture.Slices()) {
        for (const std::vector<LineStroke>& lines : slice.lines) count += lines.size();
    }
    return count;
}

/// The kinds of members that a scene has.
std::array<bool, kDrawnKinds> KindsIn(const ModelScene& scene) {
    std::array<bool, kDrawnKinds> kinds{};
    for (const SceneLine& line : scene.Lines()) {
        if (line.key != 0) kinds[static_cast<std::size_t>(line.kind)] = true;
    }
    for (const SceneFace& face : scene.Faces()) {
        if (face.key != 0) kinds[static_cast<std::size_t>(face.kind)] = true;
    }
    return kinds;
}

bool IsFaceKind(DrawnKind kind) {
    return kind == DrawnKind::Wall || kind == DrawnKind::Slab || kind == DrawnKind::Opening;
}

}  // namespace

ModelPainter::ModelPainter(QImage& image, const QFont& font, const ModelColors& colors)
    : image_(image), painter_(&image), colors_(colors) {
    painter_.setFont(font);
    painter_.setRenderHint(QPainter::Antialiasing);
}

void ModelPainter::PaintBuilding(const ModelView& view, bool isMoving) {
    const SceneProjection projection = view.Projection();
    PictureDetail detail = PictureDetail::Of(view.Scene(), isMoving);
    detail.supports = view.ShowsSupports();
    hasValues_ = !view.Colors().IsEmpty();
    if (hasValues_) detail.colors = &view.Colors();
    const ScenePicture picture(projection, detail);
    const bool isCurved = detail.curves && projection.IsDeformed();
    isDense_ = LinesOf(picture) / (isCurved ? kCurvePieces : 1) > kManyLines;
    isMoving_ = isMoving;
    PaintLevels(picture.Levels());
    if (projection.IsDeformed()) PaintUndeformed(view, detail);
    for (const PictureSlice& slice : picture.Slices()) PaintSlice(picture, slice);
    PaintSupports(picture.Supports());
    PaintNodes(picture.Nodes(), colors_.node, kNodeSize);
    for (std::size_t step = 0; step < kColorSteps; ++step) {
        PaintNodes(picture.ColoredNodes()[step], colors_.OfStep(step), isDense_ ? kNodeSize : kColoredNodeSize);
    }
    // Loads act on the model as it stands.
    if (view.Loads().LoadCase() != 0) PaintLoads(SceneProjection(view.Scene(), view.View()), view);
}

void ModelPainter::PaintMarks(const ModelView& view) {
    const SceneProjection projection = view.Projection();
    ScenePicture picture(projection);
    PaintMarked(picture, view.Highlights(), colors_.highlighted);
    PaintMarked(picture, view.Selection(), colors_.selected);
    // In a small pane they would cover the building.
    if (view.View().Width() < kLeastPane || view.View().Height() < kLeastPane) return;
    PaintAxes(view.View());
    if (view.Colors().IsEmpty()) {
        PaintLegend(view.Scene(), view.View());
    } else {
        PaintColorLegend(view.Colors(), view.View());
    }
    const double top = PaintDeformationText(view);
    if (view.Loads().LoadCase() != 0) PaintLoadLegend(view, top);
}

void ModelPainter::PaintSlice(const ScenePicture& picture, const PictureSlice& slice) {
    for (const FaceShape& face : slice.faces) {
        const auto kind = static_cast<std::size_t>(face.kind);
        const QColor color = ColorOf(face.group, slice.nearness);
        const bool hasValue = hasValues_ && face.group < kNoColor;
        const float cover = hasValue ? kColoredCover : kCover[kind];
        painter_.setPen(isDense_ ? QPen(Qt::NoPen) : QPen(WithCover(color, kFrameCover), 1.0));
        PaintFace(picture, face, cover > 0.0F ? WithCover(color, cover) : QBrush(Qt::NoBrush));
    }
    // What has no value is drawn first, behind all steps.
    const auto paint = [&](std::size_t group) {
        PaintLines(slice.lines[group], ColorOf(group, slice.nearness), WidthOf(group));
    };
    paint(kNoColor);
    for (std::size_t group = 0; group < kNoColor; ++group) paint(group);
}

void ModelPainter::PaintUndeformed(const ModelView& view, PictureDetail detail) {
    detail.faces = false;
    detail.supports = false;
    detail.colors = nullptr;
    const SceneProjection projection(view.Scene(), view.View());
    const ScenePicture picture(projection, detail);
    const QColor color = colors_.AtDepth(colors_.faint, kFaintNearness);
    for (const PictureSlice& slice : picture.Slices()) {
        for (const std::vector<LineStroke>& lines : slice.lines) {
            PaintLines(lines, color, isDense_ ? 0.0 : 1.0, Qt::DotLine);
        }
    }
}

/// Colours of values do not fade with the distance, for they are to be found in the legend.
QColor ModelPainter::ColorOf(std::size_t group, double nearness) const {
    if (hasValues_) return colors_.OfStep(group);
    return colors_.AtDepth(colors_.kinds[std::min(group, kDrawnKinds - 1)], nearness);
}

double ModelPainter::WidthOf(std::size_t group) const {
    // A pen of no width is one pixel wide at any scale, and is drawn fastest.
    if (isDense_) return 0.0;
    if (hasValues_) return group < kNoColor ? kColoredWidth : 1.0;
    return kWidths[std::min(group, kDrawnKinds - 1)];
}

void ModelPainter::PaintFace(const ScenePicture& picture, const FaceShape& face, const QBrush& brush) {
    painter_.setBrush(brush);
    QPolygonF polygon;
    QPainterPath path;
    for (std::uint32_t ring = 0; ring < face.rings; ++ring) {
        polygon.clear();
        for (const Point2& point : picture.PointsOf(face, ring)) polygon.append(ToQt(point));
        if (face.rings == 1) {
            painter_.drawPolygon(polygon);
            return;
        }
        path.addPolygon(polygon);
        path.closeSubpath();
    }
    painter_.drawPath(path);
}

void ModelPainter::PaintLines(const std::vector<LineStroke>& lines, const QColor& color, double width,
                              Qt::PenStyle style) {
    if (lines.empty()) return;
    if (isDense_ && isMoving_) {
        const PixelPlane plane{reinterpret_cast<std::uint32_t*>(image_.bits()), image_.width(), image_.height(),
                               static_cast<int>(image_.bytesPerLine() / 4)};
        return DrawThinLines(plane, lines, image_.devicePixelRatio(), color.rgb());
    }
    QList<QLineF> drawn;
    drawn.reserve(static_cast<qsizetype>(lines.size()));
    for (const LineStroke& line : lines) drawn.append({ToQt(line.from), ToQt(line.to)});
    // Dots of many lines take long and are not seen.
    QPen pen(color, width, isDense_ ? Qt::SolidLine : style, Qt::RoundCap);
    pen.setCosmetic(width == 0.0);
    painter_.setPen(pen);
    painter_.drawLines(drawn);
}

void ModelPainter::PaintNodes(const std::vector<Point2>& nodes, const QColor& color, double size) {
    painter_.setPen(QPen(color, size, Qt::SolidLine, Qt::RoundCap));
    QPolygonF points;
    for (const Point2& node : nodes) points.append(ToQt(node));
    painter_.drawPoints(points);
}

void ModelPainter::PaintSupports(const SupportSymbols& supports) {
    painter_.setPen(QPen(colors_.support, 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    for (const LineStroke& line : supports.lines) painter_.drawLine(ToQt(line.from), ToQt(line.to));
    painter_.setBrush(WithCover(colors_.support, 0.45F));
    for (const Rect2& plate : supports.plates) {
        painter_.drawRect(QRectF(QPointF(plate.left, plate.top), QPointF(plate.right, plate.bottom)));
    }
    for (const auto& [top, left, right] : supports.triangles) {
        painter_.drawPolygon(QPolygonF({ToQt(top), ToQt(left), ToQt(right)}));
    }
}

void ModelPainter::PaintLevels(const std::vector<LevelMark>& levels) {
    const QFontMetricsF metrics(painter_.font());
    for (const LevelMark& level : levels) {
        const QString names = zt::ToQt(level.names);
        painter_.setPen(QPen(WithCover(colors_.faint, 0.6F), 1.0, Qt::DashLine));
        painter_.drawLine(ToQt(level.from), ToQt(level.to));
        painter_.setPen(colors_.faint);
        const double width = metrics.horizontalAdvance(names);
        // Names that are longer than the margin begin at the edge of the window.
        const double left = std::max(kLevelMargin, level.from.x - kLevelMargin - width);
        painter_.drawText(QPointF(left, level.from.y + 0.5 * metrics.capHeight()), names);
    }
}

void ModelPainter::PaintMarked(ScenePicture& picture, const PickedKeys& keys, const QColor& color) {
    const PictureMarks marks = picture.MarksOf(keys);
    for (const FaceShape& face : marks.faces) {
        painter_.setPen(QPen(color, 2.0));
        PaintFace(picture, face, WithCover(color, kMarkedCover));
    }
    PaintLines(marks.lines, color, marks.lines.size() > kManyLines ? 0.0 : kMarkedWidth);
    PaintNodes(marks.nodes, color, kMarkedNodeSize);
}

void ModelPainter::PaintBand(QPainter& painter, const SelectionBand& band, const ModelColors& colors) {
    const bool isInside = band.rule == BandRule::Inside;
    const QColor color = isInside ? colors.selected : colors.axes[1];
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(color, 1.0, isInside ? Qt::SolidLine : Qt::DashLine));
    painter.setBrush(WithCover(color, 0.12F));
    painter.drawRect(QRectF(QPointF(band.rect.left, band.rect.top), QPointF(band.rect.right, band.rect.bottom)));
}

void ModelPainter::PaintAxes(const Camera& camera) {
    constexpr Vec3 kAxes[] = {{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}};
    constexpr const char* kNames[] = {"X", "Y", "Z"};
    constexpr double kLeastShown = 0.15;
    const QPointF origin(kCornerRoom + kAxisLength + 6.0, camera.Height() - kCornerRoom - kAxisLength - 6.0);
    const QFontMetricsF metrics(painter_.font());
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const QPointF way = ToQt(camera.Direction(kAxes[axis])) * kAxisLength;
        const double length = std::hypot(way.x(), way.y());
        if (length < kLeastShown * kAxisLength) continue;
        painter_.setPen(QPen(colors_.axes[axis], 2.0, Qt::SolidLine, Qt::RoundCap));
        painter_.drawLine(origin, origin + way);
        const QString name = QLatin1String(kNames[axis]);
        const QPointF middle = origin + way * ((length + 9.0) / length);
        painter_.drawText(middle + QPointF(-0.5 * metrics.horizontalAdvance(name), 0.5 * metrics.capHeight()), name);
    }
}

void ModelPainter::PaintLegend(const ModelScene& scene, const Camera& camera) {
    const std::array<bool, kDrawnKinds> kinds = KindsIn(scene);
    const QFontMetricsF metrics(painter_.font());
    const double lineHeight = metrics.height() + 3.0;
    double y = camera.Height() - kCornerRoom - 0.5 * lineHeight;
    for (std::size_t at = kDrawnKinds; at-- > 0;) {
        const auto kind = static_cast<DrawnKind>(at);
        if (!kinds[at]) continue;
        const QString name = Word(DrawnKindName(kind));
        const double x = camera.Width() - kCornerRoom - metrics.horizontalAdvance(name);
        painter_.setPen(colors_.text);
        painter_.drawText(QPointF(x, y + 0.5 * metrics.capHeight()), name);
        const QColor color = colors_.OfKind(kind);
        if (IsFaceKind(kind)) {
            painter_.setPen(QPen(color, 1.0));
            painter_.setBrush(kCover[at] > 0.0F ? WithCover(color, 2.0F * kCover[at]) : QBrush(Qt::NoBrush));
            painter_.drawRect(QRectF(x - 24.0, y - 4.5, 16.0, 9.0));
        } else {
            painter_.setPen(QPen(color, kWidths[at], Qt::SolidLine, Qt::RoundCap));
            painter_.drawLine(QPointF(x - 24.0, y), QPointF(x - 8.0, y));
        }
        y -= lineHeight;
    }
}

}  // namespace zt
