#include "zt_db/post/post_database.h"

#include <algorithm>

#include "zt_db/post/story/story_model.h"
#include "zt_db/records/memb.h"
#include "zt_db/records/pont.h"

namespace zt {
namespace {

/// Numbers of all records of a class, ascending.
template <class Class>
std::vector<std::uint32_t> NumbersOf(const Class* records) {
    std::vector<std::uint32_t> numbers;
    if (records) records->GetKeyList(numbers);
    for (std::uint32_t& number : numbers) {
        if constexpr (std::is_same_v<Class, CClassPont>) {
            number = records->GetPontNoByKey(number);
        } else {
            number = records->GetMembNoByKey(number);
        }
    }
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

void PutPlaces(const std::vector<std::uint32_t>& keys, velda::FlatIndex& places) {
    places.Reserve(keys.size());
    for (std::uint32_t i = 0; i < keys.size(); ++i) places.Put(keys[i], i);
}

}  // namespace

CPostDataBase::CPostDataBase(CDataBase* model, std::shared_ptr<const ResultSource> results)
    : model_(model), results_(std::move(results)) {
    if (!results_) return;
    PutNodes(results_->Keys(ResultName::Nodes));
    supported_ = results_->Keys(ResultName::Supports);
    PutPlaces(supported_, supports_);
    std::sort(supported_.begin(), supported_.end());
    linkKeys_ = results_->Keys(ResultName::Links);
    linkEnds_ = results_->Keys(ResultName::LinkEnds);
    PutPlaces(linkKeys_, links_);
    std::sort(linkKeys_.begin(), linkKeys_.end());
    PutPlaces(results_->Keys(ResultName::Designed), designed_);
    ReadElements();
    ReadSlabs();
}

void CPostDataBase::PutNodes(const std::vector<std::uint32_t>& numbers) {
    PutPlaces(numbers, nodes_);
    if (numbers.empty()) return;
    firstNode_ = numbers.front();
    while (nodesInRow_ < numbers.size() && numbers[nodesInRow_] == firstNode_ + nodesInRow_) ++nodesInRow_;
}

void CPostDataBase::ReadElements() {
    const std::vector<std::uint32_t> members = results_->Keys(ResultName::ElementMembers);
    const std::vector<std::uint32_t> ends = results_->Keys(ResultName::ElementEnds);
    const ResultArray ranges = results_->Array(ResultName::ElementRanges);
    elements_.resize(members.size());
    for (std::uint32_t i = 0; i < members.size(); ++i) {
        Element& element = elements_[i];
        element.member = members[i];
        if (2 * i + 1 < ends.size()) element.nodes = {ends[2 * i], ends[2 * i + 1]};
        if (const double* range = ranges.Columns() == 2 ? ranges.Row(i) : nullptr) {
            element.start = range[0];
            element.end = range[1];
        }
        if (!firstElement_.Contains(element.member)) firstElement_.Put(element.member, i);
    }
}

const StoryModel& CPostDataBase::Stories() const {
    static const CPostDataBase kNone;
    if (!stories_) stories_ = std::make_shared<const StoryModel>(results_ ? *this : kNone);
    return *stories_;
}

void CPostDataBase::ReadSlabs() {
    const std::vector<std::uint32_t> pairs = results_->Keys(ResultName::SlabNodes);
    for (std::uint32_t i = 0; 2 * i + 1 < pairs.size(); ++i) slabNodes_.push_back({pairs[2 * i], pairs[2 * i + 1], i});
    std::sort(slabNodes_.begin(), slabNodes_.end());
}

std::uint32_t CPostDataBase::PlaceOfSlabNode(std::uint32_t slab, std::uint32_t node) const {
    const auto found = std::lower_bound(slabNodes_.begin(), slabNodes_.end(), std::array{slab, node, std::uint32_t{0}});
    const bool isThere = found != slabNodes_.end() && (*found)[0] == slab && (*found)[1] == node;
    return isThere ? (*found)[2] : kNoPlace;
}

std::span<const CPostDataBase::Element> CPostDataBase::ElementsOfMember(std::uint32_t no) const {
    const std::uint32_t first = firstElement_.Find(no);
    if (first == kNoPlace) return {};
    std::size_t last = first;
    while (last < elements_.size() && elements_[last].member == no) ++last;
    return std::span(elements_).subspan(first, last - first);
}

std::vector<std::uint32_t> CPostDataBase::NodeNumbers() const {
    const CClassPont* nodes = model_ ? model_->GetClass<CClassPont>() : nullptr;
    if (!results_) return NumbersOf(nodes);
    if (nodeNumbers_.empty()) nodeNumbers_ = NumbersOf(nodes);
    return nodeNumbers_;
}

std::vector<std::uint32_t> CPostDataBase::MemberNumbers() const {
    const CClassMemb* members = model_ ? model_->GetClass<CClassMemb>() : nullptr;
    if (!results_) return NumbersOf(members);
    if (memberNumbers_.empty()) memberNumbers_ = NumbersOf(members);
    return memberNumbers_;
}

}  // namespace zt
