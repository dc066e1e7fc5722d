#include "library_command.h"

#include <iostream>
#include <string_view>
#include <tuple>

#include "velda_lib/number_text.h"
#include "velda_util/pref/config_folder.h"
#include "zt_db/library/library.h"
#include "zt_db/library/steel_data_tool.h"

namespace {

constexpr int kWrongWords = -1;

std::string TextOf(const std::string& value) { return value; }
std::string TextOf(double value) { return value == 0.0 ? std::string() : velda::FormatDouble(value); }

template <class Row>
std::vector<std::string> ValuesOf(Row row) {
    std::vector<std::string> values;
    std::apply([&](const auto&... column) { (values.push_back(TextOf(column.In(row))), ...); },
               zt::LibraryTable<Row>::columns);
    return values;
}

void PrintLine(const std::vector<std::string>& values) {
    std::string line;
    for (const std::string& value : values) (line += value) += '\t';
    line.back() = '\n';
    std::cout << line;
}

template <class Row>
void PrintTitles() {
    std::vector<std::string> titles;
    std::apply([&](const auto&... column) { (titles.emplace_back(column.title), ...); },
               zt::LibraryTable<Row>::columns);
    PrintLine(titles);
}

bool Holds(const std::vector<std::string>& values, const std::string& wanted) {
    for (const std::string& value : values) {
        if (zt::FoldedForSearch(value).find(wanted) != std::string::npos) return true;
    }
    return false;
}

/// Prints the rows of a table that hold a text, below their titles. Returns how many.
template <class Row>
int PrintRows(const zt::Library& library, const std::string& wanted) {
    int count = 0;
    for (const Row& row : library.Rows<Row>()) {
        const std::vector<std::string> values = ValuesOf(row);
        if (!Holds(values, wanted)) continue;
        if (count++ == 0) PrintTitles<Row>();
        PrintLine(values);
    }
    return count;
}

template <class... Row>
int PrintTables(const zt::Library& library, const std::string& wanted) {
    return (0 + ... + PrintRows<Row>(library, wanted));
}

template <class... Row>
void PrintCounts(const zt::Library& library) {
    (PrintLine({std::string(zt::LibraryTable<Row>::kind), std::to_string(library.Rows<Row>().size())}), ...);
}

struct Group {
    std::string_view name;
    int (*print)(const zt::Library&, const std::string&);
};
constexpr Group kGroups[] = {
    {"materials", PrintTables<zt::SteelGrade, zt::ConcreteGrade>},
    {"sections", PrintTables<zt::LibrarySection>},
    {"bars", PrintTables<zt::LibraryBar, zt::LibraryBarGrade, zt::LibrarySpacing>},
    {"bolts", PrintTables<zt::LibraryBolt>},
    {"plates", PrintTables<zt::LibraryPlate>},
};

}  // namespace

int PrintLibrary(const std::vector<std::string>& words) {
    const std::filesystem::path folder = velda::ConfigFolder();
    if (!folder.empty()) {
        for (const std::string& reason : zt::Library::UseFolder(folder / "library")) std::cerr << reason << '\n';
    }
    const auto library = zt::Library::Current();
    if (words.empty()) {
        PrintCounts<zt::SteelGrade, zt::ConcreteGrade, zt::LibrarySection, zt::LibraryBar, zt::LibraryBarGrade,
                    zt::LibrarySpacing, zt::LibraryBolt, zt::LibraryPlate>(*library);
        return 0;
    }
    for (const Group& group : kGroups) {
        if (group.name != words[0] || words.size() > 2) continue;
        const std::string wanted = words.size() > 1 ? zt::FoldedForSearch(words[1]) : "";
        return group.print(*library, wanted) > 0 ? 0 : kNothingFound;
    }
    return kWrongWords;
}
