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
    /// All shapes of one sort, whatever their depth; lines of single loads behind those of distributed ones.
    static LoadShapes Together(const LoadPicture& picture, LoadShapes LoadSlice::*sort) {
        LoadShapes all;
        const auto add = [](auto& to, const auto& from) { to.insert(to.end(), from.begin(), from.end()); };
        for (const LoadSlice& slice : picture.Slices()) {
            const LoadShapes& shapes = slice.*sort;
            add(all.lines, shapes.lines);
            add(all.stems, shapes.stems);
            add(all.heads, shapes.heads);
            add(all.areas, shapes.areas);
            add(all.dots, shapes.dots);
        }
        return all;
    }
    static LoadShapes Forces(const LoadPicture& picture) { return Together(picture, &LoadSlice::forces); }
    static LoadShapes Moments(const LoadPicture& picture) { return Together(picture, &LoadSlice::moments); }
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
    EXPECT_TRUE(Forces(picture).lines.empty());
    EXPECT_THAT(Labels(picture), IsEmpty());
}

TEST_F(LoadPictureTest, EndsTheArrowOfAForceAtItsNode) {
    Add<CClassPtld>(1, {.node = 5, .stld = kWind, .fx = 30.0});
    const LoadPicture picture = Picture(kWind);
    ASSERT_EQ(1u, Forces(picture).stems.size());
    const LineStroke arrow = Forces(picture).stems[0];
    EXPECT_NEAR(PlaceOf({0.0, 0.0, 4.0}).x, arrow.to.x, 1e-9);
    EXPECT_NEAR(PlaceOf({0.0, 0.0, 4.0}).y, arrow.to.y, 1e-9);
    EXPECT_GT(Way(arrow).x, 10.0) << "along X";
    EXPECT_NEAR(0.0, Way(arrow).y, 1e-9);
    ASSERT_EQ(1u, Forces(picture).heads.size());
    EXPECT_EQ(arrow.to, Forces(picture).heads[0][0]);
    EXPECT_TRUE(Moments(picture).stems.empty());
}

TEST_F(LoadPictureTest, MeasuresArrowsByTheGreatestOfTheirKind) {
    Add<CClassPtld>(1, {.node = 5, .stld = kWind, .fx = 30.0});
    Add<CClassPtld>(2, {.node = 6, .stld = kWind, .fx = 15.0});
    Add<CClassPtld>(3, {.node = 6, .stld = kWind, .mx = 0.001});
    const LoadPicture picture = Picture(kWind);
    ASSERT_EQ(2u, Forces(picture).stems.size());
    EXPECT_NEAR(0.5 * Length(Forces(picture).stems[0]), Length(Forces(picture).stems[1]), 1e-9);
    ASSERT_EQ(1u, Moments(picture).stems.size());
    EXPECT_NEAR(Length(Forces(picture).stems[0]), Length(Moments(picture).stems[0]), 1e-9);
}

TEST_F(LoadPictureTest, KeepsTheLengthOfArrowsWhenTheModelGrows) {
    Add<CClassPtld>(1, {.node = 5, .stld = kWind, .fx = 30.0});
    Picture(kWind);
    const double before = Length(Forces(Picture(kWind)).stems[0]);
    view.ZoomAt(PlaceOf({0.0, 0.0, 4.0}), 3.0);
    EXPECT_LT(Length(Forces(Picture(kWind)).stems[0]), 2.0 * before);
    view.ZoomAt({200.0, 150.0}, 0.05);
    EXPECT_LT(Length(Forces(Picture(kWind)).stems[0]), 0.5 * before);
}

TEST_F(LoadPictureTest, PointsMomentsAwayFromTheirNodesWithTwoHeads) {
    Add<CClassPtld>(1, {.node = 5, .stld = kWind, .mx = 10.0});
    const LoadPicture picture = Picture(kWind);
    ASSERT_EQ(1u, Moments(picture).stems.size());
    EXPECT_NEAR(PlaceOf({0.0, 0.0, 4.0}).x, Moments(picture).stems[0].from.x, 1e-9);
    EXPECT_GT(Way(Moments(picture).stems[0]).x, 10.0);
    EXPECT_EQ(2u, Moments(picture).heads.size());
    EXPECT_TRUE(Forces(picture).stems.empty());
}

TEST_F(LoadPictureTest, MarksALoadThatIsLookedAlongWithADot) {
    Add<CClassPtld>(1, {.node = 5, .stld = kWind, .fy = 10.0});
    const LoadPicture picture = Picture(kWind);
    EXPECT_TRUE(Forces(picture).stems.empty());
    EXPECT_EQ(1u, Forces(picture).dots.size());
    EXPECT_THAT(Texts(kWind), ElementsAre("10"));
}

TEST_F(LoadPictureTest, StandsADistributedLoadOnItsBeam) {
    Add<CClassLnld>(1, LineLoad(-8.0, -8.0));
    const LoadPicture picture = Picture(kDead);
    ASSERT_EQ(1u, Forces(picture).areas.size());
    const LineStroke outline = Forces(picture).lines[0];
    EXPECT_NEAR(PlaceOf({0.0, 0.0, 4.0}).x, outline.from.x, 1e-9);
    EXPECT_NEAR(PlaceOf({8.0, 0.0, 4.0}).x, outline.to.x, 1e-9);
    EXPECT_LT(outline.from.y, PlaceOf({0.0, 0.0, 4.0}).y - 10.0) << "it lies over the beam and pushes down";
    EXPECT_EQ(outline.from.y, outline.to.y);
    EXPECT_GT(Forces(picture).heads.size(), 5u);
    const LoadShapes shapes = Forces(picture);
    for (const auto& head : shapes.heads) EXPECT_NEAR(PlaceOf({0.0, 0.0, 4.0}).y, head[0].y, 1e-9);
    EXPECT_THAT(Texts(kDead), ElementsAre("8"));
}

TEST_F(LoadPictureTest, RunsBetweenTheValuesOfADistributedLoad) {
    Add<CClassLnld>(1, LineLoad(0.0, -8.0, 0.25, 0.75));
    const LoadPicture picture = Picture(kDead);
    const LineStroke outline = Forces(picture).lines[0];
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
    EXPECT_EQ(3u, Forces(Picture(kDead)).areas.size());
    load.x = {0.0, 0.5, 0.0, 0.0};
    ASSERT_TRUE(Records<CClassLnld>().TR_Modify(1, 1, load));
    EXPECT_EQ(1u, Forces(Picture(kDead)).areas.size());
}

TEST_F(LoadPictureTest, HasAnArrowForEachConcentratedLoad) {
    T_LNLD_D load = LineLoad(-5.0, -10.0, 0.25, 0.5);
    load.type = LoadType::ConcentratedForces;
    Add<CClassLnld>(1, load);
    const LoadPicture picture = Picture(kDead);
    ASSERT_EQ(2u, Forces(picture).stems.size());
    EXPECT_NEAR(PlaceOf({4.0, 0.0, 4.0}).x, Forces(picture).stems[1].to.x, 1e-9);
    EXPECT_NEAR(PlaceOf({4.0, 0.0, 4.0}).y, Forces(picture).stems[1].to.y, 1e-9);
    EXPECT_TRUE(Forces(picture).areas.empty());
    EXPECT_THAT(Texts(kDead), UnorderedElementsAre("5", "10"));
}

TEST_F(LoadPictureTest, FollowsTheLocalAxesOfAMember) {
    AddColumnLoad(LoadType::UniformLoads, LoadDirection::LocalZ, 3.0);
    const LineStroke alongX = Forces(Picture(kWind)).lines[1];
    EXPECT_GT(Way(alongX).x, 10.0) << "local z of a column lies along X";
    T_MEMB_D column;
    ASSERT_TRUE(Records<CClassMemb>().Get(1, column));
    column.beta = Db().Units().ToCurrent(Unit::Angle, std::acos(-1.0));
    ASSERT_TRUE(Records<CClassMemb>().TR_Modify(1, 1, column));
    EXPECT_LT(Way(Forces(Picture(kWind)).lines[1]).x, -10.0) << "turned by half a turn";
}

TEST_F(LoadPictureTest, DrawsALoadAlongItsMemberOnIt) {
    AddColumnLoad(LoadType::UniformLoads, LoadDirection::LocalX, 3.0);
    const LoadPicture picture = Picture(kWind);
    EXPECT_TRUE(Forces(picture).areas.empty());
    ASSERT_FALSE(Forces(picture).lines.empty());
    const LoadShapes shapes = Forces(picture);
    for (const LineStroke& arrow : shapes.lines) {
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
    ASSERT_EQ(1u, Forces(picture).areas.size());
    EXPECT_NEAR(PlaceOf({0.0, 0.0, 4.0}).y, Forces(picture).areas[0][0].y, 1e-9);
    EXPECT_NEAR(PlaceOf({0.0, 7.0, 4.0}).y, Forces(picture).areas[0][1].y, 1e-9);
}

TEST_F(LoadPictureTest, DrawsAFewArrowsOverASlab) {
    AddSlabLoad(1.5, 2.5);
    view.Show(StandardView::Isometric);
    const LoadPicture picture = Picture(kLive);
    EXPECT_EQ(5u, Forces(picture).lines.size());
    const LoadShapes shapes = Forces(picture);
    for (const LineStroke& arrow : shapes.lines) EXPECT_GT(Way(arrow).y, 0.0) << "downward";
    EXPECT_THAT(Texts(kLive), ElementsAre("2.5"));
    view.ZoomAt({200.0, 150.0}, 0.1);
    EXPECT_EQ(1u, Forces(Picture(kLive)).lines.size());
}

TEST_F(LoadPictureTest, SlicesLoadsByTheirDepth) {
    Add<CClassPtld>(1, {.node = 5, .stld = kWind, .fx = 30.0});
    Add<CClassPtld>(2, {.node = 8, .stld = kWind, .fx = 30.0});
    const LoadPicture picture = Picture(kWind);
    EXPECT_EQ(1u, picture.Slices().front().forces.stems.size()) << "at the back";
    EXPECT_EQ(1u, picture.Slices().back().forces.stems.size()) << "at the front";
    EXPECT_EQ(0.0, picture.Slices().front().nearness);
    EXPECT_EQ(1.0, picture.Slices().back().nearness);
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

TEST_F(LoadPictureTest, MovesValuesIntoThePicture) {
    Add<CClassPtld>(1, {.node = 5, .stld = kWind, .fx = 123456.0});
    Picture(kWind);
    view.Pan({70.0 - PlaceOf({0.0, 0.0, 4.0}).x, 0.0});
    const std::vector<LoadLabel> labels = Labels(Picture(kWind));
    ASSERT_EQ(1u, labels.size());
    EXPECT_NEAR(6.0 * 6.0 / 2.0 + 4.0, labels[0].place.x, 1e-9) << "six digits, at the left edge";
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
    EXPECT_TRUE(Forces(Picture(kDead)).stems.empty());
    EXPECT_THAT(Texts(kDead), IsEmpty());
}

TEST_F(LoadPictureTest, DrawsNoLoadOfAMemberWithoutNodes) {
    AddTyped(30, 201, {});
    T_LNLD_D load = LineLoad(-8.0, -8.0);
    load.memb = 30;
    Add<CClassLnld>(1, load);
    EXPECT_TRUE(Forces(Picture(kDead)).lines.empty());
}

}  // namespace
}  // namespace zt
