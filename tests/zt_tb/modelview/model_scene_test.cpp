#include "zt_tb/modelview/model_scene.h"

#include "zt_tb/modelview/bay_fixture.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zt {
namespace {

using ::testing::ElementsAre;

class ModelSceneTest : public BayTest {
protected:
    ModelSceneTest() { scene.Build(&Db()); }
    Vec3 PlaceOf(std::uint32_t node) { return scene.FindNode(node) ? scene.FindNode(node)->place : Vec3{-1, -1, -1}; }
    Vec3 StartOf(std::uint32_t member) { return scene.Nodes()[scene.FindLine(member)->start].place; }
    const SceneFace& FaceOf(std::uint32_t member) { return *scene.FindFace(member); }
    /// What the scene holds after a step is what a scene that is made anew holds.
    void ExpectAsBuiltAnew() {
        ModelScene fresh;
        fresh.Build(&Db());
        EXPECT_EQ(fresh.MemberCount(), scene.MemberCount());
        EXPECT_EQ(fresh.Bounds().low, scene.Bounds().low);
        EXPECT_EQ(fresh.Bounds().high, scene.Bounds().high);
        EXPECT_EQ(fresh.Supports().size(), scene.Supports().size());
        EXPECT_EQ(fresh.Levels().size(), scene.Levels().size());
        for (const SceneNode& node : fresh.Nodes()) EXPECT_EQ(node.place, PlaceOf(node.key)) << node.key;
        for (const SceneLine& line : fresh.Lines()) {
            const SceneLine* ours = scene.FindLine(line.key);
            ASSERT_NE(nullptr, ours) << line.key;
            EXPECT_EQ(line.kind, ours->kind);
            EXPECT_EQ(fresh.Nodes()[line.start].key, scene.Nodes()[ours->start].key);
            EXPECT_EQ(fresh.Nodes()[line.end].key, scene.Nodes()[ours->end].key);
        }
        for (const SceneFace& face : fresh.Faces()) {
            const SceneFace* ours = scene.FindFace(face.key);
            ASSERT_NE(nullptr, ours) << face.key;
            EXPECT_EQ(face.corners.size(), ours->corners.size());
            EXPECT_EQ(face.holes.size(), ours->holes.size());
        }
    }

    ModelScene scene;
};

TEST_F(ModelSceneTest, TellsLinesFromFacesAndTheirKinds) {
    EXPECT_EQ(8u, scene.Nodes().size());
    EXPECT_EQ(10u, scene.MemberCount());
    EXPECT_EQ(DrawnKind::Column, scene.FindLine(1)->kind);
    EXPECT_EQ(DrawnKind::Beam, scene.FindLine(5)->kind);
    EXPECT_EQ(DrawnKind::Slab, FaceOf(kSlab).kind);
    EXPECT_EQ(DrawnKind::Wall, FaceOf(kWall).kind);
    EXPECT_EQ(nullptr, scene.FindLine(kSlab));
    EXPECT_EQ(nullptr, scene.FindNode(99));
}

TEST_F(ModelSceneTest, StandsNodesOnTheirStories) {
    EXPECT_EQ((Vec3{8.0, 7.0, 4.0}), PlaceOf(7));
    EXPECT_EQ((Vec3{8.0, 7.0, 4.0}), scene.Bounds().high);
    ASSERT_EQ(2u, scene.Levels().size());
    EXPECT_EQ("Base", scene.Levels()[0].names);
    EXPECT_EQ(4.0, scene.Levels()[1].height);
}

TEST_F(ModelSceneTest, DoesNotDependOnTheUnits) {
    SetUnits(0, 1);
    scene.Build(&Db());
    EXPECT_EQ((Vec3{8.0, 7.0, 4.0}), PlaceOf(7));
    EXPECT_EQ(4.0, scene.Levels()[1].height);
}

TEST_F(ModelSceneTest, NamesStoriesOfOneLevelTogether) {
    AddStory(3, "Annex 1F", 1, 4.0);
    scene.Update(Db());
    ASSERT_EQ(2u, scene.Levels().size());
    EXPECT_EQ("1F / Annex 1F", scene.Levels()[1].names);
}

TEST_F(ModelSceneTest, MovesMembersWithTheirNodes) {
    MoveNode(1, -2.0);
    scene.Update(Db());
    EXPECT_EQ((Vec3{-2.0, 0.0, 0.0}), StartOf(1));
    EXPECT_EQ(-2.0, scene.Bounds().low.x);
    ExpectAsBuiltAnew();
}

TEST_F(ModelSceneTest, MovesNodesWithTheirStories) {
    T_STOR_D story;
    ASSERT_TRUE(Records<CClassStor>().Get(kTop, story));
    story.level = 5.0;
    ASSERT_TRUE(Records<CClassStor>().TR_Modify(kTop, kTop, story));
    scene.Update(Db());
    EXPECT_EQ(5.0, PlaceOf(7).z);
    ExpectAsBuiltAnew();
}

TEST_F(ModelSceneTest, FollowsADeletedNodeWithItsMembersAndTheirReturn) {
    ASSERT_TRUE(Records<CClassPont>().TR_Del(1));
    scene.Update(Db());
    EXPECT_EQ(nullptr, scene.FindNode(1));
    EXPECT_EQ(nullptr, scene.FindLine(1));
    EXPECT_EQ(nullptr, scene.FindFace(kWall));
    ExpectAsBuiltAnew();
    AddPlace(30, 20.0, 0.0, kBase);
    scene.Update(Db());
    ExpectAsBuiltAnew();
    for (int step = 0; step < 2; ++step) {
        ASSERT_EQ(1, Db().Undo());
        scene.Update(Db());
    }
    EXPECT_NE(nullptr, scene.FindFace(kWall));
    ExpectAsBuiltAnew();
}

TEST_F(ModelSceneTest, FollowsANodeThatTakesAnotherKey) {
    T_PONT_D node;
    ASSERT_TRUE(Records<CClassPont>().Get(7, node));
    ASSERT_TRUE(Records<CClassPont>().TR_Modify(7, 70, node));
    scene.Update(Db());
    EXPECT_EQ(nullptr, scene.FindNode(7));
    EXPECT_EQ((Vec3{8.0, 7.0, 4.0}), PlaceOf(70));
    ExpectAsBuiltAnew();
}

TEST_F(ModelSceneTest, FollowsAMemberThatBecomesAFace) {
    T_MEMB_D member;
    ASSERT_TRUE(Records<CClassMemb>().Get(5, member));
    member.type = MembType::Slab;
    member.nodes = {5, 6, 2};
    ASSERT_TRUE(Records<CClassMemb>().TR_Modify(5, 5, member));
    scene.Update(Db());
    EXPECT_EQ(nullptr, scene.FindLine(5));
    EXPECT_EQ(3u, FaceOf(5).corners.size());
    ExpectAsBuiltAnew();
}

TEST_F(ModelSceneTest, CutsAnOpeningOutOfTheSlabThatItLiesIn) {
    AddOpening();
    scene.Build(&Db());
    ASSERT_EQ(1u, FaceOf(kSlab).holes.size());
    EXPECT_EQ(kOpening, scene.Faces()[FaceOf(kSlab).holes[0]].key);
    EXPECT_TRUE(FaceOf(kWall).holes.empty());
    MoveNode(21, 30.0);
    scene.Update(Db());
    EXPECT_TRUE(FaceOf(kSlab).holes.empty()) << "it reaches beyond the slab";
}

TEST_F(ModelSceneTest, CutsNoOpeningThatLiesBesideThePlaneOfASlab) {
    AddOpening(1.0);
    scene.Build(&Db());
    EXPECT_TRUE(FaceOf(kSlab).holes.empty());
}

TEST_F(ModelSceneTest, TellsHowASupportHoldsEachWay) {
    T_SPTS_D support{.flags = "110000"};
    support.value[0] = 500.0;
    support.value[2] = 1000.0;
    Add<CClassSpts>(3, support);
    Add<CClassSpts>(1, {.flags = "1"});
    scene.Update(Db());
    ASSERT_EQ(2u, scene.Supports().size());
    EXPECT_EQ(1u, scene.Nodes()[scene.Supports()[0].node].key);
    EXPECT_THAT(scene.Supports()[0].ways,
                ElementsAre(Hold::Held, Hold::Free, Hold::Free, Hold::Free, Hold::Free, Hold::Free));
    EXPECT_THAT(scene.Supports()[1].ways,
                ElementsAre(Hold::Held, Hold::Held, Hold::Spring, Hold::Free, Hold::Free, Hold::Free))
        << "a way that is held needs no spring";
}

TEST_F(ModelSceneTest, MeasuresTheUsualLengthOfItsMembers) {
    EXPECT_DOUBLE_EQ((4 * 4.0 + 2 * 8.0 + 2 * 7.0) / 8.0, scene.UsualLength());
    for (std::uint32_t member = 5; member <= 8; ++member) {
        ASSERT_TRUE(Records<CClassMemb>().TR_Del(member));
        scene.Update(Db());
    }
    ModelScene fresh;
    fresh.Build(&Db());
    EXPECT_DOUBLE_EQ(fresh.UsualLength(), scene.UsualLength());
    EXPECT_DOUBLE_EQ(4.0, fresh.UsualLength());
}

TEST_F(ModelSceneTest, FollowsASupportThatComesAndGoes) {
    Add<CClassSpts>(1, {.flags = "111111"});
    scene.Update(Db());
    EXPECT_EQ(1u, scene.Supports().size());
    ASSERT_TRUE(Records<CClassSpts>().TR_Del(1));
    scene.Update(Db());
    EXPECT_TRUE(scene.Supports().empty());
}

TEST_F(ModelSceneTest, IsEmptyWithoutAModel) {
    scene.Build(nullptr);
    EXPECT_TRUE(scene.IsEmpty());
    EXPECT_TRUE(scene.Bounds().IsEmpty());
    EXPECT_TRUE(scene.Levels().empty());
}

}  // namespace
}  // namespace zt
