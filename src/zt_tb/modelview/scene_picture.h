#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "zt_tb/modelview/scene_picking.h"
#include "zt_tb/modelview/support_symbols.h"

namespace zt {

/// Straight pieces of a bent member.
inline constexpr int kCurvePieces = 8;

/// How much of a scene is drawn.
struct PictureDetail {
    bool faces = true;
    bool supports = true;
    bool curves = true;                   ///< bent members are drawn as curves; otherwise straight
    std::size_t slices = 16;              ///< stretches of depth that are drawn one behind the other
    const SceneColors* colors = nullptr;  ///< what is drawn in the colours of values; null for those of kinds

    /// What can be drawn while the user turns the model, and when it stands still.
    static PictureDetail Of(const ModelScene& scene, bool isMoving);
};

/// What is drawn in one colour goes together: a group is a kind of members or, where values are shown, a step of
/// colour.
inline constexpr std::size_t kPictureGroups = std::max<std::size_t>(kDrawnKinds, kColorSteps + 1);

/// Corners that stand side by side in the points of a picture.
struct Ring {
    std::uint32_t first = 0;
    std::uint32_t count = 0;
};

/// A face with its openings: the rings of a picture from `first` on, the outline before the openings.
struct FaceShape {
    DrawnKind kind = DrawnKind::Other;
    std::size_t group = 0;
    double depth = 0.0;
    std::uint32_t firstRing = 0;
    std::uint32_t rings = 0;
};

/// A level at the side of the building. In an elevation its line runs across the building, else it is short.
struct LevelMark {
    Point2 from;
    Point2 to;
    std::string_view names;  ///< of the scene
};

/// What is drawn at one depth: the faces from the farthest to the nearest, and then the lines over them.
struct PictureSlice {
    double nearness = 0.0;  ///< 0 for the farthest slice, 1 for the nearest
    std::vector<FaceShape> faces;
    std::array<std::vector<LineStroke>, kPictureGroups> lines;
};

/// What is marked, over all others.
struct PictureMarks {
    std::vector<FaceShape> faces;
    std::vector<LineStroke> lines;
    std::vector<Point2> nodes;
};

/// A picture of a scene as lists of shapes in pixels. Who draws it needs to know nothing of the model. What lies
/// outside of the frame is left out.
class ScenePicture {
public:
    /// A picture of nothing but what is marked.
    explicit ScenePicture(const SceneProjection& projection) : projection_(projection) {}
    ScenePicture(const SceneProjection& projection, const PictureDetail& detail);

    /// Slices from the farthest to the nearest.
    const std::vector<PictureSlice>& Slices() const { return slices_; }
    const std::vector<Point2>& Nodes() const { return nodes_; }
    /// The nodes that have values, by their step of colour.
    const std::array<std::vector<Point2>, kColorSteps>& ColoredNodes() const { return coloredNodes_; }
    const SupportSymbols& Supports() const { return supports_; }
    const std::vector<LevelMark>& Levels() const { return levels_; }
    /// The shapes of some records, to be drawn over the others.
    PictureMarks MarksOf(const PickedKeys& keys);

    std::span<const Point2> PointsOf(const FaceShape& face, std::uint32_t ring) const {
        const Ring& found = rings_[face.firstRing + ring];
        return {points_.data() + found.first, found.count};
    }

private:
    PictureSlice& SliceAt(double depth);
    void AddLines(const PictureDetail& detail);
    void AddFaces(const SceneColors* colors);
    void AddNodes(const SceneColors* colors);
    void AddSupports();
    void AddLevels();
    /// Adds the strokes of a member; none when it lies outside of the frame.
    void AddStrokes(const SceneLine& line, bool isCurve, std::vector<LineStroke>& strokes) const;
    /// Adds the rings of a face; false when it lies outside of the frame or is too small to be seen.
    bool ShapeOf(const SceneFace& face, FaceShape& shape);
    Rect2 AddRing(const SceneFace& face);

    const SceneProjection& projection_;
    std::vector<PictureSlice> slices_;
    std::vector<Ring> rings_;
    std::vector<Point2> points_;
    std::vector<Point2> nodes_;
    std::array<std::vector<Point2>, kColorSteps> coloredNodes_;
    SupportSymbols supports_;
    std::vector<LevelMark> levels_;
};

}  // namespace zt
