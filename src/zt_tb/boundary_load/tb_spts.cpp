#include "zt_tb/boundary_load/tb_spts.h"

namespace zt {
namespace {

constexpr velda::ColumnId kFlags = 1;

constexpr std::string_view kFreedoms[] = {"IDS_TB_Dx", "IDS_TB_Dy", "IDS_TB_Dz", "IDS_TB_Rx", "IDS_TB_Ry", "IDS_TB_Rz"};
constexpr CodedText kSenses[] = {
    {T_SPTS_D::kNone, "IDS_TB_NONE_DIR"},
    {T_SPTS_D::kPositive, "IDS_TB_POSITIVE_DIR"},
    {T_SPTS_D::kNegative, "IDS_TB_NEGATIVE_DIR"},
};
constexpr std::string_view kSenseTitles[] = {"IDS_TB_SPTS_Comp_Type_Dx", "IDS_TB_SPTS_Comp_Type_Dy",
                                             "IDS_TB_SPTS_Comp_Type_Dz"};

/// A value can be given for a free degree of freedom only.
template <std::size_t I>
bool IsFree(RowCells cells) {
    return ReadFlags(cells(kFlags), std::size(kFreedoms))[I] == '0';
}

template <std::size_t I>
CTBSpts::Column Value() {
    return CTBSpts::Columns::Double<kElementOf<&T_SPTS_D::value, I>>(
        kFreedoms[I], {.unit = T_SPTS_D::unit[I], .enabled = &IsFree<I>, .restText = "0"});
}

/// A list that takes any text; one that names no sense is kept as unknown.
template <std::size_t I>
CTBSpts::Column Sense() {
    return CTBSpts::Columns::Coded<kElementOf<&T_SPTS_D::compressionType, I>, kSenses, true>(
        kSenseTitles[I], {.centered = true, .defaultText = "IDS_TB_NONE_DIR"});
}

}  // namespace

const CTBSpts::Declaration& CTBSpts::Declared() {
    static const Declaration declaration{
        .name = "TBSpts",
        .columns =
            {
                Columns::Object<ObjectKind::Node>("IDS_TB_Point"),
                Columns::Flags<&T_SPTS_D::flags, kFreedoms>("IDS_TB_SPTS_Flag"),
                Value<0>(),
                Value<1>(),
                Value<2>(),
                Value<3>(),
                Value<4>(),
                Value<5>(),
                Sense<0>(),
                Sense<1>(),
                Sense<2>(),
            },
        .inserts = true,
        .appends = true,
    };
    return declaration;
}

const std::string CTBSpts::m_strRegName = CTBSpts::Register();

}  // namespace zt
