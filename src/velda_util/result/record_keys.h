#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "velda_util/cells/row_sort.h"
#include "velda_util/result/record_order.h"
#include "velda_util/result/tb_data_src.h"

namespace velda {

/// What the records of a source are sorted by: one number for each record, the rank of the text where the field is a
/// text. Where a field holds texts and numbers, texts come first; an empty cell is an empty text. None when the user
/// cancels.
std::optional<std::vector<double>> SortKeys(CTBDataSrc& source, const CTBRecHdr& fields, long count, int fieldNo);

/// The records from 1 in the order of their keys; the first list counts most, equal ones as they are numbered.
RecordOrder OrderByKeys(const std::vector<std::vector<double>>& keys, const std::vector<STBSortItem>& items);

}  // namespace velda
