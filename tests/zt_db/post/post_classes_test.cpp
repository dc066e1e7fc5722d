#include "zt_db/post/post_classes.h"

#include <stdlib.h>

#include "zt_db/post/post_fixture.h"
#include "zt_db/post/product.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using StaticCases = PortalTest;

TEST_F(StaticCases, AreListedWithOrWithoutEarthquakes) {
    Records<CClassStld>().TR_Add(3, T_STLD_D{.name = "EX", .type = "E"});
    const CClassPStld cases(doc->GetMDBCtrl()->GetDBPre());
    std::vector<std::uint32_t> keys = {99};
    EXPECT_TRUE(cases.GetKeyList(keys, 1, 1));
    EXPECT_THAT(keys, ElementsAre(kDead, kWind, 3));
    EXPECT_TRUE(cases.GetKeyList(keys, 1, 0));
    EXPECT_THAT(keys, ElementsAre(kDead, kWind));
    EXPECT_TRUE(cases.GetKeyList(keys, 0, 1));
    EXPECT_THAT(keys, ElementsAre(3));
    EXPECT_FALSE(cases.GetKeyList(keys, 0, 0));
    EXPECT_THAT(keys, IsEmpty());
}

TEST(PushoverSteps, AreNamedByTheirNumberUpToTheLast) {
    const CClassPoas pushover;
    EXPECT_EQ(pushover.GetStepName(10, 1, 2, 1), "1");
    EXPECT_EQ(pushover.GetStepName(10, 10, 2, 1), "10");
    EXPECT_EQ(pushover.GetStepName(10, 11, 2, 1), "");
    EXPECT_EQ(pushover.GetStepName(10, 0, 2, 1), "");
}

TEST(CombinationControl, UsesCombinationsAsLongAsThereIsNoRecord) {
    T_LCCT_D control;
    EXPECT_FALSE(CClassLcct().Get(control));
    EXPECT_EQ(control.useCombinations, 1);
}

TEST(ProductSwitch, IsOnForYesAlone) {
    constexpr const char* kName = "ZT_TEST_SWITCH";
    EXPECT_EQ(CProduct::GetTestEnvValue(kName), "");
    EXPECT_FALSE(CProduct::IsSwitchedOn(kName));
    for (const auto& [value, isOn] : {std::pair("yes", true), std::pair("Yes", false), std::pair("", false)}) {
        ::setenv(kName, value, 1);
        EXPECT_EQ(CProduct::GetTestEnvValue(kName), value);
        EXPECT_EQ(CProduct::IsSwitchedOn(kName), isOn) << value;
    }
    ::unsetenv(kName);
}

}  // namespace
}  // namespace zt
