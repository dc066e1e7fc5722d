#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "zt_db/records/sect.h"

namespace zt {

/// A steel section as design records hold it. The sizes are in the current unit, in the meaning of the shape.
struct T_GUMD_STL_SECTION {
    std::string shape{};
    std::string name{};
    bool useDb = false;  ///< the sizes come from the section library and the name is its key
    std::array<double, 9> size{};
    bool operator==(const T_GUMD_STL_SECTION&) const = default;
};

/// The library of steel sections. Names are compared exactly; sizes are in the current unit, and in mm while no
/// document is open. What fills a list empties it first and returns 0 when it stays empty.
class CDB_SteelDataTool {
public:
    /// The standards that have sections, in the order of the library.
    static int GetSectionDBList(std::vector<std::string>& standards);
    /// The sections of a standard, or of the current one; with a shape code only those of the shape.
    static int GetSteelList_SectionListByDB(std::vector<std::string>& names);
    static int GetSteelList_SectionListByDB(std::string_view standard, std::vector<std::string>& names,
                                            std::string_view shape = {});
    /// The sections whose names have a text in them, whatever its case and blanks, of all standards.
    static int SearchSections(std::string_view text, std::vector<T_SECT_SECTBASE_D>& sections);

    /// The section of a name: that of the current standard, or else the first of the library. 0, and `base` stays as it
    /// is, when there is none.
    static int GetSectionProperty(std::string_view name, T_SECT_SECTBASE_D& base);
    static int GetSectionProperty(std::string_view standard, std::string_view name, T_SECT_SECTBASE_D& base);
    /// The shape code of a section; empty for an unknown one.
    static std::string GetSectionShape(std::string_view standard, std::string_view name);
    /// Takes name and sizes of a library section into a section. False for an unknown name, and the sizes are 0 then;
    /// false also while no document is open.
    static bool GetSectionSize(std::string_view name, T_GUMD_STL_SECTION& section);

    /// The name of a section: as it stands when it comes from the library or its shape has no sizes, otherwise made of
    /// its sizes, such as "BH-400x200x8/13".
    static std::string CreateSectionName(const T_GUMD_STL_SECTION& section);
    /// A size as names show it: three places at most, two from 10 on, none from 100 on, without zeros at the end.
    static std::string RemoveZeroUnderDecimalPoint(double value);

    /// Grades of high tension bolts, each once.
    static int GetMaterialList_HighTensionBolt(std::vector<std::string>& names);
};

/// A text as searches compare it: without blanks and in small letters.
std::string FoldedForSearch(std::string_view text);

}  // namespace zt
