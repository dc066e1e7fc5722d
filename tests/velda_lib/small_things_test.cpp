#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <unordered_map>
#include <vector>

#include "velda_lib/comp_func.h"
#include "velda_lib/flat_index.h"
#include "velda_lib/function_ref.h"
#include "velda_lib/math_func.h"
#include "velda_lib/msg_dll.h"
#include "velda_lib/outcome.h"
#include "velda_lib/specialchar.h"
#include <gtest/gtest.h>

namespace velda {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// Runs the same random operations on a FlatIndex and on a std::unordered_map and compares every answer.
class IndexBesideMap {
public:
    explicit IndexBesideMap(unsigned seed) : random_(seed) {}

    void Do(std::uint32_t key) {
        switch (random_() % 4) {
            case 0:
            case 1: Put(key); break;
            case 2: ASSERT_EQ(index_.Erase(key), map_.erase(key) == 1) << key; break;
            default: ExpectSame(key);
        }
        ASSERT_EQ(index_.Count(), map_.size());
    }
    void ExpectSame(std::uint32_t key) const {
        const auto found = map_.find(key);
        ASSERT_EQ(index_.Contains(key), found != map_.end()) << key;
        ASSERT_EQ(index_.Find(key), found == map_.end() ? FlatIndex::kNone : found->second) << key;
    }
    void ExpectSameEverywhere() const {
        for (const auto& [key, value] : map_) ASSERT_EQ(index_.Find(key), value) << key;
    }
    std::uint32_t Below(std::uint32_t end) { return static_cast<std::uint32_t>(random_() % end); }
    std::uint32_t AnyKey() { return 1 + Below(std::numeric_limits<std::uint32_t>::max()); }

private:
    void Put(std::uint32_t key) {
        const std::uint32_t value = Below(1'000'000);
        ASSERT_EQ(index_.Put(key, value), map_.insert_or_assign(key, value).second) << key;
    }

    std::mt19937 random_;
    FlatIndex index_;
    std::unordered_map<std::uint32_t, std::uint32_t> map_;
};

class FlatIndexOfStride : public testing::TestWithParam<std::uint32_t> {};

TEST_P(FlatIndexOfStride, AnswersAsAMapDoes) {
    IndexBesideMap both(GetParam());
    for (int i = 0; i < 300'000; ++i) {
        const std::uint32_t span = i < 150'000 ? 50'000u : 500u;  // first a large index, then the same places again
        both.Do((1 + both.Below(span)) * GetParam());
        if (HasFatalFailure()) return;
    }
    both.ExpectSameEverywhere();
}

INSTANTIATE_TEST_SUITE_P(, FlatIndexOfStride, testing::Values(1, 3, 16, 1024, 65536));

TEST(FlatIndex, AnswersAsAMapDoesForKeysOfAnySize) {
    IndexBesideMap both(7);
    std::vector<std::uint32_t> keys = {1, 2, 15, 16, 17, 0x7FFFFFFF, 0x80000000, 0xFFFFFFF0, 0xFFFFFFFE, 0xFFFFFFFF};
    while (keys.size() < 2'000) keys.push_back(both.AnyKey());
    for (int i = 0; i < 300'000; ++i) {
        both.Do(keys[both.Below(static_cast<std::uint32_t>(keys.size()))]);
        if (HasFatalFailure()) return;
    }
    for (const std::uint32_t key : keys) both.ExpectSame(key);
}

TEST(FlatIndex, StaysRightWhileItIsEmptiedInAnyOrder) {
    std::mt19937 random(8);
    std::vector<std::uint32_t> keys(20'000);
    for (std::uint32_t i = 0; i < keys.size(); ++i) keys[i] = i + 1;
    FlatIndex index;
    for (const std::uint32_t key : keys) index.Put(key, key * 2);
    std::shuffle(keys.begin(), keys.end(), random);
    for (std::size_t gone = 0; gone + 1 < keys.size(); ++gone) {
        ASSERT_TRUE(index.Erase(keys[gone]));
        ASSERT_FALSE(index.Contains(keys[gone]));
        ASSERT_EQ(index.Find(keys[gone + 1]), keys[gone + 1] * 2);
        ASSERT_EQ(index.Find(keys.back()), keys.back() * 2);
    }
    EXPECT_TRUE(index.Erase(keys.back()));
    EXPECT_EQ(index.Count(), 0u);
}

TEST(FlatIndex, KeyZeroIsNeverFound) {
    FlatIndex index;
    EXPECT_EQ(index.Find(0), FlatIndex::kNone);
    index.Put(0, 5);
    EXPECT_EQ(index.Find(0), FlatIndex::kNone);
    EXPECT_FALSE(index.Contains(0));
    EXPECT_FALSE(index.Erase(0));
    EXPECT_EQ(index.Count(), 0u);
}

TEST(FlatIndex, PutReplacesAndTellsWhetherTheKeyIsNew) {
    FlatIndex index;
    EXPECT_TRUE(index.Put(5, 1));
    EXPECT_FALSE(index.Put(5, 2));
    EXPECT_EQ(index.Find(5), 2u);
    EXPECT_EQ(index.Count(), 1u);
}

TEST(FlatIndex, ReservedSpaceSuffices) {
    FlatIndex index;
    index.Reserve(1'000);
    const std::size_t bytes = index.MemoryBytes();
    for (std::uint32_t key = 1; key <= 1'000; ++key) index.Put(key, key);
    EXPECT_EQ(index.MemoryBytes(), bytes);
    EXPECT_EQ(index.Count(), 1'000u);
}

TEST(FlatIndex, IsEmptyAndUsableAfterClear) {
    FlatIndex index;
    index.Put(5, 1);
    index.Clear();
    EXPECT_EQ(index.Count(), 0u);
    EXPECT_FALSE(index.Contains(5));
    EXPECT_FALSE(index.Erase(5));
    EXPECT_TRUE(index.Put(5, 3));
    EXPECT_EQ(index.Find(5), 3u);
}

int Twice(int value) { return 2 * value; }

TEST(FunctionRef, CallsTheCallableItself) {
    int calls = 0;
    auto count = [&calls](int more) { return calls += more; };
    const FunctionRef<int(int)> reference = count;
    EXPECT_EQ(reference(2), 2);
    EXPECT_EQ(reference(3), 5);
    EXPECT_EQ(calls, 5);
}

TEST(FunctionRef, SharesTheStateOfAMutableCallable) {
    auto next = [number = 0]() mutable { return ++number; };
    const FunctionRef<int()> reference = next;
    const FunctionRef<int()> copy = reference;
    EXPECT_EQ(reference(), 1);
    EXPECT_EQ(copy(), 2);
    EXPECT_EQ(next(), 3);
}

TEST(FunctionRef, TakesFunctionPointersAndConstCallables) {
    int (*const pointer)(int) = &Twice;
    EXPECT_EQ(FunctionRef<int(int)>(pointer)(21), 42);
    const auto add = [](int a, int b) { return a + b; };
    EXPECT_EQ((FunctionRef<int(int, int)>(add)(1, 2)), 3);
}

TEST(FunctionRef, HandsArgumentsThroughWithoutACopy) {
    const auto open = [](std::unique_ptr<int> number, int& target) { target = *number; };
    int target = 0;
    FunctionRef<void(std::unique_ptr<int>, int&)>{open}(std::make_unique<int>(9), target);
    EXPECT_EQ(target, 9);
}

TEST(CompFunc, ComparesWithRegardToCase) {
    EXPECT_EQ(CCompFunc::CompString("Steel", "Steel"), 0);
    EXPECT_NE(CCompFunc::CompString("Steel", "steel"), 0);
    EXPECT_LT(CCompFunc::CompString("Steel", "steel"), 0);
    EXPECT_GT(CCompFunc::CompString("B2", "B10"), 0);
    EXPECT_LT(CCompFunc::CompString("B", "B1"), 0);
    EXPECT_EQ(CCompFunc::CompString("", ""), 0);
}

TEST(CompFunc, OrdersByCodePoint) {
    EXPECT_LT(CCompFunc::CompString("z", "é"), 0);
    EXPECT_LT(CCompFunc::CompString("é", "가"), 0);
    EXPECT_LT(CCompFunc::CompString("가", "나"), 0);
}

TEST(CompFunc, EqualNoCaseFoldsLatinLettersOnly) {
    EXPECT_TRUE(CCompFunc::EqualNoCase("YES", "yes"));
    EXPECT_TRUE(CCompFunc::EqualNoCase("azAZ09", "AZaz09"));
    EXPECT_TRUE(CCompFunc::EqualNoCase("층1F", "층1f"));
    EXPECT_TRUE(CCompFunc::EqualNoCase("", ""));
    EXPECT_FALSE(CCompFunc::EqualNoCase("yes", "yes "));
    EXPECT_FALSE(CCompFunc::EqualNoCase("[", "{"));
    EXPECT_FALSE(CCompFunc::EqualNoCase("@", "`"));
}

TEST(RoundOff, HalvesGoAwayFromZero) {
    EXPECT_EQ(CMathFunc::mathRoundOff(0.5, 1.0), 1.0);
    EXPECT_EQ(CMathFunc::mathRoundOff(1.5, 1.0), 2.0);
    EXPECT_EQ(CMathFunc::mathRoundOff(2.5, 1.0), 3.0);
    EXPECT_EQ(CMathFunc::mathRoundOff(-0.5, 1.0), -1.0);
    EXPECT_EQ(CMathFunc::mathRoundOff(-2.5, 1.0), -3.0);
    EXPECT_EQ(CMathFunc::mathRoundOff(2.4999, 1.0), 2.0);
    EXPECT_EQ(CMathFunc::mathRoundOff(-2.4999, 1.0), -2.0);
}

TEST(RoundOff, GivesMultiplesOfTheStep) {
    EXPECT_EQ(CMathFunc::mathRoundOff(7.0, 5.0), 5.0);
    EXPECT_EQ(CMathFunc::mathRoundOff(7.5, 5.0), 10.0);
    EXPECT_EQ(CMathFunc::mathRoundOff(1.3, 0.25), 1.25);
    EXPECT_DOUBLE_EQ(CMathFunc::mathRoundOff(1.26, 0.1), 1.3);
}

TEST(RoundOff, AStepThatIsNoStepChangesNothing) {
    EXPECT_EQ(CMathFunc::mathRoundOff(1.26, 0.0), 1.26);
    EXPECT_EQ(CMathFunc::mathRoundOff(1.26, -1.0), 1.26);
    EXPECT_EQ(CMathFunc::mathRoundOff(1.26, std::nan("")), 1.26);
    EXPECT_EQ(CMathFunc::mathRoundOff(1.26, kInfinity), 1.26);
}

TEST(RoundOff, AValueThatIsNotFiniteComesBack) {
    EXPECT_EQ(CMathFunc::mathRoundOff(kInfinity, 1.0), kInfinity);
    EXPECT_EQ(CMathFunc::mathRoundOff(-kInfinity, 1.0), -kInfinity);
    EXPECT_TRUE(std::isnan(CMathFunc::mathRoundOff(std::nan(""), 1.0)));
}

TEST(RoundOff, AHugeValueStaysFiniteWithATinyStep) { EXPECT_EQ(CMathFunc::mathRoundOff(1e300, 1e-300), 1e300); }

TEST(Specialchar, IsUtf8) {
    EXPECT_EQ(CSpecialchar::m_cs2Square, "\xC2\xB2");
    EXPECT_EQ(CSpecialchar::m_cs3Square, "\xC2\xB3");
    EXPECT_EQ(CSpecialchar::m_cs4Square, "\xE2\x81\xB4");
    EXPECT_EQ(CSpecialchar::m_cs6Square, "\xE2\x81\xB6");
    EXPECT_EQ(CSpecialchar::m_csMiddleDot, "\xC2\xB7");
    EXPECT_EQ(CSpecialchar::m_csDegree, "\xC2\xB0");
}

TEST(RemoveQuote, TakesOnePairOfSurroundingQuotesOff) {
    EXPECT_EQ(CMsgDll::RemoveQuote("\"abc\""), "abc");
    EXPECT_EQ(CMsgDll::RemoveQuote("\"\""), "");
    EXPECT_EQ(CMsgDll::RemoveQuote("\"\"a\"\""), "\"a\"");
    EXPECT_EQ(CMsgDll::RemoveQuote("\"a\"b\""), "a\"b");
}

TEST(RemoveQuote, LeavesATextThatIsNotInQuotes) {
    for (const std::string_view text : {"", "\"", "abc", "\"abc", "abc\"", " \"abc\"", "a\"b\"c"}) {
        EXPECT_EQ(CMsgDll::RemoveQuote(text), text);
    }
}

// A key that the resource does not hold is its own pattern.
TEST(FormatText, PlacesMayComeInAnyOrderAndMoreThanOnce) {
    EXPECT_EQ(FormatText("%1 and %2", {"a", "b"}), "a and b");
    EXPECT_EQ(FormatText("%2, %1, %2%1", {"a", "b"}), "b, a, ba");
    EXPECT_EQ(FormatText("%9%1", {"1", "2", "3", "4", "5", "6", "7", "8", "9"}), "91");
}

TEST(FormatText, APlaceWithoutAnArgumentIsEmpty) {
    EXPECT_EQ(FormatText("<%1><%2>", {"a"}), "<a><>");
    EXPECT_EQ(FormatText("<%1>", {}), "<>");
}

TEST(FormatText, ADoubledPercentSignIsOnePercentSign) {
    EXPECT_EQ(FormatText("%1 %%", {"5"}), "5 %");
    EXPECT_EQ(FormatText("%%1", {"5"}), "%1");
    EXPECT_EQ(FormatText("%%%1", {"5"}), "%5");
}

TEST(FormatText, OtherPercentSignsStand) {
    EXPECT_EQ(FormatText("%0 %d %s (%)", {"a"}), "%0 %d %s (%)");
    EXPECT_EQ(FormatText("100%", {"a"}), "100%");
    EXPECT_EQ(FormatText("%12", {"a"}), "a2");
    EXPECT_EQ(FormatText("", {"a"}), "");
}

TEST(FormatText, ArgumentsAreNotReadAsPatterns) { EXPECT_EQ(FormatText("%1%2", {"%2", "%%"}), "%2%%"); }

TEST(FormatText, LooksItsPatternUpByKey) {
    EXPECT_EQ(FormatText("IDS_DB_REASON_KEY_EXISTS", {"Node", "12"}), "Node 12 already exists.");
}

TEST(Outcome, DoneIsTrueAndHasNoReason) {
    const Outcome outcome = Outcome::Done();
    EXPECT_TRUE(outcome);
    EXPECT_EQ(outcome.Reason(), "");
}

TEST(Outcome, RefusedIsFalseAndKeepsItsReason) {
    const Outcome outcome = Outcome::Refused("in use");
    EXPECT_FALSE(outcome);
    EXPECT_EQ(outcome.Reason(), "in use");
}

TEST(Outcome, IsRefusedEvenWithoutAReason) { EXPECT_FALSE(Outcome::Refused("")); }

}  // namespace
}  // namespace velda
