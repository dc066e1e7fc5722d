#include "zt_tb/boundary_load/tb_swgt.h"

namespace zt {
namespace {

constexpr velda::ColumnId kMember = 1;

CTBSwgt::Column Member() {
    CTBSwgt::Column column = CTBSwgt::Columns::Object<ObjectKind::Member, &T_SWGT_D::memb>(
        "IDS_TB_Member", {.zeroStandsForAll = true}, {.defaultText = "0"});
    column.show = [](const CTBSwgt& table, const CTBSwgt::Row& row, CellSink& cell) {
        cell.Long(table.GetObjectNo(ObjectKind::Member, row.record.memb));
    };
    return column;
}

}  // namespace

const CTBSwgt::Declaration& CTBSwgt::Declared() {
    static const ColumnChoices<CTBSwgt> allCases{[](CTBSwgt& table, int col) { table.SetStldNameColumn(col); },
                                                 nullptr};
    static const Declaration declaration{
        .name = "TBSwgt",
        .columns =
            {
                Columns::Key("IDS_TB_Key", {.state = CellState::ReadOnly, .places = 0}),
                Member(),
                Columns::LoadCase<&T_SWGT_D::stld>("IDS_TB_LoadCase", {.choices = allCases}),
                Columns::Double<&T_SWGT_D::x>("IDS_TB_X"),
                Columns::Double<&T_SWGT_D::y>("IDS_TB_Y"),
                Columns::Double<&T_SWGT_D::z>("IDS_TB_Z"),
            },
        .sort = {{kMember, 0, 0}},
        .inserts = true,
        .appends = true,
    };
    return declaration;
}

const std::string CTBSwgt::m_strRegName = CTBSwgt::Register();

}  // namespace zt
