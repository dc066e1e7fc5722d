#pragma once

#include "velda_lib/outcome.h"
#include "zt_anl/analysis.h"
#include "zt_db/doc/doc.h"
#include "zt_db/post/result_source.h"

namespace zt {

/// Writes the results of an analysis under the names of ResultName. Refused when the sink refuses.
velda::Outcome WriteResults(const AnalysisResult& result, ResultSink& sink);

/// Keeps the results of an analysis as the current results of a document, in one step.
velda::Outcome StoreResults(const AnalysisResult& result, CDBDoc& doc);

}  // namespace zt
