#include "velda_lib/number_text.h"
#include "zt_script/command.h"
#include "zt_script/script_session.h"

namespace zt {
namespace {

bool ReadCount(ScriptWords words, int& count) {
    std::int64_t read = 1;
    if (words.size() > 1 || (words.size() == 1 && !velda::ReadWholeLong(words[0].value, read))) return false;
    if (read < 1 || !std::in_range<int>(read)) return false;
    count = static_cast<int>(read);
    return true;
}

CommandResult MoveSteps(ScriptSession& session, ScriptWords words, int (DB_CDataBase::*move)(int)) {
    int count = 1;
    if (!ReadCount(words, count)) return CommandResult::Unreadable("a number of steps is needed");
    if (velda::Outcome left = session.LeaveRows(); !left) return CommandResult::Of(left);
    const int moved = (session.Database().*move)(count);
    return moved == count ? CommandResult::Done() : CommandResult::Refused(session.Database().GetLastReason());
}

CommandResult Undo(ScriptSession& session, ScriptWords words) { return MoveSteps(session, words, &DB_CDataBase::Undo); }
CommandResult Redo(ScriptSession& session, ScriptWords words) { return MoveSteps(session, words, &DB_CDataBase::Redo); }

CommandResult MoveToStep(ScriptSession& session, ScriptWords words, int (DB_CDataBase::*move)(const std::string&)) {
    if (words.size() != 1) return CommandResult::Misused();
    if (velda::Outcome left = session.LeaveRows(); !left) return CommandResult::Of(left);
    return (session.Database().*move)(words[0].value) ? CommandResult::Done()
                                                      : CommandResult::Refused(session.Database().GetLastReason());
}

CommandResult UndoTo(ScriptSession& session, ScriptWords words) {
    return MoveToStep(session, words, &DB_CDataBase::UndoTo);
}
CommandResult RedoTo(ScriptSession& session, ScriptWords words) {
    return MoveToStep(session, words, &DB_CDataBase::RedoTo);
}

CommandResult BeginGroup(ScriptSession& session, ScriptWords words) {
    if (words.size() != 1) return CommandResult::Unreadable("group \"name\"");
    return session.Database().BeginGroup(words[0].value) ? CommandResult::Done()
                                                         : CommandResult::Refused(session.Database().GetLastReason());
}

CommandResult EndGroup(ScriptSession& session, ScriptWords words) {
    if (!words.empty()) return CommandResult::Unreadable("end takes no words");
    return session.Database().EndGroup() ? CommandResult::Done()
                                         : CommandResult::Refused(session.Database().GetLastReason());
}

CommandResult CancelGroup(ScriptSession& session, ScriptWords words) {
    if (!words.empty()) return CommandResult::Unreadable("cancel takes no words");
    session.Database().CancelGroup();
    return CommandResult::Done();
}

CommandResult Mark(ScriptSession& session, ScriptWords) {
    session.Mark();
    return CommandResult::Done();
}

CommandResult ExpectTransactions(ScriptSession& session, ScriptWords words) {
    if (words.size() != 1) return CommandResult::Unreadable("expect transactions N");
    return CommandResult::Compare(words[0].value, std::to_string(session.TransactionsSinceMark()));
}

/// The name of the next step, empty when there is none.
CommandResult ExpectStep(ScriptWords words, const std::vector<std::string>& names) {
    if (words.size() != 1) return CommandResult::Unreadable("the name of a step is needed");
    return CommandResult::Compare(words[0].value, names.empty() ? std::string{} : names.front());
}

CommandResult ExpectUndo(ScriptSession& session, ScriptWords words) {
    return ExpectStep(words, session.Database().GetUndoNames());
}
CommandResult ExpectRedo(ScriptSession& session, ScriptWords words) {
    return ExpectStep(words, session.Database().GetRedoNames());
}

CommandResult ExpectReason(ScriptSession& session, ScriptWords words) {
    if (words.size() != 1) return CommandResult::Unreadable("expect reason \"text\"");
    return CommandResult::Compare(words[0].value, session.Reason());
}

constexpr ScriptCommand kCommands[] = {
    {"undo", &Undo, "undo [N]"},
    {"redo", &Redo, "redo [N]"},
    {"undo to", &UndoTo, "undo to \"name\""},
    {"redo to", &RedoTo, "redo to \"name\""},
    {"group", &BeginGroup, "group \"name\""},
    {"end", &EndGroup, "end"},
    {"cancel group", &CancelGroup, "cancel group"},
    {"mark", &Mark, "mark"},
    {"expect transactions", &ExpectTransactions, "expect transactions N"},
    {"expect undo", &ExpectUndo, "expect undo \"name\""},
    {"expect redo", &ExpectRedo, "expect redo \"name\""},
    {"expect reason", &ExpectReason, "expect reason \"text\""},
};

}  // namespace

std::span<const ScriptCommand> HistoryCommands() { return kCommands; }

}  // namespace zt
