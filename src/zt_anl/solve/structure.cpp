#include "zt_anl/solve/structure.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"

namespace zt {
namespace {

using velda::FormatLong;
using velda::FormatText;
using velda::Outcome;

/// A stiffness below this share of the greatest one is none.
constexpr double kNoStiffness = 1.0e-14;
/// A pivot below this share of its diagonal is what rounding leaves of 0.
constexpr double kNoPivot = 1.0e-12;

std::size_t NodeOf(const FrameSpan& span, std::size_t value) { return span.ends[value / kFreedoms]; }

}  // namespace

Outcome Structure::Build(const FrameModel& model, bool shearDeformation, AnalysisLog& log) {
    model_ = &model;
    shearDeformation_ = shearDeformation;
    elements_.clear();
    for (const FrameSpan& span : model.spans) elements_.emplace_back(span, shearDeformation);
    state_.axial.assign(model.spans.size(), {});
    state_.isLetGo.assign(model.supports.size(), {});
    Outcome outcome = freedoms_.Build(model);
    if (!outcome) return outcome;
    isMet_.assign(model.nodes.size(), false);
    for (const FrameSpan& span : model.spans) isMet_[span.ends[0]] = isMet_[span.ends[1]] = true;
    FindStiffnessless();
    NumberEquations();
    TellEquations(log);
    return outcome;
}

void Structure::SetState(const StructureState& state) {
    for (std::size_t i = 0; i < elements_.size(); ++i) {
        if (state.axial[i] != state_.axial[i]) {
            elements_[i] = FrameElement(model_->spans[i], shearDeformation_, state.axial[i]);
        }
    }
    const bool areSupportsSame = state.isLetGo == state_.isLetGo;
    state_ = state;
    if (!areSupportsSame) NumberEquations();
}

double Structure::SpringOf(std::size_t support, std::size_t freedom) const {
    return IsLetGo(support, freedom) ? 0.0 : model_->supports[support].spring[freedom];
}

// ---- stiffness ----

void Structure::AddElement(const Matrix12& values, const FrameSpan& span, Triplets& triplets) const {
    for (std::size_t i = 0; i < 2 * kFreedoms; ++i) {
        for (const Freedoms::Term& row : freedoms_.TermsOf(NodeOf(span, i), i % kFreedoms)) {
            for (std::size_t j = 0; j < 2 * kFreedoms; ++j) {
                const double value = values(static_cast<Eigen::Index>(i), static_cast<Eigen::Index>(j));
                if (value == 0.0) continue;
                for (const Freedoms::Term& column : freedoms_.TermsOf(NodeOf(span, j), j % kFreedoms)) {
                    triplets.emplace_back(row.place, column.place, row.factor * column.factor * value);
                }
            }
        }
    }
}

void Structure::AddOnNode(std::size_t node, std::size_t freedom, double value, Triplets& triplets) const {
    if (value == 0.0) return;
    for (const Freedoms::Term& row : freedoms_.TermsOf(node, freedom)) {
        for (const Freedoms::Term& column : freedoms_.TermsOf(node, freedom)) {
            triplets.emplace_back(row.place, column.place, row.factor * column.factor * value);
        }
    }
}

SparseMatrix Structure::WholeStiffness() const {
    Triplets triplets;
    for (std::size_t i = 0; i < elements_.size(); ++i) {
        AddElement(elements_[i].GlobalStiffness(), model_->spans[i], triplets);
    }
    for (std::size_t s = 0; s < model_->supports.size(); ++s) {
        for (std::size_t i = 0; i < kFreedoms; ++i) AddOnNode(model_->supports[s].node, i, SpringOf(s, i), triplets);
    }
    return WholeOf(triplets);
}

SparseMatrix Structure::WholeOf(const Triplets& triplets) const {
    const auto count = static_cast<Eigen::Index>(freedoms_.Count());
    SparseMatrix whole(count, count);
    whole.setFromTriplets(triplets.begin(), triplets.end());
    return whole;
}

/// Finds the freedoms that nothing holds. Displacements at nodes with elements are none of them: they make the
/// equations singular, which is told.
void Structure::FindStiffnessless() {
    const Eigen::VectorXd diagonal = WholeStiffness().diagonal();
    std::array<double, 2> greatest{};  // of displacements and of rotations
    const auto kindOf = [&](std::size_t place) -> std::size_t { return freedoms_.At(place).freedom < 3 ? 0 : 1; };
    const auto valueAt = [&](std::size_t place) { return diagonal(static_cast<Eigen::Index>(place)); };
    for (std::size_t place = 0; place < freedoms_.Count(); ++place) {
        double& ofKind = greatest[kindOf(place)];
        ofKind = std::max(ofKind, valueAt(place));
    }
    isStiffnessless_.assign(freedoms_.Count(), false);
    for (std::size_t place = 0; place < freedoms_.Count(); ++place) {
        const bool mayStay = kindOf(place) == 1 || !isMet_[freedoms_.At(place).node];
        isStiffnessless_[place] = mayStay && valueAt(place) <= kNoStiffness * greatest[kindOf(place)];
    }
}

void Structure::NumberEquations() {
    std::vector<bool> isHeld(freedoms_.Count());
    for (std::size_t place = 0; place < isHeld.size(); ++place) isHeld[place] = freedoms_.IsFixed(place);
    for (std::size_t s = 0; s < model_->supports.size(); ++s) {
        const FrameSupport& support = model_->supports[s];
        for (std::size_t i = 0; i < 3; ++i) {
            if (!support.isFixed[i] || !IsLetGo(s, i)) continue;
            isHeld[static_cast<std::size_t>(freedoms_.TermsOf(support.node, i)[0].place)] = false;
        }
    }
    equationOf_.assign(freedoms_.Count(), -1);
    moving_.clear();
    for (std::size_t place = 0; place < freedoms_.Count(); ++place) {
        if (isHeld[place] || isStiffnessless_[place]) continue;
        equationOf_[place] = static_cast<int>(moving_.size());
        moving_.push_back(place);
    }
}

void Structure::TellEquations(AnalysisLog& log) const {
    std::size_t rotations = 0;
    for (std::size_t place = 0; place < freedoms_.Count(); ++place) {
        const bool isLeftOut = isStiffnessless_[place] && !freedoms_.IsFixed(place);
        rotations += isLeftOut && isMet_[freedoms_.At(place).node] ? 1 : 0;
    }
    const auto text = [](std::size_t count) { return FormatLong(static_cast<std::int64_t>(count)); };
    if (rotations > 0) log.Note("IDS_ANL_FREE_ROTATIONS", {text(rotations)});
    if (CountLooseNodes() > 0) log.Note("IDS_ANL_LOOSE_NODES", {text(CountLooseNodes())});
    log.Note("IDS_ANL_EQUATIONS", {text(moving_.size())});
}

std::size_t Structure::CountLooseNodes() const {
    std::size_t count = 0;
    for (std::size_t node = 0; node < model_->nodes.size(); ++node) {
        bool isLoose = true;
        for (std::size_t i = 0; i < kFreedoms; ++i) isLoose = isLoose && IsLoose(node, i);
        count += isLoose ? 1 : 0;
    }
    return count;
}

SparseMatrix Structure::Moving(const SparseMatrix& whole) const {
    Triplets triplets;
    for (Eigen::Index column = 0; column < whole.outerSize(); ++column) {
        const int to = equationOf_[static_cast<std::size_t>(column)];
        for (SparseMatrix::InnerIterator it(whole, column); to >= 0 && it; ++it) {
            const int row = equationOf_[static_cast<std::size_t>(it.row())];
            if (row >= 0) triplets.emplace_back(row, to, it.value());
        }
    }
    const auto count = static_cast<Eigen::Index>(moving_.size());
    SparseMatrix moving(count, count);
    moving.setFromTriplets(triplets.begin(), triplets.end());
    return moving;
}

SparseMatrix Structure::Stiffness() const { return Moving(WholeStiffness()); }

Outcome Structure::Decompose(const SparseMatrix& stiffness, Factor& factor) const {
    factor.compute(stiffness);
    bool isRegular = factor.info() == Eigen::Success;
    if (isRegular) {
        const Eigen::VectorXd pivots = factor.vectorD();
        const Eigen::VectorXd diagonal = factor.permutationP() * Eigen::VectorXd(stiffness.diagonal());
        for (Eigen::Index i = 0; i < pivots.size(); ++i)
            isRegular = isRegular && pivots(i) > kNoPivot * std::abs(diagonal(i));
    }
    if (isRegular) return Outcome::Done();
    const NodeFreedom freest = FreestOf(stiffness);
    return Outcome::Refused(
        FormatText("IDS_ANL_MOVES_FREELY", {NumberText(*model_, freest.node), FreedomText(freest.freedom)}));
}

/// The freedom that moves most when the structure moves with no resistance: the greatest displacement, or the greatest
/// rotation where nothing is displaced. Inverse iteration on the stiffness with a trace of its diagonal brings the
/// motion out.
NodeFreedom Structure::FreestOf(const SparseMatrix& stiffness) const {
    constexpr double kTrace = 1.0e-9;
    constexpr int kRounds = 3;
    constexpr double kNotDisplaced = 1.0e-3;
    const double mean = stiffness.diagonal().mean();
    SparseMatrix held = stiffness;
    for (Eigen::Index i = 0; i < held.rows(); ++i) {
        const double own = stiffness.coeff(i, i);
        held.coeffRef(i, i) += kTrace * (own > 0.0 ? own : mean > 0.0 ? mean : 1.0);
    }
    const Factor factor(held);
    Eigen::VectorXd motion(held.rows());
    // Uneven, so that no motion is square to it.
    for (Eigen::Index i = 0; i < motion.size(); ++i) motion(i) = 1.0 + 0.37 * std::sin(1.7 * static_cast<double>(i));
    for (int round = 0; round < kRounds; ++round) motion = Eigen::VectorXd(factor.solve(motion)).normalized();
    std::array<NodeFreedom, 2> freest{};
    std::array<double, 2> most{};
    for (std::size_t i = 0; i < moving_.size(); ++i) {
        const NodeFreedom& freedom = freedoms_.At(moving_[i]);
        const std::size_t kind = freedom.freedom < 3 ? 0 : 1;
        const double amount = std::abs(motion(static_cast<Eigen::Index>(i)));
        if (amount <= most[kind]) continue;
        most[kind] = amount;
        freest[kind] = freedom;
    }
    return most[0] > kNotDisplaced * most[1] ? freest[0] : freest[1];
}

// ---- masses ----

SparseMatrix Structure::Mass(bool selfWeight, bool consistent) const {
    Triplets triplets;
    for (const FrameMass& mass : model_->masses) {
        for (std::size_t i = 0; i < kFreedoms; ++i) AddOnNode(mass.node, i, mass.values[i], triplets);
    }
    if (selfWeight) AddMassesOfMembers(consistent, triplets);
    return Moving(WholeOf(triplets));
}

/// The masses of rigid lengths are lumped at their nodes whatever those of the elements are.
void Structure::AddMassesOfMembers(bool consistent, Triplets& triplets) const {
    const auto addWeight = [&](std::size_t node, double weight) {
        for (std::size_t i = 0; i < 3; ++i) AddOnNode(node, i, weight / kGravity, triplets);
    };
    for (std::size_t at = 0; at < model_->spans.size(); ++at) {
        const FrameSpan& span = model_->spans[at];
        if (consistent) AddElement(elements_[at].GlobalMass(span.weight / kGravity), span, triplets);
        for (std::size_t end = 0; end < 2; ++end) {
            addWeight(span.ends[end], span.weight * (consistent ? span.rigid[end] : 0.5 * span.WholeLength()));
        }
    }
    for (const FrameBearer& bearer : model_->bearers) {
        for (const std::size_t node : bearer.nodes) {
            addWeight(node, bearer.weight / static_cast<double>(bearer.nodes.size()));
        }
    }
}

// ---- loads and displacements ----

bool Structure::IsLoose(std::size_t node, std::size_t freedom) const {
    const auto terms = freedoms_.TermsOf(node, freedom);
    return std::all_of(terms.begin(), terms.end(), [&](const Freedoms::Term& term) {
        const auto place = static_cast<std::size_t>(term.place);
        return isStiffnessless_[place] && !freedoms_.IsFixed(place);
    });
}

std::vector<NodeVector> Structure::NodalLoads(const CaseLoads& loads) const {
    std::vector<NodeVector> nodal = loads.nodal;
    for (const SpanLoad& load : loads.spans) {
        const FrameElement& element = elements_[load.span];
        const Vector12 forces = element.ToGlobal(element.NodalForces(load));
        for (std::size_t i = 0; i < 2 * kFreedoms; ++i) {
            nodal[NodeOf(model_->spans[load.span], i)][i % kFreedoms] += forces(static_cast<Eigen::Index>(i));
        }
    }
    return nodal;
}

Eigen::VectorXd Structure::Gather(const std::vector<NodeVector>& forces) const {
    Eigen::VectorXd sums = Eigen::VectorXd::Zero(static_cast<Eigen::Index>(freedoms_.Count()));
    for (std::size_t node = 0; node < forces.size(); ++node) {
        for (std::size_t i = 0; i < kFreedoms; ++i) {
            for (const Freedoms::Term& term : freedoms_.TermsOf(node, i))
                sums(term.place) += term.factor * forces[node][i];
        }
    }
    return sums;
}

std::vector<NodeVector> Structure::GroundMoves(const CaseLoads& loads) const {
    std::vector<NodeVector> moves(model_->supports.size());
    for (const SupportMove& move : loads.moves) moves[move.support][move.freedom] += move.value;
    return moves;
}

/// The independent freedoms that supports hold, at the places that the supports move them to.
Eigen::VectorXd Structure::HeldMoves(const CaseLoads& loads) const {
    Eigen::VectorXd held = Eigen::VectorXd::Zero(static_cast<Eigen::Index>(freedoms_.Count()));
    for (const SupportMove& move : loads.moves) {
        const FrameSupport& support = model_->supports[move.support];
        if (!support.isFixed[move.freedom] || IsLetGo(move.support, move.freedom)) continue;
        held(freedoms_.TermsOf(support.node, move.freedom)[0].place) += move.value;
    }
    return held;
}

Eigen::VectorXd Structure::LoadVector(const CaseLoads& loads) const {
    std::vector<NodeVector> nodal = NodalLoads(loads);
    for (const SupportMove& move : loads.moves) {
        nodal[model_->supports[move.support].node][move.freedom] += SpringOf(move.support, move.freedom) * move.value;
    }
    Eigen::VectorXd sums = Gather(nodal);
    if (!loads.moves.empty()) sums -= WholeStiffness() * HeldMoves(loads);
    Eigen::VectorXd vector(static_cast<Eigen::Index>(moving_.size()));
    for (std::size_t i = 0; i < moving_.size(); ++i) {
        vector(static_cast<Eigen::Index>(i)) = sums(static_cast<Eigen::Index>(moving_[i]));
    }
    return vector;
}

std::vector<NodeVector> Structure::Spread(const Eigen::VectorXd& solution, const CaseLoads& loads) const {
    Eigen::VectorXd moves = HeldMoves(loads);
    for (std::size_t i = 0; i < moving_.size(); ++i) {
        moves(static_cast<Eigen::Index>(moving_[i])) = solution(static_cast<Eigen::Index>(i));
    }
    std::vector<NodeVector> nodes(model_->nodes.size());
    for (std::size_t node = 0; node < nodes.size(); ++node) {
        for (std::size_t i = 0; i < kFreedoms; ++i) {
            for (const Freedoms::Term& term : freedoms_.TermsOf(node, i))
                nodes[node][i] += term.factor * moves(term.place);
        }
    }
    return nodes;
}

Eigen::VectorXd Structure::RigidMove(std::size_t motion) const {
    Eigen::VectorXd move = Eigen::VectorXd::Zero(static_cast<Eigen::Index>(moving_.size()));
    const std::size_t next = (motion + 1) % 3;
    const std::size_t last = (motion + 2) % 3;
    for (std::size_t i = 0; i < moving_.size(); ++i) {
        const auto& [node, freedom] = freedoms_.At(moving_[i]);
        const Vector3& place = model_->nodes[node].place;
        double& value = move(static_cast<Eigen::Index>(i));
        if (freedom == motion) {
            value = 1.0;
        } else if (motion >= 3 && freedom == next) {
            value = -place[last];
        } else if (motion >= 3 && freedom == last) {
            value = place[next];
        }
    }
    return move;
}

Vector12 Structure::EndDisplacements(const std::vector<NodeVector>& displacements, std::size_t span) const {
    Vector12 ends;
    for (std::size_t i = 0; i < 2 * kFreedoms; ++i) {
        ends(static_cast<Eigen::Index>(i)) = displacements[NodeOf(model_->spans[span], i)][i % kFreedoms];
    }
    return ends;
}

}  // namespace zt
