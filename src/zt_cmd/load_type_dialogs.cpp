#include "zt_cmd/load_type_dialogs.h"

#include "velda_lib/key_text.h"

namespace zt {

using velda::KeyText;

namespace {

/// The fields of a type that has a name and the dead load of what stands on a beam.
template <class R>
std::vector<FieldDeclaration<R>> FieldsOfStanding() {
    return {
        TextField<R, &R::name>("IDS_CMD_NAME"),
        NumberField<R, &R::dl>("IDS_TB_SBLA_DL", R::unit[0]),
        TextField<R, &R::description>("IDS_CMD_DESCRIPTION"),
    };
}

}  // namespace

std::string BeamLoadTypeDialog::GetTitle() const { return KeyText("IDS_CMD_BLTP_TITLE"); }
std::string WallLoadTypeDialog::GetTitle() const { return KeyText("IDS_CMD_BWTP_TITLE"); }
std::string SlabLoadTypeDialog::GetTitle() const { return KeyText("IDS_CMD_SLTP_TITLE"); }

std::vector<BeamLoadTypeDialog::Field> BeamLoadTypeDialog::Declared() const { return FieldsOfStanding<T_BLTP_D>(); }
std::vector<WallLoadTypeDialog::Field> WallLoadTypeDialog::Declared() const { return FieldsOfStanding<T_BWTP_D>(); }

std::vector<SlabLoadTypeDialog::Field> SlabLoadTypeDialog::Declared() const {
    return {
        NumberField<T_SLTP_D, &T_SLTP_D::dl>("IDS_TB_SBLA_DL", T_SLTP_D::unit[0]),
        NumberField<T_SLTP_D, &T_SLTP_D::ll>("IDS_TB_SBLA_LL", T_SLTP_D::unit[1]),
        TextField<T_SLTP_D, &T_SLTP_D::description>("IDS_CMD_DESCRIPTION"),
    };
}

std::string SlabLoadTypeDialog::ListText(std::size_t place, const T_SLTP_D& record) const {
    const std::string text = KeyText("IDS_TB_SlabLoad_") + std::to_string(place);
    return record.description.empty() ? text : text + ", " + record.description;
}

}  // namespace zt
