#include "zt_anl/real_frame_fixture.h"

namespace zt {
namespace {

TEST_F(RealFrames, TowerWithShearDeformationSwaysAsFarAsOthersFound) {
    Load("setback_tower_3d");
    options.shearDeformation = true;
    ASSERT_TRUE(Records<CClassSwgt>().TR_Add(1, {.stld = 1, .z = -1.0}));
    options.modal = false;
    Solve();
    constexpr double kInch = 0.0254;
    // Without effects of the second order; told with four digits.
    EXPECT_NEAR(CaseOf("1").displacements[placeOfName.at("15")][1] / kInch, 8.948, 5.0e-4);
}

}  // namespace
}  // namespace zt
