#pragma once

#include "zt_anl/element/span_load.h"
#include "zt_anl/model/case_loads.h"
#include "zt_anl/model/frame_model.h"

namespace zt {

/// Adds a load whose positions are shares of a span with its rigid lengths. What lies on a rigid length goes to its
/// node, with its moment about the node.
void PutOnWholeSpan(const FrameModel& model, const SpanLoad& load, CaseLoads& loads);

}  // namespace zt
