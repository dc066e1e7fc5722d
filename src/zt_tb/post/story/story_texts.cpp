#include "zt_tb/post/story/story_texts.h"

#include <array>
#include <charconv>
#include <cmath>

#include "velda_lib/math_func.h"
#include "velda_lib/number_text.h"

namespace zt {
namespace {

/// The whole number whose reciprocal an angle is.
double ReciprocalOf(double angle) { return velda::CMathFunc::mathRoundOff(1.0 / angle, 1.0); }

bool IsNothing(double value) { return std::abs(value) <= kStoryTolerance; }

std::string OneBy(const std::string& magnitude, bool isNegative) { return (isNegative ? "-1/" : "1/") + magnitude; }

}  // namespace

std::string AngleText(double angle) {
    if (IsNothing(angle)) return "0";
    const double reciprocal = ReciprocalOf(angle);
    return OneBy(velda::FormatLong(static_cast<std::int64_t>(std::abs(reciprocal))), reciprocal < 0.0);
}

std::string LargeAngleText(double angle) {
    constexpr double kLeastDenominator = 2.0;
    const bool isLarge = !IsNothing(angle) && std::abs(ReciprocalOf(angle)) < kLeastDenominator;
    return isLarge ? velda::FormatDouble(angle) : AngleText(angle);
}

std::string AllowableAngleText(double denominator) {
    constexpr int kDigits = 6;
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), std::abs(denominator),
                                   std::chars_format::general, kDigits);
    return OneBy({text.data(), end.ptr}, denominator < 0.0);
}

bool ExceedsAngle(double angle, double denominator) { return std::abs(angle) - 1.0 / denominator > kStoryTolerance; }

const char* VerdictText(bool isGood) { return isGood ? "OK" : "NG"; }

double RatioOrNone(double value, double divisor) { return IsNothing(divisor) ? 0.0 : value / divisor; }

void WriteRatio(velda::RecordCells& cells, int fieldNo, double ratio) {
    if (IsNothing(ratio)) {
        cells.Text(fieldNo, kNoValue);
    } else {
        cells.Number(fieldNo, ratio);
    }
}

void WriteNoValues(velda::RecordCells& cells, int firstField, int lastField) {
    for (int field = firstField; field <= lastField; ++field) cells.Text(field, kNoValue);
}

}  // namespace zt
