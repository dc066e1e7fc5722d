#include "zt_cmd/thik_dialog.h"

#include "velda_lib/key_text.h"

namespace zt {

using velda::KeyText;

namespace {

using Kind = PropertyField::Kind;

std::vector<std::string> SameOrNot(const T_THIK_D&) {
    return {KeyText("IDS_CMD_THIK_SAME"), KeyText("IDS_CMD_THIK_DIFFERS")};
}
bool Differs(const T_THIK_D& plate) { return plate.inOutDiffers != 0; }

}  // namespace

std::string CModelPropThikDlg::GetTitle() const { return KeyText("IDS_CMD_THIK_TITLE"); }

std::vector<CModelPropThikDlg::Field> CModelPropThikDlg::Declared() const {
    return {
        TextField<T_THIK_D, &T_THIK_D::name>("IDS_CMD_NAME"),
        NumberField<T_THIK_D, &T_THIK_D::thickness>("IDS_CMD_THIK_IN_PLANE", T_THIK_D::unit[0]),
        {"IDS_CMD_THIK_SIDES", Kind::Choice, Unit::None,
         [](const T_THIK_D& plate) { return SameOrNot(plate)[Differs(plate) ? 1 : 0]; },
         [](T_THIK_D& plate, const std::string& text) {
             plate.inOutDiffers = text == SameOrNot(plate)[1] ? 1 : 0;
             plate.thicknessOut = plate.inOutDiffers ? plate.thickness : 0.0;
         },
         &SameOrNot},
        {"IDS_CMD_THIK_OUT_OF_PLANE", Kind::Number, T_THIK_D::unit[0],
         [](const T_THIK_D& plate) {
             return velda::FormatDouble(Differs(plate) ? plate.thicknessOut : plate.thickness);
         },
         [](T_THIK_D& plate, const std::string& text) { plate.thicknessOut = velda::wtof(text); }, nullptr, &Differs},
    };
}

velda::Outcome CModelPropThikDlg::CheckRecord() const {
    const bool isPlate = Edited().thickness > 0.0 && (!Differs(Edited()) || Edited().thicknessOut > 0.0);
    return isPlate ? velda::Outcome::Done() : velda::Outcome::Refused(KeyText("IDS_CMD_THIK_NONE"));
}

}  // namespace zt
