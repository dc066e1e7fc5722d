#include <numbers>

#include "zt_anl/frame_fixture.h"

namespace zt {
namespace {

/// One element of 4 m along global X with a consistent mass. Its frequencies are those of two equations by hand, as in
/// Cook, Malkus, Plesha and Witt, Concepts and Applications of Finite Element Analysis, 4th edition, chapter 11.
class ConsistentMass : public FrameTest {
protected:
    static constexpr double kL = 4.0;

    ConsistentMass() {
        options.modal = true;
        options.consistentMass = true;
        first = Node(0.0, 0.0, 0.0);
        last = Node(kL, 0.0, 0.0);
        beam = Member({first, last}, 2);
    }
    /// Expects a mode of a bending frequency that is a factor times sqrt(E I / (rho A L4)), in rad/s.
    void ExpectBending(std::size_t mode, double factor, double tolerance) const {
        const double unit = std::sqrt(kE * kIyy / (kDensity * kArea * kL * kL * kL * kL));
        ExpectClose(2.0 * std::numbers::pi * result.modal.modes[mode].frequency, factor * unit, tolerance);
    }
    std::uint32_t first = 0;
    std::uint32_t last = 0;
    std::uint32_t beam = 0;
};

TEST_F(ConsistentMass, CantileverBendsInTwoModes) {
    Support(first, "111111");
    Support(last, "110101");
    Solve();
    ASSERT_EQ(result.modal.modes.size(), 2u);
    ExpectBending(0, 3.533, 1.0e-4);
    ExpectBending(1, 34.807, 1.0e-4);
    // 33/140 of its mass sway when it bends as under a load at its tip; a free tip takes a third of it lumped.
    ExpectClose(result.modal.totalMass[2], 156.0 / 420.0 * kDensity * kArea * kL);
}

TEST_F(ConsistentMass, SimpleBeamBendsInTwoModes) {
    Support(first, "111101");
    Support(last, "111101");
    Solve();
    ASSERT_EQ(result.modal.modes.size(), 2u);
    ExpectBending(0, std::sqrt(120.0), 1.0e-9);
    ExpectBending(1, std::sqrt(2520.0), 1.0e-9);
}

TEST_F(ConsistentMass, RodSwingsAlongItself) {
    Support(first, "111111");
    Support(last, "011111");
    Solve();
    ASSERT_EQ(result.modal.modes.size(), 1u);
    ExpectClose(2.0 * std::numbers::pi * result.modal.modes[0].frequency, std::sqrt(3.0 * kE / kDensity) / kL);
}

TEST_F(ConsistentMass, ShaftTwists) {
    Support(first, "111111");
    Support(last, "111011");
    Solve();
    ASSERT_EQ(result.modal.modes.size(), 1u);
    ExpectClose(2.0 * std::numbers::pi * result.modal.modes[0].frequency,
                std::sqrt(3.0 * kG * kIxx / (kDensity * (kIyy + kIzz))) / kL);
}

TEST_F(ConsistentMass, HingedMemberSwingsWithAThirdOfItsMassAtEachEnd) {
    // Free of moments it stays straight: the mass of a rod, and both ends move alike on springs.
    constexpr double kSpring = 5.0e5;
    Add<CClassFrls>(beam, {.flagsI = "000011", .flagsJ = "000011"});
    for (const std::uint32_t node : {first, last}) {
        Add<CClassSpts>(node, {.flags = "110111", .value = {0.0, 0.0, kSpring / 1000.0}});
    }
    Solve();
    ASSERT_EQ(result.modal.modes.size(), 2u);
    const double mass = kDensity * kArea * kL;
    ExpectClose(2.0 * std::numbers::pi * result.modal.modes[0].frequency, std::sqrt(2.0 * kSpring / mass));
    ExpectClose(2.0 * std::numbers::pi * result.modal.modes[1].frequency, std::sqrt(6.0 * kSpring / mass));
    ExpectClose(result.modal.totalMass[2], mass);
}

TEST_F(ConsistentMass, RigidLengthsKeepTheirMassAtTheNodes) {
    Add<CClassRgde>(beam, {.lengthI = 0.5, .lengthJ = 0.3});
    Support(first, "111111");
    Support(last, "011111");
    Solve();
    const double mass = kDensity * kArea;
    ExpectClose(result.modal.totalMass[0], mass * (0.3 + (kL - 0.8) / 3.0));
}

TEST_F(ConsistentMass, WithoutMassesOfMembersThereIsNone) {
    Support(first, "111111");
    options.selfWeightMass = false;
    Solve();
    EXPECT_TRUE(result.modal.modes.empty());
}

}  // namespace
}  // namespace zt
