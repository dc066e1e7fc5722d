#include "zt_script/script_runner.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <fstream>
#include <optional>
#include <utility>

#include "velda_lib/language.h"
#include "zt_script/script_session.h"

namespace zt {
namespace {

constexpr std::span<const ScriptCommand> (*kTables[])() = {
    &ModelCommands, &RecordCommands,  &HistoryCommands, &ChangeCommands,    &ViewCommands,      &CellCommands,
    &RowCommands,   &LookCommands,    &LayoutCommands,  &SelectionCommands, &ClipCommands,      &ExportCommands,
    &CallCommands,  &ControlCommands, &HostCommands,    &ResultCommands,    &ResultViewCommands};

/// Number of words in which a command's name fits the beginning of a line; 0 when it does not.
std::size_t FittingWords(std::string_view name, ScriptWords words) {
    std::size_t count = 0;
    while (!name.empty()) {
        const std::size_t end = std::min(name.find(' '), name.size());
        if (count >= words.size() || words[count].quoted || words[count].assigns) return 0;
        if (words[count].value != name.substr(0, end)) return 0;
        name.remove_prefix(std::min(end + 1, name.size()));
        ++count;
    }
    return count;
}

CommandResult RunCommand(ScriptSession& session, ScriptWords words) {
    const ScriptCommand* best = nullptr;
    std::size_t bestWords = 0;
    for (const auto table : kTables) {
        for (const ScriptCommand& command : table()) {
            const std::size_t fitting = FittingWords(command.name, words);
            if (fitting > bestWords) {
                best = &command;
                bestWords = fitting;
            }
        }
    }
    if (!best) return CommandResult::Unreadable("unknown command " + words.front().value);
    try {
        CommandResult result = best->run(session, words.subspan(bestWords));
        const bool misused = result.kind == CommandResult::Kind::Unreadable && result.found.empty();
        return misused ? CommandResult::Unreadable(std::string(best->usage)) : result;
    } catch (const std::exception& exception) {
        return CommandResult::Refused(exception.what());
    }
}

constexpr std::string_view kIncludeUsage = "include FILE";

/// All of a file; none when it cannot be read.
std::optional<std::string> ReadText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string text;
    char block[4096];
    while (file.read(block, sizeof block) || file.gcount() > 0) {
        text.append(block, static_cast<std::size_t>(file.gcount()));
    }
    return file.eof() ? std::optional(std::move(text)) : std::nullopt;
}

}  // namespace

ScriptCount& ScriptCount::operator+=(const ScriptCount& other) {
    passed += other.passed;
    failed += other.failed;
    unreadable += other.unreadable;
    return *this;
}

std::vector<std::span<const ScriptCommand>> ScriptRunner::Commands() {
    std::vector<std::span<const ScriptCommand>> tables;
    for (const auto table : kTables) tables.push_back(table());
    return tables;
}

std::string ScriptRunner::Usage() {
    std::string usage;
    for (const auto table : kTables) {
        for (const ScriptCommand& command : table()) usage += "  " + std::string(command.usage) + "\n";
    }
    return usage + "  " + std::string(kIncludeUsage) + "\n  refused COMMAND\n  expect not ...\n";
}

CommandResult ScriptRunner::RunRefused(ScriptSession& session, ScriptWords words) {
    if (words.empty()) return CommandResult::Unreadable("refused COMMAND");
    CommandResult result = RunCommand(session, words);
    if (result.kind == CommandResult::Kind::Unreadable || result.kind == CommandResult::Kind::Unexpected) return result;
    session.SetReason(result.found);
    const bool refused = result.kind == CommandResult::Kind::Refused;
    return CommandResult::Check(refused, "refused", refused ? "refused" : "done");
}

CommandResult ScriptRunner::RunNegated(ScriptSession& session, ScriptWords words) {
    std::vector<ScriptWord> positive(words.begin(), words.end());
    positive.erase(positive.begin() + 1);
    CommandResult result = RunCommand(session, positive);
    if (result.kind == CommandResult::Kind::Done) {
        return CommandResult::Check(false, "not " + result.expected, result.found);
    }
    return result.kind == CommandResult::Kind::Unexpected ? CommandResult::Done() : result;
}

CommandResult ScriptRunner::RunLine(ScriptSession& session, ScriptWords words, bool& isCheck) {
    const bool refused = words[0].value == "refused" && !words[0].quoted;
    const bool expects = words[0].value == "expect" && !words[0].quoted;
    isCheck = refused || expects;
    if (!expects) session.Host().ForgetTold();
    if (refused) return RunRefused(session, words.subspan(1));
    if (expects && words.size() > 2 && words[1].value == "not" && !words[1].quoted) return RunNegated(session, words);
    CommandResult result = RunCommand(session, words);
    session.Views().DropClosed();
    return result;
}

void ScriptRunner::Report(const std::string& place, const CommandResult& result, bool isCheck, ScriptCount& count) {
    switch (result.kind) {
        case CommandResult::Kind::Done:
            if (isCheck) ++count.passed;
            return;
        case CommandResult::Kind::Refused:
            ++count.failed;
            output_ << place << "refused: " << result.found << '\n';
            return;
        case CommandResult::Kind::Unexpected:
            ++count.failed;
            output_ << place << "expected " << result.expected << ", found " << result.found << '\n';
            return;
        case CommandResult::Kind::Unreadable:
            ++count.unreadable;
            output_ << place << result.found << '\n';
            return;
    }
}

CommandResult ScriptRunner::RunInclude(ScriptSession& session, const std::string& name, ScriptWords words, int depth,
                                       ScriptCount& count) {
    constexpr int kDeepest = 3;
    if (words.size() != 1 || words[0].assigns) return CommandResult::Unreadable(std::string(kIncludeUsage));
    if (depth >= kDeepest) return CommandResult::Unreadable("files include each other too deeply");
    const std::string path = (std::filesystem::path(name).parent_path() / words[0].value).string();
    const std::optional<std::string> text = ReadText(path);
    if (!text) return CommandResult::Unreadable(path + ": cannot be read");
    RunLines(session, path, *text, depth + 1, count);
    return CommandResult::Done();
}

void ScriptRunner::RunLines(ScriptSession& session, const std::string& name, std::string_view text, int depth,
                            ScriptCount& count) {
    int lineNumber = 0;
    if (constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf"; text.starts_with(kByteOrderMark)) {
        text.remove_prefix(kByteOrderMark.size());
    }
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        const velda::WordLine line = velda::ReadWordLine(text.substr(at, end - at));
        at = end + 1;
        const std::string place = name + ":" + std::to_string(++lineNumber) + ": ";
        bool isCheck = false;
        CommandResult result;
        if (!line.fault.empty()) {
            result = CommandResult::Unreadable(line.fault);
        } else if (!line.words.empty() && FittingWords("include", line.words) > 0) {
            result = RunInclude(session, name, ScriptWords(line.words).subspan(1), depth, count);
        } else if (!line.words.empty()) {
            result = RunLine(session, line.words, isCheck);
        }
        Report(place, result, isCheck, count);
    }
}

ScriptCount ScriptRunner::RunText(const std::string& name, std::string_view text) {
    velda::SetCurrentLanguage(velda::Language::English);
    ScriptSession session(output_);
    ScriptCount count;
    RunLines(session, name, text, 0, count);
    return count;
}

ScriptCount ScriptRunner::RunFile(const std::string& path) {
    if (const std::optional<std::string> text = ReadText(path)) return RunText(path, *text);
    output_ << path << ": cannot be read\n";
    ScriptCount count;
    ++count.unreadable;
    return count;
}

}  // namespace zt
