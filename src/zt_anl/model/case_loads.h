#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "zt_anl/analysis_log.h"
#include "zt_anl/element/span_load.h"
#include "zt_anl/model/frame_model.h"
#include "zt_db/core/database.h"

namespace zt {

/// The loads of one static load case.
struct CaseLoads {
    std::uint32_t stld = 0;  ///< key
    std::string name{};
    std::vector<NodeVector> nodal{};  ///< for each node of the model, along the global axes
    std::vector<SpanLoad> spans{};    ///< in the order of their spans
};

/// Reads the loads of all static load cases, in the order of their keys. Loads on members that are not analysed go to
/// their nodes.
std::vector<CaseLoads> ReadCaseLoads(const CDataBase& database, const FrameModel& model, AnalysisLog& log);

}  // namespace zt
