#include "zt_tb/modelview/scene_picture.h"

#include <cmath>

namespace zt {
namespace {

/// Up to this many members everything is drawn while the model moves.
constexpr std::size_t kFewMembers = 4000;
/// Up to this many members bent ones stay curves while the model moves.
constexpr std::size_t kFewCurves = 500;
constexpr std::size_t kSlicesOfFew = 16;
constexpr std::size_t kSlicesOfMany = 5;
/// Shapes beyond the frame by less than the width of a line are seen.
constexpr double kFrameRoom = 4.0;
/// Least extent in pixels of a face and of a line in a picture of many members.
constexpr double kLeastFace = 1.5;
/// Names of levels need this height, and stand this far from the building.
constexpr double kLevelHeight = 16.0;
constexpr double kLevelGap = 10.0;
constexpr double kLevelTick = 12.0;
/// Size of supports in pixels, and as a share of a member's usual length. Where members are shorter than the least
/// length in pixels there is no room for supports.
constexpr double kSupportShare = 0.16;
constexpr double kLeastSupport = 2.5;
constexpr double kMostSupport = 11.0;
constexpr double kLeastSupported = 4.0;
/// Levels are told where upright lengths are seen at least this much.
constexpr double kLeastUpright = 0.2;
constexpr double kElevationView = 1e-6;

bool AreApart(const Rect2& a, const Rect2& b) {
    return a.right < b.left || a.left > b.right || a.bottom < b.top || a.top > b.bottom;
}

}  // namespace

PictureDetail PictureDetail::Of(const ModelScene& scene, bool isMoving) {
    const bool isFew = scene.MemberCount() <= kFewMembers;
    return {.faces = isFew || !isMoving,
            .curves = isFew && (!isMoving || scene.MemberCount() <= kFewCurves),
            .slices = isFew ? kSlicesOfFew : kSlicesOfMany};
}

ScenePicture::ScenePicture(const SceneProjection& projection, const PictureDetail& detail) : projection_(projection) {
    slices_.resize(std::max<std::size_t>(detail.slices, 1));
    const double last = static_cast<double>(slices_.size() - 1);
    for (std::size_t at = 0; at < slices_.size(); ++at) {
        slices_[at].nearness = last > 0.0 ? static_cast<double>(at) / last : 1.0;
    }
    AddLines(detail);
    if (detail.faces) AddFaces(detail.colors);
    AddNodes(detail.colors);
    if (detail.supports) AddSupports();
    AddLevels();
}

PictureSlice& ScenePicture::SliceAt(double depth) {
    const double range = projection_.Far() - projection_.Near();
    const double nearness = range > 0.0 ? (projection_.Far() - depth) / range : 1.0;
    const double at = std::floor(nearness * static_cast<double>(slices_.size()));
    return slices_[static_cast<std::size_t>(std::clamp(at, 0.0, static_cast<double>(slices_.size() - 1)))];
}

void ScenePicture::AddStrokes(const SceneLine& line, bool isCurve, std::vector<LineStroke>& strokes) const {
    const LineStroke straight{projection_.At(line.start).Flat(), projection_.At(line.end).Flat()};
    const Rect2 box = Rect2::Between(straight.from, straight.to);
    const Rect2 roomy{box.left - kFrameRoom, box.top - kFrameRoom, box.right + kFrameRoom, box.bottom + kFrameRoom};
    if (AreApart(roomy, projection_.Frame())) return;
    if (!isCurve || !projection_.IsDeformed()) return strokes.push_back(straight);
    Point2 from = straight.from;
    for (int piece = 1; piece <= kCurvePieces; ++piece) {
        const Point2 to = projection_.PlaceOn(line, static_cast<double>(piece) / kCurvePieces);
        strokes.push_back({from, to});
        from = to;
    }
}

void ScenePicture::AddLines(const PictureDetail& detail) {
    const std::vector<SceneLine>& lines = projection_.Scene().Lines();
    for (std::size_t at = 0; at < lines.size(); ++at) {
        const SceneLine& line = lines[at];
        if (line.key == 0) continue;
        const double depth = 0.5 * (projection_.At(line.start).depth + projection_.At(line.end).depth);
        const std::size_t group = detail.colors ? detail.colors->StepOfLine(at) : static_cast<std::size_t>(line.kind);
        AddStrokes(line, detail.curves, SliceAt(depth).lines[group]);
    }
}

Rect2 ScenePicture::AddRing(const SceneFace& face) {
    rings_.push_back({static_cast<std::uint32_t>(points_.size()), static_cast<std::uint32_t>(face.corners.size())});
    const Point2 first = projection_.At(face.corners.front()).Flat();
    Rect2 box{first.x, first.y, first.x, first.y};
    for (const std::uint32_t corner : face.corners) {
        const Point2 point = projection_.At(corner).Flat();
        points_.push_back(point);
        box = {std::min(box.left, point.x), std::min(box.top, point.y), std::max(box.right, point.x),
               std::max(box.bottom, point.y)};
    }
    return box;
}

bool ScenePicture::ShapeOf(const SceneFace& face, FaceShape& shape) {
    shape = {.kind = face.kind, .firstRing = static_cast<std::uint32_t>(rings_.size())};
    const std::size_t points = points_.size();
    const Rect2 box = AddRing(face);
    const bool isSmall = std::max(box.right - box.left, box.bottom - box.top) < kLeastFace;
    if (isSmall || AreApart(box, projection_.Frame())) {
        rings_.pop_back();
        points_.resize(points);
        return false;
    }
    for (const std::uint32_t hole : face.holes) AddRing(projection_.Scene().Faces()[hole]);
    shape.rings = static_cast<std::uint32_t>(rings_.size()) - shape.firstRing;
    for (const std::uint32_t corner : face.corners) shape.depth += projection_.At(corner).depth;
    shape.depth /= static_cast<double>(face.corners.size());
    return true;
}

void ScenePicture::AddFaces(const SceneColors* colors) {
    FaceShape shape;
    const std::vector<SceneFace>& faces = projection_.Scene().Faces();
    for (std::size_t at = 0; at < faces.size(); ++at) {
        if (faces[at].key == 0 || !ShapeOf(faces[at], shape)) continue;
        shape.group = colors ? colors->StepOfFace(at) : static_cast<std::size_t>(shape.kind);
        SliceAt(shape.depth).faces.push_back(shape);
    }
    for (PictureSlice& slice : slices_) {
        std::sort(slice.faces.begin(), slice.faces.end(),
                  [](const FaceShape& a, const FaceShape& b) { return a.depth > b.depth; });
    }
}

void ScenePicture::AddNodes(const SceneColors* colors) {
    if (!projection_.ShowsNodes() && !colors) return;
    const Rect2 frame = projection_.Frame();
    const std::vector<SceneNode>& nodes = projection_.Scene().Nodes();
    for (std::uint32_t at = 0; at < nodes.size(); ++at) {
        const Point2 point = projection_.At(at).Flat();
        if (nodes[at].key == 0 || !frame.Holds(point)) continue;
        const std::uint8_t step = colors ? colors->StepOfNode(at) : kNoColor;
        if (step != kNoColor) {
            coloredNodes_[step].push_back(point);
        } else if (projection_.ShowsNodes()) {
            nodes_.push_back(point);
        }
    }
}

void ScenePicture::AddSupports() {
    if (projection_.UsualLength() < kLeastSupported) return;
    const Rect2 frame = projection_.Frame();
    const double size = projection_.SymbolSize(kSupportShare, kLeastSupport, kMostSupport);
    for (const SceneSupport& support : projection_.Scene().Supports()) {
        const Point2 point = projection_.At(support.node).Flat();
        if (frame.Holds(point)) AddSupport(supports_, support, point, projection_.View(), size);
    }
}

void ScenePicture::AddLevels() {
    const Camera& camera = projection_.View();
    const Box3& bounds = projection_.Scene().Bounds();
    if (bounds.IsEmpty() || std::abs(camera.Direction({0.0, 0.0, 1.0}).y) < kLeastUpright) return;
    // The upright edges of the building's box that stand farthest to the left and to the right.
    const auto xOf = [&](int edge) { return camera.Project(bounds.Corner(edge)).x; };
    int left = 0;
    int right = 0;
    for (int edge = 1; edge < 4; ++edge) {
        if (xOf(edge) < xOf(left)) left = edge;
        if (xOf(edge) > xOf(right)) right = edge;
    }
    const bool isElevation = std::abs(camera.Elevation()) < kElevationView;
    double before = std::numeric_limits<double>::infinity();
    for (const SceneLevel& level : projection_.Scene().Levels()) {
        Vec3 place = bounds.Corner(left);
        place.z = level.height;
        const Point2 edge = camera.Project(place).Flat();
        if (std::abs(before - edge.y) < kLevelHeight) continue;
        before = edge.y;
        const double end = isElevation ? xOf(right) + kLevelGap : edge.x - kLevelGap;
        levels_.push_back({{edge.x - kLevelGap - kLevelTick, edge.y}, {end, edge.y}, level.names});
    }
}

PictureMarks ScenePicture::MarksOf(const PickedKeys& keys) {
    PictureMarks marks;
    const ModelScene& scene = projection_.Scene();
    FaceShape shape;
    for (const std::uint32_t key : keys.members) {
        const SceneLine* line = scene.FindLine(key);
        const SceneFace* face = line ? nullptr : scene.FindFace(key);
        if (line) AddStrokes(*line, true, marks.lines);
        if (face && ShapeOf(*face, shape)) marks.faces.push_back(shape);
    }
    for (const std::uint32_t key : keys.nodes) {
        const SceneNode* node = scene.FindNode(key);
        if (node) marks.nodes.push_back(projection_.At(static_cast<std::uint32_t>(node - scene.Nodes().data())).Flat());
    }
    return marks;
}

}  // namespace zt
