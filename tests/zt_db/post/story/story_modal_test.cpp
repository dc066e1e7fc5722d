#include <numbers>

#include "zt_db/post/story/story_fixture.h"

namespace zt {
namespace {

constexpr int kSpectrum = LoadCaseKind::Spectrum;
constexpr int kHistory = LoadCaseKind::TimeHistory;

/// Two modes: in the first story s moves by s, in the second by 2, 0 and -3 mm, both along X and the same at all nodes.
class StoryModes : public StoryTest {
protected:
    StoryModes() {
        BuildModel();
        Add<CClassSpfc>(1, {.name = "S", .points = {{0.0, 0.1}}});
        Add<CClassSplc>(1, {.name = "RX", .spfc = 1});
        Add<CClassThfc>(1, {.name = "EQ", .points = {{0.0, 0.0}}});
        Add<CClassThlc>(1, {.name = "TH", .items = {{.thfc = 1}}});
        for (int s = 1; s <= stories; ++s) {
            Add<CClassPmas>(No(s, 2), {.mx = doc->GetUnitCtrl()->ToCurrent(Unit::Mass, 1000.0)});
        }
        BeginResults();
        // Circular frequencies 10 and 20.
        PutArray(ResultName::Frequency, 1,
                 std::array{10.0 / (2.0 * std::numbers::pi), 20.0 / (2.0 * std::numbers::pi)});
        PutNodes("modal/shape/1", [](int s, int) { return Plane{1e-3 * s, 0.0}; });
        PutNodes("modal/shape/2", [](int s, int) {
            return Plane{1e-3 * std::array{0.0, 2.0, 0.0, -3.0}.at(static_cast<std::size_t>(s)), 0.0};
        });
        PutResultCase({kSpectrum, 1, "RX", ""});
        PutResultCase({kHistory, 1, "TH", ""});
    }
    void PutSpectrum() {
        PutArray(CasePath(kSpectrum, 1, "modal_coordinate"), 2, std::array{2.0, -1.0});
        UseResults();
    }
    void PutHistory() {
        PutArray(CasePath(kHistory, 1, ResultName::Coordinate), 2,
                 std::array{0.0, 0.0, 1.0, 0.0, 2.0, -1.0, -3.0, 0.0});
        PutArray(CasePath(kHistory, 1, ResultName::Step), 1, std::array{0.1});
        UseResults();
    }
    double DriftOf(int kind, std::uint32_t key, int story) {
        const CPostCtrl control = Control();
        std::vector<T_STDFT_D> records;
        EXPECT_TRUE(CStoryResultPost(control).GetDFT(kind, key, records));
        return records.empty() ? 0.0 : records[At(story)].part[0].maximum.drift;
    }
};

TEST_F(StoryModes, SpectrumDriftsArePutTogetherFromTheModes) {
    PutSpectrum();
    // Modal drifts of the top story: 2 * 1 and -1 * -3 mm; of displacements: 2 * 3 and -1 * -3.
    EXPECT_NEAR(DriftOf(kSpectrum, 1, 3), 1e-3 * std::sqrt(4.0 + 9.0), 1e-15);
    EXPECT_NEAR(DriftOf(kSpectrum, 1, 2), 1e-3 * std::sqrt(4.0 + 4.0), 1e-15);
    const CPostCtrl control = Control();
    std::vector<T_STDSP_D> records;
    ASSERT_TRUE(CStoryResultPost(control).GetDSP(kSpectrum, 1, records));
    EXPECT_NEAR(records[At(3)].part[0].maximum, 1e-3 * std::sqrt(36.0 + 9.0), 1e-15);
}

TEST_F(StoryModes, SpectrumDriftsCountTheCorrelationOfModes) {
    PutArray(CasePath(kSpectrum, 1, "modal_correlation"), 2, std::array{1.0, 0.5, 0.5, 1.0});
    PutSpectrum();
    // Top: 2 and 3 mm give 4 + 9 + 2 * 0.5 * 6 = 19. Second: 2 and 2 mm give 4 + 4 + 4 = 12.
    EXPECT_NEAR(DriftOf(kSpectrum, 1, 3), 1e-3 * std::sqrt(19.0), 1e-15);
    EXPECT_NEAR(DriftOf(kSpectrum, 1, 2), 1e-3 * std::sqrt(12.0), 1e-15);
}

TEST_F(StoryModes, SpectrumShearsAreThoseOfTheMassesAbove) {
    PutSpectrum();
    const CPostCtrl control = Control();
    std::vector<T_STSHRRS_D> records;
    ASSERT_TRUE(CStoryResult(control).GetSHR4RS(kSpectrum, 1, records));
    // Elastic forces of a story: 1000 kg * w^2 * q * shape. Top: 1 * 100 * 2 * 3 = 600 N and 400 * -1 * -3 = 1200 N.
    EXPECT_NEAR(records[At(3)].part[0].shear, 1e-3 * std::hypot(600.0, 1200.0), 1e-9);
    // Lowest: modes 600 + 400 + 200 and 1200 + 0 - 800.
    EXPECT_NEAR(records[At(1)].part[0].shear, 1e-3 * std::hypot(1200.0, 400.0), 1e-9);
    EXPECT_NEAR(records[At(1)].part[0].force, 1e-3 * std::hypot(200.0, 800.0), 1e-9);
    EXPECT_NEAR(records[At(1)].part[0].eccentricity, 0.4, 1e-12);  // 5 % of 8 m
    EXPECT_NEAR(records[At(1)].part[0].moment, 0.4 * records[At(1)].part[0].force, 1e-12);
    std::vector<T_STSFR_D> shares;
    ASSERT_TRUE(CStoryResultPost(control).GetSFR(kSpectrum, 1, shares));
    EXPECT_EQ(shares[0].part[0].status, ShearStatus::SumOnly);
}

TEST_F(StoryModes, WithoutModalCoordinatesASpectrumHasNoDrifts) {
    PutNodes(CasePath(kSpectrum, 1, ResultName::Displacement), [](int s, int) { return Plane{1e-3 * s, 0.0}; });
    UseResults();
    const CPostCtrl control = Control();
    std::vector<T_STDFT_D> records(1);
    EXPECT_FALSE(CStoryResultPost(control).GetDFT(kSpectrum, 1, records));
    EXPECT_TRUE(records.empty());
    std::vector<T_STSHRRS_D> shears;
    EXPECT_FALSE(CStoryResult(control).GetSHR4RS(kSpectrum, 1, shears));
}

TEST_F(StoryModes, CorrelationsThatDoNotFitTheModesAreRefused) {
    PutArray(CasePath(kSpectrum, 1, "modal_correlation"), 3, std::array{1.0, 0.5, 0.5});
    PutSpectrum();
    const CPostCtrl control = Control();
    std::vector<T_STDFT_D> records;
    EXPECT_FALSE(CStoryResultPost(control).GetDFT(kSpectrum, 1, records));
}

TEST_F(StoryModes, HistoryDriftsAreTakenInEachState) {
    Add<CClassRstp>(1, {.allowableRatio = 0.005 / 3.0});
    PutHistory();
    const CPostCtrl control = Control();
    const CStoryResult service(control);
    std::vector<T_STDFTTH_D> records;
    ASSERT_TRUE(service.GetDFT4TH(kHistory, 1, records));
    // Top story: q1 * 1 + q2 * -3 mm: 0, 1, 2 + 3 = 5, -3. Second: q1 - 2 q2: 0, 1, 4, -3.
    EXPECT_NEAR(records[At(3)].part[0].drift, 0.005, 1e-15);
    EXPECT_NEAR(records[At(3)].part[0].time, 0.2, 1e-15);
    EXPECT_NEAR(records[At(3)].part[0].angle, 0.005 / 3.0, 1e-15);
    EXPECT_EQ(records[At(3)].part[0].isFailed, 0) << "exactly what is allowed";
    EXPECT_NEAR(records[At(3)].part[0].allowable, 600.0, 1e-9);
    EXPECT_NEAR(records[At(3)].part[0].angleRatio, 1.0, 1e-12);
    EXPECT_NEAR(records[At(2)].part[0].drift, 0.004, 1e-15);
    // Lowest: q1 + 2 q2: 0, 1, 0, -3.
    EXPECT_NEAR(records[At(1)].part[0].drift, -0.003, 1e-15);
    EXPECT_NEAR(records[At(1)].part[0].time, 0.3, 1e-15);
    double angle = 0.0;
    EXPECT_TRUE(service.CalcAlwAngle4DFT(angle, 1));
    EXPECT_NEAR(angle, 0.005 / 3.0, 1e-15);
}

TEST_F(StoryModes, HistoryDriftsBeyondTheAllowableFail) {
    Add<CClassRstp>(1, {.allowableRatio = 0.00499 / 3.0});
    PutHistory();
    const CPostCtrl control = Control();
    std::vector<T_STDFTTH_D> records;
    ASSERT_TRUE(CStoryResult(control).GetDFT4TH(kHistory, 1, records));
    EXPECT_EQ(records[At(3)].part[0].isFailed, 1);
    EXPECT_EQ(records[At(1)].part[0].isFailed, 0);
}

TEST_F(StoryModes, HistoryShearsHaveExtremesAndTimes) {
    PutHistory();
    PutSpectrum();
    const CPostCtrl control = Control();
    const CStoryResult service(control);
    std::vector<T_STSHRTH_D> records;
    ASSERT_TRUE(service.GetSHR4TH(kHistory, 1, records));
    // Lowest: 600 q1 - 400 q2 N (from 100 * (1 + 2 + 3) and 400 * (2 + 0 - 3)): 0, 600, 1600, -1800.
    const T_STSHRTH_PART& part = records[At(1)].part[0];
    EXPECT_NEAR(part.maximum, 1.6, 1e-9);
    EXPECT_NEAR(part.maximumTime, 0.2, 1e-15);
    EXPECT_NEAR(part.minimum, -1.8, 1e-9);
    EXPECT_NEAR(part.minimumTime, 0.3, 1e-15);
    std::vector<T_STSSF_D> beside;
    ASSERT_TRUE(service.GetSSF_THRS({1, 99}, 1, beside));
    EXPECT_NEAR(beside[At(1)].part[0].history[0], 1.8, 1e-9);
    EXPECT_DOUBLE_EQ(beside[At(1)].part[0].history[1], 0.0);
    EXPECT_NEAR(beside[At(1)].part[0].mean, 1.8, 1e-9);
    EXPECT_NEAR(beside[At(1)].part[0].spectrum, 1e-3 * std::hypot(1200.0, 400.0), 1e-9);
    EXPECT_FALSE(service.GetSSF_THRS({99}, 0, beside));
}

TEST_F(StoryModes, CombinationsAddBoundsAndEnvelopesTakeTheWorst) {
    PutCase(kSeismic, [](int s, int) { return Plane{1e-3 * s, 0.0}; });
    PutSpectrum();
    Add<CClassLcom>(1, {.name = "Sum", .items = {{LoadCaseKind::Static, kSeismic, -2.0}, {kSpectrum, 1, 1.0}}});
    Add<CClassLcom>(2, {.name = "Env",
                        .type = LoadCombinationType::Envelope,
                        .items = {{LoadCaseKind::Static, kSeismic, -5.0}, {kSpectrum, 1, 1.0}}});
    EXPECT_NEAR(DriftOf(LoadCaseKind::Combination, 1, 3), -1e-3 * (2.0 + std::sqrt(13.0)), 1e-15);
    EXPECT_NEAR(DriftOf(LoadCaseKind::Combination, 2, 3), -0.005, 1e-15);
}

TEST_F(StoryModes, ModesAreToldAtTheCentresOfMass) {
    PutNodes("modal/shape/1", [](int s, int p) { return Plane{1e-3 * s * (p > 3 ? 3.0 : 1.0), 0.0}; });
    UseResults();
    const CPostCtrl control = Control();
    const CStoryDataCalc service(control);
    std::vector<T_STMODE_D> records;
    ASSERT_TRUE(service.GetMode(1, records));
    EXPECT_NEAR(records[At(3)].center[0], 6.0, 1e-12);
    EXPECT_NEAR(records[At(3)].center[1], 0.0, 1e-12);
    EXPECT_NEAR(records[At(3)].value[0], 0.003, 1e-15);
    EXPECT_EQ(records[At(3)].mode, 1);
    EXPECT_FALSE(service.GetMode(0, records));
    EXPECT_FALSE(service.GetMode(3, records));
    EXPECT_TRUE(records.empty());
}

TEST_F(StoryModes, AFloorTurnsAsItsMassesDo) {
    // Masses at y = 0 and y = 8 alike; frames move by 3e-3 and -1e-3, so that the floor turns by 4e-3 / 8.
    Add<CClassPmas>(No(3, 5), {.mx = doc->GetUnitCtrl()->ToCurrent(Unit::Mass, 1000.0)});
    PutNodes("modal/shape/1", [](int, int p) { return Plane{1e-3 * (p > 3 ? -1.0 : 3.0), 0.0}; });
    UseResults();
    const CPostCtrl control = Control();
    std::vector<T_STMODE_D> records;
    ASSERT_TRUE(CStoryDataCalc(control).GetMode(1, records));
    EXPECT_NEAR(records[At(3)].value[0], 0.001, 1e-15);
    EXPECT_NEAR(records[At(3)].value[5], 0.004 / 8.0, 1e-15);
}

}  // namespace
}  // namespace zt
