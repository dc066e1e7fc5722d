#include "zt_db/library/matl_grades.h"

#include "zt_db/doc/doc.h"
#include "zt_db/library/matl_db.h"
#include "zt_db/records/matl_type.h"

namespace zt {
namespace {

constexpr MaterialType kTypes[] = {{MatlType::Steel, "Steel"},
                                   {MatlType::Concrete, "RC"},
                                   {MatlType::Composite, "SRC"},
                                   {MatlType::User, "User Defined"}};

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
    if (type == MatlType::Steel) CMatlDB::GetSteelNameList(code, grades);
    if (type == MatlType::Concrete) CMatlDB::GetConcreteNameList(code, grades);
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
    if (type == MatlType::Steel) return CMatlDB::GetSteelData(code, name, steel) && take(steel);
    return type == MatlType::Concrete && CMatlDB::GetConcreteData(code, name, concrete) && take(concrete);
}

}  // namespace zt
