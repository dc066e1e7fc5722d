#include "zt_tb/modelview/load_picture.h"

#include <cmath>

#include "zt_db/records/member_load.h"
#include "zt_tb/modelview/load_legend.h"

namespace zt {
namespace {

/// The longest arrow, as a share of a member's usual length and in pixels.
constexpr double kArrowShare = 0.34;
constexpr double kLeastArrow = 6.0;
constexpr double kMostArrow = 46.0;
/// The arrows of a few loads are this long at least: among many members they would be lost.
constexpr std::size_t kFewLoads = 100;
constexpr double kLeastOfFew = 22.0;
/// Single loads are seen however small they are beside the greatest one.
constexpr double kLeastShare = 0.3;
constexpr double kHeadLength = 7.0;
constexpr double kHeadWidth = 2.6;  ///< half of it
/// Part of a stem that its head may take.
constexpr double kMostHead = 0.6;
/// Arrows of distributed loads stand as far apart, farther where they are short.
constexpr double kArrowGap = 14.0;
constexpr double kShortArrow = 20.0;
constexpr double kShortArrowGap = 22.0;
/// Single loads rise over the outlines of distributed ones.
constexpr double kSingle = 1.35;
constexpr int kMostArrows = 40;
/// A direction whose unit looks shorter than this is looked along; a load whose way differs less from its member's in
/// the picture runs along it.
constexpr double kLookedAlong = 0.12;
constexpr double kAlong = 0.17;
/// From this many loads on, or with arrows shorter than this, heads and areas are left out.
constexpr std::size_t kManyLoads = 4000;
constexpr double kLeastDetail = 8.0;
/// Slabs that look smaller have no load or only one arrow.
constexpr double kLeastSlab = 12.0;
constexpr double kLeastWideSlab = 60.0;
constexpr std::size_t kSlices = 6;
/// Area of the picture that a value needs, in square pixels, and the room around the outermost values.
constexpr double kValueArea = 2200.0;
constexpr double kValueRoom = 60.0;
constexpr double kLabelGap = 4.0;

Point2 Times(Point2 a, double factor) { return {a.x * factor, a.y * factor}; }
double LengthOf(Point2 a) { return std::hypot(a.x, a.y); }
Point2 Between(Point2 a, Point2 b, double share) { return a + Times(b - a, share); }

bool IsSingle(LoadKind kind) { return kind == LoadKind::Force || kind == LoadKind::Moment; }

bool AreApart(const Rect2& a, const Rect2& b) {
    return a.right < b.left || a.left > b.right || a.bottom < b.top || a.top > b.bottom;
}

Vec3 GlobalAxis(int direction) {
    return {direction == LoadDirection::GlobalX ? 1.0 : 0.0, direction == LoadDirection::GlobalY ? 1.0 : 0.0,
            direction == LoadDirection::GlobalZ ? 1.0 : 0.0};
}

Vec3 LocalAxis(int direction, const MemberAxes& axes) {
    if (direction == LoadDirection::LocalX) return FromVector(axes.x);
    return FromVector(direction == LoadDirection::LocalY ? axes.y : axes.z);
}

}  // namespace

LoadPicture::LoadPicture(const SceneProjection& projection, const SceneLoads& loads)
    : projection_(projection), loads_(loads) {
    longest_ = projection.SymbolSize(kArrowShare, loads.Count() <= kFewLoads ? kLeastOfFew : kLeastArrow, kMostArrow);
    slices_.resize(kSlices);
    for (std::size_t at = 0; at < kSlices; ++at) {
        slices_[at].nearness = static_cast<double>(at) / static_cast<double>(kSlices - 1);
    }
    isCoarse_ = loads.Count() > kManyLoads || longest_ < kLeastDetail;
    for (const SceneSlabLoad& load : loads.SlabLoads()) AddSlabLoad(load);
    for (const SceneMemberLoad& load : loads.MemberLoads()) AddMemberLoad(load);
    for (const SceneNodeLoad& load : loads.NodeLoads()) AddNodeLoad(load);
}

void LoadPicture::GoTo(double depth) {
    const double range = projection_.Far() - projection_.Near();
    const double nearness = range > 0.0 ? (projection_.Far() - depth) / range : 1.0;
    slice_ = static_cast<std::size_t>(std::clamp(nearness * kSlices, 0.0, kSlices - 1.0));
}

// ---- where loads act ----

std::vector<Vector3> LoadPicture::CornersOf(const SceneFace& face) const {
    std::vector<Vector3> corners;
    for (const std::uint32_t corner : face.corners) {
        corners.push_back(ToVector(projection_.Scene().Nodes()[corner].place));
    }
    return corners;
}

/// Loads on walls stand on their top: on the first edge or the one across, whichever is higher.
LoadPicture::Bearer LoadPicture::BearerOf(const SceneFace& face) const {
    const std::vector<SceneNode>& nodes = projection_.Scene().Nodes();
    const std::size_t last = face.corners.size() - 1;
    const auto edge = [&](std::size_t from, std::size_t to) {
        return Bearer{nodes[face.corners[from]].place, nodes[face.corners[to]].place, nullptr, &face};
    };
    const Bearer first = edge(0, 1);
    const Bearer across = edge(last, last - 1);
    return across.start.z + across.end.z > first.start.z + first.end.z ? across : first;
}

bool LoadPicture::FindBearer(std::uint32_t member, Bearer& bearer) const {
    const ModelScene& scene = projection_.Scene();
    if (const SceneLine* line = scene.FindLine(member)) {
        bearer = {scene.Nodes()[line->start].place, scene.Nodes()[line->end].place, line, nullptr};
        return true;
    }
    const SceneFace* face = scene.FindFace(member);
    if (face) bearer = BearerOf(*face);
    return face != nullptr;
}

MemberAxes LoadPicture::AxesOf(const Bearer& bearer) const {
    if (bearer.face) return AxesOfFace(CornersOf(*bearer.face));
    return TurnedAbout(AxesOfLine(ToVector(bearer.start), ToVector(bearer.end)), bearer.line->beta);
}

LoadPicture::Way LoadPicture::WayOf(const Vec3& direction) const {
    const Point2 flat = projection_.View().Direction(direction);
    return {flat, zt::LengthOf(flat) < kLookedAlong};
}

LoadPicture::Way LoadPicture::WayOf(int direction, const Bearer& bearer) const {
    return WayOf(direction >= LoadDirection::GlobalX ? GlobalAxis(direction) : LocalAxis(direction, AxesOf(bearer)));
}

double LoadPicture::LengthOf(LoadKind kind, double value) const {
    const double greatest = loads_.Greatest(kind);
    const double length = greatest > 0.0 ? longest_ * value / greatest : 0.0;
    if (!IsSingle(kind) || length == 0.0) return length;
    return std::copysign(kSingle * std::max(std::abs(length), kLeastShare * longest_), length);
}

bool LoadPicture::IsSeen(Point2 a, Point2 b) const {
    Rect2 box = Rect2::Between(a, b);
    box = {box.left - longest_, box.top - longest_, box.right + longest_, box.bottom + longest_};
    return !AreApart(box, projection_.Frame());
}

// ---- loads ----

void LoadPicture::AddNodeLoad(const SceneNodeLoad& load) {
    const SceneNode* node = projection_.Scene().FindNode(load.node);
    if (!node) return;
    const ScreenPoint& point = projection_.At(static_cast<std::uint32_t>(node - projection_.Scene().Nodes().data()));
    const Point2 place = point.Flat();
    if (!IsSeen(place, place)) return;
    GoTo(point.depth);
    AddVector(LoadKind::Force, load.force, place);
    AddVector(LoadKind::Moment, load.moment, place);
}

void LoadPicture::AddVector(LoadKind kind, const Vec3& vector, Point2 place) {
    const std::array<double, 3> values{vector.x, vector.y, vector.z};
    for (std::size_t axis = 0; axis < values.size(); ++axis) {
        if (values[axis] == 0.0) continue;
        const Way way = WayOf(GlobalAxis(LoadDirection::GlobalX + static_cast<int>(axis)));
        AddArrow(kind, way, place, LengthOf(kind, values[axis]));
        const double side = (values[axis] > 0.0) == IsMoment(kind) ? 1.0 : -1.0;
        const double length = std::abs(LengthOf(kind, values[axis]));
        const Point2 end = way.isLookedAlong ? place : place + Times(way.flat, side * length);
        AddValue(kind, end, Times(way.flat, side), values[axis]);
    }
}

void LoadPicture::AddMemberLoad(const SceneMemberLoad& load) {
    Bearer bearer;
    if (!FindBearer(load.member, bearer)) return;
    const ScreenPoint first = projection_.View().Project(bearer.start);
    const ScreenPoint last = projection_.View().Project(bearer.end);
    const Point2 start = first.Flat();
    const Point2 end = last.Flat();
    if (!IsSeen(start, end)) return;
    GoTo(0.5 * (first.depth + last.depth));
    const Way way = WayOf(load.direction, bearer);
    if (load.isDistributed) {
        for (const LoadStretch& stretch : StretchesOf(load.places, load.values)) {
            const Point2 from = Between(start, end, stretch.from);
            AddStretch(load.kind, way, from, Between(start, end, stretch.to), stretch.first, stretch.last);
        }
    } else {
        for (const LoadPoint& point : PointsOf(load.places, load.values)) {
            AddPoint(load.kind, way, Between(start, end, point.at), point.value);
        }
    }
}

void LoadPicture::AddPoint(LoadKind kind, const Way& way, Point2 place, double value) {
    AddArrow(kind, way, place, LengthOf(kind, value));
    const double length = LengthOf(kind, value) * (IsMoment(kind) ? 1.0 : -1.0);
    const Point2 tail = way.isLookedAlong ? place : place + Times(way.flat, length);
    AddValue(kind, tail, tail - place, value);
}

void LoadPicture::AddStretch(LoadKind kind, const Way& way, Point2 from, Point2 to, double first, double second) {
    const Point2 member = to - from;
    const double turned = std::abs(way.flat.x * member.y - way.flat.y * member.x);
    const double lengths = zt::LengthOf(way.flat) * zt::LengthOf(member);
    if (way.isLookedAlong || turned < kAlong * lengths) {
        AddAlong(kind, way, from, to, first, second);
    } else {
        AddOver(kind, way, from, to, first, second);
    }
}

/// Arrows one behind the other on the member, or dots where the load is looked along.
void LoadPicture::AddAlong(LoadKind kind, const Way& way, Point2 from, Point2 to, double first, double second) {
    const double length = zt::LengthOf(to - from);
    const double gap = std::max(kArrowGap, longest_);
    const int arrows = std::clamp(static_cast<int>(length / gap), 1, kMostArrows);
    for (int arrow = 0; arrow < arrows && !isCoarse_; ++arrow) {
        const double share = (arrow + 0.5) / arrows;
        const double value = std::lerp(first, second, share);
        AddArrow(kind, way, Between(from, to, share), std::copysign(std::min(longest_, 0.7 * length / arrows), value));
    }
    const Point2 along = to - from;
    AddValue(kind, Between(from, to, 0.5), {along.y, -along.x}, std::abs(first) > std::abs(second) ? first : second);
}

/// Arrows side by side under an outline.
void LoadPicture::AddOver(LoadKind kind, const Way& way, Point2 from, Point2 to, double first, double second) {
    // Forces push what they stand on, moments point away from it.
    const double sign = IsMoment(kind) ? 1.0 : -1.0;
    const Point2 firstTop = from + Times(way.flat, sign * LengthOf(kind, first));
    const Point2 secondTop = to + Times(way.flat, sign * LengthOf(kind, second));
    LoadShapes& shapes = ShapesOf(kind);
    shapes.lines.push_back({firstTop, secondTop});
    if (!isCoarse_) {
        shapes.areas.push_back({from, to, secondTop, firstTop});
        const double gap = longest_ < kShortArrow ? kShortArrowGap : kArrowGap;
        const int gaps = std::clamp(static_cast<int>(zt::LengthOf(to - from) / gap), 1, kMostArrows);
        for (int arrow = 0; arrow <= gaps; ++arrow) {
            const double share = static_cast<double>(arrow) / gaps;
            AddArrow(kind, way, Between(from, to, share), LengthOf(kind, std::lerp(first, second, share)));
        }
    }
    if (first == second) {
        const Point2 top = Between(firstTop, secondTop, 0.5);
        AddValue(kind, top, top - Between(from, to, 0.5), first);
    } else {
        AddValue(kind, Between(firstTop, secondTop, 0.08), firstTop - from, first);
        AddValue(kind, Between(firstTop, secondTop, 0.92), secondTop - to, second);
    }
}

void LoadPicture::AddSlabLoad(const SceneSlabLoad& load) {
    const SceneFace* face = projection_.Scene().FindFace(load.member);
    if (!face) return;
    std::vector<Point2> outline;
    projection_.OutlineOf(*face, outline);
    Rect2 box = Rect2::Between(outline.front(), outline.front());
    Point2 middle{};
    for (const Point2 corner : outline) {
        box = {std::min(box.left, corner.x), std::min(box.top, corner.y), std::max(box.right, corner.x),
               std::max(box.bottom, corner.y)};
        middle = middle + Times(corner, 1.0 / static_cast<double>(outline.size()));
    }
    const double extent = std::max(box.right - box.left, box.bottom - box.top);
    if (extent < kLeastSlab || !IsSeen({box.left, box.top}, {box.right, box.bottom})) return;
    GoTo(projection_.At(face->corners.front()).depth);
    const Way way = WayOf(load.direction, {.face = face});
    const double length = -LengthOf(LoadKind::AreaLoad, load.value);
    AddArrow(LoadKind::AreaLoad, way, middle, length);
    for (const Point2 corner : outline) {
        if (extent < kLeastWideSlab || isCoarse_) break;
        AddArrow(LoadKind::AreaLoad, way, Between(middle, corner, 0.55), length);
    }
    const Point2 tail = way.isLookedAlong ? middle : middle - Times(way.flat, length);
    AddValue(LoadKind::AreaLoad, tail, tail - middle, load.value);
}

// ---- shapes ----

void LoadPicture::AddArrow(LoadKind kind, const Way& way, Point2 place, double length) {
    LoadShapes& shapes = ShapesOf(kind);
    if (length == 0.0) return;
    if (way.isLookedAlong) {
        shapes.dots.push_back(place);
        return;
    }
    const Point2 run = Times(way.flat, length);
    const Point2 tail = IsMoment(kind) ? place : place - run;
    const Point2 tip = tail + run;
    (IsSingle(kind) ? shapes.stems : shapes.lines).push_back({tail, tip});
    const double stem = zt::LengthOf(run);
    if (isCoarse_ || stem < 2.0) return;
    const Point2 unit = Times(run, 1.0 / stem);
    AddHead(shapes, tip, unit, stem);
    if (IsMoment(kind)) AddHead(shapes, tip - Times(unit, 0.5 * std::min(kHeadLength, kMostHead * stem)), unit, stem);
}

void LoadPicture::AddHead(LoadShapes& shapes, Point2 tip, Point2 unit, double stem) const {
    const double length = std::min({kHeadLength, kMostHead * stem, 0.4 * longest_});
    const double half = length * kHeadWidth / kHeadLength;
    const Point2 foot = tip - Times(unit, length);
    const Point2 aside{-unit.y * half, unit.x * half};
    shapes.heads.push_back({tip, foot + aside, foot - aside});
}

// ---- values ----

void LoadPicture::AddValue(LoadKind kind, Point2 place, Point2 away, double value) {
    if (value == 0.0 || !projection_.Frame().Holds(place)) return;
    const double length = zt::LengthOf(away);
    values_.push_back({place, length > 0.0 ? Times(away, 1.0 / length) : Point2{0.0, -1.0}, kind, std::abs(value)});
}

bool LoadPicture::AreValuesMany() const {
    Box3 extent;
    for (const Value& value : values_) extent.Add({value.place.x, value.place.y, 0.0});
    if (extent.IsEmpty()) return false;
    const Vec3 size = extent.high - extent.low;
    const double area = (size.x + kValueRoom) * (size.y + kValueRoom);
    return static_cast<double>(values_.size()) * kValueArea > area;
}

/// The middle of a value beside its arrow, moved into the picture where it would be cut off.
Point2 LoadPicture::PlaceOf(const Value& value, double halfWidth, double halfHeight) const {
    const Point2 place =
        value.place + Point2{value.away.x * (halfWidth + kLabelGap), value.away.y * (halfHeight + kLabelGap)};
    const Rect2 frame = projection_.Frame();
    const auto inside = [](double at, double half, double end) {
        return std::clamp(at, half + kLabelGap, std::max(half + kLabelGap, end - half - kLabelGap));
    };
    return {inside(place.x, halfWidth, frame.right), inside(place.y, halfHeight, frame.bottom)};
}

std::vector<LoadLabel> LoadPicture::Labels(const LoadTexts& texts) const {
    std::vector<LoadLabel> labels;
    if (longest_ < kLeastDetail) return labels;
    // Compared within their kind: the greatest of one kind is no smaller than that of another.
    const auto share = [&](const Value& value) { return value.amount / loads_.Greatest(value.kind); };
    std::vector<Value> values = values_;
    std::stable_sort(values.begin(), values.end(), [&](const Value& a, const Value& b) { return share(a) > share(b); });
    const bool areMany = AreValuesMany();
    std::array<bool, kLoadKinds> isTold{};
    std::vector<Rect2> taken;
    for (const Value& value : values) {
        const auto kind = static_cast<std::size_t>(value.kind);
        if (areMany && isTold[kind]) continue;
        LoadLabel label{{}, LoadText(texts.units.ToCurrent(kLoadUnits[kind], value.amount))};
        const double halfWidth = 0.5 * texts.width(label.text);
        const double halfHeight = 0.5 * texts.height;
        label.place = PlaceOf(value, halfWidth, halfHeight);
        const Rect2 box{label.place.x - halfWidth - kLabelGap, label.place.y - halfHeight,
                        label.place.x + halfWidth + kLabelGap, label.place.y + halfHeight};
        if (std::any_of(taken.begin(), taken.end(), [&](const Rect2& other) { return !AreApart(box, other); }))
            continue;
        isTold[kind] = true;
        taken.push_back(box);
        labels.push_back(std::move(label));
    }
    return labels;
}

}  // namespace zt
