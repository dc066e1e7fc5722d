#pragma once

#include "zt_anl/model/dynamic_cases.h"
#include "zt_anl/solve/response_shapes.h"
#include "zt_anl/solve/work_goes.h"

namespace zt {

/// Solves a time-history load case by its modes; `cases` are the static load cases of the model. False when it was
/// stopped.
bool SolveHistory(const Structure& structure, const ModalResult& modal, const std::vector<CaseLoads>& cases,
                  const HistoryCase& historyCase, std::size_t stations, const WorkGoes& goes, HistoryResult& result);

}  // namespace zt
