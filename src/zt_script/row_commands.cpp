#include "zt_script/table_words.h"

namespace zt {
namespace {

CommandResult ExpectRows(ScriptSession&, velda::CTBGrid& table, ScriptWords words) {
    if (words.size() != 1) return CommandResult::Misused();
    return CommandResult::Compare(words[0].value, std::to_string(table.RowCount() - (table.HasAppendRow() ? 1 : 0)));
}

CommandResult ExpectAppendRow(ScriptSession&, velda::CTBGrid& table, ScriptWords words) {
    if (words.size() != 1 || (words[0].value != "yes" && words[0].value != "no")) return CommandResult::Misused();
    return CommandResult::Compare(words[0].value, table.HasAppendRow() ? "yes" : "no");
}

CommandResult ExpectColumns(ScriptSession&, velda::CTBGrid& table, ScriptWords words) {
    std::vector<std::string> expected;
    if (!ReadBarred(words, expected)) return CommandResult::Misused();
    std::vector<std::string> found;
    for (const int col : ShownColumns(table)) found.push_back(table.Columns().Info(ColumnIdOf(table, col)).title);
    return CommandResult::Compare(QuotedTexts(expected, " | "), QuotedTexts(found, " | "));
}

/// expect row 2: "W200" | "200"
CommandResult ExpectRow(ScriptSession&, velda::CTBGrid& table, ScriptWords words) {
    std::vector<std::string> expected;
    if (words.empty() || !words[0].value.ends_with(':') || !ReadBarred(words.subspan(1), expected)) {
        return CommandResult::Misused();
    }
    ScriptWord number = words[0];
    number.value.pop_back();
    const NamedPlace row = ReadRow(table, number);
    if (!row.IsRead()) return row.fault;
    std::vector<std::string> found;
    for (const int col : ShownColumns(table)) found.push_back(table.GetValueRowCol(row.row, col));
    return CommandResult::Compare(QuotedTexts(expected, " | "), QuotedTexts(found, " | "));
}

CommandResult ExpectCell(ScriptSession&, velda::CTBGrid& table, ScriptWords words) {
    if (words.size() != 3) return CommandResult::Misused();
    const NamedPlace cell = ReadCell(table, words[0], words[1]);
    if (!cell.IsRead()) return cell.fault;
    return CommandResult::Compare(words[2].value, table.GetValueRowCol(cell.row, cell.col));
}

CommandResult ExpectHeader(ScriptSession&, velda::CTBGrid& table, ScriptWords words) {
    if (words.size() != 2) return CommandResult::Misused();
    const NamedPlace column = ReadColumn(table, words[0]);
    if (!column.IsRead()) return column.fault;
    const auto id = static_cast<std::uint32_t>(ColumnIdOf(table, column.col));
    return CommandResult::Compare(words[1].value, table.Header().ColumnTitle(id));
}

/// The texts of the lines of a choice list.
CommandResult ExpectChoices(ScriptSession&, CTBCommonWnd& table, ScriptWords words) {
    if (words.size() < 2) return CommandResult::Misused();
    const NamedPlace cell = ReadCell(table, words[0], words[1]);
    if (!cell.IsRead()) return cell.fault;
    std::vector<std::string> expected;
    for (const ScriptWord& word : words.subspan(2)) expected.push_back(word.value);
    const velda::ChoiceList choices = table.ChoicesOf(cell.row, cell.col);
    std::vector<std::string> found;
    for (std::size_t line = 0; line < choices.Count(); ++line) found.emplace_back(choices.Text(line));
    return CommandResult::Compare(QuotedTexts(expected, " "), QuotedTexts(found, " "));
}

CommandResult ExpectRedraws(ScriptSession& session, velda::CTBGrid&, ScriptWords words) {
    if (words.size() != 1) return CommandResult::Misused();
    return CommandResult::Compare(words[0].value, std::to_string(session.Views().RedrawsSinceMark()));
}

constexpr ScriptCommand kCommands[] = {
    {"expect rows", &OnGrid<&ExpectRows>, "expect rows N"},
    {"expect append row", &OnGrid<&ExpectAppendRow>, "expect append row yes|no"},
    {"expect columns", &OnGrid<&ExpectColumns>, "expect columns \"A\" | \"B\" ..."},
    {"expect row", &OnGrid<&ExpectRow>, "expect row R: \"a\" | \"b\" ..."},
    {"expect cell", &OnGrid<&ExpectCell>, "expect cell R COL \"text\""},
    {"expect header", &OnGrid<&ExpectHeader>, "expect header COL \"text\""},
    {"expect choices", &OnTable<&ExpectChoices>, "expect choices R COL \"a\" \"b\" ..."},
    {"expect redraws", &OnGrid<&ExpectRedraws>, "expect redraws N"},
};

}  // namespace

std::span<const ScriptCommand> RowCommands() { return kCommands; }

}  // namespace zt
