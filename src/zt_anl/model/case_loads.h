#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "zt_anl/analysis_log.h"
#include "zt_anl/element/span_load.h"
#include "zt_anl/model/frame_model.h"
#include "zt_db/core/database.h"
#include "zt_db/records/actl.h"

namespace zt {

/// A freedom of a node that is moved by a value: the support that holds it, or the far end of its spring.
struct SupportMove {
    std::size_t support = 0;  ///< place in the model
    std::size_t freedom = 0;
    double value = 0.0;
};

/// The loads of one static load case.
struct CaseLoads {
    std::uint32_t stld = 0;  ///< key
    std::string name{};
    std::vector<NodeVector> nodal{};  ///< for each node of the model, along the global axes
    std::vector<SpanLoad> spans{};    ///< in the order of their spans
    std::vector<SupportMove> moves{};

    std::span<const SpanLoad> OfSpan(std::size_t span) const;
};

/// Reads the loads of all static load cases, in the order of their keys. Loads on members that are not analysed go to
/// their nodes.
std::vector<CaseLoads> ReadCaseLoads(const CDataBase& database, const FrameModel& model, AnalysisLog& log);

/// The sum of load cases times factors.
CaseLoads SumOfCases(std::span<const CaseLoads> cases, std::span<const T_STLD_FACTOR> factors);

}  // namespace zt
