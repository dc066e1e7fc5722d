#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "velda_util/result/tb_rec_hdr.h"

namespace velda {

/// A cell of a record: a number keeps its type, so that it is sorted and exported without reading its text again.
struct RecordCell {
    enum class Kind : std::uint8_t { Empty, Long, Number, Text };

    Kind kind = Kind::Empty;
    double number = 0.0;
    std::string text{};

    /// A whole number in decimal digits, another one with up to 15 digits.
    std::string Text() const;
};

/// The cells of one record, which a data source writes field by field.
class RecordCells {
public:
    /// Empties all cells. The fields outlive their use here.
    void Reset(const CTBRecHdr& fields);
    /// Empties one cell.
    void Clear(std::size_t slot) { cells_[slot].kind = RecordCell::Kind::Empty; }
    /// Takes one field only from now on; what else is written is passed over. 0 for all fields.
    void TakeOnly(int fieldNo) { only_ = fieldNo; }

    // Writing. A field that the record does not have is passed over.

    /// A whole number.
    void Long(int fieldNo, std::int64_t value, int recRow = 1);
    /// A number in current units.
    void Number(int fieldNo, double value, int recRow = 1);
    void Text(int fieldNo, std::string_view text, int recRow = 1);

    const RecordCell& At(std::size_t slot) const { return cells_[slot]; }

private:
    RecordCell* CellOf(int fieldNo, int recRow) {
        if (only_ != 0 && fieldNo != only_) return nullptr;
        const int slot = fields_->SlotOf(fieldNo, recRow);
        return slot < 0 ? nullptr : &cells_[static_cast<std::size_t>(slot)];
    }

    const CTBRecHdr* fields_ = nullptr;
    std::vector<RecordCell> cells_;
    int only_ = 0;
};

}  // namespace velda
