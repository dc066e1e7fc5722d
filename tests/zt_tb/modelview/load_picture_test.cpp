#include "zt_tb/modelview/load_picture.h"

#include <cmath>

#include "zt_tb/modelview/load_fixture.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zt {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

/// The bay as seen from its front: x to the right, z upward, pixels by the scale of the camera.
class LoadPictureTest : public BayLoadTest {
protected:
    LoadPictureTest() { view.Show(StandardView::FrontElevation); }
    LoadPicture Picture(std::uint32_t loadCase) {
        view.ShowLoads(loadCase);
        projection.emplace(view.Scene(), view.View());
        return LoadPicture(*projection, view.Loads());
    }
    std::vector<std::string> Texts(std::uint32_t loadCase) {
        std::vector<std::string> texts;
        for (const LoadLabel& label : Labels(Picture(loadCase))) texts.push_back(label.text);
        return texts;
    }
    std::vector<LoadLabel> Labels(const LoadPicture& picture) {
        return picture.Labels(
            {Db().Units(), [](const std::string& text) { return 6.0 * static_cast<double>(text.size()); }});
    }
    static Point2 Way(const LineStroke& line) { return line.to - line.from; }
    static double Length(const LineStroke& line) { return std::hypot(Way(line).x, Way(line).y); }
    /// Wind on the first column.
    void AddColumnLoad(int type, int direction, double value) {
        T_CMLD_D load{.memb = 1, .stld = kWind, .type = type, .direction = direction, .x = {0.0, 1.0}};
        load.p = {value, value};
        Add<CClassCmld>(1, load);
    }

    std::optional<SceneProjection> projection;
};

TEST_F(LoadPictureTest, HasNothingWithoutLoads) {
    const LoadPicture picture = Picture(kDead);
    EXPECT_TRUE(picture.Forces().lines.empty());
    EXPECT_THAT(Labels(picture), IsEmpty());
}

TEST_F(LoadPictureTest, EndsTheArrowOfAForceAtItsNode) {
    Add<CClassPtld>(1, {.node = 5, .stld = kWind, .fx = 30.0});
    const LoadPicture picture = Picture(kWind);
    ASSERT_EQ(1u, picture.Forces().lines.size());
    const LineStroke& arrow = picture.Forces().lines[0];
    EXPECT_NEAR(PlaceOf({0.0, 0.0, 4.0}).x, arrow.to.x, 1e-9);
    EXPECT_NEAR(PlaceOf({0.0, 0.0, 4.0}).y, arrow.to.y, 1e-9);
    EXPECT_GT(Way(arrow).x, 10.0) << "along X";
    EXPECT_NEAR(0.0, Way(arrow).y, 1e-9);
    ASSERT_EQ(1u, picture.Forces().heads.size());
    EXPECT_EQ(arrow.to, picture.Forces().heads[0][0]);
    EXPECT_TRUE(picture.Moments().lines.empty());
}

TEST_F(LoadPictureTest, MeasuresArrowsByTheGreatestOfTheirKind) {
    Add<CClassPtld>(1, {.node = 5, .stld = kWind, .fx = 30.0});
    Add<CClassPtld>(2, {.node = 6, .stld = kWind, .fx = 15.0});
    Add<CClassPtld>(3, {.node = 6, .stld = kWind, .mx = 0.001});
    const LoadPicture picture = Picture(kWind);
    ASSERT_EQ(2u, picture.Forces().lines.size());
    EXPECT_NEAR(0.5 * Length(picture.Forces().lines[0]), Length(picture.Forces().lines[1]), 1e-9);
    ASSERT_EQ(1u, picture.Moments().lines.size());
    EXPECT_NEAR(Length(picture.Forces().lines[0]), Length(picture.Moments().lines[0]), 1e-9);
}

TEST_F(LoadPictureTest, KeepsTheLengthOfArrowsWhenTheModelGrows) {
    Add<CClassPtld>(1, {.node = 5, .stld = kWind, .fx = 30.0});
    Picture(kWind);
    const double before = Length(Picture(kWind).Forces().lines[0]);
    view.ZoomAt(PlaceOf({0.0, 0.0, 4.0}), 3.0);
    EXPECT_LT(Length(Picture(kWind).Forces().lines[0]), 2.0 * before);
    view.ZoomAt({200.0, 150.0}, 0.05);
    EXPECT_LT(Length(Picture(kWind).Forces().lines[0]), 0.5 * before);
}

TEST_F(LoadPictureTest, PointsMomentsAwayFromTheirNodesWithTwoHeads) {
    Add<CClassPtld>(1, {.node = 5, .stld = kWind, .mx = 10.0});
    const LoadPicture picture = Picture(kWind);
    ASSERT_EQ(1u, picture.Moments().lines.size());
    EXPECT_NEAR(PlaceOf({0.0, 0.0, 4.0}).x, picture.Moments().lines[0].from.x, 1e-9);
    EXPECT_GT(Way(picture.Moments().lines[0]).x, 10.0);
    EXPECT_EQ(2u, picture.Moments().heads.size());
    EXPECT_TRUE(picture.Forces().lines.empty());
}

TEST_F(LoadPictureTest, MarksALoadThatIsLookedAlongWithADot) {
    Add<CClassPtld>(1, {.node = 5, .stld = kWind, .fy = 10.0});
    const LoadPicture picture = Picture(kWind);
    EXPECT_TRUE(picture.Forces().lines.empty());
    EXPECT_EQ(1u, picture.Forces().dots.size());
    EXPECT_THAT(Texts(kWind), ElementsAre("10"));
}

TEST_F(LoadPictureTest, StandsADistributedLoadOnItsBeam) {
    Add<CClassLnld>(1, LineLoad(-8.0, -8.0));
    const LoadPicture picture = Picture(kDead);
    ASSERT_EQ(1u, picture.Forces().areas.size());
    const LineStroke& outline = picture.Forces().lines[0];
    EXPECT_NEAR(PlaceOf({0.0, 0.0, 4.0}).x, outline.from.x, 1e-9);
    EXPECT_NEAR(PlaceOf({8.0, 0.0, 4.0}).x, outline.to.x, 1e-9);
    EXPECT_LT(outline.from.y, PlaceOf({0.0, 0.0, 4.0}).y - 10.0) << "it lies over the beam and pushes down";
    EXPECT_EQ(outline.from.y, outline.to.y);
    EXPECT_GT(picture.Forces().heads.size(), 5u);
    for (const auto& head : picture.Forces().heads) EXPECT_NEAR(PlaceOf({0.0, 0.0, 4.0}).y, head[0].y, 1e-9);
    EXPECT_THAT(Texts(kDead), ElementsAre("8"));
}

TEST_F(LoadPictureTest, RunsBetweenTheValuesOfADistributedLoad) {
    Add<CClassLnld>(1, LineLoad(0.0, -8.0, 0.25, 0.75));
    const LoadPicture picture = Picture(kDead);
    const LineStroke& outline = picture.Forces().lines[0];
    EXPECT_NEAR(PlaceOf({2.0, 0.0, 4.0}).x, outline.from.x, 1e-9);
    EXPECT_NEAR(PlaceOf({2.0, 0.0, 4.0}).y, outline.from.y, 1e-9);
    EXPECT_NEAR(PlaceOf({6.0, 0.0, 4.0}).x, outline.to.x, 1e-9);
    EXPECT_LT(outline.to.y, outline.from.y - 10.0);
    EXPECT_THAT(Texts(kDead), ElementsAre("8")) << "nothing is written for 0";
}

TEST_F(LoadPictureTest, TakesUpToThreeStretchesAndStopsWherePlacesDoNotRise) {
    T_LNLD_D load = LineLoad(0.0, 0.0);
    load.x = {0.0, 0.25, 0.75, 1.0};
    load.p = {0.0, -8.0, -8.0, 0.0};
    Add<CClassLnld>(1, load);
    EXPECT_EQ(3u, Picture(kDead).Forces().areas.size());
    load.x = {0.0, 0.5, 0.0, 0.0};
    ASSERT_TRUE(Records<CClassLnld>().TR_Modify(1, 1, load));
    EXPECT_EQ(1u, Picture(kDead).Forces().areas.size());
}

TEST_F(LoadPictureTest, HasAnArrowForEachConcentratedLoad) {
    T_LNLD_D load = LineLoad(-5.0, -10.0, 0.25, 0.5);
    load.type = LoadType::ConcentratedForces;
    Add<CClassLnld>(1, load);
    const LoadPicture picture = Picture(kDead);
    ASSERT_EQ(2u, picture.Forces().lines.size());
    EXPECT_NEAR(PlaceOf({4.0, 0.0, 4.0}).x, picture.Forces().lines[1].to.x, 1e-9);
    EXPECT_NEAR(PlaceOf({4.0, 0.0, 4.0}).y, picture.Forces().lines[1].to.y, 1e-9);
    EXPECT_TRUE(picture.Forces().areas.empty());
    EXPECT_THAT(Texts(kDead), UnorderedElementsAre("5", "10"));
}

TEST_F(LoadPictureTest, FollowsTheLocalAxesOfAMember) {
    AddColumnLoad(LoadType::UniformLoads, LoadDirection::LocalZ, 3.0);
    const LineStroke alongX = Picture(kWind).Forces().lines[1];
    EXPECT_GT(Way(alongX).x, 10.0) << "local z of a column lies along X";
    T_MEMB_D column;
    ASSERT_TRUE(Records<CClassMemb>().Get(1, column));
    column.beta = Db().Units().ToCurrent(Unit::Angle, std::acos(-1.0));
    ASSERT_TRUE(Records<CClassMemb>().TR_Modify(1, 1, column));
    EXPECT_LT(Way(Picture(kWind).Forces().lines[1]).x, -10.0) << "turned by half a turn";
}

TEST_F(LoadPictureTest, DrawsALoadAlongItsMemberOnIt) {
    AddColumnLoad(LoadType::UniformLoads, LoadDirection::LocalX, 3.0);
    const LoadPicture picture = Picture(kWind);
    EXPECT_TRUE(picture.Forces().areas.empty());
    ASSERT_FALSE(picture.Forces().lines.empty());
    for (const LineStroke& arrow : picture.Forces().lines) {
        EXPECT_NEAR(PlaceOf({0.0, 0.0, 0.0}).x, arrow.to.x, 1e-9);
        EXPECT_LT(Way(arrow).y, 0.0) << "upward";
    }
}

TEST_F(LoadPictureTest, StandsLoadsOfAWallOnItsTop) {
    view.Show(StandardView::SideElevation);
    T_LNLD_D load = LineLoad(-8.0, -8.0);
    load.memb = kWall;
    Add<CClassLnld>(1, load);
    const LoadPicture picture = Picture(kDead);
    ASSERT_EQ(1u, picture.Forces().areas.size());
    EXPECT_NEAR(PlaceOf({0.0, 0.0, 4.0}).y, picture.Forces().areas[0][0].y, 1e-9);
    EXPECT_NEAR(PlaceOf({0.0, 7.0, 4.0}).y, picture.Forces().areas[0][1].y, 1e-9);
}

TEST_F(LoadPictureTest, DrawsAFewArrowsOverASlab) {
    AddSlabLoad(1.5, 2.5);
    view.Show(StandardView::Isometric);
    const LoadPicture picture = Picture(kLive);
    EXPECT_EQ(5u, picture.Forces().lines.size());
    for (const LineStroke& arrow : picture.Forces().lines) EXPECT_GT(Way(arrow).y, 0.0) << "downward";
    EXPECT_THAT(Texts(kLive), ElementsAre("2.5"));
    view.ZoomAt({200.0, 150.0}, 0.1);
    EXPECT_EQ(1u, Picture(kLive).Forces().lines.size());
}

TEST_F(LoadPictureTest, WritesValuesInCurrentUnits) {
    Add<CClassLnld>(1, LineLoad(-8.0, -8.0));
    SetUnits(0, 1);
    const double value = Db().Units().ToCurrent(Unit::LineLoad, 8000.0);
    ASSERT_NE(8.0, value);
    ASSERT_EQ(1u, Texts(kDead).size());
    EXPECT_NEAR(value, std::stod(Texts(kDead)[0]), 1e-3 * value);
}

TEST_F(LoadPictureTest, LeavesOutValuesThatWouldCoverOthers) {
    Add<CClassLnld>(1, LineLoad(-8.0, -8.0));
    Add<CClassLnld>(2, LineLoad(-8.0, -8.0));
    EXPECT_THAT(Texts(kDead), ElementsAre("8"));
}

TEST_F(LoadPictureTest, WritesOnlyTheGreatestOfAKindWhereThereAreMany) {
    for (std::uint32_t at = 0; at < 200; ++at) {
        const double place = at / 200.0;
        T_LNLD_D load = LineLoad(-1.0 - place, 0.0, place, place);
        load.type = LoadType::ConcentratedForces;
        Add<CClassLnld>(at + 1, load);
    }
    Add<CClassPtld>(1, {.node = 5, .stld = kDead, .mx = 4.0});
    EXPECT_THAT(Texts(kDead), UnorderedElementsAre("1.995", "4"));
}

TEST_F(LoadPictureTest, LeavesOutWhatIsOutOfSight) {
    Add<CClassLnld>(1, LineLoad(-8.0, -8.0));
    Add<CClassPtld>(1, {.node = 5, .stld = kDead, .fx = 4.0});
    Picture(kDead);
    view.Pan({5000.0, 0.0});
    EXPECT_TRUE(Picture(kDead).Forces().lines.empty());
    EXPECT_THAT(Texts(kDead), IsEmpty());
}

TEST_F(LoadPictureTest, DrawsNoLoadOfAMemberWithoutNodes) {
    AddTyped(30, 201, {});
    T_LNLD_D load = LineLoad(-8.0, -8.0);
    load.memb = 30;
    Add<CClassLnld>(1, load);
    EXPECT_TRUE(Picture(kDead).Forces().lines.empty());
}

}  // namespace
}  // namespace zt
