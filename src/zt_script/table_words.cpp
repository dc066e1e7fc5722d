#include "zt_script/table_words.h"

#include "velda_lib/number_text.h"
#include "zt_db/core/field_text.h"

namespace zt {
namespace {

/// Numbers of a run are bounded, so that a slip does not fill the memory.
constexpr std::int64_t kLongestRun = 1000000;

bool ReadNumber(std::string_view text, std::int64_t& number) {
    return velda::ReadWholeLong(text, number) && number > 0 && std::in_range<int>(number);
}

bool ReadRun(const std::string& text, std::vector<int>& numbers) {
    const std::size_t dash = text.find('-');
    std::int64_t first = 0;
    if (!ReadNumber(std::string_view(text).substr(0, dash), first)) return false;
    std::int64_t last = first;
    if (dash != std::string::npos && !ReadNumber(std::string_view(text).substr(dash + 1), last)) return false;
    if (last < first || last - first >= kLongestRun) return false;
    for (std::int64_t number = first; number <= last; ++number) numbers.push_back(static_cast<int>(number));
    return true;
}

bool FindByHeader(const velda::CTBGrid& table, const std::string& header, int& col) {
    for (velda::ColumnId id = 0; id < table.Columns().Count(); ++id) {
        if (table.Header().ColumnTitle(static_cast<std::uint32_t>(id)) == header)
            return table.Columns().GetColumnNoFor(id, col);
    }
    return false;
}

bool FindById(const velda::CTBGrid& table, const ScriptWord& word, int& col) {
    std::int64_t id = 0;
    return !word.quoted && word.value.starts_with('#') &&
           velda::ReadWholeLong(std::string_view(word.value).substr(1), id) && std::in_range<int>(id) &&
           table.Columns().GetColumnNoFor(static_cast<velda::ColumnId>(id), col);
}

}  // namespace

CommandResult TableResult(const ScriptSession& session, bool done) {
    return done ? CommandResult::Done() : CommandResult::Refused(session.TableReason());
}

NamedPlace ReadRow(const velda::CTBGrid& table, const ScriptWord& word) {
    NamedPlace place;
    std::int64_t row = 0;
    if (word.quoted || word.assigns || !ReadNumber(word.value, row)) {
        place.fault = CommandResult::Unreadable(word.value + " is no row");
    } else if (std::cmp_greater(row, table.RowCount())) {
        place.fault = CommandResult::Refused("there is no row " + word.value);
    } else {
        place.row = static_cast<int>(row);
    }
    return place;
}

NamedPlace ReadColumn(const velda::CTBGrid& table, const ScriptWord& word) {
    NamedPlace place;
    if (word.assigns || !(FindById(table, word, place.col) || table.Columns().GetColumnNoFor(word.value, place.col) ||
                          FindByHeader(table, word.value, place.col))) {
        place.fault = CommandResult::Unreadable("there is no column " + word.value);
    }
    return place;
}

NamedPlace ReadCell(const velda::CTBGrid& table, const ScriptWord& row, const ScriptWord& column) {
    NamedPlace place = ReadColumn(table, column);
    if (!place.IsRead()) return place;
    NamedPlace inRow = ReadRow(table, row);
    inRow.col = place.col;
    return inRow;
}

bool ReadNumbers(ScriptWords words, std::vector<int>& numbers) {
    for (const ScriptWord& word : words) {
        if (word.quoted || word.assigns || !ReadRun(word.value, numbers)) return false;
    }
    return true;
}

std::string NumbersText(const std::vector<int>& numbers) {
    std::string text;
    for (const int number : numbers) text += (text.empty() ? "" : " ") + std::to_string(number);
    return text.empty() ? "none" : text;
}

bool ReadBarred(ScriptWords words, std::vector<std::string>& texts) {
    if (words.size() % 2 == 0) return false;
    for (std::size_t at = 0; at < words.size(); ++at) {
        const bool isBar = !words[at].quoted && words[at].value == "|";
        if (isBar != (at % 2 == 1) || words[at].assigns) return false;
        if (!isBar) texts.push_back(words[at].value);
    }
    return true;
}

std::string QuotedTexts(std::span<const std::string> texts, std::string_view between) {
    std::string joined;
    for (const std::string& text : texts) {
        if (!joined.empty()) joined += between;
        AppendQuoted(joined, text);
    }
    return joined;
}

velda::ColumnId ColumnIdOf(const velda::CTBGrid& table, int col) {
    velda::ColumnId id = 0;
    table.Columns().GetColumnIDFor(col, id);
    return id;
}

std::vector<int> ShownColumns(const velda::CTBGrid& table) {
    std::vector<int> shown;
    for (int col = 1; col <= table.GetColCount(); ++col) {
        if (!table.IsColumnHidden(col)) shown.push_back(col);
    }
    return shown;
}

}  // namespace zt
