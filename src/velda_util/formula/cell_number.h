#pragma once

#include <string>
#include <string_view>

namespace velda {

/// The kinds of number that a column asks for.
enum class CellNumberKind { Long, Double };

/// Strict readers of a cell text: the whole text, blanks around it aside, is one number or a formula with such a value.
/// False leaves `value` alone. A long is a whole number within 32 bits, written as digits with a sign ("3.0" is none,
/// but a formula with the value 3 is one); a double is any finite decimal number.
bool IsValidLongNumber(std::string_view text, long long& value);
bool IsValidDoubleNumber(std::string_view text, double& value);

/// What is wrong with a text that is no number of a kind, in words of the current language; empty for a text that is
/// one.
std::string InvalidNumberReason(std::string_view text, CellNumberKind kind);

}  // namespace velda
