#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velda {

/// One word of a line. `name="W200"` is one word with a name; a word in quotes is never taken for a command or a
/// number.
struct LineWord {
    std::string name;   ///< what stands before "="; empty for a word without one
    std::string value;  ///< the word, or what stands behind "=", with quotes and escapes resolved
    bool quoted = false;
    bool assigns = false;
};

struct WordLine {
    std::vector<LineWord> words;
    std::string fault;  ///< why the line cannot be read; empty when it can
};

/// Reads a line: words separated by blanks; texts in double quotes with \t \n \\ \" escapes, in which {IDS_KEY} stands
/// for the text of that key; lists in brackets, which may hold blanks. A line that begins with # has no words.
WordLine ReadWordLine(std::string_view line);

}  // namespace velda
