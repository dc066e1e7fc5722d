#include "zt_tb/boundary_load/tb_ptld.h"

namespace zt {
namespace {

constexpr velda::ColumnId kNode = 1;

}  // namespace

const CTBPtld::Declaration& CTBPtld::Declared() {
    static const Declaration declaration{
        .name = "TBPtld",
        .columns =
            {
                Columns::Key("IDS_TB_Key", {.state = CellState::ReadOnly, .places = 0}),
                Columns::Object<ObjectKind::Node, &T_PTLD_D::node>("IDS_TB_Point"),
                Columns::StoryOfObject<ObjectKind::Node, &T_PTLD_D::node>("IDS_TB_Story"),
                Columns::LoadCase<&T_PTLD_D::stld>("IDS_TB_LOAD_CASE"),
                Columns::Double<&T_PTLD_D::fx>("IDS_TB_POSTDISP_FX", {.unit = T_PTLD_D::unit[0]}),
                Columns::Double<&T_PTLD_D::fy>("IDS_TB_POSTDISP_FY", {.unit = T_PTLD_D::unit[1]}),
                Columns::Double<&T_PTLD_D::fz>("IDS_TB_POSTDISP_FZ", {.unit = T_PTLD_D::unit[2]}),
                Columns::Double<&T_PTLD_D::mx>("IDS_TB_POSTDISP_MX", {.unit = T_PTLD_D::unit[3]}),
                Columns::Double<&T_PTLD_D::my>("IDS_TB_POSTDISP_MY", {.unit = T_PTLD_D::unit[4]}),
                Columns::Double<&T_PTLD_D::mz>("IDS_TB_POSTDISP_MZ", {.unit = T_PTLD_D::unit[5]}),
            },
        .sort = {{kNode, 0, 0}},
        .inserts = true,
        .appends = true,
    };
    return declaration;
}

const std::string CTBPtld::m_strRegName = CTBPtld::Register();

}  // namespace zt
