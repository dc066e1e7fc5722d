#include "zt_db/records/member_load.h"

#include <gtest/gtest.h>

namespace zt {
namespace {

TEST(MemberLoad, DistributedLoadHasAStretchWhereverItsPlacesRise) {
    const auto stretches = StretchesOf({0.0, 0.5, 1.0, 0.0}, {0.0, -6.0, 0.0, 0.0});
    ASSERT_EQ(stretches.size(), 2u);
    EXPECT_EQ(stretches[0].to, 0.5);
    EXPECT_EQ(stretches[0].last, -6.0);
    EXPECT_EQ(stretches[1].from, 0.5);
    EXPECT_EQ(stretches[1].first, -6.0);
}

TEST(MemberLoad, StretchesWithoutAValueAreLeftOut) {
    const auto stretches = StretchesOf({0.0, 0.25, 0.5, 0.75}, {0.0, 0.0, 4.0, 0.0});
    ASSERT_EQ(stretches.size(), 2u);
    EXPECT_EQ(stretches[0].from, 0.25);
}

TEST(MemberLoad, JumpAtAPlaceIsNoStretch) {
    const auto stretches = StretchesOf({0.0, 0.5, 0.5, 1.0}, {1.0, 1.0, 3.0, 3.0});
    ASSERT_EQ(stretches.size(), 2u);
    EXPECT_EQ(stretches[0].last, 1.0);
    EXPECT_EQ(stretches[1].first, 3.0);
}

TEST(MemberLoad, PlacesWithoutAValueAreNoSingleLoads) {
    const auto points = PointsOf({0.0, 0.5, 0.75, 0.0}, {2.0, 0.0, -3.0, 0.0});
    ASSERT_EQ(points.size(), 2u);
    EXPECT_EQ(points[0].at, 0.0);
    EXPECT_EQ(points[1].value, -3.0);
}

TEST(MemberLoad, KnownLoadsHaveATypeAndADirection) {
    EXPECT_TRUE(IsKnownLoad(LoadType::UniformMoments, LoadDirection::GlobalZ));
    EXPECT_FALSE(IsKnownLoad(LoadType::Unknown, LoadDirection::GlobalZ));
    EXPECT_FALSE(IsKnownLoad(LoadType::UniformLoads, LoadDirection::Unknown));
    EXPECT_FALSE(IsKnownLoad(5, LoadDirection::LocalX));
    EXPECT_FALSE(IsKnownLoad(LoadType::UniformLoads, 7));
}

}  // namespace
}  // namespace zt
