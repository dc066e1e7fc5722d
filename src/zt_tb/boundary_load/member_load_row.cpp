#include "zt_tb/boundary_load/member_load_table.h"

namespace zt {

bool MemberLoadRow::TakesProjection(RowCells cells) {
    const int type = CodeOfText(kLoadTypes, cells(MemberLoadColumn::kType));
    const bool distributed = type == LoadType::UniformLoads || type == LoadType::UniformMoments;
    return distributed && CodeOfText(kLoadDirections, cells(MemberLoadColumn::kDirection)) > LoadDirection::LocalZ;
}

std::string MemberLoadRow::UnitText(RowCells cells) {
    return UnitTextOf(CodeOfText(kLoadTypes, cells(MemberLoadColumn::kType)));
}

std::string MemberLoadRow::UnitTextOf(int loadType) {
    std::string text;
    if (loadType < LoadType::ConcentratedForces || loadType > LoadType::UniformMoments) return text;
    CUnitCtrl::GetUnitSystem(T_LNLD_D::unit[static_cast<std::size_t>(loadType - LoadType::ConcentratedForces)], text);
    return text;
}

bool MemberLoadRow::IsCrane(std::string_view loadCase) {
    return loadCase == "CLV" || loadCase == "CLH" || loadCase == "CLR";
}

}  // namespace zt
