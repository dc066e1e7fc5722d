#include "zt_tb/modelview/thin_lines.h"

#include <algorithm>
#include <vector>

#include <gtest/gtest.h>

namespace zt {
namespace {

/// A plane of 10 by 6 pixels with a margin at the end of each row that no line may enter.
class ThinLinesTest : public ::testing::Test {
protected:
    static constexpr int kWidth = 10;
    static constexpr int kHeight = 6;
    static constexpr int kRow = 12;

    void Draw(const LineStroke& line, double scale = 1.0) {
        DrawThinLines({pixels.data() + kRow, kWidth, kHeight, kRow}, std::span(&line, 1), scale, 7);
    }
    std::uint32_t At(int x, int y) const { return pixels[static_cast<std::size_t>((y + 1) * kRow + x)]; }
    auto Count() const { return std::count(pixels.begin(), pixels.end(), 7u); }
    void ExpectMarginClean() const {
        for (int y = -1; y <= kHeight; ++y) {
            for (int x = 0; x < kRow; ++x) {
                const bool isInside = x < kWidth && y >= 0 && y < kHeight;
                EXPECT_TRUE(isInside || At(x, y) == 0) << x << ", " << y;
            }
        }
    }

    std::vector<std::uint32_t> pixels = std::vector<std::uint32_t>(kRow * (kHeight + 2));
};

TEST_F(ThinLinesTest, DrawsFlatSteepAndShortLines) {
    Draw({{1.0, 2.0}, {4.0, 2.0}});
    EXPECT_EQ(4, Count());
    EXPECT_EQ(7u, At(1, 2));
    EXPECT_EQ(7u, At(4, 2));
    Draw({{7.0, 5.0}, {7.0, 3.0}});
    EXPECT_EQ(7, Count());
    Draw({{9.0, 0.0}, {9.0, 0.0}});
    EXPECT_EQ(7u, At(9, 0)) << "a line without a length is a point";
}

TEST_F(ThinLinesTest, DrawsADiagonalInEitherDirectionAlike) {
    Draw({{5.0, 5.0}, {0.0, 0.0}});
    for (int at = 0; at <= 5; ++at) EXPECT_EQ(7u, At(at, at)) << at;
    EXPECT_EQ(6, Count());
}

TEST_F(ThinLinesTest, StaysInsideThePlane) {
    Draw({{-1e7, 3.0}, {1e7, 3.0}});
    EXPECT_EQ(kWidth, Count());
    Draw({{-5.0, -5.0}, {20.0, 20.0}});
    Draw({{9.99999, -3.0}, {10.0, 9.0}});
    Draw({{0.0, 6.0}, {10.0, 5.9999999}});
    Draw({{-4.0, 2.0}, {-2.0, 4.0}});
    ExpectMarginClean();
}

TEST_F(ThinLinesTest, CountsInPixelsOfTheScreen) {
    Draw({{0.0, 1.0}, {4.0, 1.0}}, 2.0);
    EXPECT_EQ(7u, At(8, 2));
    EXPECT_EQ(9, Count());
}

}  // namespace
}  // namespace zt
