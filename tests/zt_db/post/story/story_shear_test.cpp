#include "zt_db/post/story/story_fixture.h"

namespace zt {
namespace {

constexpr int kStatic = LoadCaseKind::Static;

class StoryShears : public StoryTest {
protected:
    StoryShears() {
        BuildModel();
        BeginResults();
    }
    /// Each column of story s carries `shears[s - 1]` N along X; each story drifts by `drifts[s - 1]` m.
    void PutBuilding(std::array<double, 3> shears, std::array<double, 3> drifts) {
        PutCase(kSeismic, [=](int s, int) {
            double sum = 0.0;
            for (int i = 0; i < s; ++i) sum += drifts[static_cast<std::size_t>(i)];
            return Plane{sum, 0.0};
        });
        PutForces(kSeismic, [=](int s, int) { return std::array{0.0, shears[static_cast<std::size_t>(s - 1)], 0.0}; });
        UseResults();
    }
    /// Columns carry 100 kN of pressure for each story above them.
    void PutGravity() {
        PutCase(kGravityCase, [](int, int) { return Plane{}; });
        PutForces(kGravityCase, [](int s, int) { return std::array{-1.0e5 * (4 - s), 0.0, 0.0}; });
        UseResults();
        Add<CClassRstp>(1, {.amplification = 4.0,
                            .importance = 1.0,
                            .verticalLoads = {{kStatic, kGravityCase, 1.0}},
                            .betas = {{KeyOfStory(1), 0.5}}});
    }
    T_STSIC_BLOCK StiffnessOf(std::array<double, 3> stiffness, int story) {
        // A drift of 1 mm everywhere: the shear tells the stiffness.
        BeginResults();
        for (double& value : stiffness) value *= 1.0e-3 / kPlaces;
        PutBuilding(stiffness, {1.0e-3, 1.0e-3, 1.0e-3});
        const CPostCtrl control = Control();
        std::vector<T_STSIC_D> records;
        EXPECT_TRUE(CStoryResultPost(control).GetSIC(kStatic, kSeismic, records));
        return records[At(story)].part[0].method[DriftMethod::Maximum];
    }
};

TEST_F(StoryShears, ShearIsTheSumOfTheColumnsThatAStoryCuts) {
    PutBuilding({3000.0, 2000.0, 1000.0}, {1e-3, 1e-3, 1e-3});
    const CPostCtrl control = Control();
    std::vector<T_STSFR_D> records;
    ASSERT_TRUE(CStoryResultPost(control).GetSFR(kStatic, kSeismic, records));
    for (int s = 1; s <= 3; ++s) {
        const T_STSFR_PART& part = records[At(s)].part[0];
        EXPECT_NEAR(part.sum, 6.0 * (4 - s), 1e-9);  // kN
        EXPECT_NEAR(part.frame, part.sum, 1e-9);
        EXPECT_NEAR(part.frameRatio, 1.0, 1e-12);
        EXPECT_DOUBLE_EQ(part.brace, 0.0);
        EXPECT_DOUBLE_EQ(part.wall, 0.0);
        EXPECT_EQ(part.status, ShearStatus::WithShares);
        EXPECT_NEAR(records[At(s)].part[1].sum, 0.0, 1e-9);
    }
}

TEST_F(StoryShears, BracesCarryTheirShareAndSensesOfMembersDoNotMatter) {
    // A column turned upside down, and one that is a brace.
    T_MEMB_D turned;
    Records<CClassMemb>().Get(No(1, 1), turned);
    std::swap(turned.nodes[0], turned.nodes[1]);
    ASSERT_TRUE(Records<CClassMemb>().TR_Modify(No(1, 1), No(1, 1), turned));
    T_MEMB_D brace;
    Records<CClassMemb>().Get(No(1, 2), brace);
    brace.type = MembType::Brace;
    ASSERT_TRUE(Records<CClassMemb>().TR_Modify(No(1, 2), No(1, 2), brace));
    PutBuilding({3000.0, 2000.0, 1000.0}, {1e-3, 1e-3, 1e-3});
    std::vector<std::uint32_t> ends = results->Keys(ResultName::ElementEnds);
    std::swap(ends[0], ends[1]);
    PutKeys(ResultName::ElementEnds, ends);
    PutForces(kSeismic, [](int s, int p) {
        // Beyond a section of the turned column lies what is below it; its local z points along X as before.
        return std::array{0.0, (s == 1 && p == 1 ? -1.0 : 1.0) * 1000.0 * (4 - s), 0.0};
    });
    UseResults();
    const CPostCtrl control = Control();
    std::vector<T_STSFR_D> records;
    ASSERT_TRUE(CStoryResultPost(control).GetSFR(kStatic, kSeismic, records));
    EXPECT_NEAR(records[At(1)].part[0].sum, 18.0, 1e-9);
    EXPECT_NEAR(records[At(1)].part[0].frame, 15.0, 1e-9);
    EXPECT_NEAR(records[At(1)].part[0].brace, 3.0, 1e-9);
    EXPECT_NEAR(records[At(1)].part[0].braceRatio, 1.0 / 6.0, 1e-12);
}

TEST_F(StoryShears, FrameOfADualSystemCarriesALeastShare) {
    // Braces take two of six columns of the lowest story and one of the second: frame shears 12, 10, 6 kN, base 18.
    for (const std::uint32_t no : {No(1, 1), No(1, 2), No(2, 1)}) {
        T_MEMB_D brace;
        Records<CClassMemb>().Get(no, brace);
        brace.type = MembType::Brace;
        ASSERT_TRUE(Records<CClassMemb>().TR_Modify(no, no, brace));
    }
    PutBuilding({3000.0, 2000.0, 1000.0}, {1e-3, 1e-3, 1e-3});
    const CPostCtrl control = Control();
    std::vector<T_ST02Q_D> records;
    ASSERT_TRUE(CStoryResultPost(control).Get02Q0(kStatic, kSeismic, records));
    const T_ST02Q_PART& lowest = records[At(1)].part[0];
    EXPECT_EQ(lowest.isAbsent, 0);
    EXPECT_NEAR(lowest.frame, 12.0, 1e-9);
    EXPECT_NEAR(lowest.shareOfBase, 3.6, 1e-9);
    EXPECT_NEAR(lowest.shareOfMost, 18.0, 1e-9);  // 1.5 * 12
    EXPECT_NEAR(lowest.least, 3.6, 1e-9);
    EXPECT_EQ(lowest.status, StoryStatus::Regular);
    EXPECT_EQ(records[At(3)].part[0].status, StoryStatus::Open) << "no second system in this story";
    ASSERT_TRUE(CStoryResultPost(control).Get02Q0(kStatic, kSeismic, records, {.ofBase = 0.7, .ofMost = 1.8}));
    EXPECT_NEAR(records[At(2)].part[0].least, 12.6, 1e-9);
    EXPECT_EQ(records[At(2)].part[0].status, StoryStatus::Irregular);
}

TEST_F(StoryShears, SoftStoriesAreThoseBelowTheirLimits) {
    // The story above has 100, the one below it its share.
    EXPECT_EQ(StiffnessOf({70.0e6, 100.0e6, 100.0e6}, 1).status, StoryStatus::Regular);
    EXPECT_EQ(StiffnessOf({69.9e6, 100.0e6, 100.0e6}, 1).status, StoryStatus::Irregular);
    EXPECT_EQ(StiffnessOf({60.0e6, 100.0e6, 100.0e6}, 1).isExtreme, 0);
    EXPECT_EQ(StiffnessOf({59.9e6, 100.0e6, 100.0e6}, 1).isExtreme, 1);
    const T_STSIC_BLOCK block = StiffnessOf({80.0e6, 100.0e6, 50.0e6}, 1);
    EXPECT_NEAR(block.stiffness, 80.0e3, 1e-6);  // kN/m
    EXPECT_NEAR(block.upper07, 70.0e3, 1e-6);
    EXPECT_NEAR(block.ratio, 0.8, 1e-12);
    EXPECT_NEAR(block.drift, 0.001, 1e-15);
    EXPECT_EQ(block.hasNoUpper, 0);
    EXPECT_EQ(block.hasNoUpperThree, 1);
    const T_STSIC_BLOCK top = StiffnessOf({80.0e6, 100.0e6, 50.0e6}, 3);
    EXPECT_EQ(top.status, StoryStatus::NotCompared);
    EXPECT_EQ(top.hasNoUpper, 1);
    EXPECT_EQ(top.hasNoStiffness, 0);
}

TEST_F(StoryShears, DriftAnglesAreComparedWithThoseAbove) {
    // Angles 1.3 and 1.0 of 1/1000: exactly at the limit; then beyond it.
    for (const auto& [drift, status] : {std::pair{3.9e-3, StoryStatus::Regular}, {3.901e-3, StoryStatus::Irregular}}) {
        BeginResults();
        PutBuilding({1000.0, 1000.0, 1000.0}, {drift, 3.0e-3, 3.0e-3});
        const CPostCtrl control = Control();
        std::vector<T_STSIC_D> records;
        ASSERT_TRUE(CStoryResultPost(control).GetSIC(kStatic, kSeismic, records));
        const T_STSIC_BLOCK& block = records[At(1)].part[0].method[DriftMethod::CenterOfMass];
        EXPECT_EQ(block.angleStatus, status);
        EXPECT_NEAR(block.angle13, 1.3e-3, 1e-12);
        EXPECT_NEAR(block.angleRatio, drift / 3.0e-3, 1e-9);
    }
}

TEST_F(StoryShears, WithoutForcesStiffnessIsNotChecked) {
    PutCase(kSeismic, [](int s, int) { return Plane{1e-3 * s, 0.0}; });
    UseResults();
    const CPostCtrl control = Control();
    std::vector<T_STSIC_D> stiffness;
    std::vector<T_STSFR_D> shears;
    std::vector<T_STOTM_D> moments;
    std::vector<T_STAFS_D> sums;
    const CStoryResultPost service(control);
    ASSERT_TRUE(service.GetSIC(kStatic, kSeismic, stiffness));
    EXPECT_EQ(stiffness[0].part[0].method[0].status, StoryStatus::NoStiffness);
    ASSERT_TRUE(service.GetSFR(kStatic, kSeismic, shears));
    EXPECT_EQ(shears[0].part[0].status, ShearStatus::None);
    ASSERT_TRUE(service.GetOTM(kStatic, kSeismic, moments));
    EXPECT_EQ(moments[0].part[0].hide, 2);
    EXPECT_FALSE(service.GetAFS(kStatic, kSeismic, sums));
}

TEST_F(StoryShears, StabilityCoefficientsAmplifyBeyondATenth) {
    // Lowest story: P = 6 * 300 kN, V = 6 * 3 kN, h = 3 m: theta = 1800 d / 54. Drifts 3 mm: 0.1; second story: P =
    // 1200, V = 12, drift 6 mm: 0.2.
    PutBuilding({3000.0, 2000.0, 1000.0}, {3.0e-3, 6.0e-3, 0.0});
    PutGravity();
    const CPostCtrl control = Control();
    const CStoryResultPost service(control);
    std::vector<T_STBCF_D> records;
    ASSERT_TRUE(service.GetStbCoeff(kStatic, kSeismic, records));
    const T_STBCF_PART& lowest = records[At(1)].part[0];
    EXPECT_EQ(lowest.isChecked, 1);
    EXPECT_NEAR(lowest.verticalLoad, 1800.0, 1e-9);
    EXPECT_NEAR(lowest.shear, 18.0, 1e-9);
    EXPECT_NEAR(lowest.drift[0], 0.012, 1e-12);
    EXPECT_NEAR(lowest.theta[0], 0.1, 1e-12);
    EXPECT_NEAR(lowest.theta[1], 0.1, 1e-12);
    EXPECT_DOUBLE_EQ(lowest.increment[0], 1.0);
    EXPECT_DOUBLE_EQ(lowest.beta, 0.5);
    EXPECT_DOUBLE_EQ(lowest.limit, 0.25);  // 0.5 / (0.5 * 4)
    const T_STBCF_PART& second = records[At(2)].part[0];
    EXPECT_NEAR(second.theta[0], 0.2, 1e-12);
    EXPECT_NEAR(second.increment[0], 1.25, 1e-12);
    EXPECT_DOUBLE_EQ(second.limit, 0.125);  // 0.5 / (1 * 4)
    std::vector<T_STDFT_D> drifts;
    ASSERT_TRUE(service.GetDFT(kStatic, kSeismic, drifts));
    EXPECT_NEAR(drifts[At(2)].part[0].maximum.pDelta, 1.25, 1e-12);
    EXPECT_NEAR(drifts[At(2)].part[0].maximum.modified, 0.03, 1e-12);  // 4 * 6 mm * 1.25
    EXPECT_NEAR(drifts[At(1)].part[0].maximum.modified, 0.012, 1e-12);
}

TEST_F(StoryShears, StabilityIsNotCheckedWithoutVerticalLoads) {
    PutBuilding({3000.0, 2000.0, 1000.0}, {3.0e-3, 6.0e-3, 1.0e-3});
    const CPostCtrl control = Control();
    std::vector<T_STBCF_D> records;
    ASSERT_TRUE(CStoryResultPost(control).GetStbCoeff(kStatic, kSeismic, records));
    EXPECT_EQ(records[0].part[0].isChecked, 0);
    std::vector<T_STSTC_D> stability;
    ASSERT_TRUE(CStoryResultPost(control).GetSTC(kStatic, kSeismic, stability));
    EXPECT_EQ(stability[0].part[0].frame.stability, StabilityWord::NotChecked);
    EXPECT_NEAR(stability[At(3)].part[0].frame.stiffness, 6000.0, 1e-6);  // 6 kN by 1 mm
}

TEST_F(StoryShears, FramesAreStableFromTenOnAndStiffFromTwentyOn) {
    // D h / G with G = 1800, 1200, 600 kN and h = 3 m: V = 18 kN. Drift 3 mm: 6000 * 3 / 1800 = 10.
    PutGravity();
    const auto check = [&](double drift) {
        PutBuilding({3000.0, 2000.0, 1000.0}, {drift, 1e-3, 1e-3});
        const CPostCtrl control = Control();
        std::vector<T_STSTC_D> records;
        EXPECT_TRUE(CStoryResultPost(control).GetSTC(kStatic, kSeismic, records));
        EXPECT_DOUBLE_EQ(records[0].part[0].whole.stiffness, -1.0);
        EXPECT_EQ(records[0].part[0].whole.stability, StabilityWord::NotChecked);
        EXPECT_NEAR(records[0].part[0].whole.height, 9.0, 1e-12);
        return records[At(1)].part[0].frame;
    };
    EXPECT_NEAR(check(3.0e-3).ratio, 10.0, 1e-9);
    EXPECT_EQ(check(3.0e-3).stability, StabilityWord::Yes);
    EXPECT_EQ(check(3.001e-3).stability, StabilityWord::No);
    EXPECT_EQ(check(1.5e-3).secondOrder, StabilityWord::No);
    EXPECT_EQ(check(1.501e-3).secondOrder, StabilityWord::Yes);
}

TEST_F(StoryShears, OverturningMomentIsTheSumOfShearsTimesHeights) {
    PutBuilding({3000.0, 2000.0, 1000.0}, {1e-3, 1e-3, 1e-3});
    const CPostCtrl control = Control();
    std::vector<T_STOTM_D> records;
    ASSERT_TRUE(CStoryResultPost(control).GetOTM(kStatic, kSeismic, records));
    EXPECT_NEAR(records[At(3)].part[0].sum, 18.0, 1e-9);   // 6 * 3
    EXPECT_NEAR(records[At(1)].part[0].sum, 108.0, 1e-9);  // (6 + 12 + 18) * 3
    EXPECT_NEAR(records[At(1)].part[0].frame, 108.0, 1e-9);
    EXPECT_EQ(records[At(1)].part[0].hide, 0);
    EXPECT_EQ(records[At(1)].part[0].check, 0) << "the frame carries all of it";
    EXPECT_NEAR(records[At(1)].part[0].modified[1], 108.0, 1e-9) << "no reduction in the ten topmost stories";
}

TEST_F(StoryShears, VerticalForcesHaveASumAndACentre) {
    // 100 kN in each column but 700 at place 6 (x = 12, y = 8): 1200 kN; x = (0+6+12)*100*2 -> (3600 + 7200) / 1200.
    PutCase(kGravityCase, [](int, int) { return Plane{}; });
    PutForces(kGravityCase, [](int, int p) { return std::array{p == 6 ? -7.0e5 : -1.0e5, 0.0, 0.0}; });
    UseResults();
    const CPostCtrl control = Control();
    std::vector<T_STAFS_D> records;
    ASSERT_TRUE(CStoryResultPost(control).GetAFS(kStatic, kGravityCase, records));
    EXPECT_NEAR(records[0].force, 1200.0, 1e-9);
    EXPECT_NEAR(records[0].center[0], 9.0, 1e-9);        // (100 * (0+6+12) * 2 + 600 * 12) / 1200
    EXPECT_NEAR(records[0].center[1], 72.0 / 12, 1e-9);  // (100 * 24 + 600 * 8) / 1200
}

TEST_F(StoryShears, StrengthsAreNotChecked) {
    PutBuilding({3000.0, 2000.0, 1000.0}, {1e-3, 1e-3, 1e-3});
    const CPostCtrl control = Control();
    std::vector<T_STCIC_D> strengths;
    std::vector<T_STYSC_D> yields;
    ASSERT_TRUE(CStoryResultPost(control).GetCIC(kStatic, kSeismic, strengths));
    EXPECT_EQ(strengths[0].part[0].status, StoryStatus::NotChecked);
    EXPECT_EQ(strengths[0].part[0].hide, 1);
    ASSERT_TRUE(CStoryResultPost(control).GetYSC(kStatic, kSeismic, yields));
    EXPECT_EQ(yields[0].part[0].status, StoryStatus::Absent);
    EXPECT_NEAR(yields[At(1)].part[0].shear, 18.0, 1e-9);
}

TEST_F(StoryShears, RatioOfShearAndWeightIsHeldAgainstWhatIsAllowed) {
    for (int s = 1; s <= stories; ++s) Add<CClassPmas>(No(s, 2), {.mx = 10.0, .my = 10.0});
    PutBuilding({3000.0, 2000.0, 1000.0}, {1e-3, 1e-3, 1e-3});
    const CPostCtrl control = Control();
    const CStoryResult service(control);
    std::vector<T_STSFC_D> records;
    ASSERT_TRUE(service.GetSFC(kStatic, kSeismic, records));
    EXPECT_EQ(records[At(1)].part[0].status, StoryStatus::Open);
    const double ratio = records[At(1)].part[0].ratio;
    EXPECT_NEAR(ratio, 18.0 / records[At(1)].part[0].weight, 1e-12);
    EXPECT_NEAR(records[At(1)].part[0].weight, 3.0 * records[At(3)].part[0].weight, 1e-9);
    ASSERT_TRUE(service.GetSFC(kStatic, kSeismic, records, ratio));
    EXPECT_EQ(records[At(1)].part[0].status, StoryStatus::Good);
    EXPECT_DOUBLE_EQ(records[At(1)].part[0].coefficient, 0.0);
    ASSERT_TRUE(service.GetSFC(kStatic, kSeismic, records, 2.0 * ratio));
    EXPECT_EQ(records[At(1)].part[0].status, StoryStatus::Bad);
    EXPECT_NEAR(records[At(1)].part[0].coefficient, 2.0, 1e-9);
    double limit = 1.0;
    EXPECT_FALSE(service.GetAllowShearWeightRatio(limit, 1, nullptr, 0, 0));
    EXPECT_DOUBLE_EQ(limit, 0.0);
}

class TallerStories : public StoryTest {
protected:
    TallerStories() {
        stories = 4;
        BuildModel();
    }
    /// The lowest story when the stories, from below, have some stiffnesses, in N/m, under unit drifts of 1 mm.
    T_STSIC_BLOCK LowestOf(std::array<double, 4> stiffness) {
        BeginResults();
        PutCase(kSeismic, [](int s, int) { return Plane{0.0, 1e-3 * s}; });
        PutForces(kSeismic, [=](int s, int) {
            return std::array{0.0, 0.0, 1e-3 / kPlaces * stiffness[static_cast<std::size_t>(s - 1)]};
        });
        return ReadLowest();
    }
    /// The same when they drift, in mm.
    T_STSIC_BLOCK LowestOfDrifts(std::array<double, 4> drifts) {
        BeginResults();
        PutCase(kSeismic, [=](int s, int) {
            double sum = 0.0;
            for (int i = 0; i < s; ++i) sum += 1e-3 * drifts[static_cast<std::size_t>(i)];
            return Plane{0.0, sum};
        });
        PutForces(kSeismic, [=](int, int) { return std::array{0.0, 0.0, 1000.0}; });
        return ReadLowest();
    }
    T_STSIC_BLOCK ReadLowest() {
        UseResults();
        const CPostCtrl control = Control();
        std::vector<T_STSIC_D> records;
        EXPECT_TRUE(CStoryResultPost(control).GetSIC(kStatic, kSeismic, records));
        EXPECT_EQ(records[0].head.direction, 1);
        return records[At(1)].part[1].method[DriftMethod::CenterOfMass];
    }
};

TEST_F(TallerStories, SoftStoriesAreHeldAgainstTheMeanOfThreeAbove) {
    // The story above has 100, the mean of three is 200: 0.8 of it is 160, 0.7 of it 140.
    EXPECT_EQ(LowestOf({160e6, 100e6, 200e6, 300e6}).status, StoryStatus::Regular);
    EXPECT_EQ(LowestOf({159e6, 100e6, 200e6, 300e6}).status, StoryStatus::Irregular);
    EXPECT_EQ(LowestOf({140e6, 100e6, 200e6, 300e6}).isExtreme, 0);
    EXPECT_EQ(LowestOf({139e6, 100e6, 200e6, 300e6}).isExtreme, 1);
    const T_STSIC_BLOCK block = LowestOf({160e6, 100e6, 200e6, 300e6});
    EXPECT_EQ(block.hasNoUpperThree, 0);
    EXPECT_NEAR(block.upper08, 160.0e3, 1e-6);
    EXPECT_NEAR(block.upperStiffness, 100.0e3, 1e-6);
}

TEST_F(TallerStories, DriftAnglesAreHeldAgainstTheMeanOfThreeAbove) {
    // The mean of 6, 3 and 3 mm is 4: 1.2 of it is 4.8.
    EXPECT_EQ(LowestOfDrifts({4.8, 6.0, 3.0, 3.0}).angleStatus, StoryStatus::Regular);
    EXPECT_EQ(LowestOfDrifts({4.81, 6.0, 3.0, 3.0}).angleStatus, StoryStatus::Irregular);
    EXPECT_NEAR(LowestOfDrifts({4.8, 6.0, 3.0, 3.0}).angleRatioThree, 1.2, 1e-9);
}

/// Two parts of a building on one ground: the second has two stories of its own, beside the first.
TEST_F(TallerStories, ModulesStandOneBehindTheOther) {
    Add<CClassMdul>(2, {.name = "N"});
    Add<CClassStor>(11, {.name = "a", .mdul = 2, .level = 3.0, .height = 3.0});
    Add<CClassStor>(12, {.name = "b", .mdul = 2, .level = 7.0});
    Add<CClassPont>(1, {.x = 50.0, .story = 11, .no = 1});
    Add<CClassPont>(2, {.x = 50.0, .story = 12, .no = 2});
    BeginResults();
    PutCase(kSeismic, [](int, int) { return Plane{}; });
    UseResults();
    const CPostCtrl control = Control();
    std::vector<T_STDFT_D> records;
    ASSERT_TRUE(CStoryResultPost(control).GetDFT(kStatic, kSeismic, records));
    ASSERT_EQ(records.size(), 6u);
    EXPECT_EQ(records[3].head.mdul, 1u);
    EXPECT_EQ(records[4].head.story, 12u);
    EXPECT_EQ(records[4].head.seq, 5u);
    EXPECT_DOUBLE_EQ(records[4].head.height, 4.0) << "without a height of its own: down to the story below";
    EXPECT_EQ(records[4].part[0].inUse, 0) << "its nodes have no results";
    EXPECT_EQ(records[5].head.story, 11u);
}

}  // namespace
}  // namespace zt
