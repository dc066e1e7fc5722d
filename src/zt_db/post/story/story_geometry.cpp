#include "zt_db/post/story/story_geometry.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "zt_db/core/record_walk.h"
#include "zt_db/records/record_list.h"

namespace zt {
namespace {

constexpr double kNear = StoryGeometry::kTolerance;

/// A square of the plan, so wide that nodes of one place lie in one square or in neighbours.
using Square = std::array<std::int64_t, 2>;

Square SquareOf(const Vector3& at) {
    constexpr double kWidth = 2.0 * kNear;
    return {static_cast<std::int64_t>(std::floor(at[0] / kWidth)),
            static_cast<std::int64_t>(std::floor(at[1] / kWidth))};
}

/// Finds nodes by their place in the plan.
class PlanIndex {
public:
    PlanIndex(const std::vector<StoryNode>& nodes, const std::vector<std::uint32_t>& places) : nodes_(nodes) {
        for (const std::uint32_t place : places) entries_.push_back({SquareOf(nodes[place].at), place});
        std::sort(entries_.begin(), entries_.end());
    }
    /// The node at a place of the plan; kNoPlace when there is none.
    std::uint32_t Find(const Vector3& at) const {
        const Square middle = SquareOf(at);
        for (std::int64_t i = -1; i <= 1; ++i) {
            for (std::int64_t j = -1; j <= 1; ++j) {
                const Entry wanted{{middle[0] + i, middle[1] + j}, 0};
                for (auto found = std::lower_bound(entries_.begin(), entries_.end(), wanted);
                     found != entries_.end() && found->first == wanted.first; ++found) {
                    const Vector3& other = nodes_[found->second].at;
                    if (std::hypot(other[0] - at[0], other[1] - at[1]) <= kNear) return found->second;
                }
            }
        }
        return CPostDataBase::kNoPlace;
    }

private:
    using Entry = std::pair<Square, std::uint32_t>;
    const std::vector<StoryNode>& nodes_;
    std::vector<Entry> entries_;
};

bool IsWall(int type) {
    return PropertyOfMemberType(type) == MemberProperty::Thickness &&
           std::find(std::begin(kSlabTypes), std::end(kSlabTypes), type) == std::end(kSlabTypes);
}

}  // namespace

StoryGeometry::StoryGeometry(const CPostDataBase& database) {
    if (!database.Model()) return;
    const CDataBase& model = *database.Model();
    ReadNodes(database);
    ReadStories(model);
    PutNodes();
    for (StoryLevel& story : stories_) {
        FindBases(story);
        FindLines(story);
    }
    ForEachInOrder<CClassMemb>(model, [&](std::uint32_t, const T_MEMB_D& member) {
        const std::uint32_t place = PlaceOfStory(member.story);
        if (place != CPostDataBase::kNoPlace && IsWall(member.type)) stories_[place].hasWalls = true;
    });
    FindCuts(database);
}

void StoryGeometry::ReadNodes(const CPostDataBase& database) {
    const CDataBase& model = *database.Model();
    const CClassPont& records = *model.GetClass<CClassPont>();
    for (const std::uint32_t key : KeysOf<CClassPont>(model)) {
        T_PONT_D record;
        records.Get3DPos(key, record);
        RecordToBase(record, model.Units());
        placeOfNode_.Put(key, static_cast<std::uint32_t>(nodes_.size()));
        nodes_.push_back(
            {key, record.no, database.PlaceOfNode(record.no), record.story, {record.x, record.y, record.z}});
    }
    byHeight_.resize(nodes_.size());
    for (std::uint32_t i = 0; i < byHeight_.size(); ++i) byHeight_[i] = i;
    std::stable_sort(byHeight_.begin(), byHeight_.end(),
                     [this](std::uint32_t a, std::uint32_t b) { return nodes_[a].at[2] < nodes_[b].at[2]; });
}

void StoryGeometry::ReadStories(const CDataBase& model) {
    for (const std::uint32_t module : KeysOf<CClassMdul>(model)) ReadModule(model, module);
    for (std::uint32_t i = 0; i < stories_.size(); ++i) placeOfStory_.Put(stories_[i].key, i);
}

void StoryGeometry::ReadModule(const CDataBase& model, std::uint32_t module) {
    std::vector<std::uint32_t> keys;
    model.GetClass<CClassStor>()->GetKeyListReverse(keys, module);
    const std::size_t first = stories_.size();
    for (const std::uint32_t key : keys) {
        T_STOR_D record;
        ReadInBase<CClassStor>(model, key, record);
        if (stories_.size() > first) {
            StoryLevel& upper = stories_.back();
            upper.base = record.level;
            if (upper.height <= 0.0) upper.height = upper.level - upper.base;
        }
        const bool isGround = key == keys.back() && record.height <= 0.0;
        if (isGround) break;
        StoryLevel story{.key = key, .mdul = module, .level = record.level, .height = record.height};
        story.base = story.level - story.height;
        story.fromTop = stories_.size() - first + 1;
        if (story.fromTop > 1) {
            story.above = stories_.size() - 1;
            stories_.back().below = stories_.size();
        }
        stories_.push_back(std::move(story));
    }
}

void StoryGeometry::PutNodes() {
    for (std::uint32_t i = 0; i < nodes_.size(); ++i) {
        const std::uint32_t place = PlaceOfStory(nodes_[i].story);
        if (place == CPostDataBase::kNoPlace) continue;
        StoryLevel& story = stories_[place];
        const double z = nodes_[i].at[2];
        if (std::abs(z - story.level) <= kNear) story.nodes.push_back(i);
        if (z > story.base + kNear) story.massed.push_back(i);
    }
}

/// The nodes at the base of a story: those of the story below or, at the ground, all at that height.
void StoryGeometry::FindBases(StoryLevel& story) {
    if (story.below != StoryLevel::kNone) {
        story.bases = stories_[story.below].nodes;
        return;
    }
    const auto lower = [this](std::uint32_t place, double height) { return nodes_[place].at[2] < height; };
    auto at = std::lower_bound(byHeight_.begin(), byHeight_.end(), story.base - kNear, lower);
    for (; at != byHeight_.end() && nodes_[*at].at[2] <= story.base + kNear; ++at) story.bases.push_back(*at);
}

void StoryGeometry::FindLines(StoryLevel& story) {
    const PlanIndex bases(nodes_, story.bases);
    for (const std::uint32_t top : story.nodes) {
        const std::uint32_t bottom = bases.Find(nodes_[top].at);
        if (bottom != CPostDataBase::kNoPlace) story.lines.push_back({top, bottom});
    }
}

void StoryGeometry::FindCuts(const CPostDataBase& database) {
    const auto& elements = database.Elements();
    for (std::size_t i = 0; i < elements.size(); ++i) CutElement(*database.Model(), elements[i], i);
}

/// Members count in the module of their story. The plane lies below the level by more than the tolerance, so that it
/// meets each vertical line once.
void StoryGeometry::CutElement(const CDataBase& model, const CPostDataBase::Element& element, std::size_t at) {
    constexpr double kBelow = 2.0 * kNear;
    const std::uint32_t key = model.GetClass<CClassMemb>()->GetMembKeyByNo(element.member);
    T_MEMB_D member;
    T_STOR_D own;
    if (!ReadInBase<CClassMemb>(model, key, member) || !ReadInBase<CClassStor>(model, member.story, own)) return;
    const CClassPont& points = *model.GetClass<CClassPont>();
    const std::uint32_t i = PlaceOfNode(points.GetPontKeyByNo(element.nodes[0]));
    const std::uint32_t j = PlaceOfNode(points.GetPontKeyByNo(element.nodes[1]));
    if (i == CPostDataBase::kNoPlace || j == CPostDataBase::kNoPlace) return;
    const Vector3& from = nodes_[i].at;
    const Vector3& to = nodes_[j].at;
    const double low = std::min(from[2], to[2]);
    const double high = std::max(from[2], to[2]);
    for (StoryLevel& story : stories_) {
        const double plane = story.level - kBelow;
        if (story.mdul != own.mdul || plane < low || plane >= high) continue;
        StoryCut cut{.element = at, .position = (plane - from[2]) / (to[2] - from[2])};
        cut.sign = to[2] > from[2] ? 1.0 : -1.0;
        cut.axes = TurnedAbout(AxesOfLine(from, to), member.beta);
        cut.isBrace = member.type == MembType::Brace;
        cut.member = key;
        cut.length = Length(Minus(to, from));
        for (std::size_t k = 0; k < 3; ++k) cut.at[k] = std::lerp(from[k], to[k], cut.position);
        story.cuts.push_back(cut);
    }
}

}  // namespace zt
