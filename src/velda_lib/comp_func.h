#pragma once

#include <string_view>

namespace velda {

/// Comparisons of texts.
struct CCompFunc {
    /// Three-way comparison with regard to case, in code point order: negative, 0 for equal texts, positive.
    static int CompString(std::string_view a, std::string_view b) { return a.compare(b); }

    /// Whether two texts are equal without regard to the case of Latin letters.
    static bool EqualNoCase(std::string_view a, std::string_view b) {
        if (a.size() != b.size()) return false;
        for (std::size_t i = 0; i < a.size(); ++i) {
            if (LowerLatin(a[i]) != LowerLatin(b[i])) return false;
        }
        return true;
    }

private:
    static constexpr char LowerLatin(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }
};

}  // namespace velda
