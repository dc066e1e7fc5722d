#include "velda_util/result/record_cells.h"

#include "velda_lib/number_text.h"

namespace velda {

std::string RecordCell::Text() const {
    switch (kind) {
        case Kind::Long: return std::to_string(static_cast<std::int64_t>(number));
        case Kind::Number: return FormatDouble(number);
        default: return text;
    }
}

void RecordCells::Reset(const CTBRecHdr& fields) {
    fields_ = &fields;
    cells_.resize(fields.Fields().size());
    for (RecordCell& cell : cells_) {
        cell.kind = RecordCell::Kind::Empty;
        cell.number = 0.0;
        cell.text.clear();
    }
}

void RecordCells::Long(int fieldNo, std::int64_t value, int recRow) {
    RecordCell* cell = CellOf(fieldNo, recRow);
    if (!cell) return;
    cell->kind = RecordCell::Kind::Long;
    cell->number = static_cast<double>(value);
}

void RecordCells::Number(int fieldNo, double value, int recRow) {
    RecordCell* cell = CellOf(fieldNo, recRow);
    if (!cell) return;
    const int slot = fields_->SlotOf(fieldNo, recRow);
    cell->kind = RecordCell::Kind::Number;
    // The sum is 0 for a negative zero, which would be shown with its sign.
    cell->number = value * fields_->Fields()[static_cast<std::size_t>(slot)].factor + 0.0;
}

void RecordCells::Text(int fieldNo, std::string_view text, int recRow) {
    RecordCell* cell = CellOf(fieldNo, recRow);
    if (!cell) return;
    cell->kind = RecordCell::Kind::Text;
    cell->text.assign(text);
}

}  // namespace velda
