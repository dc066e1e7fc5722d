#pragma once

#include <string>

#include "zt_db/core/database.h"
#include "zt_db/exchange/exchange_model.h"
#include "zt_db/exchange/exchange_report.h"
#include "zt_db/exchange/section_shapes.h"

namespace zt {

/// Adds a checked model to a database as one step of this name. Records that are there already are reused when they are
/// the same; a name that belongs to something else is changed, and that is reported. False, with an error in the report
/// and the database as it was, when the database refuses a record.
bool WriteModel(DB_CDataBase& database, const ExchangeModel& model, const std::string& stepName,
                const ProfileLookup& lookup, ExchangeReport& report);

}  // namespace zt
