#include "velda_lib/number_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace velda {
namespace {

constexpr std::string_view kBlanks = " \t\n\v\f\r";

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsBlank(char c) { return kBlanks.find(c) != std::string_view::npos; }

std::size_t SkipBlanks(std::string_view text) {
    std::size_t at = 0;
    while (at < text.size() && IsBlank(text[at])) ++at;
    return at;
}

std::size_t SkipDigits(std::string_view text, std::size_t at) {
    while (at < text.size() && IsDigit(text[at])) ++at;
    return at;
}

/// End of the decimal number that begins at `at` (no sign), or `at` when none begins there.
std::size_t DecimalEnd(std::string_view text, std::size_t at) {
    std::size_t end = SkipDigits(text, at);
    std::size_t digits = end - at;
    if (end < text.size() && text[end] == '.') {
        const std::size_t fractionEnd = SkipDigits(text, end + 1);
        digits += fractionEnd - (end + 1);
        if (digits > 0) end = fractionEnd;
    }
    if (digits == 0) return at;
    if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
        std::size_t exponent = end + 1;
        if (exponent < text.size() && (text[exponent] == '+' || text[exponent] == '-')) ++exponent;
        const std::size_t exponentEnd = SkipDigits(text, exponent);
        if (exponentEnd > exponent) end = exponentEnd;
    }
    return end;
}

/// For a number out of the range of a double: whether it is too large (true) or too small (false).
bool IsTooLarge(std::string_view number) {
    const std::size_t mark = number.find_first_of("eE");
    const std::string_view mantissa = number.substr(0, mark);
    std::int64_t exponent = 0;
    if (mark != std::string_view::npos) exponent = ReadLongPrefix(number.substr(mark + 1)).value;
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t lead = std::min(mantissa.find_first_of("123456789"), mantissa.size());
    return exponent + static_cast<std::int64_t>(point) - static_cast<std::int64_t>(lead) > 0;
}

double DecimalValue(std::string_view number) {
    double value = 0.0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (error == std::errc::result_out_of_range) {
        return IsTooLarge(number) ? std::numeric_limits<double>::infinity() : 0.0;
    }
    return value;
}

struct DecimalPrefix {
    double value = 0.0;
    std::size_t length = 0;
};

DecimalPrefix ReadDecimalPrefix(std::string_view text) {
    std::size_t at = SkipBlanks(text);
    const bool negative = at < text.size() && text[at] == '-';
    if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
    const std::size_t end = DecimalEnd(text, at);
    if (end == at) return {};
    const double value = DecimalValue(text.substr(at, end - at));
    return {negative ? -value : value, end};
}

template <class... Precision>
std::string DoubleText(double value, Precision... precision) {
    std::array<char, 64> buffer;
    const auto [end, error] =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general, precision...);
    return std::string(buffer.data(), end);
}

}  // namespace

std::string FormatDouble(double value) { return DoubleText(value, 15); }

// Most numbers have few decimals; a number that is the nearest one to a decimal of up to 15 digits is its own text's
// number.
double RoundToShown(double value) {
    constexpr double kDecimals = 1.0e6;
    constexpr double kLargest = 1.0e9;
    if (std::abs(value) < kLargest && std::nearbyint(value * kDecimals) / kDecimals == value) return value;
    return std::isfinite(value) ? wtof(FormatDouble(value)) : value;
}

std::string FormatDoubleExact(double value) { return DoubleText(value); }

std::string FormatLong(std::int64_t value) { return std::to_string(value); }

std::string FormatZeroPadded(std::int64_t value, int width) {
    std::string text = FormatLong(value);
    const std::size_t wanted = width > 0 ? static_cast<std::size_t>(width) : 0;
    if (text.size() < wanted) text.insert(value < 0 ? 1 : 0, wanted - text.size(), '0');
    return text;
}

LongPrefix ReadLongPrefix(std::string_view text) {
    constexpr std::int64_t kLow = std::numeric_limits<std::int32_t>::min();
    constexpr std::int64_t kHigh = std::numeric_limits<std::int32_t>::max();
    std::size_t at = SkipBlanks(text);
    const bool negative = at < text.size() && text[at] == '-';
    if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
    const std::size_t end = SkipDigits(text, at);
    if (end == at) return {};

    LongPrefix result;
    result.length = end;
    std::int64_t value = 0;
    for (; at < end && !result.saturated; ++at) {
        value = value * 10 + (text[at] - '0');
        result.saturated = negative ? -value < kLow : value > kHigh;
    }
    if (result.saturated) value = negative ? -kLow : kHigh;
    result.value = static_cast<std::int32_t>(negative ? -value : value);
    return result;
}

std::int32_t wtol(std::string_view text) { return ReadLongPrefix(text).value; }

double wtof(std::string_view text) { return ReadDecimalPrefix(text).value; }

bool ReadWholeLong(std::string_view text, std::int64_t& value) {
    std::string_view number = TrimBlanks(text);
    if (number.starts_with('+') && number.size() > 1 && number[1] != '-') number.remove_prefix(1);
    std::int64_t read = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), read);
    if (number.empty() || error != std::errc{} || end != number.data() + number.size()) return false;
    value = read;
    return true;
}

bool ReadWholeDouble(std::string_view text, double& value) {
    const std::string_view number = TrimBlanks(text);
    const DecimalPrefix prefix = ReadDecimalPrefix(number);
    if (prefix.length == 0 || prefix.length != number.size()) return false;
    value = prefix.value;
    return true;
}

std::string_view TrimBlanks(std::string_view text) {
    text.remove_prefix(SkipBlanks(text));
    while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
    return text;
}

}  // namespace velda
