#include "zt_tb/modelview/model_scene.h"

#include <cmath>
#include <span>

#include "zt_db/core/change_test.h"
#include "zt_db/core/record_walk.h"
#include "zt_db/records/memb.h"
#include "zt_db/records/spts.h"

namespace zt {
namespace {

using velda::FlatIndex;

/// Levels and planes that differ by less than a millimetre are one.
constexpr double kSame = 1e-3;
/// Length of a member in a model without any.
constexpr double kUsualLength = 4.0;

/// The item of a key, made in a free place or at the end when there is none.
template <class Item>
Item& ItemOf(std::vector<Item>& items, FlatIndex& places, std::vector<std::uint32_t>& free, std::uint32_t key) {
    std::uint32_t at = places.Find(key);
    if (at == FlatIndex::kNone) {
        if (free.empty()) {
            at = static_cast<std::uint32_t>(items.size());
            items.emplace_back();
        } else {
            at = free.back();
            free.pop_back();
        }
        places.Put(key, at);
    }
    items[at].key = key;
    return items[at];
}

template <class Item>
void Erase(std::vector<Item>& items, FlatIndex& places, std::vector<std::uint32_t>& free, std::uint32_t key) {
    const std::uint32_t at = places.Find(key);
    if (at == FlatIndex::kNone) return;
    places.Erase(key);
    items[at] = {};
    free.push_back(at);
}

/// Whether all places lie on the plane of a polygon, and their middle inside of it.
bool LiesOn(std::span<const Vec3> places, std::span<const Vec3> polygon) {
    const Vec3 normal = NormalOf(polygon);
    Vec3 middle;
    for (const Vec3& place : places) {
        if (std::abs(Dot(place - polygon.front(), normal)) > kSame) return false;
        middle = middle + place * (1.0 / static_cast<double>(places.size()));
    }
    // The polygon is looked at along the axis that it lies most across.
    const Vec3 across{std::abs(normal.x), std::abs(normal.y), std::abs(normal.z)};
    const auto flat = [&](const Vec3& place) {
        if (across.x > across.y && across.x > across.z) return Point2{place.y, place.z};
        return across.y > across.z ? Point2{place.x, place.z} : Point2{place.x, place.y};
    };
    std::vector<Point2> outline;
    for (const Vec3& corner : polygon) outline.push_back(flat(corner));
    return PolygonHolds(outline, flat(middle));
}

void MakeUnique(std::vector<std::uint32_t>& keys) {
    std::sort(keys.begin(), keys.end());
    keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
}

}  // namespace

/// What a step touched of the records that are drawn.
struct ModelScene::Touched {
    std::vector<std::uint32_t> nodes;
    std::vector<std::uint32_t> members;
    bool supports = false;
    bool stories = false;
};

ModelScene::Touched ModelScene::TouchedBy(CDataBase& database) {
    Touched touched;
    const CViewBuff& buffer = *database.GetViewBuff();
    for (POSITION position = buffer.GetHeadPosition(); position;) {
        const std::uint64_t entry = buffer.GetNext(position);
        if (TellsOf<T_PONT_D>(entry)) touched.nodes.push_back(buffer.KeyOf(entry));
        if (TellsOf<T_MEMB_D>(entry)) touched.members.push_back(buffer.KeyOf(entry));
        touched.supports = touched.supports || TellsOf<T_SPTS_D>(entry);
        touched.stories = touched.stories || TellsOf<T_STOR_D>(entry);
    }
    MakeUnique(touched.nodes);
    MakeUnique(touched.members);
    return touched;
}

void ModelScene::Build(CDataBase* database) {
    *this = {};
    if (!database) return;
    for (const std::uint32_t key : KeysOf<CClassPont>(*database)) ReadNode(*database, key);
    for (const std::uint32_t key : KeysOf<CClassMemb>(*database)) ReadMember(*database, key);
    ReadSupports(*database);
    ReadLevels(*database);
    CutOpenings();
    Measure();
}

void ModelScene::Update(CDataBase& database) {
    const Touched touched = TouchedBy(database);
    // Nodes stand on their stories: a story that moves takes them along.
    if (touched.stories) return Build(&database);
    for (const std::uint32_t key : touched.nodes) ReadNode(database, key);
    for (const std::uint32_t key : touched.members) ReadMember(database, key);
    if (touched.supports || !touched.nodes.empty()) ReadSupports(database);
    if (touched.nodes.empty() && touched.members.empty()) return;
    CutOpenings();
    Measure();
}

void ModelScene::ReadNode(const CDataBase& database, std::uint32_t key) {
    T_PONT_D node;
    if (!ReadInBase<CClassPont>(database, key, node)) return Erase(nodes_, nodePlaces_, freeNodes_, key);
    T_STOR_D story;
    if (node.story != 0) ReadInBase<CClassStor>(database, node.story, story);
    ItemOf(nodes_, nodePlaces_, freeNodes_, key).place = {node.x, node.y, node.z + story.level};
}

void ModelScene::ReadMember(const CDataBase& database, std::uint32_t key) {
    T_MEMB_D member;
    const bool exists = ReadInBase<CClassMemb>(database, key, member);
    std::vector<std::uint32_t> places;
    for (const std::uint32_t node : member.nodes) {
        const std::uint32_t at = nodePlaces_.Find(node);
        if (at != FlatIndex::kNone) places.push_back(at);
    }
    const bool isFace = exists && places.size() > 2;
    const bool isLine = exists && !isFace && !places.empty();
    if (!isLine) Erase(lines_, linePlaces_, freeLines_, key);
    if (!isFace) Erase(faces_, facePlaces_, freeFaces_, key);
    if (isLine) {
        SceneLine& line = ItemOf(lines_, linePlaces_, freeLines_, key);
        line.kind = DrawnKindOf(member.type);
        line.start = places.front();
        line.end = places.back();
        line.beta = member.beta;
    } else if (isFace) {
        SceneFace& face = ItemOf(faces_, facePlaces_, freeFaces_, key);
        face.kind = DrawnKindOf(member.type);
        face.corners = std::move(places);
    }
}

void ModelScene::ReadSupports(const CDataBase& database) {
    supports_.clear();
    for (const std::uint32_t key : KeysOf<CClassSpts>(database)) {
        T_SPTS_D record;
        const std::uint32_t at = nodePlaces_.Find(key);
        if (at == FlatIndex::kNone || !database.GetClass<CClassSpts>()->Get(key, record)) continue;
        SceneSupport support{.node = at};
        for (std::size_t way = 0; way < support.ways.size(); ++way) {
            const bool isHeld = way < record.flags.size() && record.flags[way] == '1';
            support.ways[way] = isHeld ? Hold::Held : record.value[way] != 0.0 ? Hold::Spring : Hold::Free;
        }
        supports_.push_back(support);
    }
}

void ModelScene::ReadLevels(const CDataBase& database) {
    levels_.clear();
    for (const std::uint32_t key : KeysOf<CClassStor>(database)) {
        T_STOR_D story;
        ReadInBase<CClassStor>(database, key, story);
        const auto same = std::find_if(levels_.begin(), levels_.end(), [&](const SceneLevel& level) {
            return std::abs(level.height - story.level) < kSame;
        });
        if (same == levels_.end()) {
            levels_.push_back({story.level, story.name});
        } else if (same->names != story.name) {
            same->names += " / " + story.name;
        }
    }
    std::sort(levels_.begin(), levels_.end(),
              [](const SceneLevel& a, const SceneLevel& b) { return a.height < b.height; });
}

void ModelScene::CutOpenings() {
    std::vector<std::uint32_t> openings;
    for (std::uint32_t at = 0; at < faces_.size(); ++at) {
        faces_[at].holes.clear();
        if (faces_[at].kind == DrawnKind::Opening) openings.push_back(at);
    }
    if (openings.empty()) return;
    std::vector<Box3> boxes(faces_.size());
    for (std::size_t at = 0; at < faces_.size(); ++at) {
        for (const std::uint32_t corner : faces_[at].corners) boxes[at].Add(nodes_[corner].place);
    }
    for (const std::uint32_t opening : openings) {
        const SceneFace* host = HostOf(faces_[opening], boxes);
        if (host) faces_[static_cast<std::size_t>(host - faces_.data())].holes.push_back(opening);
    }
}

/// The slab or wall that an opening lies in, the smallest one where there are several; null when there is none.
const SceneFace* ModelScene::HostOf(const SceneFace& opening, const std::vector<Box3>& boxes) const {
    const SceneFace* best = nullptr;
    double bestSize = 0.0;
    for (std::size_t at = 0; at < faces_.size(); ++at) {
        const SceneFace& face = faces_[at];
        if (face.kind != DrawnKind::Slab && face.kind != DrawnKind::Wall) continue;
        const auto holds = [&](std::uint32_t corner) { return boxes[at].Holds(nodes_[corner].place, kSame); };
        if (!std::all_of(opening.corners.begin(), opening.corners.end(), holds)) continue;
        const Vec3 extent = boxes[at].high - boxes[at].low;
        const double size = Dot(extent, extent);
        if (best && size >= bestSize) continue;
        if (!LiesOn(PlacesOf(opening), PlacesOf(face))) continue;
        best = &face;
        bestSize = size;
    }
    return best;
}

std::vector<Vec3> ModelScene::PlacesOf(const SceneFace& face) const {
    std::vector<Vec3> places;
    for (const std::uint32_t corner : face.corners) places.push_back(nodes_[corner].place);
    return places;
}

void ModelScene::Measure() {
    bounds_ = {};
    for (const SceneNode& node : nodes_) {
        if (node.key != 0) bounds_.Add(node.place);
    }
    usualLength_.reset();
}

// Asked for when a picture is drawn: a change of one node need not look at every member.
double ModelScene::UsualLength() const {
    if (usualLength_) return *usualLength_;
    double length = 0.0;
    for (const SceneLine& line : lines_) {
        if (line.key == 0) continue;
        const Vec3 way = nodes_[line.end].place - nodes_[line.start].place;
        length += std::sqrt(Dot(way, way));
    }
    usualLength_ = length > 0.0 ? length / static_cast<double>(linePlaces_.Count()) : kUsualLength;
    return *usualLength_;
}

}  // namespace zt
