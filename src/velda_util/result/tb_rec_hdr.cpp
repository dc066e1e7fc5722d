#include "velda_util/result/tb_rec_hdr.h"

#include <algorithm>
#include <stdexcept>

namespace velda {

void CTBRecHdr::Clear() { *this = {}; }

void CTBRecHdr::AddFld(int recRow, int fieldNo, std::string title, ColumnType type, int unitKind) {
    if (recRow < 1 || fieldNo < 1) throw std::invalid_argument("a record field needs a row and a number from 1");
    const bool isTaken = std::any_of(fields_.begin(), fields_.end(), [&](const RecordField& field) {
        return field.recRow == recRow && field.fieldNo == fieldNo;
    });
    if (isTaken) throw std::invalid_argument("two record fields in one place");
    fields_.push_back({recRow, fieldNo, std::move(title), type, unitKind});
}

void CTBRecHdr::EndAdd() {
    rows_ = 1;
    columns_ = 0;
    for (const RecordField& field : fields_) {
        rows_ = std::max(rows_, field.recRow);
        columns_ = std::max(columns_, field.fieldNo);
    }
    slots_.assign(static_cast<std::size_t>(rows_) * static_cast<std::size_t>(columns_), -1);
    for (std::size_t slot = 0; slot < fields_.size(); ++slot) {
        slots_[Index(fields_[slot].recRow, fields_[slot].fieldNo)] = static_cast<int>(slot);
    }
}

}  // namespace velda
