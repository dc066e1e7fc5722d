#include "zt_tb/modelview/load_legend.h"

#include "zt_tb/modelview/load_fixture.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zt {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class LoadLegendTest : public BayLoadTest {
protected:
    LoadLegend Legend(std::uint32_t loadCase) {
        loads.Build(Db(), loadCase);
        return LegendOf(loads, Db().Units());
    }

    SceneLoads loads;
};

TEST(LoadTextTest, RoundsAmountsToFourDigits) {
    EXPECT_EQ("7.5", LoadText(-7.5));
    EXPECT_EQ("0.3333", LoadText(1.0 / 3.0));
    EXPECT_EQ("66.67", LoadText(200.0 / 3.0));
    EXPECT_EQ("250000", LoadText(250'000.2)) << "whole numbers keep their digits";
    EXPECT_EQ("0", LoadText(0.0));
}

TEST_F(LoadLegendTest, NamesTheCaseAndTheUnitsOfItsLoads) {
    Add<CClassLnld>(1, LineLoad(-7.5, -7.5));
    EXPECT_EQ("DL | kN/m", Legend(kDead).title);
    Add<CClassPtld>(1, {.node = 5, .stld = kDead, .fx = 30.0});
    EXPECT_EQ("DL | kN, kN/m", Legend(kDead).title);
    EXPECT_THAT(Legend(kDead).lines, IsEmpty());
}

TEST_F(LoadLegendTest, FollowsTheUnits) {
    Add<CClassLnld>(1, LineLoad(-7.5, -7.5));
    SetUnits(0, 1);
    EXPECT_EQ("DL | " + Db().Units().Label(Unit::LineLoad), Legend(kDead).title);
    EXPECT_NE("DL | kN/m", Legend(kDead).title);
}

TEST_F(LoadLegendTest, TellsWhatIsNotSeenOnMembers) {
    Add<CClassSwgt>(1, {.stld = kDead, .x = 0.1, .z = -1.0});
    Add<CClassSwgt>(2, {.memb = 1, .stld = kDead, .z = -1.0});
    AddSlabLoad(1.5, 0.0);
    EXPECT_THAT(Legend(kDead).lines, ElementsAre("Self-weight 0.1 X, -1 Z", "Self-weight of single members: 1",
                                                 "With the dead loads of slabs"));
    EXPECT_THAT(Legend(kLive).lines, ElementsAre("No loads in this case"));
}

TEST_F(LoadLegendTest, IsEmptyWithoutALoadCase) { EXPECT_TRUE(Legend(0).title.empty()); }

}  // namespace
}  // namespace zt
