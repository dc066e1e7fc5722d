#include "zt_tb/post/result_picture.h"

#include <cmath>

namespace zt {
namespace {

/// The value of a field that is greatest in magnitude over the rows of a record.
double GreatestOf(const velda::CTBRecHdr& fields, const velda::RecordCells& cells, int fieldNo) {
    double greatest = 0.0;
    for (int recRow = 1; recRow <= fields.RowsOfRecord(); ++recRow) {
        const int slot = fields.SlotOf(fieldNo, recRow);
        if (slot < 0) continue;
        const double value = cells.At(static_cast<std::size_t>(slot)).number;
        if (std::abs(value) > std::abs(greatest)) greatest = value;
    }
    return greatest;
}

}  // namespace

std::optional<LoadChoice> LoadOfRow(const velda::CTBCore& grid, int row) {
    const CTBPostDS* source = PostSourceOf(&grid);
    const long record = grid.RecCtrl().GetRecNo(row);
    return source && record > 0 ? source->LoadOfRecord(record) : std::nullopt;
}

ResultColours ColoursOfColumn(velda::CTBCore& grid, int row, int col) {
    CTBPostDS* source = PostSourceOf(&grid);
    const long first = source ? grid.RecCtrl().GetRecNo(row) : 0;
    if (first == 0) return {};
    const std::uint32_t domain = source->KeyDomainOf();
    if (domain != KeyDomain::Nodes && domain != KeyDomain::Members) return {};
    const int fieldNo = grid.ColumnIdAt(col) + 1;
    const velda::ColumnInfo& column = grid.Columns().Info(fieldNo - 1);
    if (column.type != velda::ColumnType::Double) return {};

    ResultColours colours{.title = column.title, .unit = source->GetUnitText(column.unitCode)};
    std::vector<NumberedValue>& values = domain == KeyDomain::Nodes ? colours.nodes : colours.members;
    const auto step = static_cast<long>(source->Rows().size());
    velda::RecordCells cells;
    cells.TakeOnly(fieldNo);
    cells.Reset(grid.RecHdr());
    for (long record = (first - 1) % step + 1; record <= grid.RecCtrl().RecCount(); record += step) {
        source->SeekRec(record);
        source->GetRecTexts(cells);
        const auto object = static_cast<std::size_t>((record - 1) / step);
        values.push_back({source->ObjectNumber(object), GreatestOf(grid.RecHdr(), cells, fieldNo)});
    }
    return colours;
}

}  // namespace zt
