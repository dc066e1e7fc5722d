#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "velda_util/list/choice_list.h"
#include "velda_util/style/choice_lines.h"
#include "velda_util/style/interned.h"

namespace velda {

enum class HorizontalAlignment : std::uint8_t { Left = 0, Center = 1, Right = 2 };
enum class VerticalAlignment : std::uint8_t { Top = 0, Center = 4, Bottom = 8 };
enum class ValueType : std::uint8_t { String = 0, Numeric = 1 };
enum class NumberFormat : std::uint8_t { General = 0, Fixed = 2 };

/// What a cell is to the user.
enum class ControlKind : std::uint8_t {
    Edit,
    StaticText,
    Header,
    CheckBox,
    /// A check box with a caption, or with the two texts of its states as the choice list.
    CaptionCheckBox,
    /// A choice list of lines with tabs: the value is the key, another of its columns is drawn.
    TabbedDropDownList,
    /// A plain choice list of which one must be chosen.
    DropDownList,
    /// A plain choice list beside free text.
    ComboBox,
    CheckListComboBox,
    SpinEdit,
    /// The choice list is the caption.
    PushButton,
    /// A button that shows a picture by its name.
    PictureButton,
};

/// Rows and columns of a merged cell that begins where the style stands.
struct MergedSpan {
    std::uint16_t rows = 1;
    std::uint16_t cols = 1;
    friend bool operator==(const MergedSpan&, const MergedSpan&) = default;
};

/// The look and behaviour of a cell. Each attribute is set or not set; what is not set is left to the styles beneath.
/// A getter answers with a default for what is not set. Colours are blue-green-red numbers: 255 is red.
class CGXStyle {
public:
    static constexpr int kMaxPlaces = 30;

    CGXStyle& SetBold(bool bold) { return SetFlag(Attribute::Bold, bold); }
    CGXStyle& SetWrapText(bool wrap) { return SetFlag(Attribute::WrapText, wrap); }
    /// A cell that is not enabled cannot be entered.
    CGXStyle& SetEnabled(bool enabled) { return SetFlag(Attribute::Enabled, enabled); }
    CGXStyle& SetReadOnly(bool readOnly) { return SetFlag(Attribute::ReadOnly, readOnly); }
    /// Whether the Enter key makes a new line in the cell.
    CGXStyle& SetAllowEnter(bool allow) { return SetFlag(Attribute::AllowEnter, allow); }
    CGXStyle& SetValueType(ValueType type) { return SetFlag(Attribute::ValueType, type == ValueType::Numeric); }
    CGXStyle& SetFormat(NumberFormat format) { return SetFlag(Attribute::Format, format == NumberFormat::Fixed); }
    /// In points, kept to a tenth; taken into the range 1 to 1000.
    CGXStyle& SetFontSize(double points);
    CGXStyle& SetTextColor(std::uint32_t color) { return Set(Attribute::TextColor, &CGXStyle::textColor_, color); }
    CGXStyle& SetInterior(std::uint32_t color) { return Set(Attribute::Interior, &CGXStyle::interior_, color); }
    CGXStyle& SetHorizontalAlignment(HorizontalAlignment alignment) {
        return Set(Attribute::HorizontalAlignment, &CGXStyle::horizontal_, alignment);
    }
    CGXStyle& SetVerticalAlignment(VerticalAlignment alignment) {
        return Set(Attribute::VerticalAlignment, &CGXStyle::vertical_, alignment);
    }
    /// Decimal places of the fixed format; taken into the range 0 to kMaxPlaces.
    CGXStyle& SetPlaces(int places);
    CGXStyle& SetControl(ControlKind control) { return Set(Attribute::Control, &CGXStyle::control_, control); }
    /// Characters that can be typed; 0 for no limit.
    CGXStyle& SetMaxLength(std::uint16_t length) { return Set(Attribute::MaxLength, &CGXStyle::maxLength_, length); }
    /// A count of 0 is taken as 1.
    CGXStyle& SetMergedSpan(MergedSpan span);

    CGXStyle& SetChoiceList(std::string_view lines) {
        choiceLines_ = InternedChoiceLines(lines);
        return *this;
    }
    /// Attributes of a tabbed list: the column that holds the key, the one that is shown, and two more for the control.
    CGXStyle& SetKeyColumn(std::string_view column) { return SetText(Text::KeyColumn, column); }
    CGXStyle& SetTextColumn(std::string_view column) { return SetText(Text::TextColumn, column); }
    CGXStyle& SetThirdAttribute(std::string_view text) { return SetText(Text::ThirdAttribute, text); }
    CGXStyle& SetFourthAttribute(std::string_view text) { return SetText(Text::FourthAttribute, text); }
    /// Bounds of a spin edit.
    CGXStyle& SetMinimum(std::string_view bound) { return SetText(Text::Minimum, bound); }
    CGXStyle& SetMaximum(std::string_view bound) { return SetText(Text::Maximum, bound); }
    /// The text of a cell that has none of its own.
    CGXStyle& SetValue(std::string_view value) { return SetText(Text::Value, value); }
    CGXStyle& SetToolTip(std::string_view text) { return SetText(Text::ToolTip, text); }
    /// Name of the picture of a picture button.
    CGXStyle& SetPicture(std::string_view name) { return SetText(Text::Picture, name); }

    bool GetBold() const { return Flag(Attribute::Bold, false); }
    bool GetWrapText() const { return Flag(Attribute::WrapText, false); }
    bool GetEnabled() const { return Flag(Attribute::Enabled, true); }
    bool GetReadOnly() const { return Flag(Attribute::ReadOnly, false); }
    bool GetAllowEnter() const { return Flag(Attribute::AllowEnter, true); }
    ValueType GetValueType() const {
        return Flag(Attribute::ValueType, false) ? ValueType::Numeric : ValueType::String;
    }
    NumberFormat GetFormat() const {
        return Flag(Attribute::Format, false) ? NumberFormat::Fixed : NumberFormat::General;
    }
    double GetFontSize() const { return IncludeFontSize() ? fontTenths_ / 10.0 : 10.0; }
    std::uint32_t GetTextColor() const { return textColor_; }
    std::uint32_t GetInterior() const { return IncludeInterior() ? interior_ : 0xFFFFFFu; }
    HorizontalAlignment GetHorizontalAlignment() const { return horizontal_; }
    VerticalAlignment GetVerticalAlignment() const { return vertical_; }
    int GetPlaces() const { return places_; }
    ControlKind GetControl() const { return control_; }
    /// A control whose value is "1" or "0".
    bool IsCheckBox() const { return control_ == ControlKind::CheckBox || control_ == ControlKind::CaptionCheckBox; }
    /// A list that takes no text but its own.
    bool IsClosedList() const {
        return control_ == ControlKind::TabbedDropDownList || control_ == ControlKind::DropDownList;
    }
    /// A control that offers a list.
    bool HasList() const {
        return IsClosedList() || control_ == ControlKind::ComboBox || control_ == ControlKind::CheckListComboBox;
    }
    std::uint16_t GetMaxLength() const { return maxLength_; }
    MergedSpan GetMergedSpan() const { return IncludeMergedSpan() ? MergedSpan{spanRows_, spanCols_} : MergedSpan{}; }
    const std::string& GetChoiceList() const { return choiceLines_.Get().Text(); }
    /// The choice list as the control takes it: by the key column and the text column for a tabbed list, a list of bare
    /// names for any other control. Styles with equal lines and columns share one list, which is made once; to be asked
    /// of the style that a cell is drawn with, since each attribute may come from another style.
    ChoiceList GetChoices() const;
    /// "0" when not set, like the shown column: a list of bare names.
    const std::string& GetKeyColumn() const { return ColumnOf(Text::KeyColumn); }
    const std::string& GetTextColumn() const { return ColumnOf(Text::TextColumn); }
    const std::string& GetThirdAttribute() const { return TextOf(Text::ThirdAttribute); }
    const std::string& GetFourthAttribute() const { return TextOf(Text::FourthAttribute); }
    const std::string& GetMinimum() const { return TextOf(Text::Minimum); }
    const std::string& GetMaximum() const { return TextOf(Text::Maximum); }
    const std::string& GetValue() const { return TextOf(Text::Value); }
    const std::string& GetToolTip() const { return TextOf(Text::ToolTip); }
    const std::string& GetPicture() const { return TextOf(Text::Picture); }

    bool IncludeBold() const { return Includes(Attribute::Bold); }
    bool IncludeWrapText() const { return Includes(Attribute::WrapText); }
    bool IncludeEnabled() const { return Includes(Attribute::Enabled); }
    bool IncludeReadOnly() const { return Includes(Attribute::ReadOnly); }
    bool IncludeAllowEnter() const { return Includes(Attribute::AllowEnter); }
    bool IncludeValueType() const { return Includes(Attribute::ValueType); }
    bool IncludeFormat() const { return Includes(Attribute::Format); }
    bool IncludeFontSize() const { return Includes(Attribute::FontSize); }
    bool IncludeTextColor() const { return Includes(Attribute::TextColor); }
    bool IncludeInterior() const { return Includes(Attribute::Interior); }
    bool IncludeHorizontalAlignment() const { return Includes(Attribute::HorizontalAlignment); }
    bool IncludeVerticalAlignment() const { return Includes(Attribute::VerticalAlignment); }
    bool IncludePlaces() const { return Includes(Attribute::Places); }
    bool IncludeControl() const { return Includes(Attribute::Control); }
    bool IncludeMaxLength() const { return Includes(Attribute::MaxLength); }
    bool IncludeMergedSpan() const { return Includes(Attribute::MergedSpan); }
    bool IncludeChoiceList() const { return choiceLines_.IsSet(); }
    bool IncludeKeyColumn() const { return Includes(Text::KeyColumn); }
    bool IncludeTextColumn() const { return Includes(Text::TextColumn); }
    bool IncludeThirdAttribute() const { return Includes(Text::ThirdAttribute); }
    bool IncludeFourthAttribute() const { return Includes(Text::FourthAttribute); }
    bool IncludeMinimum() const { return Includes(Text::Minimum); }
    bool IncludeMaximum() const { return Includes(Text::Maximum); }
    bool IncludeValue() const { return Includes(Text::Value); }
    bool IncludeToolTip() const { return Includes(Text::ToolTip); }
    bool IncludePicture() const { return Includes(Text::Picture); }

    /// Nothing is set.
    bool IsEmpty() const { return *this == CGXStyle{}; }
    /// What `other` sets wins.
    CGXStyle& OverrideWith(const CGXStyle& other);
    /// What is not set is taken from `base`.
    CGXStyle& FillFrom(const CGXStyle& base);
    /// What `other` sets, to whatever value, is no longer set.
    CGXStyle& RemoveAttributesOf(const CGXStyle& other);

    std::size_t Hash() const;
    friend bool operator==(const CGXStyle&, const CGXStyle&) = default;

private:
    /// The flags come first: their bits in `flags_` are those in `set_`.
    enum class Attribute : std::uint8_t {
        Bold,
        WrapText,
        Enabled,
        ReadOnly,
        AllowEnter,
        ValueType,
        Format,
        FontSize,
        TextColor,
        Interior,
        HorizontalAlignment,
        VerticalAlignment,
        Places,
        Control,
        MaxLength,
        MergedSpan,
    };
    enum class Text : std::uint8_t {
        KeyColumn,
        TextColumn,
        ThirdAttribute,
        FourthAttribute,
        Minimum,
        Maximum,
        Value,
        ToolTip,
        Picture,
        Count,
    };

    static constexpr std::uint16_t Bit(Attribute attribute) {
        return static_cast<std::uint16_t>(1u << static_cast<unsigned>(attribute));
    }
    static constexpr std::size_t Slot(Text text) { return static_cast<std::size_t>(text); }
    /// Calls `visit` with the attribute and the member of each field that is no flag and no text.
    template <class Visit>
    static void ForEachField(Visit visit);
    /// Calls `visit` with each text of this style and that of `other`.
    template <class Visit>
    void ForEachTextBeside(const CGXStyle& other, Visit visit);

    bool Includes(Attribute attribute) const { return (set_ & Bit(attribute)) != 0; }
    bool Includes(Text text) const { return texts_[Slot(text)].IsSet(); }
    bool Flag(Attribute attribute, bool unset) const {
        return Includes(attribute) ? (flags_ & Bit(attribute)) != 0 : unset;
    }
    const std::string& TextOf(Text text) const { return texts_[Slot(text)].Get(); }
    const std::string& ColumnOf(Text text) const;
    CGXStyle& SetFlag(Attribute attribute, bool on);
    CGXStyle& SetText(Text text, std::string_view value);
    template <class T>
    CGXStyle& Set(Attribute attribute, T CGXStyle::*member, T value) {
        this->*member = value;
        set_ = static_cast<std::uint16_t>(set_ | Bit(attribute));
        return *this;
    }

    // What is not set stands at zero, so that equal styles have equal fields. Texts need no bit: an empty text is set
    // too.
    std::uint16_t set_ = 0;
    std::uint8_t flags_ = 0;
    HorizontalAlignment horizontal_ = HorizontalAlignment::Left;
    VerticalAlignment vertical_ = VerticalAlignment::Top;
    std::uint8_t places_ = 0;
    ControlKind control_ = ControlKind::Edit;
    std::uint16_t fontTenths_ = 0;
    std::uint16_t maxLength_ = 0;
    std::uint16_t spanRows_ = 0;
    std::uint16_t spanCols_ = 0;
    std::uint32_t textColor_ = 0;
    std::uint32_t interior_ = 0;
    InternedChoiceLines choiceLines_;
    std::array<InternedText, static_cast<std::size_t>(Text::Count)> texts_;
};

static_assert(sizeof(CGXStyle) <= 64, "tables hold many styles");

using InternedStyle = Interned<CGXStyle>;

}  // namespace velda
