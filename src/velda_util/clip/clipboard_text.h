#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "velda_lib/outcome.h"
#include "velda_util/clip/text_block.h"

namespace velda {

/// What may pass through the clipboard at most.
struct ClipboardLimits {
    std::size_t cells = 10'000'000;
    std::size_t bytes = std::size_t{1} << 30;
};

/// The header of a copied column.
struct ClipboardHeader {
    std::string_view title;
    std::string_view unit{};  ///< empty for a column without one, or whose title tells it already
};

/// Tables of texts as spreadsheet programs exchange them: cells separated by tabs, rows ended by "\n" or "\r\n". A cell
/// that holds a tab, a line break or a quote stands in quotes, its own quotes doubled.
struct ClipboardText {
    /// Reads a text; the end of the last row may be missing. A cell counts as quoted only where its closing quote ends
    /// the cell; any other quote belongs to the text. A NUL or a byte that is no UTF-8 is read as U+FFFD. Refused, with
    /// `block` left alone, beyond the limits.
    static Outcome Read(std::string_view text, TextBlock& block, const ClipboardLimits& limits = {});
    /// Writes a block, each row ended by "\n"; with headers, a row of "title (unit)" first. Refused, with `text` left
    /// alone, beyond the limits.
    static Outcome Write(const TextBlock& block, std::span<const ClipboardHeader> headers, std::string& text,
                         const ClipboardLimits& limits = {});
    static Outcome Write(const TextBlock& block, std::string& text, const ClipboardLimits& limits = {}) {
        return Write(block, {}, text, limits);
    }
};

}  // namespace velda
