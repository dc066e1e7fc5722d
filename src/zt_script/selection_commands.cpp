#include <algorithm>

#include "zt_script/table_words.h"

namespace zt {
namespace {

using velda::PositionRange;

// ---- in the table

CommandResult SelectRows(ScriptSession&, velda::CTBGrid& table, ScriptWords words) {
    std::vector<int> rows;
    if (words.empty() || !ReadNumbers(words, rows)) return CommandResult::Misused();
    for (const int row : rows) {
        if (row > table.RowCount()) return CommandResult::Refused("there is no row " + std::to_string(row));
    }
    for (std::size_t first = 0, end = 0; first < rows.size(); first = end) {
        // Neighbours are one range, as they are when the user drags over them.
        for (end = first + 1; end < rows.size() && rows[end] == rows[end - 1] + 1;) ++end;
        const PositionRange range = PositionRange::Rows(rows[first], rows[end - 1]);
        if (first == 0) {
            table.SelectRange(range);
        } else {
            table.AddRange(range);
        }
    }
    return CommandResult::Done();
}

/// select cells 1 "Name" to 3 "Thickness": as the mouse does, with the first cell as the current one where it can be
/// entered.
CommandResult SelectCells(ScriptSession& session, velda::CTBGrid& table, ScriptWords words) {
    if (words.size() != 5 || words[2].value != "to") return CommandResult::Misused();
    const NamedPlace from = ReadCell(table, words[0], words[1]);
    if (!from.IsRead()) return from.fault;
    const NamedPlace to = ReadCell(table, words[3], words[4]);
    if (!to.IsRead()) return to.fault;
    if (!table.CanEnter({from.row, from.col})) {
        table.SelectRange(PositionRange::Of({from.row, from.col}, {to.row, to.col}));
        return CommandResult::Done();
    }
    if (!table.SetCurrentCell(from.row, from.col)) return TableResult(session, false);
    table.ExtendSelection({to.row, to.col});
    return CommandResult::Done();
}

CommandResult ExpectSelectedRows(ScriptSession&, velda::CTBGrid& table, ScriptWords words) {
    std::vector<int> expected;
    if (!ReadNumbers(words, expected)) return CommandResult::Misused();
    std::vector<int> found;
    for (const velda::RowId row : table.Selected().WholeRowIds(table)) found.push_back(table.PositionOfRow(row));
    return CommandResult::Compare(NumbersText(expected), NumbersText(found));
}

/// The keys that the table keeps of its selected rows.
CommandResult ExpectSelectedKeys(ScriptSession&, CTBCommonWnd& table, ScriptWords words) {
    std::vector<int> expected;
    if (!ReadNumbers(words, expected)) return CommandResult::Misused();
    std::vector<std::uint32_t> keys;
    table.GetSelectedKeys(keys);
    return CommandResult::Compare(NumbersText(expected), NumbersText({keys.begin(), keys.end()}));
}

// ---- in the model

/// What can be selected in the model, by the numbers that the user sees.
struct ModelSelection {
    const char* mnemonic;
    void (CViewCtrl::*select)(CDBUpdateConnector*, const std::vector<std::uint32_t>&);
    int (CViewCtrl::*selected)(std::vector<std::uint32_t>&) const;
};
constexpr ModelSelection kNodes{"PONT", &CViewCtrl::SelectPont, &CViewCtrl::GetAllSelectedPont};
constexpr ModelSelection kMembers{"MEMB", &CViewCtrl::SelectMemb, &CViewCtrl::GetAllSelectedMemb};

const RecordStoreBase& StoreOf(ScriptSession& session, const ModelSelection& what) {
    return session.Database().StoreAt(static_cast<std::uint16_t>(session.Database().FindClass(what.mnemonic)));
}

CommandResult SelectInModel(ScriptSession& session, ScriptWords words, const ModelSelection& what) {
    std::vector<int> numbers;
    if (words.empty() || !ReadNumbers(words, numbers)) return CommandResult::Misused();
    std::vector<std::uint32_t> keys;
    for (const int number : numbers) {
        keys.push_back(StoreOf(session, what).KeyOfNumber(static_cast<std::uint32_t>(number)));
        if (keys.back() == 0) return CommandResult::Refused(std::to_string(number) + " is no number in use");
    }
    (session.Database().GetViewCtrl()->*what.select)(nullptr, keys);
    return CommandResult::Done();
}

CommandResult ExpectInModel(ScriptSession& session, ScriptWords words, const ModelSelection& what) {
    std::vector<int> expected;
    if (!ReadNumbers(words, expected)) return CommandResult::Misused();
    std::vector<std::uint32_t> keys;
    (session.Database().GetViewCtrl()->*what.selected)(keys);
    std::vector<int> found;
    for (const std::uint32_t key : keys) found.push_back(static_cast<int>(StoreOf(session, what).NumberOfKey(key)));
    std::sort(found.begin(), found.end());
    return CommandResult::Compare(NumbersText(expected), NumbersText(found));
}

CommandResult SelectNodes(ScriptSession& session, ScriptWords words) { return SelectInModel(session, words, kNodes); }
CommandResult SelectMembers(ScriptSession& session, ScriptWords words) {
    return SelectInModel(session, words, kMembers);
}
CommandResult ExpectNodes(ScriptSession& session, ScriptWords words) { return ExpectInModel(session, words, kNodes); }
CommandResult ExpectMembers(ScriptSession& session, ScriptWords words) {
    return ExpectInModel(session, words, kMembers);
}

/// Nothing is selected any more, neither in the active table nor in the model.
CommandResult SelectNone(ScriptSession& session, ScriptWords words) {
    if (!words.empty()) return CommandResult::Misused();
    if (CTBCommonWnd* table = session.Views().ActiveTable()) table->ClearSelection();
    session.Database().GetViewCtrl()->Select(nullptr, {}, {});
    return CommandResult::Done();
}

constexpr ScriptCommand kCommands[] = {
    {"select rows", &OnGrid<&SelectRows>, "select rows 1 3-5 ..."},
    {"select cells", &OnGrid<&SelectCells>, "select cells R COL to R COL"},
    {"select nodes", &SelectNodes, "select nodes 1 2 ..."},
    {"select members", &SelectMembers, "select members 1 2 ..."},
    {"select none", &SelectNone, "select none"},
    {"expect selected rows", &OnGrid<&ExpectSelectedRows>, "expect selected rows 1 3-5 ..."},
    {"expect selected keys", &OnTable<&ExpectSelectedKeys>, "expect selected keys 1 3-5 ..."},
    {"expect selection nodes", &ExpectNodes, "expect selection nodes 1 2 ..."},
    {"expect selection members", &ExpectMembers, "expect selection members 1 2 ..."},
};

}  // namespace

std::span<const ScriptCommand> SelectionCommands() { return kCommands; }

}  // namespace zt
