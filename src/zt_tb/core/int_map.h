#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace zt {

/// A hash map from integer to integer with a number of buckets that stays as it is: nothing is moved while a change of
/// the size of the model is walked. Entries are allocated in blocks. A map has no buckets until it is rebuilt.
class IntMap {
public:
    static constexpr std::size_t kBlockSize = 10;
    static constexpr std::uint32_t kBuckets = 9199;

    explicit IntMap(std::size_t blockSize = kBlockSize) : blockSize_(blockSize) {}

    /// The bucket of a key: the linear congruential hash of the key, by the number of buckets.
    static constexpr std::uint32_t BucketOf(std::int32_t key, std::uint32_t buckets = kBuckets) {
        constexpr std::int32_t kQuotient = 127773;
        const std::int32_t q = key / kQuotient;
        const std::int32_t r = key % kQuotient;
        std::int32_t hash = 16807 * r - 2836 * q;
        if (hash < 0) hash += 2147483647;
        return static_cast<std::uint32_t>(hash) % buckets;
    }

    /// Empties the map and gives it buckets.
    void Rebuild(std::uint32_t buckets = kBuckets) {
        RemoveAll();
        buckets_.assign(buckets, nullptr);
    }
    /// Empties the map and frees what it holds.
    void RemoveAll() {
        buckets_ = Buckets();
        blocks_ = Blocks();
        count_ = 0;
    }

    bool IsEmpty() const { return count_ == 0; }
    std::size_t Count() const { return count_; }
    /// False, and `value` is left alone, when the map does not hold the key.
    bool Lookup(std::int32_t key, std::int32_t& value) const {
        const Entry* entry = Find(key);
        if (entry) value = entry->value;
        return entry != nullptr;
    }
    bool Contains(std::int32_t key) const { return Find(key) != nullptr; }
    /// Enters a value; the one that the key had goes.
    void Set(std::int32_t key, std::int32_t value) {
        if (buckets_.empty()) Rebuild();
        if (Entry* entry = Find(key)) {
            entry->value = value;
            return;
        }
        Entry*& head = buckets_[BucketOf(key, BucketCount())];
        if (count_ % blockSize_ == 0) blocks_.push_back(std::make_unique<Entry[]>(blockSize_));
        Entry& added = blocks_.back()[count_ % blockSize_];
        added = {key, value, head};
        head = &added;
        ++count_;
    }

private:
    struct Entry {
        std::int32_t key = 0;
        std::int32_t value = 0;
        Entry* next = nullptr;
    };
    using Buckets = std::vector<Entry*>;
    using Blocks = std::vector<std::unique_ptr<Entry[]>>;

    std::uint32_t BucketCount() const { return static_cast<std::uint32_t>(buckets_.size()); }
    Entry* Find(std::int32_t key) const {
        if (buckets_.empty()) return nullptr;
        Entry* entry = buckets_[BucketOf(key, BucketCount())];
        while (entry && entry->key != key) entry = entry->next;
        return entry;
    }

    std::size_t blockSize_;
    std::size_t count_ = 0;
    Buckets buckets_;
    Blocks blocks_;
};

}  // namespace zt
