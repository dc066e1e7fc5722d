#include "zt_tb/modelview/camera.h"

#include <gtest/gtest.h>

namespace zt {
namespace {

class CameraTest : public ::testing::Test {
protected:
    CameraTest() {
        camera.SetSize(400.0, 300.0);
        box.Add({0.0, 0.0, 0.0});
        box.Add({20.0, 10.0, 6.0});
    }
    void Show(StandardView view) {
        camera.SetView(view);
        camera.Fit(box, 10.0);
    }
    static void ExpectNear(Point2 wanted, Point2 found) {
        EXPECT_NEAR(wanted.x, found.x, 1e-6);
        EXPECT_NEAR(wanted.y, found.y, 1e-6);
    }

    Camera camera;
    Box3 box;
};

TEST_F(CameraTest, ShowsAPlanWithXToTheRightAndYUpwards) {
    Show(StandardView::Plan);
    ExpectNear({1.0, 0.0}, camera.Direction({1.0, 0.0, 0.0}));
    ExpectNear({0.0, -1.0}, camera.Direction({0.0, 1.0, 0.0}));
    EXPECT_LT(camera.Project({0.0, 0.0, 6.0}).depth, camera.Project({0.0, 0.0, 0.0}).depth) << "the top is nearer";
}

TEST_F(CameraTest, ShowsElevationsWithZUpwards) {
    Show(StandardView::FrontElevation);
    ExpectNear({1.0, 0.0}, camera.Direction({1.0, 0.0, 0.0}));
    ExpectNear({0.0, -1.0}, camera.Direction({0.0, 0.0, 1.0}));
    EXPECT_LT(camera.Project({0.0, 0.0, 0.0}).depth, camera.Project({0.0, 10.0, 0.0}).depth);
    Show(StandardView::SideElevation);
    ExpectNear({1.0, 0.0}, camera.Direction({0.0, 1.0, 0.0}));
    ExpectNear({0.0, -1.0}, camera.Direction({0.0, 0.0, 1.0}));
}

TEST_F(CameraTest, ShowsTheAxesEquallyLongInTheIsometricView) {
    Show(StandardView::Isometric);
    const auto length = [&](const Vec3& axis) {
        const Point2 way = camera.Direction(axis);
        return way.x * way.x + way.y * way.y;
    };
    EXPECT_NEAR(length({1.0, 0.0, 0.0}), length({0.0, 1.0, 0.0}), 1e-9);
    EXPECT_NEAR(length({1.0, 0.0, 0.0}), length({0.0, 0.0, 1.0}), 1e-9);
}

TEST_F(CameraTest, FitsABoxIntoThePictureInEveryView) {
    for (const StandardView view :
         {StandardView::Plan, StandardView::FrontElevation, StandardView::SideElevation, StandardView::Isometric}) {
        Show(view);
        double least = 1e9;
        for (int at = 0; at < 8; ++at) {
            const ScreenPoint corner = camera.Project(box.Corner(at));
            least = std::min({least, corner.x, 400.0 - corner.x, corner.y, 300.0 - corner.y});
        }
        EXPECT_NEAR(10.0, least, 1e-6) << static_cast<int>(view);
    }
}

TEST_F(CameraTest, FitsASingleNodeAndLeavesAnEmptyBoxAlone) {
    Box3 node;
    node.Add({5.0, 5.0, 5.0});
    camera.Fit(node, 10.0);
    ExpectNear({200.0, 150.0}, camera.Project({5.0, 5.0, 5.0}).Flat());
    EXPECT_LT(camera.Scale(), 1000.0);
    const Camera before = camera;
    camera.Fit(Box3{}, 10.0);
    EXPECT_EQ(before, camera);
}

TEST_F(CameraTest, FitsNothingIntoAPictureWithoutASize) {
    camera.SetSize(0.0, 300.0);
    const Camera before = camera;
    camera.Fit(box, 10.0);
    EXPECT_EQ(before, camera);
}

TEST_F(CameraTest, KeepsThePlaceUnderTheMouseWhenItZooms) {
    Show(StandardView::Isometric);
    const Vec3 place = camera.Unproject({70.0, 220.0});
    const double scale = camera.Scale();
    camera.ZoomAt({70.0, 220.0}, 1.5);
    ExpectNear({70.0, 220.0}, camera.Project(place).Flat());
    EXPECT_NEAR(1.5 * scale, camera.Scale(), 1e-9);
}

TEST_F(CameraTest, ZoomsNoFurtherThanItsLimits) {
    for (int round = 0; round < 500; ++round) camera.ZoomAt({10.0, 10.0}, 10.0);
    EXPECT_LT(camera.Scale(), 1e6);
    for (int round = 0; round < 500; ++round) camera.ZoomAt({10.0, 10.0}, 0.1);
    EXPECT_GT(camera.Scale(), 0.0);
}

TEST_F(CameraTest, MovesTheModelWithTheMouse) {
    Show(StandardView::Isometric);
    const Point2 before = camera.Project({1.0, 2.0, 3.0}).Flat();
    camera.Pan({30.0, -12.0});
    ExpectNear(before + Point2{30.0, -12.0}, camera.Project({1.0, 2.0, 3.0}).Flat());
}

TEST_F(CameraTest, TurnsAboutAPlaceThatStaysWhereItIs) {
    Show(StandardView::Isometric);
    const ScreenPoint before = camera.Project({1.0, 2.0, 3.0});
    camera.Orbit({120.0, 30.0}, {1.0, 2.0, 3.0});
    const ScreenPoint after = camera.Project({1.0, 2.0, 3.0});
    ExpectNear(before.Flat(), after.Flat());
    EXPECT_NEAR(before.depth, after.depth, 1e-9);
}

TEST_F(CameraTest, MovesTheFrontWithTheMouseWhenItTurns) {
    Show(StandardView::FrontElevation);
    const Vec3 front{10.0, 0.0, 3.0};
    const Point2 before = camera.Project(front).Flat();
    camera.Orbit({30.0, 0.0}, box.Center());
    EXPECT_GT(camera.Project(front).x, before.x);
    camera.Orbit({0.0, 30.0}, box.Center());
    EXPECT_GT(camera.Project(front).y, before.y);
}

TEST_F(CameraTest, NeverTurnsTheModelUpsideDown) {
    Show(StandardView::Isometric);
    camera.Orbit({0.0, 5000.0}, box.Center());
    EXPECT_NEAR(0.0, camera.Direction({0.0, 0.0, 1.0}).y, 1e-9) << "seen from above, and no further";
    camera.Orbit({0.0, -50.0}, box.Center());
    EXPECT_LT(camera.Direction({0.0, 0.0, 1.0}).y, 0.0);
}

}  // namespace
}  // namespace zt
