#include <algorithm>
#include <map>

#include "velda_lib/number_text.h"
#include "zt_script/table_words.h"
#include "zt_tb/post/story/tb_set_rmf_mini_dlg.h"
#include "zt_tb/post/tb_active_new_dlg.h"
#include "zt_tb/post/tb_post_view.h"

namespace zt {
namespace {

/// view result AddDispView, view result AddColmView 1 0
CommandResult OpenResultView(ScriptSession& session, ScriptWords words) {
    if (words.empty()) return CommandResult::Misused();
    std::vector<int> arguments;
    for (const ScriptWord& word : words.subspan(1)) {
        std::int64_t number = 0;
        if (!velda::ReadWholeLong(word.value, number) || !std::in_range<int>(number)) return CommandResult::Misused();
        arguments.push_back(static_cast<int>(number));
    }
    auto opened = std::make_unique<CTBPostView>();
    CTBPostView& view = *opened;
    session.OpenView(std::move(opened));
    if (view.AddTable(words[0].value, arguments)) return CommandResult::Done();
    session.Views().CloseActive();
    return CommandResult::Unreadable("no result table opens with " + words[0].value);
}

// ---- activation

struct SectionName {
    std::string_view name;
    ActiveSection section;
};
constexpr SectionName kSections[] = {
    {"objects", ActiveSection::Objects}, {"kinds", ActiveSection::Kinds}, {"stories", ActiveSection::Stories},
    {"loads", ActiveSection::Loads},     {"parts", ActiveSection::Parts}, {"steps", ActiveSection::Steps},
    {"last", ActiveSection::Last},
};

/// What a script enters in the sections that it names.
using Entries = std::map<ActiveSection, std::vector<ScriptWord>>;

bool ReadEntries(ScriptWords words, Entries& entries) {
    std::vector<ScriptWord>* section = nullptr;
    for (const ScriptWord& word : words) {
        const auto named = std::find_if(std::begin(kSections), std::end(kSections), [&](const SectionName& name) {
            return !word.quoted && word.value == name.name;
        });
        if (named != std::end(kSections)) {
            section = &entries[named->section];
        } else if (section) {
            section->push_back(word);
        } else {
            return false;
        }
    }
    return true;
}

/// Ticks what is named, and nothing else; the first name that the list lacks, or none.
std::optional<std::string> Tick(CTBActiveNewDlg& dialog, ActiveSection section, const std::vector<ScriptWord>& words) {
    const bool all = words.size() == 1 && !words[0].quoted && words[0].value == "all";
    dialog.SetSearch(section, {});
    dialog.TickFound(section, all);
    if (all) return std::nullopt;
    for (const ScriptWord& word : words) {
        const auto& items = dialog.Items(section);
        const auto found =
            std::find_if(items.begin(), items.end(), [&](const auto& item) { return item.name == word.value; });
        if (found == items.end()) return word.value;
        dialog.Tick(section, static_cast<std::size_t>(found - items.begin()), true);
    }
    return std::nullopt;
}

/// What the user does in the dialog; the reason when he cannot.
std::optional<std::string> Enter(CTBActiveNewDlg& dialog, const Entries& entries) {
    for (const auto& [section, words] : entries) {
        if (!dialog.IsShown(section))
            return "the table has no section " + std::string(kSections[static_cast<std::size_t>(section)].name);
        if (section != ActiveSection::Objects) {
            if (const auto missing = Tick(dialog, section, words)) return "there is no entry " + *missing;
            continue;
        }
        dialog.objectText.clear();
        for (const ScriptWord& word : words) dialog.objectText += word.value + " ";
        if (words.size() == 1 && words[0].value == "all") dialog.SelectAllObjects();
    }
    return std::nullopt;
}

/// activate loads "DL" "LL" objects 1 3-5, activate ok, activate cancel: what the user does in the dialog that waits,
/// or that the command opens.
CommandResult Activate(ScriptSession& session, ScriptWords words) {
    auto* view = dynamic_cast<CTBPostView*>(session.Views().Active());
    if (!view) return CommandResult::Refused("no result table is open");
    const bool cancels = words.size() == 1 && words[0].value == "cancel";
    const bool accepts = words.size() == 1 && words[0].value == "ok";
    Entries entries;
    if (words.empty() || (!cancels && !accepts && !ReadEntries(words, entries))) return CommandResult::Misused();
    bool opened = false;
    std::optional<std::string> fault;
    session.Host().dialogs.users.push_back([&](velda::ModalDialog& shown) {
        auto* dialog = dynamic_cast<CTBActiveNewDlg*>(&shown);
        if (!dialog) return false;
        opened = true;
        fault = Enter(*dialog, entries);
        return !cancels && !fault;
    });
    session.Host().queue.Deliver();
    if (!opened) view->OnActiveNewDlg();
    if (!opened) {
        session.Host().dialogs.users.pop_back();
        return CommandResult::Refused("the table has nothing to activate");
    }
    if (fault) return CommandResult::Refused(*fault);
    if (const auto message = session.Host().Message()) return CommandResult::Refused(*message);
    return CommandResult::Done();
}

/// What the dialog offers in a section, in quotes, with a star behind what is ticked.
CommandResult ExpectOffered(ScriptSession& session, ScriptWords words) {
    auto* view = dynamic_cast<CTBPostView*>(session.Views().Active());
    if (!view) return CommandResult::Refused("no result table is open");
    const auto named = std::find_if(std::begin(kSections), std::end(kSections), [&](const SectionName& name) {
        return !words.empty() && words[0].value == name.name;
    });
    if (named == std::end(kSections)) return CommandResult::Misused();
    TB_ACTIVE_PARAM param;
    if (!view->GetActivation(param)) return CommandResult::Refused("the table has nothing to activate");
    CTBActiveNewDlg dialog(param, view->GetDB());
    dialog.OnInitDialog();
    std::vector<std::string> expected;
    for (const ScriptWord& word : words.subspan(1)) expected.push_back(word.value);
    std::vector<std::string> found;
    for (const auto& item : dialog.Items(named->section)) found.push_back(item.name + (item.isTicked ? "*" : ""));
    if (named->section == ActiveSection::Objects) found = {dialog.objectText};
    return CommandResult::Compare(QuotedTexts(expected, " "), QuotedTexts(found, " "));
}

using DriftEntries = decltype(CTBSetRMFMiniDlg::entries);

/// The entry of the dialog of drift limits that a word names; null for none.
std::string* EntryOf(DriftEntries& entries, std::string_view name) {
    if (name == "ratio1") return &entries[0].ratio;
    if (name == "denominator1") return &entries[0].denominator;
    if (name == "ratio2") return &entries[1].ratio;
    return name == "denominator2" ? &entries[1].denominator : nullptr;
}

/// dialog drift denominator1=400 ratio1=0.02 ok|cancel: what the user does when the dialog opens next.
CommandResult UseDriftDialog(ScriptSession& session, ScriptWords words) {
    if (words.empty() || (words.back().value != "ok" && words.back().value != "cancel")) {
        return CommandResult::Misused();
    }
    const std::vector<ScriptWord> typed(words.begin(), words.end() - 1);
    DriftEntries none;
    for (const ScriptWord& word : typed) {
        if (!EntryOf(none, word.name)) return CommandResult::Misused();
    }
    session.Host().dialogs.users.push_back([typed, ok = words.back().value == "ok"](velda::ModalDialog& shown) {
        auto* dialog = dynamic_cast<CTBSetRMFMiniDlg*>(&shown);
        if (!dialog) return false;
        for (const ScriptWord& word : typed) *EntryOf(dialog->entries, word.name) = word.value;
        return ok;
    });
    return CommandResult::Done();
}

constexpr ScriptCommand kCommands[] = {
    {"view result", &OpenResultView, "view result OPERATION [N ...]"},
    {"activate", &Activate,
     "activate [loads all|\"A\" ...] [parts ...] [steps ...] [stories ...] [objects all|1 3-5 ...] | ok | cancel"},
    {"dialog drift", &UseDriftDialog, "dialog drift [ratio1=X] [denominator1=X] [ratio2=X] [denominator2=X] ok|cancel"},
    {"expect offered", &ExpectOffered, "expect offered loads|parts|steps|stories|objects \"A*\" \"B\" ..."},
};

}  // namespace

std::span<const ScriptCommand> ResultViewCommands() { return kCommands; }

}  // namespace zt
