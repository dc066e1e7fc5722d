#include "velda_util/formula/cell_number.h"

#include <optional>
#include <utility>

#include "velda_lib/language.h"
#include <gtest/gtest.h>

namespace velda {
namespace {

std::optional<long long> Long(std::string_view text) {
    long long value = 77;
    if (IsValidLongNumber(text, value)) return value;
    EXPECT_EQ(value, 77) << text;
    return std::nullopt;
}

std::optional<double> Double(std::string_view text) {
    double value = 77;
    if (IsValidDoubleNumber(text, value)) return value;
    EXPECT_EQ(value, 77) << text;
    return std::nullopt;
}

TEST(CellLong, ReadsWholeNumbersWithin32Bits) {
    EXPECT_EQ(Long("0"), 0);
    EXPECT_EQ(Long(" 12 "), 12);
    EXPECT_EQ(Long("+12"), 12);
    EXPECT_EQ(Long("-12"), -12);
    EXPECT_EQ(Long("007"), 7);
    EXPECT_EQ(Long("2147483647"), 2147483647);
    EXPECT_EQ(Long("-2147483648"), -2147483648LL);
}

TEST(CellLong, RefusesAnythingElse) {
    for (const char* text : {"", " ", "abc", "3.0", "3.", "1e3", "12a", "1 2", "2147483648", "-2147483649",
                             "99999999999999999999", "0x10", "--1", "+-1", "1,000", "pi", "-"}) {
        EXPECT_EQ(Long(text), std::nullopt) << text;
    }
}

TEST(CellLong, ReadsAFormulaWhoseValueIsWhole) {
    EXPECT_EQ(Long("=6/2"), 3);
    EXPECT_EQ(Long("=3.0"), 3);
    EXPECT_EQ(Long("3*4-1"), 11);
    EXPECT_EQ(Long("=0.1*30"), 3);
    for (const char* text : {"=5/2", "5/2", "=2^31", "=1/0", "=", "=abc"}) EXPECT_EQ(Long(text), std::nullopt) << text;
}

TEST(CellDouble, ReadsFiniteNumbersAndFormulas) {
    EXPECT_EQ(Double("3.25"), 3.25);
    EXPECT_EQ(Double(" -1e-5 "), -1e-5);
    EXPECT_EQ(Double("+.5"), 0.5);
    EXPECT_EQ(Double("5."), 5.0);
    EXPECT_EQ(Double("2*3.2+0.15"), 6.55);
    EXPECT_EQ(Double("=sqrt(16)"), 4.0);
    EXPECT_EQ(Double("1e-400"), 0.0);
}

TEST(CellDouble, RefusesAnythingElse) {
    for (const char* text : {"", " ", "abc", "1,5", "1.5 m", "1 2", "inf", "nan", "-inf", "1e999", "-1e999", "0x10",
                             "1e", ".", "=1/0", "1/0", "=10^308*100", "2*", "pi"}) {
        EXPECT_EQ(Double(text), std::nullopt) << text;
    }
}

TEST(InvalidNumberReason, NamesTheTextAndWhatIsExpected) {
    const auto reason = [](std::string_view text) { return InvalidNumberReason(text, CellNumberKind::Long); };
    EXPECT_EQ(reason("abc"), "\"abc\" is not a whole number.");
    EXPECT_EQ(reason("2.5"), "\"2.5\" is not a whole number.");
    EXPECT_EQ(reason("3.0"), "\"3.0\" is not a whole number.");
    EXPECT_EQ(reason("5/2"), "\"5/2\" is not a whole number.");
    EXPECT_EQ(reason("3000000000"),
              "\"3000000000\" is outside the range of whole numbers (-2147483648 to 2147483647).");
    EXPECT_EQ(reason("=10^20"), "\"=10^20\" is outside the range of whole numbers (-2147483648 to 2147483647).");
    EXPECT_EQ(InvalidNumberReason("abc", CellNumberKind::Double), "\"abc\" is not a number.");
    EXPECT_EQ(InvalidNumberReason("", CellNumberKind::Double), "\"\" is not a number.");
    EXPECT_EQ(InvalidNumberReason("1e999", CellNumberKind::Double), "\"1e999\" is too large for a number.");
}

TEST(InvalidNumberReason, ACommaIsExplained) {
    for (const CellNumberKind kind : {CellNumberKind::Long, CellNumberKind::Double}) {
        EXPECT_EQ(InvalidNumberReason("3,2", kind),
                  "\"3,2\" is not a number. The decimal sign is a point; thousands are not separated.");
    }
}

TEST(InvalidNumberReason, AFormulaTellsItsFault) {
    EXPECT_EQ(InvalidNumberReason("=2+abc", CellNumberKind::Double),
              "\"abc\" at place 4 of the formula is not a known function or constant.");
    EXPECT_EQ(InvalidNumberReason("1/0", CellNumberKind::Long), "Division by zero: \"/\" at place 2 of the formula.");
}

TEST(InvalidNumberReason, SpeaksTheCurrentLanguage) {
    SetCurrentLanguage(Language::Korean);
    const std::string whole = InvalidNumberReason("abc", CellNumberKind::Long);
    const std::string any = InvalidNumberReason("abc", CellNumberKind::Double);
    SetCurrentLanguage(Language::English);
    EXPECT_EQ(whole, "\"abc\"은(는) 정수가 아닙니다.");
    EXPECT_EQ(any, "\"abc\"은(는) 숫자가 아닙니다.");
}

TEST(InvalidNumberReason, IsEmptyForExactlyTheTextsThatAreNumbers) {
    for (const char* text :
         {"1", "-5", "2.5", "=2*3", "=5/2", "1e5", "abc", "", "1,5", "1e999", "=1/0", "4000000000", "=10^20"}) {
        EXPECT_EQ(InvalidNumberReason(text, CellNumberKind::Long).empty(), Long(text).has_value()) << text;
        EXPECT_EQ(InvalidNumberReason(text, CellNumberKind::Double).empty(), Double(text).has_value()) << text;
    }
}

TEST(InvalidNumberReason, ALongTextIsCutAtAWholeCharacter) {
    std::string text = "a";
    for (int i = 0; i < 1000; ++i) text += "가";
    std::string kept = "a";
    for (int i = 0; i < 19; ++i) kept += "가";
    EXPECT_EQ(InvalidNumberReason(text, CellNumberKind::Double), "\"" + kept + "...\" is not a number.");
}

}  // namespace
}  // namespace velda
