#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace velda {

/// Hash map from a non-zero 32-bit number to a 32-bit number: open addressing, linear probing, 8 bytes a place.
/// Key 0 is never stored; looking it up finds nothing.
class FlatIndex {
public:
    static constexpr std::uint32_t kNone = 0xFFFFFFFFu;

    /// Value of `key`, or kNone.
    std::uint32_t Find(std::uint32_t key) const {
        if (places_.empty() || key == 0) return kNone;
        for (std::size_t at = Home(key);; at = (at + 1) & mask_) {
            const Place& place = places_[at];
            if (place.key == key) return place.value;
            if (place.key == 0) return kNone;
        }
    }
    bool Contains(std::uint32_t key) const { return Find(key) != kNone; }

    /// Stores `value` under `key`, replacing what stood there. Returns false when the key was there already.
    bool Put(std::uint32_t key, std::uint32_t value) {
        if ((count_ + 1) * 2 > places_.size()) Grow((count_ + 1) * 2);
        for (std::size_t at = Home(key);; at = (at + 1) & mask_) {
            Place& place = places_[at];
            if (place.key == key) {
                place.value = value;
                return false;
            }
            if (place.key == 0) {
                place = {key, value};
                ++count_;
                return true;
            }
        }
    }

    /// Removes `key`; false when it was not there.
    bool Erase(std::uint32_t key) {
        if (places_.empty() || key == 0) return false;
        std::size_t at = Home(key);
        while (places_[at].key != key) {
            if (places_[at].key == 0) return false;
            at = (at + 1) & mask_;
        }
        CloseGap(at);
        --count_;
        return true;
    }

    void Reserve(std::size_t count) {
        if (count * 2 > places_.size()) Grow(count * 2);
    }
    void Clear() {
        places_.clear();
        count_ = 0;
        mask_ = 0;
    }
    std::size_t Count() const { return count_; }
    std::size_t MemoryBytes() const { return places_.capacity() * sizeof(Place); }

private:
    struct Place {
        std::uint32_t key = 0;
        std::uint32_t value = 0;
    };

    /// First place to look at. Keys below the size of the table, as they are mostly given, have places of their own, in
    /// their order; what lies above is added in scattered, so that no stride of keys piles up.
    std::size_t Home(std::uint32_t key) const {
        const std::uint32_t above = static_cast<std::uint32_t>(std::uint64_t{key} >> bits_);
        return (key + above * 0x9E3779B9u) & mask_;
    }

    void Grow(std::size_t atLeast) {
        std::size_t size = 16;
        bits_ = 4;
        for (; size < atLeast; size *= 2) ++bits_;
        std::vector<Place> old(size);
        old.swap(places_);
        mask_ = size - 1;
        for (const Place& place : old) {
            if (place.key == 0) continue;
            std::size_t at = Home(place.key);
            while (places_[at].key != 0) at = (at + 1) & mask_;
            places_[at] = place;
        }
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

    std::vector<Place> places_;
    std::size_t count_ = 0;
    std::size_t mask_ = 0;
    unsigned bits_ = 0;
};

}  // namespace velda
