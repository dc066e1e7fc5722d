#pragma once

#include "zt_db/doc/checker_ctrl.h"
#include "zt_db/doc/doc.h"
#include "zt_tb/post/load_choice.h"

namespace zt {

// What result tables do while a finding of the model checker is traced.

/// The checker while it traces; null otherwise.
const CCheckerCtrl* TracingChecker();

/// Drops the objects that the checker did not find, while it traces.
void DropUntraced(std::vector<std::uint32_t>& numbers);

/// Whether a finding of a check of a mode is about a story under a load case.
bool IsTraced(int checkMode, std::uint32_t story, const LoadChoice& load);

/// Which of the load cases that a table offers are ticked at first, as the check says; none where it does not say.
std::optional<std::vector<LoadChoice>> TracedLoads(const std::vector<LoadChoice>& offered);

}  // namespace zt
