#pragma once

#include "zt_db/exchange/exchange_model.h"
#include "zt_db/exchange/table_reader.h"

namespace zt {

/// Reads the sheets of a workbook of the Structural Analysis Format. False, with errors in the report, when there is
/// something that cannot be read, or when the work was stopped.
bool ReadSaf(SheetSource& source, TableContext& context, ExchangeModel& model);

/// Whether a workbook has the sheets of the format.
bool IsSaf(const SheetSource& source);

}  // namespace zt
