#pragma once

#include <string>
#include <vector>

#include "zt_anl/analysis.h"

namespace zt {

/// The results in a few lines for people, in the current language: the greatest displacement and the reactions of each
/// static load case, then the modes.
std::vector<std::string> SummaryOf(const AnalysisResult& result);

}  // namespace zt
