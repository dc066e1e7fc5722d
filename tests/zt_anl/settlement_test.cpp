#include "zt_anl/frame_fixture.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

/// A beam of 4 m along global X, held at its first node, without shear deformation. Forces by displacements of its ends
/// as in McGuire, Gallagher and Ziemian, Matrix Structural Analysis, 2000, equation 4.31.
class SettledBeam : public FrameTest {
protected:
    static constexpr double kL = 4.0;
    static constexpr double kEI = kE * kIyy;
    static constexpr double kSink = 0.02;

    SettledBeam() {
        first = Node(0.0, 0.0, 0.0);
        last = Node(kL, 0.0, 0.0);
        beam = Member({first, last}, 2);
        Support(first, "111111");
    }
    void Move(std::uint32_t node, Freedom freedom, double value, std::uint32_t stld = 1) {
        T_SDSP_D record{.node = node, .stld = stld};
        record.flags[freedom] = '1';
        record.value[freedom] = value;
        Add<CClassSdsp>(nextMove++, record);
    }
    std::uint32_t first = 0;
    std::uint32_t last = 0;
    std::uint32_t beam = 0;
    std::uint32_t nextMove = 1;
};

TEST_F(SettledBeam, HeldEndThatSinksBendsTheBeam) {
    Support(last, "111111");
    Move(last, kDz, -kSink);
    Solve();
    ExpectClose(Displacement(last, kDz), -kSink);
    ExpectClose(Reaction(first, kDz), 12.0 * kEI * kSink / (kL * kL * kL));
    ExpectClose(Reaction(last, kDz), -12.0 * kEI * kSink / (kL * kL * kL));
    ExpectClose(Forces(beam).ends[4], -6.0 * kEI * kSink / (kL * kL));
    ExpectClose(Forces(beam).ends[10], -6.0 * kEI * kSink / (kL * kL));
    EXPECT_EQ(log.Warnings(), 0u);
}

TEST_F(SettledBeam, MoveCountsInItsLoadCaseAlone) {
    Support(last, "111111");
    Move(last, kDz, -kSink, 2);
    Force(last, kDz, -5.0, 1);
    Solve();
    EXPECT_EQ(Displacement(last, kDz), 0.0);
    ExpectClose(Reaction(last, kDz), 5.0e3);
    ExpectClose(Displacement(last, kDz, 1), -kSink);
}

TEST_F(SettledBeam, HeldEndThatTurnsGivesHalfItsMomentToTheOther) {
    constexpr double kTurn = 0.01;
    Support(last, "111111");
    Move(first, kRy, kTurn);
    Solve();
    ExpectClose(Reaction(first, kRy), 4.0 * kEI * kTurn / kL);
    ExpectClose(Reaction(last, kRy), 2.0 * kEI * kTurn / kL);
}

TEST_F(SettledBeam, PropThatSinksDrawsTheBeamAlong) {
    Support(last, "001000");
    Move(last, kDz, -kSink);
    Uniform(beam, -6.0);
    Solve();
    ExpectClose(Reaction(last, kDz), 3.0 / 8.0 * 6.0e3 * kL - 3.0 * kEI * kSink / (kL * kL * kL));
    ExpectClose(result.cases[0].reactionSum[2], 6.0e3 * kL);
}

TEST_F(SettledBeam, GroundOfASpringMoves) {
    constexpr double kSpring = 5.0e6;
    Add<CClassSpts>(last, {.flags = "000000", .value = {0.0, 0.0, kSpring / 1000.0}});
    Move(last, kDz, -kSink);
    Solve();
    const double stiffness = 3.0 * kEI / (kL * kL * kL);
    const double sunk = kSpring * kSink / (stiffness + kSpring);
    ExpectClose(Displacement(last, kDz), -sunk);
    ExpectClose(Reaction(last, kDz), -kSpring * (kSink - sunk));
    ExpectClose(Reaction(first, kDz), stiffness * sunk);
}

TEST_F(SettledBeam, WhatNothingHoldsIsToldAndLeftOut) {
    Support(last, "001000");
    Move(last, kDy, 0.01);
    Move(last, kRz, 0.01);
    Solve();
    EXPECT_EQ(log.Warnings(), 2u);
    EXPECT_TRUE(log.Has("IDS_ANL_LOOSE_MOVE"));
    EXPECT_THAT(log.Text(), testing::HasSubstr("Node 2: the specified displacement in Dy of load case C1"));
    EXPECT_EQ(Displacement(last, kDy), 0.0);
}

TEST_F(SettledBeam, TiedNodesFollowASupportThatMoves) {
    const std::uint32_t master = Node(kL, 2.0, 0.0);
    Add<CClassRigd>(master, {.master = master, .freedoms = 1000, .slaves = {last}});
    Support(master, "111111");
    Move(master, kDz, -kSink);
    Solve();
    ExpectClose(Displacement(last, kDz), -kSink);
    ExpectClose(Reaction(master, kDz), -3.0 * kEI * kSink / (kL * kL * kL));
    EXPECT_FALSE(log.Has("IDS_ANL_NO_EQUILIBRIUM"));
}

TEST_F(SettledBeam, TiedNodeIsNotMovedByItself) {
    const std::uint32_t master = Node(kL, 2.0, 0.0);
    Add<CClassRigd>(master, {.master = master, .freedoms = 1000, .slaves = {last}});
    Support(master, "111111");
    Support(last, "001000");
    Move(last, kDz, -kSink);
    Solve();
    EXPECT_TRUE(log.Has("IDS_ANL_LOOSE_MOVE"));
    EXPECT_EQ(Displacement(last, kDz), 0.0);
}

TEST_F(FrameTest, PortalWhoseFeetSpreadThrustsByItsUnitLoadIntegral) {
    // Columns and beam so thick that they change no length.
    PutSection(3, {1.0e4, 0.0, 0.0, 1.0, 2.0e-4, 2.0e-4});
    PutSection(4, {1.0e4, 0.0, 0.0, 1.0, 3.0e-4, 3.0e-4});
    constexpr double kHeight = 4.0;
    constexpr double kSpan = 6.0;
    constexpr double kSpread = 0.01;
    const std::uint32_t foot = Node(0.0, 0.0, 0.0);
    const std::uint32_t corner = Node(0.0, 0.0, kHeight);
    const std::uint32_t otherCorner = Node(kSpan, 0.0, kHeight);
    const std::uint32_t otherFoot = Node(kSpan, 0.0, 0.0);
    Member({foot, corner}, 3, MembType::Column);
    Member({corner, otherCorner}, 4);
    Member({otherCorner, otherFoot}, 3, MembType::Column);
    for (const std::uint32_t node : {foot, otherFoot}) Support(node, "111101");
    Add<CClassSdsp>(1, {.node = otherFoot, .stld = 1, .flags = "100000", .value = {kSpread}});
    Solve();
    // The moment of a thrust of 1 is the height in the columns and their whole height along the beam.
    const double columns = 2.0 * kHeight * kHeight * kHeight / (3.0 * kE * 2.0e-4);
    const double beam = kHeight * kHeight * kSpan / (kE * 3.0e-4);
    ExpectClose(Reaction(otherFoot, kDx), kSpread / (columns + beam), 1.0e-4);
    ExpectClose(Reaction(foot, kDx), -kSpread / (columns + beam), 1.0e-4);
}

}  // namespace
}  // namespace zt
