#include "velda_util/result/record_order.h"

#include <algorithm>

namespace velda {
namespace {

/// Where each value of a permutation of 0 to its size stands.
std::vector<std::uint32_t> InverseOf(const std::vector<std::uint32_t>& values) {
    std::vector<std::uint32_t> places(values.size());
    for (std::uint32_t at = 0; at < values.size(); ++at) places[values[at]] = at;
    return places;
}

}  // namespace

RecordOrder RecordOrder::Natural(std::uint32_t count) {
    RecordOrder order;
    order.count_ = count;
    return order;
}

RecordOrder RecordOrder::InnerFirst(std::vector<std::uint32_t> inner, std::uint32_t objectCount) {
    RecordOrder order;
    order.kind_ = Kind::InnerFirst;
    order.inner_ = std::move(inner);
    order.objectCount_ = objectCount;
    order.count_ = objectCount * static_cast<std::uint32_t>(order.inner_.size());
    return order;
}

RecordOrder RecordOrder::Of(std::vector<std::uint32_t> records) {
    RecordOrder order;
    order.kind_ = Kind::Listed;
    order.count_ = static_cast<std::uint32_t>(records.size());
    order.records_ = std::move(records);
    for (std::uint32_t& record : order.records_) --record;
    return order;
}

std::uint32_t RecordOrder::RecordAt(std::uint32_t place) const {
    if (kind_ == Kind::Natural) return place;
    if (kind_ == Kind::Listed) return records_[place - 1] + 1;
    const std::uint32_t object = (place - 1) % objectCount_;
    const auto inner = static_cast<std::uint32_t>(inner_.size());
    return object * inner + inner_[(place - 1) / objectCount_] + 1;
}

std::uint32_t RecordOrder::PlaceOf(std::uint32_t record) const {
    if (kind_ == Kind::Natural) return record;
    if (kind_ == Kind::Listed) {
        if (places_.size() != records_.size()) places_ = InverseOf(records_);
        return places_[record - 1] + 1;
    }
    const auto inner = static_cast<std::uint32_t>(inner_.size());
    const std::uint32_t object = (record - 1) / inner;
    const auto at = std::find(inner_.begin(), inner_.end(), (record - 1) % inner) - inner_.begin();
    return static_cast<std::uint32_t>(at) * objectCount_ + object + 1;
}

}  // namespace velda
