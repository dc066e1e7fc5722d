#pragma once

#include <span>

#include "zt_anl/analysis_log.h"
#include "zt_anl/model/case_loads.h"
#include "zt_anl/model/frame_model.h"
#include "zt_db/core/database.h"

namespace zt {

/// Adds the strains of temperatures to load cases: that of the whole structure, and the mean of those of the two nodes
/// of a span.
void ReadTemperatures(const CDataBase& database, const FrameModel& model, std::span<CaseLoads> cases);

/// Adds the specified displacements to load cases. One that no support holds, or that a rigid link ties, is told and
/// left out.
void ReadSupportMoves(const CDataBase& database, const FrameModel& model, std::span<CaseLoads> cases, AnalysisLog& log);

}  // namespace zt
