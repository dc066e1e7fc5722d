#include "velda_util/formula/formula_fault.h"

#include <algorithm>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"

namespace velda {
namespace {

bool BeginsCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }

std::string_view KeyOf(FormulaFault fault) {
    switch (fault) {
        case FormulaFault::None: break;
        case FormulaFault::Empty: return "IDS_TB_ENGINE_FORMULA_EMPTY";
        case FormulaFault::TooLong: return "IDS_TB_ENGINE_FORMULA_TOO_LONG";
        case FormulaFault::TooDeep: return "IDS_TB_ENGINE_FORMULA_TOO_DEEP";
        case FormulaFault::UnknownName: return "IDS_TB_ENGINE_FORMULA_UNKNOWN_NAME";
        case FormulaFault::Unexpected: return "IDS_TB_ENGINE_FORMULA_UNEXPECTED";
        case FormulaFault::Comma: return "IDS_TB_ENGINE_FORMULA_COMMA";
        case FormulaFault::Incomplete: return "IDS_TB_ENGINE_FORMULA_INCOMPLETE";
        case FormulaFault::OpenBracket: return "IDS_TB_ENGINE_FORMULA_OPEN_BRACKET";
        case FormulaFault::ArgumentCount: return "IDS_TB_ENGINE_FORMULA_ARGUMENT_COUNT";
        case FormulaFault::NumberTooLarge: return "IDS_TB_ENGINE_FORMULA_NUMBER_TOO_LARGE";
        case FormulaFault::DivisionByZero: return "IDS_TB_ENGINE_FORMULA_DIVISION_BY_ZERO";
        case FormulaFault::NoValue: return "IDS_TB_ENGINE_FORMULA_NO_VALUE";
        case FormulaFault::Overflow: return "IDS_TB_ENGINE_FORMULA_OVERFLOW";
        case FormulaFault::Unreadable: return "IDS_TB_ENGINE_FORMULA_UNREADABLE";
    }
    return "";
}

/// The limit that a fault is about.
std::size_t LimitOf(FormulaFault fault) {
    return fault == FormulaFault::TooLong ? kMaxFormulaLength : kMaxFormulaDepth;
}

}  // namespace

std::size_t CharacterCount(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), BeginsCharacter));
}

std::string ShortQuote(std::string_view text) {
    constexpr std::size_t kMost = 60;
    if (text.size() <= kMost) return std::string(text);
    std::size_t end = kMost;
    while (end > 0 && !BeginsCharacter(text[end])) --end;
    return std::string(text.substr(0, end)) + "...";
}

FormulaValue FormulaFailure(FormulaFault fault, std::string_view formula, std::string_view where) {
    FormulaValue result;
    result.fault = fault;
    result.place = CharacterCount({formula.data(), where.data()}) + 1;
    result.reason =
        FormatText(KeyOf(fault), {ShortQuote(where), std::to_string(result.place), std::to_string(LimitOf(fault))});
    return result;
}

}  // namespace velda
