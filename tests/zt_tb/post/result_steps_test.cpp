#include "zt_tb/post/result_steps.h"

#include "zt_db/post/post_fixture.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using StepsOfResults = PortalResultsTest;
using StepsWithoutResults = PortalTest;

TB_ACTIVE_PARAM ParamWithSteps() { return {.steps = {.isOn = true, .selected = {1}}}; }

const ResultSteps kPushover = {.modes = 2, .pushoverSteps = 3, .named = {"A", "", "C"}, .stages = {"S1", "S2"}};

TEST_F(StepsOfResults, AreTheModesAndNoPushover) {
    const ResultSteps steps = StepsOf(Post());
    EXPECT_EQ(steps.modes, 2);
    EXPECT_EQ(steps.pushoverSteps, 0);
    EXPECT_THAT(steps.stages, IsEmpty());
}

TEST_F(StepsWithoutResults, AreNone) { EXPECT_EQ(StepsOf(Post()).modes, 0); }

TEST(ResultSteps, OfModesHaveNumbersFromOne) {
    for (const int tab : {17, 47}) {
        TB_ACTIVE_PARAM param = ParamWithSteps();
        EXPECT_TRUE(GetAllStepForActiveNew(kPushover, tab, param));
        EXPECT_EQ(param.stepMode, StepMode::Modes);
        EXPECT_EQ(param.steps.title, "Eigenvalue Mode");
        EXPECT_THAT(param.steps.names, ElementsAre("Mode 1", "Mode 2"));
        EXPECT_THAT(param.steps.keys, ElementsAre(1, 2));
        EXPECT_THAT(param.steps.selected, ElementsAre(1));
        EXPECT_TRUE(param.steps.isOn);
    }
}

TEST(ResultSteps, OfStoriesEndWithTheStages) {
    for (const int tab : {39, 46}) {
        TB_ACTIVE_PARAM param = ParamWithSteps();
        EXPECT_TRUE(GetAllStepForActiveNew(kPushover, tab, param));
        EXPECT_EQ(param.stepMode, 0u);
        EXPECT_THAT(param.stepOptions, ElementsAre(0, 0));
        EXPECT_THAT(param.steps.keys, ElementsAre(1, 2, 3, 4, 5));
        EXPECT_THAT(param.steps.names, ElementsAre("1", "2", "3", "S1", "S2"));
    }
}

TEST(ResultSteps, OfHingeStatesBelongToTheirCases) {
    for (const int tab : {101, 102}) {
        TB_ACTIVE_PARAM param = ParamWithSteps();
        EXPECT_FALSE(GetAllStepForActiveNew(kPushover, tab, param));
        EXPECT_EQ(param.stepMode, StepMode::HingeStates);
        EXPECT_THAT(param.stepOptions, ElementsAre(0, 1));
        EXPECT_THAT(param.steps.keys, ElementsAre(1, 2, 3, 7, 8)) << "stages stand behind three named steps";
        EXPECT_THAT(param.steps.names, ElementsAre("1", "2", "3", "S1", "S2"));
    }
}

TEST(ResultSteps, OfMembersHaveThreeNamedOnesBehindTheLast) {
    for (const int tab : {93, 99, 106, 133}) {
        TB_ACTIVE_PARAM param = ParamWithSteps();
        EXPECT_TRUE(GetAllStepForActiveNew(kPushover, tab, param));
        EXPECT_EQ(param.stepMode, StepMode::Pushover);
        EXPECT_THAT(param.stepOptions, ElementsAre(3, 0));
        EXPECT_THAT(param.steps.keys, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8));
        EXPECT_THAT(param.steps.names, ElementsAre("1", "2", "3", "A", "5", "C", "S1", "S2"));
    }
}

TEST(ResultSteps, AreNotAddedWithoutAPushoverAnalysis) {
    for (const int tab : {39, 93, 101, 133}) {
        TB_ACTIVE_PARAM param = ParamWithSteps();
        GetAllStepForActiveNew({.modes = 2, .named = {"A", "B", "C"}, .stages = {"S"}}, tab, param);
        EXPECT_THAT(param.steps.keys, IsEmpty());
        EXPECT_TRUE(param.steps.isOn);
    }
}

TEST(ResultSteps, AreNoSectionOfOtherTabs) {
    for (const int tab : {0, 16, 18, 48, 92, 100, 103, 105, 134}) {
        TB_ACTIVE_PARAM param = ParamWithSteps();
        EXPECT_TRUE(GetAllStepForActiveNew(kPushover, tab, param));
        EXPECT_FALSE(param.steps.isOn) << tab;
        EXPECT_THAT(param.steps.keys, IsEmpty());
    }
}

}  // namespace
}  // namespace zt
