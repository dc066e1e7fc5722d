#include "velda_util/clip/text_matcher.h"

#include <algorithm>

#include "velda_util/text/unicode_text.h"

namespace velda {
namespace {

char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

}  // namespace

TextMatcher::TextMatcher(std::string_view text, bool matchCase)
    : text_(matchCase ? std::string(text) : FoldCase(text)),
      matchCase_(matchCase),
      ascii_(std::all_of(text_.begin(), text_.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; })) {}

std::string_view TextMatcher::Comparable(std::string_view cell) {
    if (matchCase_) return cell;
    FoldCaseInto(cell, folded_);
    return folded_;
}

bool TextMatcher::IsIn(std::string_view cell) {
    if (text_.empty() || cell.size() < text_.size()) return false;
    if (!matchCase_ && ascii_) return IsInAscii(cell);
    return Comparable(cell).find(text_) != std::string_view::npos;
}

/// No other letter folds to an ASCII one, and a letter keeps its length, so that the bytes can be compared as they
/// come.
bool TextMatcher::IsInAscii(std::string_view cell) const {
    const std::size_t last = cell.size() - text_.size();
    for (std::size_t at = 0; at <= last; ++at) {
        std::size_t same = 0;
        while (same < text_.size() && LowerAscii(cell[at + same]) == text_[same]) ++same;
        if (same == text_.size()) return true;
    }
    return false;
}

bool TextMatcher::Is(std::string_view cell) {
    return !text_.empty() && cell.size() == text_.size() && Comparable(cell) == text_;
}

std::string TextMatcher::ReplaceIn(std::string_view cell, std::string_view replacement, std::size_t& count) {
    count = 0;
    if (text_.empty()) return std::string(cell);
    const std::string_view comparable = Comparable(cell);
    std::string result;
    std::size_t at = 0;
    for (std::size_t found; (found = comparable.find(text_, at)) != std::string_view::npos; at = found + text_.size()) {
        result.append(cell.substr(at, found - at)).append(replacement);
        ++count;
    }
    return result.append(cell.substr(at));
}

}  // namespace velda
