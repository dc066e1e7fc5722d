#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "velda_util/cells/row_sort.h"

namespace velda {

/// A field of the records of a result grid: what stands in one column of one of the rows that a record takes.
struct RecordField {
    int recRow = 1;   ///< row within the record, from 1
    int fieldNo = 1;  ///< the column, from 1
    std::string title{};
    ColumnType type = ColumnType::String;
    int unitKind = 0;
    double factor = 1.0;  ///< what numbers are multiplied by to be shown
};

/// The fields of the records of a result grid. A record takes as many rows as its fields name; a field that stands in
/// the first row only leaves the cells beneath it empty.
class CTBRecHdr {
public:
    void Clear();
    /// Adds a field. Throws std::invalid_argument for a row or a number below 1, and for a place that is taken.
    void AddFld(int recRow, int fieldNo, std::string title, ColumnType type, int unitKind);
    /// All fields have been added.
    void EndAdd();

    int RowsOfRecord() const { return rows_; }
    const std::vector<RecordField>& Fields() const { return fields_; }
    RecordField& FieldAt(std::size_t slot) { return fields_.at(slot); }
    /// Place of a field among Fields; -1 when there is none.
    int SlotOf(int fieldNo, int recRow) const {
        if (fieldNo < 1 || fieldNo > columns_ || recRow < 1 || recRow > rows_) return -1;
        return slots_[Index(recRow, fieldNo)];
    }

private:
    std::size_t Index(int recRow, int fieldNo) const {
        return static_cast<std::size_t>((recRow - 1) * columns_ + fieldNo - 1);
    }

    std::vector<RecordField> fields_;
    std::vector<int> slots_;
    int rows_ = 1;
    int columns_ = 0;
};

}  // namespace velda
