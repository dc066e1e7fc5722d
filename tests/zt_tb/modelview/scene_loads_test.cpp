#include "zt_tb/modelview/scene_loads.h"

#include "zt_tb/modelview/load_fixture.h"
#include <gtest/gtest.h>

namespace zt {
namespace {

class SceneLoadsTest : public BayLoadTest {
protected:
    SceneLoadsTest() {
        Add<CClassLnld>(1, LineLoad(-7.5, -7.5));
        Add<CClassPtld>(1, {.node = 5, .stld = kWind, .fx = 30.0, .mz = -12.0});
    }
    const SceneLoads& LoadsOf(std::uint32_t loadCase) {
        loads.Build(Db(), loadCase);
        return loads;
    }

    SceneLoads loads;
};

TEST_F(SceneLoadsTest, HoldsTheLoadsOfOneCaseInSiUnits) {
    SetUnits(0, 1);
    EXPECT_EQ("DL", LoadsOf(kDead).Name());
    ASSERT_EQ(1u, loads.MemberLoads().size());
    EXPECT_TRUE(loads.NodeLoads().empty());
    EXPECT_NEAR(-7500.0, loads.MemberLoads()[0].values[0], 1e-9);
    EXPECT_NEAR(7500.0, loads.Greatest(LoadKind::LineLoad), 1e-9);
    LoadsOf(kWind);
    EXPECT_TRUE(loads.MemberLoads().empty());
    ASSERT_EQ(1u, loads.NodeLoads().size());
    EXPECT_NEAR(30000.0, loads.Greatest(LoadKind::Force), 1e-9);
    EXPECT_NEAR(12000.0, loads.Greatest(LoadKind::Moment), 1e-9);
    EXPECT_EQ(0.0, loads.Greatest(LoadKind::LineLoad));
}

TEST_F(SceneLoadsTest, TellsTheKindsOfLoadsOnMembers) {
    T_CMLD_D load{.memb = 1, .stld = kWind, .direction = LoadDirection::LocalY};
    load.p[0] = 1.0;
    for (int type = LoadType::ConcentratedForces; type <= LoadType::UniformMoments; ++type) {
        load.type = type;
        Add<CClassCmld>(static_cast<std::uint32_t>(type), load);
    }
    ASSERT_EQ(4u, LoadsOf(kWind).MemberLoads().size());
    const LoadKind kinds[] = {LoadKind::Force, LoadKind::Moment, LoadKind::LineLoad, LoadKind::LineMoment};
    for (std::size_t at = 0; at < 4; ++at) {
        EXPECT_EQ(kinds[at], loads.MemberLoads()[at].kind);
        EXPECT_EQ(at >= 2, loads.MemberLoads()[at].isDistributed);
    }
}

TEST_F(SceneLoadsTest, LeavesOutLoadsWithoutAKnownTypeOrDirection) {
    T_LNLD_D load = LineLoad(1.0, 1.0);
    load.type = 7;
    Add<CClassLnld>(2, load);
    load = LineLoad(1.0, 1.0);
    load.direction = LoadDirection::Unknown;
    Add<CClassLnld>(3, load);
    EXPECT_EQ(1u, LoadsOf(kDead).MemberLoads().size());
}

TEST_F(SceneLoadsTest, ShowsDeadAndLivePartsOfSlabsWithCasesOfTheirTypes) {
    AddSlabLoad(1.5, 2.5);
    ASSERT_EQ(1u, LoadsOf(kDead).SlabLoads().size());
    EXPECT_NEAR(1500.0, loads.SlabLoads()[0].value, 1e-9);
    ASSERT_EQ(1u, LoadsOf(kLive).SlabLoads().size());
    EXPECT_NEAR(2500.0, loads.Greatest(LoadKind::AreaLoad), 1e-9);
    EXPECT_TRUE(LoadsOf(kWind).SlabLoads().empty());
}

TEST_F(SceneLoadsTest, AddsUpTheSelfWeightOfTheModelAndCountsThatOfMembers) {
    Add<CClassSwgt>(1, {.stld = kDead, .z = -1.0});
    Add<CClassSwgt>(2, {.stld = kDead, .z = -0.1});
    Add<CClassSwgt>(3, {.memb = 1, .stld = kDead, .z = -1.0});
    Add<CClassSwgt>(4, {.stld = kWind, .x = 0.2});
    EXPECT_DOUBLE_EQ(-1.1, LoadsOf(kDead).SelfWeight().z);
    EXPECT_EQ(0.0, loads.SelfWeight().x);
    EXPECT_EQ(1u, loads.OwnSelfWeights());
}

TEST_F(SceneLoadsTest, FollowsItsLoads) {
    LoadsOf(kDead);
    ASSERT_TRUE(Records<CClassLnld>().TR_Modify(1, 1, LineLoad(-9.0, -9.0)));
    loads.Update(Db());
    EXPECT_NEAR(9000.0, loads.Greatest(LoadKind::LineLoad), 1e-9);
    ASSERT_TRUE(Records<CClassMemb>().TR_Del(kFrontBeam));
    loads.Update(Db());
    EXPECT_TRUE(loads.MemberLoads().empty()) << "it went with its beam";
    ASSERT_EQ(1, Db().Undo());
    loads.Update(Db());
    EXPECT_EQ(1u, loads.MemberLoads().size());
}

TEST_F(SceneLoadsTest, IsEmptyOnceItsCaseIsDeleted) {
    LoadsOf(kLive);
    ASSERT_TRUE(Records<CClassStld>().TR_Del(kLive));
    loads.Update(Db());
    EXPECT_EQ(0u, loads.LoadCase());
    EXPECT_EQ(0u, LoadsOf(99).LoadCase());
}

}  // namespace
}  // namespace zt
