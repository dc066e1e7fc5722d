#include "zt_tb/modelview/support_symbols.h"

#include "zt_db/records/spts.h"
#include "zt_tb/modelview/bay_fixture.h"
#include "zt_tb/modelview/scene_picture.h"
#include <gtest/gtest.h>

namespace zt {
namespace {

constexpr double kSize = 10.0;
constexpr Point2 kNode{100.0, 200.0};

class SupportSymbolsTest : public ::testing::Test {
protected:
    SupportSymbolsTest() { camera.SetView(StandardView::FrontElevation); }
    SupportSymbols SymbolsOf(const std::array<Hold, 6>& ways) {
        SupportSymbols symbols;
        AddSupport(symbols, {.ways = ways}, kNode, camera, kSize);
        return symbols;
    }
    static std::array<Hold, 6> Only(std::size_t way, Hold hold) {
        std::array<Hold, 6> ways{};
        ways[way] = hold;
        return ways;
    }

    Camera camera;
};

constexpr auto kFree = Hold::Free;
constexpr auto kHeld = Hold::Held;

TEST_F(SupportSymbolsTest, StandsAFixedNodeOnAPlate) {
    const SupportSymbols symbols = SymbolsOf({kHeld, kHeld, kHeld, kHeld, kHeld, kHeld});
    ASSERT_EQ(1u, symbols.plates.size());
    EXPECT_TRUE(symbols.lines.empty() && symbols.triangles.empty());
    EXPECT_EQ(kNode.y, symbols.plates[0].top);
    EXPECT_EQ(kNode.x - 0.5 * kSize, symbols.plates[0].left);
}

TEST_F(SupportSymbolsTest, StandsAPinnedNodeOnATriangle) {
    const SupportSymbols symbols = SymbolsOf({kHeld, kHeld, kHeld, kFree, kFree, kFree});
    ASSERT_EQ(1u, symbols.triangles.size());
    EXPECT_TRUE(symbols.lines.empty() && symbols.plates.empty());
    EXPECT_EQ(kNode, symbols.triangles[0][0]);
    EXPECT_EQ(kNode.y + kSize, symbols.triangles[0][1].y);
}

TEST_F(SupportSymbolsTest, MarksAnyOtherSupportByItsWays) {
    const SupportSymbols roller = SymbolsOf(Only(2, kHeld));
    ASSERT_EQ(2u, roller.lines.size()) << "a line with a bar";
    EXPECT_EQ(kNode, roller.lines[0].from);
    EXPECT_NEAR(kNode.y + kSize, roller.lines[0].to.y, 1e-9) << "under the node";
    EXPECT_NEAR(kNode.x, roller.lines[0].to.x, 1e-9);
    EXPECT_EQ(3u, SymbolsOf(Only(3, kHeld)).lines.size()) << "two bars for a turn";
    EXPECT_EQ(4u, SymbolsOf({kHeld, kFree, kHeld, kFree, kFree, kFree}).lines.size());
    EXPECT_TRUE(SymbolsOf({}).lines.empty());
}

TEST_F(SupportSymbolsTest, DrawsSpringsAsZigzags) {
    const SupportSymbols spring = SymbolsOf(Only(0, Hold::Spring));
    EXPECT_GT(spring.lines.size(), 6u);
    double highest = kNode.y;
    for (const LineStroke& line : spring.lines) {
        EXPECT_LE(line.to.x, kNode.x + 1e-9) << "against the axis";
        highest = std::min(highest, line.to.y);
    }
    EXPECT_LT(highest, kNode.y - 1.0);
    EXPECT_EQ(spring.lines.size() + 1, SymbolsOf(Only(5, Hold::Spring)).lines.size());
}

TEST_F(SupportSymbolsTest, HasASquareForAWayThatIsLookedAlong) {
    const SupportSymbols symbols = SymbolsOf(Only(1, kHeld));
    EXPECT_TRUE(symbols.lines.empty());
    EXPECT_EQ(1u, symbols.plates.size());
}

class PicturedSupportsTest : public BayViewTest {
protected:
    PicturedSupportsTest() {
        for (std::uint32_t node = 1; node <= 4; ++node) Add<CClassSpts>(node, {.flags = "111111"});
        view.Show(StandardView::FrontElevation);
    }
    SupportSymbols Symbols(bool shown = true) {
        const SceneProjection projection(view.Scene(), view.View());
        return ScenePicture(projection, {.supports = shown}).Supports();
    }
};

TEST_F(PicturedSupportsTest, AreAsLargeAsTheirMembersAllow) {
    ASSERT_EQ(4u, Symbols().plates.size());
    const double near = Symbols().plates[0].right - Symbols().plates[0].left;
    view.ZoomAt({200.0, 150.0}, 0.1);
    ASSERT_EQ(4u, Symbols().plates.size());
    EXPECT_LT(Symbols().plates[0].right - Symbols().plates[0].left, 0.5 * near);
    view.ZoomAt({200.0, 150.0}, 0.02);
    EXPECT_TRUE(Symbols().plates.empty()) << "no member is seen any more";
    view.Fit();
    view.ZoomAt(PlaceOf({0.0, 0.0, 0.0}), 50.0);
    ASSERT_EQ(2u, Symbols().plates.size()) << "the others are out of sight";
    EXPECT_LT(Symbols().plates[0].right - Symbols().plates[0].left, 12.0) << "symbols do not grow with the model";
}

TEST_F(PicturedSupportsTest, AreLeftOutWhenTheyAreNotWanted) { EXPECT_TRUE(Symbols(false).plates.empty()); }

}  // namespace
}  // namespace zt
