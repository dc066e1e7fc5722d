#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "velda_util/formula/formula.h"

namespace velda {

/// A function of formulas and the number of arguments that it takes.
struct FormulaFunction {
    std::string_view name;
    std::size_t fewest;
    std::size_t most;
};

/// A binary operator of formulas; a higher precedence binds closer.
struct FormulaOperator {
    char sign;
    unsigned precedence;
    bool rightToLeft;
};

/// A text of more bytes is longer than a formula may be, whatever its characters: one takes up to four bytes.
inline constexpr std::size_t kMaxFormulaBytes = 4 * kMaxFormulaLength;

inline constexpr std::size_t kAnyNumber = SIZE_MAX;
inline constexpr FormulaFunction kFormulaFunctions[] = {
    {"abs", 1, 1}, {"acos", 1, 1},  {"asin", 1, 1}, {"atan", 1, 1},  {"ceil", 1, 1},         {"cos", 1, 1},
    {"exp", 1, 1}, {"floor", 1, 1}, {"ln", 1, 1},   {"log10", 1, 1}, {"max", 1, kAnyNumber}, {"min", 1, kAnyNumber},
    {"pow", 2, 2}, {"round", 1, 1}, {"sin", 1, 1},  {"sqrt", 1, 1},  {"tan", 1, 1},
};
inline constexpr std::string_view kFormulaConstants[] = {"e", "pi"};
inline constexpr FormulaOperator kFormulaOperators[] = {
    {'+', 1, false}, {'-', 1, false}, {'*', 2, false}, {'/', 2, false}, {'^', 4, true},
};
/// Precedence of a unary sign, between those of "*" and "^".
inline constexpr int kSignPrecedence = 3;

enum class FormulaTokenKind { Number, Constant, Function, Operator, Sign, Open, Close, Comma };

struct FormulaToken {
    FormulaTokenKind kind;
    /// The token as it stands in the scanned text.
    std::string_view text;
};

/// What a text reads as under the grammar of formulas.
struct FormulaScan {
    std::vector<FormulaToken> tokens;
    /// The first fault met, and the part of the text that it lies in.
    FormulaFault fault = FormulaFault::None;
    std::string_view where;
    /// Whether the text is complete and in order. Limits passed and wrong numbers of arguments do not count here.
    bool wellFormed = true;
    /// Whether an operator between two operands or a function call was met.
    bool hasOperation = false;
};

/// Length of the number without a sign that a text begins with, 0 when it begins with none.
std::size_t NumberLength(std::string_view text);

/// Scans a formula, with or without the mark "=" in front; in time proportional to its length. It is the gate in front
/// of the expression library: what passes holds only what formulas may hold, whatever else the library understands.
FormulaScan ScanFormula(std::string_view formula);

/// The tokens that compute something (operators between operands and functions), in the order in which they are
/// applied.
std::vector<FormulaToken> OrderOfOperations(const std::vector<FormulaToken>& tokens);

}  // namespace velda
