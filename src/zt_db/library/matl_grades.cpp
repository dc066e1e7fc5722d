#include "zt_db/library/matl_grades.h"

#include "zt_db/doc/doc.h"
#include "zt_db/library/matl_db.h"

namespace zt {
namespace {

constexpr MaterialType kTypes[] = {{"S", "Steel"}, {"C", "RC"}, {"SRC", "SRC"}, {"U", "User Defined"}};

double ThermalInCurrentUnits(double perCelsius) {
    CDBDoc* doc = CDBDoc::m_pDBDoc;
    return doc ? doc->GetUnitCtrl()->ToCurrent(Unit::ThermalCoefficient, perCelsius) : perCelsius;
}

}  // namespace

std::span<const MaterialType> MaterialTypes() { return kTypes; }

std::vector<std::string> GradesOfCode(std::string_view code) {
    std::string type;
    std::vector<std::string> grades;
    CMatlDB::GetMatlType(code, type);
    if (type == "S") CMatlDB::GetSteelNameList(code, grades);
    if (type == "C") CMatlDB::GetConcreteNameList(code, grades);
    return grades;
}

bool TakeGrade(std::string_view code, std::string_view name, T_MATL_ANALYSIS& values) {
    const auto take = [&](const auto& grade) {
        values.elasticity = grade.elasticity;
        values.poisson = grade.poisson;
        values.thermal = ThermalInCurrentUnits(grade.thermal);
        values.density = grade.density;
        return true;
    };
    std::string type;
    CMatlDB::GetMatlType(code, type);
    SteelGrade steel;
    ConcreteGrade concrete;
    if (type == "S") return CMatlDB::GetSteelData(code, name, steel) && take(steel);
    return type == "C" && CMatlDB::GetConcreteData(code, name, concrete) && take(concrete);
}

}  // namespace zt
