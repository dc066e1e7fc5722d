#include <algorithm>

#include "velda_lib/number_text.h"
#include "zt_script/table_words.h"

namespace zt {
namespace {

using velda::CGXStyle;

// ---- states of cells and columns

using CellState = bool (*)(const velda::CTBGrid& table, int row, int col);

/// Whether a cell is in a state; `holds` and `fails` are the words for it.
CommandResult CheckCell(const velda::CTBGrid& table, ScriptWords words, CellState state, const char* holds,
                        const char* fails) {
    if (words.size() != 2) return CommandResult::Misused();
    const NamedPlace cell = ReadCell(table, words[0], words[1]);
    if (!cell.IsRead()) return cell.fault;
    return CommandResult::Compare(holds, state(table, cell.row, cell.col) ? holds : fails);
}

bool IsEnabled(const velda::CTBGrid& table, int row, int col) { return table.IsEnabled(row, col); }
bool IsDisabled(const velda::CTBGrid& table, int row, int col) { return !table.IsEnabled(row, col); }
bool IsReadOnly(const velda::CTBGrid& table, int row, int col) { return table.IsReadOnly(row, col); }
bool IsEditable(const velda::CTBGrid& table, int row, int col) {
    const auto* records = dynamic_cast<const CTBCommonWnd*>(&table);
    return table.IsEnabled(row, col) && !table.IsReadOnly(row, col) && records && !records->IsEditModeLocked();
}

CommandResult ExpectEnabled(ScriptSession&, velda::CTBGrid& table, ScriptWords words) {
    return CheckCell(table, words, &IsEnabled, "enabled", "disabled");
}
CommandResult ExpectDisabled(ScriptSession&, velda::CTBGrid& table, ScriptWords words) {
    return CheckCell(table, words, &IsDisabled, "disabled", "enabled");
}
CommandResult ExpectReadOnly(ScriptSession&, velda::CTBGrid& table, ScriptWords words) {
    return CheckCell(table, words, &IsReadOnly, "readonly", "not readonly");
}
CommandResult ExpectEditable(ScriptSession&, CTBCommonWnd& table, ScriptWords words) {
    return CheckCell(table, words, &IsEditable, "editable", "not editable");
}

CommandResult CheckColumn(const velda::CTBGrid& table, const ScriptWord& word, const char* expected) {
    const NamedPlace column = ReadColumn(table, word);
    if (!column.IsRead()) return column.fault;
    return CommandResult::Compare(expected, table.IsColumnHidden(column.col) ? "hidden" : "shown");
}

CommandResult ExpectHidden(ScriptSession&, velda::CTBGrid& table, ScriptWords words) {
    return words.size() == 1 ? CheckColumn(table, words[0], "hidden") : CommandResult::Misused();
}

/// expect shown COL: the column; expect shown R COL "text": what is drawn in a cell.
CommandResult ExpectShown(ScriptSession&, velda::CTBGrid& table, ScriptWords words) {
    if (words.size() == 1) return CheckColumn(table, words[0], "shown");
    if (words.size() != 3) return CommandResult::Misused();
    const NamedPlace cell = ReadCell(table, words[0], words[1]);
    if (!cell.IsRead()) return cell.fault;
    return CommandResult::Compare(words[2].value, table.GetShownText(cell.row, cell.col));
}

// ---- attributes of styles

std::string YesNo(bool value) { return value ? "yes" : "no"; }

template <std::size_t count, class Value>
std::string NameOf(const char* const (&names)[count], Value value) {
    return names[static_cast<std::size_t>(value)];
}

constexpr const char* kControls[] = {"edit",       "static",       "header",   "checkbox",  "captioncheckbox",
                                     "tabbedlist", "droplist",     "combobox", "checklist", "spin",
                                     "button",     "picturebutton"};

std::string HorizontalText(const CGXStyle& style) {
    constexpr const char* kNames[] = {"left", "center", "right"};
    return NameOf(kNames, style.GetHorizontalAlignment());
}
std::string VerticalText(const CGXStyle& style) {
    switch (style.GetVerticalAlignment()) {
        case velda::VerticalAlignment::Top: return "top";
        case velda::VerticalAlignment::Center: return "center";
        case velda::VerticalAlignment::Bottom: return "bottom";
    }
    return {};
}

/// An attribute of a style as scripts name and write it.
struct StyleName {
    std::string_view name;
    std::string (*text)(const CGXStyle& style);
};
constexpr StyleName kStyles[] = {
    {"bold", [](const CGXStyle& s) { return YesNo(s.GetBold()); }},
    {"wrap", [](const CGXStyle& s) { return YesNo(s.GetWrapText()); }},
    {"allowEnter", [](const CGXStyle& s) { return YesNo(s.GetAllowEnter()); }},
    {"value",
     [](const CGXStyle& s) {
         return std::string(s.GetValueType() == velda::ValueType::Numeric ? "numeric" : "string");
     }},
    {"format",
     [](const CGXStyle& s) { return std::string(s.GetFormat() == velda::NumberFormat::Fixed ? "fixed" : "general"); }},
    {"places", [](const CGXStyle& s) { return velda::FormatLong(s.GetPlaces()); }},
    {"fontSize", [](const CGXStyle& s) { return velda::FormatDouble(s.GetFontSize()); }},
    {"color", [](const CGXStyle& s) { return velda::FormatLong(s.GetTextColor()); }},
    {"interior", [](const CGXStyle& s) { return velda::FormatLong(s.GetInterior()); }},
    {"horizontal", &HorizontalText},
    {"vertical", &VerticalText},
    {"control", [](const CGXStyle& s) { return NameOf(kControls, s.GetControl()); }},
    {"maxLength", [](const CGXStyle& s) { return velda::FormatLong(s.GetMaxLength()); }},
    {"keyColumn", [](const CGXStyle& s) { return s.GetKeyColumn(); }},
    {"textColumn", [](const CGXStyle& s) { return s.GetTextColumn(); }},
    {"third", [](const CGXStyle& s) { return s.GetThirdAttribute(); }},
    {"fourth", [](const CGXStyle& s) { return s.GetFourthAttribute(); }},
    {"minimum", [](const CGXStyle& s) { return s.GetMinimum(); }},
    {"maximum", [](const CGXStyle& s) { return s.GetMaximum(); }},
    {"toolTip", [](const CGXStyle& s) { return s.GetToolTip(); }},
    {"picture", [](const CGXStyle& s) { return s.GetPicture(); }},
};

const StyleName* FindStyle(std::string_view name) {
    const auto found = std::find_if(std::begin(kStyles), std::end(kStyles),
                                    [name](const StyleName& style) { return style.name == name; });
    return found == std::end(kStyles) ? nullptr : &*found;
}

CommandResult ExpectStyle(ScriptSession&, velda::CTBGrid& table, ScriptWords words) {
    if (words.size() < 3) return CommandResult::Misused();
    const NamedPlace cell = ReadCell(table, words[0], words[1]);
    if (!cell.IsRead()) return cell.fault;
    const CGXStyle& style = table.StyleOf(cell.row, cell.col);
    std::string expected;
    std::string found;
    for (const ScriptWord& word : words.subspan(2)) {
        const StyleName* attribute = word.assigns ? FindStyle(word.name) : nullptr;
        if (!attribute) return CommandResult::Unreadable("styles have no " + (word.assigns ? word.name : word.value));
        const std::string between = expected.empty() ? "" : " ";
        expected += between + word.name + "=" + word.value;
        found += between + word.name + "=" + attribute->text(style);
    }
    return CommandResult::Compare(expected, found);
}

CommandResult CompareStyle(const velda::CTBGrid& table, ScriptWords words, std::string_view name) {
    if (words.size() != 3) return CommandResult::Misused();
    const NamedPlace cell = ReadCell(table, words[0], words[1]);
    if (!cell.IsRead()) return cell.fault;
    return CommandResult::Compare(words[2].value, FindStyle(name)->text(table.StyleOf(cell.row, cell.col)));
}

CommandResult ExpectColor(ScriptSession&, velda::CTBGrid& table, ScriptWords words) {
    return CompareStyle(table, words, "color");
}
CommandResult ExpectBold(ScriptSession&, velda::CTBGrid& table, ScriptWords words) {
    return CompareStyle(table, words, "bold");
}

constexpr ScriptCommand kCommands[] = {
    {"expect enabled", &OnGrid<&ExpectEnabled>, "expect enabled R COL"},
    {"expect disabled", &OnGrid<&ExpectDisabled>, "expect disabled R COL"},
    {"expect readonly", &OnGrid<&ExpectReadOnly>, "expect readonly R COL"},
    {"expect editable", &OnTable<&ExpectEditable>, "expect editable R COL"},
    {"expect hidden", &OnGrid<&ExpectHidden>, "expect hidden COL"},
    {"expect shown", &OnGrid<&ExpectShown>, "expect shown COL | expect shown R COL \"text\""},
    {"expect color", &OnGrid<&ExpectColor>, "expect color R COL 255"},
    {"expect bold", &OnGrid<&ExpectBold>, "expect bold R COL yes|no"},
    {"expect style", &OnGrid<&ExpectStyle>, "expect style R COL NAME=VALUE ..."},
};

}  // namespace

std::span<const ScriptCommand> LookCommands() { return kCommands; }

}  // namespace zt
