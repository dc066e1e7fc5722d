#include <algorithm>
#include <chrono>
#include <cmath>
#include <numbers>
#include <random>
#include <string>

#include "velda_lib/number_text.h"
#include "velda_util/formula/cell_number.h"
#include "velda_util/formula/formula.h"
#include <gtest/gtest.h>

namespace velda {
namespace {

using Random = std::mt19937;

std::size_t Below(Random& random, std::size_t end) { return random() % end; }

/// A plain recursive-descent evaluator of well-formed formulas, to compare with. A fault shows as a value that is not
/// finite.
class PlainEvaluator {
public:
    explicit PlainEvaluator(std::string_view text) : text_(text) {}
    double Run() { return Sum(); }

private:
    bool Take(char c) {
        if (at_ == text_.size() || text_[at_] != c) return false;
        ++at_;
        return true;
    }

    /// Once a value is not finite, the whole formula is not: an infinity must not vanish again in a division.
    double Keep(double value) {
        if (!std::isfinite(value)) broken_ = true;
        return broken_ ? std::nan("") : value;
    }

    double Sum() {
        double value = Product();
        while (true) {
            if (Take('+'))
                value = Keep(value + Product());
            else if (Take('-'))
                value = Keep(value - Product());
            else
                return value;
        }
    }

    double Product() {
        double value = Signed();
        while (true) {
            if (Take('*'))
                value = Keep(value * Signed());
            else if (Take('/'))
                value = Keep(value / Signed());
            else
                return value;
        }
    }

    double Signed() {
        if (Take('-')) return -Power();
        Take('+');
        return Power();
    }

    double Power() {
        const double base = Operand();
        return Take('^') ? Keep(std::pow(base, Signed())) : base;
    }

    double Operand() {
        if (Take('(')) {
            const double value = Sum();
            Take(')');
            return value;
        }
        const std::size_t nameEnd = std::min(text_.find_first_not_of("abcdefghijklmnopqrstuvwxyz", at_), text_.size());
        if (nameEnd > at_) return Named(text_.substr(at_, nameEnd - at_), nameEnd);
        const std::size_t end = std::min(text_.find_first_not_of("0123456789.", at_), text_.size());
        const double value = wtof(text_.substr(at_, end - at_));
        at_ = end;
        return value;
    }

    double Named(std::string_view name, std::size_t end) {
        at_ = end;
        if (name == "pi") return std::numbers::pi;
        if (name == "e") return std::numbers::e;
        Take('(');
        const double first = Sum();
        const double second = Take(',') ? Sum() : 0.0;
        Take(')');
        if (name == "sqrt") return Keep(std::sqrt(first));
        if (name == "ln") return Keep(std::log(first));
        if (name == "sin") return Keep(std::sin(first));
        if (name == "floor") return Keep(std::floor(first));
        if (name == "exp") return Keep(std::exp(first));
        return Keep(name == "max" ? std::max(first, second) : std::pow(first, second));
    }

    std::string_view text_;
    std::size_t at_ = 0;
    bool broken_ = false;
};

std::string RandomExpression(Random& random, int depth);

std::string RandomOperand(Random& random, int depth) {
    static const char* const kOne[] = {"sqrt", "ln", "sin", "floor", "exp"};
    static const char* const kTwo[] = {"max", "pow"};
    static const char* const kPlain[] = {"0", "1", "2", "3.5", "0.25", ".5", "12.", "100", "pi", "e"};
    const std::size_t choice = depth == 0 ? 9 : Below(random, 10);
    if (choice < 2) return "(" + RandomExpression(random, depth - 1) + ")";
    if (choice == 2) return kOne[Below(random, 5)] + ("(" + RandomExpression(random, depth - 1) + ")");
    if (choice == 3) {
        std::string first = RandomExpression(random, depth - 1);
        return kTwo[Below(random, 2)] + ("(" + first + "," + RandomExpression(random, depth - 1) + ")");
    }
    return kPlain[Below(random, 10)];
}

std::string RandomExpression(Random& random, int depth) {
    std::string text;
    const std::size_t operands = 1 + Below(random, 4);
    for (std::size_t i = 0; i < operands; ++i) {
        if (i > 0) text += "+-*/^"[Below(random, 5)];
        const std::size_t sign = Below(random, 8);
        if (sign < 2) text += "+-"[sign];
        text += RandomOperand(random, depth);
    }
    return text;
}

std::string RandomText(Random& random) {
    static const char* const kSound[] = {"0", "1", "2", "3.5", "1e5", "+",     "-", "*",
                                         "/", "^", "(", ")",   "pi",  "sqrt(", " "};
    static const char* const kPieces[] = {"0",
                                          "1",
                                          "2",
                                          "9",
                                          "3.5",
                                          ".",
                                          "e",
                                          "E",
                                          "+",
                                          "-",
                                          "*",
                                          "/",
                                          "^",
                                          "(",
                                          ")",
                                          ",",
                                          "=",
                                          " ",
                                          "pi",
                                          "sqrt(",
                                          "max(",
                                          "ln",
                                          "W",
                                          "x",
                                          "\"",
                                          ";",
                                          "?",
                                          ":",
                                          "\t",
                                          "%",
                                          "&&",
                                          "1e5",
                                          "_",
                                          "기",
                                          "둥",
                                          "é",
                                          "\xF0\x9F\x8F\x97",
                                          "\xFF",
                                          "\x80",
                                          "!",
                                          "<",
                                          "{",
                                          "#",
                                          "'"};
    std::string text;
    const std::size_t length = Below(random, Below(random, 20) == 0 ? 400 : 16);
    const bool sound = Below(random, 4) == 0;  // many of these are formulas
    for (std::size_t i = 0; i < length; ++i) {
        text += sound ? kSound[Below(random, std::size(kSound))] : kPieces[Below(random, std::size(kPieces))];
    }
    if (Below(random, 50) == 0) text += '\0';
    return text;
}

double MillisecondsOf(auto&& work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

TEST(RandomFormulas, RandomTextsAreJudgedWithoutHarm) {
    Random random(20);
    double slowest = 0;
    int converted = 0;
    int refused = 0;
    for (int i = 0; i < 100'000; ++i) {
        const std::string original = RandomText(random);
        std::string text = original;
        FormulaConversion result;
        slowest = std::max(slowest, MillisecondsOf([&] { result = ConvertFormulaToValue(text, true); }));
        double value = 0;
        if (result.outcome == FormulaOutcome::Converted) {
            ++converted;
            ASSERT_TRUE(ReadWholeDouble(text, value)) << original;
            ASSERT_TRUE(std::isfinite(value)) << original;
        } else {
            if (result.outcome == FormulaOutcome::Error) ++refused;
            ASSERT_EQ(result.reason.empty(), result.outcome == FormulaOutcome::Unchanged) << original;
            ASSERT_EQ(text, original);
        }
        ASSERT_EQ(IsFormula(original), result.outcome != FormulaOutcome::Unchanged) << original;
        ASSERT_EQ(InvalidNumberReason(original, CellNumberKind::Double).empty(), IsValidDoubleNumber(original, value))
            << original;
    }
    EXPECT_GT(converted, 300) << refused;
    EXPECT_GT(refused, 300);
    EXPECT_LT(slowest, 200);  // far above what any of them takes, so that a busy machine does not matter
}

TEST(RandomFormulas, WellFormedExpressionsAgreeWithAPlainEvaluator) {
    Random random(21);
    int values = 0;
    int faults = 0;
    for (int i = 0; i < 50'000; ++i) {
        const std::string text = RandomExpression(random, 3);
        if (text.size() > kMaxFormulaLength) continue;
        const double expected = PlainEvaluator(text).Run();
        const FormulaValue result = ThreadFormulaEvaluator().Evaluate(text);
        ASSERT_EQ(static_cast<bool>(result), std::isfinite(expected)) << text << ": " << result.reason;
        if (result) {
            ++values;
            ASSERT_EQ(result.value, expected) << text;
        } else {
            ++faults;
            ASSERT_TRUE(result.place >= 1 && result.place <= text.size()) << text << ": " << result.reason;
        }
    }
    EXPECT_GT(values, 10'000);
    EXPECT_GT(faults, 1'000);
}

TEST(RandomFormulas, TheDivisionThatFailsIsTheOneThatIsNamed) {
    Random random(22);
    for (int i = 0; i < 5'000; ++i) {
        // Every operand but one is a number from 1 to 9, and no other division can fail.
        std::string text;
        std::size_t place = 0;
        const std::size_t operands = 2 + Below(random, 10);
        const std::size_t zero = 1 + Below(random, operands - 1);
        for (std::size_t n = 0; n < operands; ++n) {
            if (n == zero) place = text.size() + 1;
            if (n > 0) text += n == zero ? '/' : "+*/"[Below(random, 3)];
            if (Below(random, 3) == 0) text += n == zero ? "+" : "-";
            text += n == zero ? "(3-3)" : std::to_string(1 + Below(random, 9));
        }
        const FormulaValue result = ThreadFormulaEvaluator().Evaluate(text);
        ASSERT_EQ(result.fault, FormulaFault::DivisionByZero) << text;
        ASSERT_EQ(result.place, place) << text;
    }
}

TEST(RandomFormulas, HostileTextsTakeABoundedTime) {
    std::string divisions = "0";
    while (divisions.size() + 2 <= kMaxFormulaLength) divisions += "/0";
    std::string powers = "2";
    while (powers.size() + 2 <= kMaxFormulaLength) powers += "^2";
    const std::string texts[] = {divisions,
                                 powers,
                                 "=" + std::string(10'000'000, '('),
                                 std::string(10'000'000, '('),
                                 std::string(10'000'000, '-'),
                                 "1+" + std::string(10'000'000, '9'),
                                 "=" + std::string(kMaxFormulaLength - 1, 'a'),
                                 "max(" + std::string(900, '1') + ")*1"};
    for (const std::string& original : texts) {
        std::string text = original;
        FormulaConversion result;
        EXPECT_LT(MillisecondsOf([&] { result = ConvertFormulaToValue(text, true); }), 2'000) << original.substr(0, 20);
        EXPECT_NE(result.outcome, FormulaOutcome::Converted) << original.substr(0, 20);
        EXPECT_EQ(text.size(), original.size());
    }
}

}  // namespace
}  // namespace velda
