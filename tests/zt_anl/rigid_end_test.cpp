#include "zt_anl/frame_fixture.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

/// A member of 5 m along global X between two nodes, of which rigid lengths leave 4 m. Forces of held beams and
/// deflections of cantilevers as in Roark's Formulas for Stress and Strain, table 8.1.
class RigidEnds : public FrameTest {
protected:
    static constexpr double kWhole = 5.0;
    static constexpr double kI = 0.6;
    static constexpr double kJ = 0.4;
    static constexpr double kL = kWhole - kI - kJ;
    static constexpr double kEI = kE * kIyy;

    void Build(const std::string& flagsJ, double lengthI = kI, double lengthJ = kJ) {
        first = Node(0.0, 0.0, 0.0);
        last = Node(kWhole, 0.0, 0.0);
        beam = Member({first, last}, 2);
        Support(first, "111111");
        Support(last, flagsJ);
        Add<CClassRgde>(beam, {.lengthI = lengthI, .lengthJ = lengthJ});
    }
    std::uint32_t first = 0;
    std::uint32_t last = 0;
    std::uint32_t beam = 0;
};

TEST_F(RigidEnds, ClearLengthDeforms) {
    Build("000000");
    Force(last, kDz, -10.0);
    Force(last, kDx, 7.0, 2);
    Solve();
    // The end of the clear length gets the force and its moment; the node sinks further by the turn of the end.
    const double sink = 1.0e4 * kL * kL * kL / (3.0 * kEI) + 1.0e4 * kJ * kL * kL / (2.0 * kEI);
    const double turn = 1.0e4 * kL * kL / (2.0 * kEI) + 1.0e4 * kJ * kL / kEI;
    ExpectClose(Displacement(last, kDz), -(sink + kJ * turn));
    ExpectClose(Displacement(last, kRy), turn);
    ExpectClose(Displacement(last, kDx, 1), 7.0e3 * kL / (kE * kArea));
    ExpectClose(Reaction(first, kRy), -1.0e4 * kWhole);
    ExpectClose(Forces(beam).ends[4], -1.0e4 * (kL + kJ));
    ExpectClose(Forces(beam).stations.back().position, kL);
}

TEST_F(RigidEnds, UniformLoadRunsOverTheWholeMember) {
    Build("111111");
    Uniform(beam, -6.0);
    Solve();
    const double face = 6.0e3 * kL * kL / 12.0;
    const double shear = 6.0e3 * kL / 2.0;
    ExpectClose(Reaction(first, kDz), shear + 6.0e3 * kI);
    ExpectClose(Reaction(last, kDz), shear + 6.0e3 * kJ);
    ExpectClose(Reaction(first, kRy), -(face + shear * kI + 6.0e3 * kI * kI / 2.0));
    ExpectClose(Reaction(last, kRy), face + shear * kJ + 6.0e3 * kJ * kJ / 2.0);
    ExpectClose(Forces(beam).ends[4], -face);
    ExpectClose(result.cases[0].loadSum[2], -6.0e3 * kWhole);
    EXPECT_EQ(log.Warnings(), 0u);
}

TEST_F(RigidEnds, PositionsCountAlongTheWholeMember) {
    Build("111111");
    MemberLoad(beam, LoadType::ConcentratedForces, LoadDirection::GlobalZ, {(kI + 1.0) / kWhole, 0.0}, {-8.0, 0.0});
    Solve();
    ExpectClose(Forces(beam).ends[4], -8.0e3 * 1.0 * 9.0 / 16.0);
    ExpectClose(Forces(beam).ends[10], 8.0e3 * 1.0 * 3.0 / 16.0);
}

TEST_F(RigidEnds, LoadOnARigidLengthGoesToItsNodeWithItsMoment) {
    Build("111111");
    MemberLoad(beam, LoadType::ConcentratedForces, LoadDirection::GlobalZ, {0.5 / kWhole, 0.0}, {-8.0, 0.0});
    MemberLoad(beam, LoadType::ConcentratedForces, LoadDirection::GlobalZ, {1.0 - 0.3 / kWhole, 0.0}, {-2.0, 0.0});
    MemberLoad(beam, LoadType::ConcentratedMoments, LoadDirection::LocalX, {0.2 / kWhole, 0.0}, {3.0, 0.0});
    Solve();
    ExpectClose(Reaction(first, kDz), 8.0e3);
    ExpectClose(Reaction(first, kRy), -8.0e3 * 0.5);
    ExpectClose(Reaction(last, kDz), 2.0e3);
    ExpectClose(Reaction(last, kRy), 2.0e3 * 0.3);
    ExpectClose(Reaction(first, kRx), -3.0e3);
    EXPECT_EQ(Forces(beam).ends[4], 0.0);
}

TEST_F(RigidEnds, PartialLoadIsPartedAtTheFace) {
    Build("111111");
    MemberLoad(beam, LoadType::UniformLoads, LoadDirection::GlobalZ, {0.0, kI / kWhole}, {0.0, -6.0});
    Solve();
    ExpectClose(Reaction(first, kDz), 6.0e3 * kI / 2.0);
    ExpectClose(Reaction(first, kRy), -6.0e3 * kI / 2.0 * 2.0 / 3.0 * kI);
    EXPECT_NEAR(Reaction(last, kDz), 0.0, 1.0e-6);
}

TEST_F(RigidEnds, SelfWeightAndMassKeepTheWholeLength) {
    Build("000000");
    Add<CClassSwgt>(1, {.stld = 1, .z = -1.0});
    options.modal = true;
    Solve();
    const double mass = kDensity * kArea * kWhole;
    ExpectClose(Reaction(first, kDz), mass * 9.80665);
    ExpectClose(Reaction(first, kRy), -mass * 9.80665 * kWhole / 2.0);
    ExpectClose(result.modal.totalMass[2], mass / 2.0);
}

TEST_F(RigidEnds, ReleaseStandsAtTheFace) {
    Build("111111");
    Add<CClassFrls>(beam, {.flagsI = "000010", .flagsJ = "000010"});
    Uniform(beam, -6.0);
    Solve();
    ExpectClose(Reaction(first, kRy), -(6.0e3 * kL / 2.0 * kI + 6.0e3 * kI * kI / 2.0));
    EXPECT_NEAR(Forces(beam).ends[4], 0.0, 1.0e-6);
}

TEST_F(RigidEnds, RigidLengthsThatLeaveNothingAreRefused) {
    Build("111111", 3.0, 2.0);
    EXPECT_THAT(Run().Reason(), testing::HasSubstr("The rigid lengths of member 1"));
}

TEST_F(RigidEnds, NegativeRigidLengthsAreNone) {
    Build("111111", -1.0, 0.0);
    Solve();
    ExpectClose(result.model.spans[0].length, kWhole);
}

TEST_F(RigidEnds, MembersOfSeveralSpansHaveRigidLengthsAtTheirEndsAlone) {
    const std::uint32_t a = Node(0.0, 0.0, 0.0);
    const std::uint32_t b = Node(2.0, 0.0, 0.0);
    const std::uint32_t c = Node(kWhole, 0.0, 0.0);
    const std::uint32_t member = Member({a, b, c}, 2);
    Support(a, "111111");
    Add<CClassRgde>(member, {.lengthI = kI, .lengthJ = kJ});
    Uniform(member, -6.0);
    Solve();
    ExpectClose(result.model.spans[0].length, 2.0 - kI);
    ExpectClose(result.model.spans[1].length, 3.0 - kJ);
    ExpectClose(result.model.spans[0].end, 0.4);
    ExpectClose(Reaction(a, kRy), -6.0e3 * kWhole * kWhole / 2.0);
}

// ---- offsets ----

/// A cantilever of 4 m whose axis lies beside the line of its nodes: what pulls or presses the tip bends it too.
class OffsetMember : public FrameTest {
protected:
    static constexpr double kL = 4.0;
    static constexpr double kAside = 0.25;
    static constexpr double kForce = 1.0e4;
    static constexpr int kBeam = 201;

    void Build(const Vector3& to, int type, double beta = 0.0) {
        foot = Node(0.0, 0.0, 0.0);
        tip = Node(to[0], to[1], to[2]);
        member = Member({foot, tip}, 2, type, beta);
        Support(foot, "111111");
    }
    void Offset(T_OFFS_D record) {
        record.mode = T_OFFS_D::kByValue;
        Add<CClassOffs>(member, record);
    }
    /// The sideways displacement of a tip that a moment bends, M L2 / (2 E I).
    static double BentBy(double moment, double inertia) { return moment * kL * kL / (2.0 * kE * inertia); }
    std::uint32_t foot = 0;
    std::uint32_t tip = 0;
    std::uint32_t member = 0;
};

TEST_F(OffsetMember, ColumnMovesAlongItsLocalZ) {
    Build({0.0, 0.0, kL}, MembType::Column);
    Offset({.i2 = kAside});
    Force(tip, kDz, -kForce / 1000.0);
    Solve();
    // The load stands beside the axis, towards -X.
    ExpectClose(Displacement(tip, kDx), -BentBy(kForce * kAside, kIyy));
    ExpectClose(Displacement(tip, kDz), -kForce * kL / (kE * kArea) - kAside * kAside * kForce * kL / (kE * kIyy));
    EXPECT_NEAR(Reaction(foot, kRy), 0.0, 1.0e-6);
    // Local y points to -Y.
    ExpectClose(Forces(member).ends[4], -kForce * kAside);
}

TEST_F(OffsetMember, ColumnMovesAlongItsTurnedLocalY) {
    Build({0.0, 0.0, kL}, MembType::Column, 90.0);
    Offset({.i1 = kAside});
    Force(tip, kDz, -kForce / 1000.0);
    Solve();
    const Vector3 y = result.model.spans[0].axes.y;
    ExpectClose(std::abs(y[0]), 1.0);
    ExpectClose(Displacement(tip, kDx), -y[0] * BentBy(kForce * kAside, kIzz));
}

TEST_F(OffsetMember, BeamMovesUpward) {
    Build({kL, 0.0, 0.0}, kBeam);
    Offset({.vertical = -kAside});
    Force(tip, kDx, kForce / 1000.0);
    Solve();
    // The pull stands above the axis.
    ExpectClose(Displacement(tip, kDz), -BentBy(kForce * kAside, kIyy));
    ExpectClose(Displacement(tip, kDx), kForce * kL / (kE * kArea) + kAside * kAside * kForce * kL / (kE * kIyy));
}

TEST_F(OffsetMember, BeamMovesSidewaysWhateverItsAngle) {
    Build({kL, 0.0, 0.0}, kBeam, 90.0);
    Offset({.i1 = kAside});
    Force(tip, kDx, kForce / 1000.0);
    Solve();
    EXPECT_NEAR(Displacement(tip, kDz), 0.0, 1.0e-12);
    // Local y at angle 0 points to +Y, so that the pull stands at the side of -Y and stretches it.
    ExpectClose(Displacement(tip, kDy), BentBy(kForce * kAside, kIyy));
}

TEST_F(OffsetMember, OwnOffsetOfEndJSlantsTheAxis) {
    Build({kL, 0.0, 0.0}, kBeam);
    Offset({.useJ = 1, .j1 = 3.0});
    Force(tip, kDz, -kForce / 1000.0);
    Solve();
    ExpectClose(result.model.spans[0].length, 5.0);
    ExpectClose(Reaction(foot, kRy), -kForce * kL);
    EXPECT_NEAR(Reaction(foot, kRx), 0.0, 1.0e-6);
}

TEST_F(OffsetMember, LoadsStandOnTheAxis) {
    Build({kL, 0.0, 0.0}, kBeam);
    Offset({.i1 = kAside});
    Add<CClassRgde>(member, {.lengthI = 0.5});
    Uniform(member, -6.0);
    Solve();
    ExpectClose(Reaction(foot, kDz), 6.0e3 * kL);
    ExpectClose(Reaction(foot, kRx), 6.0e3 * kL * kAside);
    ExpectClose(Reaction(foot, kRy), -6.0e3 * kL * kL / 2.0);
}

TEST_F(OffsetMember, NodesBetweenTheEndsFollow) {
    foot = Node(0.0, 0.0, 0.0);
    const std::uint32_t middle = Node(1.0, 0.0, 0.0);
    tip = Node(kL, 0.0, 0.0);
    member = Member({foot, middle, tip}, 2);
    Support(foot, "111111");
    Offset({.vertical = -kAside});
    Force(tip, kDx, kForce / 1000.0);
    Solve();
    ExpectClose(Displacement(tip, kDz), -BentBy(kForce * kAside, kIyy));
}

TEST_F(OffsetMember, OffsetThatIsOnlyDrawnDoesNothing) {
    Build({kL, 0.0, 0.0}, kBeam);
    Offset({.vertical = -kAside, .displayOnly = 1});
    Force(tip, kDx, kForce / 1000.0);
    Solve();
    EXPECT_EQ(Displacement(tip, kDz), 0.0);
    EXPECT_FALSE(log.Has("IDS_ANL_OFFSETS_BY_MEMBER"));
}

TEST_F(OffsetMember, OffsetByOtherMembersIsToldOnce) {
    Build({kL, 0.0, 0.0}, kBeam);
    const std::uint32_t other = Member({tip, Node(2.0 * kL, 0.0, 0.0)}, 2);
    Add<CClassOffs>(member, {.mode = T_OFFS_D::kByMember, .member1 = other});
    Add<CClassOffs>(other, {.mode = T_OFFS_D::kByMember, .member1 = member});
    Solve();
    EXPECT_EQ(std::count_if(log.Lines().begin(), log.Lines().end(),
                            [](const LogLine& line) { return line.key == "IDS_ANL_OFFSETS_BY_MEMBER"; }),
              1);
    EXPECT_EQ(log.Warnings(), 0u);
}

}  // namespace
}  // namespace zt
