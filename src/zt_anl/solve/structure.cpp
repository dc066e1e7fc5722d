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
    const Outcome outcome = freedoms_.Build(model);
    if (outcome) NumberEquations(log);
    return outcome;
}

void Structure::SetSlack(std::size_t span, bool isSlack) {
    elements_[span] = FrameElement(model_->spans[span], shearDeformation_,
                                   isSlack ? FrameElement::Axial::Slack : FrameElement::Axial::Carried);
}

// ---- stiffness ----

void Structure::AddElement(const FrameElement& element, const FrameSpan& span, Triplets& triplets) const {
    const Matrix12 stiffness = element.GlobalStiffness();
    for (std::size_t i = 0; i < 2 * kFreedoms; ++i) {
        for (const Freedoms::Term& row : freedoms_.TermsOf(NodeOf(span, i), i % kFreedoms)) {
            for (std::size_t j = 0; j < 2 * kFreedoms; ++j) {
                const double value = stiffness(static_cast<Eigen::Index>(i), static_cast<Eigen::Index>(j));
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
    for (std::size_t i = 0; i < elements_.size(); ++i) AddElement(elements_[i], model_->spans[i], triplets);
    for (const FrameSupport& support : model_->supports) {
        for (std::size_t i = 0; i < kFreedoms; ++i) AddOnNode(support.node, i, support.spring[i], triplets);
    }
    const auto count = static_cast<Eigen::Index>(freedoms_.Count());
    SparseMatrix whole(count, count);
    whole.setFromTriplets(triplets.begin(), triplets.end());
    return whole;
}

/// Finds the freedoms that nothing holds. Displacements at nodes with elements are none of them: they make the
/// equations singular, which is told.
void Structure::FindStiffnessless(const std::vector<bool>& isMet) {
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
        const bool mayStay = kindOf(place) == 1 || !isMet[freedoms_.At(place).node];
        isStiffnessless_[place] = mayStay && valueAt(place) <= kNoStiffness * greatest[kindOf(place)];
    }
}

void Structure::NumberEquations(AnalysisLog& log) {
    std::vector<bool> isMet(model_->nodes.size(), false);
    for (const FrameSpan& span : model_->spans) isMet[span.ends[0]] = isMet[span.ends[1]] = true;
    FindStiffnessless(isMet);
    equationOf_.assign(freedoms_.Count(), -1);
    moving_.clear();
    std::size_t rotations = 0;
    for (std::size_t place = 0; place < freedoms_.Count(); ++place) {
        if (freedoms_.IsFixed(place)) continue;
        if (isStiffnessless_[place]) {
            rotations += isMet[freedoms_.At(place).node] ? 1 : 0;
            continue;
        }
        equationOf_[place] = static_cast<int>(moving_.size());
        moving_.push_back(place);
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
        for (Eigen::Index i = 0; i < pivots.size(); ++i) isRegular = isRegular && pivots(i) > kNoPivot * diagonal(i);
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

SparseMatrix Structure::Mass(bool selfWeight) const {
    Triplets triplets;
    for (const FrameMass& mass : model_->masses) {
        for (std::size_t i = 0; i < kFreedoms; ++i) AddOnNode(mass.node, i, mass.values[i], triplets);
    }
    const auto addWeight = [&](std::size_t node, double weight) {
        for (std::size_t i = 0; i < 3; ++i) AddOnNode(node, i, weight / kGravity, triplets);
    };
    for (const FrameSpan& span : model_->spans) {
        if (!selfWeight) break;
        for (const std::size_t node : span.ends) addWeight(node, 0.5 * span.weight * span.length);
    }
    for (const FrameBearer& bearer : model_->bearers) {
        if (!selfWeight) break;
        for (const std::size_t node : bearer.nodes) {
            addWeight(node, bearer.weight / static_cast<double>(bearer.nodes.size()));
        }
    }
    const auto count = static_cast<Eigen::Index>(freedoms_.Count());
    SparseMatrix whole(count, count);
    whole.setFromTriplets(triplets.begin(), triplets.end());
    return Moving(whole);
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

Eigen::VectorXd Structure::LoadVector(const CaseLoads& loads) const {
    const Eigen::VectorXd sums = Gather(NodalLoads(loads));
    Eigen::VectorXd vector(static_cast<Eigen::Index>(moving_.size()));
    for (std::size_t i = 0; i < moving_.size(); ++i) {
        vector(static_cast<Eigen::Index>(i)) = sums(static_cast<Eigen::Index>(moving_[i]));
    }
    return vector;
}

std::vector<NodeVector> Structure::Spread(const Eigen::VectorXd& solution) const {
    std::vector<NodeVector> nodes(model_->nodes.size());
    for (std::size_t node = 0; node < nodes.size(); ++node) {
        for (std::size_t i = 0; i < kFreedoms; ++i) {
            for (const Freedoms::Term& term : freedoms_.TermsOf(node, i)) {
                const int equation = equationOf_[static_cast<std::size_t>(term.place)];
                if (equation >= 0) nodes[node][i] += term.factor * solution(equation);
            }
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
