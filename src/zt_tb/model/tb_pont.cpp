#include "zt_tb/model/tb_pont.h"

#include <cmath>

namespace zt {
namespace {

constexpr velda::ColumnId kNumber = 1;
constexpr velda::ColumnId kLevel = 3;
constexpr int kPlaces = 6;
constexpr std::size_t kX = 0;  ///< places in the units of the record
constexpr std::size_t kY = 1;
constexpr std::size_t kZ = 2;

template <std::size_t Axis>
double ToModel(double value) {
    return CUnitCtrl::ConvValueCurUnit2ModelLengthUnit(T_PONT_D::unit[Axis], value);
}

template <std::size_t Axis>
double FromModel(double value) {
    return CUnitCtrl::ConvValueModelLengthUnit2CurUnit(T_PONT_D::unit[Axis], value);
}

template <auto Member, std::size_t Axis>
void Show(const CTBPont&, const CTBPont::Row& row, CellSink& cell) {
    cell.Number(ToModel<Axis>(row.record.*Member));
}

template <auto Member, std::size_t Axis>
void Read(const CTBPont&, std::string_view text, CTBPont::Row& row) {
    row.record.*Member = FromModel<Axis>(velda::wtof(text));
}

double TopLevel(std::uint32_t story) {
    double level = 0.0;
    if (const auto* stories = CTBCommonWnd::GetRecords<CClassStor>()) stories->GetStorTopLevel(story, level);
    return level;
}

/// The difference of two numbers that are known to 15 digits, without what lies beyond the last digit of the larger.
double Difference(double a, double b) {
    constexpr int kDigits = 15;
    constexpr int kExactPowers = 22;  // 10^22 is the last power of ten that a double holds
    const double difference = a - b;
    const double larger = std::max(std::abs(a), std::abs(b));
    if (larger == 0.0 || !std::isfinite(larger)) return difference;
    const int decimals = kDigits - 1 - static_cast<int>(std::floor(std::log10(larger)));
    if (decimals < 0 || decimals > kExactPowers) return difference;
    const double power = std::pow(10.0, decimals);
    return std::round(difference * power) / power;
}

}  // namespace

void CTBPont::ShowLevel(const CTBPont&, const Row& row, CellSink& cell) {
    cell.Number(ToModel<kZ>(TopLevel(row.record.story)));
}

void CTBPont::ShowHeight(const CTBPont& table, const Row& row, CellSink& cell) {
    T_PONT_D inSpace;
    if (table.RecordClass()) table.RecordClass()->Get3DPos(row.key, inSpace);
    cell.Number(ToModel<kZ>(inSpace.z));
}

// The story stands before the height, so that it has been read.
void CTBPont::ReadHeight(const CTBPont&, std::string_view text, Row& row) {
    row.record.z = FromModel<kZ>(Difference(velda::wtof(text), ToModel<kZ>(TopLevel(row.record.story))));
}

const CTBPont::Declaration& CTBPont::Declared() {
    static const auto coordinate = [](std::size_t axis) {
        return Options{.unit = T_PONT_D::unit[axis], .modelLength = true, .places = kPlaces};
    };
    static const Declaration declaration{
        .name = "TBPont",
        .columns =
            {
                Columns::Key("Key", {.state = CellState::Disabled, .hidden = true}),
                Columns::Long<&T_PONT_D::no>("IDS_TB_Point", {.state = CellState::ReadOnly}),
                Columns::Story<&T_PONT_D::story>("IDS_TB_Story", {.state = CellState::ReadOnly}),
                {"IDS_TB_PONT_Level",
                 velda::ColumnType::Double,
                 &ShowLevel,
                 nullptr,
                 {.modelLength = true, .state = CellState::ReadOnly}},
                {"IDS_TB_PONT_X", velda::ColumnType::Double, &Show<&T_PONT_D::x, kX>, &Read<&T_PONT_D::x, kX>,
                 coordinate(kX)},
                {"IDS_TB_PONT_Y", velda::ColumnType::Double, &Show<&T_PONT_D::y, kY>, &Read<&T_PONT_D::y, kY>,
                 coordinate(kY)},
                {"IDS_TB_PONT_Z", velda::ColumnType::Double, &ShowHeight, &ReadHeight, coordinate(kZ)},
                {"IDS_TB_Name",
                 velda::ColumnType::String,
                 [](const CTBPont&, const Row& row, CellSink& cell) { cell.Text(row.record.name); },
                 nullptr,
                 {.state = CellState::ReadOnly, .hidden = true}},
                Columns::Long<&T_PONT_D::plan>(
                    "IDS_TB_PONT_Plan_No", {.state = CellState::Disabled, .hidden = true, .check = CellCheck::None}),
            },
        .sort = {{kLevel, 0, 0}, {kNumber, 0, 0}},
        .keep =
            [](const T_PONT_D& stored, T_PONT_D& node) {
                node.name = stored.name;
                node.story = stored.story;
            },
    };
    return declaration;
}

const std::string CTBPont::m_strRegName = CTBPont::Register();

}  // namespace zt
