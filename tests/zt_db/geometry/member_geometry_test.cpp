#include "zt_db/geometry/member_geometry.h"

#include <numbers>

#include <gtest/gtest.h>

namespace zt {
namespace {

constexpr double kRight = std::numbers::pi / 2.0;

void ExpectNear(const Vector3& expected, const Vector3& found) {
    for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(expected[i], found[i], 1e-12) << "component " << i;
}

TEST(MemberGeometryTest, PointsLocalZOfABeamUp) {
    const MemberAxes axes = AxesOfLine({1.0, 2.0, 3.0}, {5.0, 2.0, 3.0});
    ExpectNear({1.0, 0.0, 0.0}, axes.x);
    ExpectNear({0.0, 1.0, 0.0}, axes.y);
    ExpectNear({0.0, 0.0, 1.0}, axes.z);
}

TEST(MemberGeometryTest, KeepsLocalZOfAnInclinedMemberInItsVerticalPlane) {
    const MemberAxes axes = AxesOfLine({0.0, 0.0, 0.0}, {0.0, 3.0, 4.0});
    ExpectNear({0.0, 0.6, 0.8}, axes.x);
    ExpectNear({-1.0, 0.0, 0.0}, axes.y);
    ExpectNear({0.0, -0.8, 0.6}, axes.z);
}

TEST(MemberGeometryTest, PointsLocalZOfAVerticalMemberAlongGlobalX) {
    ExpectNear({1.0, 0.0, 0.0}, AxesOfLine({0.0, 0.0, 0.0}, {0.0, 0.0, 4.0}).z);
    ExpectNear({0.0, -1.0, 0.0}, AxesOfLine({0.0, 0.0, 0.0}, {0.0, 0.0, 4.0}).y);
    ExpectNear({1.0, 0.0, 0.0}, AxesOfLine({0.0, 0.0, 4.0}, {0.0, 0.0, 0.0}).z);
}

TEST(MemberGeometryTest, TurnsAxesAboutTheMember) {
    const MemberAxes beam = TurnedAbout(AxesOfLine({0.0, 0.0, 0.0}, {4.0, 0.0, 0.0}), kRight);
    ExpectNear({1.0, 0.0, 0.0}, beam.x);
    ExpectNear({0.0, 0.0, 1.0}, beam.y);
    ExpectNear({0.0, -1.0, 0.0}, beam.z);
}

TEST(MemberGeometryTest, TurnsByTheAngleThatAVectorGives) {
    const MemberAxes axes = AxesOfLine({0.0, 0.0, 0.0}, {3.0, 1.0, 2.0});
    for (const double angle : {-2.0, -0.3, 0.0, 1.0, 3.0}) {
        EXPECT_NEAR(angle, AngleOfLocalZ(axes, TurnedAbout(axes, angle).z), 1e-11);
        EXPECT_NEAR(angle, AngleOfLocalY(axes, TurnedAbout(axes, angle).y), 1e-11);
    }
}

TEST(MemberGeometryTest, TakesTheNormalOfAFaceFromTheOrderOfItsCorners) {
    const Vector3 slab[] = {{0.0, 0.0, 4.0}, {8.0, 0.0, 4.0}, {8.0, 7.0, 4.0}, {0.0, 7.0, 4.0}};
    const MemberAxes axes = AxesOfFace(slab);
    ExpectNear({1.0, 0.0, 0.0}, axes.x);
    ExpectNear({0.0, 1.0, 0.0}, axes.y);
    ExpectNear({0.0, 0.0, 1.0}, axes.z);
    const Vector3 wall[] = {{0.0, 0.0, 0.0}, {0.0, 7.0, 0.0}, {0.0, 7.0, 4.0}, {0.0, 0.0, 4.0}};
    ExpectNear({0.0, 1.0, 0.0}, AxesOfFace(wall).x);
    ExpectNear({1.0, 0.0, 0.0}, AxesOfFace(wall).z);
}

TEST(MemberGeometryTest, HasNoAxesOfAFaceWithoutAnArea) {
    const Vector3 line[] = {{0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}, {2.0, 0.0, 0.0}};
    ExpectNear({0.0, 0.0, 0.0}, AxesOfFace(line).x);
    ExpectNear({0.0, 0.0, 0.0}, NormalOf(line));
    ExpectNear({0.0, 0.0, 0.0}, NormalOf({}));
}

}  // namespace
}  // namespace zt
