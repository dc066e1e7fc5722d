#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "zt_db/library/library_rows.h"

namespace zt {

/// Bars, plates and the codes that the design goes by. What fills a list empties it first and returns 0 when it stays
/// empty; lists are in the order of the library. Lengths are in mm, areas in mm2.
class CDBLib {
public:
    /// Makes the codes current that go with a code for concrete: that for steel, the standard of bars and that of
    /// sections. Returns 0, and changes nothing, when the library does not have it. At start it is the first.
    static int SetDesignCode(std::string_view concreteCode);
    static DesignCodeSet GetDesignCodes();
    static std::string GetMatlCodeNameConc() { return GetDesignCodes().concrete; }
    static std::string GetMatlCodeNameStl() { return GetDesignCodes().steel; }
    static std::string GetMatlCodeNameRebar() { return GetDesignCodes().barStandard; }

    /// The bars of KS D 3504.
    static int GetKsRebarNameList(std::vector<std::string>& names);
    /// The bars of the current code; with `mainBars` not 0 without wires and spacers thinner than 9 mm.
    static int GetRebarNameListByCode(std::vector<std::string>& names, int mainBars);
    /// The spacings as "@100". The first argument is part of the interface of this class; no value changes the list.
    static int GetRebarSpaceAll(int, std::vector<std::string>& names);
    /// A bar of a standard or of the code for concrete that goes with one, by its name or its other name; 0 when there
    /// is none.
    static int GetRebarData(std::string_view code, std::string_view name, LibraryBar& bar);

    /// Thicknesses of the plates of a standard.
    static int GetPlateThicknessList(std::string_view standard, std::vector<double>& thicknesses);
    /// The thicknesses that connections are made of.
    static int GetPlateThicknessList(std::vector<double>& thicknesses);
};

}  // namespace zt
