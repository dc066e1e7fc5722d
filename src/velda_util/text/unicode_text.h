#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace velda {

/// Whether a text is valid UTF-8 without a NUL.
bool IsCleanUtf8(std::string_view text);
/// The text with U+FFFD in place of each NUL and of each byte that belongs to no valid UTF-8 sequence.
std::string CleanUtf8(std::string_view text);

/// Bytes that the first character of a text takes: 1 where no valid sequence begins, 0 for an empty text.
std::size_t FirstCharacterLength(std::string_view text);

/// The small letter of a Latin, Greek or Cyrillic capital one; any other character as it stands. Letters whose small
/// form takes another number of bytes are left alone.
char32_t FoldCase(char32_t character);
/// The text with every character folded. It has the length of the text, and each character stands at its old place.
std::string FoldCase(std::string_view text);
/// The same into a text that is reused from call to call.
void FoldCaseInto(std::string_view text, std::string& folded);

}  // namespace velda
