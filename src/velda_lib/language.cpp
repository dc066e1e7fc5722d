#include "velda_lib/language.h"

#include <algorithm>
#include <array>
#include <cstring>

extern "C" {
extern const unsigned char velda_language_en[];
extern const unsigned char velda_language_en_end[];
extern const unsigned char velda_language_ko[];
extern const unsigned char velda_language_ko_end[];
}

namespace velda {
namespace {

struct LanguageEntry {
    Language language;
    std::string_view code;
};
constexpr std::array<LanguageEntry, 2> kLanguages{{{Language::English, "en"}, {Language::Korean, "ko"}}};

Language g_current = Language::English;

LanguageCatalog BuiltIn(const unsigned char* begin, const unsigned char* end) {
    return {begin, static_cast<std::size_t>(end - begin)};
}

// Offsets of the catalogue header, in bytes.
constexpr std::size_t kCountOffset = 8;
constexpr std::uint32_t kKeyTable = 12;
constexpr std::uint32_t kTextTable = 16;
/// A place of a table: length and start of a text.
constexpr std::size_t kPlaceSize = 8;

}  // namespace

Language CurrentLanguage() { return g_current; }
void SetCurrentLanguage(Language language) { g_current = language; }

std::optional<Language> LanguageOfCode(std::string_view code) {
    for (const LanguageEntry& entry : kLanguages) {
        if (entry.code == code) return entry.language;
    }
    return std::nullopt;
}

std::string_view CodeOfLanguage(Language language) {
    for (const LanguageEntry& entry : kLanguages) {
        if (entry.language == language) return entry.code;
    }
    return {};
}

std::uint32_t LanguageCatalog::Word(std::size_t offset) const {
    std::uint32_t word = 0;
    if (offset + sizeof word <= size_) std::memcpy(&word, bytes_ + offset, sizeof word);
    return word;
}

std::uint32_t LanguageCatalog::Count() const {
    // A damaged count must not make a walk through the entries endless: each entry takes two table places.
    return static_cast<std::uint32_t>(std::min<std::size_t>(Word(kCountOffset), size_ / (2 * kPlaceSize)));
}

std::string_view LanguageCatalog::Entry(std::uint32_t tableWord, std::uint32_t index) const {
    const std::size_t place = Word(tableWord) + std::size_t{index} * kPlaceSize;
    const std::size_t length = Word(place);
    const std::size_t start = Word(place + 4);
    if (start + length > size_) return {};
    return {reinterpret_cast<const char*>(bytes_ + start), length};
}

std::optional<std::string_view> LanguageCatalog::Find(std::string_view key) const {
    if (key.empty()) return std::nullopt;  // the empty key holds the catalogue's own header
    std::uint32_t low = 0;
    std::uint32_t high = Count();
    while (low < high) {
        const std::uint32_t middle = low + (high - low) / 2;
        const int order = Entry(kKeyTable, middle).compare(key);
        if (order == 0) return Entry(kTextTable, middle);
        (order < 0 ? low : high) = order < 0 ? middle + 1 : middle;
    }
    return std::nullopt;
}

std::vector<std::string_view> LanguageCatalog::Keys() const {
    std::vector<std::string_view> keys;
    for (std::uint32_t i = 0; i < Count(); ++i) {
        const std::string_view key = Entry(kKeyTable, i);
        if (!key.empty()) keys.push_back(key);
    }
    return keys;
}

const LanguageCatalog& CatalogOf(Language language) {
    static const LanguageCatalog english = BuiltIn(velda_language_en, velda_language_en_end);
    static const LanguageCatalog korean = BuiltIn(velda_language_ko, velda_language_ko_end);
    return language == Language::Korean ? korean : english;
}

}  // namespace velda
