#include "zt_tb/modelview/scene_picking.h"

#include "zt_tb/modelview/bay_fixture.h"
#include "zt_tb/modelview/scene_picture.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zt {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ScenePickingTest : public BayViewTest {
protected:
    PickedKeys At(Point2 place) const { return PickAt(SceneProjection(view.Scene(), view.View()), place); }
    PickedKeys At(const Vec3& place) const { return At(PlaceOf(place)); }
    PickedKeys In(const Rect2& band, BandRule rule) const {
        return PickIn(SceneProjection(view.Scene(), view.View()), band, rule);
    }
    /// A rectangle around two places of the model with some pixels of room.
    Rect2 Around(const Vec3& a, const Vec3& b) const {
        const Rect2 rect = Rect2::Between(PlaceOf(a), PlaceOf(b));
        return {rect.left - 3.0, rect.top - 3.0, rect.right + 3.0, rect.bottom + 3.0};
    }
};

TEST_F(ScenePickingTest, TakesANodeBeforeTheMembersAtIt) {
    EXPECT_THAT(At({8.0, 0.0, 4.0}).nodes, ElementsAre(6));
    EXPECT_THAT(At({8.0, 0.0, 4.0}).members, IsEmpty());
    EXPECT_THAT(At(PlaceOf({8.0, 0.0, 4.0}) + Point2{4.0, 4.0}).nodes, ElementsAre(6)) << "a hand is not that sure";
}

TEST_F(ScenePickingTest, TakesALineBeforeTheFaceBehindIt) {
    EXPECT_THAT(At({4.0, 0.0, 4.0}).members, ElementsAre(5));
    EXPECT_THAT(At(PlaceOf({4.0, 0.0, 4.0}) + Point2{0.0, 4.0}).members, ElementsAre(5));
}

TEST_F(ScenePickingTest, TakesAFaceWhereNothingElseIs) {
    EXPECT_THAT(At({2.0, 5.0, 4.0}).members, ElementsAre(kSlab));
    EXPECT_THAT(At(Point2{2.0, 2.0}).members, IsEmpty());
    EXPECT_TRUE(At(Point2{2.0, 2.0}).IsEmpty());
}

TEST_F(ScenePickingTest, TakesTheNearestOfSeveral) {
    view.Show(StandardView::FrontElevation);
    EXPECT_THAT(At({8.0, 3.0, 4.0}).nodes, ElementsAre(6)) << "node 7 stands behind it";
    EXPECT_THAT(At({8.0, 3.0, 2.0}).members, ElementsAre(2));
    view.Show(StandardView::Plan);
    EXPECT_THAT(At({8.0, 7.0, 0.0}).nodes, ElementsAre(7)) << "node 3 stands below it";
    view.Show(StandardView::SideElevation);
    EXPECT_THAT(At({0.0, 3.0, 2.0}).members, ElementsAre(kWall));
}

TEST_F(ScenePickingTest, TakesTheNearestOfTwoFaces) {
    AddPlace(40, 0.0, 0.0, kTop, 3.0);
    AddPlace(41, 8.0, 0.0, kTop, 3.0);
    AddPlace(42, 8.0, 7.0, kTop, 3.0);
    AddPlace(43, 0.0, 7.0, kTop, 3.0);
    AddTyped(40, MembType::Slab, {40, 41, 42, 43});
    view.Show(StandardView::Plan);
    EXPECT_THAT(At({4.0, 3.0, 0.0}).members, ElementsAre(40));
}

TEST_F(ScenePickingTest, LooksThroughAnOpeningOntoWhatFillsIt) {
    AddOpening();
    view.Show(StandardView::Plan);
    EXPECT_THAT(At({4.0, 4.0, 4.0}).members, ElementsAre(kOpening));
    EXPECT_THAT(At({1.5, 1.5, 4.0}).members, ElementsAre(kSlab));
}

TEST_F(ScenePickingTest, TakesNoFaceThatIsSeenFromItsEdge) {
    view.Show(StandardView::FrontElevation);
    EXPECT_TRUE(At({4.0, 0.0, 2.0}).IsEmpty()) << "between the columns";
}

TEST_F(ScenePickingTest, TakesWhatLiesWhollyInsideABand) {
    view.Show(StandardView::FrontElevation);
    const PickedKeys picked = In(Around({8.0, 0.0, 0.0}, {8.0, 0.0, 4.0}), BandRule::Inside);
    EXPECT_THAT(picked.nodes, ElementsAre(2, 3, 6, 7));
    EXPECT_THAT(picked.members, ElementsAre(2, 3, 6)) << "columns, and the beam that runs into the picture";
}

TEST_F(ScenePickingTest, TakesWhatABandTouches) {
    view.Show(StandardView::FrontElevation);
    const PickedKeys picked = In(Around({8.0, 0.0, 1.0}, {8.0, 0.0, 4.0}), BandRule::Touching);
    EXPECT_THAT(picked.nodes, ElementsAre(6, 7)) << "a node is inside or it is not";
    EXPECT_THAT(picked.members, ElementsAre(2, 3, 5, 6, 7, kSlab));
}

TEST_F(ScenePickingTest, TakesAFaceWithABandInsideOfIt) {
    view.Show(StandardView::Plan);
    const Rect2 band = Around({3.0, 3.0, 4.0}, {4.0, 4.0, 4.0});
    EXPECT_THAT(In(band, BandRule::Touching).members, ElementsAre(kSlab));
    EXPECT_TRUE(In(band, BandRule::Inside).IsEmpty());
}

TEST_F(ScenePickingTest, ShowsNoNodesThatStandTooClose) {
    EXPECT_TRUE(SceneProjection(view.Scene(), view.View()).ShowsNodes());
    view.SetSize(20.0, 20.0);
    EXPECT_FALSE(SceneProjection(view.Scene(), view.View()).ShowsNodes());
    EXPECT_THAT(At({8.0, 0.0, 4.0}).nodes, IsEmpty()) << "what is not drawn is not taken";
}

TEST_F(ScenePickingTest, DrawsFacesFromTheFarthestToTheNearest) {
    view.Show(StandardView::SideElevation);
    const SceneProjection projection(view.Scene(), view.View());
    const ScenePicture picture(projection, {.faces = true, .slices = 1});
    ASSERT_EQ(1u, picture.Slices().size());
    double before = 1e9;
    for (const FaceShape& face : picture.Slices()[0].faces) {
        EXPECT_LE(face.depth, before);
        before = face.depth;
    }
    EXPECT_EQ(2u, picture.Slices()[0].faces.size());
}

TEST_F(ScenePickingTest, DrawsLinesInSlicesOfDepth) {
    view.Show(StandardView::FrontElevation);
    const SceneProjection projection(view.Scene(), view.View());
    const ScenePicture picture(projection, {.faces = false, .slices = 2});
    const auto columns = static_cast<std::size_t>(DrawnKind::Column);
    ASSERT_EQ(2u, picture.Slices().size());
    EXPECT_EQ(2u, picture.Slices()[0].lines[columns].size());
    EXPECT_EQ(2u, picture.Slices()[1].lines[columns].size());
    EXPECT_EQ(1.0, picture.Slices()[1].nearness);
    EXPECT_TRUE(picture.Slices()[0].faces.empty());
}

TEST_F(ScenePickingTest, DrawsAnOpeningAsARingOfItsSlab) {
    AddOpening();
    view.Show(StandardView::Plan);
    const SceneProjection projection(view.Scene(), view.View());
    ScenePicture picture(projection, {});
    const PictureMarks marks = picture.MarksOf({.nodes = {5}, .members = {kSlab, 1, 99}});
    ASSERT_EQ(1u, marks.faces.size());
    EXPECT_EQ(2u, marks.faces[0].rings);
    EXPECT_EQ(4u, picture.PointsOf(marks.faces[0], 1).size());
    EXPECT_EQ(1u, marks.lines.size());
    EXPECT_EQ(1u, marks.nodes.size());
}

TEST_F(ScenePickingTest, LeavesOutWhatLiesBeyondTheFrame) {
    view.Pan({5000.0, 0.0});
    const SceneProjection projection(view.Scene(), view.View());
    const ScenePicture picture(projection, {});
    for (const PictureSlice& slice : picture.Slices()) {
        EXPECT_TRUE(slice.faces.empty());
        for (const auto& lines : slice.lines) EXPECT_TRUE(lines.empty());
    }
    EXPECT_TRUE(picture.Nodes().empty());
}

TEST_F(ScenePickingTest, TellsLevelsAtTheSideAndAcrossElevations) {
    const auto levels = [&] {
        const SceneProjection projection(view.Scene(), view.View());
        return ScenePicture(projection, {}).Levels();
    };
    ASSERT_EQ(2u, levels().size());
    EXPECT_EQ("1F", levels()[1].names);
    EXPECT_LT(levels()[1].to.x, PlaceOf({0.0, 7.0, 4.0}).x) << "at the left of the building";
    view.Show(StandardView::FrontElevation);
    EXPECT_GT(levels()[1].to.x, PlaceOf({8.0, 0.0, 4.0}).x) << "across the building";
    view.Show(StandardView::Plan);
    EXPECT_TRUE(levels().empty()) << "all levels lie upon each other";
}

}  // namespace
}  // namespace zt
