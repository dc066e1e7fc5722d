#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "zt_script/command.h"

namespace zt {

/// How a script, or several, went.
struct ScriptCount {
    int passed = 0;      ///< expectations that held, refusals included
    int failed = 0;      ///< expectations that did not hold, and commands that were refused
    int unreadable = 0;  ///< lines that could not be read, and files that could not be opened

    ScriptCount& operator+=(const ScriptCount& other);
    /// Exit status of the command line: 0 all passed, 1 some failed, 2 a script could not be read.
    int ExitStatus() const { return unreadable > 0 ? 2 : failed > 0 ? 1 : 0; }
};

/// Runs scripts against a model, each on a session of its own. What they print and every failure goes to the output, a
/// failure as "file:line: expected ..., found ...".
class ScriptRunner {
public:
    explicit ScriptRunner(std::ostream& output) : output_(output) {}

    ScriptCount RunFile(const std::string& path);
    /// `name` stands for the file in messages.
    ScriptCount RunText(const std::string& name, std::string_view text);

    /// All commands, in the tables of their subjects.
    static std::vector<std::span<const ScriptCommand>> Commands();
    /// A line for each command, for a help text.
    static std::string Usage();

private:
    /// `depth` is how many files include this text.
    void RunLines(ScriptSession& session, const std::string& name, std::string_view text, int depth,
                  ScriptCount& count);
    CommandResult RunInclude(ScriptSession& session, const std::string& name, ScriptWords words, int depth,
                             ScriptCount& count);
    CommandResult RunLine(ScriptSession& session, ScriptWords words, bool& isCheck);
    CommandResult RunRefused(ScriptSession& session, ScriptWords words);
    CommandResult RunNegated(ScriptSession& session, ScriptWords words);
    void Report(const std::string& place, const CommandResult& result, bool isCheck, ScriptCount& count);

    std::ostream& output_;
};

}  // namespace zt
