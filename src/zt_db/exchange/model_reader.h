#pragma once

#include "zt_db/core/database.h"
#include "zt_db/exchange/exchange_model.h"
#include "zt_db/exchange/exchange_report.h"

namespace zt {

/// Reads the records of a database as a model that can be written to a file. Names are made unique, members get names
/// from their numbers. What has no place in a model is reported.
ExchangeModel ReadModel(const DB_CDataBase& database, ExchangeReport& report);

}  // namespace zt
