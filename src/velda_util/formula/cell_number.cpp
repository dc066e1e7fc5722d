#include "velda_util/formula/cell_number.h"

#include <cmath>
#include <cstdint>
#include <limits>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "velda_util/formula/formula.h"
#include "velda_util/formula/formula_fault.h"

namespace velda {
namespace {

constexpr std::int64_t kLowestLong = std::numeric_limits<std::int32_t>::min();
constexpr std::int64_t kHighestLong = std::numeric_limits<std::int32_t>::max();

bool ReadLong(std::string_view text, std::int64_t& value) {
    return ReadWholeLong(text, value) && value >= kLowestLong && value <= kHighestLong;
}

bool ReadDouble(std::string_view text, double& value) { return ReadWholeDouble(text, value) && std::isfinite(value); }

/// Reads a plain number at once, any other text as the formula that it may be.
template <class Number>
bool ReadNumberOrFormula(std::string_view text, Number& value, bool (*read)(std::string_view, Number&)) {
    if (read(text, value)) return true;
    std::string converted(text);
    return ConvertFormulaToValue(converted, true).outcome == FormulaOutcome::Converted && read(converted, value);
}

std::string NoNumberReason(std::string_view text, CellNumberKind kind) {
    if (text.find(',') != std::string_view::npos) return FormatText("IDS_TB_ENGINE_NUMBER_COMMA", {ShortQuote(text)});
    return FormatText(kind == CellNumberKind::Long ? "IDS_TB_ENGINE_NUMBER_NOT_WHOLE" : "IDS_TB_ENGINE_NUMBER_NONE",
                      {ShortQuote(text)});
}

std::string LongReason(std::string_view text, double number) {
    if (number >= static_cast<double>(kLowestLong) && number <= static_cast<double>(kHighestLong)) {
        return FormatText("IDS_TB_ENGINE_NUMBER_NOT_WHOLE", {ShortQuote(text)});
    }
    return FormatText("IDS_TB_ENGINE_NUMBER_OUT_OF_RANGE",
                      {ShortQuote(text), FormatLong(kLowestLong), FormatLong(kHighestLong)});
}

}  // namespace

bool IsValidLongNumber(std::string_view text, long long& value) {
    std::int64_t read = 0;
    if (!ReadNumberOrFormula<std::int64_t>(text, read, ReadLong)) return false;
    value = read;
    return true;
}

bool IsValidDoubleNumber(std::string_view text, double& value) {
    double read = 0.0;
    if (!ReadNumberOrFormula<double>(text, read, ReadDouble)) return false;
    value = read;
    return true;
}

std::string InvalidNumberReason(std::string_view text, CellNumberKind kind) {
    std::string converted(text);
    FormulaConversion conversion = ConvertFormulaToValue(converted, true);
    if (conversion.outcome == FormulaOutcome::Error) return std::move(conversion.reason);
    double number = 0.0;
    if (!ReadWholeDouble(converted, number)) return NoNumberReason(text, kind);
    std::int64_t whole = 0;
    const bool isLong = kind == CellNumberKind::Long;
    if (isLong) return ReadLong(converted, whole) ? std::string() : LongReason(text, number);
    return std::isfinite(number) ? std::string() : FormatText("IDS_TB_ENGINE_NUMBER_TOO_LARGE", {ShortQuote(text)});
}

}  // namespace velda
