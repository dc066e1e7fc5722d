#include "zt_anl/solve/next_state.h"

#include <algorithm>
#include <cmath>

namespace zt {
namespace {

/// Shares below which a strain, a force or a displacement is what rounding leaves of 0.
constexpr double kNoStrain = 1.0e-14;
constexpr double kNoForce = 1.0e-9;
constexpr double kNoGap = 1.0e-12;
constexpr double kSameForce = 1.0e-6;

/// A member is slack while what its sense allows would not draw or press it.
bool IsSlack(const Structure& structure, const CaseLoads& loads, const CaseResult& result, std::size_t at) {
    const FrameSpan& span = structure.Model().spans[at];
    double elongation = structure.Elements()[at].Elongation(structure.EndDisplacements(result.displacements, at));
    for (const SpanLoad& load : loads.OfSpan(at)) elongation -= load.strain * span.length;
    if (span.sense == AxialSense::CompressionOnly) elongation = -elongation;
    return elongation < -kNoStrain * span.length;
}

double GreatestOf(const std::vector<NodeVector>& values) {
    double greatest = 0.0;
    for (const NodeVector& value : values) {
        for (std::size_t i = 0; i < 3; ++i) greatest = std::max(greatest, std::abs(value[i]));
    }
    return greatest;
}

/// A support lets go when it would have to draw, and holds again when the structure comes back onto it.
void PutSupports(const Structure& structure, const CaseLoads& loads, const CaseResult& result, StructureState& state) {
    const std::vector<NodeVector> ground = structure.GroundMoves(loads);
    const double force = kNoForce * GreatestOf(result.reactions);
    const double gap = kNoGap * GreatestOf(result.displacements);
    for (std::size_t s = 0; s < state.isLetGo.size(); ++s) {
        const FrameSupport& support = structure.Model().supports[s];
        for (std::size_t i = 0; i < 3; ++i) {
            const bool isOneWay = support.sense[i] != 0 && support.Holds(i) &&
                                  (!support.isFixed[i] || structure.NodeFreedoms().IsOwn(support.node, i));
            if (!isOneWay) continue;
            const double away = support.sense[i] * (result.displacements[support.node][i] - ground[s][i]);
            const double push = support.sense[i] * result.reactions[s][i];
            state.isLetGo[s][i] = state.isLetGo[s][i] ? away >= -gap : push < -force;
        }
    }
}

/// The mean force of an element counts where loads along it let it vary.
void PutAxialForces(const CaseResult& result, StructureState& state) {
    std::vector<double> forces;
    double greatest = 0.0;
    for (std::size_t i = 0; i < state.axial.size(); ++i) {
        const EndVector& ends = result.elements[i].ends;
        forces.push_back(state.axial[i].isSlack ? 0.0 : 0.5 * (ends[kFreedoms] - ends[0]));
        greatest = std::max(greatest, std::abs(forces.back()));
    }
    bool isSame = true;
    for (std::size_t i = 0; i < forces.size(); ++i) {
        isSame = isSame && std::abs(forces[i] - state.axial[i].force) <= kSameForce * greatest;
    }
    for (std::size_t i = 0; !isSame && i < forces.size(); ++i) state.axial[i].force = forces[i];
}

}  // namespace

StructureState NextState(const Structure& structure, const CaseLoads& loads, const CaseResult& result,
                         bool secondOrder) {
    StructureState state = structure.State();
    for (std::size_t at = 0; at < state.axial.size(); ++at) {
        if (structure.Model().spans[at].sense != AxialSense::Both) {
            state.axial[at].isSlack = IsSlack(structure, loads, result, at);
        }
    }
    PutSupports(structure, loads, result, state);
    if (secondOrder) PutAxialForces(result, state);
    return state;
}

}  // namespace zt
