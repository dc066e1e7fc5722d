#include "zt_tb/post/story/story_texts.h"

#include <gtest/gtest.h>

namespace zt {
namespace {

TEST(AngleText, IsTheReciprocalRoundedToAWholeNumber) {
    EXPECT_EQ(AngleText(0.002), "1/500");
    EXPECT_EQ(AngleText(1.0 / 666.5), "1/667") << "halves go away from zero";
    EXPECT_EQ(AngleText(-1.0 / 666.5), "-1/667");
    EXPECT_EQ(AngleText(1.0 / 666.4), "1/666");
    EXPECT_EQ(AngleText(0.8), "1/1");
    EXPECT_EQ(AngleText(5.0), "1/0");
}

TEST(AngleText, OfNothingIsZero) {
    EXPECT_EQ(AngleText(0.0), "0");
    EXPECT_EQ(AngleText(1e-10), "0");
    EXPECT_EQ(AngleText(-1e-10), "0");
    EXPECT_EQ(AngleText(1.25e-10), "1/8000000000");
}

TEST(LargeAngleText, TellsAnglesThatAreNotSmallAsTheyAre) {
    EXPECT_EQ(LargeAngleText(0.8), "0.8");
    EXPECT_EQ(LargeAngleText(-0.8), "-0.8");
    EXPECT_EQ(LargeAngleText(5.0), "5");
    EXPECT_EQ(LargeAngleText(0.5), "1/2");
    EXPECT_EQ(LargeAngleText(1.0 / 1.5), "1/2") << "the rounded denominator decides";
    EXPECT_EQ(LargeAngleText(-0.002), "-1/500");
    EXPECT_EQ(LargeAngleText(-1e-11), "0");
}

TEST(AllowableAngleText, HasSixDigits) {
    EXPECT_EQ(AllowableAngleText(550.0), "1/550");
    EXPECT_EQ(AllowableAngleText(-550.0), "-1/550");
    EXPECT_EQ(AllowableAngleText(1.0 / 0.015), "1/66.6667");
    EXPECT_EQ(AllowableAngleText(1234567.0), "1/1.23457e+06");
    EXPECT_EQ(AllowableAngleText(0.0), "1/0");
}

TEST(ExceedsAngle, AnAngleOfExactlyTheLimitDoesNot) {
    EXPECT_FALSE(ExceedsAngle(1.0 / 550.0, 550.0));
    EXPECT_FALSE(ExceedsAngle(-1.0 / 550.0, 550.0));
    EXPECT_FALSE(ExceedsAngle(1.0 / 550.0 + 0.9e-10, 550.0));
    EXPECT_TRUE(ExceedsAngle(1.0 / 550.0 + 1.1e-10, 550.0));
    EXPECT_TRUE(ExceedsAngle(-1.0 / 549.0, 550.0));
}

TEST(ExceedsAngle, ANegativeLimitIsExceededByAnyAngle) { EXPECT_TRUE(ExceedsAngle(0.0, -550.0)); }

TEST(RatioOrNone, DoesNotDivideByNothing) {
    EXPECT_DOUBLE_EQ(RatioOrNone(3.0, 2.0), 1.5);
    EXPECT_DOUBLE_EQ(RatioOrNone(3.0, 1e-10), 0.0);
    EXPECT_DOUBLE_EQ(RatioOrNone(3.0, -1e-10), 0.0);
    EXPECT_DOUBLE_EQ(RatioOrNone(3e-10, -1.5e-10), -2.0);
}

}  // namespace
}  // namespace zt
