#pragma once

#include <span>
#include <string>
#include <string_view>

#include "velda_lib/outcome.h"
#include "velda_lib/word_line.h"

namespace zt {

class ScriptSession;
using ScriptWord = velda::LineWord;

/// What came of a command of a script.
struct CommandResult {
    enum class Kind {
        Done,
        Refused,     ///< the program refused it; `found` says why
        Unexpected,  ///< an expectation that does not hold
        Unreadable,  ///< the line cannot be read; `found` says why
    };
    Kind kind = Kind::Done;
    std::string expected;
    std::string found;

    static CommandResult Done() { return {}; }
    static CommandResult Refused(std::string reason) { return {Kind::Refused, "", std::move(reason)}; }
    static CommandResult Unreadable(std::string why) { return {Kind::Unreadable, "", std::move(why)}; }
    /// The words do not fit the command; the runner tells how it is used.
    static CommandResult Misused() { return Unreadable({}); }
    static CommandResult Of(const velda::Outcome& outcome) { return outcome ? Done() : Refused(outcome.Reason()); }
    /// The result of comparing two texts. `found` is kept in any case, for expectations that are negated.
    static CommandResult Compare(std::string expected, std::string found) {
        const Kind kind = expected == found ? Kind::Done : Kind::Unexpected;
        return {kind, std::move(expected), std::move(found)};
    }
    static CommandResult Check(bool holds, std::string expected, std::string found) {
        return {holds ? Kind::Done : Kind::Unexpected, std::move(expected), std::move(found)};
    }
};

using ScriptWords = std::span<const ScriptWord>;

/// A command: the words it begins with, and what it does with the rest. Among commands that fit, the one with most
/// words counts.
struct ScriptCommand {
    std::string_view name;
    CommandResult (*run)(ScriptSession& session, ScriptWords words);
    std::string_view usage;
};

// The commands of one subject each; the runner knows the list of tables.
std::span<const ScriptCommand> ModelCommands();
std::span<const ScriptCommand> RecordCommands();
std::span<const ScriptCommand> HistoryCommands();
std::span<const ScriptCommand> ChangeCommands();
std::span<const ScriptCommand> ViewCommands();
std::span<const ScriptCommand> CellCommands();
std::span<const ScriptCommand> RowCommands();
std::span<const ScriptCommand> LookCommands();
std::span<const ScriptCommand> LayoutCommands();
std::span<const ScriptCommand> SelectionCommands();
std::span<const ScriptCommand> ClipCommands();
std::span<const ScriptCommand> ExportCommands();
std::span<const ScriptCommand> CallCommands();
std::span<const ScriptCommand> ControlCommands();
std::span<const ScriptCommand> HostCommands();
std::span<const ScriptCommand> ResultCommands();
std::span<const ScriptCommand> ResultViewCommands();

}  // namespace zt
