#pragma once

#include <functional>
#include <limits>
#include <optional>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "zt_cmd/named_numbers.h"
#include "zt_cmd/property_dialog.h"
#include "zt_cmd/record_choice.h"
#include "zt_db/units/unit_codes.h"

namespace zt {

/// What a number may be.
struct FieldLimits {
    double least = -std::numeric_limits<double>::infinity();
    double most = std::numeric_limits<double>::infinity();
    bool isAboveLeast = false;  ///< the least value itself does not fit
    bool isWhole = false;

    bool Holds(double number) const;
    /// The reason for a number that does not fit.
    std::string Reason(const std::string& label, const std::string& text) const;
};
inline constexpr FieldLimits kAboveZero{.least = 0.0, .isAboveLeast = true};
inline constexpr FieldLimits kFromZero{.least = 0.0};
inline constexpr FieldLimits kFromZeroToOne{.least = 0.0, .most = 1.0};

/// A field of a dialog on records of class R, as data.
template <class R>
struct FieldDeclaration {
    std::string_view labelKey;
    PropertyField::Kind kind = PropertyField::Kind::Text;
    int unit = Unit::None;
    std::function<std::string(const R&)> show{};
    std::function<void(R&, const std::string& text)> read{};
    std::function<std::vector<std::string>(const R&)> choices{};  ///< of a choice or a suggestion
    std::function<bool(const R&)> isEnabled{};                    ///< null for always
    std::optional<FieldLimits> limits{};                          ///< of a number
    bool isNeeded = false;                                        ///< a choice may not stay empty
};

/// A list of a record of class R, as data. The fields of a row are asked for their labels also where it does not exist.
template <class R>
struct ListDeclaration {
    std::string_view titleKey;  ///< empty where a record has only one list
    bool isTable = false;       ///< rows of numbers only, thousands of them
    std::function<std::size_t(const R&)> count{};
    std::function<std::vector<FieldDeclaration<R>>(std::size_t row)> cells{};
    std::function<void(R&)> append{};
    std::function<void(R&, std::size_t row)> erase{};
};

/// The field of a text of a record.
template <class R, std::string R::*Member>
FieldDeclaration<R> TextField(std::string_view labelKey) {
    return {labelKey, PropertyField::Kind::Text, Unit::None, [](const R& record) { return record.*Member; },
            [](R& record, const std::string& text) { record.*Member = text; }};
}

/// The field of a number; `at` gives its place in a record.
template <class R, class At>
FieldDeclaration<R> NumberAt(std::string_view labelKey, int unit, At at, std::optional<FieldLimits> limits = {}) {
    using Number = std::remove_cvref_t<decltype(at(std::declval<R&>()))>;
    FieldDeclaration<R> field{
        labelKey, PropertyField::Kind::Number, unit,
        [at](const R& record) { return velda::FormatDouble(static_cast<double>(at(record))); },
        [at](R& record, const std::string& text) { at(record) = static_cast<Number>(velda::wtof(text)); }};
    field.limits = limits;
    return field;
}

/// The field of a number of a record.
template <class R, auto Member>
FieldDeclaration<R> NumberField(std::string_view labelKey, int unit, std::optional<FieldLimits> limits = {}) {
    return NumberAt<R>(
        labelKey, unit, [](auto& record) -> auto& { return record.*Member; }, limits);
}

/// The field of a number that stands for a word; `at` gives its place in a record. A number without a word is shown as
/// it is and kept.
template <class R, class At>
FieldDeclaration<R> NamedAt(std::string_view labelKey, NamedNumbers known, At at) {
    return {labelKey,
            PropertyField::Kind::Choice,
            Unit::None,
            [known, at](const R& record) { return TextOf(known, at(record)); },
            [known, at](R& record, const std::string& text) { at(record) = NumberOf(known, text, at(record)); },
            [known, at](const R& record) { return TextsWith(known, at(record)); }};
}

template <class R, int R::*Member>
FieldDeclaration<R> NamedField(std::string_view labelKey, NamedNumbers known) {
    return NamedAt<R>(
        labelKey, known, [](auto& record) -> auto& { return record.*Member; });
}

/// The field of a key of a record of another class, chosen by name; `at` gives its place in a record.
template <class R, class At>
FieldDeclaration<R> RecordAt(std::string_view labelKey, const RecordChoice& choice, At at) {
    FieldDeclaration<R> field{
        labelKey,
        PropertyField::Kind::Choice,
        Unit::None,
        [choice, at](const R& record) { return choice.TextOf(at(record)); },
        [choice, at](R& record, const std::string& text) { at(record) = choice.KeyOf(text, at(record)); },
        [choice](const R&) { return choice.Texts(); }};
    field.isNeeded = true;
    return field;
}

/// A list that is a vector; `at` gives it in a record, `make` a new element for a record.
template <class R, class At, class Make>
ListDeclaration<R> ListAt(std::string_view titleKey, At at, Make make,
                          std::function<std::vector<FieldDeclaration<R>>(std::size_t row)> cells) {
    return {
        titleKey,
        false,
        [at](const R& record) { return at(record).size(); },
        std::move(cells),
        [at, make](R& record) { at(record).push_back(make(record)); },
        [at](R& record, std::size_t row) { at(record).erase(at(record).begin() + static_cast<std::ptrdiff_t>(row)); }};
}

}  // namespace zt
