#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zt {

/// A line of a text that has cells, with its number from 1.
struct TextRow {
    std::size_t line = 0;
    std::vector<std::string> cells{};
};

/// The lines of a text that are not blank. Cells are parted by tabs; in a line without one by semicolons, then by
/// commas, then by blanks. Empty cells at the end of a line do not count.
std::vector<TextRow> TextRows(std::string_view text);

}  // namespace zt
