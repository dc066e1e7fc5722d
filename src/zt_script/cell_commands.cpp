#include <algorithm>

#include "velda_util/edit/key_chord.h"
#include "velda_util/result/tb_core.h"
#include "zt_script/table_words.h"

namespace zt {
namespace {

// ---- what the user does

CommandResult GoToCell(ScriptSession& session, velda::CTBGrid& table, ScriptWords words) {
    if (words.size() != 2) return CommandResult::Misused();
    const NamedPlace cell = ReadCell(table, words[0], words[1]);
    if (!cell.IsRead()) return cell.fault;
    if (table.SetCurrentCell(cell.row, cell.col)) return CommandResult::Done();
    return CommandResult::Refused(session.Host().Warning().value_or("the cell cannot be entered"));
}

/// A key that means nothing where it is pressed does nothing; one that the table refuses with a warning is refused.
CommandResult PressKey(ScriptSession& session, velda::CTBGrid& table, ScriptWords words) {
    const auto chord = words.size() == 1 ? velda::ParseKeyChord(words[0].value) : std::nullopt;
    if (!chord) return CommandResult::Misused();
    const bool done = table.ProcessKey(*chord);
    return TableResult(session, done || !session.Host().Warning());
}

CommandResult TypeText(ScriptSession& session, CTBCommonWnd& table, ScriptWords words) {
    if (words.size() != 1) return CommandResult::Misused();
    return TableResult(session, table.TypeText(words[0].value));
}

CommandResult EditCell(ScriptSession& session, CTBCommonWnd& table, ScriptWords words) {
    if (words.size() != 3) return CommandResult::Misused();
    const NamedPlace cell = ReadCell(table, words[0], words[1]);
    if (!cell.IsRead()) return cell.fault;
    return TableResult(session, table.EditCell(cell.row, cell.col, words[2].value));
}

CommandResult LeaveRow(ScriptSession& session, CTBCommonWnd& table, ScriptWords words) {
    if (!words.empty()) return CommandResult::Misused();
    return TableResult(session, table.LeaveRow());
}

CommandResult DoubleClick(ScriptSession&, CTBCommonWnd& table, ScriptWords words) {
    if (words.size() != 2) return CommandResult::Misused();
    const NamedPlace cell = ReadCell(table, words[0], words[1]);
    if (cell.IsRead()) table.OnLButtonDblClk(cell.row, cell.col);
    return cell.fault;
}

/// click R COL, click R COL "entry": clicks a cell of a result table, and chooses an entry of the list that it offers.
CommandResult Click(ScriptSession& session, velda::CTBGrid& table, ScriptWords words) {
    if (words.size() != 2 && words.size() != 3) return CommandResult::Misused();
    const NamedPlace cell = ReadCell(table, words[0], words[1]);
    if (!cell.IsRead()) return cell.fault;
    auto* results = dynamic_cast<velda::CTBCore*>(&table);
    if (!results) return CommandResult::Refused("cells of records are not clicked");
    velda::HeadlessMenus& menus = session.Host().menus;
    menus.last.reset();
    if (words.size() == 3) menus.texts.push_back(words[2].value);
    session.Host().queue.Run([&] { results->ClickCell(cell.row, cell.col); });
    menus.texts.clear();
    if (words.size() == 2) return CommandResult::Done();
    const bool isOffered = menus.last && std::any_of(menus.last->Items().begin(), menus.last->Items().end(),
                                                     [&](const auto& item) { return item.text == words[2].value; });
    return isOffered ? CommandResult::Done() : CommandResult::Refused("the cell does not offer " + words[2].value);
}

// ---- what comes of it

std::string PlaceText(const velda::CTBGrid& table, int row, int col) {
    if (row < 1) return "no cell";
    return std::to_string(row) + " " + table.Columns().Info(ColumnIdOf(table, col)).title;
}

CommandResult ExpectCurrent(ScriptSession&, velda::CTBGrid& table, ScriptWords words) {
    if (words.size() != 2) return CommandResult::Misused();
    const NamedPlace cell = ReadCell(table, words[0], words[1]);
    if (!cell.IsRead()) return cell.fault;
    int row = 0;
    int col = 0;
    table.GetCurrentCell(row, col);
    return CommandResult::Check(row == cell.row && col == cell.col, PlaceText(table, cell.row, cell.col),
                                PlaceText(table, row, col));
}

std::string EditText(const CTBCommonWnd& table) {
    if (!table.Session().IsRowOpen()) return "browsing";
    return "editing row " + std::to_string(table.PositionOfRow(table.Session().Row()));
}

CommandResult ExpectEditingRow(ScriptSession&, CTBCommonWnd& table, ScriptWords words) {
    if (words.size() != 1) return CommandResult::Misused();
    const NamedPlace row = ReadRow(table, words[0]);
    if (!row.IsRead()) return row.fault;
    return CommandResult::Compare("editing row " + std::to_string(row.row), EditText(table));
}

CommandResult ExpectBrowsing(ScriptSession&, CTBCommonWnd& table, ScriptWords words) {
    if (!words.empty()) return CommandResult::Misused();
    return CommandResult::Compare("browsing", EditText(table));
}

// ---- what the tables told

CommandResult CompareTold(const std::optional<std::string>& told, ScriptWords words) {
    if (words.size() != 1) return CommandResult::Misused();
    return CommandResult::Check(told == words[0].value, words[0].value, told.value_or("none"));
}

CommandResult CompareNotTold(const std::optional<std::string>& told, ScriptWords words) {
    if (!words.empty()) return CommandResult::Misused();
    return CommandResult::Check(!told, "none", told.value_or("none"));
}

CommandResult ExpectWarning(ScriptSession& session, ScriptWords words) {
    return CompareTold(session.Host().Warning(), words);
}
CommandResult ExpectNoWarning(ScriptSession& session, ScriptWords words) {
    return CompareNotTold(session.Host().Warning(), words);
}
CommandResult ExpectMessage(ScriptSession& session, ScriptWords words) {
    return CompareTold(session.Host().Message(), words);
}
CommandResult ExpectNoMessage(ScriptSession& session, ScriptWords words) {
    return CompareNotTold(session.Host().Message(), words);
}

std::string DialogText(ScriptSession& session) {
    const auto& dialog = session.Host().Dialog();
    return dialog ? dialog->name + " " + std::to_string(dialog->key) : "none";
}

CommandResult ExpectDialog(ScriptSession& session, ScriptWords words) {
    if (words.size() != 2) return CommandResult::Misused();
    return CommandResult::Compare(words[0].value + " " + words[1].value, DialogText(session));
}

CommandResult ExpectNoDialog(ScriptSession& session, ScriptWords words) {
    if (!words.empty()) return CommandResult::Misused();
    return CommandResult::Compare("none", DialogText(session));
}

constexpr ScriptCommand kCommands[] = {
    {"cell", &OnGrid<&GoToCell>, "cell R COL"},
    {"key", &OnGrid<&PressKey>, "key CHORD"},
    {"type", &OnTable<&TypeText>, "type \"text\""},
    {"edit", &OnTable<&EditCell>, "edit R COL \"text\""},
    {"leave", &OnTable<&LeaveRow>, "leave"},
    {"doubleclick", &OnTable<&DoubleClick>, "doubleclick R COL"},
    {"click", &OnGrid<&Click>, "click R COL [\"entry\"]"},
    {"expect current", &OnGrid<&ExpectCurrent>, "expect current R COL"},
    {"expect editing row", &OnTable<&ExpectEditingRow>, "expect editing row R"},
    {"expect browsing", &OnTable<&ExpectBrowsing>, "expect browsing"},
    {"expect warning", &ExpectWarning, "expect warning \"text\""},
    {"expect no warning", &ExpectNoWarning, "expect no warning"},
    {"expect message", &ExpectMessage, "expect message \"text\""},
    {"expect report", &ExpectMessage, "expect report \"text\""},
    {"expect no message", &ExpectNoMessage, "expect no message"},
    {"expect dialog", &ExpectDialog, "expect dialog \"NAME\" KEY"},
    {"expect no dialog", &ExpectNoDialog, "expect no dialog"},
};

}  // namespace

std::span<const ScriptCommand> CellCommands() { return kCommands; }

}  // namespace zt
