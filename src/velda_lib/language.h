#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace velda {

enum class Language { English, Korean };

/// The language that texts are looked up in; English at start. A switch takes effect with the next lookup.
Language CurrentLanguage();
void SetCurrentLanguage(Language language);

/// Language of a code such as "en" or "ko"; none for a code that the program does not speak.
std::optional<Language> LanguageOfCode(std::string_view code);
std::string_view CodeOfLanguage(Language language);

/// A language resource compiled to the binary message catalogue of the gettext tools (revision 0, native byte order):
/// a table of keys sorted by bytes beside a table of texts. The bytes must outlive the object.
class LanguageCatalog {
public:
    LanguageCatalog(const unsigned char* bytes, std::size_t size) : bytes_(bytes), size_(size) {}

    /// Text of a key; none when the catalogue does not hold it. Keys are compared with regard to case.
    std::optional<std::string_view> Find(std::string_view key) const;
    /// All keys, sorted by bytes.
    std::vector<std::string_view> Keys() const;

private:
    std::uint32_t Word(std::size_t offset) const;
    std::uint32_t Count() const;
    std::string_view Entry(std::uint32_t tableWord, std::uint32_t index) const;

    const unsigned char* bytes_;
    std::size_t size_;
};

/// The catalogue of a language as built into the program.
const LanguageCatalog& CatalogOf(Language language);

}  // namespace velda
