#include "zt_tb/post/load_step_rows.h"

#include <gtest/gtest.h>

namespace zt {
namespace {

using Rows = std::vector<LoadStepRow>;
using Steps = std::vector<std::int16_t>;

const LoadChoice kStatic{.key = 1};
constexpr LoadChoice Pushover(std::uint32_t key) {
    return {.key = key, .kind = LoadCaseKind::Pushover, .subKind = LoadCaseSubKind::All};
}

/// Case 1 has 5 increments; case 2 has 8 and starts from case 1; case 3 loads the structure before the others. Two
/// stages behind step 10: of case 1, of case 9.
PushoverControl Control() {
    PushoverControl control;
    control.stageCases = {1, 9};
    control.cases[1] = {.increments = 5};
    control.cases[2] = {.increments = 8, .previous = 1};
    control.cases[3] = {.increments = 10, .isInitial = true, .previous = 1};
    return control;
}
constexpr StepSettings kPushoverTable{.isPushover = true, .maxStep = 10};

Rows Build(const std::vector<LoadChoice>& loads, const Steps& steps, const StepSettings& settings) {
    return BuildLoadStepRows(Control(), loads, steps, settings);
}

TEST(LoadStepRows, ATableWithoutStepsHasARowForEachLoadCase) {
    EXPECT_EQ((Rows{{0, 0}, {1, 0}}), Build({kStatic, Pushover(1)}, {1, 2}, {}));
    EXPECT_TRUE(Build({}, {1, 2}, {}).empty());
}

TEST(LoadStepRows, WithTheListOffEveryLoadCaseHasEveryStep) {
    EXPECT_EQ((Rows{{0, 3}, {0, 1}, {1, 3}, {1, 1}}), Build({kStatic, Pushover(1)}, {3, 1}, {.listOff = true}));
    EXPECT_TRUE(Build({kStatic}, {}, {.listOff = true}).empty());
}

TEST(LoadStepRows, APushoverCaseHasTheStepsThatItReached) {
    EXPECT_EQ((Rows{{0, 1}, {0, 5}}), Build({Pushover(1)}, {1, 5, 6, 10}, kPushoverTable));
    EXPECT_EQ((Rows{{0, 1}, {0, 8}}), Build({Pushover(2)}, {1, 8, 9}, kPushoverTable));
}

TEST(LoadStepRows, OtherCasesOfAPushoverTableHaveOneRow) {
    EXPECT_EQ((Rows{{0, 0}, {1, 2}}), Build({kStatic, Pushover(1)}, {2}, kPushoverTable));
}

TEST(LoadStepRows, ANonlinearTableHasARowForEachLoadCase) {
    EXPECT_EQ((Rows{{0, 0}}), Build({Pushover(1)}, {1, 2}, {.isNonlinear = true, .maxStep = 10}));
}

TEST(LoadStepRows, StepsBehindTheLastOneAreStagesOfTheCaseThatIsContinued) {
    // Stage 11 is of case 1, which case 2 continues; stage 12 of a case that nobody continues; 13 does not exist.
    EXPECT_EQ((Rows{{0, 1}, {0, 11}}), Build({Pushover(2)}, {1, 11, 12, 13}, kPushoverTable));
    EXPECT_EQ((Rows{{0, 1}}), Build({Pushover(1)}, {1, 11}, kPushoverTable));
    EXPECT_EQ((Rows{{0, 1}}), Build({Pushover(3)}, {1, 11}, kPushoverTable));
}

TEST(LoadStepRows, WithAllStepsNoStepIsAStage) {
    EXPECT_EQ((Rows{{0, 1}, {0, 11}}),
              Build({Pushover(1)}, {1, 6, 11}, {.isPushover = true, .allSteps = true, .maxStep = 10}));
}

TEST(LoadStepRows, AMissingCaseEndsTheRowsWhereAStageAsksForIt) {
    EXPECT_EQ((Rows{{0, 2}}), Build({Pushover(1), Pushover(7), Pushover(2)}, {2, 11}, kPushoverTable));
    // Its steps are behind its increments, which are none.
    EXPECT_EQ((Rows{{1, 2}}), Build({Pushover(7), Pushover(2)}, {2}, kPushoverTable));
}

TEST(LoadOrder, GoesByKindThenKeyWithTheLeastBehindTheGreatestAndAllLast) {
    EXPECT_EQ(1'500'003, LoadOrder(3, 5, LoadCaseSubKind::Max));
    EXPECT_EQ(1'500'003, LoadOrder(3, 5, LoadCaseSubKind::Single));
    EXPECT_EQ(1'600'003, LoadOrder(3, 5, LoadCaseSubKind::Min));
    EXPECT_EQ(1'700'003, LoadOrder(3, 5, LoadCaseSubKind::All));
    EXPECT_EQ(0, LoadOrder(3, 5, 3));
    EXPECT_NE(LoadOrder(3, 5, 1), LoadOrder(5, 3, 1));
}

}  // namespace
}  // namespace zt
