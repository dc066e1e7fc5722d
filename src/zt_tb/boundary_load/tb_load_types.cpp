#include "zt_tb/boundary_load/tb_load_types.h"

#include "velda_lib/comp_func.h"
#include "velda_util/formula/formula.h"
#include "zt_tb/boundary_load/load_type_names.h"
#include "zt_tb/boundary_load/member_load_table.h"

namespace zt {
namespace {

constexpr int kBeamTypes[] = {200, 201, 205};
constexpr int kAreaLoadWidth = 140;  ///< in pixels, so that the unit stands in one line

/// A load type in a closed list of names. When the user chooses one, the cells that follow take its values.
template <class Table, auto Member, class Names>
typename Table::Column TypeColumn(std::string_view title) {
    return {title,
            velda::ColumnType::String,
            [](const Table&, const typename Table::Row& row, CellSink& cell) {
                cell.Text(Names::NameOf(std::invoke(Member, row.record)));
            },
            [](const Table&, std::string_view text, typename Table::Row& row) {
                std::invoke(Member, row.record) = Names::KeyOf(text, std::invoke(Member, row.record));
            },
            {.follows = &CTBCommonWnd::ChangesLoadTypes,
             .choices = {[](Table& table, int col) {
                             const auto cells = velda::CGXRange().SetCols(static_cast<std::uint32_t>(col));
                             table.SetStyleRange(cells, CTBCommonWnd::NameListStyle(Names::Lines()));
                             table.RebuildControl(col);
                         },
                         &CTBCommonWnd::ChangesLoadTypes},
             .preference = {3, 2, 0, 130}}};
}

// ---- beam load types ----

constexpr velda::ColumnId kBmlaMember = 1;
constexpr velda::ColumnId kBmlaType = 2;
constexpr velda::ColumnId kBmlaAutoHeight = 3;

bool HasOwnHeight(RowCells cells) { return CTBCommonWnd::GetYesNo(cells(kBmlaAutoHeight)) == 0; }

// ---- walls on beams ----

constexpr velda::ColumnId kBwldType = 1;
constexpr velda::ColumnId kBwldHeight = 3;

std::string AutoText() { return velda::CMsgDll::pfuncLoadStr("IDS_TB_BWLD_AUTO", 0); }
bool IsAuto(std::string_view text) { return velda::CCompFunc::EqualNoCase(text, AutoText()); }

void ShowHeight(const CTBBwld&, const CTBBwld::Row& row, CellSink& cell) {
    if (row.record.autoHeight != 0) {
        cell.Text(AutoText());
    } else {
        cell.Number(row.record.height);
    }
}
void ReadHeight(const CTBBwld&, std::string_view text, CTBBwld::Row& row) {
    std::string height(text);
    velda::ConvertFormulaToValue(height, true);
    row.record.autoHeight = IsAuto(text) ? 1 : 0;
    row.record.height = IsAuto(text) ? 0.0 : velda::wtof(height);
}
void ListAuto(CTBBwld& table, int col) {
    const auto cells = velda::CGXRange().SetCols(static_cast<std::uint32_t>(col));
    table.SetStyleRange(cells, CTBCommonWnd::NameListStyle(AutoText() + "\n").SetControl(velda::ControlKind::ComboBox));
}

// ---- slab load types ----

constexpr velda::ColumnId kSblaType = 4;

/// A value of the load type that a row names, as a text.
template <class Names, velda::ColumnId TypeColumn, auto Member>
std::string ValueOfType(RowCells cells) {
    typename Names::Record type;
    return Names::Get(Names::KeyOf(cells(TypeColumn), 0), type) ? velda::FormatDouble(type.*Member) : std::string();
}

}  // namespace

const CTBBmla::Declaration& CTBBmla::Declared() {
    static const Declaration declaration{
        .name = "TBBmla",
        .columns =
            {
                Columns::Key("IDS_TB_Key", {.state = CellState::ReadOnly, .places = 0}),
                Columns::Object<ObjectKind::Member, &T_BMLA_D::memb>("IDS_TB_Member"),
                TypeColumn<CTBBmla, &T_BMLA_D::type, BeamLoadTypeNames>("IDS_TB_BMLA_BeamLoadType"),
                Columns::YesNo<&T_BMLA_D::autoHeight>("IDS_TB_BMLA_AutoHeight", {.defaultText = "Yes"}),
                Columns::Double<&T_BMLA_D::height>(
                    "IDS_TB_BMLA_Height", {.unit = T_BMLA_D::unit[0], .enabled = &HasOwnHeight, .restText = "0"}),
            },
        .sort = {{kBmlaMember, 0, 0}, {kBmlaType, 0, 0}},
        .inserts = true,
        .appends = true,
    };
    return declaration;
}

const CTBBwld::Declaration& CTBBwld::Declared() {
    static const Declaration declaration{
        .name = "TBBwld",
        .columns =
            {
                Columns::Object<ObjectKind::Member>("IDS_TB_Member", {.types = kBeamTypes,
                                                                      .wrongType = "IDS_TB_BWLD_Wrong_MemberType",
                                                                      .taken = "IDS_TB_MembExist_Number"}),
                TypeColumn<CTBBwld, &T_BWLD_D::type, BeamWallTypeNames>("IDS_TB_BWLD_TypeName"),
                Columns::Double<&T_BWLD_D::dl>("IDS_TB_BWLD_DL",
                                               {.unit = T_BWLD_D::unit[0],
                                                .suggestedBy = kBwldType,
                                                .suggest = &ValueOfType<BeamWallTypeNames, kBwldType, &T_BWTP_D::dl>,
                                                .preference = {2, 2, 4, kAreaLoadWidth}}),
                {"IDS_TB_BWLD_Height",
                 velda::ColumnType::String,
                 &ShowHeight,
                 &ReadHeight,
                 {.unit = T_BWLD_D::unit[1], .defaultText = "IDS_TB_BWLD_AUTO", .choices = {&ListAuto, nullptr}}},
            },
        .inserts = true,
        .appends = true,
    };
    return declaration;
}

int CTBBwld::ValidateColumn(const std::string& text, velda::ColumnId column) {
    if (!ObjectTable::ValidateColumn(text, column)) return 0;
    double height = 0.0;
    if (column != kBwldHeight || IsAuto(text) || IsValidDoubleNumber(text, height)) return 1;
    return InvalidDoubleNumber(column);
}

const CTBSbla::Declaration& CTBSbla::Declared() {
    static const auto value = [](int unit, std::string (*ofType)(RowCells)) {
        return Options{
            .unit = unit, .suggestedBy = kSblaType, .suggest = ofType, .preference = {2, 2, 4, kAreaLoadWidth}};
    };
    static const Declaration declaration{
        .name = "TBSbla",
        .columns =
            {
                Columns::Object<ObjectKind::Member>("IDS_TB_Member", {.types = kSlabTypes,
                                                                      .wrongType = "IDS_TB_LOAD_NOT_SLAB_TYPE",
                                                                      .taken = "IDS_TB_SBLA_Exist_Number"}),
                Columns::StoryOfObject<ObjectKind::Member>("IDS_TB_Story"),
                Columns::Coded<&T_SBLA_D::direction, kFaceDirections>("IDS_TB_LNLD_Direction",
                                                                      {.defaultText = "IDS_TB_LNLD_Global_Z"}),
                Columns::YesNo<&T_SBLA_D::projection>("IDS_TB_LNLD_Projection", {.defaultText = "No"}),
                TypeColumn<CTBSbla, &T_SBLA_D::type, SlabLoadTypeNames>("IDS_TB_SBLA_TypeName"),
                Columns::Double<&T_SBLA_D::dl>(
                    "IDS_TB_SBLA_DL",
                    value(T_SBLA_D::unit[0], &ValueOfType<SlabLoadTypeNames, kSblaType, &T_SLTP_D::dl>)),
                Columns::Double<&T_SBLA_D::ll>(
                    "IDS_TB_SBLA_LL",
                    value(T_SBLA_D::unit[1], &ValueOfType<SlabLoadTypeNames, kSblaType, &T_SLTP_D::ll>)),
            },
        .inserts = true,
        .appends = true,
        .tracerMarks = {{3, 6, 6}, {18, 6, 6}, {27, 6, 6}, {1, 5, 5}, {16, 5, 5}},
        .missing = "IDS_TB_SBLA_has_not_been_entered_",
    };
    return declaration;
}

const std::string CTBBmla::m_strRegName = CTBBmla::Register();
const std::string CTBBwld::m_strRegName = CTBBwld::Register();
const std::string CTBSbla::m_strRegName = CTBSbla::Register();

}  // namespace zt
