#pragma once

#include "zt_db/exchange/exchange_model.h"
#include "zt_db/exchange/table_reader.h"

namespace zt {

/// Reads a folder of plain tables. False, with errors in the report, when there is something that cannot be read, or
/// when the work was stopped.
bool ReadCsv(SheetSource& source, TableContext& context, ExchangeModel& model);

}  // namespace zt
