#include <algorithm>

#include "velda_lib/number_text.h"
#include "zt_script/table_words.h"
#include "zt_tb/model/tb_pre_view.h"
#include "zt_tb/model/tb_prop_view.h"

namespace zt {
namespace {

// ---- views

/// view prop THIK, view prop 3: all records where no node is selected; with `selected` those of the selection alone.
CommandResult OpenPropView(ScriptSession& session, ScriptWords words) {
    const bool selected = words.size() == 2 && words[1].value == "selected";
    if (words.size() != 1 && !selected) return CommandResult::Misused();
    for (const CTBPropView::TableEntry& entry : CTBPropView::Tables()) {
        if (words[0].value != entry.mnemonic && words[0].value != std::to_string(entry.kind)) continue;
        auto view = std::make_unique<CTBPropView>();
        selected ? view->SetTable(entry.kind) : view->OpenProperties(entry.kind);
        session.OpenView(std::move(view));
        return CommandResult::Done();
    }
    return CommandResult::Unreadable("the property view has no table " + words[0].value);
}

/// A kind by its number, or by the mnemonic of its table.
bool ReadTableKind(const std::string& word, int& kind) {
    std::int64_t number = 0;
    const TableKindEntry* entry = FindTableKind(word);
    if (!entry && (!velda::ReadWholeLong(word, number) || !std::in_range<int>(number))) return false;
    kind = entry ? entry->kind : static_cast<int>(number);
    return true;
}

/// view pre PONT, view pre 1, view pre 26 initial
CommandResult OpenPreView(ScriptSession& session, ScriptWords words) {
    const bool initial = words.size() == 2 && words[1].value == "initial";
    if (words.size() != 1 && !initial) return CommandResult::Misused();
    int kind = 0;
    if (!ReadTableKind(words[0].value, kind)) {
        return CommandResult::Unreadable("the model table view has no kind " + words[0].value);
    }
    auto view = std::make_unique<CTBPreView>();
    if (initial) {
        view->StoreTableKind(kind);
        view->OnInitialUpdate();
    } else {
        view->SetTable(kind, nullptr);
    }
    session.OpenView(std::move(view));
    return CommandResult::Done();
}

CommandResult ActivateView(ScriptSession& session, ScriptWords words) {
    std::int64_t number = 0;
    if (words.size() != 1 || !velda::ReadWholeLong(words[0].value, number)) return CommandResult::Misused();
    return session.Views().Activate(number) ? CommandResult::Done()
                                            : CommandResult::Refused("there is no view " + words[0].value);
}

CommandResult CloseView(ScriptSession& session, ScriptWords words) {
    if (!words.empty()) return CommandResult::Misused();
    if (session.Views().IsEmpty()) return CommandResult::Refused("no view is open");
    velda::Outcome left = session.LeaveRows();
    if (left) session.Views().CloseActive();
    return CommandResult::Of(left);
}

CommandResult ExpectOpen(ScriptSession& session, ScriptWords words) {
    if (!words.empty()) return CommandResult::Misused();
    return CommandResult::Compare("open", session.Views().IsEmpty() ? "closed" : "open");
}

CommandResult ExpectClosed(ScriptSession& session, ScriptWords words) {
    if (!words.empty()) return CommandResult::Misused();
    return CommandResult::Compare("closed", session.Views().IsEmpty() ? "closed" : "open");
}

// ---- what a view shows

using ViewFunction = CommandResult (*)(CTBView& view, ScriptWords words);

/// Runs a command on the active view; refused while there is none.
template <ViewFunction run>
CommandResult OnView(ScriptSession& session, ScriptWords words) {
    CTBView* view = session.Views().Active();
    return view ? run(*view, words) : CommandResult::Refused("no view is open");
}

std::vector<std::string> TabLabels(const CTBView& view) {
    std::vector<std::string> labels;
    for (int tab = 0; tab < view.GetTabCount(); ++tab) labels.push_back(view.GetTabLabel(tab));
    return labels;
}

/// tab "Thickness", tab 1
CommandResult ChooseTab(CTBView& view, ScriptWords words) {
    if (words.size() != 1) return CommandResult::Misused();
    std::int64_t number = 0;
    if (words[0].quoted || !velda::ReadWholeLong(words[0].value, number)) {
        const std::vector<std::string> labels = TabLabels(view);
        number = std::find(labels.begin(), labels.end(), words[0].value) - labels.begin() + 1;
    }
    if (number < 1 || number > view.GetTabCount()) {
        return CommandResult::Refused("there is no tab " + words[0].value);
    }
    view.SetCurrentTab(static_cast<int>(number - 1));
    return CommandResult::Done();
}

CommandResult ExpectTabs(CTBView& view, ScriptWords words) {
    std::vector<std::string> expected;
    for (const ScriptWord& word : words) expected.push_back(word.value);
    return CommandResult::Compare(QuotedTexts(expected, " "), QuotedTexts(TabLabels(view), " "));
}

CommandResult ExpectActiveTab(CTBView& view, ScriptWords words) {
    if (words.size() != 1) return CommandResult::Misused();
    const bool hasTabs = view.GetTabCount() > 0;
    return CommandResult::Compare(words[0].value, hasTabs ? view.GetTabLabel(view.GetCurrentTab()) : std::string());
}

CommandResult ExpectTitle(CTBView& view, ScriptWords words) {
    if (words.size() != 1) return CommandResult::Misused();
    return CommandResult::Compare(words[0].value, view.GetTitle());
}

// ---- what the application tells all views

CommandResult SendHint(ScriptSession& session, ScriptWords words) {
    std::int64_t code = 0;
    if (words.empty() || words.size() > 2 || !velda::ReadWholeLong(words[0].value, code) || !std::in_range<int>(code)) {
        return CommandResult::Misused();
    }
    T_UPDATE_HINT hint;
    if (words.size() == 2) hint.text = words[1].value;
    session.Doc().UpdateAllViews(nullptr, static_cast<int>(code), &hint);
    return CommandResult::Done();
}

CommandResult SetMode(ScriptSession& session, ScriptWords words) {
    if (words.size() != 1 || (words[0].value != "pre" && words[0].value != "post")) return CommandResult::Misused();
    if (words[0].value == "pre") {
        session.Doc().SetModePre();
    } else {
        session.Doc().SetModePost();
    }
    return CommandResult::Done();
}

CommandResult SetExecuted(ScriptSession& session, ScriptWords words) {
    if (words.size() != 1 || (words[0].value != "on" && words[0].value != "off")) return CommandResult::Misused();
    session.Doc().SetExcuted(words[0].value == "on" ? 1 : 0);
    T_UPDATE_HINT hint;
    session.Doc().UpdateAllViews(nullptr, HintCode::Changed1, &hint);
    return CommandResult::Done();
}

constexpr ScriptCommand kCommands[] = {
    {"view prop", &OpenPropView, "view prop THIK|3 [selected]"},
    {"view pre", &OpenPreView, "view pre PONT|1 [initial]"},
    {"view", &ActivateView, "view N"},
    {"view close", &CloseView, "view close"},
    {"expect open", &ExpectOpen, "expect open"},
    {"expect closed", &ExpectClosed, "expect closed"},
    {"tab", &OnView<&ChooseTab>, "tab \"Title\"|N"},
    {"expect tabs", &OnView<&ExpectTabs>, "expect tabs \"A\" \"B\" ..."},
    {"expect active tab", &OnView<&ExpectActiveTab>, "expect active tab \"A\""},
    {"expect title", &OnView<&ExpectTitle>, "expect title \"Text\""},
    {"hint", &SendHint, "hint CODE [\"text\"]"},
    {"mode", &SetMode, "mode pre|post"},
    {"executed", &SetExecuted, "executed on|off"},
};

}  // namespace

std::span<const ScriptCommand> ViewCommands() { return kCommands; }

}  // namespace zt
