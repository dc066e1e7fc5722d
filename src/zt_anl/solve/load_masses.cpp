#include "zt_anl/solve/load_masses.h"

#include <algorithm>

#include "zt_db/units/exact_units.h"

namespace zt {

std::vector<FrameMass> MassesOfLoads(const Structure& structure, const std::vector<CaseLoads>& cases,
                                     const std::vector<T_STLD_FACTOR>& factors) {
    std::vector<double> weights(structure.Model().nodes.size());
    for (const T_STLD_FACTOR& part : factors) {
        const auto of =
            std::find_if(cases.begin(), cases.end(), [&](const CaseLoads& loads) { return loads.stld == part.stld; });
        if (of == cases.end()) continue;
        const std::vector<NodeVector> nodal = structure.NodalLoads(*of);
        for (std::size_t node = 0; node < nodal.size(); ++node) {
            weights[node] += part.factor * std::max(-nodal[node][2], 0.0);
        }
    }
    std::vector<FrameMass> masses;
    for (std::size_t node = 0; node < weights.size(); ++node) {
        const double mass = weights[node] / kGravity;
        if (mass > 0.0) masses.push_back({node, {mass, mass, mass, 0.0, 0.0, 0.0}});
    }
    return masses;
}

}  // namespace zt
