#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "zt_db/library/library_rows.h"

namespace zt {

/// The material library: grades of steel, concrete and reinforcing bars by design code. Codes and grades are compared
/// exactly. Elasticity and strengths are in N/mm2, density in kgf/m3, thermal coefficients in 1/C. Every operation that
/// fills a list empties it first and returns 0 when it stays empty; lists are in the order of the library. What asks
/// for one thing returns 0, and leaves its argument alone, when there is no such thing.
class CMatlDB {
public:
    /// The one material library of the program, which every document has.
    static CMatlDB& Shared();

    /// The codes for a short material type: "S" steel, "C" concrete, "SRC" both; other types have none. The selector
    /// tells which codes of a composite come first, those for steel ("S") or those for concrete ("C").
    static int GetMatlCodeList(std::string_view type, std::string_view selector, std::vector<std::string>& codes);
    /// The short type of a code's materials: "S" or "C".
    static int GetMatlType(std::string_view code, std::string& type);

    static int GetSteelNameList(std::string_view code, std::vector<std::string>& names);
    static int GetConcreteNameList(std::string_view code, std::vector<std::string>& names);
    static int GetSteelData(std::string_view code, std::string_view name, SteelGrade& data);
    static int GetConcreteData(std::string_view code, std::string_view name, ConcreteGrade& data);
    /// Yield strength of a steel at a thickness in mm; 0 for an unknown grade.
    static double GetSteelFy(std::string_view code, std::string_view name, double thickness);

    /// Strengths of the concrete grades of a code, one for each grade.
    static int GetConcfckList(std::string_view code, std::vector<std::string>& strengths);
    static int GetConcfckList(std::string_view code, std::vector<double>& strengths);
    /// Strength of a concrete grade; 0 for an unknown one.
    static double GetMatlConcreteFc(std::string_view code, std::string_view name);
    /// The first grade of a code that has a strength; empty when there is none.
    static std::string GetStrConcName(std::string_view code, double strength);

    // Grades of reinforcing bars. The code is a standard of bars, or a code for concrete that goes with one.

    /// Yield strengths of the grades, one for each grade.
    static int GetRebarfyList(std::string_view code, std::vector<std::string>& strengths);
    static int GetRebarfyList(std::string_view code, std::vector<double>& strengths);
    static int GetRebarNameList(std::string_view code, std::vector<std::string>& names);
    /// Yield strength of a grade; 0 for an unknown one.
    static double GetRebarfyFromRebarName(std::string_view code, std::string_view name);
    /// The first grade that has a yield strength; empty when there is none.
    static std::string GetStrRebarName(std::string_view code, double strength);
    /// The standard of bars that a code stands for; empty for an unknown code.
    static std::string GetRebarStandard(std::string_view code);
};

}  // namespace zt
