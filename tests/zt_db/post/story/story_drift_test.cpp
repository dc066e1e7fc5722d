#include "zt_db/post/story/story_fixture.h"

namespace zt {
namespace {

constexpr int kStatic = LoadCaseKind::Static;

class StoryDrifts : public StoryTest {
protected:
    StoryDrifts() {
        BuildModel();
        BeginResults();
    }
    /// The frame at y = 0 moves by `near` mm a story along X, that at y = 8 by `far`.
    void MoveFrames(double near, double far) {
        PutCase(kSeismic, [=](int s, int p) { return Plane{1.0e-3 * s * (p > 3 ? far : near), 0.0}; });
        UseResults();
    }
    T_STTIC_PART TorsionOf(double near, double far) {
        BeginResults();
        MoveFrames(near, far);
        const CPostCtrl control = Control();
        std::vector<T_STTIC_D> records;
        EXPECT_TRUE(CStoryResultPost(control).GetTIC(kStatic, kSeismic, records));
        return records[0].part[0];
    }
};

TEST_F(StoryDrifts, RecordsStandFromTheTopWithTheGroundLeftOut) {
    MoveFrames(1.0, 1.0);
    const CPostCtrl control = Control();
    std::vector<T_STDSP_D> records;
    ASSERT_TRUE(CStoryResultPost(control).GetDSP(kStatic, kSeismic, records));
    ASSERT_EQ(records.size(), 3u);
    EXPECT_EQ(records[0].head.seq, 1u);
    EXPECT_EQ(records[0].head.story, KeyOfStory(3));
    EXPECT_EQ(records[0].head.mdul, 1u);
    EXPECT_DOUBLE_EQ(records[0].head.level, 9.0);
    EXPECT_DOUBLE_EQ(records[2].head.level, 3.0);
    EXPECT_DOUBLE_EQ(records[2].head.height, 3.0);
    EXPECT_EQ(records[2].head.seq, 3u);
}

TEST_F(StoryDrifts, DisplacementHasItsGreatestAndTheMeanOfTheExtremePoints) {
    // At the top the frames move by 3 and 9 mm along X: the mean is 6. Along Y all move by 8 mm at place 6 only, which
    // is one of two nodes of the edge x = 12: (0 + 4) / 2 = 2.
    PutCase(kSeismic, [](int s, int p) {
        return Plane{1.0e-3 * s * (p > 3 ? 3.0 : 1.0), s == 3 && p == 6 ? -8.0e-3 : 0.0};
    });
    UseResults();
    const CPostCtrl control = Control();
    std::vector<T_STDSP_D> records;
    ASSERT_TRUE(CStoryResultPost(control).GetDSP(kStatic, kSeismic, records));
    const auto& part = records[At(3)].part;
    EXPECT_DOUBLE_EQ(part[0].maximum, 0.009);
    EXPECT_DOUBLE_EQ(part[0].average, 0.006);
    EXPECT_EQ(part[0].node, No(3, 4));
    EXPECT_DOUBLE_EQ(part[1].maximum, -0.008);
    EXPECT_DOUBLE_EQ(part[1].average, -0.002);
    EXPECT_EQ(part[1].node, No(3, 6));
    EXPECT_DOUBLE_EQ(part[2].maximum, std::hypot(0.009, 0.008));
    EXPECT_EQ(part[2].node, No(3, 6));
    EXPECT_DOUBLE_EQ(part[2].average, std::hypot(0.006, 0.002));
}

TEST_F(StoryDrifts, DriftIsThatOfALineAndOfTheCentreOfMass) {
    // Drift a story: 1 mm at y = 0, 3 mm at y = 8. All mass lies at y = 0, so that its centre drifts by 1 mm.
    for (int s = 1; s <= stories; ++s) Add<CClassPmas>(No(s, 2), {.mx = 10.0, .my = 10.0});
    Add<CClassRstp>(1, {.amplification = 5.0, .importance = 1.25, .allowableRatio = 0.02});
    MoveFrames(1.0, 3.0);
    const CPostCtrl control = Control();
    const CStoryResultPost service(control);
    std::vector<T_STDFT_D> records;
    ASSERT_TRUE(service.GetDFT(kStatic, kSeismic, records));
    for (const T_STDFT_D& record : records) {
        const T_STDFT_PART& part = record.part[0];
        EXPECT_EQ(part.inUse, 1);
        EXPECT_NEAR(part.maximum.drift, 0.003, 1e-15);
        EXPECT_NEAR(part.maximum.angle, 0.001, 1e-15);
        EXPECT_NEAR(part.maximum.modified, 0.012, 1e-15);  // 5 / 1.25 of 3 mm
        EXPECT_NEAR(part.maximum.ratio, 0.004, 1e-15);
        EXPECT_DOUBLE_EQ(part.maximum.pDelta, 1.0);
        EXPECT_NEAR(part.center.drift, 0.001, 1e-15);
        EXPECT_EQ(part.center.node, 0u);
        EXPECT_EQ(record.type, 0);
        EXPECT_EQ(record.head.direction, 0);
    }
    EXPECT_EQ(records[At(2)].part[0].maximum.node, No(2, 4));
    EXPECT_DOUBLE_EQ(service.GetAllowDrftRatio(), 0.02);
}

TEST_F(StoryDrifts, RecordsAreInTheCurrentUnits) {
    MoveFrames(1.0, 1.0);
    SetUnits(3, CUnitCtrl::FindChoice(UnitQuantity::Length, "mm"));
    const CPostCtrl control = Control();
    std::vector<T_STDFT_D> records;
    ASSERT_TRUE(CStoryResultPost(control).GetDFT(kStatic, kSeismic, records));
    EXPECT_NEAR(records[0].part[0].maximum.drift, 1.0, 1e-12);
    EXPECT_NEAR(records[0].part[0].maximum.angle, 1.0 / 3000.0, 1e-15);
    EXPECT_NEAR(records[0].head.height, 3000.0, 1e-9);
}

TEST_F(StoryDrifts, TorsionIsIrregularBeyondItsLimit) {
    // Frames that move by a and b have the ratio b / ((a + b) / 2): 1.2 for 2 and 3, 1.4 for 3 and 7.
    EXPECT_EQ(TorsionOf(2.0, 3.0).status, StoryStatus::Regular);
    EXPECT_NEAR(TorsionOf(2.0, 3.0).driftRatio, 1.2, 1e-12);
    EXPECT_EQ(TorsionOf(1.999, 3.0).status, StoryStatus::Irregular);
    EXPECT_EQ(TorsionOf(3.0, 7.0).status, StoryStatus::Irregular);
    EXPECT_EQ(TorsionOf(3.0, 7.0).status2, StoryStatus::Irregular);
    EXPECT_EQ(TorsionOf(2.999, 7.0).status2, StoryStatus::TorsionExtreme);
    EXPECT_EQ(TorsionOf(2.0, 3.0).status2, StoryStatus::Regular);
    EXPECT_EQ(TorsionOf(-2.0, -3.0).status, StoryStatus::Regular);
}

TEST_F(StoryDrifts, TorsionalAmplificationIsThatOfDisplacements) {
    MoveFrames(1.0, 9.0);  // mean 5, greatest 9: (9 / 6)^2
    const CPostCtrl control = Control();
    std::vector<T_STTAF_D> records;
    ASSERT_TRUE(CStoryResultPost(control).GetTAF(kStatic, kSeismic, records));
    EXPECT_NEAR(records[At(1)].part[0].factor, 2.25, 1e-12);
    EXPECT_NEAR(records[At(1)].part[0].average, 0.005, 1e-15);
    EXPECT_EQ(records[At(1)].part[0].node, No(1, 4));
    EXPECT_DOUBLE_EQ(records[At(1)].part[1].factor, 1.0);
}

TEST_F(StoryDrifts, AStoryWithoutLinesIsNotChecked) {
    // The nodes of the second floor stand half a metre off in the plan, so that only the first story has lines.
    for (int p = 1; p <= kPlaces; ++p) {
        T_PONT_D node;
        Records<CClassPont>().Get(No(2, p), node);
        node.x += 0.5;
        ASSERT_TRUE(Records<CClassPont>().TR_Modify(No(2, p), No(2, p), node)) << Db().GetLastReason();
    }
    MoveFrames(1.0, 2.0);
    const CPostCtrl control = Control();
    std::vector<T_STDFT_D> drifts;
    std::vector<T_STTIC_D> torsion;
    ASSERT_TRUE(CStoryResultPost(control).GetDFT(kStatic, kSeismic, drifts));
    ASSERT_TRUE(CStoryResultPost(control).GetTIC(kStatic, kSeismic, torsion));
    EXPECT_EQ(drifts.size(), 3u);
    EXPECT_EQ(drifts[At(2)].part[0].inUse, 0);
    EXPECT_EQ(drifts[At(3)].part[0].inUse, 0);
    EXPECT_EQ(drifts[At(1)].part[0].inUse, 1);
    EXPECT_EQ(torsion[At(2)].part[0].status, StoryStatus::NotChecked);
    EXPECT_EQ(torsion[At(2)].part[0].status2, StoryStatus::TorsionPairUnknown);
    EXPECT_DOUBLE_EQ(torsion[At(2)].part[0].displacement, 0.004) << "displacements need no lines";
}

TEST_F(StoryDrifts, NodesNearerThanTheToleranceMakeALine) {
    T_PONT_D node;
    Records<CClassPont>().Get(No(2, 1), node);
    node.x += 0.0009;
    node.z -= 0.0009;
    ASSERT_TRUE(Records<CClassPont>().TR_Modify(No(2, 1), No(2, 1), node));
    PutCase(kSeismic, [](int s, int p) { return Plane{p == 1 ? 0.001 * s : 0.0, 0.0}; });
    UseResults();
    const CPostCtrl control = Control();
    std::vector<T_STDFT_D> records;
    ASSERT_TRUE(CStoryResultPost(control).GetDFT(kStatic, kSeismic, records));
    EXPECT_EQ(records[At(2)].part[0].maximum.node, No(2, 1));
}

TEST_F(StoryDrifts, CombinationsOfStaticCasesAddUp) {
    MoveFrames(1.0, 1.0);
    PutCase(kGravityCase, [](int s, int) { return Plane{-0.0005 * s, 0.002 * s}; });
    Add<CClassLcom>(1, {.name = "C", .items = {{kStatic, kSeismic, 2.0}, {kStatic, kGravityCase, 1.0}}});
    const CPostCtrl control = Control();
    std::vector<T_STDFT_D> records;
    ASSERT_TRUE(CStoryResultPost(control).GetDFT(LoadCaseKind::Combination, 1, records));
    EXPECT_NEAR(records[At(2)].part[0].maximum.drift, 0.0015, 1e-15);  // 2 * 1 - 0.5
    EXPECT_NEAR(records[At(2)].part[1].maximum.drift, 0.002, 1e-15);
    EXPECT_EQ(records[At(2)].head.direction, 1);
}

TEST_F(StoryDrifts, NothingComesOfWhatIsNotThere) {
    std::vector<T_STDFT_D> records(4);
    const CPostCtrl control = Control();
    const CStoryResultPost service(control);
    EXPECT_FALSE(service.GetDFT(kStatic, kSeismic, records)) << "no results";
    EXPECT_TRUE(records.empty());
    MoveFrames(1.0, 1.0);
    records.resize(4);
    EXPECT_FALSE(service.GetDFT(kStatic, 77, records)) << "no such case";
    EXPECT_TRUE(records.empty());
    EXPECT_FALSE(service.GetDFT(LoadCaseKind::Pushover, kSeismic, records));
    PutResultCase({LoadCaseKind::Pushover, 1, "P", ""});
    EXPECT_FALSE(service.GetDFT(LoadCaseKind::Pushover, 1, records)) << "a kind whose states are not known";
    std::vector<T_SSIT_D> stiffness(2);
    EXPECT_FALSE(control.GetTRST(kStatic, kSeismic, stiffness));
    EXPECT_TRUE(stiffness.empty());
}

TEST_F(StoryDrifts, AModelWithoutStoriesHasNoRecords) {
    Use(CDBDoc::New());
    results = std::make_shared<MemoryResults>();
    PutResultCase({kStatic, 1, "E", "E"});
    UseResults();
    const CPostCtrl control = Control();
    std::vector<T_STDSP_D> records;
    std::vector<T_STSMS_D> masses;
    EXPECT_FALSE(CStoryResultPost(control).GetDSP(kStatic, 1, records));
    EXPECT_FALSE(CStoryResultPost(control).GetSMS(kStatic, 1, masses));
}

}  // namespace
}  // namespace zt
