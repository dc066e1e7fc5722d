#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "zt_db/core/images.h"

namespace zt {

/// A record before or after a change: its key (0 when it does not exist then) and its content in the batch's images.
struct RecordState {
    std::uint32_t key = 0;
    std::uint32_t image = 0;
};

/// One record touched: added (no state before), deleted (no state after) or modified.
struct Change {
    std::uint16_t classIndex = 0;
    RecordState before;
    RecordState after;
};

/// The direction in which a batch is applied: as it was made, or taken back.
enum class Direction { Forward, Backward };

inline const RecordState& From(const Change& change, Direction direction) {
    return direction == Direction::Forward ? change.before : change.after;
}
inline const RecordState& To(const Change& change, Direction direction) {
    return direction == Direction::Forward ? change.after : change.before;
}

/// The changes of one transaction. Within a batch each record stands once, so that keys can be swapped.
class Batch {
public:
    std::vector<Change> changes;

    /// The images of a class, made by `store` when the batch has none yet.
    template <class Store>
    ImageList& ImagesOf(std::uint16_t classIndex, const Store& store) {
        for (Part& part : parts_) {
            if (part.classIndex == classIndex) return *part.images;
        }
        parts_.push_back({classIndex, store.NewImages()});
        return *parts_.back().images;
    }
    /// The images of a class that the batch changes.
    const ImageList& ImagesOf(std::uint16_t classIndex) const {
        for (const Part& part : parts_) {
            if (part.classIndex == classIndex) return *part.images;
        }
        return *parts_.front().images;
    }
    void PutImages(std::uint16_t classIndex, std::unique_ptr<ImageList> images) {
        parts_.push_back({classIndex, std::move(images)});
    }

private:
    struct Part {
        std::uint16_t classIndex;
        std::unique_ptr<ImageList> images;
    };
    std::vector<Part> parts_;
};

/// Visits the changes of a batch in the order in which `direction` applies them.
template <class Visit>
void ForEachChange(const Batch& batch, Direction direction, Visit&& visit) {
    if (direction == Direction::Forward) {
        for (const Change& change : batch.changes) visit(change);
    } else {
        for (auto change = batch.changes.rbegin(); change != batch.changes.rend(); ++change) visit(*change);
    }
}

/// Calls the three operations that bring a keyed collection from one side of a batch to the other: first everything
/// that leaves its key, then what is replaced in place, then what comes to a key. So no key is ever held twice.
template <class Remove, class Replace, class Insert>
bool ApplyInPhases(const Batch& batch, Direction direction, Remove&& remove, Replace&& replace, Insert&& insert) {
    const auto keepsKey = [direction](const Change& change) {
        return From(change, direction).key == To(change, direction).key;
    };
    bool good = true;
    ForEachChange(batch, direction, [&](const Change& change) {
        if (good && From(change, direction).key != 0 && !keepsKey(change)) good = remove(change);
    });
    ForEachChange(batch, direction, [&](const Change& change) {
        if (good && keepsKey(change)) good = replace(change);
    });
    ForEachChange(batch, direction, [&](const Change& change) {
        if (good && To(change, direction).key != 0 && !keepsKey(change)) good = insert(change);
    });
    return good;
}

/// What a step did, for its name: worded in the language of the moment in which it is shown.
enum class StepAction { Add, Delete, Modify };

struct StepName {
    std::string text;  ///< the name of a group as its host gave it; empty for a single transaction
    StepAction action = StepAction::Modify;
    std::uint16_t classIndex = 0;
    std::uint32_t count = 0;
};

/// One step of the undo history.
struct Step {
    StepName name;
    std::vector<Batch> batches;
};

}  // namespace zt
