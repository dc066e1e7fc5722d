#include "zt_db/library/db_lib.h"

#include <algorithm>
#include <mutex>

#include "zt_db/library/library.h"
#include "zt_db/library/matl_db.h"

namespace zt {
namespace {

constexpr std::string_view kKoreanBars = "KS D 3504";
constexpr std::string_view kConnectionPlates = "DESIGN";
/// The thinnest bar that serves as main reinforcement in any of the standards, nominal.
constexpr double kMainBar = 9.0;

std::mutex g_mutex;
std::string g_concreteCode;

int BarNames(std::string_view standard, double thinnest, std::vector<std::string>& names) {
    names.clear();
    const auto library = Library::Current();
    for (const LibraryBar& bar : library->Rows<LibraryBar>()) {
        if (bar.standard == standard && bar.diameter >= thinnest) names.push_back(bar.name);
    }
    return names.empty() ? 0 : 1;
}

}  // namespace

int CDBLib::SetDesignCode(std::string_view concreteCode) {
    const auto library = Library::Current();
    if (!library->Find<DesignCodeSet>(concreteCode)) return 0;
    const std::lock_guard lock(g_mutex);
    g_concreteCode = concreteCode;
    return 1;
}

DesignCodeSet CDBLib::GetDesignCodes() {
    const auto library = Library::Current();
    const std::lock_guard lock(g_mutex);
    const DesignCodeSet* current = library->Find<DesignCodeSet>(g_concreteCode);
    return current ? *current : library->Rows<DesignCodeSet>().front();
}

int CDBLib::GetKsRebarNameList(std::vector<std::string>& names) { return BarNames(kKoreanBars, 0.0, names); }

int CDBLib::GetRebarNameListByCode(std::vector<std::string>& names, int mainBars) {
    return BarNames(GetMatlCodeNameRebar(), mainBars ? kMainBar : 0.0, names);
}

int CDBLib::GetRebarSpaceAll(int, std::vector<std::string>& names) {
    names.clear();
    const auto library = Library::Current();
    for (const LibrarySpacing& spacing : library->Rows<LibrarySpacing>()) names.push_back(spacing.name);
    return names.empty() ? 0 : 1;
}

int CDBLib::GetRebarData(std::string_view code, std::string_view name, LibraryBar& bar) {
    if (name.empty()) return 0;
    const std::string standard = CMatlDB::GetRebarStandard(code);
    const auto library = Library::Current();
    const std::vector<LibraryBar>& bars = library->Rows<LibraryBar>();
    const auto found = std::find_if(bars.begin(), bars.end(), [&](const LibraryBar& row) {
        return row.standard == standard && (row.name == name || row.otherName == name);
    });
    if (found == bars.end()) return 0;
    bar = *found;
    return 1;
}

int CDBLib::GetPlateThicknessList(std::string_view standard, std::vector<double>& thicknesses) {
    thicknesses.clear();
    const auto library = Library::Current();
    for (const LibraryPlate& plate : library->Rows<LibraryPlate>()) {
        if (plate.standard == standard) thicknesses.push_back(plate.thickness);
    }
    return thicknesses.empty() ? 0 : 1;
}

int CDBLib::GetPlateThicknessList(std::vector<double>& thicknesses) {
    return GetPlateThicknessList(kConnectionPlates, thicknesses);
}

}  // namespace zt
