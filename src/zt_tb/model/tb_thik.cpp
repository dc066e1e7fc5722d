#include "zt_tb/model/tb_thik.h"

namespace zt {

const CTBThik::Declaration& CTBThik::Declared() {
    static const Declaration declaration{
        .name = "TBThik",
        .columns =
            {
                Columns::Key("IDS_TB_THIK_ID",
                             {.state = CellState::Disabled, .hidden = true, .places = 0, .preference = {1, 2, 0, 45}}),
                Columns::Text<&T_THIK_D::name>("IDS_TB_THIK_NAME",
                                               {.defaultText = "IDS_TB_THIK_INOUT_SAME", .preference = {3, 2, 0, 80}}),
                Columns::Double<&T_THIK_D::thickness>(
                    "IDS_TB_THIK_Thickness",
                    {.unit = T_THIK_D::unit[0], .defaultText = "0.0", .preference = {2, 2, 4, 120}}),
            },
        .sort = {{0, 0, 0}},
        .dialog = "CModelPropThikDlg",
        .moreDefaults = {"0.0"},
    };
    return declaration;
}

const std::string CTBThik::m_strRegName = CTBThik::Register();

}  // namespace zt
