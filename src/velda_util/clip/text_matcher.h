#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace velda {

/// Looks for one text in the texts of many cells. Without regard to case, capital and small Latin, Greek and Cyrillic
/// letters are the same. An empty text is found nowhere.
class TextMatcher {
public:
    TextMatcher(std::string_view text, bool matchCase);

    /// Whether the text is a part of the cell.
    bool IsIn(std::string_view cell);
    /// Whether the text is the whole cell.
    bool Is(std::string_view cell);
    /// The cell with every occurrence replaced, from the left and without overlap; `count` is their number.
    std::string ReplaceIn(std::string_view cell, std::string_view replacement, std::size_t& count);

private:
    /// The cell in the form in which the text is compared.
    std::string_view Comparable(std::string_view cell);
    bool IsInAscii(std::string_view cell) const;

    std::string text_;  ///< folded unless the case counts
    bool matchCase_;
    bool ascii_;
    std::string folded_;  ///< reused from cell to cell
};

}  // namespace velda
