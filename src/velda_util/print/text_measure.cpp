#include "velda_util/print/text_measure.h"

#include "velda_util/text/unicode_text.h"

namespace velda {
namespace {

/// Widths of characters as parts of the font size.
constexpr double kNarrow = 0.55;
constexpr double kWide = 1.0;
constexpr double kBoldFactor = 1.1;
/// Letters of the alphabetic scripts take up to two bytes.
constexpr std::size_t kLongestNarrow = 2;

}  // namespace

double UsualTextWidth(std::string_view text, double fontSize, bool bold) {
    double width = 0.0;
    while (!text.empty()) {
        const std::size_t length = FirstCharacterLength(text);
        width += length > kLongestNarrow ? kWide : kNarrow;
        text.remove_prefix(length);
    }
    return width * fontSize * (bold ? kBoldFactor : 1.0);
}

}  // namespace velda
