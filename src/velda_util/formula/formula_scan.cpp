#include "velda_util/formula/formula_scan.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

#include "velda_lib/comp_func.h"
#include "velda_lib/number_text.h"

namespace velda {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool BeginsNumber(char c) { return IsDigit(c) || c == '.'; }

/// Bytes of characters beyond ASCII count as letters, so that a word of any language is named as a whole.
bool BeginsName(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

const FormulaFunction* FindFunction(std::string_view name) {
    const auto found =
        std::find_if(std::begin(kFormulaFunctions), std::end(kFormulaFunctions),
                     [&](const FormulaFunction& each) { return CCompFunc::EqualNoCase(each.name, name); });
    return found == std::end(kFormulaFunctions) ? nullptr : found;
}

bool IsConstant(std::string_view name) {
    return std::any_of(std::begin(kFormulaConstants), std::end(kFormulaConstants),
                       [&](std::string_view each) { return CCompFunc::EqualNoCase(each, name); });
}

const FormulaOperator* FindOperator(std::string_view text) {
    const auto found = std::find_if(std::begin(kFormulaOperators), std::end(kFormulaOperators),
                                    [&](const FormulaOperator& each) { return each.sign == text.front(); });
    return found == std::end(kFormulaOperators) ? nullptr : found;
}

/// Reads tokens from left to right, with operands and operators in turn. Brackets stand on a stack of their own.
class Scanner {
public:
    explicit Scanner(std::string_view text) : text_(text) {}

    FormulaScan Run() {
        SkipBlanks();
        if (at_ < text_.size() && text_[at_] == '=') ++at_;
        bool inOrder = true;
        for (SkipBlanks(); inOrder && at_ < text_.size(); SkipBlanks()) {
            const std::string_view lexeme = TakeLexeme();
            inOrder = operandNext_ ? ReadOperand(lexeme) : ReadAfterOperand(lexeme);
        }
        if (inOrder) Finish();
        return std::move(scan_);
    }

private:
    struct Bracket {
        std::string_view open;
        const FormulaFunction* function;  ///< whose arguments stand in the bracket; none for a plain bracket
        std::string_view functionName;
        std::size_t arguments = 1;
    };

    void SkipBlanks() {
        while (at_ < text_.size() && TrimBlanks(text_.substr(at_, 1)).empty()) ++at_;
    }

    std::string_view TakeLexeme() {
        const std::size_t begin = at_;
        const char first = text_[at_];
        if (BeginsName(first)) {
            while (at_ < text_.size() && (BeginsName(text_[at_]) || IsDigit(text_[at_]))) ++at_;
        } else {
            at_ += std::max<std::size_t>(NumberLength(text_.substr(at_)), 1);
        }
        return text_.substr(begin, at_ - begin);
    }

    bool ReadOperand(std::string_view lexeme) {
        const char first = lexeme.front();
        if (BeginsNumber(first) && lexeme != ".") return ReadNumber(lexeme);
        if (BeginsName(first)) return ReadName(lexeme);
        if (first == '(') return Open({lexeme, nullptr, {}});
        if ((first == '+' || first == '-') && !AfterSign()) return Push(FormulaTokenKind::Sign, lexeme, true);
        return Refuse(FormulaFault::Unexpected, lexeme);
    }

    bool ReadNumber(std::string_view lexeme) {
        if (std::isinf(wtof(lexeme))) Note(FormulaFault::NumberTooLarge, lexeme);
        return Push(FormulaTokenKind::Number, lexeme, false);
    }

    bool ReadName(std::string_view name) {
        if (IsConstant(name)) return Push(FormulaTokenKind::Constant, name, false);
        const FormulaFunction* function = FindFunction(name);
        if (function == nullptr) return Refuse(FormulaFault::UnknownName, name);
        SkipBlanks();
        if (at_ == text_.size()) return Refuse(FormulaFault::Incomplete, text_.substr(at_));
        const std::string_view next = TakeLexeme();
        if (next != "(") return Refuse(FormulaFault::Unexpected, next);
        scan_.hasOperation = true;
        Push(FormulaTokenKind::Function, name, true);
        return Open({next, function, name});
    }

    bool ReadAfterOperand(std::string_view lexeme) {
        if (lexeme == ")") return Close(lexeme);
        if (lexeme == ",") return NextArgument(lexeme);
        if (FindOperator(lexeme) == nullptr) return Refuse(FormulaFault::Unexpected, lexeme);
        scan_.hasOperation = true;
        return Push(FormulaTokenKind::Operator, lexeme, true);
    }

    bool Open(const Bracket& bracket) {
        if (brackets_.size() == kMaxFormulaDepth) Note(FormulaFault::TooDeep, bracket.open);
        brackets_.push_back(bracket);
        return Push(FormulaTokenKind::Open, bracket.open, true);
    }

    bool Close(std::string_view lexeme) {
        if (brackets_.empty()) return Refuse(FormulaFault::Unexpected, lexeme);
        const Bracket bracket = brackets_.back();
        brackets_.pop_back();
        const FormulaFunction* function = bracket.function;
        if (function != nullptr && (bracket.arguments < function->fewest || bracket.arguments > function->most)) {
            Note(FormulaFault::ArgumentCount, bracket.functionName);
        }
        return Push(FormulaTokenKind::Close, lexeme, false);
    }

    bool NextArgument(std::string_view lexeme) {
        if (brackets_.empty() || brackets_.back().function == nullptr) return Refuse(FormulaFault::Comma, lexeme);
        ++brackets_.back().arguments;
        return Push(FormulaTokenKind::Comma, lexeme, true);
    }

    void Finish() {
        const std::string_view end = text_.substr(text_.size());
        if (scan_.tokens.empty()) {
            Refuse(FormulaFault::Empty, end);
        } else if (operandNext_) {
            Refuse(FormulaFault::Incomplete, end);
        } else if (!brackets_.empty()) {
            Refuse(FormulaFault::OpenBracket, brackets_.back().open);
        }
    }

    bool AfterSign() const { return !scan_.tokens.empty() && scan_.tokens.back().kind == FormulaTokenKind::Sign; }

    bool Push(FormulaTokenKind kind, std::string_view lexeme, bool operandNext) {
        scan_.tokens.push_back({kind, lexeme});
        operandNext_ = operandNext;
        return true;
    }

    void Note(FormulaFault fault, std::string_view where) {
        if (scan_.fault != FormulaFault::None) return;
        scan_.fault = fault;
        scan_.where = where;
    }

    bool Refuse(FormulaFault fault, std::string_view where) {
        Note(fault, where);
        scan_.wellFormed = false;
        return false;
    }

    std::string_view text_;
    std::size_t at_ = 0;
    bool operandNext_ = true;
    std::vector<Bracket> brackets_;
    FormulaScan scan_;
};

/// Whether `left`, which stands to the left of `right` at the same level, is applied first.
bool AppliesFirst(const FormulaToken& left, const FormulaToken& right) {
    const FormulaOperator& leftOperator = *FindOperator(left.text);
    const FormulaOperator& rightOperator = *FindOperator(right.text);
    if (leftOperator.precedence != rightOperator.precedence) return leftOperator.precedence > rightOperator.precedence;
    return !leftOperator.rightToLeft;
}

}  // namespace

std::size_t NumberLength(std::string_view text) {
    if (text.empty() || !BeginsNumber(text.front())) return 0;
    double value = 0.0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    return static_cast<std::size_t>(result.ptr - text.data());
}

FormulaScan ScanFormula(std::string_view formula) { return Scanner(formula).Run(); }

std::vector<FormulaToken> OrderOfOperations(const std::vector<FormulaToken>& tokens) {
    std::vector<FormulaToken> order;
    std::vector<FormulaToken> waiting;
    const auto apply = [&](auto&& condition) {
        while (!waiting.empty() && condition(waiting.back())) {
            order.push_back(waiting.back());
            waiting.pop_back();
        }
    };
    const auto isOperator = [](const FormulaToken& each) { return each.kind == FormulaTokenKind::Operator; };
    for (const FormulaToken& token : tokens) {
        switch (token.kind) {
            case FormulaTokenKind::Operator:
                apply([&](const FormulaToken& left) { return isOperator(left) && AppliesFirst(left, token); });
                waiting.push_back(token);
                break;
            case FormulaTokenKind::Function:
            case FormulaTokenKind::Open: waiting.push_back(token); break;
            case FormulaTokenKind::Comma: apply(isOperator); break;
            case FormulaTokenKind::Close:
                apply(isOperator);
                waiting.pop_back();
                if (!waiting.empty() && waiting.back().kind == FormulaTokenKind::Function) {
                    order.push_back(waiting.back());
                    waiting.pop_back();
                }
                break;
            case FormulaTokenKind::Number:
            case FormulaTokenKind::Constant:
            case FormulaTokenKind::Sign: break;
        }
    }
    apply(isOperator);
    return order;
}

}  // namespace velda
