#include <algorithm>

#include "zt_anl/analysis.h"
#include "zt_db/core/record_walk.h"

namespace zt {

AnalysisOptions OptionsOf(const CDataBase& database) {
    AnalysisOptions options;
    T_ACTL_D control;
    ReadInBase<CClassActl>(database, T_ACTL_D::kKey, control);
    options.modes = static_cast<std::size_t>(std::max(control.modes, 0));
    options.shearDeformation = control.shearDeformation != 0;
    options.selfWeightMass = control.selfWeightMass != 0;
    options.consistentMass = control.consistentMass != 0;
    options.massLoads = control.massLoads;
    options.secondOrder = control.secondOrder;
    options.secondOrderLoads = control.secondOrderLoads;
    return options;
}

}  // namespace zt
