#include "zt_db/library/steel_data_tool.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

#include "zt_db/doc/doc.h"
#include "zt_db/library/db_lib.h"
#include "zt_db/library/library.h"

namespace zt {
namespace {

/// Index of mm among the length units and of N among the force units.
constexpr int kNewton = 2;
constexpr int kMillimetre = 1;

T_SECT_SECTBASE_D BaseOf(const LibrarySection& section) {
    T_SECT_SECTBASE_D base{.dbName = section.standard, .sectName = section.name};
    std::transform(section.size.begin(), section.size.end(), base.size.begin(), [](double size) {
        return CUnitCtrl::ConvValueTgtUnit2CurUnit(Unit::Length, kNewton, kMillimetre, size);
    });
    return base;
}

/// How the name of a shape is made: a word before the shape's code, the sizes, and what stands before the last.
struct NameForm {
    std::string_view code;
    std::string_view before;
    std::string_view sizes;
    char last;
};
constexpr NameForm kNameForms[] = {{"L", "", "0123", 'x'},   {"C", "", "0123", 'x'}, {"H", "B", "0123", '/'},
                                   {"T", "", "0123", 'x'},   {"B", "", "0123", 'x'}, {"P", "", "01", 'x'},
                                   {"SR", "", "0", 'x'},     {"SB", "", "01", 'x'},  {"2L", "", "0123", 'x'},
                                   {"2C", "", "01236", '/'}, {"CC", "", "0123", 'x'}};

std::string Fixed(double value, int places) {
    char text[400];
    const auto [end, error] = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, places);
    return {text, end};
}

std::string WithExponent(double value) {
    const auto exponent = static_cast<int>(Fixed(value, 0).size()) - 1;
    return Fixed(value / std::pow(10.0, exponent), 6) + "e+" + std::to_string(exponent);
}

}  // namespace

std::string FoldedForSearch(std::string_view text) {
    std::string folded;
    for (const char c : text) {
        if (c == ' ' || c == '\t') continue;
        folded += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    return folded;
}

int CDB_SteelDataTool::GetSectionDBList(std::vector<std::string>& standards) {
    standards.clear();
    const auto library = Library::Current();
    for (const LibrarySection& section : library->Rows<LibrarySection>()) {
        const auto same = std::find(standards.rbegin(), standards.rend(), section.standard);
        if (same == standards.rend()) standards.push_back(section.standard);
    }
    return standards.empty() ? 0 : 1;
}

int CDB_SteelDataTool::GetSteelList_SectionListByDB(std::vector<std::string>& names) {
    return GetSteelList_SectionListByDB(CDBLib::GetDesignCodes().sectionStandard, names);
}

int CDB_SteelDataTool::GetSteelList_SectionListByDB(std::string_view standard, std::vector<std::string>& names,
                                                    std::string_view shape) {
    names.clear();
    const auto library = Library::Current();
    for (const LibrarySection& section : library->Rows<LibrarySection>()) {
        if (section.standard == standard && (shape.empty() || section.shape == shape)) names.push_back(section.name);
    }
    return names.empty() ? 0 : 1;
}

int CDB_SteelDataTool::SearchSections(std::string_view text, std::vector<T_SECT_SECTBASE_D>& sections) {
    sections.clear();
    const std::string wanted = FoldedForSearch(text);
    const auto library = Library::Current();
    for (const LibrarySection& section : library->Rows<LibrarySection>()) {
        if (FoldedForSearch(section.name).find(wanted) != std::string::npos) sections.push_back(BaseOf(section));
    }
    return sections.empty() ? 0 : 1;
}

int CDB_SteelDataTool::GetSectionProperty(std::string_view name, T_SECT_SECTBASE_D& base) {
    if (GetSectionProperty(CDBLib::GetDesignCodes().sectionStandard, name, base)) return 1;
    const auto library = Library::Current();
    const std::vector<LibrarySection>& rows = library->Rows<LibrarySection>();
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const auto& row) { return row.name == name; });
    if (found == rows.end()) return 0;
    base = BaseOf(*found);
    return 1;
}

int CDB_SteelDataTool::GetSectionProperty(std::string_view standard, std::string_view name, T_SECT_SECTBASE_D& base) {
    const auto library = Library::Current();
    const LibrarySection* found = library->Find<LibrarySection>(standard, name);
    if (found) base = BaseOf(*found);
    return found ? 1 : 0;
}

std::string CDB_SteelDataTool::GetSectionShape(std::string_view standard, std::string_view name) {
    const auto library = Library::Current();
    const LibrarySection* found = library->Find<LibrarySection>(standard, name);
    return found ? found->shape : std::string();
}

bool CDB_SteelDataTool::GetSectionSize(std::string_view name, T_GUMD_STL_SECTION& section) {
    T_SECT_SECTBASE_D base;
    if (!GetSectionProperty(name, base)) {
        section.size.fill(0.0);
        return false;
    }
    section.name = base.sectName;
    section.useDb = !base.dbName.empty();
    if (!CDBDoc::m_pDBDoc) return false;
    section.size = base.size;
    return true;
}

std::string CDB_SteelDataTool::CreateSectionName(const T_GUMD_STL_SECTION& section) {
    const auto form = std::find_if(std::begin(kNameForms), std::end(kNameForms),
                                   [&](const NameForm& candidate) { return candidate.code == section.shape; });
    if (section.useDb || form == std::end(kNameForms)) return section.name;
    std::string name = std::string(form->before) + std::string(form->code) + '-';
    for (std::size_t i = 0; i < form->sizes.size(); ++i) {
        if (i > 0) name += i + 1 == form->sizes.size() ? form->last : 'x';
        name += RemoveZeroUnderDecimalPoint(section.size[static_cast<std::size_t>(form->sizes[i] - '0')]);
    }
    return name;
}

std::string CDB_SteelDataTool::RemoveZeroUnderDecimalPoint(double value) {
    constexpr double kLeast = 1e-9;
    constexpr double kMost = 1e9;
    const double size = std::abs(value);
    if (size < kLeast) return "0";
    std::string text = size > kMost ? WithExponent(size) : Fixed(size, size >= 100.0 ? 0 : size >= 10.0 ? 2 : 3);
    if (value < 0.0) text.insert(0, 1, '-');
    const std::size_t point = text.find('.');
    if (point == std::string::npos) return text;
    // Only a digit other than 0 ends the cut, also in an exponent.
    const std::size_t last = text.find_last_of("123456789");
    text.resize(last == std::string::npos || last < point ? point : last + 1);
    return text;
}

int CDB_SteelDataTool::GetMaterialList_HighTensionBolt(std::vector<std::string>& names) {
    names.clear();
    const auto library = Library::Current();
    for (const LibraryBolt& bolt : library->Rows<LibraryBolt>()) {
        const bool wanted = bolt.category == "high tension material";
        if (wanted && std::find(names.begin(), names.end(), bolt.name) == names.end()) names.push_back(bolt.name);
    }
    return names.empty() ? 0 : 1;
}

}  // namespace zt
