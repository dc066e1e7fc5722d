#include "zt_anl/solve/static_solver.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "velda_lib/number_text.h"
#include "zt_anl/element/station_forces.h"

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

std::span<const SpanLoad> LoadsOf(const CaseLoads& loads, std::size_t span) {
    const auto range = std::equal_range(loads.spans.begin(), loads.spans.end(), SpanLoad{.span = span},
                                        [](const SpanLoad& a, const SpanLoad& b) { return a.span < b.span; });
    return {range.first, range.second};
}

EndVector ToArray(const Vector12& values) {
    EndVector array{};
    std::copy(values.data(), values.data() + values.size(), array.begin());
    return array;
}

}  // namespace

Outcome StaticSolver::Prepare() {
    tensionOnly_.clear();
    for (std::size_t i = 0; i < structure_.Model().spans.size(); ++i) {
        if (structure_.Model().spans[i].isTensionOnly) tensionOnly_.push_back(i);
    }
    isSlack_.assign(tensionOnly_.size(), false);
    return structure_.Decompose(structure_.Stiffness(), whole_);
}

CaseResult StaticSolver::Solve(const CaseLoads& loads) {
    CaseResult result{.stld = loads.stld, .name = loads.name};
    const std::vector<NodeVector> nodal = structure_.NodalLoads(loads);
    TellOfLooseLoads(loads, nodal);
    result.displacements = structure_.Spread(whole_.solve(structure_.LoadVector(loads)));
    if (!tensionOnly_.empty()) SettleTension(loads, result);
    PutElementForces(loads, result);
    PutReactions(loads, result);
    PutSums(nodal, result);
    for (std::size_t i = 0; i < tensionOnly_.size(); ++i) {
        if (isSlack_[i]) structure_.SetSlack(tensionOnly_[i], false);
    }
    isSlack_.assign(tensionOnly_.size(), false);
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

/// The displacements of the last round that could be solved stay, so that they go with the forces.
void StaticSolver::SettleTension(const CaseLoads& loads, CaseResult& result) {
    const Eigen::VectorXd vector = structure_.LoadVector(loads);
    std::vector<bool> solved = isSlack_;
    const auto giveUp = [&] {
        for (std::size_t i = 0; i < tensionOnly_.size(); ++i) structure_.SetSlack(tensionOnly_[i], solved[i]);
        isSlack_ = solved;
        result.hasSettled = false;
        log_.Warn("IDS_ANL_NOT_SETTLED", {loads.name, velda::FormatLong(result.rounds)});
    };
    while (SwitchMembers(result.displacements)) {
        if (result.rounds == kMostRounds) return giveUp();
        Factor factor;
        if (!structure_.Decompose(structure_.Stiffness(), factor)) return giveUp();
        result.displacements = structure_.Spread(factor.solve(vector));
        solved = isSlack_;
        ++result.rounds;
    }
}

/// Leaves pressed members out and takes drawn ones back; false when nothing changed.
bool StaticSolver::SwitchMembers(const std::vector<NodeVector>& displacements) {
    constexpr double kNoStrain = 1.0e-14;
    bool hasChanged = false;
    for (std::size_t i = 0; i < tensionOnly_.size(); ++i) {
        const std::size_t span = tensionOnly_[i];
        const double elongation =
            structure_.Elements()[span].Elongation(structure_.EndDisplacements(displacements, span));
        const bool isSlack = elongation < -kNoStrain * structure_.Model().spans[span].length;
        if (isSlack == isSlack_[i]) continue;
        structure_.SetSlack(span, isSlack);
        isSlack_[i] = isSlack;
        hasChanged = true;
    }
    return hasChanged;
}

void StaticSolver::PutElementForces(const CaseLoads& loads, CaseResult& result) const {
    result.elements.resize(structure_.Elements().size());
    for (std::size_t i = 0; i < result.elements.size(); ++i) {
        const FrameElement& element = structure_.Elements()[i];
        const auto own = LoadsOf(loads, i);
        Vector12 forces =
            element.LocalStiffness() * element.ToLocal(structure_.EndDisplacements(result.displacements, i));
        for (const SpanLoad& load : own) forces -= element.NodalForces(load);
        result.elements[i].ends = ToArray(forces);
        result.elements[i].stations =
            ForcesAtStations(structure_.Model().spans[i], result.elements[i].ends, own, stations_);
    }
}

/// What the elements and springs of each node take and its loads do not bring.
std::vector<NodeVector> StaticSolver::ForcesTaken(const CaseLoads& loads, const CaseResult& result) const {
    const FrameModel& model = structure_.Model();
    std::vector<NodeVector> taken(model.nodes.size());
    for (std::size_t i = 0; i < model.spans.size(); ++i) {
        const Vector12 global = structure_.Elements()[i].ToGlobal(Vector12(result.elements[i].ends.data()));
        for (std::size_t k = 0; k < 2 * kFreedoms; ++k) {
            taken[model.spans[i].ends[k / kFreedoms]][k % kFreedoms] += global(static_cast<Eigen::Index>(k));
        }
    }
    for (const FrameSupport& support : model.supports) {
        for (std::size_t k = 0; k < kFreedoms; ++k) {
            taken[support.node][k] += support.spring[k] * result.displacements[support.node][k];
        }
    }
    for (std::size_t node = 0; node < taken.size(); ++node) {
        for (std::size_t k = 0; k < kFreedoms; ++k) taken[node][k] -= loads.nodal[node][k];
    }
    return taken;
}

/// A held freedom gives what is taken there. Forces on slaves count at their masters.
void StaticSolver::PutReactions(const CaseLoads& loads, CaseResult& result) const {
    const Freedoms& freedoms = structure_.NodeFreedoms();
    const Eigen::VectorXd sums = structure_.Gather(ForcesTaken(loads, result));
    for (const FrameSupport& support : structure_.Model().supports) {
        NodeVector& reaction = result.reactions.emplace_back();
        for (std::size_t k = 0; k < kFreedoms; ++k) {
            if (!support.isFixed[k]) {
                reaction[k] = -support.spring[k] * result.displacements[support.node][k];
                continue;
            }
            const Freedoms::Term& term = freedoms.TermsOf(support.node, k)[0];
            if (freedoms.At(static_cast<std::size_t>(term.place)).node == support.node) reaction[k] = sums(term.place);
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
