#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace velda {

/// The text of a double in "%.15g" form, independent of the locale.
std::string FormatDouble(double value);
/// The number that the "%.15g" text of `value` reads as: what a user sees and types. Equal for numbers that look equal.
double RoundToShown(double value);
/// The shortest text that reads back as exactly `value`.
std::string FormatDoubleExact(double value);
/// The text of an integer in "%d" form.
std::string FormatLong(std::int64_t value);
/// The text of an integer in "%0<width>d" form: padded with zeros, a minus sign counting towards the width.
std::string FormatZeroPadded(std::int64_t value, int width);

/// What a leading integer of a text reads as.
struct LongPrefix {
    std::int32_t value = 0;
    /// The number lay outside 32 bits and was set to the nearest end of the range.
    bool saturated = false;
    /// Characters read, leading blanks and sign included; 0 when the text does not begin with a number.
    std::size_t length = 0;
};

/// Reads the longest leading integer: blanks, an optional sign, digits.
LongPrefix ReadLongPrefix(std::string_view text);
/// Value of the longest leading integer, 0 when there is none; saturates at the ends of 32 bits.
std::int32_t wtol(std::string_view text);
/// Value of the longest leading decimal number (blanks, sign, digits, point, exponent), 0 when there is none.
/// A number too large for a double gives an infinity of its sign, a number too small gives 0.
/// Words such as "inf" and hexadecimal numbers are no numbers.
double wtof(std::string_view text);

/// Strict readers: the whole text, blanks around it aside, must be one number. False leaves `value` alone.
bool ReadWholeLong(std::string_view text, std::int64_t& value);
bool ReadWholeDouble(std::string_view text, double& value);

/// Text without blanks at both ends.
std::string_view TrimBlanks(std::string_view text);

}  // namespace velda
