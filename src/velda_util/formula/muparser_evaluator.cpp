#include <muParserBase.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

#include "velda_lib/number_text.h"
#include "velda_util/formula/formula_fault.h"
#include "velda_util/formula/formula_scan.h"

namespace velda {
namespace {

/// How an evaluation goes. The library's callbacks know neither their place in the formula nor their owner, so they
/// count themselves; the first one that fails tells by its number which operation it was.
struct Progress {
    std::size_t operations = 0;
    FormulaFault fault = FormulaFault::None;
    std::size_t failedOperation = 0;
};
thread_local Progress progress;

double Fail(FormulaFault fault) {
    if (progress.fault == FormulaFault::None) {
        progress.fault = fault;
        progress.failedOperation = progress.operations;
    }
    ++progress.operations;
    return 0.0;
}

/// Every operation ends here or in Fail. As only finite results go on, an infinite one has been produced just here.
double Finish(double result) {
    if (std::isnan(result)) return Fail(FormulaFault::NoValue);
    if (std::isinf(result)) return Fail(FormulaFault::Overflow);
    ++progress.operations;
    return result;
}

double Add(double a, double b) { return Finish(a + b); }
double Subtract(double a, double b) { return Finish(a - b); }
double Multiply(double a, double b) { return Finish(a * b); }
double Divide(double a, double b) { return b == 0.0 ? Fail(FormulaFault::DivisionByZero) : Finish(a / b); }
double Power(double a, double b) {
    return a == 0.0 && b < 0.0 ? Fail(FormulaFault::DivisionByZero) : Finish(std::pow(a, b));
}
double Plus(double a) { return a; }
double Minus(double a) { return -a; }
double Ln(double a) { return a == 0.0 ? Fail(FormulaFault::NoValue) : Finish(std::log(a)); }
double Log10(double a) { return a == 0.0 ? Fail(FormulaFault::NoValue) : Finish(std::log10(a)); }
double Min(const double* values, int count) { return Finish(*std::min_element(values, values + count)); }
double Max(const double* values, int count) { return Finish(*std::max_element(values, values + count)); }

/// Reads a number for the library: exact and independent of the locale.
int ReadNumber(const char* text, int* at, double* value) {
    const std::size_t length = NumberLength(text);
    if (length == 0) return 0;
    *value = wtof({text, length});
    *at += static_cast<int>(length);
    return 1;
}

/// The library's engine with our operators, functions and constants only. They are never folded while a formula is
/// compiled: each is called once for each time that it stands in the formula, in the order of application.
class FormulaParser : public mu::ParserBase {
public:
    FormulaParser() {
        EnableBuiltInOprt(false);
        AddValIdent(ReadNumber);
        InitCharSets();
        InitFun();
        InitConst();
        InitOprt();
    }

private:
    static constexpr bool kFold = false;

    void InitCharSets() override {
        DefineNameChars("abcdefghijklmnopqrstuvwxyz0123456789");
        DefineOprtChars("+-*/^");
        DefineInfixOprtChars("+-");
    }

    void InitFun() override {
        DefineFun(
            "abs", +[](double a) { return Finish(std::abs(a)); }, kFold);
        DefineFun(
            "acos", +[](double a) { return Finish(std::acos(a)); }, kFold);
        DefineFun(
            "asin", +[](double a) { return Finish(std::asin(a)); }, kFold);
        DefineFun(
            "atan", +[](double a) { return Finish(std::atan(a)); }, kFold);
        DefineFun(
            "ceil", +[](double a) { return Finish(std::ceil(a)); }, kFold);
        DefineFun(
            "cos", +[](double a) { return Finish(std::cos(a)); }, kFold);
        DefineFun(
            "exp", +[](double a) { return Finish(std::exp(a)); }, kFold);
        DefineFun(
            "floor", +[](double a) { return Finish(std::floor(a)); }, kFold);
        DefineFun("ln", Ln, kFold);
        DefineFun("log10", Log10, kFold);
        DefineFun("max", Max, kFold);
        DefineFun("min", Min, kFold);
        DefineFun("pow", Power, kFold);
        DefineFun(
            "round", +[](double a) { return Finish(std::round(a)); }, kFold);
        DefineFun(
            "sin", +[](double a) { return Finish(std::sin(a)); }, kFold);
        DefineFun(
            "sqrt", +[](double a) { return Finish(std::sqrt(a)); }, kFold);
        DefineFun(
            "tan", +[](double a) { return Finish(std::tan(a)); }, kFold);
    }

    void InitConst() override {
        DefineConst("e", std::numbers::e);
        DefineConst("pi", std::numbers::pi);
    }

    void InitOprt() override {
        for (const FormulaOperator& each : kFormulaOperators) {
            DefineOprt(std::string(1, each.sign), CallbackOf(each.sign), each.precedence,
                       each.rightToLeft ? mu::oaRIGHT : mu::oaLEFT, kFold);
        }
        DefineInfixOprt("+", Plus, kSignPrecedence, kFold);
        DefineInfixOprt("-", Minus, kSignPrecedence, kFold);
    }

    static mu::fun_type2 CallbackOf(char sign) {
        switch (sign) {
            case '+': return Add;
            case '-': return Subtract;
            case '*': return Multiply;
            case '/': return Divide;
            default: return Power;
        }
    }
};

/// The formula as the library reads it: without blanks and mark, in lower case.
std::string PlainText(const std::vector<FormulaToken>& tokens) {
    std::string text;
    for (const FormulaToken& token : tokens) text += token.text;
    for (char& c : text) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return text;
}

class MuParserEvaluator : public FormulaEvaluator {
public:
    FormulaValue Evaluate(std::string_view formula) override {
        if (formula.size() > kMaxFormulaBytes || CharacterCount(formula) > kMaxFormulaLength) {
            return FormulaFailure(FormulaFault::TooLong, formula, formula);
        }
        const FormulaScan scan = ScanFormula(formula);
        if (scan.fault != FormulaFault::None) return FormulaFailure(scan.fault, formula, scan.where);
        progress = {};
        const std::optional<double> value = Compute(PlainText(scan.tokens));
        if (!value) return FormulaFailure(FormulaFault::Unreadable, formula, formula);
        if (progress.fault == FormulaFault::None) return {*value + 0.0, FormulaFault::None, 0, {}};  // no negative zero
        return FormulaFailure(progress.fault, formula, OrderOfOperations(scan.tokens)[progress.failedOperation].text);
    }

private:
    std::optional<double> Compute(const std::string& plain) {
        try {
            parser_.SetExpr(plain);
            return parser_.Eval();
        } catch (const mu::ParserError&) {
            return std::nullopt;
        }
    }

    FormulaParser parser_;
};

}  // namespace

FormulaEvaluator& ThreadFormulaEvaluator() {
    thread_local MuParserEvaluator evaluator;
    return evaluator;
}

}  // namespace velda
