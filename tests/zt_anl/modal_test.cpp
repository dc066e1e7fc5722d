#include <numbers>

#include "zt_anl/frame_fixture.h"

namespace zt {
namespace {

class ModalTest : public FrameTest {
protected:
    ModalTest() {
        options.modal = true;
        UseKilograms();
    }
    /// A beam of 10 m that is simply supported in its vertical plane, of equal spans.
    void BuildSimpleBeam(std::size_t spans) {
        std::vector<std::uint32_t> nodes;
        for (std::size_t i = 0; i <= spans; ++i) {
            nodes.push_back(Node(10.0 * static_cast<double>(i) / static_cast<double>(spans), 0.0, 0.0));
            Support(nodes.back(), i == 0 ? "111101" : i == spans ? "011101" : "010101");
        }
        Member(nodes, 2);
    }
    /// Frequency of the n-th bending mode of the simple beam, in Hz.
    static double BendingFrequency(double n) {
        const double wave = n * std::numbers::pi / 10.0;
        return wave * wave * std::sqrt(kE * kIyy / (kDensity * kArea)) / (2.0 * std::numbers::pi);
    }
};

TEST_F(ModalTest, MassOnACantileverSwingsLikeASpring) {
    const std::uint32_t foot = Node(0.0, 0.0, 0.0);
    const std::uint32_t top = Node(0.0, 0.0, 4.0);
    Member({foot, top}, 2, MembType::Column);
    Support(foot, "111111");
    Add<CClassPmas>(top, {.mx = 500.0, .my = 500.0});
    options.selfWeightMass = false;
    Solve();
    ASSERT_EQ(result.modal.modes.size(), 2u);
    const double strong = std::sqrt(3.0 * kE * kIyy / (64.0 * 500.0)) / (2.0 * std::numbers::pi);
    const double weak = std::sqrt(3.0 * kE * kIzz / (64.0 * 500.0)) / (2.0 * std::numbers::pi);
    ExpectClose(result.modal.modes[0].frequency, weak);
    ExpectClose(result.modal.modes[1].period, 1.0 / strong);
    ExpectClose(result.modal.modes[0].effectiveMass[1], 500.0);
    ExpectClose(result.modal.modes[1].effectiveMass[0], 500.0);
    ExpectClose(result.modal.modes[0].shape[1][1], 1.0 / std::sqrt(500.0));
    ExpectClose(result.modal.totalMass[0], 500.0);
    EXPECT_EQ(result.modal.totalMass[2], 0.0);
}

TEST_F(ModalTest, RotationalMassTwists) {
    const std::uint32_t foot = Node(0.0, 0.0, 0.0);
    const std::uint32_t top = Node(0.0, 0.0, 4.0);
    Member({foot, top}, 2, MembType::Column);
    Support(foot, "111111");
    Add<CClassPmas>(top, {.rmz = 30.0});
    options.selfWeightMass = false;
    Solve();
    ASSERT_EQ(result.modal.modes.size(), 1u);
    ExpectClose(result.modal.modes[0].frequency, std::sqrt(kG * kIxx / 4.0 / 30.0) / (2.0 * std::numbers::pi));
}

TEST_F(ModalTest, SimpleBeamHasTheFrequenciesOfItsSeries) {
    BuildSimpleBeam(40);
    Solve();
    ASSERT_GE(result.modal.modes.size(), 3u);
    for (int n = 1; n <= 3; ++n) {
        ExpectClose(result.modal.modes[static_cast<std::size_t>(n - 1)].frequency, BendingFrequency(n), 1.0e-4);
    }
    const double total = kDensity * kArea * 10.0;
    ExpectClose(result.modal.modes[0].effectiveMass[2], 8.0 / (std::numbers::pi * std::numbers::pi) * total, 2.0e-3);
}

TEST_F(ModalTest, LargeModelsGiveTheSameModesByIteration) {
    BuildSimpleBeam(200);
    options.modes = 5;
    Solve();
    ASSERT_EQ(result.modal.modes.size(), 5u);
    for (int n = 1; n <= 3; ++n) {
        ExpectClose(result.modal.modes[static_cast<std::size_t>(n - 1)].frequency, BendingFrequency(n), 1.0e-5);
    }
}

TEST_F(ModalTest, AllModesTogetherMoveTheWholeMass) {
    BuildSimpleBeam(8);
    options.modes = 100;
    Solve();
    Vector3 sum{};
    for (const ModeResult& mode : result.modal.modes) {
        for (std::size_t axis = 0; axis < 3; ++axis) sum[axis] += mode.effectiveMass[axis];
    }
    ExpectClose(sum[0], result.modal.totalMass[0]);
    ExpectClose(sum[2], result.modal.totalMass[2]);
    for (std::size_t i = 1; i < result.modal.modes.size(); ++i) {
        EXPECT_GE(result.modal.modes[i - 1].period, result.modal.modes[i].period);
    }
}

TEST_F(ModalTest, ModelWithoutMassHasNoModes) {
    BuildSimpleBeam(4);
    options.selfWeightMass = false;
    Solve();
    EXPECT_TRUE(result.modal.modes.empty());
}

}  // namespace
}  // namespace zt
