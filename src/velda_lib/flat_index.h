#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace velda {

/// Map from a non-zero 32-bit number to a 32-bit number below kNone. Keys that lie close together from 1 on, as they
/// are mostly given, stand in an array by key; the others stand in a hash table with open addressing. Key 0 is never
/// stored; looking it up finds nothing.
class FlatIndex {
public:
    static constexpr std::uint32_t kNone = 0xFFFFFFFFu;

    /// Value of `key`, or kNone.
    std::uint32_t Find(std::uint32_t key) const {
        if (key < dense_.size()) return dense_[key];
        if (places_.empty() || key == 0) return kNone;
        for (std::size_t at = Home(key);; at = (at + 1) & mask_) {
            const Place& place = places_[at];
            if (place.key == key) return place.value;
            if (place.key == 0) return kNone;
        }
    }
    bool Contains(std::uint32_t key) const { return Find(key) != kNone; }

    /// Stores `value` under `key`, replacing what stood there. Returns false when the key was there already, or is 0.
    bool Put(std::uint32_t key, std::uint32_t value) {
        if (key == 0) return false;
        if (key >= dense_.size() && key < kSpread * (count_ + 1)) GrowDense(key);
        const bool isNew = key < dense_.size() ? PutDense(key, value) : PutScattered(key, value);
        if (isNew) ++count_;
        return isNew;
    }

    /// Removes `key`; false when it was not there.
    bool Erase(std::uint32_t key) {
        const bool found = key < dense_.size() ? EraseDense(key) : EraseScattered(key);
        if (found) --count_;
        return found;
    }

    /// Makes room for keys that lie close together.
    void Reserve(std::size_t count) { dense_.reserve(std::bit_ceil(count + 1)); }
    void Clear() { *this = FlatIndex{}; }
    std::size_t Count() const { return count_; }
    std::size_t MemoryBytes() const {
        return dense_.capacity() * sizeof(std::uint32_t) + places_.capacity() * sizeof(Place);
    }

private:
    /// The array may have this many places for each key.
    static constexpr std::uint64_t kSpread = 4;

    struct Place {
        std::uint32_t key = 0;
        std::uint32_t value = 0;
    };

    bool PutDense(std::uint32_t key, std::uint32_t value) {
        const bool isNew = dense_[key] == kNone;
        dense_[key] = value;
        return isNew;
    }
    bool EraseDense(std::uint32_t key) {
        const bool found = dense_[key] != kNone;
        dense_[key] = kNone;
        return found;
    }

    /// Makes the array reach to `key`; what the hash table holds of the keys below moves there.
    void GrowDense(std::uint32_t key) {
        constexpr std::uint64_t kSmallest = 64;
        const std::uint64_t size = std::max(kSmallest, std::bit_ceil(std::uint64_t{key} + 1));
        dense_.resize(size, kNone);
        if (scattered_ == 0) return;
        std::vector<Place> old = std::move(places_);
        places_.clear();
        scattered_ = 0;
        for (const Place& place : old) {
            if (place.key == 0) continue;
            if (place.key < dense_.size()) {
                dense_[place.key] = place.value;
            } else {
                PutScattered(place.key, place.value);
            }
        }
    }

    /// First place to look at: the upper bits of a product with the golden ratio, which scatter any regular sequence of
    /// keys.
    std::size_t Home(std::uint32_t key) const {
        return static_cast<std::size_t>((std::uint64_t{key} * 0x9E3779B97F4A7C15ull) >> shift_);
    }

    bool PutScattered(std::uint32_t key, std::uint32_t value) {
        if ((scattered_ + 1) * 2 > places_.size()) GrowScattered();
        std::size_t at = Home(key);
        while (places_[at].key != 0 && places_[at].key != key) at = (at + 1) & mask_;
        const bool isNew = places_[at].key == 0;
        places_[at] = {key, value};
        if (isNew) ++scattered_;
        return isNew;
    }

    void GrowScattered() {
        constexpr std::size_t kSmallest = 16;
        std::vector<Place> old(std::max(kSmallest, places_.size() * 2));
        old.swap(places_);
        mask_ = places_.size() - 1;
        shift_ = 64 - std::countr_zero(places_.size());
        for (const Place& place : old) {
            if (place.key == 0) continue;
            std::size_t at = Home(place.key);
            while (places_[at].key != 0) at = (at + 1) & mask_;
            places_[at] = place;
        }
    }

    bool EraseScattered(std::uint32_t key) {
        if (places_.empty() || key == 0) return false;
        std::size_t at = Home(key);
        while (places_[at].key != key) {
            if (places_[at].key == 0) return false;
            at = (at + 1) & mask_;
        }
        CloseGap(at);
        --scattered_;
        return true;
    }

    /// Moves later entries of the probe run back over an emptied place, so that no lookup stops too early.
    void CloseGap(std::size_t gap) {
        for (std::size_t at = (gap + 1) & mask_; places_[at].key != 0; at = (at + 1) & mask_) {
            const std::size_t home = Home(places_[at].key);
            if (((at - home) & mask_) >= ((at - gap) & mask_)) {
                places_[gap] = places_[at];
                gap = at;
            }
        }
        places_[gap] = Place{};
    }

    std::vector<std::uint32_t> dense_;  ///< by key; kNone where there is none
    std::vector<Place> places_;
    std::size_t count_ = 0;
    std::size_t scattered_ = 0;  ///< of which in the hash table
    std::size_t mask_ = 0;
    int shift_ = 63;
};

}  // namespace velda
