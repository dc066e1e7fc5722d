#include <utility>

#include "zt_tb/modelview/bay_fixture.h"
#include "zt_tb/modelview/load_fixture.h"
#include "zt_tb/modelview/model_mouse.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zt {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

/// Counts the hints of a document.
class HintCounter final : public CDBUpdateConnector {
public:
    void OnUpdate(CDBUpdateConnector* sender, int code, T_UPDATE_HINT* /*hint*/) override {
        codes.push_back(code);
        lastSender = sender;
    }
    std::vector<int> codes;
    CDBUpdateConnector* lastSender = nullptr;
};

class ModelViewTest : public BayViewTest {
protected:
    ModelViewTest() {
        view.onChanged = [this] { ++pictures; };
        hints.ConnectToDoc(doc.get());
    }
    ~ModelViewTest() override { hints.DisconnectFromDoc(); }
    void Click(const Vec3& place, MouseKeys keys = {}) {
        mouse.Press(MouseButton::Left, keys, PlaceOf(place));
        mouse.Release(MouseButton::Left, PlaceOf(place));
    }
    void Drag(MouseButton button, Point2 from, Point2 to, MouseKeys keys = {}) {
        mouse.Press(button, keys, from);
        mouse.Move({0.5 * (from.x + to.x), 0.5 * (from.y + to.y)});
        mouse.Release(button, to);
    }

    ModelMouse mouse{view};
    HintCounter hints;
    int pictures = 0;
};

TEST_F(ModelViewTest, SelectsWhatIsClicked) {
    Click({4.0, 0.0, 4.0});
    EXPECT_TRUE(State().IsExistMemb(5));
    Click({8.0, 0.0, 4.0});
    EXPECT_FALSE(State().IsExistMemb(5));
    EXPECT_TRUE(State().IsExistPont(6));
}

TEST_F(ModelViewTest, PushesASelectionOnceAndUnderItsName) {
    Click({4.0, 0.0, 4.0});
    EXPECT_THAT(hints.codes, ElementsAre(HintCode::SelectionAdded));
    EXPECT_EQ(&view, hints.lastSender);
    EXPECT_EQ(1u, State().GetPushCount()) << "its own hint makes it push nothing";
    Click({4.0, 0.0, 4.0});
    EXPECT_EQ(1u, State().GetPushCount()) << "it is selected already";
}

TEST_F(ModelViewTest, ShowsASelectionOfOthersWithoutAnswering) {
    const int before = pictures;
    State().SelectMemb(nullptr, {1, 2});
    EXPECT_GT(pictures, before);
    EXPECT_THAT(view.Selection().members, ElementsAre(1, 2));
    EXPECT_EQ(1u, State().GetPushCount());
    EXPECT_EQ(1u, hints.codes.size());
}

TEST_F(ModelViewTest, AddsAndRemovesWithCtrl) {
    const MouseKeys ctrl{.control = true};
    Click({4.0, 0.0, 4.0});
    Click({8.0, 0.0, 4.0}, ctrl);
    EXPECT_THAT(view.Selection().members, ElementsAre(5));
    EXPECT_THAT(view.Selection().nodes, ElementsAre(6));
    Click({4.0, 0.0, 4.0}, ctrl);
    EXPECT_THAT(view.Selection().members, IsEmpty());
    EXPECT_THAT(view.Selection().nodes, ElementsAre(6));
    mouse.Press(MouseButton::Left, ctrl, {1.0, 1.0});
    mouse.Release(MouseButton::Left, {1.0, 1.0});
    EXPECT_THAT(view.Selection().nodes, ElementsAre(6)) << "beside the model nothing is added";
}

TEST_F(ModelViewTest, ClearsTheSelectionBesideTheModel) {
    Click({4.0, 0.0, 4.0});
    mouse.Press(MouseButton::Left, {}, {1.0, 1.0});
    mouse.Release(MouseButton::Left, {1.0, 1.0});
    EXPECT_TRUE(view.Selection().IsEmpty());
    const auto pushes = State().GetPushCount();
    view.ClearSelection();
    EXPECT_EQ(pushes, State().GetPushCount()) << "nothing is left to clear";
}

TEST_F(ModelViewTest, DrawsBandsThatTakeWhatIsInsideOrTouched) {
    view.Show(StandardView::FrontElevation);
    mouse.UseBands(true);
    const Point2 left = PlaceOf({6.0, 0.0, 5.0});
    const Point2 right = PlaceOf({9.0, 0.0, 2.0});
    Drag(MouseButton::Left, left, right);
    EXPECT_THAT(view.Selection().nodes, ElementsAre(6, 7));
    EXPECT_THAT(view.Selection().members, ElementsAre(6)) << "the beam along y";
    Drag(MouseButton::Left, right, left);
    EXPECT_THAT(view.Selection().members, UnorderedElementsAre(2, 3, 5, 6, 7, kSlab));
    EXPECT_FALSE(mouse.Band());
}

TEST_F(ModelViewTest, DrawsABandWithCtrlThatAddsAndThenRemoves) {
    view.Show(StandardView::FrontElevation);
    const Camera before = view.View();
    Click({4.0, 0.0, 4.0});
    const Point2 from = PlaceOf({6.0, 0.0, 5.0});
    const Point2 to = PlaceOf({9.0, 0.0, 2.0});
    Drag(MouseButton::Left, from, to, {.control = true});
    EXPECT_EQ(before, view.View());
    EXPECT_THAT(view.Selection().members, ElementsAre(5, 6));
    Drag(MouseButton::Left, from, to, {.control = true});
    EXPECT_THAT(view.Selection().members, ElementsAre(5));
    EXPECT_THAT(view.Selection().nodes, IsEmpty());
}

TEST_F(ModelViewTest, TellsTheBandWhileItIsDrawn) {
    mouse.UseBands(true);
    mouse.Press(MouseButton::Left, {}, {50.0, 60.0});
    EXPECT_FALSE(mouse.Band());
    mouse.Move({20.0, 90.0});
    ASSERT_TRUE(mouse.Band());
    EXPECT_EQ(BandRule::Touching, mouse.Band()->rule);
    EXPECT_EQ(20.0, mouse.Band()->rect.left);
    EXPECT_FALSE(mouse.IsMovingModel());
    EXPECT_TRUE(mouse.Cancel());
    EXPECT_FALSE(mouse.Band());
    mouse.Release(MouseButton::Left, {20.0, 90.0});
    EXPECT_EQ(0u, State().GetPushCount());
    EXPECT_FALSE(mouse.Cancel());
}

TEST_F(ModelViewTest, TurnsAndMovesTheModelByDragging) {
    const double azimuth = view.View().Azimuth();
    Drag(MouseButton::Left, {100.0, 100.0}, {160.0, 100.0});
    EXPECT_NE(azimuth, view.View().Azimuth());
    Drag(MouseButton::Middle, {160.0, 100.0}, {100.0, 100.0});
    EXPECT_NEAR(azimuth, view.View().Azimuth(), 1e-9);
    const auto expectPanned = [&](MouseButton button, MouseKeys keys) {
        const double before = view.View().Azimuth();
        const Point2 node = PlaceOf({8.0, 0.0, 4.0});
        Drag(button, {100.0, 100.0}, {130.0, 90.0}, keys);
        EXPECT_EQ(before, view.View().Azimuth());
        EXPECT_NEAR(node.x + 30.0, PlaceOf({8.0, 0.0, 4.0}).x, 1e-6);
    };
    expectPanned(MouseButton::Right, {});
    expectPanned(MouseButton::Left, {.shift = true});
    EXPECT_EQ(0u, State().GetPushCount()) << "a drag selects nothing";
}

TEST_F(ModelViewTest, TakesASmallMoveForAClick) {
    const Camera before = view.View();
    mouse.Press(MouseButton::Left, {}, PlaceOf({4.0, 0.0, 4.0}));
    mouse.Move(PlaceOf({4.0, 0.0, 4.0}) + Point2{2.0, 1.0});
    mouse.Release(MouseButton::Left, PlaceOf({4.0, 0.0, 4.0}) + Point2{2.0, 1.0});
    EXPECT_EQ(before, view.View());
    EXPECT_TRUE(State().IsExistMemb(5));
}

TEST_F(ModelViewTest, KeepsToTheFirstButton) {
    mouse.Press(MouseButton::Left, {}, {100.0, 100.0});
    mouse.Press(MouseButton::Right, {}, {100.0, 100.0});
    mouse.Release(MouseButton::Right, {100.0, 100.0});
    mouse.Move({150.0, 100.0});
    EXPECT_TRUE(mouse.IsMovingModel());
    mouse.Release(MouseButton::Left, {150.0, 100.0});
    EXPECT_FALSE(mouse.IsMovingModel());
    mouse.Release(MouseButton::Left, {150.0, 100.0});
    EXPECT_EQ(0u, State().GetPushCount()) << "a button that is not pressed cannot be let go";
}

TEST_F(ModelViewTest, ZoomsWithTheWheel) {
    const double scale = view.View().Scale();
    mouse.Wheel({200.0, 150.0}, 2.0);
    EXPECT_NEAR(1.44 * scale, view.View().Scale(), 1e-9);
    mouse.Wheel({200.0, 150.0}, -2.0);
    EXPECT_NEAR(scale, view.View().Scale(), 1e-9);
}

TEST_F(ModelViewTest, StaysWholeWhenThePaneGrowsUntilTheUserMovesIt) {
    const double scale = view.View().Scale();
    view.SetSize(800.0, 600.0);
    EXPECT_GT(view.View().Scale(), scale);
    view.ZoomAt({10.0, 10.0}, 0.5);
    const double chosen = view.View().Scale();
    view.SetSize(400.0, 300.0);
    EXPECT_EQ(chosen, view.View().Scale());
    view.Fit();
    EXPECT_NEAR(scale, view.View().Scale(), 1e-9);
}

TEST_F(ModelViewTest, FollowsChangesUndoAndRedoWithoutMovingTheCamera) {
    view.Pan({10.0, 0.0});
    const Camera before = view.View();
    MoveNode(2, 30.0);
    EXPECT_EQ(30.0, view.Scene().FindNode(2)->place.x);
    Db().Undo();
    EXPECT_EQ(8.0, view.Scene().FindNode(2)->place.x);
    Db().Redo();
    EXPECT_EQ(30.0, view.Scene().FindNode(2)->place.x);
    EXPECT_EQ(before, view.View());
}

TEST_F(ModelViewTest, FollowsEveryHintOfAChangedModel) {
    MoveNode(2, 30.0);
    for (const int code : {HintCode::Changed0, HintCode::Changed1, HintCode::Changed}) {
        const int before = pictures;
        T_UPDATE_HINT hint;
        doc->UpdateAllViews(nullptr, code, &hint);
        EXPECT_EQ(before + 1, pictures) << code;
        doc->UpdateAllViews(nullptr, code, nullptr);
        hint.dbIndex = 1;
        doc->UpdateAllViews(nullptr, code, &hint);
        EXPECT_EQ(before + 1, pictures) << "the model did not change";
    }
    EXPECT_EQ(30.0, view.Scene().FindNode(2)->place.x);
}

TEST_F(ModelViewTest, CountsWhatChangesTheSceneAndNothingElse) {
    const std::uint64_t before = view.SceneRevision();
    State().SelectMemb(nullptr, {1});
    view.Pan({10.0, 10.0});
    view.ResetHighlights();
    EXPECT_EQ(before, view.SceneRevision()) << "the picture of the building stays";
    MoveNode(2, 30.0);
    EXPECT_NE(before, view.SceneRevision());
}

TEST_F(ModelViewTest, DrawsNothingAnewWhenOnlyUnitsChange) {
    const int before = pictures;
    SetUnits(0, 1);
    EXPECT_EQ(before, pictures);
}

class ModelViewLoadsTest : public BayLoadTest {
protected:
    ModelViewLoadsTest() {
        view.onChanged = [this] { ++pictures; };
        view.onLoadCases = [this] { ++choices; };
    }

    int pictures = 0;
    int choices = 0;
};

TEST_F(ModelViewLoadsTest, DrawsTheBuildingAnewForOtherLoadsAndSupports) {
    const Camera before = view.View();
    std::uint64_t last = view.SceneRevision();
    const auto isNew = [&] { return view.SceneRevision() != std::exchange(last, view.SceneRevision()); };
    view.ShowLoads(kDead);
    EXPECT_TRUE(isNew());
    EXPECT_EQ(1, pictures);
    view.ShowLoads(kDead);
    EXPECT_FALSE(isNew());
    view.ShowSupports(false);
    EXPECT_TRUE(isNew());
    EXPECT_FALSE(view.ShowsSupports());
    view.ShowSupports(false);
    EXPECT_FALSE(isNew());
    Add<CClassLnld>(1, LineLoad(-8.0, -8.0));
    EXPECT_TRUE(isNew());
    EXPECT_EQ(1u, view.Loads().MemberLoads().size());
    EXPECT_EQ(before, view.View()) << "the camera stays";
}

TEST_F(ModelViewLoadsTest, DrawsValuesAnewInOtherUnits) {
    view.ShowLoads(kDead);
    const std::uint64_t before = view.SceneRevision();
    SetUnits(0, 1);
    EXPECT_NE(before, view.SceneRevision());
}

TEST_F(ModelViewLoadsTest, TellsOfLoadCasesThatComeGoAndTakeAnotherName) {
    ASSERT_EQ(3u, view.LoadCases().size());
    EXPECT_EQ("LL", view.LoadCases()[1].name);
    Add<CClassStld>(4, {.name = "EX", .type = "E"});
    EXPECT_EQ(1, choices);
    ASSERT_TRUE(Records<CClassStld>().TR_Modify(4, 4, {.name = "EY", .type = "E"}));
    EXPECT_EQ(2, choices);
    EXPECT_EQ("EY", view.LoadCases()[3].name);
    MoveNode(2, 30.0);
    EXPECT_EQ(2, choices) << "nothing else is told";
    ASSERT_EQ(1, Db().Undo());
    ASSERT_EQ(1, Db().Undo());
    EXPECT_EQ(3, choices);
}

TEST_F(ModelViewLoadsTest, KeepsItsLoadCaseAsLongAsItExists) {
    view.ShowLoads(kLive);
    ASSERT_TRUE(Records<CClassStld>().TR_Modify(kLive, kLive, {.name = "Office", .type = "L"}));
    EXPECT_EQ(kLive, view.Loads().LoadCase());
    EXPECT_EQ("Office", view.Loads().Name());
    ASSERT_TRUE(Records<CClassStld>().TR_Del(kLive));
    EXPECT_EQ(0u, view.Loads().LoadCase());
    view.ShowLoads(kDead);
    view.SetDocument(nullptr);
    EXPECT_EQ(0u, view.Loads().LoadCase());
    EXPECT_TRUE(view.LoadCases().empty());
    view.ShowLoads(kDead);
    EXPECT_EQ(0u, view.Loads().LoadCase());
}

TEST_F(ModelViewTest, DropsWhatIsDeletedFromTheSelection) {
    State().SelectMemb(nullptr, {1, 5});
    ASSERT_TRUE(Records<CClassMemb>().TR_Del(5));
    EXPECT_THAT(view.Selection().members, ElementsAre(1));
}

TEST_F(ModelViewTest, BringsTheFirstNodesOfANewModelIntoSight) {
    const auto empty = CDBDoc::New();
    view.SetDocument(empty.get());
    EXPECT_TRUE(view.Scene().IsEmpty());
    T_PONT_D node{.x = 5000.0, .y = 300.0};
    ASSERT_TRUE(empty->GetMDBCtrl()->GetCurrentDB()->GetClass<CClassPont>()->TR_Add(1, node));
    const Point2 place = PlaceOf({5000.0, 300.0, 0.0});
    EXPECT_NEAR(200.0, place.x, 1e-6);
    EXPECT_NEAR(150.0, place.y, 1e-6);
    view.SetDocument(nullptr);
}

TEST_F(ModelViewTest, HighlightsMembersAndNodesUntilTheyAreReset) {
    velda::I_ModelBase& model = view;
    const std::uint32_t keys[] = {1, 2};
    model.Highlight(keys, 4, 1);
    const std::uint32_t more[] = {2, 7};
    model.Highlight(more, 7, 1);
    model.Highlight(keys, ModelView::kNodeHighlights, 1);
    EXPECT_THAT(view.Highlights().members, ElementsAre(1, 2, 7));
    EXPECT_THAT(view.Highlights().nodes, ElementsAre(1, 2));
    model.Highlight(more, 4, 0);
    EXPECT_THAT(view.Highlights().members, ElementsAre(1));
    EXPECT_TRUE(view.Selection().IsEmpty()) << "a highlight is no selection";
    const int before = pictures;
    model.ResetHighlights();
    EXPECT_TRUE(view.Highlights().IsEmpty());
    model.Refresh();
    EXPECT_EQ(before + 2, pictures);
}

TEST_F(ModelViewTest, DoesNothingWithoutADocument) {
    view.SetDocument(nullptr);
    view.Fit();
    view.Orbit({10.0, 10.0});
    view.SelectAt({200.0, 150.0}, false);
    view.SelectIn({0.0, 0.0, 400.0, 300.0}, BandRule::Touching, true);
    view.ClearSelection();
    EXPECT_TRUE(view.Selection().IsEmpty());
    EXPECT_EQ(0u, State().GetPushCount());
}

}  // namespace
}  // namespace zt
