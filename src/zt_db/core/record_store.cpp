#include "zt_db/core/record_store.h"

#include <algorithm>
#include <limits>

#include "velda_lib/msg_dll.h"

namespace zt {
namespace {

constexpr std::uint32_t kLargestSigned = std::numeric_limits<std::int32_t>::max();

/// The lowest number from 1 up for which `taken` does not hold.
template <class Taken>
std::uint32_t LowestFree(Taken taken) {
    std::uint32_t number = 1;
    while (taken(number)) ++number;
    return number;
}

}  // namespace

std::string RecordStoreBase::DisplayName() const {
    return velda::CMsgDll::pfuncLoadStr("IDS_DB_DATA_NAME_" + std::string(Identity().mnemonic), 0);
}

std::uint32_t RecordStoreBase::NewKey() const {
    if (largestKey_ < kLargestSigned) return largestKey_ + 1;
    return LowestFree([this](std::uint32_t key) { return Exists(key); });
}

std::vector<std::uint32_t> RecordStoreBase::SortedKeys() const {
    std::vector<std::uint32_t> keys;
    keys.reserve(index_.Count());
    for (const std::uint32_t key : slotKeys_) {
        if (key != 0) keys.push_back(key);
    }
    if (!std::is_sorted(keys.begin(), keys.end())) std::sort(keys.begin(), keys.end());
    return keys;
}

std::uint32_t RecordStoreBase::TakeSlot(std::uint32_t key) {
    std::uint32_t slot = static_cast<std::uint32_t>(slotKeys_.size());
    if (freeSlots_.empty()) {
        slotKeys_.push_back(key);
    } else {
        slot = freeSlots_.back();
        freeSlots_.pop_back();
        slotKeys_[slot] = key;
    }
    index_.Put(key, slot);
    largestKey_ = std::max(largestKey_, key);
    return slot;
}

void RecordStoreBase::ReleaseSlot(std::uint32_t key, std::uint32_t slot) {
    slotKeys_[slot] = 0;
    freeSlots_.push_back(slot);
    index_.Erase(key);
    if (key == largestKey_) LowerLargestKey();
}

// Keys mostly stand close together, so that the next lower one is found in a few steps; a wide gap costs one scan.
void RecordStoreBase::LowerLargestKey() {
    constexpr int kSteps = 64;
    for (int step = 0; step < kSteps && largestKey_ > 0; ++step) {
        if (Exists(--largestKey_)) return;
    }
    largestKey_ = slotKeys_.empty() ? 0 : *std::max_element(slotKeys_.begin(), slotKeys_.end());
}

void RecordStoreBase::FinishLoading() {
    slotKeys_.shrink_to_fit();
    index_.Clear();
    index_.Reserve(slotKeys_.size());
    for (std::uint32_t slot = 0; slot < slotKeys_.size(); ++slot) {
        index_.Put(slotKeys_[slot], slot);
        largestKey_ = std::max(largestKey_, slotKeys_[slot]);
    }
}

std::size_t RecordStoreBase::KeyMemoryBytes() const {
    return index_.MemoryBytes() + numbers_.MemoryBytes() +
           (slotKeys_.capacity() + freeSlots_.capacity()) * sizeof(std::uint32_t);
}

const velda::FlatIndex& RecordStoreBase::Numbers() const {
    if (numbersKnown_) return numbers_;
    numbers_.Clear();
    numbers_.Reserve(index_.Count());
    largestNumber_ = 0;
    for (std::uint32_t slot = 0; slot < slotKeys_.size(); ++slot) {
        const std::uint32_t number = slotKeys_[slot] != 0 ? NumberAt(slot) : 0;
        if (number != 0) numbers_.Put(number, slotKeys_[slot]);
        largestNumber_ = std::max(largestNumber_, number);
    }
    numbersKnown_ = true;
    return numbers_;
}

bool RecordStoreBase::NumbersAscend() const {
    std::uint32_t last = 0;
    for (std::uint32_t slot = 0; slot < slotKeys_.size(); ++slot) {
        const std::uint32_t number = slotKeys_[slot] != 0 ? NumberAt(slot) : last + 1;
        if (number <= last) return false;
        last = number;
    }
    return true;
}

// Numbers mostly ascend with the keys; then they are unique, and no index has to be made.
std::vector<std::uint32_t> RecordStoreBase::KeysWithTakenNumber() const {
    std::vector<std::uint32_t> keys;
    if (!HasNumbers() || NumbersAscend()) return keys;
    const velda::FlatIndex& numbers = Numbers();
    for (std::uint32_t slot = 0; slot < slotKeys_.size(); ++slot) {
        const std::uint32_t number = slotKeys_[slot] != 0 ? NumberAt(slot) : 0;
        if (number != 0 && numbers.Find(number) != slotKeys_[slot]) keys.push_back(slotKeys_[slot]);
    }
    return keys;
}

std::uint32_t RecordStoreBase::KeyOfNumber(std::uint32_t number) const {
    const std::uint32_t key = Numbers().Find(number);
    return key == velda::FlatIndex::kNone ? 0 : key;
}

std::uint32_t RecordStoreBase::NewNumber() const {
    const velda::FlatIndex& numbers = Numbers();
    while (largestNumber_ > 0 && !numbers.Contains(largestNumber_)) --largestNumber_;
    if (largestNumber_ < kLargestSigned) return largestNumber_ + 1;
    return LowestFree([&](std::uint32_t number) { return numbers.Contains(number); });
}

void RecordStoreBase::NumberAppeared(std::uint32_t number, std::uint32_t key) {
    if (!numbersKnown_ || number == 0) return;
    numbers_.Put(number, key);
    largestNumber_ = std::max(largestNumber_, number);
}

// In a batch that swaps numbers another record may hold this number already.
void RecordStoreBase::NumberVanished(std::uint32_t number, std::uint32_t key) {
    if (numbersKnown_ && number != 0 && numbers_.Find(number) == key) numbers_.Erase(number);
}

}  // namespace zt
