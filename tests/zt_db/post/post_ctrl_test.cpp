#include "zt_db/post/post_ctrl.h"

#include <numbers>

#include "zt_db/post/post_fixture.h"
#include "zt_db/post/this_info.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using PostControl = PortalResultsTest;
using PostClasses = PortalResultsTest;
using PostWithoutResults = PortalTest;

template <class Class>
std::vector<std::uint32_t> KeysOfClass(const CPostDataBase& database) {
    std::vector<std::uint32_t> keys;
    Class records(&database);
    const int isAny = records.GetKeyList(keys);
    EXPECT_EQ(isAny != 0, !keys.empty());
    EXPECT_EQ(records.GetCount(), static_cast<int>(keys.size()));
    return keys;
}

// ---- without results ----

TEST_F(PostWithoutResults, NothingIsThereAndNothingFails) {
    const CPostDataBase& empty = *doc->GetMDBCtrl()->GetDBPost();
    EXPECT_THAT(KeysOfClass<CClassPNode>(empty), IsEmpty());
    EXPECT_THAT(KeysOfClass<CClassPMemb>(empty), IsEmpty());
    EXPECT_THAT(KeysOfClass<CClassPElem>(empty), IsEmpty());
    EXPECT_THAT(KeysOfClass<CClassPStor>(empty), IsEmpty());
    EXPECT_THAT(KeysOfClass<CClassPStld>(empty), IsEmpty());
    EXPECT_THAT(KeysOfClass<CClassPLcom>(empty), IsEmpty());
    EXPECT_THAT(KeysOfClass<CClassPPolc>(empty), IsEmpty());
    T_PLCOM_D combination;
    T_DISP_D displacement{{1.0}};
    EXPECT_FALSE(Post().IsPostEnable());
    EXPECT_FALSE(Post().MakeLoadComb(LoadCaseKind::Static, kDead, combination));
    EXPECT_FALSE(Post().SelectLoadComb(combination));
    EXPECT_FALSE(Post().GetDisp(1, &displacement));
    EXPECT_FALSE(Post().GetReac(0, nullptr));
    EXPECT_EQ(displacement.value[0], 1.0);
    double values[4];
    EXPECT_FALSE(Post().GetEiFreq(1, values));
    EXPECT_FALSE(Post().SelectThlc(kHistory));
}

TEST_F(PostWithoutResults, AHandleThatIsNotConnectedSeesNothing) {
    CClassPNode nodes;
    T_PNODE_D node;
    EXPECT_FALSE(nodes.Get(1, node));
    EXPECT_EQ(nodes.GetCount(), 0);
    EXPECT_EQ(CClassPEigv().GetNumEigv(), 0);
}

TEST_F(PostWithoutResults, TheModelCanBeReadAsAResultDatabaseBeforeAnyAnalysis) {
    const CPostDataBase& model = *doc->GetMDBCtrl()->GetDBPre();
    EXPECT_THAT(KeysOfClass<CClassPNode>(model), ElementsAre(1, 2, 3, 4));
    EXPECT_THAT(KeysOfClass<CClassPMemb>(model), ElementsAre(11, 12, 13));
    EXPECT_THAT(KeysOfClass<CClassPStld>(model), ElementsAre(kDead, kWind));
}

// ---- classes ----

TEST_F(PostClasses, NodesAndMembersAreKnownByTheirNumbers) {
    const CPostDataBase& post = *doc->GetMDBCtrl()->GetDBPost();
    EXPECT_THAT(KeysOfClass<CClassPNode>(post), ElementsAre(1, 2, 3, 4));
    T_PNODE_D node;
    ASSERT_TRUE(CClassPNode(&post).Get(4, node));
    EXPECT_EQ(node.x, 6.0);
    EXPECT_EQ(node.z, 4.0);
    EXPECT_FALSE(CClassPNode(&post).Get(104, node));
    T_PMEMB_D member;
    ASSERT_TRUE(CClassPMemb(&post).Get(12, member));
    EXPECT_EQ(member.kind, 101);
    EXPECT_EQ(member.story, 2u);
    EXPECT_EQ(member.mdul, 1u);
    EXPECT_THAT(member.nodes, ElementsAre(4, 2));
    EXPECT_FALSE(CClassPMemb(&post).Get(202, member));
}

TEST_F(PostClasses, ElementsNameTheirMemberAndItsNodes) {
    const CPostDataBase& post = *doc->GetMDBCtrl()->GetDBPost();
    EXPECT_THAT(KeysOfClass<CClassPElem>(post), ElementsAre(1, 2, 3));
    T_PELEM_D element;
    ASSERT_TRUE(CClassPElem(&post).Get(3, element));
    EXPECT_EQ(element.kind, 201);
    EXPECT_EQ(element.memb, 13u);
    EXPECT_THAT(element.nodes, ElementsAre(3, 4));
    EXPECT_FALSE(CClassPElem(&post).Get(0, element));
    EXPECT_FALSE(CClassPElem(&post).Get(4, element));
}

TEST_F(PostClasses, StoriesComeFromTheTopDownwards) {
    const CPostDataBase& post = *doc->GetMDBCtrl()->GetDBPost();
    std::vector<std::uint32_t> keys;
    ASSERT_TRUE(CClassPStor(&post).GetKeyListReverse(keys));
    EXPECT_THAT(keys, ElementsAre(2, 1));
    EXPECT_FALSE(CClassPStor(&post).GetKeyListReverse(keys, 9));
    EXPECT_EQ(CClassPMdul(&post).GetKey("Tower"), 1u);
    EXPECT_EQ(CClassPMdul(&post).GetKey("tower"), 0u);
}

TEST_F(PostClasses, LoadCasesAreThoseWithResults) {
    Records<CClassStld>().TR_Add(9, {.name = "later"});
    const CPostDataBase& post = *doc->GetMDBCtrl()->GetDBPost();
    EXPECT_THAT(KeysOfClass<CClassPStld>(post), ElementsAre(kDead, kWind));
    EXPECT_FALSE(CClassPStld(&post).Exist(9));
    EXPECT_THAT(CClassPStld(&post).KeysOfType("W"), ElementsAre(kWind));
    EXPECT_THAT(KeysOfClass<CClassPSplc>(post), ElementsAre(kSpectrum));
    EXPECT_EQ(CClassPSplc(&post).GetDisplayName(kSpectrum), "RX");
    EXPECT_EQ(CClassPSplc(&post).GetDisplayName(1), "");
}

TEST_F(PostClasses, AHistoryBelongsToTheSpectrumOfItsName) {
    const CPostDataBase& post = *doc->GetMDBCtrl()->GetDBPost();
    EXPECT_EQ(CClassPThlc(&post).GetPSplcKeyBySinglePThlcK(kHistory), 0u);
    Records<CClassSplc>().TR_Modify(kSpectrum, kSpectrum, T_SPLC_D{.name = "EQ"});
    EXPECT_EQ(CClassPThlc(&post).GetPSplcKeyBySinglePThlcK(kHistory), kSpectrum);
}

TEST_F(PostClasses, KindsWithoutRecordsAreWhatTheResultsTell) {
    auto results = std::make_shared<MemoryResults>();
    ASSERT_TRUE(PutModel(*results));
    ASSERT_TRUE(results->PutCase({LoadCaseKind::Pushover, 7, "PX", "push"}));
    ASSERT_TRUE(results->PutCase({LoadCaseKind::Pushover, 3, "PY", ""}));
    doc->GetMDBCtrl()->SetResults(results);
    const CPostDataBase& post = *doc->GetMDBCtrl()->GetDBPost();
    EXPECT_THAT(KeysOfClass<CClassPPolc>(post), ElementsAre(3, 7));
    EXPECT_THAT(KeysOfClass<CClassPEclc>(post), IsEmpty());
    T_PCASE_D record;
    ASSERT_TRUE(CClassPPolc(&post).Get(7, record));
    EXPECT_EQ(record.name, "PX");
    EXPECT_EQ(record.type, "push");
    std::vector<std::uint32_t> keys;
    std::vector<std::string> names;
    EXPECT_TRUE(CClassPPolc(&post).GetList(keys, names));
    EXPECT_THAT(names, ElementsAre("PY", "PX"));
}

// ---- load cases and combinations ----

TEST_F(PostControl, ASingleCaseBecomesACombinationOfItsName) {
    T_PLCOM_D combination;
    ASSERT_TRUE(Post().MakeLoadComb(LoadCaseKind::Static, kWind, combination));
    EXPECT_EQ(combination.name, "WX");
    EXPECT_THAT(combination.items, ElementsAre(T_LCOM_ITEM{LoadCaseKind::Static, kWind, 1.0}));
    EXPECT_FALSE(Post().MakeLoadComb(LoadCaseKind::Static, 77, combination));
    EXPECT_FALSE(Post().MakeLoadComb(LoadCaseKind::Combination, 77, combination));
}

TEST_F(PostControl, AStaticCaseHasOneValueForAllThree) {
    ASSERT_TRUE(Post().SelectLoadComb(LoadCaseKind::Static, kDead));
    EXPECT_FALSE(Post().HasEnvelope());
    for (const int which : {0, 1, 2}) EXPECT_EQ(DxOf(3, which), 30.0);
}

TEST_F(PostControl, ASumSuperposesItsCasesAndItsCombinations) {
    Records<CClassLcom>().TR_Add(1, {.name = "inner", .items = {{LoadCaseKind::Static, kWind, -0.5}}});
    Records<CClassLcom>().TR_Add(
        2, {.name = "outer", .items = {{LoadCaseKind::Static, kDead, 1.2}, {LoadCaseKind::Combination, 1, 2.0}}});
    ASSERT_TRUE(Post().SelectLoadComb(LoadCaseKind::Combination, 2));
    EXPECT_DOUBLE_EQ(DxOf(2), 1.2 * 20.0 - 200.0);
    EXPECT_FALSE(CClassPLcom(doc->GetMDBCtrl()->GetDBPost()).IsMaxMinComb(2));
}

TEST_F(PostControl, AnEnvelopeHasTheGreatestTheLeastAndTheGoverningOfBoth) {
    Records<CClassLcom>().TR_Add(1,
                                 {.name = "E",
                                  .type = LoadCombinationType::Envelope,
                                  .items = {{LoadCaseKind::Static, kDead, 1.0}, {LoadCaseKind::Static, kWind, -1.0}}});
    ASSERT_TRUE(Post().SelectLoadComb(LoadCaseKind::Combination, 1));
    EXPECT_EQ(DxOf(1, 1), 10.0);
    EXPECT_EQ(DxOf(1, 2), -100.0);
    EXPECT_EQ(DxOf(1, 0), -100.0);
    EXPECT_TRUE(CClassPLcom(doc->GetMDBCtrl()->GetDBPost()).IsMaxMinComb(1));
}

TEST_F(PostControl, ANegativeFactorTurnsAnEnvelopeAround) {
    Records<CClassLcom>().TR_Add(1,
                                 {.name = "E",
                                  .type = LoadCombinationType::Envelope,
                                  .items = {{LoadCaseKind::Static, kDead, 1.0}, {LoadCaseKind::Static, kWind, 1.0}}});
    Records<CClassLcom>().TR_Add(2, {.name = "N", .items = {{LoadCaseKind::Combination, 1, -2.0}}});
    ASSERT_TRUE(Post().SelectLoadComb(LoadCaseKind::Combination, 2));
    EXPECT_EQ(DxOf(1, 1), -20.0);
    EXPECT_EQ(DxOf(1, 2), -200.0);
}

TEST_F(PostControl, ASpectrumCountsWithBothSigns) {
    Records<CClassLcom>().TR_Add(
        1, {.name = "C", .items = {{LoadCaseKind::Static, kDead, 1.0}, {LoadCaseKind::Spectrum, kSpectrum, 1.0}}});
    ASSERT_TRUE(Post().SelectLoadComb(LoadCaseKind::Combination, 1));
    EXPECT_TRUE(Post().HasEnvelope());
    EXPECT_EQ(DxOf(1, 1), 1010.0);
    EXPECT_EQ(DxOf(1, 2), -990.0);
    EXPECT_TRUE(CClassPLcom(doc->GetMDBCtrl()->GetDBPost()).IsMaxMinComb(1));
}

TEST_F(PostControl, AHistoryHasItsGreatestAndItsLeastValue) {
    ASSERT_TRUE(Post().SelectLoadComb(LoadCaseKind::TimeHistory, kHistory));
    EXPECT_EQ(DxOf(2, 1), 4.0);
    EXPECT_EQ(DxOf(2, 2), -100.0);
    EXPECT_EQ(DxOf(2, 0), -100.0);
    T_REAC_D reaction;
    EXPECT_FALSE(Post().GetReac(1, &reaction));
}

TEST_F(PostControl, ACombinationOfACaseWithoutResultsIsNotOpened) {
    Records<CClassStld>().TR_Add(9, {.name = "later"});
    Records<CClassLcom>().TR_Add(
        1, {.name = "C", .items = {{LoadCaseKind::Static, kDead, 1.0}, {LoadCaseKind::Static, 9, 1.0}}});
    EXPECT_FALSE(Post().SelectLoadComb(LoadCaseKind::Combination, 1));
    T_DISP_D displacement;
    EXPECT_FALSE(Post().GetDisp(1, &displacement));
    Records<CClassLcom>().TR_Add(2, {.name = "empty"});
    EXPECT_FALSE(Post().SelectLoadComb(LoadCaseKind::Combination, 2));
}

// ---- values ----

TEST_F(PostControl, ValuesComeInTheCurrentUnits) {
    ASSERT_TRUE(Post().SelectLoadComb(LoadCaseKind::Static, kDead));
    SetUnits(2, 1);  // N, mm
    T_DISP_D displacement;
    ASSERT_TRUE(Post().GetDisp(1, &displacement));
    EXPECT_THAT(displacement.value, ElementsAre(10000.0, 11000.0, 12000.0, 13.0, 14.0, 15.0));
    T_REAC_D reaction;
    ASSERT_TRUE(Post().GetReac(2, &reaction));
    EXPECT_THAT(reaction.value, ElementsAre(20.0, 21.0, 22.0, 23000.0, 24000.0, 25000.0));
}

TEST_F(PostControl, ANodeThatHasNoSuchResultIsRefused) {
    ASSERT_TRUE(Post().SelectLoadComb(LoadCaseKind::Static, kDead));
    T_DISP_D displacement{{7.0}};
    T_REAC_D reaction;
    EXPECT_FALSE(Post().GetDisp(5, &displacement));
    EXPECT_EQ(displacement.value[0], 7.0);
    EXPECT_FALSE(Post().GetReac(3, &reaction));
}

TEST_F(PostControl, NodeZeroIsTheSumOfTheReactionsWithMomentsAboutTheOrigin) {
    ASSERT_TRUE(Post().SelectLoadComb(LoadCaseKind::Static, kDead));
    SetUnits(2, 0);  // N, m
    T_REAC_D sum;
    ASSERT_TRUE(Post().GetReac(0, &sum));
    // Node 1 at the origin has 10 to 15, node 2 at x = 6 has 20 to 25; that moves My by -6 Fz and Mz by 6 Fy.
    EXPECT_THAT(sum.value, ElementsAre(30.0, 32.0, 34.0, 36.0, 38.0 - 6.0 * 22.0, 40.0 + 6.0 * 21.0));
}

TEST_F(PostControl, AStoredSumOfReactionsStandsBeforeThatOfTheNodes) {
    auto results = std::make_shared<MemoryResults>();
    ASSERT_TRUE(PutAll(*results));
    ASSERT_TRUE(
        results->PutArray(CasePath(LoadCaseKind::Spectrum, kSpectrum, ResultName::ReactionSum), 6, Values(1, 7.0)));
    doc->GetMDBCtrl()->SetResults(results);
    ASSERT_TRUE(Post().SelectLoadComb(LoadCaseKind::Spectrum, kSpectrum));
    SetUnits(2, 0);
    T_REAC_D sum;
    T_REAC_D least;
    ASSERT_TRUE(Post().GetReac(0, &sum, nullptr, &least));
    EXPECT_EQ(sum.value[0], 7.0);
    EXPECT_EQ(least.value[0], -7.0);
}

TEST_F(PostControl, ABeamHasNineParts) {
    ASSERT_TRUE(Post().SelectLoadComb(LoadCaseKind::Static, kDead));
    SetUnits(2, 0);
    T_FBEM_D forces;
    ASSERT_TRUE(Post().GetMbgd(13, &forces));
    for (std::size_t i = 0; i < 9; ++i) EXPECT_EQ(forces.part[i][0], 10.0 * static_cast<double>(19 + i)) << i;
    EXPECT_FALSE(Post().GetMbgd(14, &forces));
}

TEST_F(PostControl, TheFirstPartOfAColumnIsItsBottomWhereverItBegins) {
    ASSERT_TRUE(Post().SelectLoadComb(LoadCaseKind::Static, kDead));
    SetUnits(2, 0);
    T_FCOL_D upward;
    T_FCOL_D downward;
    ASSERT_TRUE(Post().GetMbcl(11, &upward));
    ASSERT_TRUE(Post().GetMbcl(12, &downward));
    EXPECT_EQ(upward.part[0][0], 10.0);
    EXPECT_EQ(upward.part[1][0], 90.0);
    EXPECT_EQ(downward.part[0][0], 180.0);
    EXPECT_EQ(downward.part[1][0], 100.0);
}

TEST_F(PostControl, BetweenStationsForcesFollowAParabola) {
    auto results = std::make_shared<MemoryResults>();
    ASSERT_TRUE(PutModel(*results));
    ASSERT_TRUE(results->PutCase({LoadCaseKind::Static, kDead, "DL", ""}));
    std::vector<double> values;
    for (std::size_t i = 0; i < 27; ++i) {
        const double t = static_cast<double>(i % 9) / 8.0;
        for (const double value : {t * t, t, 1.0, 0.0, 0.0, t * (1.0 - t)}) values.push_back(value);
    }
    ASSERT_TRUE(results->PutArray(CasePath(LoadCaseKind::Static, kDead, ResultName::ElementForce), 6, values));
    doc->GetMDBCtrl()->SetResults(results);
    ASSERT_TRUE(Post().SelectLoadComb(LoadCaseKind::Static, kDead));
    SetUnits(2, 0);
    T_FCOL_D forces;
    ASSERT_TRUE(Post().GetMbcl(11, &forces));
    EXPECT_NEAR(forces.part[2][0], 1.0 / 9.0, 1e-12);
    EXPECT_NEAR(forces.part[3][1], 2.0 / 3.0, 1e-12);
    EXPECT_NEAR(forces.part[2][5], 2.0 / 9.0, 1e-12);
}

TEST_F(PostControl, AMemberOfSeveralElementsIsReadAlongItsWholeLength) {
    auto results = std::make_shared<MemoryResults>();
    const std::vector<std::uint32_t> members = {13, 13};
    ASSERT_TRUE(results->PutKeys(ResultName::ElementMembers, members));
    ASSERT_TRUE(results->PutArray(ResultName::ElementRanges, 2, std::vector<double>{0, 0.5, 0.5, 1}));
    ASSERT_TRUE(results->PutHead({.stations = 3}));
    ASSERT_TRUE(results->PutCase({LoadCaseKind::Static, kDead, "DL", ""}));
    ASSERT_TRUE(results->PutArray(CasePath(LoadCaseKind::Static, kDead, ResultName::ElementForce), 6, Values(6, 10.0)));
    doc->GetMDBCtrl()->SetResults(results);
    ASSERT_TRUE(Post().SelectLoadComb(LoadCaseKind::Static, kDead));
    SetUnits(2, 0);
    T_FBEM_D forces;
    ASSERT_TRUE(Post().GetMbgd(13, &forces));
    EXPECT_EQ(forces.part[2][0], 20.0);
    EXPECT_EQ(forces.part[4][0], 30.0);  // of the element that ends there
    EXPECT_EQ(forces.part[6][0], 50.0);
    EXPECT_EQ(forces.part[8][0], 60.0);
}

TEST_F(PostControl, TheNetLengthOfAMemberIsWithoutItsRigidEnds) {
    double length = 0.0;
    ASSERT_TRUE(Post().GetMembNetLength(13, length));
    EXPECT_EQ(length, 6.0);
    Records<CClassRgde>().TR_Add(203, {.lengthI = 0.3, .lengthJ = 0.2});
    ASSERT_TRUE(Post().GetMembNetLength(13, length));
    EXPECT_DOUBLE_EQ(length, 5.5);
    EXPECT_FALSE(Post().GetMembNetLength(99, length));
}

// ---- modes and histories ----

TEST_F(PostControl, AModeHasItsFrequenciesAndItsPeriod) {
    double values[4];
    ASSERT_TRUE(Post().GetEiFreq(2, values));
    EXPECT_DOUBLE_EQ(values[0], 4.0 * std::numbers::pi);
    EXPECT_EQ(values[1], 2.0);
    EXPECT_EQ(values[2], 0.5);
    EXPECT_EQ(values[3], 1e-8);
    EXPECT_FALSE(Post().GetEiFreq(0, values));
    EXPECT_FALSE(Post().GetEiFreq(3, values));
    T_PEIGV_D modes;
    ASSERT_TRUE(CClassPEigv(doc->GetMDBCtrl()->GetDBPost()).Get(modes));
    EXPECT_EQ(modes.modes, 2);
    EXPECT_EQ(modes.massLimit, 90.0);
}

TEST_F(PostControl, ParticipatingMassesAddUpFromModeToMode) {
    T_MPAM_D masses;
    ASSERT_TRUE(Post().GetEiMpam(2, masses));
    EXPECT_THAT(masses.mass, ElementsAre(0.0, 60.0, 0.0, 40.0, 0.0, 50.0));
    EXPECT_THAT(masses.sum, ElementsAre(80.0, 60.0, 0.0, 40.0, 80.0, 50.0));
    EXPECT_FALSE(Post().GetEiMpam(3, masses));
    T_MDRF_D factors;
    ASSERT_TRUE(Post().GetEiMdrf(1, factors));
    EXPECT_THAT(factors.factor, ElementsAre(50.0, 0.0, 0.0, 0.0, 50.0, 0.0));
    EXPECT_EQ(factors.value, 50.0);
}

TEST_F(PostControl, AnExtremeOfAHistoryComesWithItsTime) {
    const CThisInfo info(Post());
    T_TIMED_D values;
    EXPECT_FALSE(info.GetDispWithTime(1, LoadCaseSubKind::Max, values));
    ASSERT_TRUE(Post().SelectThlc(kHistory));
    ASSERT_TRUE(info.GetDispWithTime(1, LoadCaseSubKind::Max, values));
    EXPECT_EQ(values.value[0], 2.0);
    EXPECT_EQ(values.time[0], 0.5);
    ASSERT_TRUE(info.GetDispWithTime(1, LoadCaseSubKind::Min, values));
    EXPECT_EQ(values.value[0], -50.0);
    EXPECT_EQ(values.time[0], 0.25);
    ASSERT_TRUE(info.GetDispWithTime(1, LoadCaseSubKind::All, values));
    EXPECT_EQ(values.value[0], -50.0);
    EXPECT_FALSE(info.GetVeloWithTime(1, LoadCaseSubKind::Max, values));
    EXPECT_FALSE(Post().SelectThlc(99));
}

TEST_F(PostControl, AStateOfAHistoryIsTheSumOfItsModes) {
    const CThisInfo info(Post());
    ASSERT_TRUE(Post().SelectThlc(kHistory));
    EXPECT_EQ(info.GetStateCount(), 2u);
    EXPECT_EQ(info.GetTimeOfState(1), 0.02);
    T_DISP_D displacement;
    ASSERT_TRUE(info.GetDispOfState(2, 1, displacement));
    EXPECT_EQ(displacement.value[0], 2.0 * 2.0 + 0.5 * -2.0);
    EXPECT_FALSE(info.GetDispOfState(2, 2, displacement));
}

TEST_F(PostControl, ResultsThatWereReplacedCloseWhatWasOpened) {
    ASSERT_TRUE(Post().SelectLoadComb(LoadCaseKind::Static, kDead));
    doc->GetMDBCtrl()->SetResults(nullptr);
    T_DISP_D displacement;
    T_FBEM_D forces;
    T_REAC_D reaction;
    EXPECT_FALSE(Post().GetDisp(1, &displacement));
    EXPECT_FALSE(Post().GetMbgd(13, &forces));
    EXPECT_FALSE(Post().GetReac(0, &reaction));
}

}  // namespace
}  // namespace zt
