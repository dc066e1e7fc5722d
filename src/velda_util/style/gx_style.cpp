#include "velda_util/style/gx_style.h"

#include <algorithm>
#include <cmath>

#include "velda_lib/number_text.h"

namespace velda {

template <class Visit>
void CGXStyle::ForEachField(Visit visit) {
    visit(Attribute::FontSize, &CGXStyle::fontTenths_);
    visit(Attribute::TextColor, &CGXStyle::textColor_);
    visit(Attribute::Interior, &CGXStyle::interior_);
    visit(Attribute::HorizontalAlignment, &CGXStyle::horizontal_);
    visit(Attribute::VerticalAlignment, &CGXStyle::vertical_);
    visit(Attribute::Places, &CGXStyle::places_);
    visit(Attribute::Control, &CGXStyle::control_);
    visit(Attribute::MaxLength, &CGXStyle::maxLength_);
    visit(Attribute::MergedSpan, &CGXStyle::spanRows_);
    visit(Attribute::MergedSpan, &CGXStyle::spanCols_);
}

template <class Visit>
void CGXStyle::ForEachTextBeside(const CGXStyle& other, Visit visit) {
    visit(choiceLines_, other.choiceLines_);
    for (std::size_t i = 0; i < texts_.size(); ++i) visit(texts_[i], other.texts_[i]);
}

CGXStyle& CGXStyle::SetFontSize(double points) {
    const double size = points >= 1.0 ? std::min(points, 1000.0) : 1.0;  // not a number becomes 1, too
    return Set(Attribute::FontSize, &CGXStyle::fontTenths_, static_cast<std::uint16_t>(std::lround(size * 10.0)));
}

CGXStyle& CGXStyle::SetPlaces(int places) {
    return Set(Attribute::Places, &CGXStyle::places_, static_cast<std::uint8_t>(std::clamp(places, 0, kMaxPlaces)));
}

CGXStyle& CGXStyle::SetMergedSpan(MergedSpan span) {
    Set(Attribute::MergedSpan, &CGXStyle::spanRows_, std::max<std::uint16_t>(span.rows, 1));
    return Set(Attribute::MergedSpan, &CGXStyle::spanCols_, std::max<std::uint16_t>(span.cols, 1));
}

CGXStyle& CGXStyle::SetFlag(Attribute attribute, bool on) {
    const unsigned others = flags_ & ~unsigned{Bit(attribute)};
    return Set(attribute, &CGXStyle::flags_, static_cast<std::uint8_t>(on ? others | Bit(attribute) : others));
}

CGXStyle& CGXStyle::SetText(Text text, std::string_view value) {
    texts_[Slot(text)] = InternedText(value);
    return *this;
}

const std::string& CGXStyle::ColumnOf(Text text) const {
    static const std::string& first = *new std::string("0");
    return Includes(text) ? TextOf(text) : first;
}

ChoiceList CGXStyle::GetChoices() const {
    const bool isTabbed = GetControl() == ControlKind::TabbedDropDownList;
    const auto column = [&](Text text) { return isTabbed ? std::max(wtol(ColumnOf(text)), 0) : 0; };
    return choiceLines_.Get().ListBy(column(Text::KeyColumn), column(Text::TextColumn));
}

CGXStyle& CGXStyle::OverrideWith(const CGXStyle& other) {
    flags_ = static_cast<std::uint8_t>((flags_ & ~unsigned{other.set_}) | other.flags_);
    set_ = static_cast<std::uint16_t>(set_ | other.set_);
    ForEachField([&](Attribute attribute, auto member) {
        if (other.Includes(attribute)) this->*member = other.*member;
    });
    ForEachTextBeside(other, [](auto& own, const auto& others) {
        if (others.IsSet()) own = others;
    });
    return *this;
}

CGXStyle& CGXStyle::FillFrom(const CGXStyle& base) {
    CGXStyle filled = base;
    filled.OverrideWith(*this);
    return *this = std::move(filled);
}

CGXStyle& CGXStyle::RemoveAttributesOf(const CGXStyle& other) {
    const unsigned kept = ~unsigned{other.set_};
    ForEachField([&](Attribute attribute, auto member) {
        if ((kept & Bit(attribute)) == 0) this->*member = {};
    });
    flags_ = static_cast<std::uint8_t>(flags_ & kept);
    set_ = static_cast<std::uint16_t>(set_ & kept);
    ForEachTextBeside(other, [](auto& own, const auto& others) {
        if (others.IsSet()) own = {};
    });
    return *this;
}

std::size_t CGXStyle::Hash() const {
    std::uint64_t hash = set_ | std::uint64_t{flags_} << 16;
    const auto mix = [&hash](std::uint64_t value) {
        hash = (hash ^ value) * 0x9E3779B97F4A7C15u;
        hash ^= hash >> 32;
    };
    ForEachField([&](Attribute, auto member) { mix(static_cast<std::uint64_t>(this->*member)); });
    mix(choiceLines_.Id());
    for (const InternedText& text : texts_) mix(text.Id());
    return static_cast<std::size_t>(hash);
}

}  // namespace velda
