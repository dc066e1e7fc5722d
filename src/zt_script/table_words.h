#pragma once

#include <span>
#include <string>

#include "zt_script/command.h"
#include "zt_script/script_session.h"

namespace zt {

/// A command on the active table.
using TableFunction = CommandResult (*)(ScriptSession& session, CTBCommonWnd& table, ScriptWords words);

/// Runs a command on the active table; refused while there is none.
template <TableFunction run>
CommandResult OnTable(ScriptSession& session, ScriptWords words) {
    CTBCommonWnd* table = session.Views().ActiveTable();
    return table ? run(session, *table, words) : CommandResult::Refused("no table is open");
}

/// A command on the active table, of records or of results.
using GridFunction = CommandResult (*)(ScriptSession& session, velda::CTBGrid& table, ScriptWords words);
template <GridFunction run>
CommandResult OnGrid(ScriptSession& session, ScriptWords words) {
    velda::CTBGrid* table = session.Views().ActiveGrid();
    return table ? run(session, *table, words) : CommandResult::Refused("no table is open");
}

/// The result of what a table was asked for; refused with the reason that the table gave.
CommandResult TableResult(const ScriptSession& session, bool done);

/// A place in a table as a script names it. While it could not be read, `fault` is what the command results in.
struct NamedPlace {
    int row = 0;
    int col = 0;
    CommandResult fault{};

    bool IsRead() const { return fault.kind == CommandResult::Kind::Done; }
};

/// Rows count from 1 and end with the append row, where one is shown. A column is named by its title, with or without
/// its unit, or by "#" and its identifier; of equal titles the first declared column counts.
NamedPlace ReadRow(const velda::CTBGrid& table, const ScriptWord& word);
NamedPlace ReadColumn(const velda::CTBGrid& table, const ScriptWord& word);
/// The cell of a row and a column.
NamedPlace ReadCell(const velda::CTBGrid& table, const ScriptWord& row, const ScriptWord& column);

/// Reads numbers and runs of numbers, "1 3-5"; false for anything else, and for a run that goes down.
bool ReadNumbers(ScriptWords words, std::vector<int>& numbers);
std::string NumbersText(const std::vector<int>& numbers);

/// Reads texts with bare bars between them: "a" | "b".
bool ReadBarred(ScriptWords words, std::vector<std::string>& texts);
/// Texts in quotes, with `between` between them.
std::string QuotedTexts(std::span<const std::string> texts, std::string_view between);

/// Identifier of a grid column.
velda::ColumnId ColumnIdOf(const velda::CTBGrid& table, int col);
/// Grid columns that are shown, in their order.
std::vector<int> ShownColumns(const velda::CTBGrid& table);

}  // namespace zt
