#include "zt_anl/solve/response_shapes.h"

#include <algorithm>

#include "zt_anl/element/station_forces.h"

namespace zt {

using Eigen::Index;
using Eigen::MatrixXd;

namespace {

constexpr Index kRows = static_cast<Index>(kFreedoms);

Index RowOf(std::size_t item) { return static_cast<Index>(item) * kRows; }

}  // namespace

ResponseShapes::ResponseShapes(const Structure& structure, const ModalResult& modal,
                               const std::vector<DrivingLoads>& loads, std::size_t stations)
    : structure_(structure),
      modal_(modal),
      loads_(loads),
      stations_(stations),
      modes_(static_cast<Index>(modal.modes.size())) {
    PutReactions();
}

MatrixXd ResponseShapes::Displacements(std::size_t node) const {
    MatrixXd shapes(kRows, Count());
    for (Index column = 0; column < Count(); ++column) {
        shapes.col(column) = Eigen::Map<const Eigen::Matrix<double, 6, 1>>(ShapeOf(column)[node].data());
    }
    return shapes;
}

MatrixXd ResponseShapes::Reactions(std::size_t support) const { return reactions_.middleRows(RowOf(support), kRows); }

MatrixXd ResponseShapes::ReactionSum() const {
    MatrixXd sum = MatrixXd::Zero(kRows, Count());
    for (std::size_t s = 0; s < Model().supports.size(); ++s) {
        const MatrixXd own = Reactions(s);
        const Vector3& place = Model().nodes[Model().supports[s].node].place;
        sum += own;
        for (Index i = 0; i < 3; ++i) {
            const Index next = (i + 1) % 3;
            const Index last = (i + 2) % 3;
            sum.row(3 + i) += place[static_cast<std::size_t>(next)] * own.row(last) -
                              place[static_cast<std::size_t>(last)] * own.row(next);
        }
    }
    return sum;
}

MatrixXd ResponseShapes::Ends(std::size_t span) const {
    const FrameElement& element = structure_.Elements()[span];
    MatrixXd ends(2 * kRows, Count());
    for (Index column = 0; column < Count(); ++column) {
        ends.col(column) =
            element.LocalStiffness() * element.ToLocal(structure_.EndDisplacements(ShapeOf(column), span));
        if (const CaseLoads* loads = LoadsOf(column)) {
            for (const SpanLoad& load : loads->OfSpan(span)) ends.col(column) -= element.NodalForces(load);
        }
    }
    return ends;
}

MatrixXd ResponseShapes::Stations(std::size_t span, const MatrixXd& ends) const {
    const FrameElement& element = structure_.Elements()[span];
    MatrixXd forces(RowOf(stations_), Count());
    for (Index column = 0; column < Count(); ++column) {
        const CaseLoads* loads = LoadsOf(column);
        const auto onSpan = loads ? loads->OfSpan(span) : std::span<const SpanLoad>();
        EndVector own{};
        std::copy_n(ends.col(column).data(), own.size(), own.begin());
        const Vector12 moves = structure_.EndDisplacements(ShapeOf(column), span);
        const auto stations = ForcesAtStations(Model().spans[span], element, own, moves, onSpan, stations_);
        for (std::size_t i = 0; i < stations_; ++i) {
            forces.block<kRows, 1>(RowOf(i), column) =
                Eigen::Map<const Eigen::Matrix<double, 6, 1>>(stations[i].forces.data());
        }
    }
    return forces;
}

/// What elements and springs take at the independent freedoms, and loads on nodes do not bring.
MatrixXd ResponseShapes::TakenAtFreedoms() const {
    const FrameModel& model = Model();
    std::vector<std::vector<NodeVector>> taken(static_cast<std::size_t>(Count()),
                                               std::vector<NodeVector>(model.nodes.size()));
    for (std::size_t span = 0; span < model.spans.size(); ++span) {
        const MatrixXd ends = Ends(span);
        for (Index column = 0; column < Count(); ++column) {
            const Vector12 global = structure_.Elements()[span].NodeForces(
                ends.col(column), structure_.EndDisplacements(ShapeOf(column), span));
            auto& nodes = taken[static_cast<std::size_t>(column)];
            for (std::size_t k = 0; k < 2 * kFreedoms; ++k) {
                nodes[model.spans[span].ends[k / kFreedoms]][k % kFreedoms] += global(static_cast<Index>(k));
            }
        }
    }
    MatrixXd sums(static_cast<Index>(structure_.NodeFreedoms().Count()), Count());
    for (Index column = 0; column < Count(); ++column) {
        auto& nodes = taken[static_cast<std::size_t>(column)];
        for (std::size_t s = 0; s < model.supports.size(); ++s) {
            const std::size_t node = model.supports[s].node;
            for (std::size_t k = 0; k < kFreedoms; ++k) {
                nodes[node][k] += structure_.SpringOf(s, k) * ShapeOf(column)[node][k];
            }
        }
        const CaseLoads* loads = LoadsOf(column);
        for (std::size_t node = 0; loads && node < nodes.size(); ++node) {
            for (std::size_t k = 0; k < kFreedoms; ++k) nodes[node][k] -= loads->nodal[node][k];
        }
        sums.col(column) = structure_.Gather(nodes);
    }
    return sums;
}

/// A held freedom gives what is taken there, a spring resists its displacement. Forces on slaves count at their
/// masters.
void ResponseShapes::PutReactions() {
    const auto& supports = Model().supports;
    const Freedoms& freedoms = structure_.NodeFreedoms();
    const MatrixXd taken = TakenAtFreedoms();
    reactions_ = MatrixXd::Zero(RowOf(supports.size()), Count());
    for (std::size_t s = 0; s < supports.size(); ++s) {
        const MatrixXd shapes = Displacements(supports[s].node);
        for (std::size_t k = 0; k < kFreedoms; ++k) {
            const Index row = RowOf(s) + static_cast<Index>(k);
            if (!supports[s].isFixed[k]) {
                reactions_.row(row) = -structure_.SpringOf(s, k) * shapes.row(static_cast<Index>(k));
                continue;
            }
            if (!freedoms.IsOwn(supports[s].node, k)) continue;
            reactions_.row(row) = taken.row(freedoms.TermsOf(supports[s].node, k)[0].place);
        }
    }
}

}  // namespace zt
