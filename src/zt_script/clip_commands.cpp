#include "zt_db/core/field_text.h"
#include "zt_script/table_words.h"

namespace zt {
namespace {

std::string Quoted(std::string_view text) {
    std::string quoted;
    AppendQuoted(quoted, text);
    return quoted;
}

CommandResult Copy(ScriptSession& session, velda::CTBGrid& table, ScriptWords words) {
    const bool headers = words.size() == 1 && words[0].value == "headers";
    if (!words.empty() && !headers) return CommandResult::Misused();
    return TableResult(session, table.Copy(headers));
}

CommandResult ExpectClipboard(ScriptSession& session, ScriptWords words) {
    if (words.size() != 1) return CommandResult::Misused();
    return CommandResult::Compare(Quoted(words[0].value), Quoted(session.Host().GetClipboardText()));
}

/// Pastes a text, or the clipboard where none is given.
CommandResult PasteWith(ScriptSession& session, CTBCommonWnd& table, ScriptWords words, velda::OnRefusal choice) {
    if (words.size() > 1) return CommandResult::Misused();
    return TableResult(session, words.empty() ? table.Paste(choice) : table.PasteText(words[0].value, choice));
}

CommandResult Paste(ScriptSession& session, CTBCommonWnd& table, ScriptWords words) {
    return PasteWith(session, table, words, velda::OnRefusal::WriteOthers);
}
CommandResult PasteAllOrNothing(ScriptSession& session, CTBCommonWnd& table, ScriptWords words) {
    return PasteWith(session, table, words, velda::OnRefusal::WriteNothing);
}

CommandResult FillDown(ScriptSession& session, CTBCommonWnd& table, ScriptWords words) {
    return words.empty() ? TableResult(session, table.FillDown()) : CommandResult::Misused();
}

constexpr ScriptCommand kCommands[] = {
    {"copy", &OnGrid<&Copy>, "copy [headers]"},
    {"expect clipboard", &ExpectClipboard, "expect clipboard \"a\\tb\\n\""},
    {"paste", &OnTable<&Paste>, "paste [\"a\\tb\\n\"]"},
    {"paste all-or-nothing", &OnTable<&PasteAllOrNothing>, "paste all-or-nothing [\"a\\tb\\n\"]"},
    {"fill down", &OnTable<&FillDown>, "fill down"},
};

}  // namespace

std::span<const ScriptCommand> ClipCommands() { return kCommands; }

}  // namespace zt
