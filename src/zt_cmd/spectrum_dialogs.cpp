#include "zt_cmd/spectrum_dialogs.h"

#include "velda_lib/key_text.h"
#include "zt_cmd/function_points.h"
#include "zt_cmd/ground_direction.h"

namespace zt {

using velda::KeyText;

namespace {

constexpr NamedNumber kUses[] = {{0, "IDS_CMD_SPLC_FOR_ALL"}, {T_SPLC_D::kSeismicOnly, "IDS_CMD_SPLC_SEISMIC_ONLY"}};
constexpr NamedNumber kCombinations[] = {
    {ModeCombination::Cqc, "IDS_CMD_SPLC_CQC"},
    {ModeCombination::Srss, "IDS_CMD_SPLC_SRSS"},
};
const FunctionPoints<T_SPFC_D, &T_SPFC_D::points, &T_SPFC_POINT::period, &T_SPFC_POINT::value> kPoints{
    "IDS_CMD_SPFC_PERIOD", "IDS_CMD_SPFC_VALUE", kFromZero};

}  // namespace

std::string SpectrumDialog::GetTitle() const { return KeyText("IDS_CMD_SPFC_TITLE"); }
std::string SpectrumCaseDialog::GetTitle() const { return KeyText("IDS_CMD_SPLC_TITLE"); }

std::vector<SpectrumDialog::Field> SpectrumDialog::Declared() const {
    return {
        TextField<T_SPFC_D, &T_SPFC_D::name>("IDS_CMD_NAME"),
        TextField<T_SPFC_D, &T_SPFC_D::description>("IDS_CMD_DESCRIPTION"),
    };
}

std::vector<SpectrumDialog::List> SpectrumDialog::DeclaredLists() const { return {kPoints.List()}; }

velda::Outcome SpectrumDialog::CheckRecord() const { return kPoints.Check(Edited()); }

std::vector<SpectrumCaseDialog::Field> SpectrumCaseDialog::Declared() const {
    Field angle = NumberField<T_SPLC_D, &T_SPLC_D::angle>("IDS_CMD_GROUND_ANGLE", Unit::Angle);
    angle.isEnabled = [](const T_SPLC_D& record) { return record.direction == GroundDirection::Horizontal; };
    return {
        TextField<T_SPLC_D, &T_SPLC_D::name>("IDS_CMD_NAME"),
        RecordAt<T_SPLC_D>(
            "IDS_CMD_SPLC_SPECTRUM", {Database(), &IdentityOf<T_SPFC_D>::value},
            [](auto& record) -> auto& { return record.spfc; }),
        NamedField<T_SPLC_D, &T_SPLC_D::direction>("IDS_CMD_GROUND_DIRECTION", kGroundDirections),
        angle,
        NumberField<T_SPLC_D, &T_SPLC_D::scale>("IDS_CMD_GROUND_SCALE", Unit::None, kAboveZero),
        NamedField<T_SPLC_D, &T_SPLC_D::combination>("IDS_CMD_SPLC_COMBINATION", kCombinations),
        NumberField<T_SPLC_D, &T_SPLC_D::damping>("IDS_CMD_MATL_DAMPING", Unit::None, kFromZeroToOne),
        NamedField<T_SPLC_D, &T_SPLC_D::type>("IDS_CMD_SPLC_USE", kUses),
        TextField<T_SPLC_D, &T_SPLC_D::description>("IDS_CMD_DESCRIPTION"),
    };
}

}  // namespace zt
