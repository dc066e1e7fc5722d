#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "zt_db/units/unit_ctrl.h"
#include "zt_tb/modelview/scene_loads.h"
#include "zt_tb/modelview/scene_projection.h"
#include "zt_tb/modelview/thin_lines.h"

namespace zt {

/// How values are written beside arrows.
struct LoadTexts {
    const CUnitCtrl& units;
    std::function<double(const std::string&)> width;  ///< of a text, in pixels
    double height = 12.0;                             ///< of a line of text, in pixels
};

/// A value beside its arrow; the place is the middle of the text.
struct LoadLabel {
    Point2 place;
    std::string text;
};

/// Shapes of forces or of moments.
struct LoadShapes {
    std::vector<LineStroke> lines;             ///< outlines and stems of distributed loads
    std::vector<LineStroke> stems;             ///< of single loads
    std::vector<std::array<Point2, 3>> heads;  ///< of arrows, the tip first
    std::vector<std::array<Point2, 4>> areas;  ///< between a member and the outline of its load
    std::vector<Point2> dots;                  ///< loads that are looked along
};

/// The loads at one depth.
struct LoadSlice {
    double nearness = 0.0;  ///< 0 for the farthest slice, 1 for the nearest
    LoadShapes forces;
    LoadShapes moments;
};

/// The loads of a scene as lists of shapes in pixels. An arrow of a force ends where the force acts; that of a moment
/// has two heads, begins there and points along its axis by the right-hand rule. Arrows are as long as their share of
/// the greatest load of their kind. What lies outside of the frame is left out.
class LoadPicture {
public:
    LoadPicture(const SceneProjection& projection, const SceneLoads& loads);

    /// From the farthest to the nearest.
    const std::vector<LoadSlice>& Slices() const { return slices_; }
    /// The values that have room: the greatest ones first, and only one of each kind where there are too many to be
    /// read.
    std::vector<LoadLabel> Labels(const LoadTexts& texts) const;

private:
    /// A direction in the picture, as long as a unit along it looks.
    struct Way {
        Point2 flat;
        bool isLookedAlong = false;
    };
    /// A member that carries a load: where the load begins and ends, and what has the axes.
    struct Bearer {
        Vec3 start{};
        Vec3 end{};
        const SceneLine* line = nullptr;
        const SceneFace* face = nullptr;
    };
    struct Value {
        Point2 place;
        Point2 away;  ///< from the arrow, of length 1
        LoadKind kind = LoadKind::Force;
        double amount = 0.0;
    };

    /// Chooses the slice that is filled, by a depth.
    void GoTo(double depth);
    LoadShapes& ShapesOf(LoadKind kind) {
        LoadSlice& slice = slices_[slice_];
        return IsMoment(kind) ? slice.moments : slice.forces;
    }
    bool FindBearer(std::uint32_t member, Bearer& bearer) const;
    Bearer BearerOf(const SceneFace& face) const;
    std::vector<Vector3> CornersOf(const SceneFace& face) const;
    MemberAxes AxesOf(const Bearer& bearer) const;
    Way WayOf(int direction, const Bearer& bearer) const;
    Way WayOf(const Vec3& direction) const;
    /// Length of the arrow of a value before it is turned into the picture, with its sign. Single loads stand out.
    double LengthOf(LoadKind kind, double value) const;
    bool IsSeen(Point2 a, Point2 b) const;

    void AddNodeLoad(const SceneNodeLoad& load);
    void AddVector(LoadKind kind, const Vec3& vector, Point2 place);
    void AddMemberLoad(const SceneMemberLoad& load);
    void AddPoint(LoadKind kind, const Way& way, Point2 place, double value);
    void AddStretch(LoadKind kind, const Way& way, Point2 from, Point2 to, double first, double second);
    void AddAlong(LoadKind kind, const Way& way, Point2 from, Point2 to, double first, double second);
    void AddOver(LoadKind kind, const Way& way, Point2 from, Point2 to, double first, double second);
    void AddSlabLoad(const SceneSlabLoad& load);
    /// An arrow for a value at a place where it acts.
    void AddArrow(LoadKind kind, const Way& way, Point2 place, double length);
    void AddHead(LoadShapes& shapes, Point2 tip, Point2 unit, double stem) const;
    /// Whether there are more values than have room.
    bool AreValuesMany() const;
    Point2 PlaceOf(const Value& value, double halfWidth, double halfHeight) const;
    void AddValue(LoadKind kind, Point2 place, Point2 away, double value);

    const SceneProjection& projection_;
    const SceneLoads& loads_;
    std::vector<LoadSlice> slices_;
    std::size_t slice_ = 0;
    std::vector<Value> values_;
    double longest_ = 0.0;   ///< arrow, in pixels
    bool isCoarse_ = false;  ///< nothing but outlines and stems
};

}  // namespace zt
