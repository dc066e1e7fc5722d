#pragma once

#include "velda_lib/outcome.h"
#include "zt_anl/analysis_log.h"
#include "zt_anl/model/frame_model.h"
#include "zt_db/core/database.h"

namespace zt {

/// Reads what the analysis needs of a building. Refused when a member has no length, no section or no material.
velda::Outcome ReadFrameModel(const CDataBase& database, FrameModel& model, AnalysisLog& log);

}  // namespace zt
