#pragma once

#include <string>
#include <string_view>

#include "velda_lib/number_text.h"
#include "zt_db/core/field.h"

namespace zt {

/// Texts of field values in scripts and, for lists, in files. A scalar stands as it is; a list is a JSON array, a list
/// of structures an array of arrays in field order: [[1,3,1.2],[1,4,1.6]]. Real numbers are written so that they read
/// back exactly. Every reader returns false, and may leave a part of the value changed, when the text is no such value.

void AppendQuoted(std::string& text, std::string_view value);

/// Reads JSON tokens off the front of a text.
class ListReader {
public:
    explicit ListReader(std::string_view text) : rest_(text) {}

    /// Skips blanks and takes one character; false when another one stands there.
    bool Take(char wanted);
    bool TakeNumber(std::string_view& number);
    bool TakeString(std::string& value);
    bool AtEnd();

private:
    void SkipBlanks();
    std::string_view rest_;
};

bool ScalarFromText(std::string_view text, int& value);
bool ScalarFromText(std::string_view text, std::uint32_t& value);
bool ScalarFromText(std::string_view text, double& value);
inline bool ScalarFromText(std::string_view text, std::string& value) {
    value = text;
    return true;
}

inline std::string ScalarText(int value) { return velda::FormatLong(value); }
inline std::string ScalarText(std::uint32_t value) { return velda::FormatLong(value); }
inline std::string ScalarText(double value) { return velda::FormatDoubleExact(value); }
inline std::string ScalarText(const std::string& value) { return value; }

template <class T>
void AppendListText(std::string& text, const T& value) {
    if constexpr (std::is_same_v<T, std::string>) {
        AppendQuoted(text, value);
    } else if constexpr (ScalarValue<T>) {
        text += ScalarText(value);
    } else if constexpr (HasFields<T>) {
        text += '[';
        VisitFields(value, [&](auto tag, const T& owner) {
            if (text.back() != '[') text += ',';
            AppendListText(text, owner.*(decltype(tag)::value.member));
        });
        text += ']';
    } else {
        text += '[';
        bool first = true;
        for (const auto& element : value) {
            if (!first) text += ',';
            first = false;
            AppendListText(text, element);
        }
        text += ']';
    }
}

template <class T>
bool ReadListValue(ListReader& reader, T& value) {
    if constexpr (std::is_same_v<T, std::string>) {
        return reader.TakeString(value);
    } else if constexpr (ScalarValue<T>) {
        std::string_view number;
        return reader.TakeNumber(number) && ScalarFromText(number, value);
    } else if constexpr (HasFields<T>) {
        bool good = reader.Take('[');
        bool first = true;
        VisitFields(value, [&](auto tag, T& owner) {
            good = good && (first || reader.Take(',')) && ReadListValue(reader, owner.*(decltype(tag)::value.member));
            first = false;
        });
        return good && reader.Take(']');
    } else {
        if (!reader.Take('[')) return false;
        std::size_t count = 0;
        if constexpr (IsStdVector<T>::value) value.clear();
        while (!reader.Take(']')) {
            if (count > 0 && !reader.Take(',')) return false;
            if constexpr (IsStdVector<T>::value) {
                value.emplace_back();
            } else if (count >= value.size()) {
                return false;
            }
            if (!ReadListValue(reader, value[count])) return false;
            ++count;
        }
        return count == value.size();
    }
}

/// Text of a field value.
template <class T>
std::string ValueText(const T& value) {
    if constexpr (ScalarValue<T>) {
        return ScalarText(value);
    } else {
        std::string text;
        AppendListText(text, value);
        return text;
    }
}

/// Reads a field value from its text.
template <class T>
bool ValueFromText(std::string_view text, T& value) {
    if constexpr (ScalarValue<T>) {
        return ScalarFromText(text, value);
    } else {
        ListReader reader(text);
        return ReadListValue(reader, value) && reader.AtEnd();
    }
}

}  // namespace zt
