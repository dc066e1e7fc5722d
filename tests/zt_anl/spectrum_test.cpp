#include "zt_anl/dynamics_fixture.h"
#include "zt_anl/model/dynamic_cases.h"
#include "zt_anl/solve/mode_correlation.h"

namespace zt {
namespace {

class SpectrumTest : public DynamicsTest {
protected:
    /// Solves the model with one spectrum case.
    const SpectrumResult& Shake(const T_SPLC_D& record) {
        Add<CClassSplc>(1, record);
        Solve();
        return result.spectra.at(0);
    }
    static T_SPLC_D Case(int combination = ModeCombination::Cqc) {
        return {.name = "RX", .spfc = 1, .combination = combination, .description = {}};
    }
};

TEST_F(SpectrumTest, MastBendsByItsMassTimesTheAcceleration) {
    BuildMast();
    AddSpectrum({{0.0, 0.4}});
    const SpectrumResult& spectrum = Shake(Case());
    const double force = kMass * 0.4 * kGravity;
    const double stiffness = 3.0 * kE * kIyy / std::pow(kHeight, 3.0);
    const double other = 3.0 * kE * kIzz / std::pow(kHeight, 3.0);
    const double moved = spectrum.displacements[Place(top)][kDx];
    EXPECT_TRUE(std::abs(moved - force / stiffness) < 1.0e-9 || std::abs(moved - force / other) < 1.0e-9) << moved;
    ExpectClose(spectrum.reactions[0][kDx], force);
    ExpectClose(spectrum.reactions[0][kRy], force * kHeight);
    EXPECT_NEAR(spectrum.reactions[0][kDy], 0.0, 1.0e-6 * force);
    EXPECT_EQ(spectrum.name, "RX");
    EXPECT_EQ(spectrum.splc, 1u);
}

TEST_F(SpectrumTest, StationsRunFromTheFootToTheTop) {
    BuildMast();
    AddSpectrum({{0.0, 0.4}});
    const ElementForces& forces = Shake(Case()).elements[0];
    const double moment = kMass * 0.4 * kGravity * kHeight;
    ASSERT_EQ(forces.stations.size(), 9u);
    EXPECT_EQ(forces.stations[8].position, kHeight);
    for (std::size_t i = 0; i < 9; ++i) {
        const NodeVector& six = forces.stations[i].forces;
        EXPECT_NEAR(std::max(six[4], six[5]), moment * (1.0 - static_cast<double>(i) / 8.0), 1.0e-9 * moment);
    }
    ExpectClose(std::max(forces.ends[4], forces.ends[5]), moment);
}

TEST_F(SpectrumTest, ValuesBetweenPointsAreLinearAndConstantBeyondTheEnds) {
    const T_SPFC_D spectrum{.name = {}, .points = {{0.1, 1.0}, {0.5, 3.0}, {1.0, 0.5}}, .description = {}};
    EXPECT_DOUBLE_EQ(SpectrumAt(spectrum, 0.0), 1.0);
    EXPECT_DOUBLE_EQ(SpectrumAt(spectrum, 0.1), 1.0);
    EXPECT_DOUBLE_EQ(SpectrumAt(spectrum, 0.3), 2.0);
    EXPECT_DOUBLE_EQ(SpectrumAt(spectrum, 0.9), 1.0);
    EXPECT_DOUBLE_EQ(SpectrumAt(spectrum, 7.0), 0.5);
}

TEST_F(SpectrumTest, AngleTurnsTheGround) {
    BuildMast();
    AddSpectrum({{0.0, 0.4}});
    T_SPLC_D record = Case();
    record.angle = 30.0;
    record.scale = 2.0;
    const SpectrumResult& spectrum = Shake(record);
    const double force = 2.0 * kMass * 0.4 * kGravity;
    ExpectClose(spectrum.reactions[0][kDx], force * std::cos(std::numbers::pi / 6.0));
    ExpectClose(spectrum.reactions[0][kDy], force * std::sin(std::numbers::pi / 6.0));
}

TEST_F(SpectrumTest, GroundThatHeavesPressesTheMast) {
    BuildMast();
    Records<CClassPmas>().TR_Modify(top, top, {.mz = kMass});
    AddSpectrum({{0.0, 0.4}});
    T_SPLC_D record = Case();
    record.direction = GroundDirection::Vertical;
    const SpectrumResult& spectrum = Shake(record);
    ExpectClose(spectrum.reactions[0][kDz], kMass * 0.4 * kGravity);
    ExpectClose(spectrum.elements[0].stations[4].forces[0], kMass * 0.4 * kGravity);
}

/// The squares of what each mode gives add up.
TEST_F(SpectrumTest, RootOfSquaresGoesOverTheModes) {
    BuildStoreys(3);
    AddSpectrum({{0.0, 0.5}, {0.5, 0.2}});
    const SpectrumResult& spectrum = Shake(Case(ModeCombination::Srss));
    double moved = 0.0;
    double shear = 0.0;
    double one = 0.0;
    for (std::size_t i = 0; i < result.modal.modes.size(); ++i) {
        const ModeResult& mode = result.modal.modes[i];
        const double acceleration = (0.5 - 0.6 * std::min(mode.period, 0.5)) * kGravity;
        moved +=
            std::pow(mode.participation[0] * mode.shape[Place(top)][kDx] * acceleration / std::pow(Omega(i), 2), 2.0);
        shear += std::pow(mode.effectiveMass[0] * acceleration, 2.0);
    }
    ExpectClose(spectrum.displacements[Place(top)][kDx], std::sqrt(moved), 1.0e-8);
    for (const NodeVector& reaction : spectrum.reactions) one = std::max(one, reaction[kDx]);
    EXPECT_GT(one, 0.4 * std::sqrt(shear));
    EXPECT_LT(one, 0.6 * std::sqrt(shear));
}

/// Der Kiureghian (1981): 8 z2 (1 + r) r^1.5 / ((1 - r2)2 + 4 z2 r (1 + r)2).
TEST_F(SpectrumTest, CorrelationFadesWithTheDistanceOfFrequencies) {
    EXPECT_DOUBLE_EQ(ModeCorrelation(2.0, 2.0, 0.05), 1.0);
    EXPECT_DOUBLE_EQ(ModeCorrelation(2.0, 2.0, 0.0), 1.0);
    EXPECT_DOUBLE_EQ(ModeCorrelation(2.0, 3.0, 0.0), 0.0);
    // Chopra, Dynamics of Structures, figure 13.7.1, at a ratio of 0.8.
    EXPECT_NEAR(ModeCorrelation(1.0, 0.8, 0.05), 0.1653, 5.0e-4);
    EXPECT_NEAR(ModeCorrelation(1.0, 0.8, 0.05), ModeCorrelation(0.8, 1.0, 0.05), 1.0e-12);
}

/// Two modes of one frequency along a slanted ground: alone, their squares would lose the direction.
TEST_F(SpectrumTest, CompleteCombinationAddsModesOfOneFrequency) {
    PutSection(3, {kArea, 0.0, 0.0, kIxx, kIyy, kIyy});
    foot = Node(0.0, 0.0, 0.0);
    top = Node(0.0, 0.0, kHeight);
    Member({foot, top}, 3, MembType::Column, 20.0);
    Support(foot, "111111");
    Add<CClassPmas>(top, {.mx = kMass, .my = kMass});
    AddSpectrum({{0.0, 0.4}});
    const SpectrumResult& spectrum = Shake(Case());
    ExpectClose(spectrum.reactions[0][kDx], kMass * 0.4 * kGravity, 1.0e-6);
    EXPECT_NEAR(spectrum.reactions[0][kDy], 0.0, 1.0e-3);
}

TEST_F(SpectrumTest, NothingIsNegative) {
    BuildStoreys(4);
    AddSpectrum({{0.0, 0.5}});
    const SpectrumResult& spectrum = Shake(Case());
    for (const ElementForces& element : spectrum.elements) {
        for (const double force : element.ends) EXPECT_GE(force, 0.0);
        for (const StationForces& station : element.stations) {
            for (const double force : station.forces) EXPECT_GE(force, 0.0);
        }
    }
}

/// The shear below the upper of two masses is that mass times its acceleration, in each mode.
TEST_F(SpectrumTest, ForcesAreCombinedFromThoseOfTheModes) {
    foot = Node(0.0, 0.0, 0.0);
    const std::uint32_t middle = Node(0.0, 0.0, 3.0);
    top = Node(0.0, 0.0, 6.0);
    mast = Member({foot, middle, top}, 2, MembType::Column);
    Support(foot, "111111");
    for (const std::uint32_t node : {middle, top}) Add<CClassPmas>(node, {.mx = kMass});
    AddSpectrum({{0.0, 3.0}, {0.05, 0.2}});
    const SpectrumResult& spectrum = Shake(Case(ModeCombination::Srss));
    ASSERT_EQ(result.modal.modes.size(), 2u);
    double squares = 0.0;
    for (const ModeResult& mode : result.modal.modes) {
        const double acceleration = (3.0 - 56.0 * std::min(mode.period, 0.05)) * kGravity;
        squares += std::pow(kMass * mode.shape[Place(top)][kDx] * mode.participation[0] * acceleration, 2.0);
    }
    const NodeVector& upper = spectrum.elements[1].stations[4].forces;
    ExpectClose(std::max(upper[1], upper[2]), std::sqrt(squares));
}

TEST_F(SpectrumTest, CaseWithAnEmptySpectrumIsLeftOut) {
    BuildMast();
    AddSpectrum({});
    Add<CClassSplc>(1, Case());
    Solve();
    EXPECT_TRUE(result.spectra.empty());
    EXPECT_TRUE(log.Has("IDS_ANL_NO_FUNCTION"));
}

TEST_F(SpectrumTest, CaseWithoutASpectrumIsLeftOut) {
    BuildMast();
    Add<CClassSplc>(1, {.name = "R", .description = {}});
    Solve();
    EXPECT_TRUE(result.spectra.empty());
    EXPECT_TRUE(log.Has("IDS_ANL_NO_FUNCTION"));
}

TEST_F(SpectrumTest, CaseOfAModelWithoutMassesIsLeftOut) {
    BuildMast();
    ASSERT_TRUE(Records<CClassPmas>().TR_Del(top));
    AddSpectrum({{0.0, 0.4}});
    Add<CClassSplc>(1, Case());
    Solve();
    EXPECT_TRUE(result.spectra.empty());
    EXPECT_TRUE(log.Has("IDS_ANL_CASE_WITHOUT_MODES"));
}

}  // namespace
}  // namespace zt
