#include "zt_cmd/property_dialog.h"

#include <algorithm>
#include <regex>
#include <set>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "velda_util/formula/cell_number.h"
#include "zt_cmd/text_rows.h"
#include "zt_db/units/unit_ctrl.h"

namespace zt {
namespace {

/// Records of one class that are named before the others are only counted.
constexpr std::size_t kNamedUsers = 8;

std::string NumberOf(const RecordStoreBase& store, std::uint32_t key) {
    const std::uint32_t number = store.HasNumbers() ? store.NumberOfKey(key) : key;
    return velda::FormatLong(number);
}

std::string UsersText(const RecordStoreBase& store, const std::set<std::uint32_t>& users) {
    std::string names;
    std::size_t named = 0;
    for (const std::uint32_t key : users) {
        if (named++ == kNamedUsers) break;
        names += (names.empty() ? "" : ", ") + NumberOf(store, key);
    }
    if (users.size() > kNamedUsers) names += ", ...";
    return store.DisplayName() + " (" + std::to_string(users.size()) + "): " + names;
}

bool IsNumber(const std::string& text) {
    double number = 0.0;
    return velda::IsValidDoubleNumber(text, number);
}

/// The first cell of a row that is no number; the end where all are.
std::vector<std::string>::const_iterator FirstWord(const TextRow& row) {
    return std::find_if_not(row.cells.begin(), row.cells.end(), &IsNumber);
}

velda::Outcome RefusedLine(const TextRow& row, const std::string& reason) {
    return velda::Outcome::Refused(velda::FormatText("IDS_CMD_LINE", {std::to_string(row.line), reason}));
}

std::string CellCountReason(std::string_view textKey, std::size_t columns) {
    return velda::FormatText(textKey, {std::to_string(columns)});
}

}  // namespace

velda::Outcome PropertyDialog::PasteRows(std::size_t list, std::size_t row, std::size_t column,
                                         const std::string& text) {
    const std::size_t columns = Lists().at(list).columns.size();
    const std::vector<TextRow> rows = TextRows(text);
    for (const TextRow& line : rows) {
        if (column + line.cells.size() <= columns) continue;
        return RefusedLine(line, CellCountReason("IDS_CMD_LINE_TOO_WIDE", columns - column));
    }
    for (const TextRow& line : rows) {
        while (RowCount(list) <= row) AddRow(list);
        for (std::size_t at = 0; at < line.cells.size(); ++at) SetCell(list, row, column + at, line.cells[at]);
        ++row;
    }
    return velda::Outcome::Done();
}

velda::Outcome PropertyDialog::ImportRows(std::size_t list, const std::string& text) {
    const std::size_t columns = Lists().at(list).columns.size();
    std::vector<TextRow> rows = TextRows(text);
    const auto isHeading = [](const TextRow& row) { return FirstWord(row) == row.cells.begin(); };
    rows.erase(rows.begin(), std::find_if_not(rows.begin(), rows.end(), isHeading));
    if (rows.empty()) return velda::Outcome::Refused(velda::CMsgDll::pfuncLoadStr("IDS_CMD_NO_NUMBERS", 0));
    for (const TextRow& row : rows) {
        if (row.cells.size() != columns) return RefusedLine(row, CellCountReason("IDS_CMD_LINE_CELLS", columns));
        const auto word = FirstWord(row);
        if (word == row.cells.end()) continue;
        return RefusedLine(row, velda::InvalidNumberReason(*word, velda::CellNumberKind::Double));
    }
    for (std::size_t row = RowCount(list); row > 0; --row) RemoveRow(list, row - 1);
    std::size_t at = 0;
    for (const TextRow& row : rows) {
        AddRow(list);
        for (std::size_t column = 0; column < columns; ++column) SetCell(list, at, column, row.cells[column]);
        ++at;
    }
    return velda::Outcome::Done();
}

std::string UsesText(const DB_CDataBase& database, const RecordIdentity& identity, std::uint32_t key) {
    std::string text;
    if (key == 0) return text;
    for (std::uint16_t at = 0; at < database.ClassCount(); ++at) {
        const RecordStoreBase& store = database.StoreAt(at);
        if (!store.MayReferTo(identity)) continue;
        std::set<std::uint32_t> users;
        store.ForEachReference([&](std::uint32_t user, const RecordIdentity& target, std::uint32_t used, IfGone) {
            if (used == key && &target == &identity) users.insert(user);
        });
        if (!users.empty()) text += (text.empty() ? "" : "\n") + UsersText(store, users);
    }
    return text;
}

std::string FreeName(const std::string& name, velda::FunctionRef<bool(const std::string&)> isTaken) {
    std::string free = name;
    // A copy of a copy counts on.
    const std::string root = std::regex_replace(name, std::regex(" \\([0-9]+\\)$"), "");
    for (int number = 2; isTaken(free); ++number) free = root + " (" + std::to_string(number) + ")";
    return free;
}

std::string NotANumber(const std::string& label, const std::string& text) {
    return label + ": " + velda::InvalidNumberReason(text, velda::CellNumberKind::Double);
}

std::string FieldLabel(std::string_view textKey, int unit) {
    std::string label = velda::CMsgDll::pfuncLoadStr(textKey, 0);
    std::string unitText;
    if (unit > Unit::None) CUnitCtrl::GetUnitSystem(unit, unitText);
    return unitText.empty() ? label : label + " (" + unitText + ")";
}

}  // namespace zt
