#pragma once

#include "zt_db/exchange/exchange_model.h"
#include "zt_db/exchange/exchange_report.h"

namespace zt {

/// Checks a model before anything is written: names that stand twice, references that lead nowhere, combinations that
/// contain themselves, values that cannot be. What makes the model unusable is an error; what is only doubtful is a
/// warning. False when there is an error.
bool CheckModel(const ExchangeModel& model, ExchangeReport& report);

/// The place of an origin in the file of a model.
ExchangePlace PlaceOf(const ExchangeModel& model, const ExchangeOrigin& origin, std::string column = {});

}  // namespace zt
