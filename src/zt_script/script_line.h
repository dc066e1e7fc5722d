#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zt {

/// One word of a script line. `name="W200"` is one word with a name; a word in quotes is never taken for a command or a
/// number.
struct ScriptWord {
    std::string name;   ///< what stands before "="; empty for a word without one
    std::string value;  ///< the word, or what stands behind "=", with quotes and escapes resolved
    bool quoted = false;
    bool assigns = false;
};

struct ScriptLine {
    std::vector<ScriptWord> words;
    std::string fault;  ///< why the line cannot be read; empty when it can
};

/// Reads a line: words separated by blanks; texts in double quotes with \t \n \\ \" escapes, in which {IDS_KEY} stands
/// for the text of that key; lists in brackets, which may hold blanks. A line that begins with # has no words.
ScriptLine ReadScriptLine(std::string_view line);

}  // namespace zt
