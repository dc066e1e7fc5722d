#include "zt_anl/solve/static_solver.h"

#include <algorithm>
#include <cmath>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "zt_anl/element/station_forces.h"
#include "zt_anl/solve/next_state.h"

namespace zt {
namespace {

using velda::Outcome;

/// A sum of forces as "(1.5, 0, -20.25)", in kN.
std::string SumText(const Vector3& sum) {
    const auto text = [](double value) {
        const double shown = std::round(value) / 1000.0;
        return velda::FormatDouble(shown == 0.0 ? 0.0 : shown);
    };
    return "(" + text(sum[0]) + ", " + text(sum[1]) + ", " + text(sum[2]) + ")";
}

EndVector ToArray(const Vector12& values) {
    EndVector array{};
    std::copy(values.data(), values.data() + values.size(), array.begin());
    return array;
}

}  // namespace

Outcome StaticSolver::Prepare() {
    base_ = structure_.State();
    return structure_.Decompose(structure_.Stiffness(), whole_);
}

Outcome StaticSolver::HoldAxialForces(const CaseLoads& loads) {
    CaseResult result{.name = velda::FormatText("IDS_ANL_SECOND_ORDER_LOADS", {})};
    const Settled how = Settle(loads, true, result);
    if (how == Settled::Buckles) {
        const std::vector<std::string> values = BucklingValues(result.name);
        return Outcome::Refused(velda::FormatText("IDS_ANL_BUCKLES", {values[0], values[1], values[2]}));
    }
    if (how != Settled::Well) TellUnsettled(how, result);
    for (std::size_t i = 0; i < base_.axial.size(); ++i) base_.axial[i].force = structure_.State().axial[i].force;
    structure_.SetState(base_);
    return structure_.Decompose(structure_.Stiffness(), whole_);
}

CaseResult StaticSolver::Solve(const CaseLoads& loads, bool secondOrder) {
    CaseResult result{.stld = loads.stld, .name = loads.name};
    const std::vector<NodeVector> nodal = structure_.NodalLoads(loads);
    TellOfLooseLoads(loads, nodal);
    if (const Settled how = Settle(loads, secondOrder, result); how != Settled::Well) TellUnsettled(how, result);
    PutStations(loads, result);
    PutSums(nodal, result);
    structure_.SetState(base_);
    return result;
}

void StaticSolver::TellOfLooseLoads(const CaseLoads& loads, const std::vector<NodeVector>& nodal) {
    for (std::size_t node = 0; node < nodal.size(); ++node) {
        for (std::size_t i = 0; i < kFreedoms; ++i) {
            if (nodal[node][i] == 0.0 || !structure_.IsLoose(node, i)) continue;
            log_.Warn("IDS_ANL_LOOSE_LOAD", {NumberText(structure_.Model(), node), FreedomText(i), loads.name});
        }
    }
}

/// The displacements of the last round that could be solved stay, with the state that they go with.
StaticSolver::Settled StaticSolver::Settle(const CaseLoads& loads, bool secondOrder, CaseResult& result) {
    SolveRound(whole_, loads, result);
    for (;;) {
        const StructureState solved = structure_.State();
        const StructureState next = NextState(structure_, loads, result, secondOrder);
        if (next == solved) return Settled::Well;
        if (result.rounds == kMostRounds) return Settled::TooLate;
        structure_.SetState(next);
        Factor factor;
        if (!structure_.Decompose(structure_.Stiffness(), factor)) {
            const Settled how = FindBuckling(next);
            structure_.SetState(solved);
            return how;
        }
        SolveRound(factor, loads, result);
        ++result.rounds;
    }
}

void StaticSolver::SolveRound(const Factor& factor, const CaseLoads& loads, CaseResult& result) const {
    result.displacements = structure_.Spread(factor.solve(structure_.LoadVector(loads)), loads);
    PutElementForces(loads, result);
    PutReactions(loads, result);
}

void StaticSolver::TellUnsettled(Settled how, CaseResult& result) {
    result.hasSettled = false;
    if (how == Settled::Buckles) {
        log_.Warn("IDS_ANL_BUCKLES", BucklingValues(result.name));
    } else {
        log_.Warn("IDS_ANL_NOT_SETTLED", {result.name, velda::FormatLong(result.rounds)});
    }
}

std::vector<std::string> StaticSolver::BucklingValues(const std::string& name) const {
    return {name, NumberText(structure_.Model(), buckling_.node), FreedomText(buckling_.freedom)};
}

/// Far beyond the critical load the motions that give way are many. Close to it there is one: the share of the axial
/// forces that the structure just bears not is found by bisection.
StaticSolver::Settled StaticSolver::FindBuckling(const StructureState& state) {
    constexpr int kHalvings = 20;
    const auto isStable = [&](double share, SparseMatrix& stiffness) {
        StructureState part = state;
        for (AxialState& axial : part.axial) axial.force *= share;
        structure_.SetState(part);
        stiffness = structure_.Stiffness();
        Factor factor;
        return static_cast<bool>(structure_.Decompose(stiffness, factor));
    };
    SparseMatrix stiffness;
    if (!isStable(0.0, stiffness)) return Settled::MovesFreely;
    double stable = 0.0;
    double unstable = 1.0;
    for (int i = 0; i < kHalvings; ++i) {
        const double middle = 0.5 * (stable + unstable);
        (isStable(middle, stiffness) ? stable : unstable) = middle;
    }
    isStable(unstable, stiffness);
    buckling_ = structure_.FreestOf(stiffness);
    return Settled::Buckles;
}

void StaticSolver::PutElementForces(const CaseLoads& loads, CaseResult& result) const {
    result.elements.resize(structure_.Elements().size());
    for (std::size_t i = 0; i < result.elements.size(); ++i) {
        const FrameElement& element = structure_.Elements()[i];
        Vector12 forces =
            element.LocalStiffness() * element.ToLocal(structure_.EndDisplacements(result.displacements, i));
        for (const SpanLoad& load : loads.OfSpan(i)) forces -= element.NodalForces(load);
        result.elements[i].ends = ToArray(forces);
    }
}

void StaticSolver::PutStations(const CaseLoads& loads, CaseResult& result) const {
    for (std::size_t i = 0; i < result.elements.size(); ++i) {
        ElementForces& forces = result.elements[i];
        const Vector12 moves = structure_.EndDisplacements(result.displacements, i);
        forces.stations = ForcesAtStations(structure_.Model().spans[i], structure_.Elements()[i], forces.ends, moves,
                                           loads.OfSpan(i), stations_);
    }
}

/// What the elements and springs of each node take and its loads do not bring.
std::vector<NodeVector> StaticSolver::ForcesTaken(const CaseLoads& loads, const CaseResult& result) const {
    const FrameModel& model = structure_.Model();
    std::vector<NodeVector> taken(model.nodes.size());
    for (std::size_t i = 0; i < model.spans.size(); ++i) {
        const Vector12 global = structure_.Elements()[i].NodeForces(
            Vector12(result.elements[i].ends.data()), structure_.EndDisplacements(result.displacements, i));
        for (std::size_t k = 0; k < 2 * kFreedoms; ++k) {
            taken[model.spans[i].ends[k / kFreedoms]][k % kFreedoms] += global(static_cast<Eigen::Index>(k));
        }
    }
    const std::vector<NodeVector> springs = SpringReactions(loads, result);
    for (std::size_t s = 0; s < model.supports.size(); ++s) {
        for (std::size_t k = 0; k < kFreedoms; ++k) taken[model.supports[s].node][k] -= springs[s][k];
    }
    for (std::size_t node = 0; node < taken.size(); ++node) {
        for (std::size_t k = 0; k < kFreedoms; ++k) taken[node][k] -= loads.nodal[node][k];
    }
    return taken;
}

std::vector<NodeVector> StaticSolver::SpringReactions(const CaseLoads& loads, const CaseResult& result) const {
    std::vector<NodeVector> reactions(structure_.Model().supports.size());
    const std::vector<NodeVector> ground = structure_.GroundMoves(loads);
    for (std::size_t s = 0; s < reactions.size(); ++s) {
        const NodeVector& node = result.displacements[structure_.Model().supports[s].node];
        for (std::size_t k = 0; k < kFreedoms; ++k) {
            reactions[s][k] = structure_.SpringOf(s, k) * (ground[s][k] - node[k]);
        }
    }
    return reactions;
}

/// A held freedom gives what is taken there. Forces on slaves count at their masters.
void StaticSolver::PutReactions(const CaseLoads& loads, CaseResult& result) const {
    const Freedoms& freedoms = structure_.NodeFreedoms();
    const Eigen::VectorXd sums = structure_.Gather(ForcesTaken(loads, result));
    result.reactions = SpringReactions(loads, result);
    for (std::size_t s = 0; s < result.reactions.size(); ++s) {
        const FrameSupport& support = structure_.Model().supports[s];
        for (std::size_t k = 0; k < kFreedoms; ++k) {
            if (!support.isFixed[k] || structure_.IsLetGo(s, k)) continue;
            if (freedoms.IsOwn(support.node, k))
                result.reactions[s][k] = sums(freedoms.TermsOf(support.node, k)[0].place);
        }
    }
}

void StaticSolver::PutSums(const std::vector<NodeVector>& nodal, CaseResult& result) {
    constexpr double kSmall = 1.0e-6;
    for (std::size_t node = 0; node < nodal.size(); ++node) {
        for (std::size_t i = 0; i < 3; ++i) {
            if (!structure_.IsLoose(node, i)) result.loadSum[i] += nodal[node][i];
        }
    }
    double greatest = 0.0;
    for (const NodeVector& reaction : result.reactions) {
        for (std::size_t i = 0; i < 3; ++i) {
            result.reactionSum[i] += reaction[i];
            greatest = std::max(greatest, std::abs(reaction[i]));
        }
    }
    double rest = 0.0;
    for (std::size_t i = 0; i < 3; ++i) rest = std::max(rest, std::abs(result.loadSum[i] + result.reactionSum[i]));
    log_.Note("IDS_ANL_EQUILIBRIUM", {result.name, SumText(result.loadSum), SumText(result.reactionSum)});
    if (rest > kSmall * std::max(greatest, 1.0)) log_.Warn("IDS_ANL_NO_EQUILIBRIUM", {result.name});
}

}  // namespace zt
