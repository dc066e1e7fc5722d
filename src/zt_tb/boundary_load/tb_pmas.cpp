#include "zt_tb/boundary_load/tb_pmas.h"

namespace zt {

const CTBPmas::Declaration& CTBPmas::Declared() {
    static const Declaration declaration{
        .name = "TBPmas",
        .columns =
            {
                Columns::Object<ObjectKind::Node>("IDS_TB_Point"),
                Columns::Double<&T_PMAS_D::mx>("IDS_TB_mX", {.unit = T_PMAS_D::unit[0]}),
                Columns::Double<&T_PMAS_D::my>("IDS_TB_mY", {.unit = T_PMAS_D::unit[1]}),
                Columns::Double<&T_PMAS_D::mz>("IDS_TB_mZ", {.unit = T_PMAS_D::unit[2]}),
                Columns::Double<&T_PMAS_D::rmx>("IDS_TB_rmX", {.unit = T_PMAS_D::unit[3]}),
                Columns::Double<&T_PMAS_D::rmy>("IDS_TB_rmY", {.unit = T_PMAS_D::unit[4]}),
                Columns::Double<&T_PMAS_D::rmz>("IDS_TB_rmZ", {.unit = T_PMAS_D::unit[5]}),
            },
        .inserts = true,
        .appends = true,
    };
    return declaration;
}

const std::string CTBPmas::m_strRegName = CTBPmas::Register();

}  // namespace zt
