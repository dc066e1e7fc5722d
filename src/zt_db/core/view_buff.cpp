#include "zt_db/core/view_buff.h"

namespace zt {

std::uint64_t CViewBuff::GetNext(POSITION& position) const {
    const std::uint64_t place = position.Place();
    position = place + 1 < entries_.size() ? POSITION::At(place + 1) : POSITION{};
    return (place << 32) | entries_[place].code;
}

int CViewBuff::ReadData(std::uint64_t entry, DB_CData& data) const {
    const std::uint64_t place = entry >> 32;
    if (place >= entries_.size() || entries_[place].code != static_cast<std::uint32_t>(entry)) return 0;
    const Entry& found = entries_[place];
    if (found.images->Identity().index != data.Identity().index) return 0;
    data.Read(found.key, *found.images, found.image, units_);
    return 1;
}

void CViewBuff::Add(ChangeEntry kind, const RecordState& state, const ImageList& images) {
    const int code = images.Identity().codes[static_cast<std::size_t>(kind)];
    entries_.push_back({static_cast<std::uint32_t>(code), state.key, state.image, &images});
}

void CViewBuff::Fill(std::shared_ptr<const Step> step, Direction direction) {
    entries_.clear();
    step_ = std::move(step);
    const auto addBatch = [&](const Batch& batch) {
        ForEachChange(batch, direction, [&](const Change& change) {
            const ImageList& images = batch.ImagesOf(change.classIndex);
            const RecordState& from = From(change, direction);
            const RecordState& to = To(change, direction);
            if (from.key == 0) {
                Add(ChangeEntry::Add, to, images);
            } else if (to.key == 0) {
                Add(ChangeEntry::Delete, from, images);
            } else {
                Add(ChangeEntry::ModifiedAfter, to, images);
                Add(ChangeEntry::ModifiedBefore, from, images);
            }
        });
    };
    if (direction == Direction::Forward) {
        for (const Batch& batch : step_->batches) addBatch(batch);
    } else {
        for (auto batch = step_->batches.rbegin(); batch != step_->batches.rend(); ++batch) addBatch(*batch);
    }
}

void CViewBuff::Clear() {
    entries_.clear();
    step_.reset();
}

}  // namespace zt
