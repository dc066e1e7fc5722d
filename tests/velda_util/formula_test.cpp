#include "velda_util/formula/formula.h"

#include <cmath>
#include <locale>
#include <numbers>
#include <string>
#include <thread>
#include <vector>

#include "velda_lib/language.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velda {
namespace {

using testing::HasSubstr;

double ValueOf(std::string_view formula) {
    const FormulaValue result = ThreadFormulaEvaluator().Evaluate(formula);
    EXPECT_TRUE(result) << formula << ": " << result.reason;
    EXPECT_EQ(result.place, 0U) << formula;
    EXPECT_EQ(result.reason, "") << formula;
    return result.value;
}

/// Expects that a formula has a fault at a place, and that the reason names the text there and the place.
void ExpectFault(std::string_view formula, FormulaFault fault, std::size_t place, std::string_view named = "") {
    const FormulaValue result = ThreadFormulaEvaluator().Evaluate(formula);
    EXPECT_FALSE(result) << formula;
    EXPECT_EQ(result.fault, fault) << formula << ": " << result.reason;
    EXPECT_EQ(result.place, place) << formula << ": " << result.reason;
    EXPECT_THAT(result.reason, HasSubstr("place " + std::to_string(place))) << formula;
    EXPECT_THAT(result.reason, HasSubstr(std::string(named))) << formula;
}

std::string Nested(std::size_t depth) { return std::string(depth, '(') + "1+1" + std::string(depth, ')'); }

TEST(FormulaEvaluator, ComputesWithOperatorsInTheOrderOfArithmetic) {
    EXPECT_DOUBLE_EQ(ValueOf("2*3.2+0.15"), 6.55);
    EXPECT_DOUBLE_EQ(ValueOf("1+2*3"), 7);
    EXPECT_DOUBLE_EQ(ValueOf("(1+2)*3"), 9);
    EXPECT_DOUBLE_EQ(ValueOf("20-5-3"), 12);
    EXPECT_DOUBLE_EQ(ValueOf("24/4/2"), 3);
    EXPECT_DOUBLE_EQ(ValueOf("2^3^2"), 512);
    EXPECT_DOUBLE_EQ(ValueOf("2*3^2"), 18);
    EXPECT_DOUBLE_EQ(ValueOf("5"), 5);
}

TEST(FormulaEvaluator, ASignBindsCloserThanATimesAndLessCloseThanAPower) {
    EXPECT_DOUBLE_EQ(ValueOf("-2^2"), -4);
    EXPECT_DOUBLE_EQ(ValueOf("(-2)^2"), 4);
    EXPECT_DOUBLE_EQ(ValueOf("2^-1"), 0.5);
    EXPECT_DOUBLE_EQ(ValueOf("2^-1*4"), 2);
    EXPECT_DOUBLE_EQ(ValueOf("2*-3"), -6);
    EXPECT_DOUBLE_EQ(ValueOf("2--3"), 5);
    EXPECT_DOUBLE_EQ(ValueOf("+2-+3"), -1);
    EXPECT_DOUBLE_EQ(ValueOf("-(2+3)*2"), -10);
}

TEST(FormulaEvaluator, KnowsItsFunctionsAndConstants) {
    EXPECT_DOUBLE_EQ(ValueOf("=sqrt(2)*400"), std::sqrt(2.0) * 400);
    EXPECT_DOUBLE_EQ(ValueOf("sin(1)"), std::sin(1.0));
    EXPECT_DOUBLE_EQ(ValueOf("cos(1)"), std::cos(1.0));
    EXPECT_DOUBLE_EQ(ValueOf("tan(1)"), std::tan(1.0));
    EXPECT_DOUBLE_EQ(ValueOf("asin(0.5)"), std::asin(0.5));
    EXPECT_DOUBLE_EQ(ValueOf("acos(0.5)"), std::acos(0.5));
    EXPECT_DOUBLE_EQ(ValueOf("atan(0.5)"), std::atan(0.5));
    EXPECT_DOUBLE_EQ(ValueOf("exp(2)"), std::exp(2.0));
    EXPECT_DOUBLE_EQ(ValueOf("ln(5)"), std::log(5.0));
    EXPECT_DOUBLE_EQ(ValueOf("log10(1000)"), 3);
    EXPECT_DOUBLE_EQ(ValueOf("abs(-3)"), 3);
    EXPECT_DOUBLE_EQ(ValueOf("round(2.5)"), 3);
    EXPECT_DOUBLE_EQ(ValueOf("round(-2.5)"), -3);
    EXPECT_DOUBLE_EQ(ValueOf("floor(-2.5)"), -3);
    EXPECT_DOUBLE_EQ(ValueOf("ceil(2.1)"), 3);
    EXPECT_DOUBLE_EQ(ValueOf("pow(2, 10)"), 1024);
    EXPECT_DOUBLE_EQ(ValueOf("pi"), std::numbers::pi);
    EXPECT_DOUBLE_EQ(ValueOf("2*e"), 2 * std::numbers::e);
}

TEST(FormulaEvaluator, MinAndMaxTakeOneOrMoreArguments) {
    EXPECT_DOUBLE_EQ(ValueOf("min(3)"), 3);
    EXPECT_DOUBLE_EQ(ValueOf("min(3, -1, 2)"), -1);
    EXPECT_DOUBLE_EQ(ValueOf("max(3, -1, 2, 7, 5)"), 7);
    EXPECT_DOUBLE_EQ(ValueOf("max(min(1,2),min(3,4))"), 3);
}

TEST(FormulaEvaluator, BlanksTheMarkAndTheCaseOfNamesDoNotMatter) {
    EXPECT_DOUBLE_EQ(ValueOf("  = \t 2 * ( 3 + 1 ) "), 8);
    EXPECT_DOUBLE_EQ(ValueOf("SQRT (16)"), 4);
    EXPECT_DOUBLE_EQ(ValueOf("2*Pi"), 2 * std::numbers::pi);
}

TEST(FormulaEvaluator, ReadsEveryFormOfADecimalNumberExactly) {
    EXPECT_EQ(ValueOf("0.1"), 0.1);
    EXPECT_EQ(ValueOf(".5+5."), 5.5);
    EXPECT_EQ(ValueOf("1e-5"), 1e-5);
    EXPECT_EQ(ValueOf("1E+3+2.5e2"), 1250);
    EXPECT_EQ(ValueOf("4.35"), 4.35);
    EXPECT_EQ(ValueOf("1e-400"), 0);
    EXPECT_EQ(ValueOf("2*e-5"), 2 * std::numbers::e - 5);
}

TEST(FormulaEvaluator, DoesNotDependOnTheLocale) {
    struct CommaForPoint : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
    };
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new CommaForPoint));
    std::thread([] {
        EXPECT_EQ(ValueOf("1.5*2"), 3);
        ExpectFault("1,5*2", FormulaFault::Comma, 2);
    }).join();  // in a thread of its own, so that its evaluator is made under this locale
    std::locale::global(before);
}

TEST(FormulaEvaluator, AZeroHasNoSign) {
    EXPECT_FALSE(std::signbit(ValueOf("-0")));
    EXPECT_FALSE(std::signbit(ValueOf("0*-3")));
    EXPECT_FALSE(std::signbit(ValueOf("round(-0.2)")));
}

TEST(FormulaEvaluator, AnEvaluatorGoesOnAfterAFault) {
    ExpectFault("1/0+2", FormulaFault::DivisionByZero, 2);
    EXPECT_EQ(ValueOf("1/4+2"), 2.25);
}

TEST(FormulaEvaluator, WorksInSeveralThreadsAtOnce) {
    std::vector<double> sums(4);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < sums.size(); ++i) {
        threads.emplace_back([&sum = sums[i], i] {
            for (int n = 0; n < 500; ++n) sum += ThreadFormulaEvaluator().Evaluate("2*" + std::to_string(i)).value;
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_THAT(sums, testing::ElementsAre(0, 1000, 2000, 3000));
}

TEST(FormulaFault, ADivisionByZeroIsNamedAtItsSign) {
    ExpectFault("1/0", FormulaFault::DivisionByZero, 2, "\"/\"");
    ExpectFault("= 8/2 + 6/(3-3)", FormulaFault::DivisionByZero, 10, "\"/\"");
    ExpectFault("8/(1/(2-2))", FormulaFault::DivisionByZero, 5);
    ExpectFault("2-1/0^1", FormulaFault::DivisionByZero, 4);
    ExpectFault("0^-1", FormulaFault::DivisionByZero, 2, "\"^\"");
    ExpectFault("5*pow(0,-2)", FormulaFault::DivisionByZero, 3, "\"pow\"");
}

TEST(FormulaFault, AFunctionOutsideItsRangeIsNamed) {
    ExpectFault("sqrt(-1)", FormulaFault::NoValue, 1, "\"sqrt\"");
    ExpectFault("3+Sqrt(2-abs(3))", FormulaFault::NoValue, 3, "\"Sqrt\"");
    ExpectFault("1+max(2,asin(2))", FormulaFault::NoValue, 9, "\"asin\"");
    ExpectFault("acos(-1.1)", FormulaFault::NoValue, 1);
    ExpectFault("ln(0)", FormulaFault::NoValue, 1);
    ExpectFault("ln(-1)", FormulaFault::NoValue, 1);
    ExpectFault("log10(0)", FormulaFault::NoValue, 1);
    ExpectFault("(-8)^(1/3)", FormulaFault::NoValue, 5, "\"^\"");
}

TEST(FormulaFault, AnOverflowIsNamedAtTheOperationThatBringsIt) {
    ExpectFault("1e200*1e200", FormulaFault::Overflow, 6, "\"*\"");
    ExpectFault("-1e308-1e308", FormulaFault::Overflow, 7, "\"-\"");
    ExpectFault("1e308+1e308", FormulaFault::Overflow, 6);
    ExpectFault("1/1e-200/1e-200", FormulaFault::Overflow, 9);
    ExpectFault("1+10^400", FormulaFault::Overflow, 5);
    ExpectFault("2^3^9", FormulaFault::Overflow, 2);
    ExpectFault("2^3^9^9", FormulaFault::Overflow, 4);
    ExpectFault("exp(1000)", FormulaFault::Overflow, 1, "\"exp\"");
    ExpectFault("2*1e999", FormulaFault::NumberTooLarge, 3, "\"1e999\"");
}

TEST(FormulaFault, AnUnknownNameIsNamed) {
    ExpectFault("2*W200", FormulaFault::UnknownName, 3, "\"W200\"");
    ExpectFault("=foo(1)", FormulaFault::UnknownName, 2, "\"foo\"");
    ExpectFault("=2+기둥*3", FormulaFault::UnknownName, 4, "\"기둥\"");
    ExpectFault("=기둥", FormulaFault::UnknownName, 2);
    ExpectFault("=_pi", FormulaFault::UnknownName, 2, "\"_pi\"");
}

TEST(FormulaFault, WhatTheLibraryMayKnowButFormulasDoNotIsRefused) {
    ExpectFault("=a=5", FormulaFault::UnknownName, 2);
    ExpectFault("=e=5", FormulaFault::Unexpected, 3, "\"=\"");
    ExpectFault("=1;2", FormulaFault::Unexpected, 3);
    ExpectFault("=1,2", FormulaFault::Comma, 3);
    ExpectFault("=(1,2)", FormulaFault::Comma, 4);
    ExpectFault("=\"a\"", FormulaFault::Unexpected, 2);
    ExpectFault("=1?2:3", FormulaFault::Unexpected, 3);
    ExpectFault("=1&&1", FormulaFault::Unexpected, 3);
    ExpectFault("=2<3", FormulaFault::Unexpected, 3);
    ExpectFault("=rint(3)", FormulaFault::UnknownName, 2);
    ExpectFault("=0x10", FormulaFault::Unexpected, 3, "\"x10\"");
    ExpectFault("=inf", FormulaFault::UnknownName, 2);
    ExpectFault("=nan+1", FormulaFault::UnknownName, 2);
    ExpectFault("=5%", FormulaFault::Unexpected, 3, "\"%\"");
}

TEST(FormulaFault, WhatStandsInTheWrongPlaceIsNamed) {
    ExpectFault("=3 4", FormulaFault::Unexpected, 4, "\"4\"");
    ExpectFault("=2pi", FormulaFault::Unexpected, 3, "\"pi\"");
    ExpectFault("=2(3)", FormulaFault::Unexpected, 3);
    ExpectFault("=*2", FormulaFault::Unexpected, 2);
    ExpectFault("=2*/3", FormulaFault::Unexpected, 4, "\"/\"");
    ExpectFault("=--2", FormulaFault::Unexpected, 3);
    ExpectFault("=1)", FormulaFault::Unexpected, 3);
    ExpectFault("=()", FormulaFault::Unexpected, 3);
    ExpectFault("=sqrt()", FormulaFault::Unexpected, 7);
    ExpectFault("=sqrt 2", FormulaFault::Unexpected, 7);
    ExpectFault("=max(,2)", FormulaFault::Unexpected, 6);
    ExpectFault("=1..2", FormulaFault::Unexpected, 4);
    ExpectFault("=.", FormulaFault::Unexpected, 2);
    ExpectFault(std::string_view("=1\0+1", 5), FormulaFault::Unexpected, 3);
    ExpectFault("=1×2", FormulaFault::Unexpected, 3, "\"×2\"");
}

TEST(FormulaFault, AnUnfinishedFormulaIsToldWhereItEnds) {
    ExpectFault("=2*", FormulaFault::Incomplete, 4);
    ExpectFault("2+ ", FormulaFault::Incomplete, 4);
    ExpectFault("=sqrt", FormulaFault::Incomplete, 6);
    ExpectFault("=(", FormulaFault::Incomplete, 3);
    ExpectFault("=2*(1+(3-1)", FormulaFault::OpenBracket, 4);
}

TEST(FormulaFault, NothingIsNoFormula) {
    for (const char* text : {"", "=", "  ", " = "}) {
        EXPECT_EQ(ThreadFormulaEvaluator().Evaluate(text).fault, FormulaFault::Empty) << text;
    }
    EXPECT_EQ(ThreadFormulaEvaluator().Evaluate("=").reason, "An expression is missing after \"=\".");
}

TEST(FormulaFault, AWrongNumberOfArgumentsIsNamedAtTheFunction) {
    ExpectFault("1+pow(2)", FormulaFault::ArgumentCount, 3, "\"pow\"");
    ExpectFault("pow(1,2,3)", FormulaFault::ArgumentCount, 1);
    ExpectFault("max(1,sqrt(2,3))", FormulaFault::ArgumentCount, 7, "\"sqrt\"");
}

TEST(FormulaFault, LengthIsLimitedInCharacters) {
    const std::string longest = "1" + std::string(kMaxFormulaLength - 2, ' ') + "1";
    ExpectFault(longest, FormulaFault::Unexpected, kMaxFormulaLength);
    EXPECT_EQ(ThreadFormulaEvaluator().Evaluate(longest + "1").fault, FormulaFault::TooLong);
    std::string sum = "1";
    while (sum.size() + 2 <= kMaxFormulaLength) sum += "+1";
    EXPECT_EQ(ValueOf(sum), 500);
    const FormulaValue tooLong = ThreadFormulaEvaluator().Evaluate(sum + "+1");
    EXPECT_EQ(tooLong.fault, FormulaFault::TooLong);
    EXPECT_EQ(tooLong.reason, "The formula is longer than 1000 characters.");

    std::string words = "=";
    while (words.size() < 2 * kMaxFormulaLength) words += "가";
    ExpectFault(words, FormulaFault::UnknownName, 2, "가...");
    EXPECT_EQ(ThreadFormulaEvaluator().Evaluate(words + words).fault, FormulaFault::TooLong);
}

TEST(FormulaFault, DepthIsLimited) {
    EXPECT_EQ(ValueOf(Nested(kMaxFormulaDepth)), 2);
    ExpectFault(Nested(kMaxFormulaDepth + 1), FormulaFault::TooDeep, kMaxFormulaDepth + 1, "100 levels");
    std::string calls;
    for (std::size_t i = 0; i < kMaxFormulaDepth; ++i) calls += "abs(";
    EXPECT_EQ(ValueOf(calls + "-7" + std::string(kMaxFormulaDepth, ')')), 7);
}

TEST(FormulaFault, TheReasonSpeaksTheCurrentLanguage) {
    SetCurrentLanguage(Language::Korean);
    const FormulaValue result = ThreadFormulaEvaluator().Evaluate("=1+abc");
    SetCurrentLanguage(Language::English);
    EXPECT_EQ(result.reason, "수식 4번째 자리의 \"abc\"은(는) 알 수 없는 함수 또는 상수입니다.");
    EXPECT_EQ(ThreadFormulaEvaluator().Evaluate("=1+abc").reason,
              "\"abc\" at place 4 of the formula is not a known function or constant.");
}

TEST(FormulaText, AMarkedFormulaBeginsWithAnEqualsSign) {
    for (const char* text : {"=", "=2+3", "  =abc", "\t= 1"}) EXPECT_TRUE(IsMarkedFormula(text)) << text;
    for (const char* text : {"", " ", "2+3", "a=b", "'=1"}) EXPECT_FALSE(IsMarkedFormula(text)) << text;
}

TEST(FormulaText, AnExpressionHasAnOperatorOrAFunction) {
    for (const char* text : {"2*3.2+0.15", "2-1", "10/20", "sqrt(2)", "-5+1", "2--3", "(1+2)", "pi*2", "e^2", " 1 + 1 ",
                             "MAX(1,2)", "1e-5*2", "-sqrt(4)", "2^-1"}) {
        EXPECT_TRUE(IsExpression(text)) << text;
    }
}

TEST(FormulaText, ANumberANameAndAnUnfinishedTextAreNoExpressions) {
    for (const char* text : {"-5",  "1e-5",  "+3.2", "W200", "C500*500", "3 4",   "",          "  ",         "5",
                             ".5",  "1E+10", "--5",  "(5)",  "-(5)",     "pi",    "-pi",       "e",          "sqrt",
                             "2*",  "*2",    "(1+2", "1+2)", "1,5+2",    "2+x",   "H-400x200", "1/2/",       "C-1",
                             "1-A", "2×3",   "=1+2", "50%",  "1+2;3+4",  "1-1-A", "1:2",       "2022-01-01T"}) {
        EXPECT_FALSE(IsExpression(text)) << text;
    }
}

TEST(FormulaText, AnExpressionBeyondTheLimitsIsStillOneSoThatItsFaultIsTold) {
    EXPECT_TRUE(IsExpression(Nested(kMaxFormulaDepth + 1)));
    EXPECT_TRUE(IsExpression("pow(1)"));
    EXPECT_TRUE(IsExpression("1/0"));
    EXPECT_TRUE(IsExpression("2*1e999"));
    EXPECT_TRUE(IsExpression("1+" + std::string(2000, '1')));
}

TEST(FormulaText, AnEndlessTextIsNoExpression) { EXPECT_FALSE(IsExpression("1+" + std::string(5000, '1'))); }

TEST(FormulaText, AFormulaIsMarkedOrAnExpression) {
    for (const char* text : {"=W200", "=5", "2-1"}) EXPECT_TRUE(IsFormula(text)) << text;
    for (const char* text : {"5", "W200", ""}) EXPECT_FALSE(IsFormula(text)) << text;
}

TEST(ConvertFormula, ReplacesMarkedAndBareFormulasInANumericColumn) {
    const std::pair<const char*, const char*> cases[] = {{"2*3.2+0.15", "6.55"},
                                                         {"=2*3", "6"},
                                                         {"=sqrt(2)*400", "565.685424949238"},
                                                         {"0.1+0.2", "0.3"},
                                                         {"=5", "5"},
                                                         {"10/20", "0.5"},
                                                         {" = 1/3", "0.333333333333333"},
                                                         {"=-0", "0"},
                                                         {"=2^31", "2147483648"},
                                                         {"=10^14", "100000000000000"},
                                                         {"=10^20", "1e+20"}};
    for (const auto& [formula, value] : cases) {
        std::string text = formula;
        const FormulaConversion result = ConvertFormulaToValue(text, true);
        EXPECT_EQ(result.outcome, FormulaOutcome::Converted) << formula;
        EXPECT_EQ(result.reason, "") << formula;
        EXPECT_EQ(text, value) << formula;
    }
}

TEST(ConvertFormula, LeavesAnyOtherTextAsItStands) {
    for (const char* original :
         {"", "5", " 5 ", "-5", "+3.20", "W200", "C500*500", "3 4", "abc", "1e-5", "1,5", "2*"}) {
        std::string text = original;
        EXPECT_EQ(ConvertFormulaToValue(text, true).outcome, FormulaOutcome::Unchanged) << original;
        EXPECT_EQ(text, original);
    }
}

TEST(ConvertFormula, InAColumnOfTextsOnlyMarkedFormulasCount) {
    for (const char* original : {"2-1", "10/20", "2*3", "sqrt(2)"}) {
        std::string text = original;
        EXPECT_EQ(ConvertFormulaToValue(text, false).outcome, FormulaOutcome::Unchanged) << original;
        EXPECT_EQ(text, original);
    }
    std::string marked = "=2-1";
    EXPECT_EQ(ConvertFormulaToValue(marked, false).outcome, FormulaOutcome::Converted);
    EXPECT_EQ(marked, "1");
}

TEST(ConvertFormula, AFormulaWithoutAValueStaysAndTellsWhy) {
    for (const bool numeric : {true, false}) {
        std::string text = "=1/0";
        const FormulaConversion result = ConvertFormulaToValue(text, numeric);
        EXPECT_EQ(result.outcome, FormulaOutcome::Error);
        EXPECT_EQ(result.reason, "Division by zero: \"/\" at place 3 of the formula.");
        EXPECT_EQ(text, "=1/0");
    }
    std::string bare = "pow(2)";
    EXPECT_EQ(ConvertFormulaToValue(bare, true).outcome, FormulaOutcome::Error);
    EXPECT_EQ(bare, "pow(2)");
}

}  // namespace
}  // namespace velda
