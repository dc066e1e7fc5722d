#include "velda_lib/number_text.h"
#include "zt_script/table_words.h"

namespace zt {
namespace {

// ---- rows

/// sort "Name" asc "Thickness" desc
CommandResult Sort(ScriptSession& session, velda::CTBGrid& table, ScriptWords words) {
    if (words.empty() || words.size() % 2 != 0) return CommandResult::Misused();
    std::vector<velda::STBSortItem> items;
    for (std::size_t at = 0; at < words.size(); at += 2) {
        const NamedPlace column = ReadColumn(table, words[at]);
        if (!column.IsRead()) return column.fault;
        const std::string& order = words[at + 1].value;
        if (order != "asc" && order != "desc") return CommandResult::Misused();
        items.push_back({ColumnIdOf(table, column.col), 0, order == "asc" ? 0 : 1});
    }
    return TableResult(session, table.Sort(items));
}

CommandResult Filter(ScriptSession& session, CTBCommonWnd& table, ScriptWords words) {
    if (words.size() != 2) return CommandResult::Misused();
    const NamedPlace column = ReadColumn(table, words[0]);
    if (!column.IsRead()) return column.fault;
    return TableResult(session, table.FilterColumn(ColumnIdOf(table, column.col), words[1].value));
}

CommandResult FilterOff(ScriptSession& session, CTBCommonWnd& table, ScriptWords words) {
    return words.empty() ? TableResult(session, table.RemoveFilter()) : CommandResult::Misused();
}

/// Reads the words behind a text, each of which may stand once at most.
bool ReadFlags(ScriptWords words, std::initializer_list<std::pair<std::string_view, bool*>> flags) {
    for (const ScriptWord& word : words) {
        bool known = false;
        for (const auto& [name, value] : flags) {
            if (word.quoted || word.value != name || *value) continue;
            *value = true;
            known = true;
        }
        if (!known) return false;
    }
    return true;
}

/// find "text" [back] [case] [all]: behind the current cell, in its column or in all.
CommandResult Find(ScriptSession& session, velda::CTBGrid& table, ScriptWords words) {
    bool back = false;
    bool matchCase = false;
    bool all = false;
    if (words.empty() || !ReadFlags(words.subspan(1), {{"back", &back}, {"case", &matchCase}, {"all", &all}})) {
        return CommandResult::Misused();
    }
    velda::STBFindStruct find{words[0].value, !all, matchCase, back ? 0 : 1, 0};
    const bool found = table.LeaveRow() && table.FindNext(find);
    velda::CTBGrid::m_Find = find;
    return TableResult(session, found);
}

/// replace "a" "b" [case] [whole]: in the selection, or in the whole table.
CommandResult Replace(ScriptSession& session, CTBCommonWnd& table, ScriptWords words) {
    velda::ReplaceSettings settings;
    if (words.size() < 2 ||
        !ReadFlags(words.subspan(2), {{"case", &settings.matchCase}, {"whole", &settings.wholeCell}})) {
        return CommandResult::Misused();
    }
    settings.text = words[0].value;
    settings.replacement = words[1].value;
    return TableResult(session, table.Replace(settings));
}

// ---- columns

CommandResult MoveColumn(ScriptSession&, velda::CTBGrid& table, ScriptWords words) {
    if (words.size() != 3 || words[1].value != "before") return CommandResult::Misused();
    const NamedPlace column = ReadColumn(table, words[0]);
    if (!column.IsRead()) return column.fault;
    const NamedPlace before = ReadColumn(table, words[2]);
    if (!before.IsRead()) return before.fault;
    if (table.MoveColumn(column.col, before.col)) return CommandResult::Done();
    return CommandResult::Refused("columns of this table are not moved");
}

bool ReadWidth(const ScriptWord& word, int& width) {
    std::int64_t read = 0;
    if (!velda::ReadWholeLong(word.value, read) || !std::in_range<int>(read)) return false;
    width = static_cast<int>(read);
    return true;
}

CommandResult SetWidth(ScriptSession&, velda::CTBGrid& table, ScriptWords words) {
    int width = 0;
    if (words.size() != 2 || !ReadWidth(words[1], width)) return CommandResult::Misused();
    const NamedPlace column = ReadColumn(table, words[0]);
    if (column.IsRead()) table.SetColWidth(column.col, width);
    return column.fault;
}

CommandResult ExpectWidth(ScriptSession&, velda::CTBGrid& table, ScriptWords words) {
    if (words.size() != 2) return CommandResult::Misused();
    const NamedPlace column = ReadColumn(table, words[0]);
    if (!column.IsRead()) return column.fault;
    return CommandResult::Compare(words[1].value, std::to_string(table.GetColWidth(column.col)));
}

CommandResult SetLocked(velda::CTBGrid& table, ScriptWords words, bool locked) {
    if (words.size() != 1) return CommandResult::Misused();
    const NamedPlace column = ReadColumn(table, words[0]);
    if (column.IsRead()) table.SetColLocked(column.col, locked);
    return column.fault;
}

CommandResult LockColumn(ScriptSession&, velda::CTBGrid& table, ScriptWords words) {
    return SetLocked(table, words, true);
}
CommandResult UnlockColumn(ScriptSession&, velda::CTBGrid& table, ScriptWords words) {
    return SetLocked(table, words, false);
}

constexpr ScriptCommand kCommands[] = {
    {"sort", &OnGrid<&Sort>, "sort COL asc|desc ..."},
    {"filter", &OnTable<&Filter>, "filter COL \"text\""},
    {"filter off", &OnTable<&FilterOff>, "filter off"},
    {"find", &OnGrid<&Find>, "find \"text\" [back] [case] [all]"},
    {"replace", &OnTable<&Replace>, "replace \"a\" \"b\" [case] [whole]"},
    {"move", &OnGrid<&MoveColumn>, "move COL before COL"},
    {"width", &OnGrid<&SetWidth>, "width COL N"},
    {"expect width", &OnGrid<&ExpectWidth>, "expect width COL N"},
    {"lock", &OnGrid<&LockColumn>, "lock COL"},
    {"unlock", &OnGrid<&UnlockColumn>, "unlock COL"},
};

}  // namespace

std::span<const ScriptCommand> LayoutCommands() { return kCommands; }

}  // namespace zt
