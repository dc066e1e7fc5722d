#include "zt_tb/boundary_load/tb_member_loads.h"

namespace zt {

const CTBBeamld::Declaration& CTBBeamld::Declared() {
    static const Declaration declaration{
        .name = "TBBeamld",
        .columns = MakeColumns(),
        .sort = SortItems(),
        .inserts = true,
        .appends = true,
        .tracerMarks = {{17, MemberLoadColumn::kP1, MemberLoadColumn::kP4}},
    };
    return declaration;
}

const CTBLnld::Declaration& CTBLnld::Declared() {
    static const Declaration declaration{
        .name = "TBLnld",
        .columns = MakeColumns(),
        .sort = SortItems(),
        .inserts = true,
        .appends = true,
    };
    return declaration;
}

const CTBCmld::Declaration& CTBCmld::Declared() {
    static const Declaration declaration{
        .name = "TBCmld",
        .columns = MakeColumns(),
        .sort = SortItems(),
        .inserts = true,
        .appends = true,
    };
    return declaration;
}

const CTBWallld::Declaration& CTBWallld::Declared() {
    static const Declaration declaration{
        .name = "TBWallld",
        .columns = MakeColumns(),
        .sort = SortItems(),
        .inserts = true,
        .appends = true,
    };
    return declaration;
}

const std::string CTBBeamld::m_strRegName = CTBBeamld::Register();
const std::string CTBLnld::m_strRegName = CTBLnld::Register();
const std::string CTBCmld::m_strRegName = CTBCmld::Register();
const std::string CTBWallld::m_strRegName = CTBWallld::Register();

}  // namespace zt
