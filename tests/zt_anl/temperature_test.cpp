#include "zt_anl/frame_fixture.h"

namespace zt {
namespace {

/// A member of 4 m along global X of a material that lengthens by heat.
class WarmBar : public FrameTest {
protected:
    static constexpr double kThermal = 1.2e-5;
    static constexpr double kL = 4.0;

    WarmBar() {
        T_MATL_D steel;
        Records<CClassMatl>().Get(1, steel);
        steel.analysis[0].thermal = kThermal;
        EXPECT_TRUE(Records<CClassMatl>().TR_Modify(1, 1, steel));
        first = Node(0.0, 0.0, 0.0);
        last = Node(kL, 0.0, 0.0);
        Support(first, "111111");
    }
    std::uint32_t first = 0;
    std::uint32_t last = 0;
};

TEST_F(WarmBar, HeldBarIsPressed) {
    const std::uint32_t bar = Member({first, last});
    Support(last, "111111");
    Add<CClassStmp>(1, {.stld = 1, .temperature = 30.0});
    Solve();
    const double force = kE * kArea * kThermal * 30.0;
    for (const StationForces& station : Forces(bar).stations) ExpectClose(station.forces[0], -force);
    ExpectClose(Reaction(first, kDx), force);
    ExpectClose(Reaction(last, kDx), -force);
    EXPECT_EQ(Reaction(first, kDx, 1), 0.0);
}

TEST_F(WarmBar, FreeBarLengthensWithoutForce) {
    const std::uint32_t bar = Member({first, last});
    Add<CClassStmp>(1, {.stld = 1, .temperature = 30.0});
    Solve();
    ExpectClose(Displacement(last, kDx), kThermal * 30.0 * kL);
    EXPECT_NEAR(Forces(bar).stations[0].forces[0], 0.0, 1.0e-6);
}

TEST_F(WarmBar, MembersAddTheMeanOfTheirNodesToTheTemperatureOfAll) {
    Member({first, last});
    Add<CClassStmp>(1, {.stld = 1, .temperature = 10.0});
    Add<CClassPtmp>(1, {.node = last, .stld = 1, .temperature = 50.0});
    Add<CClassPtmp>(2, {.node = first, .stld = 1, .temperature = -20.0});
    Solve();
    ExpectClose(Displacement(last, kDx), kThermal * 25.0 * kL);
}

TEST_F(WarmBar, ReleasedEndTakesNoForce) {
    const std::uint32_t bar = Member({first, last});
    Support(last, "111111");
    Add<CClassFrls>(bar, {.flagsJ = "100000"});
    Add<CClassStmp>(1, {.stld = 1, .temperature = 30.0});
    Solve();
    EXPECT_NEAR(Reaction(first, kDx), 0.0, 1.0e-6);
}

TEST_F(WarmBar, BeamBetweenColumnsPushesThemApart) {
    constexpr double kHeight = 3.0;
    const std::uint32_t top = Node(0.0, 0.0, kHeight);
    const std::uint32_t otherTop = Node(kL, 0.0, kHeight);
    Support(last, "111111");
    Member({first, top}, 2, MembType::Column);
    Member({last, otherTop}, 2, MembType::Column);
    const std::uint32_t beam = Bar(top, otherTop);
    Add<CClassPtmp>(1, {.node = top, .stld = 1, .temperature = 40.0});
    Add<CClassPtmp>(2, {.node = otherTop, .stld = 1, .temperature = 40.0});
    Solve();
    // Springs in a row: the beam and two cantilevers share the strain of the beam.
    const double column = 3.0 * kE * kIyy / (kHeight * kHeight * kHeight);
    const double force = kThermal * 40.0 * kL / (kL / (kE * kArea) + 2.0 / column);
    ExpectClose(Forces(beam).stations[0].forces[0], -force);
    ExpectClose(Displacement(otherTop, kDx), force / column);
    ExpectClose(Displacement(top, kDz), kThermal * 20.0 * kHeight);
}

TEST_F(WarmBar, HeatSlackensAMemberOfTensionAndColdTightensIt) {
    const std::uint32_t bar = Bar(first, last, true);
    Support(last, "111111");
    Add<CClassStmp>(1, {.stld = 1, .temperature = 30.0});
    Add<CClassStmp>(2, {.stld = 2, .temperature = -30.0});
    Solve();
    EXPECT_EQ(Forces(bar).stations[0].forces[0], 0.0);
    EXPECT_EQ(Reaction(last, kDx), 0.0);
    ExpectClose(Reaction(last, kDx, 1), kE * kArea * kThermal * 30.0);
}

}  // namespace
}  // namespace zt
