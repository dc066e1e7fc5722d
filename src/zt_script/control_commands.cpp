#include "velda_lib/number_text.h"
#include "velda_util/edit/key_chord.h"
#include "zt_script/command.h"
#include "zt_script/script_session.h"

namespace zt {
namespace {

/// control nodeedit 1021 [noparent]
CommandResult MakeNodeEdit(ScriptSession& session, ScriptWords words) {
    std::int64_t id = 0;
    const bool hasParent = words.size() == 1;
    if (words.empty() || words.size() > 2 || (!hasParent && words[1].value != "noparent") ||
        !velda::ReadWholeLong(words[0].value, id) || !std::in_range<std::uint16_t>(id)) {
        return CommandResult::Misused();
    }
    session.SetControl(std::make_unique<ScriptControl>(static_cast<std::uint16_t>(id), hasParent));
    return CommandResult::Done();
}

CommandResult PressKey(ScriptSession& session, ScriptWords words) {
    const auto chord = words.size() == 1 ? velda::ParseKeyChord(words[0].value) : std::nullopt;
    if (!chord) return CommandResult::Misused();
    if (!session.Control()) return CommandResult::Refused("there is no control");
    session.Control()->PressKey(*chord);
    return CommandResult::Done();
}

/// The commands that the window got with the last key, each as its control and its code.
std::string EventsText(ScriptSession& session) {
    std::string text;
    if (!session.Control()) return text;
    for (const velda::CommandMessage& command : session.Control()->Commands()) {
        text += (text.empty() ? "" : ", ") + std::to_string(command.id) + " " + std::to_string(command.code);
    }
    return text;
}

CommandResult ExpectEvent(ScriptSession& session, ScriptWords words) {
    if (words.size() != 2) return CommandResult::Misused();
    return CommandResult::Compare(words[0].value + " " + words[1].value, EventsText(session));
}

CommandResult ExpectNoEvent(ScriptSession& session, ScriptWords words) {
    return words.empty() ? CommandResult::Compare("", EventsText(session)) : CommandResult::Misused();
}

constexpr ScriptCommand kCommands[] = {
    {"control nodeedit", &MakeNodeEdit, "control nodeedit ID [noparent]"},
    {"control key", &PressKey, "control key CHORD"},
    {"expect event", &ExpectEvent, "expect event ID CODE"},
    {"expect no event", &ExpectNoEvent, "expect no event"},
};

}  // namespace

std::span<const ScriptCommand> ControlCommands() { return kCommands; }

}  // namespace zt
