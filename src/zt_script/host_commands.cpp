#include <algorithm>
#include <optional>

#include "velda_lib/number_text.h"
#include "zt_script/table_words.h"
#include "zt_tb/core/tb_common_view.h"
#include "zt_tb/core/tb_find_dlg.h"

namespace zt {
namespace {

std::optional<int> ReadNumber(const ScriptWord& word) {
    std::int64_t number = 0;
    if (word.quoted || word.assigns || !velda::ReadWholeLong(word.value, number) || !std::in_range<int>(number)) {
        return std::nullopt;
    }
    return static_cast<int>(number);
}

// ---- commands of views and of the main frame

CommandResult GiveCommand(ScriptSession& session, ScriptWords words) {
    const auto id = words.size() == 1 ? ReadNumber(words[0]) : std::nullopt;
    if (!id) return CommandResult::Misused();
    CTBView* view = session.Views().Active();
    if (!view) return CommandResult::Refused("no view is open");
    bool done = false;
    session.Host().queue.Run([&] { done = view->OnCommand(*id); });
    return done ? CommandResult::Done()
                : CommandResult::Refused("the view does not take the command " + words[0].value);
}

CommandResult ExpectAmong(const std::vector<std::uint16_t>& commands, ScriptWords words) {
    const auto id = words.size() == 1 ? ReadNumber(words[0]) : std::nullopt;
    if (!id) return CommandResult::Misused();
    std::string found;
    for (const std::uint16_t command : commands) found += (found.empty() ? "" : " ") + std::to_string(command);
    const bool holds = std::any_of(commands.begin(), commands.end(), [&](std::uint16_t c) { return c == *id; });
    return CommandResult::Check(holds, words[0].value, found.empty() ? "none" : found);
}

CommandResult ExpectSent(ScriptSession& session, ScriptWords words) {
    return ExpectAmong(session.Host().mainFrame.sent, words);
}
CommandResult ExpectPosted(ScriptSession& session, ScriptWords words) {
    return ExpectAmong(session.Host().mainFrame.posted, words);
}

// ---- menus

/// menu R COL: opens the right-button menu on a cell and leaves it without a choice.
CommandResult OpenMenu(ScriptSession& session, CTBCommonWnd& table, ScriptWords words) {
    if (words.size() != 2) return CommandResult::Misused();
    const NamedPlace place = ReadCell(table, words[0], words[1]);
    if (!place.IsRead()) return place.fault;
    auto* view = dynamic_cast<CTBCommonView*>(session.Views().Active());
    const auto point = table.CellMiddle({place.row, place.col});
    if (!view || !point) return CommandResult::Refused("the cell has no menu");
    session.Host().queue.Run([&] { view->OnContextMenu(*point); });
    return CommandResult::Done();
}

/// The entry of the last menu with a command or a text; null when there is none.
const velda::MenuItem* FindEntry(const velda::CMenu& menu, const ScriptWord& word) {
    if (const auto id = ReadNumber(word)) return menu.Find(*id);
    for (const velda::MenuItem& item : menu.Items()) {
        if (!item.IsSeparator() && item.text == word.value) return &item;
    }
    return nullptr;
}

CommandResult ExpectMenu(ScriptSession& session, ScriptWords words, std::string_view expected) {
    if (words.size() != 1) return CommandResult::Misused();
    const std::optional<velda::CMenu>& menu = session.Host().menus.last;
    if (!menu) return CommandResult::Refused("no menu was opened");
    const velda::MenuItem* item = FindEntry(*menu, words[0]);
    const std::string_view found = !item ? "lacks" : item->enabled ? "has" : "disabled";
    return CommandResult::Compare(std::string(expected) + " " + words[0].value,
                                  std::string(found) + " " + words[0].value);
}

CommandResult ExpectMenuHas(ScriptSession& session, ScriptWords words) { return ExpectMenu(session, words, "has"); }
CommandResult ExpectMenuLacks(ScriptSession& session, ScriptWords words) { return ExpectMenu(session, words, "lacks"); }
CommandResult ExpectMenuDisabled(ScriptSession& session, ScriptWords words) {
    return ExpectMenu(session, words, "disabled");
}

// ---- answers and dialogs

CommandResult Answer(ScriptSession& session, ScriptWords words) {
    constexpr std::pair<std::string_view, velda::MessageAnswer> kAnswers[] = {{"yes", velda::MessageAnswer::Yes},
                                                                              {"no", velda::MessageAnswer::No},
                                                                              {"ok", velda::MessageAnswer::Ok},
                                                                              {"cancel", velda::MessageAnswer::Cancel}};
    if (words.size() != 1) return CommandResult::Misused();
    for (const auto& [name, answer] : kAnswers) {
        if (words[0].value != name) continue;
        session.Host().messages.answers.push_back(answer);
        return CommandResult::Done();
    }
    return CommandResult::Misused();
}

/// What a script enters in the find dialog; what is not named stays as the dialog opens.
struct FindEntries {
    std::optional<std::string> text{};
    std::optional<bool> matchCase{};
    std::optional<bool> allColumns{};
    std::optional<int> direction{};
};

bool ReadEntry(const ScriptWord& word, FindEntries& entries) {
    const auto oneOf = [&](std::string_view no, std::string_view yes) -> std::optional<bool> {
        if (word.value != no && word.value != yes) return std::nullopt;
        return word.value == yes;
    };
    if (!word.assigns) return false;
    if (word.name == "text") {
        entries.text = word.value;
        return true;
    }
    if (word.name == "case") return (entries.matchCase = oneOf("no", "yes")).has_value();
    if (word.name == "all") return (entries.allColumns = oneOf("no", "yes")).has_value();
    if (word.name != "direction") return false;
    const std::optional<bool> forward = oneOf("back", "forward");
    if (forward) entries.direction = *forward ? 1 : 0;
    return forward.has_value();
}

/// dialog find text="a" case=yes all=no direction=back ok|cancel: what the user does when the dialog opens next.
CommandResult UseFindDialog(ScriptSession& session, ScriptWords words) {
    if (words.empty() || (words.back().value != "ok" && words.back().value != "cancel")) {
        return CommandResult::Misused();
    }
    FindEntries entries;
    for (const ScriptWord& word : words.first(words.size() - 1)) {
        if (!ReadEntry(word, entries)) return CommandResult::Misused();
    }
    session.Host().dialogs.users.push_back([entries, ok = words.back().value == "ok"](velda::ModalDialog& dialog) {
        auto* find = dynamic_cast<CTBFindDlg*>(&dialog);
        if (!find) return false;
        find->text = entries.text.value_or(find->text);
        find->matchCase = entries.matchCase.value_or(find->matchCase);
        find->allColumns = entries.allColumns.value_or(find->allColumns);
        find->direction = entries.direction.value_or(find->direction);
        return ok;
    });
    return CommandResult::Done();
}

// ---- the window

CommandResult Resize(ScriptSession& session, ScriptWords words) {
    if (words.size() != 2) return CommandResult::Misused();
    const auto width = ReadNumber(words[0]);
    const auto height = ReadNumber(words[1]);
    if (!width || !height || *width < 0 || *height < 0) return CommandResult::Misused();
    velda::HeadlessWindow* window = session.Views().ActiveWindow();
    if (!window) return CommandResult::Refused("no view is open");
    window->MoveWindow({0, 0, *width, *height});
    return CommandResult::Done();
}

constexpr ScriptCommand kCommands[] = {
    {"command", &GiveCommand, "command ID"},
    {"expect sent", &ExpectSent, "expect sent ID"},
    {"expect posted", &ExpectPosted, "expect posted ID"},
    {"menu", &OnTable<&OpenMenu>, "menu R COL"},
    {"expect menu has", &ExpectMenuHas, "expect menu has \"text\"|ID"},
    {"expect menu lacks", &ExpectMenuLacks, "expect menu lacks \"text\"|ID"},
    {"expect menu disabled", &ExpectMenuDisabled, "expect menu disabled \"text\"|ID"},
    {"answer", &Answer, "answer yes|no|ok|cancel"},
    {"dialog find", &UseFindDialog,
     "dialog find [text=\"a\"] [case=yes|no] [all=yes|no] [direction=back|forward] ok|cancel"},
    {"resize", &Resize, "resize W H"},
};

}  // namespace

std::span<const ScriptCommand> HostCommands() { return kCommands; }

}  // namespace zt
