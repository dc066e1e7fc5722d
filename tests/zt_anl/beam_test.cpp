#include "zt_anl/frame_fixture.h"

namespace zt {
namespace {

constexpr double kRight = 90.0;  ///< degrees

/// A cantilever along global X, held at its first node.
class Cantilever : public FrameTest {
protected:
    static constexpr double kLength = 3.0;

    void Build(double beta = 0.0, std::uint32_t section = 1) {
        foot = Node(0.0, 0.0, 0.0);
        tip = Node(kLength, 0.0, 0.0);
        beam = Member({foot, tip}, section, 201, beta);
        Support(foot, "111111");
    }
    static double TipOf(double inertia, double shearArea) {
        return kLength * kLength * kLength / (3.0 * kE * inertia) + kLength / (kG * shearArea);
    }
    std::uint32_t foot = 0;
    std::uint32_t tip = 0;
    std::uint32_t beam = 0;
};

TEST_F(Cantilever, TipLoadBendsAndShears) {
    Build();
    Force(tip, kDz, -10.0);
    Solve();
    ExpectClose(Displacement(tip, kDz), -1.0e4 * TipOf(kIyy, kAsz));
    ExpectClose(Displacement(tip, kRy), 1.0e4 * kLength * kLength / (2.0 * kE * kIyy));
    ExpectClose(Reaction(foot, kDz), 1.0e4);
    ExpectClose(Reaction(foot, kRy), -3.0e4);
    ExpectClose(Forces(beam).ends[4], -3.0e4);
}

TEST_F(Cantilever, SidewayLoadBendsAboutTheOtherAxis) {
    Build();
    Force(tip, kDy, 10.0);
    Solve();
    ExpectClose(Displacement(tip, kDy), 1.0e4 * TipOf(kIzz, kAsy));
    ExpectClose(Displacement(tip, kRz), 1.0e4 * kLength * kLength / (2.0 * kE * kIzz));
    ExpectClose(Reaction(foot, kRz), -3.0e4);
}

TEST_F(Cantilever, AngleTurnsTheSection) {
    Build(kRight);
    Force(tip, kDz, -10.0);
    Solve();
    ExpectClose(Displacement(tip, kDz), -1.0e4 * TipOf(kIzz, kAsy));
}

TEST_F(Cantilever, HalfWayTurnedSectionBendsAside) {
    Build(45.0);
    Force(tip, kDz, -10.0);
    Solve();
    const double y = TipOf(kIzz, kAsy);
    const double z = TipOf(kIyy, kAsz);
    ExpectClose(Displacement(tip, kDz), -0.5e4 * (y + z));
    ExpectClose(std::abs(Displacement(tip, kDy)), 0.5e4 * (y - z));
}

TEST_F(Cantilever, PullsAndTwistsLikeASpring) {
    Build();
    Force(tip, kDx, 10.0);
    Force(tip, kRx, 2.0);
    Solve();
    ExpectClose(Displacement(tip, kDx), 1.0e4 * kLength / (kE * kArea));
    ExpectClose(Displacement(tip, kRx), 2.0e3 * kLength / (kG * kIxx));
    ExpectClose(Forces(beam).stations.front().forces[0], 1.0e4);
    ExpectClose(Forces(beam).stations.back().forces[3], 2.0e3);
}

TEST_F(Cantilever, WithoutShearDeformationItBendsOnly) {
    Build();
    Force(tip, kDz, -10.0);
    options.shearDeformation = false;
    Solve();
    ExpectClose(Displacement(tip, kDz), -1.0e4 * 27.0 / (3.0 * kE * kIyy));
}

TEST_F(Cantilever, SpringAtTheTipSharesTheLoad) {
    Build(0.0, 2);
    constexpr double kSpring = 5.0e6;
    Add<CClassSpts>(tip, {.flags = "000000", .value = {0.0, 0.0, kSpring / 1000.0}});
    Force(tip, kDz, -10.0);
    Solve();
    const double stiffness = 3.0 * kE * kIyy / 27.0;
    ExpectClose(Displacement(tip, kDz), -1.0e4 / (stiffness + kSpring));
    ExpectClose(Reaction(tip, kDz), 1.0e4 * kSpring / (stiffness + kSpring));
    ExpectClose(result.cases[0].reactionSum[2], 1.0e4);
}

TEST_F(Cantilever, InclinedPropTakesItsShare) {
    Build(0.0, 2);
    const std::uint32_t ground = Node(kLength + 4.0, 0.0, -3.0);
    Support(ground, "111111");
    Bar(tip, ground);
    Force(tip, kDz, -10.0);
    Solve();
    // Two equations of the tip, by hand: k c2 + a, -k c s; -k c s, k s2 + b.
    const double prop = kE * kArea / 5.0;
    const double a = kE * kArea / 3.0 + prop * 0.64;
    const double b = 3.0 * kE * kIyy / 27.0 + prop * 0.36;
    const double mixed = -prop * 0.48;
    ExpectClose(Displacement(tip, kDz), -1.0e4 * a / (a * b - mixed * mixed));
    ExpectClose(Displacement(tip, kDx), 1.0e4 * mixed / (a * b - mixed * mixed));
}

/// A beam of 4 m along global X, held at both ends, bending about its local y axis.
class FixedBeam : public FrameTest {
protected:
    static constexpr double kL = 4.0;

    void Build(std::uint32_t section = 2, const std::string& flagsJ = "111111") {
        first = Node(0.0, 0.0, 0.0);
        last = Node(kL, 0.0, 0.0);
        beam = Member({first, last}, section);
        Support(first, "111111");
        Support(last, flagsJ);
    }
    /// Expects the end moments of a load downward: about local y they are negative at end i and positive at end j.
    void ExpectMoments(double atI, double atJ) {
        Solve();
        ExpectClose(Forces(beam).ends[4], -atI);
        ExpectClose(Forces(beam).ends[10], atJ);
    }
    std::uint32_t first = 0;
    std::uint32_t last = 0;
    std::uint32_t beam = 0;
};

TEST_F(FixedBeam, UniformLoad) {
    Build();
    Uniform(beam, -6.0);
    ExpectMoments(6.0e3 * kL * kL / 12.0, 6.0e3 * kL * kL / 12.0);
    ExpectClose(Reaction(first, kDz), 12.0e3);
    ExpectClose(result.cases[0].loadSum[2], -24.0e3);
}

TEST_F(FixedBeam, UniformLoadGivesTheSameMomentsWithShear) {
    Build(1);
    Uniform(beam, -6.0);
    ExpectMoments(6.0e3 * kL * kL / 12.0, 6.0e3 * kL * kL / 12.0);
}

TEST_F(FixedBeam, TriangularLoad) {
    Build();
    MemberLoad(beam, LoadType::UniformLoads, LoadDirection::GlobalZ, {0.0, 1.0}, {0.0, -6.0});
    ExpectMoments(6.0e3 * kL * kL / 30.0, 6.0e3 * kL * kL / 20.0);
    ExpectClose(Reaction(first, kDz), 3.0 / 20.0 * 6.0e3 * kL);
}

TEST_F(FixedBeam, PartialUniformLoad) {
    Build();
    MemberLoad(beam, LoadType::UniformLoads, LoadDirection::GlobalZ, {0.0, 0.25}, {-6.0, -6.0});
    const double a = 0.25 * kL;
    ExpectMoments(6.0e3 * a * a * (6.0 * kL * kL - 8.0 * a * kL + 3.0 * a * a) / (12.0 * kL * kL),
                  6.0e3 * a * a * a * (4.0 * kL - 3.0 * a) / (12.0 * kL * kL));
}

TEST_F(FixedBeam, LoadOfThreeStretchesIsTheSumOfTheParts) {
    Build();
    MemberLoad(beam, LoadType::UniformLoads, LoadDirection::GlobalZ, {0.0, 0.5, 1.0, 0.0}, {0.0, -6.0, 0.0, 0.0});
    // A triangle with its peak in the middle: 5 w L2 / 96.
    ExpectMoments(5.0 / 96.0 * 6.0e3 * kL * kL, 5.0 / 96.0 * 6.0e3 * kL * kL);
}

TEST_F(FixedBeam, ConcentratedForces) {
    Build();
    MemberLoad(beam, LoadType::ConcentratedForces, LoadDirection::GlobalZ, {0.25, 0.0}, {-8.0, 0.0});
    ExpectMoments(8.0e3 * 1.0 * 9.0 / 16.0, 8.0e3 * 1.0 * 3.0 / 16.0);
    ExpectClose(Reaction(first, kDz), 8.0e3 * 9.0 * (3.0 + 3.0) / 64.0);
}

TEST_F(FixedBeam, ConcentratedForceInTheMiddleOfABeamWithShear) {
    Build(1);
    MemberLoad(beam, LoadType::ConcentratedForces, LoadDirection::LocalZ, {0.5, 0.0}, {-8.0, 0.0});
    ExpectMoments(8.0e3 * kL / 8.0, 8.0e3 * kL / 8.0);
}

TEST_F(FixedBeam, ConcentratedMoments) {
    Build();
    MemberLoad(beam, LoadType::ConcentratedMoments, LoadDirection::LocalY, {0.25, 0.0}, {8.0, 0.0});
    Solve();
    // M b (2a - b) / L2 and M a (2b - a) / L2, in the sense of the load.
    ExpectClose(Forces(beam).ends[4], 8.0e3 * 3.0 * (2.0 - 3.0) / 16.0);
    ExpectClose(Forces(beam).ends[10], 8.0e3 * 1.0 * (6.0 - 1.0) / 16.0);
}

TEST_F(FixedBeam, TorqueGoesToTheEndsByTheirDistance) {
    Build();
    MemberLoad(beam, LoadType::ConcentratedMoments, LoadDirection::LocalX, {0.25, 0.0}, {8.0, 0.0});
    Solve();
    ExpectClose(Reaction(first, kRx), -6.0e3);
    ExpectClose(Reaction(last, kRx), -2.0e3);
}

TEST_F(FixedBeam, UniformMomentIsCarriedByShearAlone) {
    Build();
    MemberLoad(beam, LoadType::UniformMoments, LoadDirection::LocalY, {0.0, 1.0}, {5.0, 5.0});
    Solve();
    // Nothing bends: the shear force m balances the load.
    EXPECT_NEAR(Forces(beam).ends[4], 0.0, 1.0e-6);
    ExpectClose(Forces(beam).ends[2], -5.0e3);
    ExpectClose(Forces(beam).ends[8], 5.0e3);
}

TEST_F(FixedBeam, LoadAlongTheBeamGoesToTheEndsByTheirDistance) {
    Build();
    MemberLoad(beam, LoadType::ConcentratedForces, LoadDirection::LocalX, {0.75, 0.0}, {8.0, 0.0});
    Solve();
    ExpectClose(Reaction(first, kDx), -2.0e3);
    ExpectClose(Reaction(last, kDx), -6.0e3);
    ExpectClose(Forces(beam).stations.front().forces[0], 2.0e3);
    ExpectClose(Forces(beam).stations.back().forces[0], -6.0e3);
}

TEST_F(FixedBeam, LocalDirectionsFollowTheAngle) {
    first = Node(0.0, 0.0, 0.0);
    last = Node(kL, 0.0, 0.0);
    beam = Member({first, last}, 2, 201, kRight);
    Support(first, "111111");
    Support(last, "111111");
    Uniform(beam, -6.0, LoadDirection::LocalY);
    Solve();
    ExpectClose(Reaction(first, kDz), 12.0e3);
}

TEST_F(FixedBeam, HingeMakesItAProppedCantilever) {
    Build();
    Add<CClassFrls>(beam, {.flagsJ = "000010"});
    Uniform(beam, -6.0);
    ExpectMoments(6.0e3 * kL * kL / 8.0, 0.0);
    ExpectClose(Reaction(last, kDz), 3.0 / 8.0 * 6.0e3 * kL);
    ExpectClose(Reaction(first, kDz), 5.0 / 8.0 * 6.0e3 * kL);
}

TEST_F(FixedBeam, HingesAtBothEndsMakeItSimplySupported) {
    Build(1);
    Add<CClassFrls>(beam, {.flagsI = "000111", .flagsJ = "000111"});
    Uniform(beam, -6.0);
    ExpectMoments(0.0, 0.0);
    const std::vector<StationForces>& stations = Forces(beam).stations;
    ASSERT_EQ(stations.size(), 9u);
    ExpectClose(stations[4].position, 2.0);
    ExpectClose(std::abs(stations[4].forces[4]), 6.0e3 * kL * kL / 8.0);
    EXPECT_NEAR(stations[4].forces[2], 0.0, 1.0e-6);
}

TEST_F(FixedBeam, ReleaseThatLeavesAFractionLeavesThatShareOfTheMoment) {
    Build();
    Add<CClassFrls>(beam, {.flagsJ = "000010", .valuesJ = {0.0, 0.0, 0.0, 0.0, 0.25}});
    Uniform(beam, -6.0);
    Solve();
    ExpectClose(Forces(beam).ends[10], 0.25 * 6.0e3 * kL * kL / 12.0);
}

TEST_F(FixedBeam, ReleaseWithASpringTakesTheMomentOfTheSpring) {
    Build();
    constexpr double kSpring = 2.0e7;
    T_FRLS_D release{.type = T_FRLS_D::kValue, .flagsJ = "000010"};
    release.valuesJ[4] = kSpring / 1000.0;
    Add<CClassFrls>(beam, release);
    Uniform(beam, -6.0);
    Solve();
    const double own = 4.0 * kE * kIyy / kL;
    ExpectClose(Forces(beam).ends[10], 6.0e3 * kL * kL / 12.0 * kSpring / (kSpring + own));
}

TEST_F(FixedBeam, NodesAlongAMemberDivideItAndItsLoads) {
    first = Node(0.0, 0.0, 0.0);
    const std::uint32_t middle = Node(1.0, 0.0, 0.0);
    last = Node(kL, 0.0, 0.0);
    beam = Member({first, middle, last}, 2);
    Support(first, "111111");
    Support(last, "111111");
    MemberLoad(beam, LoadType::UniformLoads, LoadDirection::GlobalZ, {0.0, 1.0}, {0.0, -6.0});
    MemberLoad(beam, LoadType::ConcentratedForces, LoadDirection::GlobalX, {0.25, 0.625}, {4.0, 8.0});
    Solve();
    ASSERT_EQ(result.model.spans.size(), 2u);
    ExpectClose(Forces(beam, 0).ends[4], -6.0e3 * kL * kL / 30.0);
    ExpectClose(Forces(beam, 1).ends[10], 6.0e3 * kL * kL / 20.0);
    ExpectClose(result.cases[0].loadSum[2], -12.0e3);
    ExpectClose(result.cases[0].loadSum[0], 12.0e3);
    ExpectClose(Reaction(last, kDx), -(4.0e3 * 0.25 + 8.0e3 * 0.625));
}

}  // namespace
}  // namespace zt
