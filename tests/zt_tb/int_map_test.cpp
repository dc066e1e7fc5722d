#include "zt_tb/core/int_map.h"

#include <gtest/gtest.h>

namespace zt {
namespace {

TEST(IntMapTest, KeysFallInTheBucketsOfTheirHash) {
    EXPECT_EQ(7608u, IntMap::BucketOf(1));
    EXPECT_EQ(4426u, IntMap::BucketOf(3));
    EXPECT_EQ(7261u, IntMap::BucketOf(7));
    EXPECT_EQ(1858u, IntMap::BucketOf(127773));
}

TEST(IntMapTest, EveryKeyHasABucket) {
    for (const std::int32_t key : {0, -1, 127772, -127772, 2147483647, -2147483647, -2147483647 - 1}) {
        EXPECT_LT(IntMap::BucketOf(key), IntMap::kBuckets) << key;
    }
}

TEST(IntMapTest, GivesWhatWasEntered) {
    IntMap map;
    map.Rebuild();
    map.Set(3, 30);
    map.Set(7, 70);
    std::int32_t value = -1;
    EXPECT_TRUE(map.Lookup(3, value));
    EXPECT_EQ(30, value);
    EXPECT_TRUE(map.Lookup(7, value));
    EXPECT_EQ(70, value);
}

TEST(IntMapTest, LeavesTheValueAloneForAnUnknownKey) {
    IntMap map;
    map.Rebuild();
    map.Set(3, 30);
    std::int32_t value = -1;
    EXPECT_FALSE(map.Lookup(4, value));
    EXPECT_EQ(-1, value);
}

TEST(IntMapTest, AKeyEnteredAgainTakesTheNewValue) {
    IntMap map;
    map.Set(3, 30);
    map.Set(3, 31);
    std::int32_t value = 0;
    EXPECT_TRUE(map.Lookup(3, value));
    EXPECT_EQ(31, value);
    EXPECT_EQ(1u, map.Count());
}

TEST(IntMapTest, KeysOfOneBucketAreKeptApart) {
    const auto far = static_cast<std::int32_t>(1 + IntMap::kBuckets);
    ASSERT_EQ(IntMap::BucketOf(1), IntMap::BucketOf(far));
    IntMap map;
    map.Rebuild();
    map.Set(1, 10);
    map.Set(far, 20);
    std::int32_t value = 0;
    EXPECT_TRUE(map.Lookup(1, value));
    EXPECT_EQ(10, value);
    EXPECT_TRUE(map.Lookup(far, value));
    EXPECT_EQ(20, value);
}

TEST(IntMapTest, HoldsMoreEntriesThanBlocksAndBuckets) {
    IntMap map;
    map.Rebuild();
    constexpr std::int32_t kCount = 20000;
    for (std::int32_t key = 1; key <= kCount; ++key) map.Set(key, 2 * key);
    EXPECT_EQ(static_cast<std::size_t>(kCount), map.Count());
    for (std::int32_t key = 1; key <= kCount; ++key) {
        std::int32_t value = 0;
        ASSERT_TRUE(map.Lookup(key, value)) << key;
        ASSERT_EQ(2 * key, value);
    }
}

TEST(IntMapTest, IsEmptyUntilItIsFilled) {
    IntMap map;
    EXPECT_TRUE(map.IsEmpty());
    EXPECT_FALSE(map.Contains(1)) << "before it has buckets";
    map.Rebuild();
    EXPECT_TRUE(map.IsEmpty());
    EXPECT_FALSE(map.Contains(1));
}

TEST(IntMapTest, RebuildAndRemoveAllEmptyIt) {
    IntMap map;
    map.Set(1, 10);
    map.Rebuild();
    EXPECT_FALSE(map.Contains(1));
    map.Set(2, 20);
    map.RemoveAll();
    EXPECT_TRUE(map.IsEmpty());
    EXPECT_FALSE(map.Contains(2));
}

}  // namespace
}  // namespace zt
