#include <numbers>

#include "zt_anl/element/bending_curves.h"
#include "zt_anl/frame_fixture.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

using testing::HasSubstr;

constexpr double kPi = std::numbers::pi;

/// A cantilever column of 6 m in eight elements, pressed and pushed aside at its top in global X. Exact formulas of
/// beam-columns: Timoshenko and Gere, Theory of Elastic Stability, 2nd edition, 1961.
class PressedColumn : public FrameTest {
protected:
    static constexpr double kL = 6.0;
    static constexpr double kEI = kE * kIyy;
    static constexpr double kCritical = kPi * kPi * kEI / (4.0 * kL * kL);
    static constexpr double kPush = 1.0e4;
    /// What eight elements miss of the exact curves.
    static constexpr double kTolerance = 1.0e-5;

    PressedColumn() { options.secondOrder = SecondOrder::EachCase; }
    void Build(double press, std::uint32_t section = 2, int elements = 8) {
        std::vector<std::uint32_t> nodes;
        for (int i = 0; i <= elements; ++i) nodes.push_back(Node(0.0, 0.0, kL * i / elements));
        column = Member(nodes, section, MembType::Column);
        foot = nodes.front();
        top = nodes.back();
        Support(foot, "111111");
        for (const std::uint32_t node : nodes) {
            if (node != foot) Support(node, "010101");
        }
        Force(top, kDz, -press / 1000.0);
        Force(top, kDx, kPush / 1000.0);
    }
    /// Expects that the sections of all elements end with their end forces: then each is in equilibrium in its deformed
    /// shape.
    void ExpectClosedElements() const {
        for (const ElementForces& forces : result.cases[0].elements) {
            for (std::size_t i = 0; i < kFreedoms; ++i) {
                EXPECT_NEAR(forces.stations.front().forces[i], -forces.ends[i], 1.0e-3);
                EXPECT_NEAR(forces.stations.back().forces[i], forces.ends[kFreedoms + i], 1.0e-3);
            }
        }
    }
    std::uint32_t foot = 0;
    std::uint32_t top = 0;
    std::uint32_t column = 0;
};

TEST_F(PressedColumn, SwaysByTheExactFormula) {
    const double press = 0.5 * kCritical;
    Build(press);
    Solve();
    // Section 1.5 by half of a strut: H (tan kL - kL) / (P k), and H tan kL / k at the foot.
    const double k = std::sqrt(press / kEI);
    ExpectClose(Displacement(top, kDx), kPush * (std::tan(k * kL) - k * kL) / (press * k), kTolerance);
    ExpectClose(Reaction(foot, kRy), -kPush * std::tan(k * kL) / k, kTolerance);
    ExpectClose(Reaction(foot, kDx), -kPush, kTolerance);
    ExpectClose(Reaction(foot, kRy), -kPush * kL - press * Displacement(top, kDx), 1.0e-6);
    EXPECT_TRUE(result.cases[0].hasSettled);
    EXPECT_FALSE(log.Has("IDS_ANL_NO_EQUILIBRIUM"));
    ExpectClosedElements();
}

TEST_F(PressedColumn, TensionStiffens) {
    const double pull = 0.5 * kCritical;
    Build(-pull);
    Solve();
    const double k = std::sqrt(pull / kEI);
    ExpectClose(Displacement(top, kDx), kPush * (k * kL - std::tanh(k * kL)) / (pull * k), kTolerance);
    ExpectClosedElements();
}

TEST_F(PressedColumn, WithoutTheSecondOrderPressDoesNotSway) {
    options.secondOrder = SecondOrder::None;
    Build(0.5 * kCritical);
    Solve();
    ExpectClose(Displacement(top, kDx), kPush * kL * kL * kL / (3.0 * kEI));
    EXPECT_EQ(result.cases[0].rounds, 1);
}

TEST_F(PressedColumn, StandsJustBelowTheLoadOfEuler) {
    Build(0.999 * kCritical);
    Solve();
    EXPECT_EQ(log.Warnings(), 0u);
}

TEST_F(PressedColumn, BucklesJustAboveTheLoadOfEuler) {
    Build(1.001 * kCritical);
    Solve();
    EXPECT_FALSE(result.cases[0].hasSettled);
    EXPECT_TRUE(log.Has("IDS_ANL_BUCKLES"));
    EXPECT_THAT(log.Text(), HasSubstr("Load case C1: the structure buckles; node 9 gives way in Dx"));
    EXPECT_TRUE(result.cases[1].hasSettled);
}

TEST_F(PressedColumn, FirstModeIsNamedFarAboveTheLoadOfEuler) {
    Build(40.0 * kCritical);
    Solve();
    EXPECT_THAT(log.Text(), HasSubstr("node 9 gives way in Dx"));
}

TEST_F(PressedColumn, GivenLoadsThatBuckleAreRefused) {
    Build(1.001 * kCritical);
    options.secondOrder = SecondOrder::GivenLoads;
    options.secondOrderLoads = {{1, 1.0}};
    EXPECT_THAT(Run().Reason(), HasSubstr("the structure buckles; node 9 gives way in Dx"));
    options.secondOrderLoads = {{1, 0.9}};
    Solve();
}

TEST_F(PressedColumn, GivenLoadsHoldForOtherCases) {
    Build(kCritical);
    Force(top, kDx, kPush / 1000.0, 2);
    options.secondOrder = SecondOrder::GivenLoads;
    options.secondOrderLoads = {{1, 0.5}};
    Solve();
    const double press = 0.5 * kCritical;
    const double k = std::sqrt(press / kEI);
    const double sway = kPush * (std::tan(k * kL) - k * kL) / (press * k);
    ExpectClose(Displacement(top, kDx, 0), sway, kTolerance);
    ExpectClose(Displacement(top, kDx, 1), sway, kTolerance);
}

TEST_F(PressedColumn, SecondOrderWithoutLoadsIsTold) {
    Build(kCritical);
    options.secondOrder = SecondOrder::GivenLoads;
    Solve();
    EXPECT_TRUE(log.Has("IDS_ANL_NO_SECOND_ORDER_LOADS"));
    ExpectClose(Displacement(top, kDx), kPush * kL * kL * kL / (3.0 * kEI));
}

TEST_F(PressedColumn, ShearLowersTheCriticalLoad) {
    // Section 2.17: P = Pe / (1 + Pe / (G As)).
    const double shear = 4.0 * kCritical;
    PutSection(3, {kArea, 0.0, shear / kG, kIxx, kIyy, kIzz});
    const double critical = kCritical / (1.0 + kCritical / shear);
    Build(0.999 * critical, 3);
    Force(top, kDz, -0.002 * critical / 1000.0, 2);
    Solve();
    EXPECT_EQ(log.Warnings(), 0u);
    ExpectClosedElements();
    Force(top, kDz, -0.002 * critical / 1000.0, 1);
    Solve();
    EXPECT_TRUE(log.Has("IDS_ANL_BUCKLES"));
}

TEST_F(PressedColumn, RigidPartsLeanToo) {
    // The upper quarter is rigid: of a rigid length once, of stiff elements then.
    const auto swayOf = [&](bool isRigidLength) {
        Build(0.5 * kCritical, 2, 8);
        std::uint32_t shown = top;
        if (isRigidLength) {
            const std::uint32_t from = Node(20.0, 0.0, 0.0);
            shown = Node(20.0, 0.0, kL);
            std::vector<std::uint32_t> nodes{from};
            for (int i = 1; i <= 6; ++i) {
                nodes.push_back(Node(20.0, 0.0, 0.7 * kL * i / 6.0));
                Support(nodes.back(), "010101");
            }
            nodes.push_back(shown);
            const std::uint32_t rigid = Member(nodes, 2, MembType::Column);
            Add<CClassRgde>(rigid, {.lengthJ = 0.25 * kL});
            Support(from, "111111");
            Support(shown, "010101");
        } else {
            PutSection(3, {1.0e5 * kArea, 0.0, 0.0, 1.0, 1.0e5 * kIyy, 1.0e5 * kIzz});
            std::vector<std::uint32_t> nodes;
            for (int i = 0; i <= 6; ++i) {
                nodes.push_back(Node(40.0, 0.0, 0.7 * kL * i / 6.0));
                Support(nodes.back(), i == 0 ? "111111" : "010101");
            }
            nodes.push_back(Node(40.0, 0.0, 0.75 * kL));
            Support(nodes.back(), "010101");
            Member(nodes, 2, MembType::Column);
            shown = Node(40.0, 0.0, kL);
            Support(shown, "010101");
            Member({nodes.back(), shown}, 3, MembType::Column);
        }
        Force(shown, kDz, -0.5 * kCritical / 1000.0);
        Force(shown, kDx, kPush / 1000.0);
        Solve();
        ExpectClosedElements();
        EXPECT_FALSE(log.Has("IDS_ANL_NO_EQUILIBRIUM"));
        return Displacement(shown, kDx);
    };
    const double rigid = swayOf(true);
    ExpectClose(rigid, swayOf(false), 2.0e-4);
    EXPECT_LT(rigid, Displacement(top, kDx));
}

TEST_F(FrameTest, RigidLengthLeansAlikeAtEitherEndOfAMember) {
    constexpr double kHeight = 4.0;
    std::array<std::uint32_t, 2> tops{};
    for (std::size_t i = 0; i < tops.size(); ++i) {
        const std::uint32_t foot = Node(9.0 * static_cast<double>(i), 0.0, 0.0);
        tops[i] = Node(9.0 * static_cast<double>(i), 0.0, kHeight);
        const std::uint32_t column =
            Member(i == 0 ? std::vector{foot, tops[i]} : std::vector{tops[i], foot}, 2, MembType::Column);
        i == 0 ? Add<CClassRgde>(column, {.lengthJ = 1.0}) : Add<CClassRgde>(column, {.lengthI = 1.0});
        Support(foot, "111111");
        Support(tops[i], "010101");
        Force(tops[i], kDz, -4.0e3);
        Force(tops[i], kDx, 10.0);
    }
    Solve();
    const double straight = Displacement(tops[0], kDx);
    options.secondOrder = SecondOrder::EachCase;
    Solve();
    EXPECT_TRUE(result.cases[0].hasSettled);
    EXPECT_GT(Displacement(tops[0], kDx), 1.1 * straight);
    ExpectClose(Displacement(tops[1], kDx), Displacement(tops[0], kDx));
}

TEST_F(FrameTest, LeaningColumnIsHeldByTheOther) {
    // A hinged column under P leans on a cantilever: H / (3 E I / h3 - P / h).
    constexpr double kHeight = 4.0;
    constexpr double kPress = 2.0e6;
    const std::uint32_t foot = Node(0.0, 0.0, 0.0);
    const std::uint32_t top = Node(0.0, 0.0, kHeight);
    const std::uint32_t otherFoot = Node(5.0, 0.0, 0.0);
    const std::uint32_t otherTop = Node(5.0, 0.0, kHeight);
    Member({foot, top}, 2, MembType::Column);
    const std::uint32_t leaning = Member({otherFoot, otherTop}, 2, MembType::Column);
    Add<CClassFrls>(leaning, {.flagsI = "000010", .flagsJ = "000010"});
    Support(foot, "111111");
    Support(otherFoot, "111111");
    for (const std::uint32_t node : {top, otherTop}) Support(node, "010111");
    Records<CClassSpts>().TR_Modify(top, top, {.flags = "010101"});
    Add<CClassRigd>(top, {.master = top, .freedoms = 100000, .slaves = {otherTop}});
    Force(otherTop, kDz, -kPress / 1000.0);
    Force(top, kDx, 10.0);
    options.secondOrder = SecondOrder::EachCase;
    Solve();
    const double stiffness = 3.0 * kE * kIyy / (kHeight * kHeight * kHeight);
    const double sway = 1.0e4 / (stiffness - kPress / kHeight);
    ExpectClose(Displacement(top, kDx), sway, 1.0e-6);
    ExpectClose(Reaction(otherFoot, kDx), kPress * sway / kHeight, 1.0e-6);
    // Straight between its hinges.
    for (const StationForces& station : Forces(leaning).stations) EXPECT_NEAR(station.forces[4], 0.0, 1.0e-3);
}

TEST_F(FrameTest, PressedBeamBendsMoreUnderItsLoad) {
    // A simple beam under a uniform load: w E I / P (sec(kL/2) - 1) in the middle (Timoshenko and Gere, section 1.5).
    constexpr double kLength = 8.0;
    constexpr int kElements = 16;
    const double critical = kPi * kPi * kE * kIyy / (kLength * kLength);
    const double press = 0.4 * critical;
    std::vector<std::uint32_t> nodes;
    for (int i = 0; i <= kElements; ++i) {
        nodes.push_back(Node(kLength * i / kElements, 0.0, 0.0));
        Support(nodes.back(), i == 0 ? "111101" : i == kElements ? "011101" : "010101");
    }
    const std::uint32_t beam = Member(nodes, 2);
    Uniform(beam, -6.0);
    Force(nodes.back(), kDx, -press / 1000.0);
    options.secondOrder = SecondOrder::EachCase;
    Solve();
    const double k = std::sqrt(press / (kE * kIyy));
    const double moment = 6.0e3 / (k * k) * (1.0 / std::cos(k * kLength / 2.0) - 1.0);
    ExpectClose(Forces(beam, kElements / 2).stations.front().forces[4], -moment, 1.0e-4);
}

TEST_F(FrameTest, HingesTurnAsTheLoadBetweenThemBendsThePressedBeam) {
    // One element by hand: its ends turn by (w L2 / 12) / (2 E I / L - P L / 6), and its curve rises by a quarter of
    // the length times that in the middle.
    constexpr double kLength = 8.0;
    constexpr double kPress = 2.0e6;
    const std::uint32_t left = Node(0.0, 0.0, 0.0);
    const std::uint32_t right = Node(kLength, 0.0, 0.0);
    const std::uint32_t beam = Member({left, right}, 2);
    Add<CClassFrls>(beam, {.flagsI = "000010", .flagsJ = "000010"});
    Support(left, "111111");
    Support(right, "011111");
    Uniform(beam, -6.0);
    Force(right, kDx, -kPress / 1000.0);
    options.secondOrder = SecondOrder::EachCase;
    Solve();
    const double load = 6.0e3 * kLength * kLength;
    const double turn = load / 12.0 / (2.0 * kE * kIyy / kLength - kPress * kLength / 6.0);
    const std::vector<StationForces>& stations = Forces(beam).stations;
    ExpectClose(stations[4].forces[4], -(load / 8.0 + kPress * turn * kLength / 4.0));
    EXPECT_NEAR(stations.front().forces[4], 0.0, 1.0e-6);
    EXPECT_NEAR(stations.back().forces[4], 0.0, 1.0e-6);
}

TEST_F(FrameTest, PressedBeamSwingsMoreSlowly) {
    // f = f0 sqrt(1 - P / Pe) (Timoshenko and Gere, section 2.10, and all texts of vibrations).
    constexpr double kLength = 8.0;
    constexpr int kElements = 40;
    const double critical = kPi * kPi * kE * kIyy / (kLength * kLength);
    std::vector<std::uint32_t> nodes;
    for (int i = 0; i <= kElements; ++i) {
        nodes.push_back(Node(kLength * i / kElements, 0.0, 0.0));
        Support(nodes.back(), i == 0 ? "111101" : i == kElements ? "011101" : "010101");
    }
    Member(nodes, 2);
    Force(nodes.back(), kDx, -0.36 * critical / 1000.0);
    options.modal = true;
    Solve();
    const double straight = result.modal.modes[0].frequency;
    options.secondOrder = SecondOrder::GivenLoads;
    options.secondOrderLoads = {{1, 1.0}};
    Solve();
    ExpectClose(result.modal.modes[0].frequency, 0.8 * straight, 1.0e-5);
    options.secondOrder = SecondOrder::EachCase;
    Solve();
    ExpectClose(result.modal.modes[0].frequency, straight);
}

TEST_F(FrameTest, SlackMembersDoNotDrawInTheSecondOrder) {
    const std::uint32_t foot = Node(0.0, 0.0, 0.0);
    const std::uint32_t top = Node(0.0, 0.0, 4.0);
    const std::uint32_t left = Node(-3.0, 0.0, 0.0);
    const std::uint32_t right = Node(3.0, 0.0, 0.0);
    Member({foot, top}, 2, MembType::Column);
    const std::uint32_t drawn = Bar(left, top, true);
    const std::uint32_t slack = Bar(right, top, true);
    Support(foot, "111111");
    for (const std::uint32_t node : {left, right}) Support(node, "111000");
    Force(top, kDx, 100.0);
    options.secondOrder = SecondOrder::EachCase;
    Solve();
    EXPECT_TRUE(result.cases[0].hasSettled);
    EXPECT_GT(Forces(drawn).stations[0].forces[0], 0.0);
    for (const double force : Forces(slack).ends) EXPECT_EQ(force, 0.0);
    ExpectClose(result.cases[0].reactionSum[0], -1.0e5, 1.0e-6);
}

TEST(TensionStiffness, WithoutShearItIsThatOfTheCubicCurves) {
    // Przemieniecki, 1968, equation 15.16.
    constexpr double kL = 3.0;
    const PlaneMatrix values = TensionStiffnessOfBeam(kL, 0.0);
    EXPECT_DOUBLE_EQ(values[0][0], 6.0 / (5.0 * kL));
    EXPECT_DOUBLE_EQ(values[0][1], 0.1);
    EXPECT_DOUBLE_EQ(values[1][1], 2.0 * kL / 15.0);
    EXPECT_DOUBLE_EQ(values[1][3], -kL / 30.0);
}

TEST(TensionStiffness, IsTheIntegralOfTheSlopesOfTheCurves) {
    constexpr double kL = 3.0;
    constexpr double kRatio = 0.7;
    constexpr int kSteps = 20000;
    const PlaneMatrix values = TensionStiffnessOfBeam(kL, kRatio);
    PlaneMatrix sums{};
    BendingCurves last = CurvesOfBeam(0.0, kL, kRatio);
    for (int step = 1; step <= kSteps; ++step) {
        const BendingCurves next = CurvesOfBeam(static_cast<double>(step) / kSteps, kL, kRatio);
        for (std::size_t i = 0; i < 4; ++i) {
            for (std::size_t j = 0; j < 4; ++j) {
                sums[i][j] += (next.displacement[i] - last.displacement[i]) *
                              (next.displacement[j] - last.displacement[j]) * kSteps / kL;
            }
        }
        last = next;
    }
    for (std::size_t i = 0; i < 4; ++i) {
        for (std::size_t j = 0; j < 4; ++j) EXPECT_NEAR(values[i][j], sums[i][j], 1.0e-7);
    }
}

}  // namespace
}  // namespace zt
