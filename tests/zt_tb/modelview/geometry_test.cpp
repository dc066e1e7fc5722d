#include "zt_tb/modelview/geometry.h"

#include <vector>

#include <gtest/gtest.h>

namespace zt {
namespace {

constexpr Rect2 kRect{10.0, 10.0, 30.0, 20.0};

TEST(ModelGeometryTest, MeasuresTheDistanceFromALineAndFromItsEnds) {
    const LineDistance beside = DistanceToLine({5.0, 3.0}, {0.0, 0.0}, {10.0, 0.0});
    EXPECT_EQ(9.0, beside.squared);
    EXPECT_EQ(0.5, beside.along);
    EXPECT_EQ(25.0, DistanceToLine({13.0, 4.0}, {0.0, 0.0}, {10.0, 0.0}).squared);
    EXPECT_EQ(25.0, DistanceToLine({3.0, 4.0}, {0.0, 0.0}, {0.0, 0.0}).squared) << "a line without a length";
}

TEST(ModelGeometryTest, TellsWhetherALineTouchesARectangle) {
    EXPECT_TRUE(LineTouches(kRect, {12.0, 12.0}, {14.0, 14.0})) << "inside";
    EXPECT_TRUE(LineTouches(kRect, {0.0, 15.0}, {40.0, 15.0})) << "across";
    EXPECT_TRUE(LineTouches(kRect, {0.0, 20.0}, {40.0, 20.0})) << "along a side";
    EXPECT_FALSE(LineTouches(kRect, {0.0, 15.0}, {9.0, 15.0})) << "ends before";
    EXPECT_FALSE(LineTouches(kRect, {0.0, 12.0}, {12.0, 0.0})) << "passes a corner";
    EXPECT_FALSE(LineTouches(kRect, {5.0, 5.0}, {5.0, 5.0})) << "a point";
}

TEST(ModelGeometryTest, CutsALineAtTheSides) {
    Point2 a{0.0, 15.0};
    Point2 b{40.0, 15.0};
    ASSERT_TRUE(ClipLine(kRect, a, b));
    EXPECT_EQ((Point2{10.0, 15.0}), a);
    EXPECT_EQ((Point2{30.0, 15.0}), b);
    Point2 c{0.0, 0.0};
    Point2 d{1.0, 1.0};
    EXPECT_FALSE(ClipLine(kRect, c, d));
    EXPECT_EQ((Point2{1.0, 1.0}), d);
}

TEST(ModelGeometryTest, TellsWhatLiesInsideAPolygonWithABay) {
    const std::vector<Point2> bent{{0, 0}, {10, 0}, {10, 10}, {5, 2}, {0, 10}};
    EXPECT_TRUE(PolygonHolds(bent, {1.0, 3.0}));
    EXPECT_FALSE(PolygonHolds(bent, {5.0, 8.0}));
    EXPECT_FALSE(PolygonHolds({}, {0.0, 0.0}));
}

TEST(ModelGeometryTest, TouchesARectangleThatLiesWhollyInsideThePolygon) {
    const std::vector<Point2> large{{0, 0}, {100, 0}, {100, 100}, {0, 100}};
    EXPECT_TRUE(PolygonTouches(kRect, large));
    const std::vector<Point2> beside{{40, 0}, {50, 0}, {50, 30}};
    EXPECT_FALSE(PolygonTouches(kRect, beside));
}

TEST(ModelGeometryTest, FindsTheNormalOfAPolygonFarFromTheOrigin) {
    const std::vector<Vec3> flat{{1e6, 1e6, 5.0}, {1e6 + 2, 1e6, 5.0}, {1e6 + 2, 1e6 + 2, 5.0}};
    EXPECT_EQ((Vec3{0.0, 0.0, 1.0}), NormalOf(flat));
    const std::vector<Vec3> line{{0, 0, 0}, {1, 1, 1}, {2, 2, 2}};
    EXPECT_EQ(Vec3{}, NormalOf(line)) << "no area, no direction";
}

}  // namespace
}  // namespace zt
