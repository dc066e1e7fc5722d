#include "zt_db/post/post_classes.h"

#include <stdlib.h>

#include "zt_db/post/post_fixture.h"
#include "zt_db/post/product.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using StaticCases = PortalTest;

TEST_F(StaticCases, AreListedWithOrWithoutEarthquakes) {
    Records<CClassStld>().TR_Add(3, T_STLD_D{.name = "EX", .type = "E"});
    const CClassPStld cases(doc->GetMDBCtrl()->GetDBPre());
    std::vector<std::uint32_t> keys = {99};
    EXPECT_TRUE(cases.GetKeyList(keys, 1, 1));
    EXPECT_THAT(keys, ElementsAre(kDead, kWind, 3));
    EXPECT_TRUE(cases.GetKeyList(keys, 1, 0));
    EXPECT_THAT(keys, ElementsAre(kDead, kWind));
    EXPECT_TRUE(cases.GetKeyList(keys, 0, 1));
    EXPECT_THAT(keys, ElementsAre(3));
    EXPECT_FALSE(cases.GetKeyList(keys, 0, 0));
    EXPECT_THAT(keys, IsEmpty());
}

TEST(PushoverSteps, AreNamedByTheirNumberUpToTheLast) {
    const CClassPoas pushover;
    EXPECT_EQ(pushover.GetStepName(10, 1, 2, 1), "1");
    EXPECT_EQ(pushover.GetStepName(10, 10, 2, 1), "10");
    EXPECT_EQ(pushover.GetStepName(10, 11, 2, 1), "");
    EXPECT_EQ(pushover.GetStepName(10, 0, 2, 1), "");
}

class PushoverRuns : public PortalTest {
protected:
    /// Makes results of the pushover cases 1 to 3 with lists of what was run and of the stages behind it.
    void PutRuns(const std::vector<std::uint32_t>& runs, const std::vector<std::uint32_t>& stages) {
        auto results = std::make_shared<MemoryResults>();
        ASSERT_TRUE(PutModel(*results));
        for (const auto& [key, name] : {std::pair(1u, "GRAV"), std::pair(2u, "PX"), std::pair(3u, "PY")}) {
            ASSERT_TRUE(results->PutCase({LoadCaseKind::Pushover, key, name, ""}));
        }
        ASSERT_TRUE(results->PutKeys(ResultName::PushoverCases, runs));
        ASSERT_TRUE(results->PutKeys(ResultName::PushoverStages, stages));
        doc->GetMDBCtrl()->SetResults(results);
    }
    CClassPPolc Cases() { return CClassPPolc(doc->GetMDBCtrl()->GetDBPost()); }
    /// Increments, the case before and whether it is an initial one, of a case.
    std::vector<int> RunOf(std::uint32_t key) {
        return {Cases().GetIncStep(key), static_cast<int>(Cases().GetPrePolcKey(key)), Cases().IsInitial(key) ? 1 : 0};
    }
    std::vector<std::string> Stages(bool exist) {
        std::vector<std::string> stages = {"before"};
        EXPECT_EQ(Post().GetCaseStep_AS(stages) != 0, exist);
        return stages;
    }
};

TEST_F(PushoverRuns, TellIncrementsPredecessorsAndStages) {
    PutRuns({1, 2, 0, 1, 2, 4, 1, 0, 3, 3, 1, 7}, {1, 3});
    EXPECT_THAT(RunOf(1), ElementsAre(2, 0, 1));
    EXPECT_THAT(RunOf(2), ElementsAre(4, 1, 0));
    EXPECT_THAT(RunOf(3), ElementsAre(3, 1, 1));
    EXPECT_THAT(RunOf(4), ElementsAre(0, 0, 0));
    EXPECT_EQ(Post().GetMaxStep_PO(), 4);
    T_POAS_D control;
    EXPECT_TRUE(CClassPoas(doc->GetMDBCtrl()->GetDBPost()).Get(control));
    EXPECT_THAT(control.stages, ElementsAre(1, 3));
    EXPECT_THAT(Stages(true), ElementsAre("GRAV", "PY"));
}

TEST_F(PushoverRuns, OfADamagedListAreThoseThatAreWhole) {
    for (const std::size_t length : {5u, 6u, 7u}) {
        std::vector<std::uint32_t> runs = {2, 4, 1, 0, 3, 9, 1, 1};
        runs.resize(length);
        PutRuns(runs, {});
        EXPECT_THAT(RunOf(2), ElementsAre(4, 1, 0)) << length;
        EXPECT_THAT(RunOf(3), ElementsAre(0, 0, 0)) << length;
        EXPECT_EQ(Post().GetMaxStep_PO(), 4) << length;
    }
    PutRuns({2, 4, 1}, {});
    EXPECT_EQ(Post().GetMaxStep_PO(), 0);
}

TEST_F(PushoverRuns, OfUnknownCasesDoNotCount) {
    PutRuns({9, 99, 1, 0, 2, 4, 9, 0}, {9, 2});
    EXPECT_EQ(Post().GetMaxStep_PO(), 4);
    EXPECT_THAT(RunOf(2), ElementsAre(4, 9, 0));
    EXPECT_THAT(Stages(true), ElementsAre("", "PX"));
}

TEST_F(PushoverRuns, AreNoneWhereResultsDoNotTellThem) {
    PutRuns({}, {});
    EXPECT_THAT(RunOf(2), ElementsAre(0, 0, 0));
    EXPECT_EQ(Post().GetMaxStep_PO(), 0);
    EXPECT_THAT(Stages(false), IsEmpty());
    doc->GetMDBCtrl()->SetResults(nullptr);
    EXPECT_EQ(Post().GetMaxStep_PO(), 0);
    EXPECT_THAT(Stages(false), IsEmpty());
}

TEST(CombinationControl, UsesCombinationsAsLongAsThereIsNoRecord) {
    T_LCCT_D control;
    EXPECT_FALSE(CClassLcct().Get(control));
    EXPECT_EQ(control.useCombinations, 1);
}

TEST(ProductSwitch, IsOnForYesAlone) {
    constexpr const char* kName = "ZT_TEST_SWITCH";
    EXPECT_EQ(CProduct::GetTestEnvValue(kName), "");
    EXPECT_FALSE(CProduct::IsSwitchedOn(kName));
    for (const auto& [value, isOn] : {std::pair("yes", true), std::pair("Yes", false), std::pair("", false)}) {
        ::setenv(kName, value, 1);
        EXPECT_EQ(CProduct::GetTestEnvValue(kName), value);
        EXPECT_EQ(CProduct::IsSwitchedOn(kName), isOn) << value;
    }
    ::unsetenv(kName);
}

}  // namespace
}  // namespace zt
