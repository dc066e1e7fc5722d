#include "velda_lib/str_parser.h"

#include <algorithm>
#include <random>
#include <set>

#include "velda_lib/numeric_optimizer.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velda {
namespace {

using Numbers = std::vector<std::uint32_t>;
using testing::ElementsAre;

Numbers Read(std::string_view text) {
    Numbers numbers;
    const NumberListResult result = CStrParser::GetNodeList(text, numbers);
    EXPECT_TRUE(result) << text << ": " << result.badToken;
    EXPECT_EQ(result.badToken, "");
    return numbers;
}

/// Expects that a list is refused for its token `badToken` and that nothing was written.
void ExpectFault(std::string_view text, NumberListFault fault, std::string_view badToken) {
    Numbers numbers = {7, 7, 7};
    const NumberListResult result = CStrParser::GetNodeList(text, numbers);
    EXPECT_FALSE(result) << text;
    EXPECT_EQ(result.fault, fault) << text;
    EXPECT_EQ(result.badToken, badToken) << text;
    EXPECT_THAT(numbers, ElementsAre(7, 7, 7)) << text;
}

std::string PlainList(const Numbers& numbers) {
    std::string text;
    for (const std::uint32_t number : numbers) text += (text.empty() ? "" : " ") + std::to_string(number);
    return text;
}

TEST(NodeList, ReadsNumbersAndEveryKindOfRange) {
    EXPECT_THAT(Read("1 3to7 10-12 20to40by5"), ElementsAre(1, 3, 4, 5, 6, 7, 10, 11, 12, 20, 25, 30, 35, 40));
    EXPECT_THAT(Read("10-16by3"), ElementsAre(10, 13, 16));
}

TEST(NodeList, ARangeStopsAtOrBeforeItsLastNumber) {
    EXPECT_THAT(Read("1to10by4"), ElementsAre(1, 5, 9));
    EXPECT_THAT(Read("5to5"), ElementsAre(5));
    EXPECT_THAT(Read("5to6by100"), ElementsAre(5));
}

TEST(NodeList, BlanksTabsLineEndsAndCommasSeparate) {
    EXPECT_THAT(Read("1,2\t3\n4\r\n5 , 6,,7"), ElementsAre(1, 2, 3, 4, 5, 6, 7));
    EXPECT_THAT(Read(" ,\t1to3,\n"), ElementsAre(1, 2, 3));
}

TEST(NodeList, TheWordsOfARangeMayBeInUpperCase) {
    EXPECT_THAT(Read("1TO5BY2 6To7 8tO9"), ElementsAre(1, 3, 5, 6, 7, 8, 9));
}

TEST(NodeList, LeadingZerosDoNotCount) { EXPECT_THAT(Read("007 01to03"), ElementsAre(7, 1, 2, 3)); }

TEST(NodeList, EachNumberComesOnceWhereItFirstAppears) {
    EXPECT_THAT(Read("5 3 5 1to6 3"), ElementsAre(5, 3, 1, 2, 4, 6));
}

TEST(NodeList, AnEmptyTextIsAnEmptyList) {
    EXPECT_THAT(Read(""), ElementsAre());
    EXPECT_THAT(Read(" ,\t\r\n"), ElementsAre());
    Numbers numbers = {1, 2};
    EXPECT_TRUE(CStrParser::GetNodeList("", numbers));
    EXPECT_THAT(numbers, ElementsAre());
}

TEST(NodeList, TheLargestNumberCanBeRead) {
    EXPECT_THAT(Read("4294967295"), ElementsAre(4294967295u));
    EXPECT_THAT(Read("4294967293to4294967295"), ElementsAre(4294967293u, 4294967294u, 4294967295u));
    EXPECT_THAT(Read("1to4294967295by4294967294"), ElementsAre(1u, 4294967295u));
}

TEST(NodeList, ATokenThatIsNoNumberIsNamed) {
    for (const std::string_view token : {"0",
                                         "-3",
                                         "+3",
                                         "3to",
                                         "to7",
                                         "3-",
                                         "-",
                                         "to",
                                         "abc",
                                         "5x",
                                         "3to7x",
                                         "3to7by",
                                         "3to7byx",
                                         "3by2",
                                         "3to7to9",
                                         "3--7",
                                         "3to-7",
                                         "1.5",
                                         "1to4294967296",
                                         "4294967296",
                                         "1to5by4294967296",
                                         "0to5",
                                         "99999999999999999999"}) {
        ExpectFault("1 2," + std::string(token) + "\t9", NumberListFault::NotANumber, token);
        ExpectFault(token, NumberListFault::NotANumber, token);
    }
}

TEST(NodeList, TheWordsOfARangeMustTouchItsNumbers) {
    ExpectFault("3 to 7", NumberListFault::NotANumber, "to");
    ExpectFault("3to 7", NumberListFault::NotANumber, "3to");
}

TEST(NodeList, ARangeThatRunsBackwardsIsNamed) {
    ExpectFault("1 7to3 9", NumberListFault::Backwards, "7to3");
    ExpectFault("7-3", NumberListFault::Backwards, "7-3");
    ExpectFault("5to0", NumberListFault::Backwards, "5to0");
}

TEST(NodeList, AStepOfZeroIsNamed) { ExpectFault("1to5by0", NumberListFault::ZeroStep, "1to5by0"); }

TEST(NodeList, OfSeveralBadTokensTheFirstIsNamed) { ExpectFault("1 7to3 abc 0", NumberListFault::Backwards, "7to3"); }

TEST(NodeList, ARangeOfTooManyNumbersIsRefused) {
    ExpectFault("5 1to10000001", NumberListFault::TooMany, "1to10000001");
    ExpectFault("1to4294967295", NumberListFault::TooMany, "1to4294967295");
    ExpectFault("1to4294967295by2", NumberListFault::TooMany, "1to4294967295by2");
}

TEST(NodeList, RangesThatTogetherHoldTooManyNumbersAreRefused) {
    EXPECT_EQ(Read("1to9999999 3").size(), CStrParser::kMaxNumbers - 1);
    ExpectFault("1to9999999 20000000 20000001", NumberListFault::TooMany, "20000001");
    ExpectFault("1to10000000 3", NumberListFault::TooMany, "3");
}

TEST(NumericOptimizer, ThreeNeighboursBecomeARange) {
    EXPECT_EQ(CNumericOptimizer::OptimizeSortedArray({1, 2, 3, 4, 5, 8, 20, 25, 30, 35, 40}), "1to5 8 20to40by5");
    EXPECT_EQ(CNumericOptimizer::OptimizeSortedArray({1, 2, 3}), "1to3");
    EXPECT_EQ(CNumericOptimizer::OptimizeSortedArray({1, 2}), "1 2");
}

TEST(NumericOptimizer, ALargerStepNeedsFourNumbers) {
    EXPECT_EQ(CNumericOptimizer::OptimizeSortedArray({20, 25, 30}), "20 25 30");
    EXPECT_EQ(CNumericOptimizer::OptimizeSortedArray({20, 25, 30, 35}), "20to35by5");
}

TEST(NumericOptimizer, NothingGivesAnEmptyText) { EXPECT_EQ(CNumericOptimizer::OptimizeSortedArray({}), ""); }

TEST(NumericOptimizer, SelectedNumbersComeInAscendingOrder) {
    Numbers numbers;
    ASSERT_TRUE(CNumericOptimizer::SelectNumByStr("9 3to5 1 4", numbers));
    EXPECT_THAT(numbers, ElementsAre(1, 3, 4, 5, 9));
}

TEST(NumericOptimizer, ABadTokenLeavesTheSelectionAlone) {
    Numbers numbers = {5, 2};
    const NumberListResult result = CNumericOptimizer::SelectNumByStr("1 x", numbers);
    EXPECT_FALSE(result);
    EXPECT_EQ(result.badToken, "x");
    EXPECT_THAT(numbers, ElementsAre(5, 2));
}

/// An ascending set of numbers, dense or sparse, with runs of even steps in it.
Numbers RandomSortedSet(std::mt19937& random) {
    const auto below = [&](std::uint32_t end) { return static_cast<std::uint32_t>(random() % end); };
    std::set<std::uint32_t> numbers;
    const std::uint32_t range = 1u << below(32);
    for (std::uint32_t part = below(20); part > 0; --part) {
        const std::uint32_t first = 1 + below(range);
        const std::uint32_t step = 1 + below(12);
        const std::uint32_t count = 1 + below(8);
        for (std::uint32_t i = 0; i < count; ++i) numbers.insert(first + i * step);
    }
    return {numbers.begin(), numbers.end()};
}

TEST(NumericOptimizer, AnySetComesBackFromItsText) {
    std::mt19937 random(1);
    for (int i = 0; i < 20'000; ++i) {
        const Numbers numbers = RandomSortedSet(random);
        const std::string text = CNumericOptimizer::OptimizeSortedArray(numbers);
        Numbers back;
        ASSERT_TRUE(CNumericOptimizer::SelectNumByStr(text, back)) << text;
        ASSERT_EQ(back, numbers) << text;
    }
}

TEST(NumericOptimizer, TheTextIsNeverLongerThanThePlainList) {
    std::mt19937 random(2);
    for (int i = 0; i < 20'000; ++i) {
        const Numbers numbers = RandomSortedSet(random);
        const std::string text = CNumericOptimizer::OptimizeSortedArray(numbers);
        ASSERT_LE(text.size(), PlainList(numbers).size()) << text;
    }
}

TEST(NumericOptimizer, ARangeEndsAtTheLargestNumber) {
    const Numbers numbers = {4294967290u, 4294967291u, 4294967292u, 4294967293u, 4294967294u, 4294967295u};
    EXPECT_EQ(CNumericOptimizer::OptimizeSortedArray(numbers), "4294967290to4294967295");
}

}  // namespace
}  // namespace velda
