#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace velda {

/// Why a formula has no value.
enum class FormulaFault {
    None,
    Empty,           ///< nothing stands after the mark "="
    TooLong,         ///< more than kMaxFormulaLength characters
    TooDeep,         ///< brackets nested deeper than kMaxFormulaDepth
    UnknownName,     ///< neither a function nor a constant
    Unexpected,      ///< something stands where it cannot stand
    Comma,           ///< a comma outside a list of arguments, often meant as a decimal sign
    Incomplete,      ///< the text ends where a number, a name or a bracket has to follow
    OpenBracket,     ///< a bracket that is not closed
    ArgumentCount,   ///< a function with too few or too many arguments
    NumberTooLarge,  ///< a number beyond the range of a double
    DivisionByZero,  ///< a division by zero, or zero to a negative power
    NoValue,         ///< a function or power outside the arguments that it is defined for, such as sqrt(-1)
    Overflow,        ///< a result beyond the range of a double
    Unreadable,      ///< refused by the expression library for another reason
};

/// Value of a formula, or why it has none.
struct FormulaValue {
    double value = 0.0;
    FormulaFault fault = FormulaFault::None;
    /// Where the fault stands, in characters of the formula counted from 1; 0 without a fault.
    std::size_t place = 0;
    /// The fault in words of the current language, with its place.
    std::string reason;

    explicit operator bool() const { return fault == FormulaFault::None; }
};

inline constexpr std::size_t kMaxFormulaLength = 1000;
inline constexpr std::size_t kMaxFormulaDepth = 100;

/// Evaluates formulas: numbers with a decimal point, + - * / ^ ( ), unary signs, the constants pi and e and the
/// functions sqrt, sin, cos, tan, asin, acos, atan, exp, ln, log10, abs, min, max, round, floor, ceil and pow, in upper
/// or lower case. Angles are in radians. "^" binds from right to left and closer than a sign: 2^3^2 is 512, -2^2 is -4.
/// The mark "=" may stand in front. An evaluator serves one thread at a time.
class FormulaEvaluator {
public:
    virtual ~FormulaEvaluator() = default;
    virtual FormulaValue Evaluate(std::string_view formula) = 0;
};

/// The evaluator of the calling thread.
FormulaEvaluator& ThreadFormulaEvaluator();

/// Whether a text begins with "=" (after blanks).
bool IsMarkedFormula(std::string_view text);

/// Whether a text is a complete arithmetic expression with at least one operator or function call. A number with its
/// sign is none, nor is any text that holds an unknown name. What reads as a calculation is one, so "2-1" and "10/20"
/// are expressions, though in a column of texts they may be names: whether the column is numeric is for the caller to
/// ask.
bool IsExpression(std::string_view text);

/// Whether a text is a formula in a numeric column: marked, or an expression.
bool IsFormula(std::string_view text);

enum class FormulaOutcome { Unchanged, Converted, Error };

/// What became of a cell text.
struct FormulaConversion {
    FormulaOutcome outcome = FormulaOutcome::Unchanged;
    /// Why the formula has no value; empty unless the outcome is Error.
    std::string reason;
};

/// Replaces a formula by the text of its value (FormatDouble). In a numeric column a formula is marked or an
/// expression, in a column of texts only marked. Any other text, and a formula without a value, stays as it stands.
FormulaConversion ConvertFormulaToValue(std::string& text, bool numeric);

}  // namespace velda
