#include "zt_anl/dynamics_fixture.h"

namespace zt {
namespace {

using MassTest = DynamicsTest;

TEST_F(MassTest, OptionsAreThoseOfTheModel) {
    const AnalysisOptions none = OptionsOf(Db());
    EXPECT_EQ(none.modes, 12u);
    EXPECT_TRUE(none.shearDeformation);
    EXPECT_TRUE(none.selfWeightMass);
    Add<CClassActl>(T_ACTL_D::kKey, {.modes = 7, .shearDeformation = 0, .selfWeightMass = 0, .massLoads = {{2, 0.25}}});
    const AnalysisOptions own = OptionsOf(Db());
    EXPECT_EQ(own.modes, 7u);
    EXPECT_FALSE(own.shearDeformation);
    EXPECT_FALSE(own.selfWeightMass);
    EXPECT_EQ(own.massLoads, (std::vector<T_STLD_FACTOR>{{2, 0.25}}));
}

TEST_F(MassTest, DownwardLoadsAreMasses) {
    const std::uint32_t left = Node(0.0, 0.0, 0.0);
    const std::uint32_t right = Node(6.0, 0.0, 0.0);
    const std::uint32_t lifted = Node(12.0, 0.0, 0.0);
    Support(left, "111101");
    const std::uint32_t beam = Member({left, right});
    Member({right, lifted});
    Uniform(beam, -4.0);
    Force(right, kDz, -10.0, 2);
    Force(right, kDx, 70.0, 2);
    Force(right, kRy, 30.0, 2);
    Force(lifted, kDz, 50.0, 2);
    Support(lifted, "011101");
    options.massLoads = {{1, 0.5}, {2, 2.0}, {77, 1.0}};
    Solve();
    // Half of the load on the beam stands at either end; the left end is held.
    const double mass = (0.5 * 12.0e3 + 2.0 * 10.0e3) / kGravity;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        if (axis == 1) continue;
        ExpectClose(result.modal.totalMass[axis], mass);
    }
}

/// Two masses of 1 and 3 t, 4 m apart, on a floor that turns about their centre.
TEST_F(MassTest, FloorTurnsAboutItsCentreOfMass) {
    std::array<std::uint32_t, 2> feet{Node(100.0, 50.0, 0.0), Node(104.0, 50.0, 0.0)};
    std::array<std::uint32_t, 2> heads{Node(100.0, 50.0, 3.0), Node(104.0, 50.0, 3.0)};
    for (std::size_t i = 0; i < 2; ++i) {
        Member({feet[i], heads[i]}, 2, MembType::Column);
        Support(feet[i], "111111");
        const double mass = i == 0 ? 1000.0 : 3000.0;
        Add<CClassPmas>(heads[i], {.mx = mass, .my = mass});
    }
    T_RIGD_D floor;
    floor.master = heads[0];
    floor.freedoms = 110001;
    floor.slaves = {heads[1]};
    Add<CClassRigd>(1, floor);
    Solve();
    ExpectClose(result.modal.totalMass[0], 4000.0);
    // 1 t at 3 m and 3 t at 1 m from the centre.
    ExpectClose(result.modal.totalMass[5], 12000.0, 1.0e-8);
    NodeVector sum{};
    for (const ModeResult& mode : result.modal.modes) {
        for (std::size_t i = 0; i < kFreedoms; ++i) {
            ExpectClose(mode.effectiveMass[i], mode.participation[i] * mode.participation[i]);
            sum[i] += mode.effectiveMass[i];
        }
    }
    for (const std::size_t i : {0u, 1u, 5u}) ExpectClose(sum[i], result.modal.totalMass[i], 1.0e-6);
}

}  // namespace
}  // namespace zt
