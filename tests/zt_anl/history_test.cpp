#include "zt_anl/dynamics_fixture.h"
#include "zt_anl/solve/oscillator.h"

namespace zt {
namespace {

class HistoryTest : public DynamicsTest {
protected:
    static constexpr double kStep = 0.01;

    const HistoryResult& Shake(const std::vector<T_THLC_ITEM>& items, double damping = 0.05, double duration = 2.0,
                               double step = kStep) {
        Add<CClassThlc>(
            1,
            {.name = "TH", .damping = damping, .step = step, .duration = duration, .items = items, .description = {}});
        Solve();
        return result.histories.at(0);
    }
    /// The displacement of the top along X in a state.
    double TopAt(std::size_t state) const {
        const std::size_t modes = result.modal.modes.size();
        double sum = 0.0;
        for (std::size_t i = 0; i < modes; ++i) {
            sum += result.histories[0].coordinates[state * modes + i] * result.modal.modes[i].shape[Place(top)][kDx];
        }
        return sum;
    }
    /// The mode that swings along X.
    std::size_t ModeAlongX() const {
        return result.modal.modes[0].participation[0] * result.modal.modes[0].participation[0] > 1.0 ? 0 : 1;
    }
    static constexpr T_THLC_ITEM kGround{.thfc = 1};
};

/// A sudden constant acceleration swings between 0 and twice the static displacement.
TEST_F(HistoryTest, UndampedMastSwingsTwiceAsFarUnderASuddenLoad) {
    BuildMast();
    AddFunction({{0.0, 0.1}, {10.0, 0.1}});
    const HistoryResult& history = Shake({kGround}, 0.0);
    ASSERT_EQ(history.steps, 201u);
    const double omega = Omega(ModeAlongX());
    const double still = -0.1 * kGravity / (omega * omega);
    for (const std::size_t state : {0u, 1u, 50u, 200u}) {
        const double time = kStep * static_cast<double>(state);
        EXPECT_NEAR(TopAt(state), still * (1.0 - std::cos(omega * time)), 1.0e-9 * std::abs(still));
    }
    EXPECT_NEAR(history.displacements[Place(top)].min[kDx], 2.0 * still, 0.02 * std::abs(still));
    EXPECT_NEAR(history.displacements[Place(top)].max[kDx], 0.0, 1.0e-3 * std::abs(still));
}

/// Half a sine by many short lines, then free swinging that fades by exp(-z w t).
TEST_F(HistoryTest, FreeSwingingFades) {
    BuildMast();
    AddFunction({{0.0, 0.0}, {0.05, 0.5}, {0.1, 0.0}});
    const HistoryResult& history = Shake({kGround}, 0.03, 4.0, 0.002);
    const std::size_t mode = ModeAlongX();
    const std::size_t modes = result.modal.modes.size();
    const double omega = Omega(mode);
    const auto energy = [&](std::size_t state) {
        const double q = history.coordinates[state * modes + mode];
        // From the equation of motion, without load.
        const double speed = -(history.accelerations[state * modes + mode] + omega * omega * q) / (0.06 * omega);
        return std::hypot(omega * std::sqrt(1.0 - 0.0009) * q, speed + 0.03 * omega * q);
    };
    ExpectClose(energy(1500) / energy(500), std::exp(-0.03 * omega * 2.0), 1.0e-9);
}

TEST_F(HistoryTest, StepsOfTheResultDoNotChangeTheMotion) {
    BuildMast();
    // Points that lie on no step.
    AddFunction({{0.0137, 0.3}, {0.0911, -0.2}, {0.4049, 0.6}, {0.4049, 0.1}, {1.7, -0.1}});
    Shake({kGround});
    const double coarse = TopAt(160);
    ASSERT_TRUE(Records<CClassThlc>().TR_Del(1));
    Shake({kGround}, 0.05, 2.0, 0.0025);
    EXPECT_NEAR(TopAt(640), coarse, 1.0e-12);
    EXPECT_GT(std::abs(coarse), 1.0e-6);
}

TEST_F(HistoryTest, ArrivalShiftsTheMotion) {
    BuildMast();
    AddFunction({{0.0, 0.0}, {0.1, 0.4}, {0.3, 0.0}});
    T_THLC_ITEM late = kGround;
    Shake({late});
    const double before = TopAt(100);
    ASSERT_TRUE(Records<CClassThlc>().TR_Del(1));
    late.arrival = 0.5;
    Shake({late});
    EXPECT_NEAR(TopAt(150), before, 1.0e-12);
    EXPECT_EQ(TopAt(50), 0.0);
}

TEST_F(HistoryTest, GroundMovesAllNodesInTheAbsolute) {
    BuildMast();
    AddFunction({{0.0, 0.0}, {0.5, 0.2}, {1.0, 0.0}});
    T_THLC_ITEM item = kGround;
    item.angle = 90.0;
    item.scale = 0.5;
    const HistoryResult& history = Shake({item});
    ExpectClose(history.ground[50][1], 0.1 * kGravity);
    EXPECT_NEAR(history.ground[50][0], 0.0, 1.0e-12);
    ExpectClose(history.absoluteAccelerations[Place(foot)].max[kDy], 0.1 * kGravity);
    ExpectClose(history.absoluteAccelerations[Place(foot)].maxTime[kDy], 0.5);
    EXPECT_EQ(history.relativeAccelerations[Place(foot)].max[kDy], 0.0);
    EXPECT_EQ(history.ground[150][1], 0.0);
}

/// Without damping the absolute acceleration is what the spring gives.
TEST_F(HistoryTest, ReactionIsTheMassTimesTheAbsoluteAcceleration) {
    BuildMast();
    AddFunction({{0.0, 0.0}, {0.1, 0.4}, {0.3, -0.4}, {0.4, 0.0}});
    const HistoryResult& history = Shake({kGround}, 0.0);
    const NodeEnvelope& top_ = history.absoluteAccelerations[Place(top)];
    ExpectClose(history.reactions[0].max[kDx], kMass * top_.max[kDx]);
    ExpectClose(history.reactions[0].min[kDx], kMass * top_.min[kDx]);
    EXPECT_EQ(history.reactions[0].maxTime[kDx], top_.maxTime[kDx]);
    ASSERT_EQ(history.stations[0].size(), 9u);
    const NodeEnvelope& base = history.stations[0].front();
    const double shear = std::max(std::max(base.max[1], -base.min[1]), std::max(base.max[2], -base.min[2]));
    ExpectClose(shear, std::max(history.reactions[0].max[kDx], -history.reactions[0].min[kDx]));
    const double moment = std::max(std::max(base.max[4], -base.min[4]), std::max(base.max[5], -base.min[5]));
    ExpectClose(moment, shear * kHeight);
    const NodeEnvelope& head = history.stations[0].back();
    EXPECT_NEAR(head.max[4], 0.0, 1.0e-6 * moment);
}

/// A load that grows slowly is followed as a static one; so are the forces of the loads between the nodes.
TEST_F(HistoryTest, SlowLoadGivesTheStaticResult) {
    const std::uint32_t left = Node(0.0, 0.0, 0.0);
    const std::uint32_t middle = Node(3.0, 0.0, 0.0);
    const std::uint32_t right = Node(8.0, 0.0, 0.0);
    Support(left, "111111");
    Support(right, "111111");
    Support(middle, "110101");
    Uniform(Member({left, middle, right}), -6.0);
    Force(middle, kDz, -20.0);
    Add<CClassPmas>(middle, {.mz = 20.0});
    AddFunction({{0.0, 0.0}, {20.0, 1.0}, {40.0, 1.0}});
    T_THLC_ITEM item{.thfc = 1, .stld = 1};
    const HistoryResult& history = Shake({item}, 0.5, 30.0, 0.05);
    const CaseResult& still = result.cases[0];
    ExpectClose(history.displacements[1].min[kDz], still.displacements[1][kDz], 1.0e-3);
    for (std::size_t support : {0u, 1u}) {
        ExpectClose(history.reactions[support].max[kDz], still.reactions[support][kDz], 1.0e-3);
    }
    for (std::size_t span = 0; span < 2; ++span) {
        for (std::size_t i = 0; i < 9; ++i) {
            const double wanted = still.elements[span].stations[i].forces[4];
            const NodeEnvelope& envelope = history.stations[span][i];
            EXPECT_NEAR(wanted > 0.0 ? envelope.max[4] : envelope.min[4], wanted, 1.0) << span << ' ' << i;
        }
    }
    EXPECT_EQ(history.ground[100][0], 0.0);
}

TEST_F(HistoryTest, VelocitiesAreThoseOfTheMotion) {
    BuildMast();
    AddFunction({{0.0, 0.1}, {10.0, 0.1}});
    const HistoryResult& history = Shake({kGround}, 0.0, 2.0, 0.001);
    const double omega = Omega(ModeAlongX());
    ExpectClose(history.velocities[Place(top)].max[kDx], 0.1 * kGravity / omega, 1.0e-3);
    ExpectClose(history.relativeAccelerations[Place(top)].max[kDx], 0.1 * kGravity, 1.0e-3);
}

TEST_F(HistoryTest, CasesThatMakeNoSenseAreLeftOut) {
    BuildMast();
    AddFunction({{0.0, 0.1}, {1.0, 0.0}});
    Add<CClassThfc>(2, {.name = "Empty", .description = {}});
    const T_THLC_D good{.name = "TH", .items = {kGround}, .description = {}};
    const auto add = [&](std::uint32_t key, auto change) {
        T_THLC_D record = good;
        change(record);
        Add<CClassThlc>(key, record);
    };
    add(1, [](T_THLC_D& record) { record.items.clear(); });
    add(2, [](T_THLC_D& record) { record.items[0].thfc = 2; });
    add(3, [](T_THLC_D& record) { record.items[0].thfc = 0; });
    add(4, [](T_THLC_D& record) { record.step = 0.0; });
    add(5, [](T_THLC_D& record) { record.duration = -1.0; });
    add(6, [](T_THLC_D& record) { record.step = 1.0e-12; });
    add(7, [](T_THLC_D& record) { record.damping = 1.0; });
    add(8, [](T_THLC_D& record) { record.damping = -0.1; });
    add(9, [](T_THLC_D&) {});
    Solve();
    ASSERT_EQ(result.histories.size(), 1u);
    EXPECT_EQ(result.histories[0].thlc, 9u);
    EXPECT_EQ(log.Warnings(), 8u);
}

TEST_F(HistoryTest, AnalysisCanBeStoppedInEachOfItsSteps) {
    BuildStoreys(2);
    AddSpectrum({{0.0, 0.4}});
    Add<CClassSplc>(1, {.name = "R", .spfc = 1, .description = {}});
    AddFunction({{0.0, 0.1}, {1.0, 0.0}});
    Add<CClassThlc>(1, {.name = "TH", .items = {kGround}, .description = {}});
    for (const AnalysisStep last : {AnalysisStep::Modal, AnalysisStep::Spectrum, AnalysisStep::History}) {
        std::size_t after = 0;
        options.progress = [&](AnalysisStep step, std::size_t done, std::size_t of) {
            EXPECT_LE(done, of);
            if (after > 0) ++after;
            if (step != last) return true;
            after = std::max<std::size_t>(after, 1);
            return false;
        };
        EXPECT_FALSE(Run());
        EXPECT_EQ(after, 1u);
        EXPECT_TRUE(result.histories.empty());
    }
    options.progress = [](AnalysisStep, std::size_t, std::size_t) { return true; };
    EXPECT_TRUE(Run());
}

TEST_F(HistoryTest, IterationForModesCanBeStopped) {
    BuildStoreys(60);
    std::size_t asked = 0;
    options.progress = [&](AnalysisStep step, std::size_t, std::size_t) {
        return step != AnalysisStep::Modal || ++asked < 3;
    };
    EXPECT_FALSE(Run());
    EXPECT_EQ(asked, 3u);
}

/// One step of the closed form against many small ones.
TEST(Oscillator, LongStepIsManyShortOnes) {
    constexpr double kOmega = 40.0;
    constexpr double kDamping = 0.07;
    constexpr double kWhole = 0.02;
    const OscillatorStep whole = OscillatorStepOf(kOmega, kDamping, kWhole);
    constexpr int kParts = 100;
    const OscillatorStep part = OscillatorStepOf(kOmega, kDamping, kWhole / kParts);
    const auto run = [&](const OscillatorStep& step, std::array<double, 2> at, double first, double last) {
        const auto end = [&](const OscillatorStep::Factors& by) {
            return by.coordinate * at[0] + by.speed * at[1] + by.firstLoad * first + by.lastLoad * last;
        };
        return std::array{end(step.ofCoordinate), end(step.ofSpeed)};
    };
    std::array<double, 2> many{0.003, -0.2};
    for (int i = 0; i < kParts; ++i) many = run(part, many, 5.0 - 9.0 * i / kParts, 5.0 - 9.0 * (i + 1) / kParts);
    const std::array<double, 2> once = run(whole, {0.003, -0.2}, 5.0, -4.0);
    EXPECT_NEAR(once[0], many[0], 1.0e-14);
    EXPECT_NEAR(once[1], many[1], 1.0e-12);
}

TEST(Oscillator, ShortStepsLoseNoDigits) {
    // Without stiffness to speak of: h2/3 and h2/6, h/2 and h/2.
    const OscillatorStep step = OscillatorStepOf(1.0e-6, 0.05, 0.01);
    EXPECT_NEAR(step.ofCoordinate.firstLoad, 1.0e-4 / 3.0, 1.0e-12);
    EXPECT_NEAR(step.ofCoordinate.lastLoad, 1.0e-4 / 6.0, 1.0e-12);
    EXPECT_NEAR(step.ofSpeed.firstLoad, 0.005, 1.0e-10);
    EXPECT_NEAR(step.ofSpeed.lastLoad, 0.005, 1.0e-10);
    EXPECT_NEAR(step.ofCoordinate.speed, 0.01, 1.0e-9);
}

}  // namespace
}  // namespace zt
