#include "velda_lib/number_text.h"

#include <array>
#include <bit>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace velda {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

template <class... Values>
std::string Printed(const char* format, Values... values) {
    std::array<char, 64> buffer;
    const int length = std::snprintf(buffer.data(), buffer.size(), format, values...);
    return std::string(buffer.data(), static_cast<std::size_t>(length));
}

/// Doubles of every magnitude and sign, infinities included: any bit pattern that is a number.
double AnyDouble(std::mt19937_64& random) {
    double value = std::bit_cast<double>(random());
    while (std::isnan(value)) value = std::bit_cast<double>(random());
    return value;
}

/// Doubles as users type them: a whole number of tenths, hundredths and so on.
double Decimal(std::mt19937_64& random) {
    const auto digits = static_cast<double>(static_cast<std::int64_t>(random() % 2'000'000'001) - 1'000'000'000);
    return digits / std::pow(10.0, static_cast<double>(random() % 10));
}

std::string Decimals(std::mt19937_64& random, std::size_t count) {
    std::string digits;
    for (std::size_t i = 0; i < count; ++i) digits += static_cast<char>('0' + random() % 10);
    return digits;
}

/// A decimal number of random length with a point and an exponent at random.
std::string RandomNumberText(std::mt19937_64& random) {
    std::string text = random() % 2 ? "-" : "";
    text += Decimals(random, 1 + random() % 30);
    if (random() % 2) text += "." + Decimals(random, random() % 30);
    if (random() % 2) text += "e" + std::to_string(static_cast<int>(random() % 700) - 350);
    return text;
}

TEST(FormatDouble, WritesAnyDoubleAsPrintfDoes) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 100'000; ++i) {
        const double value = AnyDouble(random);
        ASSERT_EQ(FormatDouble(value), Printed("%.15g", value));
    }
}

TEST(FormatDouble, WritesDecimalsAsPrintfDoes) {
    std::mt19937_64 random(2);
    for (int i = 0; i < 100'000; ++i) {
        const double value = Decimal(random);
        ASSERT_EQ(FormatDouble(value), Printed("%.15g", value));
    }
}

TEST(FormatDouble, ShowsNoNoiseBeyondFifteenDigits) {
    EXPECT_EQ(FormatDouble(0.3), "0.3");
    EXPECT_EQ(FormatDouble(0.1 + 0.2), "0.3");
    EXPECT_EQ(FormatDouble(1.0 / 3), "0.333333333333333");
    EXPECT_EQ(FormatDouble(24.5), "24.5");
    EXPECT_EQ(FormatDouble(-0.0), "-0");
    EXPECT_EQ(FormatDouble(1e15), "1e+15");
    EXPECT_EQ(FormatDouble(1e-5), "1e-05");
    EXPECT_EQ(FormatDouble(kInfinity), "inf");
}

TEST(FormatDoubleExact, ReadsBackAsTheSameDouble) {
    std::mt19937_64 random(3);
    for (int i = 0; i < 100'000; ++i) {
        const double value = i % 2 ? Decimal(random) : AnyDouble(random);
        if (std::isinf(value)) continue;
        const double back = wtof(FormatDoubleExact(value));
        ASSERT_EQ(std::bit_cast<std::uint64_t>(back), std::bit_cast<std::uint64_t>(value)) << FormatDoubleExact(value);
    }
}

TEST(FormatDoubleExact, IsAsShortAsCanBe) {
    EXPECT_EQ(FormatDoubleExact(0.1), "0.1");
    EXPECT_EQ(FormatDoubleExact(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(FormatDoubleExact(3.0), "3");
}

TEST(FormatLong, WritesTheEndsOfTheRange) {
    EXPECT_EQ(FormatLong(0), "0");
    EXPECT_EQ(FormatLong(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
    EXPECT_EQ(FormatLong(std::numeric_limits<std::int64_t>::max()), "9223372036854775807");
}

TEST(FormatZeroPadded, WritesAsPrintfDoes) {
    std::mt19937_64 random(4);
    std::vector<long long> values = {0, 1, -1, 11, 111111, 999999, 1000000, -99999, -100000, -1000000};
    for (int i = 0; i < 10'000; ++i) values.push_back(static_cast<long long>(random()) >> (random() % 64));
    for (const long long value : values) {
        EXPECT_EQ(FormatZeroPadded(value, 6), Printed("%06lld", value));
        EXPECT_EQ(FormatZeroPadded(value, 3), Printed("%03lld", value));
        EXPECT_EQ(FormatZeroPadded(value, 0), Printed("%lld", value));
    }
}

TEST(FormatZeroPadded, CountsTheMinusSignTowardsTheWidth) {
    EXPECT_EQ(FormatZeroPadded(11, 6), "000011");
    EXPECT_EQ(FormatZeroPadded(-11, 6), "-00011");
    EXPECT_EQ(FormatZeroPadded(-11, 3), "-11");
    EXPECT_EQ(FormatZeroPadded(7, -3), "7");
}

TEST(LongPrefix, SkipsBlanksAndTakesOneSign) {
    EXPECT_EQ(wtol("12"), 12);
    EXPECT_EQ(wtol(" \t\r\n\v\f12"), 12);
    EXPECT_EQ(wtol("+12"), 12);
    EXPECT_EQ(wtol(" -12"), -12);
    EXPECT_EQ(wtol("007"), 7);
}

TEST(LongPrefix, StopsAtTheFirstOtherCharacter) {
    EXPECT_EQ(wtol("12a"), 12);
    EXPECT_EQ(wtol("12.9"), 12);
    EXPECT_EQ(wtol("1 2"), 1);
    EXPECT_EQ(wtol("1,000"), 1);
    EXPECT_EQ(wtol("0x10"), 0);
    EXPECT_EQ(ReadLongPrefix(" -12abc").length, 4u);
}

TEST(LongPrefix, IsZeroOfNoLengthWhereNoNumberBegins) {
    for (const std::string_view text : {"", " ", "+", "-", "+-5", "--5", "- 5", "a1", ".5", "e5", "inf"}) {
        const LongPrefix read = ReadLongPrefix(text);
        EXPECT_EQ(read.value, 0) << text;
        EXPECT_EQ(read.length, 0u) << text;
        EXPECT_FALSE(read.saturated) << text;
        EXPECT_EQ(wtol(text), 0) << text;
    }
}

TEST(LongPrefix, TellsThatItStoppedAtTheEndOf32Bits) {
    const auto expect = [](const std::string& text, std::int32_t value, bool saturated) {
        const LongPrefix read = ReadLongPrefix(text);
        EXPECT_EQ(read.value, value) << text.substr(0, 40);
        EXPECT_EQ(read.saturated, saturated) << text.substr(0, 40);
        EXPECT_EQ(read.length, text.size()) << text.substr(0, 40);
    };
    expect("2147483647", 2147483647, false);
    expect("2147483648", 2147483647, true);
    expect("-2147483648", std::numeric_limits<std::int32_t>::min(), false);
    expect("-2147483649", std::numeric_limits<std::int32_t>::min(), true);
    expect("4294967296", 2147483647, true);
    expect("99999999999999999999999999", 2147483647, true);
    expect(std::string(10'000, '9'), 2147483647, true);
    expect("-" + std::string(10'000, '9'), std::numeric_limits<std::int32_t>::min(), true);
    expect(std::string(10'000, '0') + "5", 5, false);
}

TEST(Wtof, ReadsWhatTheCLibraryReads) {
    std::mt19937_64 random(5);
    for (int i = 0; i < 100'000; ++i) {
        const std::string text = RandomNumberText(random);
        ASSERT_EQ(std::bit_cast<std::uint64_t>(wtof(text)),
                  std::bit_cast<std::uint64_t>(std::strtod(text.c_str(), nullptr)))
            << text;
    }
}

TEST(Wtof, TakesTheLongestNumberAtTheFront) {
    EXPECT_EQ(wtof("1.5kN"), 1.5);
    EXPECT_EQ(wtof("  +1.5"), 1.5);
    EXPECT_EQ(wtof("-.5"), -0.5);
    EXPECT_EQ(wtof("5."), 5.0);
    EXPECT_EQ(wtof("5.e2"), 500.0);
    EXPECT_EQ(wtof("1.2.3"), 1.2);
    EXPECT_EQ(wtof("1,5"), 1.0);
    EXPECT_EQ(wtof("1e3"), 1000.0);
    EXPECT_EQ(wtof("1E+3"), 1000.0);
    EXPECT_EQ(wtof("1e-3"), 0.001);
    EXPECT_EQ(wtof("2e"), 2.0);
    EXPECT_EQ(wtof("2e+"), 2.0);
    EXPECT_EQ(wtof("2e+x"), 2.0);
    EXPECT_EQ(wtof("2e1.5"), 20.0);
}

TEST(Wtof, IsZeroWhereNoNumberBegins) {
    for (const std::string_view text :
         {"", " ", ".", "+", "-", "+.", "-.e5", "e5", "+-5", "- 5", "abc", "inf", "-infinity", "nan", "NaN(1)"}) {
        EXPECT_EQ(wtof(text), 0.0) << text;
        EXPECT_FALSE(std::signbit(wtof(text))) << text;
    }
    EXPECT_EQ(wtof("0x10"), 0.0);
}

TEST(Wtof, GivesInfinityForTooLargeNumbers) {
    EXPECT_EQ(wtof("1e400"), kInfinity);
    EXPECT_EQ(wtof("-1e400"), -kInfinity);
    EXPECT_EQ(wtof("1.8e308"), kInfinity);
    EXPECT_EQ(wtof("0.0001e99999999999999999999"), kInfinity);
    EXPECT_EQ(wtof(std::string(10'000, '9')), kInfinity);
    EXPECT_EQ(wtof("1" + std::string(10'000, '0') + "e-9000"), kInfinity);
}

TEST(Wtof, GivesZeroForTooSmallNumbers) {
    const std::string smallest = "0." + std::string(9'999, '0') + "1";
    EXPECT_EQ(wtof("1e-400"), 0.0);
    EXPECT_EQ(wtof("-1e-400"), 0.0);
    EXPECT_EQ(wtof("123456e-99999999999999999999"), 0.0);
    EXPECT_EQ(wtof(smallest), 0.0);
    EXPECT_EQ(wtof(smallest + "e9000"), 0.0);
    EXPECT_EQ(wtof("0e400"), 0.0);
    EXPECT_EQ(wtof("0.000e99999999999"), 0.0);
}

TEST(Wtof, ReadsVeryLongTextsOfOrdinaryNumbers) {
    EXPECT_EQ(wtof(std::string(10'000, '0') + "7"), 7.0);
    EXPECT_EQ(wtof("1" + std::string(10'000, '0') + "e-10000"), 1.0);
    EXPECT_EQ(wtof("0." + std::string(9'999, '0') + "1e10000"), 1.0);
    EXPECT_EQ(wtof("0." + std::string(10'000, '3')), 1.0 / 3);
}

TEST(Wtof, KeepsTheSmallestAndTheLargestDouble) {
    EXPECT_EQ(wtof("5e-324"), std::numeric_limits<double>::denorm_min());
    EXPECT_EQ(wtof("2.2250738585072014e-308"), std::numeric_limits<double>::min());
    EXPECT_EQ(wtof("1.7976931348623157e308"), std::numeric_limits<double>::max());
}

/// Sets a locale with a decimal comma for the time of a test.
class CommaLocale {
public:
    CommaLocale() : before_(std::setlocale(LC_ALL, nullptr)) {
        for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "de_DE", "fr_FR.UTF-8", "fr_FR.utf8", "fr_FR"}) {
            if (std::setlocale(LC_ALL, name) != nullptr && *std::localeconv()->decimal_point == ',') set_ = true;
            if (set_) return;
        }
    }
    ~CommaLocale() { std::setlocale(LC_ALL, before_.c_str()); }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;
    bool IsSet() const { return set_; }

private:
    std::string before_;
    bool set_ = false;
};

TEST(NumberText, DoesNotFollowTheLocale) {
    const CommaLocale locale;
    if (!locale.IsSet()) GTEST_SKIP() << "no locale with a decimal comma on this machine";
    EXPECT_EQ(FormatDouble(1234.5), "1234.5");
    EXPECT_EQ(FormatDoubleExact(1234.5), "1234.5");
    EXPECT_EQ(FormatLong(1234567), "1234567");
    EXPECT_EQ(wtof("1.5"), 1.5);
    EXPECT_EQ(wtof("1,5"), 1.0);
}

TEST(ReadWholeLong, TakesOneNumberWithBlanksAroundIt) {
    const auto read = [](std::string_view text) {
        std::int64_t value = 0;
        EXPECT_TRUE(ReadWholeLong(text, value)) << text;
        return value;
    };
    EXPECT_EQ(read("12"), 12);
    EXPECT_EQ(read(" 5 "), 5);
    EXPECT_EQ(read("\t-5\r\n"), -5);
    EXPECT_EQ(read("+5"), 5);
    EXPECT_EQ(read("9223372036854775807"), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(read("-9223372036854775808"), std::numeric_limits<std::int64_t>::min());
}

TEST(ReadWholeLong, LeavesTheValueAloneWhenTheTextIsNotOneNumber) {
    for (const std::string_view text : {"", " ", "12a", "a12", "1 2", "+-5", "-+5", "++5", "--5", "+", "-", "- 5",
                                        "1.0", "1e3", "0x10", "9223372036854775808", "-9223372036854775809"}) {
        std::int64_t value = 77;
        EXPECT_FALSE(ReadWholeLong(text, value)) << text;
        EXPECT_EQ(value, 77) << text;
    }
}

TEST(ReadWholeDouble, TakesOneNumberWithBlanksAroundIt) {
    const auto read = [](std::string_view text) {
        double value = 0.0;
        EXPECT_TRUE(ReadWholeDouble(text, value)) << text;
        return value;
    };
    EXPECT_EQ(read("1.5"), 1.5);
    EXPECT_EQ(read(" 5 "), 5.0);
    EXPECT_EQ(read("-.5e1\n"), -5.0);
    EXPECT_EQ(read("+5."), 5.0);
    EXPECT_EQ(read("1e400"), kInfinity);
}

TEST(ReadWholeDouble, LeavesTheValueAloneWhenTheTextIsNotOneNumber) {
    for (const std::string_view text : {"", " ", "12a", "1 2", "+-5", "++5", "+", "-", ".", "- 5", "1e", "1.2.3", "1,5",
                                        "inf", "nan", "0x10", "1.5 kN"}) {
        double value = 77.0;
        EXPECT_FALSE(ReadWholeDouble(text, value)) << text;
        EXPECT_EQ(value, 77.0) << text;
    }
}

TEST(TrimBlanks, TakesBlanksOffBothEndsOnly) {
    EXPECT_EQ(TrimBlanks(" \t\n\v\f\ra b\r\n "), "a b");
    EXPECT_EQ(TrimBlanks("   "), "");
    EXPECT_EQ(TrimBlanks(""), "");
    EXPECT_EQ(TrimBlanks("층 1 "), "층 1");
}

}  // namespace
}  // namespace velda
