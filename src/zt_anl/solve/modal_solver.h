#pragma once

#include "velda_lib/outcome.h"
#include "zt_anl/analysis.h"
#include "zt_anl/solve/structure.h"
#include "zt_anl/solve/work_goes.h"

namespace zt {

/// The modes of a structure with the longest periods, from the factors of its stiffness. There are no more modes than
/// freedoms with a mass. Refused when the iteration does not converge, or was stopped.
velda::Outcome SolveModes(const Structure& structure, const Factor& stiffness, const SparseMatrix& mass,
                          std::size_t modes, const WorkGoes& goes, ModalResult& result);

}  // namespace zt
