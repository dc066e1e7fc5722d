#include "zt_db/post/story/story_fixture.h"
#include "zt_db/units/exact_units.h"

namespace zt {
namespace {

constexpr int kStatic = LoadCaseKind::Static;
/// Weight of a column: 2500 kgf/m3 * 0.2 m2 * 3 m, in kN.
constexpr double kColumn = 1500.0 * kGravity * 1e-3;

class StorySums : public StoryTest {
protected:
    StorySums() {
        BuildModel();
        BeginResults();
    }
    double MassIn(double kilograms) { return doc->GetUnitCtrl()->ToCurrent(Unit::Mass, kilograms); }
    /// Masses of the stories in kg, at the middle of the frame at y = 0.
    void PutMasses(std::array<double, 3> masses) {
        for (int s = 1; s <= stories; ++s) {
            const double mass = MassIn(masses[static_cast<std::size_t>(s - 1)]);
            const T_PMAS_D record{.mx = mass, .my = mass};
            if (Records<CClassPmas>().Exist(No(s, 2))) {
                ASSERT_TRUE(Records<CClassPmas>().TR_Modify(No(s, 2), No(s, 2), record));
            } else {
                Add<CClassPmas>(No(s, 2), record);
            }
        }
    }
    T_STWIC_PART WeightsOf(std::array<double, 3> masses, int story) {
        PutMasses(masses);
        UseResults();
        const CPostCtrl control = Control();
        std::vector<T_STWIC_D> records;
        EXPECT_TRUE(CStoryResultPost(control).GetWIC(kStatic, kSeismic, records));
        return records[At(story)].part[0];
    }
};

TEST_F(StorySums, MembersWeighInTheirStoryByKind) {
    Add<CClassMemb>(
        1, {.type = 201, .no = 1, .story = KeyOfStory(2), .prop = 1, .matl = 1, .nodes = {No(2, 1), No(2, 3)}});
    Add<CClassMemb>(2, {.type = MembType::Slab,
                        .no = 2,
                        .story = KeyOfStory(2),
                        .prop = 1,
                        .matl = 1,
                        .nodes = {No(2, 1), No(2, 3), No(2, 6), No(2, 4)}});
    Add<CClassMemb>(3, {.type = MembType::Wall,
                        .no = 3,
                        .story = KeyOfStory(1),
                        .prop = 1,
                        .matl = 1,
                        .nodes = {No(0, 1), No(0, 2), No(1, 2), No(1, 1)}});
    Add<CClassMemb>(4, {.type = MembType::Brace,
                        .no = 4,
                        .story = KeyOfStory(1),
                        .prop = 1,
                        .matl = 1,
                        .nodes = {No(0, 1), No(1, 1)}});
    UseResults();
    const CPostCtrl control = Control();
    std::vector<T_STSWT_D> records;
    ASSERT_TRUE(CStoryResultPost(control).GetSWT(0, 0, records));
    EXPECT_NEAR(records[At(2)].column, 6.0 * kColumn, 1e-9);
    EXPECT_NEAR(records[At(2)].beam, 4.0 * kColumn, 1e-9);                // 12 m
    EXPECT_NEAR(records[At(2)].slab, 96.0 * 0.1 * 2.5 * kGravity, 1e-9);  // 12 * 8 m2, 0.1 m
    EXPECT_NEAR(records[At(1)].wall, 18.0 * 0.1 * 2.5 * kGravity, 1e-9);  // 6 * 3 m2
    EXPECT_NEAR(records[At(1)].brace, kColumn, 1e-9);
    EXPECT_NEAR(records[At(2)].sum, 10.0 * kColumn + 96.0 * 0.25 * kGravity, 1e-9);
    std::vector<T_STDFT_D> drifts;
    PutCase(kSeismic, [](int, int) { return Plane{}; });
    ASSERT_TRUE(CStoryResultPost(control).GetDFT(kStatic, kSeismic, drifts));
    EXPECT_EQ(drifts[At(1)].type, 1);
    EXPECT_EQ(drifts[At(2)].type, 0);
}

TEST_F(StorySums, MassesComeFromNodesMembersAndLoads) {
    ASSERT_TRUE(Records<CClassActl>().TR_Modify(1, 1, {.selfWeightMass = 1, .massLoads = {{kGravityCase, 0.5}}}));
    Add<CClassPmas>(No(1, 1), {.mx = MassIn(100.0), .my = MassIn(300.0), .mz = MassIn(50.0)});
    Add<CClassPtld>(1, {.node = No(3, 2), .stld = kGravityCase, .fz = -20.0 * kGravity});
    Add<CClassPtld>(2, {.node = No(3, 5), .stld = kGravityCase, .fz = 20.0 * kGravity});
    UseResults();
    const CPostCtrl control = Control();
    std::vector<T_STSMS_D> records;
    ASSERT_TRUE(CStoryResultPost(control).GetSMS(0, 0, records));
    // Columns of 1500 kg: half of six at the top level, whole ones between.
    EXPECT_NEAR(records[At(3)].mass[0], MassIn(4500.0 + 10000.0), 1e-9);  // and half of 20 t
    EXPECT_NEAR(records[At(2)].mass[2], MassIn(9000.0), 1e-9);
    EXPECT_NEAR(records[At(1)].mass[0], MassIn(9100.0), 1e-9);
    EXPECT_NEAR(records[At(1)].mass[1], MassIn(9300.0), 1e-9);
    EXPECT_NEAR(records[At(1)].mass[2], MassIn(9050.0), 1e-9);
    EXPECT_NEAR(records[At(2)].center[0], 6.0, 1e-9);
    EXPECT_NEAR(records[At(2)].center[1], 4.0, 1e-9);
    // Six masses of 1500 kg at levers 4 along Y, four of them at 6 along X: 1500 * (6 * 16 + 4 * 36).
    EXPECT_NEAR(records[At(2)].rotational, doc->GetUnitCtrl()->ToCurrent(Unit::RotationalMass, 1500.0 * 240.0), 1e-9);
}

TEST_F(StorySums, LoadsOfAStoryAreThoseThatComeToItsNodes) {
    Add<CClassMemb>(
        1,
        {.type = 201, .no = 1, .story = KeyOfStory(2), .prop = 1, .matl = 1, .nodes = {No(2, 1), No(2, 2), No(2, 3)}});
    Add<CClassMemb>(2, {.type = MembType::Slab,
                        .no = 2,
                        .story = KeyOfStory(3),
                        .prop = 1,
                        .matl = 1,
                        .nodes = {No(3, 1), No(3, 3), No(3, 6), No(3, 4)}});
    Add<CClassSltp>(1, {});
    Add<CClassSbla>(2, {.type = 1, .dl = 2.0, .ll = 1.0});
    Add<CClassPtld>(1, {.node = No(1, 1), .stld = kGravityCase, .fx = 5.0, .fy = 6.0, .fz = -7.0});
    Add<CClassPtld>(2, {.node = No(0, 1), .stld = kGravityCase, .fz = -100.0});
    Add<CClassPtld>(3, {.node = No(1, 1), .stld = 3, .fx = 50.0});
    Add<CClassLnld>(1, {.memb = 1, .stld = kGravityCase, .x = {0.0, 1.0}, .p = {-3.0, -3.0}});
    // A column loaded at a third of its height gives two thirds to its foot.
    Add<CClassCmld>(1, {.memb = No(3, 1),
                        .stld = kGravityCase,
                        .type = LoadType::ConcentratedForces,
                        .direction = LoadDirection::GlobalX,
                        .x = {1.0 / 3.0},
                        .p = {9.0}});
    Add<CClassSwgt>(1, {.memb = No(2, 1), .stld = kGravityCase, .z = -1.0});
    Add<CClassLcom>(1, {.name = "C", .items = {{kStatic, kGravityCase, 2.0}, {kStatic, 3, 1.0}}});
    Add<CClassLcom>(2, {.name = "E", .type = LoadCombinationType::Envelope, .items = {{kStatic, 3, 1.0}}});
    UseResults();
    const CPostCtrl control = Control();
    const CStoryResultPost service(control);
    std::vector<T_STSLD_D> records;
    ASSERT_TRUE(service.GetSLD(kStatic, kGravityCase, records));
    EXPECT_NEAR(records[At(1)].load[0], 5.0, 1e-9);
    EXPECT_NEAR(records[At(1)].load[1], 6.0, 1e-9);
    EXPECT_NEAR(records[At(1)].load[2], -7.0 - 0.5 * kColumn, 1e-9);
    EXPECT_NEAR(records[At(2)].load[0], 6.0, 1e-9);
    EXPECT_NEAR(records[At(2)].load[2], -36.0 - 0.5 * kColumn, 1e-9);  // 3 kN/m on 12 m
    EXPECT_NEAR(records[At(3)].load[0], 3.0, 1e-9);
    EXPECT_NEAR(records[At(3)].load[2], -192.0, 1e-9);  // 2 kN/m2 on 96 m2
    ASSERT_TRUE(service.GetSLD(LoadCaseKind::Combination, 1, records));
    EXPECT_NEAR(records[At(1)].load[0], 60.0, 1e-9);
    ASSERT_TRUE(service.GetSLD(kStatic, 4, records));
    EXPECT_NEAR(records[At(3)].load[2], -96.0, 1e-9);
    EXPECT_FALSE(service.GetSLD(LoadCaseKind::Combination, 2, records)) << "an envelope has no loads";
    EXPECT_FALSE(service.GetSLD(kStatic, 77, records));
    EXPECT_FALSE(service.GetSLD(LoadCaseKind::Spectrum, 1, records));
}

TEST_F(StorySums, HeavyStoriesAreThoseBeyondOneAndAHalf) {
    EXPECT_DOUBLE_EQ(WeightsOf({150.0, 100.0, 100.0}, 1).status, 0.0);
    EXPECT_DOUBLE_EQ(WeightsOf({150.1, 100.0, 100.0}, 1).status, 1.0);
    EXPECT_DOUBLE_EQ(WeightsOf({100.0, 151.0, 100.0}, 2).status, 1.0);
    EXPECT_DOUBLE_EQ(WeightsOf({100.0, 100.0, 151.0}, 3).status, 1.0) << "a heavy roof counts";
    EXPECT_DOUBLE_EQ(WeightsOf({100.0, 100.0, 50.0}, 2).status, 0.0) << "a light roof does not";
    const T_STWIC_PART part = WeightsOf({150.0, 100.0, 50.0}, 2);
    EXPECT_NEAR(part.weight, 100.0 * kGravity * 1e-3, 1e-12);
    EXPECT_NEAR(part.upperWeight, 50.0 * kGravity * 1e-3, 1e-12);
    EXPECT_NEAR(part.lowerWeight, 150.0 * kGravity * 1e-3, 1e-12);
    EXPECT_NEAR(part.ratio, 100.0 / 150.0, 1e-12);
    EXPECT_EQ(WeightsOf({1.0, 1.0, 1.0}, 1).hasNoLower, 1);
    EXPECT_EQ(WeightsOf({1.0, 1.0, 1.0}, 3).hasNoUpper, 1);
}

TEST_F(StorySums, EvenDriftsExcuseHeavyStories) {
    const auto statusFor = [this](double lowestDrift) {
        PutCase(kSeismic, [=](int s, int) { return Plane{s == 0 ? 0.0 : lowestDrift + 0.001 * (s - 1), 0.0}; });
        return WeightsOf({200.0, 100.0, 100.0}, 1);
    };
    EXPECT_DOUBLE_EQ(statusFor(0.0013).status, 0.0);
    EXPECT_NEAR(statusFor(0.0013).angleRatio, 1.3, 1e-9);
    EXPECT_DOUBLE_EQ(statusFor(0.00131).status, 1.0);
    EXPECT_DOUBLE_EQ(statusFor(0.00131).statusCenter, 1.0);
}

TEST_F(StorySums, EccentricityIsThatOfTheColumns) {
    // A column at place 6 that is four times as stiff: along X 12 E I / h^3 in units of one column, at y: (0 * 3 + 8 *
    // (1 + 1 + 4)) / 9 = 16 / 3; along Y at x: ((0 + 6 + 12) + (0 + 6 + 4 * 12)) / 9 = 8.
    Add<CClassSect>(2, {.name = "B", .stiffness = {.area = 0.2, .iyy = 0.016, .izz = 0.004}});
    for (int s = 1; s <= stories; ++s) {
        T_MEMB_D member;
        Records<CClassMemb>().Get(No(s, 6), member);
        member.prop = 2;
        ASSERT_TRUE(Records<CClassMemb>().TR_Modify(No(s, 6), No(s, 6), member));
    }
    UseResults();
    const CPostCtrl control = Control();
    std::vector<T_STECC_D> records;
    ASSERT_TRUE(CStoryResultPost(control).GetECC(0, 0, records));
    const T_STECC_D& record = records[0];
    EXPECT_EQ(record.isChecked, 1);
    EXPECT_NEAR(record.mass[0], 6.0, 1e-9);
    EXPECT_NEAR(record.mass[1], 4.0, 1e-9);
    EXPECT_NEAR(record.rigidity[0], 8.0, 1e-9);
    EXPECT_NEAR(record.rigidity[1], 16.0 / 3.0, 1e-9);
    EXPECT_NEAR(record.eccentricity[0], 2.0, 1e-9);
    EXPECT_NEAR(record.eccentricity[1], 4.0 / 3.0, 1e-9);
    // Columns bend along X with iyy: 12 * 25e6 kN/m2 * 0.004 / 27; along Y with a quarter of it.
    const double kx = 12.0 * 25.0e6 * 0.004 / 27.0;
    const double ky = kx / 4.0;
    const double torsion =
        kx * (3.0 * 256.0 / 9.0 + 6.0 * 64.0 / 9.0) + ky * (64.0 + 4.0 + 16.0 + 64.0 + 4.0 + 4.0 * 16.0);
    EXPECT_NEAR(record.torsion, torsion, 1e-6 * torsion);
    EXPECT_NEAR(record.radius[0], std::sqrt(torsion / (9.0 * kx)), 1e-9);
    EXPECT_NEAR(record.ratio[0], record.eccentricity[1] / record.radius[0], 1e-12);
    EXPECT_NEAR(record.ratio[1], record.eccentricity[0] / record.radius[1], 1e-12);
}

TEST_F(StorySums, WithoutElementsThereIsNoCentreOfRigidity) {
    results = std::make_shared<MemoryResults>();
    UseResults();
    const CPostCtrl control = Control();
    std::vector<T_STECC_D> records;
    ASSERT_TRUE(CStoryResultPost(control).GetECC(0, 0, records));
    EXPECT_EQ(records[0].isChecked, 0);
}

TEST_F(StorySums, LoadCasesAreListedByWhatTheyAre) {
    Add<CClassSpfc>(1, {.name = "S", .points = {{0.0, 0.1}}});
    Add<CClassSplc>(5, {.name = "RX", .spfc = 1});
    Add<CClassLcom>(1, {.name = "D", .items = {{kStatic, kGravityCase, 1.4}}});
    Add<CClassLcom>(2, {.name = "D+E", .items = {{kStatic, kGravityCase, 1.2}, {kStatic, kSeismic, 1.0}}});
    Add<CClassLcom>(3, {.name = "in", .items = {{LoadCaseKind::Combination, 2, 1.0}}});
    Add<CClassLcom>(4, {.name = "off", .active = 0, .items = {{LoadCaseKind::Spectrum, 5, 1.0}}});
    for (const std::uint32_t key : {1u, 2u, 3u}) PutResultCase({kStatic, key, "", ""});
    PutResultCase({LoadCaseKind::Spectrum, 5, "RX", ""});
    UseResults();
    const CPostCtrl control = Control();
    const CStoryResultPost service(control);
    std::vector<std::uint32_t> wind;
    std::vector<std::uint32_t> seismic;
    std::vector<std::uint32_t> spectra;
    std::vector<std::uint32_t> es;
    std::vector<std::uint32_t> combinations;
    using Keys = std::vector<std::uint32_t>;
    ASSERT_TRUE(service.GetLoadCaseKeyList4WindSeis(wind, seismic, spectra));
    EXPECT_EQ(wind, Keys{3});
    EXPECT_EQ(seismic, Keys{1});
    EXPECT_EQ(spectra, Keys{5});
    ASSERT_TRUE(service.GetLoadCaseKeyList4DrftAng(wind, seismic, spectra));
    EXPECT_EQ(wind, Keys{3});
    ASSERT_TRUE(service.GetLoadCaseKeyList4StTIC(spectra, seismic, es, combinations));
    EXPECT_EQ(combinations, (Keys{2, 3}));
    EXPECT_TRUE(es.empty());
    EXPECT_FALSE(service.ExistPEclcLoadCase());
    EXPECT_FALSE(service.GetLoadCaseKeyList4ECLC(es));
    PutResultCase({LoadCaseKind::EsCombination, 7, "ES", ""});
    EXPECT_TRUE(service.ExistPEclcLoadCase());
    EXPECT_TRUE(service.GetLoadCaseKeyList4ECLC(es));
    EXPECT_EQ(es, Keys{7});
}

}  // namespace
}  // namespace zt
