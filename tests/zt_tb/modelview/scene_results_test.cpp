#include "zt_tb/modelview/scene_results.h"

#include <cmath>
#include <limits>

#include "zt_db/post/result_keeper.h"
#include "zt_db/post/result_seed.h"
#include "zt_db/records/load.h"
#include "zt_tb/modelview/bay_fixture.h"
#include "zt_tb/modelview/scene_picture.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zt {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class SceneResultsTest : public BayViewTest {
protected:
    /// Makes results of a text current.
    void Keep(const std::string& text) {
        const velda::Outcome outcome = doc->GetResults().Keep(
            "results", "test", 9, [&](ResultSink& sink) { return ReadResultSeed(text, Db(), sink); });
        ASSERT_TRUE(outcome) << outcome.Reason();
    }
    /// The frame under wind: all nodes of the top move by 0.02 m along X.
    void KeepSway() {
        AddNamed<CClassStld>(3, "WX");
        Keep(
            "case static 3\ndisplacement WX 5 0.02 0 0 0 0.01 0\ndisplacement WX 6 0.02 0 0 0 0 0\n"
            "displacement WX 7 0.02 0 0 0 0 0\ndisplacement WX 8 0.02 0 0 0 0 0\n");
    }
    DeformedShape Sway() { return DeformedShapeOf(*doc->GetPostCtrl(), {.key = 3}); }
    std::size_t StrokesOf(const PictureDetail& detail) {
        const SceneProjection projection = view.Projection();
        const ScenePicture picture(projection, detail);
        std::size_t count = 0;
        for (const PictureSlice& slice : picture.Slices()) {
            for (const auto& lines : slice.lines) count += lines.size();
        }
        return count;
    }
};

TEST_F(SceneResultsTest, ReadsDisplacementsInMetresWhateverTheUnits) {
    KeepSway();
    doc->GetUnitCtrl()->SetUnitIndexCurrent({.force = 3, .length = 1});
    const DeformedShape shape = Sway();
    EXPECT_EQ("WX", shape.title);
    ASSERT_THAT(shape.nodes, SizeIs(8));
    EXPECT_EQ(5u, shape.nodes[4].no);
    EXPECT_NEAR(0.02, shape.nodes[4].move.x, 1e-12);
    EXPECT_EQ(0.01, shape.nodes[4].turn.y);
    EXPECT_EQ(Vec3{}, shape.nodes[0].move);
}

TEST_F(SceneResultsTest, AnUnknownCaseHasNoShape) {
    EXPECT_THAT(DeformedShapeOf(*doc->GetPostCtrl(), {.key = 3}).nodes, IsEmpty());
    KeepSway();
    EXPECT_THAT(DeformedShapeOf(*doc->GetPostCtrl(), {.key = 4}).nodes, IsEmpty());
}

TEST_F(SceneResultsTest, TheShapeOfAnEnvelopeIsItsGreatestOrItsLeast) {
    Keep("case history 2 TH\ndisplacement TH max 5 0.01 0 0 0 0 0\ndisplacement TH min 5 -0.03 0 0 0 0 0\n");
    const auto moveOf = [&](std::int16_t subKind) {
        LoadChoice choice{.key = 2, .kind = LoadCaseKind::TimeHistory, .subKind = subKind};
        const DeformedShape shape = DeformedShapeOf(*doc->GetPostCtrl(), choice);
        return shape.nodes.size() == 8 ? shape.nodes[4].move.x : 99.0;
    };
    EXPECT_EQ(0.01, moveOf(LoadCaseSubKind::Max));
    EXPECT_EQ(-0.03, moveOf(LoadCaseSubKind::Min));
    EXPECT_EQ(-0.03, moveOf(LoadCaseSubKind::All));
}

TEST_F(SceneResultsTest, ReadingAShapeLeavesTheOpenedCombinationAlone) {
    KeepSway();
    CPostCtrl& post = *doc->GetPostCtrl();
    ASSERT_TRUE(post.SelectLoadComb(LoadCaseKind::Static, 3));
    EXPECT_THAT(DeformedShapeOf(post, {.key = 4}).nodes, IsEmpty());
    T_DISP_D displacement;
    ASSERT_TRUE(post.GetDisp(5, &displacement));
    EXPECT_EQ(0.02, displacement.value[0]);
}

TEST_F(SceneResultsTest, DisplacementsAreDrawnLargerByARoundNumber) {
    KeepSway();
    const Point2 before = view.Projection().At(4).Flat();
    view.ShowDeformed(Sway());
    // A twentieth of 8 m is 20 times 0.02 m.
    EXPECT_EQ(20.0, view.Deformation().Scale());
    EXPECT_EQ(0.02, view.Deformation().Greatest());
    const Point2 expected = PlaceOf({0.4, 0.0, 4.0});
    EXPECT_NEAR(expected.x, view.Projection().At(4).Flat().x, 1e-9);
    view.SetDeformationFactor(0.5);
    EXPECT_EQ(10.0, view.Deformation().Scale());
    EXPECT_EQ("WX, deformed × 10", view.DeformationText());
    view.SetDeformationFactor(-1.0);
    view.SetDeformationFactor(std::numeric_limits<double>::infinity());
    EXPECT_EQ(10.0, view.Deformation().Scale());
    view.ShowDeformed({});
    EXPECT_EQ(before, view.Projection().At(4).Flat());
    EXPECT_EQ("", view.DeformationText());
}

TEST_F(SceneResultsTest, TheScaleIsTheNearestRoundNumber) {
    // 0.4 m by these displacements: 150, 130, 3.1, 7.5.
    for (const auto& [move, scale] : {std::pair(0.4 / 150.0, 200.0), std::pair(0.4 / 130.0, 100.0),
                                      std::pair(0.4 / 3.1, 2.0), std::pair(0.4 / 7.5, 10.0)}) {
        view.ShowDeformed({.title = {}, .nodes = {{5, {0.0, -move, 0.0}, {}}}});
        EXPECT_DOUBLE_EQ(scale, view.Deformation().Scale()) << move;
    }
}

TEST_F(SceneResultsTest, AShapeThatMovesNothingIsDrawnAsTheModelStands) {
    const Point2 before = view.Projection().At(4).Flat();
    view.ShowDeformed({.title = "none", .nodes = {{.no = 5}, {.no = 77, .move = {1.0, 0.0, 0.0}}}});
    EXPECT_EQ(1.0, view.Deformation().Scale());
    EXPECT_EQ(before, view.Projection().At(4).Flat());
}

TEST_F(SceneResultsTest, MembersBendWithTheTurnsOfTheirNodes) {
    // Column 1 stands on node 1 and carries node 5.
    view.ShowDeformed({.title = {}, .nodes = {{5, {0.02, 0.0, 0.0}, {}}}});
    const SceneLine& column = *view.Scene().FindLine(1);
    const auto middle = [&] { return view.Deformation().PlaceOn(view.Scene(), column, 0.5); };
    EXPECT_NEAR(0.5 * 0.02 * 20.0, middle().x, 1e-12) << "both ends held against turns: an even double bend";
    EXPECT_NEAR(0.02 * 20.0 * 0.15625, view.Deformation().PlaceOn(view.Scene(), column, 0.25).x, 1e-12);
    // The top of a cantilever of 4 m under a load at its top: 1.5 u / h, and 5/16 of u at half of the height.
    view.ShowDeformed({.title = {}, .nodes = {{5, {0.02, 0.0, 0.0}, {0.0, 0.0075, 0.0}}}});
    EXPECT_NEAR(0.02 * 20.0 * 5.0 / 16.0, middle().x, 1e-12);
    // Along its axis it stretches evenly.
    view.ShowDeformed({.title = {}, .nodes = {{5, {0.0, 0.0, 0.02}, {}}}});
    EXPECT_NEAR(1.0 + 0.25 * 0.02 * 20.0, view.Deformation().PlaceOn(view.Scene(), column, 0.25).z, 1e-12);
}

TEST_F(SceneResultsTest, BentMembersAreDrawnInPieces) {
    EXPECT_EQ(8u, StrokesOf({}));
    KeepSway();
    view.ShowDeformed(Sway());
    EXPECT_EQ(8u * kCurvePieces, StrokesOf({}));
    EXPECT_EQ(8u, StrokesOf({.curves = false}));
}

TEST_F(SceneResultsTest, TheMouseTakesWhatIsSeen) {
    KeepSway();
    view.ShowDeformed(Sway());
    view.SetDeformationFactor(5.0);
    view.SelectAt(PlaceOf({2.0, 0.0, 4.0}), false);
    EXPECT_THAT(view.Selection().nodes, ElementsAre(5));
}

TEST_F(SceneResultsTest, ValuesHaveStepsFromTheLeastToTheGreatest) {
    view.ShowColours({.title = "N", .unit = "kN", .nodes = {{2, 45.0}}, .members = {{1, 0.0}, {2, 90.0}, {9, 30.0}}});
    const SceneColors& colors = view.Colors();
    EXPECT_EQ("N (kN)", colors.Title());
    EXPECT_THAT(colors.Limits(), SizeIs(kColorSteps + 1));
    EXPECT_EQ(0.0, colors.Limits().front());
    EXPECT_EQ(90.0, colors.Limits().back());
    const auto lineOf = [&](std::uint32_t key) {
        return static_cast<std::size_t>(view.Scene().FindLine(key) - view.Scene().Lines().data());
    };
    EXPECT_EQ(0, colors.StepOfLine(lineOf(1)));
    EXPECT_EQ(kColorSteps - 1, colors.StepOfLine(lineOf(2)));
    EXPECT_EQ(kNoColor, colors.StepOfLine(lineOf(3)));
    EXPECT_EQ(3, colors.StepOfFace(static_cast<std::size_t>(view.Scene().FindFace(9) - view.Scene().Faces().data())));
    EXPECT_EQ(4, colors.StepOfNode(1));
    EXPECT_EQ(kNoColor, colors.StepOfNode(0));
    const SceneProjection projection = view.Projection();
    const ScenePicture picture(projection, {.colors = &colors});
    EXPECT_THAT(picture.ColoredNodes()[4], SizeIs(1));
    EXPECT_THAT(picture.Nodes(), SizeIs(7));
}

TEST_F(SceneResultsTest, OneValueIsOneStepAndNoNumbersAreLeftOut) {
    view.ShowColours({.title = "N", .members = {{1, 5.0}, {2, std::numeric_limits<double>::quiet_NaN()}, {77, 5.0}}});
    EXPECT_THAT(view.Colors().Limits(), ElementsAre(5.0));
    EXPECT_EQ(kColorSteps - 1, view.Colors().StepOfLine(0));
    EXPECT_EQ(kNoColor, view.Colors().StepOfLine(1));
    view.ShowColours({.title = "N", .members = {{1, std::numeric_limits<double>::infinity()}}});
    EXPECT_THAT(view.Colors().Limits(), IsEmpty());
    view.ShowColours({});
    EXPECT_TRUE(view.Colors().IsEmpty());
}

TEST_F(SceneResultsTest, TextsOfValuesKeepTheirSign) {
    EXPECT_EQ("-1.235", ColorText(-1.23456));
    EXPECT_EQ("0", ColorText(-0.0));
    EXPECT_EQ("1200", ColorText(1200.0));
}

TEST_F(SceneResultsTest, WhatIsShownGoesWithTheResults) {
    KeepSway();
    view.ShowDeformed(Sway());
    view.ShowColours({.title = "N", .members = {{1, 5.0}}});
    const std::uint64_t revision = view.SceneRevision();
    ASSERT_TRUE(doc->GetResults().Discard());
    EXPECT_TRUE(view.Deformation().IsEmpty());
    EXPECT_TRUE(view.Colors().IsEmpty());
    EXPECT_NE(revision, view.SceneRevision());
}

TEST_F(SceneResultsTest, WhatIsShownStaysWhileCombinationsChange) {
    KeepSway();
    view.ShowDeformed(Sway());
    view.ShowColours({.title = "N", .members = {{1, 5.0}}});
    AddNamed<CClassLcom>(1, "C1");
    EXPECT_EQ(20.0, view.Deformation().Scale());
    EXPECT_FALSE(view.Colors().IsEmpty());
}

TEST_F(SceneResultsTest, AnotherDocumentIsDrawnWithoutThem) {
    KeepSway();
    view.ShowDeformed(Sway());
    view.SetDocument(nullptr);
    EXPECT_TRUE(view.Deformation().IsEmpty());
    view.ShowDeformed({.title = "late", .nodes = {{.no = 5}}});
    EXPECT_TRUE(view.Deformation().IsEmpty());
}

}  // namespace
}  // namespace zt
