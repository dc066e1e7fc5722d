#include "zt_anl/frame_fixture.h"

namespace zt {
namespace {

constexpr int kCompressionOnly = 2;

/// A cantilever of 4 m along global X whose tip stands on a support of one sense. Deflections and forces of cantilevers
/// and propped cantilevers under a uniform load as in Roark's Formulas for Stress and Strain, table 8.1.
class OneWayProp : public FrameTest {
protected:
    static constexpr double kL = 4.0;
    static constexpr double kLoad = 6.0e3;
    static constexpr double kFreeSink = kLoad * kL * kL * kL * kL / (8.0 * kE * kIyy);
    static constexpr double kStiffness = 3.0 * kE * kIyy / (kL * kL * kL);

    OneWayProp() {
        foot = Node(0.0, 0.0, 0.0);
        tip = Node(kL, 0.0, 0.0);
        beam = Member({foot, tip}, 2);
        Support(foot, "111111");
    }
    void Prop(int sense, double spring = 0.0) {
        T_SPTS_D support{.flags = spring > 0.0 ? "000000" : "001000"};
        support.value[2] = spring / 1000.0;
        support.compressionType[2] = sense;
        Add<CClassSpts>(tip, support);
    }
    void SinkGround(double value) {
        Add<CClassSdsp>(1, {.node = tip, .stld = 1, .flags = "001000", .value = {0.0, 0.0, -value}});
    }
    std::uint32_t foot = 0;
    std::uint32_t tip = 0;
    std::uint32_t beam = 0;
};

TEST_F(OneWayProp, HoldsWhatIsPressedOntoIt) {
    Prop(T_SPTS_D::kPositive);
    Uniform(beam, -kLoad / 1000.0);
    Solve();
    ExpectClose(Reaction(tip, kDz), 3.0 / 8.0 * kLoad * kL);
    EXPECT_EQ(result.cases[0].rounds, 1);
    EXPECT_EQ(log.Warnings(), 0u);
}

TEST_F(OneWayProp, LetsGoWhatIsLifted) {
    Prop(T_SPTS_D::kPositive);
    Uniform(beam, kLoad / 1000.0);
    Force(tip, kDz, -10.0, 2);
    Solve();
    ExpectClose(Displacement(tip, kDz), kFreeSink);
    EXPECT_EQ(Reaction(tip, kDz), 0.0);
    EXPECT_EQ(result.cases[0].rounds, 2);
    EXPECT_TRUE(result.cases[0].hasSettled);
    ExpectClose(result.cases[0].reactionSum[2], -kLoad * kL);
    // The next case begins with all supports.
    ExpectClose(Reaction(tip, kDz, 1), 1.0e4);
}

TEST_F(OneWayProp, OfTheOtherSenseHoldsDownAlone) {
    Prop(T_SPTS_D::kNegative);
    Uniform(beam, kLoad / 1000.0);
    Force(tip, kDz, -10.0, 2);
    Solve();
    ExpectClose(Reaction(tip, kDz), -3.0 / 8.0 * kLoad * kL);
    ExpectClose(Displacement(tip, kDz, 1), -1.0e4 / kStiffness);
}

TEST_F(OneWayProp, SpringPushesInItsSenseAlone) {
    constexpr double kSpring = 5.0e6;
    Prop(T_SPTS_D::kPositive, kSpring);
    Force(tip, kDz, -10.0, 1);
    Force(tip, kDz, 10.0, 2);
    Solve();
    ExpectClose(Displacement(tip, kDz), -1.0e4 / (kStiffness + kSpring));
    ExpectClose(Displacement(tip, kDz, 1), 1.0e4 / kStiffness);
    EXPECT_EQ(Reaction(tip, kDz, 1), 0.0);
}

TEST_F(OneWayProp, GroundThatSinksALittleStaysInTouch) {
    Prop(T_SPTS_D::kPositive);
    Uniform(beam, -kLoad / 1000.0);
    SinkGround(0.25 * kFreeSink);
    Solve();
    ExpectClose(Displacement(tip, kDz), -0.25 * kFreeSink);
    ExpectClose(Reaction(tip, kDz), 0.75 * 3.0 / 8.0 * kLoad * kL);
}

TEST_F(OneWayProp, GroundThatSinksTooFarIsLeft) {
    Prop(T_SPTS_D::kPositive);
    Uniform(beam, -kLoad / 1000.0);
    SinkGround(2.0 * kFreeSink);
    Solve();
    ExpectClose(Displacement(tip, kDz), -kFreeSink);
    EXPECT_EQ(Reaction(tip, kDz), 0.0);
}

TEST_F(OneWayProp, HoldsInTheModesWhichIsTold) {
    Prop(T_SPTS_D::kPositive);
    Uniform(beam, kLoad / 1000.0);
    Add<CClassPmas>(tip, {.mz = 1.0});
    options.modal = true;
    options.selfWeightMass = false;
    Solve();
    EXPECT_TRUE(result.modal.modes.empty());
    EXPECT_TRUE(log.Has("IDS_ANL_MODES_WITH_ALL"));
}

TEST_F(FrameTest, StructureThatItsOnlySupportsLetGoIsTold) {
    const std::uint32_t left = Node(0.0, 0.0, 0.0);
    const std::uint32_t right = Node(4.0, 0.0, 0.0);
    Member({left, right}, 2);
    for (const std::uint32_t node : {left, right}) {
        T_SPTS_D support{.flags = node == left ? "111101" : "011101"};
        support.compressionType[2] = T_SPTS_D::kPositive;
        Add<CClassSpts>(node, support);
    }
    Force(left, kDz, 10.0);
    Force(right, kDz, 10.0);
    Force(right, kDz, -10.0, 2);
    Solve();
    EXPECT_FALSE(result.cases[0].hasSettled);
    EXPECT_TRUE(log.Has("IDS_ANL_NOT_SETTLED"));
    // What is given goes together: the forces of the last round that could be solved.
    ExpectClose(result.cases[0].reactionSum[2], -2.0e4);
    EXPECT_TRUE(result.cases[1].hasSettled);
    ExpectClose(Reaction(right, kDz, 1), 1.0e4);
}

TEST_F(FrameTest, BeamOnManySupportsLeavesThoseThatItWouldDraw) {
    // Three spans, the middle one loaded: the outer supports would draw, so that the beam spans the inner ones alone.
    std::vector<std::uint32_t> nodes;
    for (int i = 0; i <= 3; ++i) {
        nodes.push_back(Node(4.0 * i, 0.0, 0.0));
        T_SPTS_D support{.flags = i == 0 ? "111101" : "011101"};
        support.compressionType[2] = T_SPTS_D::kPositive;
        Add<CClassSpts>(nodes.back(), support);
    }
    Member({nodes[0], nodes[1]}, 2);
    const std::uint32_t middle = Member({nodes[1], nodes[2]}, 2);
    Member({nodes[2], nodes[3]}, 2);
    Uniform(middle, -6.0);
    Solve();
    ExpectClose(Reaction(nodes[1], kDz), 12.0e3);
    EXPECT_EQ(Reaction(nodes[0], kDz), 0.0);
    // The slope of the simple beam, w L3 / (24 E I), lifts the outer ends.
    ExpectClose(Displacement(nodes[0], kDz), 4.0 * 6.0e3 * 64.0 / (24.0 * kE * kIyy));
    ExpectClose(Forces(middle).stations[4].forces[4], -12.0e3);
}

TEST_F(FrameTest, MemberOfCompressionLeavesTheLoadToOthersWhenDrawn) {
    const std::uint32_t left = Node(-4.0, 0.0, 0.0);
    const std::uint32_t right = Node(4.0, 0.0, 0.0);
    const std::uint32_t middle = Node(0.0, 0.0, 0.0);
    Bar(left, middle);
    const std::uint32_t strut = Bar(middle, right);
    T_MEMB_D member;
    Records<CClassMemb>().Get(strut, member);
    member.tensionOnly = kCompressionOnly;
    ASSERT_TRUE(Records<CClassMemb>().TR_Modify(strut, strut, member));
    Support(left, "111111");
    Support(right, "111111");
    Support(middle, "011000");
    Force(middle, kDx, 10.0, 1);
    Force(middle, kDx, -10.0, 2);
    Solve();
    ExpectClose(Displacement(middle, kDx), 1.0e4 * 4.0 / (2.0 * kE * kArea));
    ExpectClose(Displacement(middle, kDx, 1), -1.0e4 * 4.0 / (kE * kArea));
    EXPECT_EQ(Reaction(right, kDx, 1), 0.0);
}

}  // namespace
}  // namespace zt
