#pragma once

#include <functional>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "velda_util/style/gx_style.h"

namespace velda {

/// The attributes that a style sets, by name, each value as a text: a model of a style that knows nothing of its
/// inside.
using Attributes = std::map<std::string, std::string>;

inline Attributes AttributesOf(const CGXStyle& s) {
    Attributes set;
    const auto add = [&set](const char* name, bool included, const auto& value) {
        if (!included) return;
        if constexpr (std::is_convertible_v<decltype(value), std::string>) {
            set[name] = value;
        } else {
            set[name] = std::to_string(static_cast<double>(value));
        }
    };
    add("bold", s.IncludeBold(), s.GetBold());
    add("wrap", s.IncludeWrapText(), s.GetWrapText());
    add("enabled", s.IncludeEnabled(), s.GetEnabled());
    add("read only", s.IncludeReadOnly(), s.GetReadOnly());
    add("allow enter", s.IncludeAllowEnter(), s.GetAllowEnter());
    add("value type", s.IncludeValueType(), s.GetValueType());
    add("format", s.IncludeFormat(), s.GetFormat());
    add("font size", s.IncludeFontSize(), s.GetFontSize());
    add("text color", s.IncludeTextColor(), s.GetTextColor());
    add("interior", s.IncludeInterior(), s.GetInterior());
    add("horizontal", s.IncludeHorizontalAlignment(), s.GetHorizontalAlignment());
    add("vertical", s.IncludeVerticalAlignment(), s.GetVerticalAlignment());
    add("places", s.IncludePlaces(), s.GetPlaces());
    add("control", s.IncludeControl(), s.GetControl());
    add("max length", s.IncludeMaxLength(), s.GetMaxLength());
    add("span rows", s.IncludeMergedSpan(), s.GetMergedSpan().rows);
    add("span cols", s.IncludeMergedSpan(), s.GetMergedSpan().cols);
    add("choice list", s.IncludeChoiceList(), s.GetChoiceList());
    add("key column", s.IncludeKeyColumn(), s.GetKeyColumn());
    add("text column", s.IncludeTextColumn(), s.GetTextColumn());
    add("third", s.IncludeThirdAttribute(), s.GetThirdAttribute());
    add("fourth", s.IncludeFourthAttribute(), s.GetFourthAttribute());
    add("minimum", s.IncludeMinimum(), s.GetMinimum());
    add("maximum", s.IncludeMaximum(), s.GetMaximum());
    add("value", s.IncludeValue(), s.GetValue());
    add("tool tip", s.IncludeToolTip(), s.GetToolTip());
    add("picture", s.IncludePicture(), s.GetPicture());
    return set;
}

/// What `own` is after `other` has been applied, said in attributes.
inline Attributes Overridden(const Attributes& own, const Attributes& other) {
    Attributes result = other;
    result.insert(own.begin(), own.end());
    return result;
}

inline Attributes Without(Attributes own, const Attributes& other) {
    for (const auto& [name, value] : other) own.erase(name);
    return own;
}

/// Styles with a few attributes of few values, so that equal ones and clashes are common.
class RandomStyles {
public:
    explicit RandomStyles(unsigned seed) : random_(seed) {}

    std::uint32_t Number(std::uint32_t below) { return static_cast<std::uint32_t>(random_() % below); }
    CGXStyle Next(std::uint32_t mostAttributes = 6) {
        CGXStyle style;
        for (std::uint32_t i = Number(mostAttributes + 1); i > 0; --i) SetOne(style);
        return style;
    }

private:
    void SetOne(CGXStyle& style) {
        const std::uint32_t value = Number(3);
        const std::string text = std::string(value, 'x');
        const std::vector<std::function<void()>> setters = {
            [&] { style.SetBold(value > 0); },
            [&] { style.SetWrapText(value > 0); },
            [&] { style.SetEnabled(value > 0); },
            [&] { style.SetReadOnly(value > 0); },
            [&] { style.SetAllowEnter(value > 0); },
            [&] { style.SetValueType(value > 0 ? ValueType::Numeric : ValueType::String); },
            [&] { style.SetFormat(value > 0 ? NumberFormat::Fixed : NumberFormat::General); },
            [&] { style.SetFontSize(8.0 + 0.5 * value); },
            [&] { style.SetTextColor(value * 255); },
            [&] { style.SetInterior(value * 255); },
            [&] { style.SetHorizontalAlignment(static_cast<HorizontalAlignment>(value)); },
            [&] { style.SetVerticalAlignment(static_cast<VerticalAlignment>(value * 4)); },
            [&] { style.SetPlaces(static_cast<int>(value)); },
            [&] { style.SetControl(static_cast<ControlKind>(value)); },
            [&] { style.SetMaxLength(static_cast<std::uint16_t>(value)); },
            [&] {
                style.SetMergedSpan({static_cast<std::uint16_t>(1 + value), 2});
            },
            [&] { style.SetChoiceList(text); },
            [&] { style.SetKeyColumn(text); },
            [&] { style.SetTextColumn(text); },
            [&] { style.SetThirdAttribute(text); },
            [&] { style.SetFourthAttribute(text); },
            [&] { style.SetMinimum(text); },
            [&] { style.SetMaximum(text); },
            [&] { style.SetValue(text); },
            [&] { style.SetToolTip(text); },
            [&] { style.SetPicture(text); },
        };
        setters[Number(static_cast<std::uint32_t>(setters.size()))]();
    }
    std::mt19937 random_;
};

}  // namespace velda
