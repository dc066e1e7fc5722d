#include "zt_cmd/analysis_control_dialog.h"

#include <algorithm>

namespace zt {
namespace {

constexpr NamedNumber kMassMatrices[] = {{0, "IDS_CMD_ACTL_LUMPED"}, {1, "IDS_CMD_ACTL_CONSISTENT"}};
constexpr NamedNumber kSecondOrders[] = {
    {SecondOrder::None, "IDS_CMD_ACTL_SECOND_NONE"},
    {SecondOrder::EachCase, "IDS_CMD_ACTL_SECOND_EACH"},
    {SecondOrder::GivenLoads, "IDS_CMD_ACTL_SECOND_GIVEN"},
};
constexpr FieldLimits kModes{.least = 1.0, .most = 1000.0, .isWhole = true};
constexpr FieldLimits kPercent{.least = 0.0, .most = 100.0};

/// A list of static load cases with factors. A new row has the first load case that no other row has.
template <class At>
ListDeclaration<T_ACTL_D> FactorList(std::string_view titleKey, const DB_CDataBase& database, At at) {
    const RecordChoice cases(database, &IdentityOf<T_STLD_D>::value);
    const auto make = [cases, at](const T_ACTL_D& record) {
        const auto isTaken = [&](std::uint32_t key) {
            return std::any_of(at(record).begin(), at(record).end(),
                               [&](const T_STLD_FACTOR& taken) { return taken.stld == key; });
        };
        return T_STLD_FACTOR{.stld = cases.FirstFree(isTaken)};
    };
    return ListAt<T_ACTL_D>(titleKey, at, make, [cases, at](std::size_t row) {
        return std::vector<FieldDeclaration<T_ACTL_D>>{
            RecordAt<T_ACTL_D>(
                "IDS_CMD_LCOM_CASE", cases, [ at, row ](auto& record) -> auto& { return at(record)[row].stld; }),
            NumberAt<T_ACTL_D>(
                "IDS_CMD_LCOM_FACTOR", Unit::None,
                [ at, row ](auto& record) -> auto& { return at(record)[row].factor; }),
        };
    });
}

}  // namespace

std::string AnalysisControlDialog::GetTitle() const { return velda::CMsgDll::pfuncLoadStr("IDS_DB_DATA_NAME_ACTL", 0); }

std::vector<AnalysisControlDialog::Field> AnalysisControlDialog::Declared() const {
    return {
        NumberField<T_ACTL_D, &T_ACTL_D::modes>("IDS_CMD_ACTL_MODES", Unit::None, kModes),
        NumberField<T_ACTL_D, &T_ACTL_D::massLimit>("IDS_CMD_ACTL_MASS_LIMIT", Unit::None, kPercent),
        NamedField<T_ACTL_D, &T_ACTL_D::shearDeformation>("IDS_CMD_ACTL_SHEAR", kYesNo),
        NamedField<T_ACTL_D, &T_ACTL_D::selfWeightMass>("IDS_CMD_ACTL_SELF_WEIGHT", kYesNo),
        NamedField<T_ACTL_D, &T_ACTL_D::consistentMass>("IDS_CMD_ACTL_MASS_MATRIX", kMassMatrices),
        NamedField<T_ACTL_D, &T_ACTL_D::secondOrder>("IDS_CMD_ACTL_SECOND_ORDER", kSecondOrders),
    };
}

std::vector<AnalysisControlDialog::List> AnalysisControlDialog::DeclaredLists() const {
    return {
        FactorList(
            "IDS_CMD_ACTL_MASS_LOADS", Database(), [](auto& record) -> auto& { return record.massLoads; }),
        FactorList(
            "IDS_CMD_ACTL_SECOND_LOADS", Database(), [](auto& record) -> auto& { return record.secondOrderLoads; }),
    };
}

velda::Outcome AnalysisControlDialog::CheckRecord() const {
    const bool isMissing = Edited().secondOrder == SecondOrder::GivenLoads && Edited().secondOrderLoads.empty();
    if (!isMissing) return velda::Outcome::Done();
    return velda::Outcome::Refused(velda::CMsgDll::pfuncLoadStr("IDS_CMD_ACTL_SECOND_MISSING", 0));
}

}  // namespace zt
