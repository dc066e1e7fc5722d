#include "velda_util/style/display_text.h"

#include <algorithm>
#include <cstdint>
#include <optional>

#include "velda_lib/number_text.h"

namespace velda {
namespace {

/// A number as its digits without leading zeros; `point` digits stand before the decimal point, zeros first when
/// negative.
struct Decimal {
    bool negative = false;
    std::string digits;
    std::int64_t point = 0;
};

/// Digits before the point beyond which no double reaches.
constexpr std::int64_t kMaxIntegerDigits = 309;

std::optional<Decimal> ReadDecimal(std::string_view text) {
    double value = 0.0;
    if (!ReadWholeDouble(text, value)) return std::nullopt;
    Decimal decimal;
    bool afterPoint = false;
    std::string_view rest = TrimBlanks(text);
    for (; !rest.empty() && rest.front() != 'e' && rest.front() != 'E'; rest.remove_prefix(1)) {
        const char c = rest.front();
        if (c == '-') decimal.negative = true;
        if (c == '.') afterPoint = true;
        if (c < '0' || c > '9') continue;
        const bool isLeadingZero = c == '0' && decimal.digits.empty();
        if (!isLeadingZero) decimal.digits += c;
        if (isLeadingZero && afterPoint) --decimal.point;
        if (!isLeadingZero && !afterPoint) ++decimal.point;
    }
    if (!rest.empty()) decimal.point += ReadLongPrefix(rest.substr(1)).value;
    return decimal;
}

void RoundTo(Decimal& decimal, int places) {
    const std::int64_t keep = decimal.point + places;
    if (keep >= static_cast<std::int64_t>(decimal.digits.size())) return;
    const bool up = keep >= 0 && decimal.digits[static_cast<std::size_t>(keep)] >= '5';
    decimal.digits.resize(static_cast<std::size_t>(std::max<std::int64_t>(keep, 0)));
    if (!up) return;
    std::size_t at = decimal.digits.size();
    while (at > 0 && decimal.digits[at - 1] == '9') decimal.digits[--at] = '0';
    if (at > 0) {
        ++decimal.digits[at - 1];
    } else {
        decimal.digits.insert(decimal.digits.begin(), '1');
        ++decimal.point;
    }
}

std::string FixedText(const Decimal& decimal, int places) {
    const auto digitAt = [&](std::int64_t at) {
        const bool given = at >= 0 && at < static_cast<std::int64_t>(decimal.digits.size());
        return given ? decimal.digits[static_cast<std::size_t>(at)] : '0';
    };
    std::string text;
    if (decimal.negative && decimal.digits.find_first_not_of('0') != std::string::npos) text += '-';
    if (decimal.point <= 0) text += '0';
    for (std::int64_t at = 0; at < decimal.point; ++at) text += digitAt(at);
    if (places > 0) text += '.';
    for (std::int64_t at = decimal.point; at < decimal.point + places; ++at) text += digitAt(at);
    return text;
}

}  // namespace

std::string RoundedText(std::string_view text, int places) {
    std::optional<Decimal> decimal = ReadDecimal(text);
    if (!decimal || (!decimal->digits.empty() && decimal->point > kMaxIntegerDigits)) return std::string(text);
    places = std::clamp(places, 0, CGXStyle::kMaxPlaces);
    RoundTo(*decimal, places);
    // The point of nothing may stand anywhere.
    if (decimal->digits.empty()) decimal->point = 0;
    return FixedText(*decimal, places);
}

std::string DisplayText(std::string_view text, const CGXStyle& style) {
    switch (style.GetControl()) {
        case ControlKind::CheckBox:
        case ControlKind::CaptionCheckBox: return TrimBlanks(text) == "1" ? "1" : "0";
        case ControlKind::TabbedDropDownList: return std::string(style.GetChoices().ShownText(text));
        default: break;
    }
    const bool isFixed = style.GetValueType() == ValueType::Numeric && style.GetFormat() == NumberFormat::Fixed;
    return isFixed && style.IncludePlaces() ? RoundedText(text, style.GetPlaces()) : std::string(text);
}

}  // namespace velda
