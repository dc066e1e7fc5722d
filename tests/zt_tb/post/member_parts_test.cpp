#include "zt_tb/post/member_parts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zt {
namespace {

using ::testing::ElementsAre;

ActiveList<std::int16_t> PartsOf(int tab) {
    ActiveList<std::int16_t> parts{.names = {"old"}, .keys = {99}, .selected = {2}};
    GetAllPartForActiveNew(tab, parts);
    EXPECT_EQ(parts.names.size(), parts.keys.size());
    return parts;
}

TEST(MemberParts, AreTheEighthsOfBeams) {
    for (const int tab : {66, 69, 71, 74, 77, 80, 93, 96}) {
        const auto parts = PartsOf(tab);
        EXPECT_THAT(parts.keys, ElementsAre(0, 2, 4, 6, 8, 10, 12, 14, 16)) << tab;
        EXPECT_THAT(parts.names, ElementsAre("i-End", "1/8", "2/8", "3/8", "4/8", "5/8", "6/8", "7/8", "j-End"));
    }
}

TEST(MemberParts, AreTheThirdsOfColumnsFromTheTop) {
    for (const int tab : {67, 70, 72, 75, 78, 81, 94, 97}) {
        const auto parts = PartsOf(tab);
        EXPECT_THAT(parts.keys, ElementsAre(1, 3, 2, 0)) << tab;
        EXPECT_THAT(parts.names, ElementsAre("Top", "Middle 2", "Middle 1", "Bottom"));
    }
}

TEST(MemberParts, AreTheEndsOfBraces) {
    for (const int tab : {68, 73, 79, 95}) EXPECT_THAT(PartsOf(tab).keys, ElementsAre(0, 1)) << tab;
}

TEST(MemberParts, AreFewerForDesignForces) {
    EXPECT_THAT(PartsOf(180).keys, ElementsAre(0, 4, 7));
    for (const int tab : {181, 182}) EXPECT_THAT(PartsOf(tab).names, ElementsAre("Bottom", "Top")) << tab;
    EXPECT_THAT(PartsOf(181).keys, ElementsAre(0, 7));
}

TEST(MemberParts, AreTheQuartersOfAllOthers) {
    for (const int tab : {-1, 0, 179, 500}) {
        EXPECT_THAT(PartsOf(tab).keys, ElementsAre(0, 2, 4, 6, 7)) << tab;
        EXPECT_THAT(PartsOf(tab).names, ElementsAre("i-End", "1/4", "2/4", "3/4", "j-End"));
    }
}

TEST(MemberParts, LeaveTheSelectionAlone) { EXPECT_THAT(PartsOf(66).selected, ElementsAre(2)); }

}  // namespace
}  // namespace zt
