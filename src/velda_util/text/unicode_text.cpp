#include "velda_util/text/unicode_text.h"

#include <algorithm>
#include <array>

namespace velda {
namespace {

constexpr std::string_view kReplacement = "\uFFFD";

/// A character and the bytes that it takes; no bytes where no valid sequence begins.
struct Sequence {
    char32_t character = 0;
    std::size_t length = 0;
};

bool IsAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

/// Number of bytes that a first byte announces; 0 for a byte that begins nothing.
std::size_t AnnouncedLength(unsigned char first) {
    if (first < 0x80) return 1;
    if (first >= 0xC2 && first <= 0xDF) return 2;
    if (first >= 0xE0 && first <= 0xEF) return 3;
    return first >= 0xF0 && first <= 0xF4 ? 4 : 0;
}

/// Overlong forms, surrogates and what lies beyond the last character are no sequences.
bool IsAllowed(char32_t character, std::size_t length) {
    if (length == 3) return character >= 0x800 && (character < 0xD800 || character > 0xDFFF);
    if (length == 4) return character >= 0x10000 && character <= 0x10FFFF;
    return true;
}

Sequence SequenceAt(std::string_view text, std::size_t at) {
    const auto first = static_cast<unsigned char>(text[at]);
    const std::size_t length = AnnouncedLength(first);
    if (length == 0 || at + length > text.size()) return {};
    if (length == 1) return {first, 1};
    char32_t character = first & (0xFFu >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(text[at + i]);
        if ((next & 0xC0) != 0x80) return {};
        character = (character << 6) | (next & 0x3F);
    }
    return IsAllowed(character, length) ? Sequence{character, length} : Sequence{};
}

/// Writes a character over `length` bytes.
void PutCharacter(char32_t character, std::size_t length, char* bytes) {
    for (std::size_t i = length - 1; i > 0; --i, character >>= 6) {
        bytes[i] = static_cast<char>(0x80 | (character & 0x3F));
    }
    bytes[0] = static_cast<char>((0xF00u >> length & 0xFF) | character);
}

/// Capital letters from `first` to `last`, each `step`-th one, and how far behind them their small letters stand.
struct CapitalRange {
    char32_t first;
    char32_t last;
    int distance;
    char32_t step;
};
constexpr std::array kCapitals = std::to_array<CapitalRange>({
    {0x41, 0x5A, 32, 1},   // Latin
    {0xB5, 0xB5, 775, 1},  // the micro sign is a small Greek letter
    {0xC0, 0xD6, 32, 1},   // Latin with marks
    {0xD8, 0xDE, 32, 1},    {0x100, 0x12E, 1, 2},    {0x132, 0x136, 1, 2},   {0x139, 0x147, 1, 2},
    {0x14A, 0x176, 1, 2},   {0x178, 0x178, -121, 1}, {0x179, 0x17D, 1, 2},   {0x386, 0x386, 38, 1},  // Greek
    {0x388, 0x38A, 37, 1},  {0x38C, 0x38C, 64, 1},   {0x38E, 0x38F, 63, 1},  {0x391, 0x3A1, 32, 1},
    {0x3A3, 0x3AB, 32, 1},  {0x3C2, 0x3C2, 1, 1},  // the sigma at the end of a word
    {0x400, 0x40F, 80, 1},                         // Cyrillic
    {0x410, 0x42F, 32, 1},  {0x460, 0x480, 1, 2},    {0x48A, 0x4BE, 1, 2},   {0x4C0, 0x4C0, 15, 1},
    {0x4C1, 0x4CD, 1, 2},   {0x4D0, 0x52E, 1, 2},    {0x1E00, 0x1E94, 1, 2},  // Latin with several marks
    {0x1EA0, 0x1EFE, 1, 2}, {0xFF21, 0xFF3A, 32, 1},                          // Latin in the width of Korean letters
});

}  // namespace

bool IsCleanUtf8(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const Sequence sequence = SequenceAt(text, at);
        if (sequence.length == 0 || sequence.character == 0) return false;
        at += sequence.length;
    }
    return true;
}

std::string CleanUtf8(std::string_view text) {
    std::string clean;
    clean.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const Sequence sequence = SequenceAt(text, at);
        const bool good = sequence.length > 0 && sequence.character != 0;
        clean += good ? text.substr(at, sequence.length) : kReplacement;
        at += std::max<std::size_t>(sequence.length, 1);
    }
    return clean;
}

std::size_t FirstCharacterLength(std::string_view text) {
    return text.empty() ? 0 : std::max<std::size_t>(SequenceAt(text, 0).length, 1);
}

char32_t FoldCase(char32_t character) {
    const auto range = std::lower_bound(kCapitals.begin(), kCapitals.end(), character,
                                        [](const CapitalRange& r, char32_t c) { return r.last < c; });
    if (range == kCapitals.end() || character < range->first) return character;
    if ((character - range->first) % range->step != 0) return character;
    return static_cast<char32_t>(static_cast<int>(character) + range->distance);
}

std::string FoldCase(std::string_view text) {
    std::string folded;
    FoldCaseInto(text, folded);
    return folded;
}

void FoldCaseInto(std::string_view text, std::string& folded) {
    folded.assign(text);
    for (std::size_t at = 0; at < text.size();) {
        if (IsAscii(text[at])) {
            if (text[at] >= 'A' && text[at] <= 'Z') folded[at] = static_cast<char>(text[at] + ('a' - 'A'));
            ++at;
            continue;
        }
        const Sequence sequence = SequenceAt(text, at);
        const char32_t small = FoldCase(sequence.character);
        if (small != sequence.character) PutCharacter(small, sequence.length, &folded[at]);
        at += std::max<std::size_t>(sequence.length, 1);
    }
}

}  // namespace velda
