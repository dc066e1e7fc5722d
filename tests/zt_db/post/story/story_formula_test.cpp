#include "zt_db/post/story/story_formula.h"

#include <gtest/gtest.h>

namespace zt {
namespace {

using namespace StoryFormula;

TEST(StoryFormula, LimitsMayBeReachedButNotExceeded) {
    EXPECT_FALSE(Exceeds(1.2, 1.2));
    EXPECT_TRUE(Exceeds(1.2001, 1.2));
    EXPECT_FALSE(FallsBelow(0.7, 0.7));
    EXPECT_TRUE(FallsBelow(0.6999, 0.7));
    EXPECT_FALSE(Exceeds(0.1 + 0.2, 0.3)) << "the last digits of a sum break no limit";
}

TEST(StoryFormula, TorsionalAmplificationGoesFromOneToThree) {
    EXPECT_DOUBLE_EQ(TorsionalAmplification(1.2, 1.0), 1.0);
    EXPECT_DOUBLE_EQ(TorsionalAmplification(1.0, 1.0), 1.0);
    EXPECT_DOUBLE_EQ(TorsionalAmplification(1.8, 1.0), 2.25);  // (1.8 / 1.2)^2
    EXPECT_DOUBLE_EQ(TorsionalAmplification(-1.8, -1.0), 2.25);
    EXPECT_DOUBLE_EQ(TorsionalAmplification(5.0, 1.0), 3.0);
    EXPECT_DOUBLE_EQ(TorsionalAmplification(5.0, 0.0), 1.0);
}

TEST(StoryFormula, StabilityCoefficientIsThatOfTheElasticDrift) {
    // P = 1000, elastic drift 0.01 with Cd 5 and Ie 1.25: 0.04; V = 50, h = 4: 1000 * 0.04 * 1.25 / (50 * 4 * 5).
    EXPECT_DOUBLE_EQ(AmplifiedDrift(0.01, 5.0, 1.25), 0.04);
    EXPECT_DOUBLE_EQ(StabilityCoefficient(1000.0, 0.04, 1.25, 50.0, 4.0, 5.0), 0.05);
    EXPECT_DOUBLE_EQ(StabilityCoefficient(1000.0, 0.04, 1.25, -50.0, 4.0, 5.0), 0.05);
    EXPECT_DOUBLE_EQ(StabilityCoefficient(1000.0, 0.04, 1.25, 0.0, 4.0, 5.0), 0.0);
    EXPECT_DOUBLE_EQ(AmplifiedDrift(0.01, 5.0, 0.0), 0.0);
}

TEST(StoryFormula, SecondOrderCountsAboveATenth) {
    EXPECT_DOUBLE_EQ(SecondOrderAmplification(0.1), 1.0);
    EXPECT_DOUBLE_EQ(SecondOrderAmplification(0.2), 1.25);
    EXPECT_DOUBLE_EQ(SecondOrderAmplification(1.0), 1.0) << "a story without stability has no amplification";
}

TEST(StoryFormula, OverturningIsReducedBelowTheTenthStory) {
    EXPECT_DOUBLE_EQ(OverturningReduction(1), 1.0);
    EXPECT_DOUBLE_EQ(OverturningReduction(10), 1.0);
    EXPECT_DOUBLE_EQ(OverturningReduction(11), 0.98);
    EXPECT_DOUBLE_EQ(OverturningReduction(15), 0.9);
    EXPECT_DOUBLE_EQ(OverturningReduction(20), 0.8);
    EXPECT_DOUBLE_EQ(OverturningReduction(40), 0.8);
}

}  // namespace
}  // namespace zt
