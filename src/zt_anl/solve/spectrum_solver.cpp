#include "zt_anl/solve/spectrum_solver.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "zt_anl/solve/mode_correlation.h"
#include "zt_db/units/exact_units.h"

namespace zt {
namespace {

using Eigen::Index;
using Eigen::MatrixXd;
using Eigen::VectorXd;

/// Spans between two questions whether the work goes on.
constexpr std::size_t kBlock = 256;

/// The greatest coordinate of each mode, with the sign of its participation.
VectorXd GreatestCoordinates(const ModalResult& modal, const SpectrumCase& of) {
    const Vector3 direction = GroundDirectionOf(of.record.direction, of.record.angle);
    VectorXd coordinates(static_cast<Index>(modal.modes.size()));
    for (std::size_t i = 0; i < modal.modes.size(); ++i) {
        const ModeResult& mode = modal.modes[i];
        const double omega = 2.0 * std::numbers::pi * mode.frequency;
        double participation = 0.0;
        for (std::size_t axis = 0; axis < 3; ++axis) participation += mode.participation[axis] * direction[axis];
        const double acceleration = SpectrumAt(of.spectrum, mode.period) * of.record.scale * kGravity;
        coordinates(static_cast<Index>(i)) = participation * acceleration / (omega * omega);
    }
    return coordinates;
}

/// Puts responses of modes together, row by row.
class Combination {
public:
    Combination(const ModalResult& modal, const SpectrumCase& of) : coordinates_(GreatestCoordinates(modal, of)) {
        const auto count = static_cast<Index>(modal.modes.size());
        correlation_ = MatrixXd::Identity(count, count);
        if (of.record.combination != ModeCombination::Cqc) return;
        for (Index i = 0; i < count; ++i) {
            for (Index j = 0; j < count; ++j) {
                correlation_(i, j) =
                    ModeCorrelation(modal.modes[static_cast<std::size_t>(i)].frequency,
                                    modal.modes[static_cast<std::size_t>(j)].frequency, of.record.damping);
            }
        }
    }
    /// Puts down what responses can be combined from later.
    void Store(bool isComplete, SpectrumResult& result) const {
        result.coordinates.assign(coordinates_.data(), coordinates_.data() + coordinates_.size());
        if (isComplete) result.correlation.assign(correlation_.data(), correlation_.data() + correlation_.size());
    }
    VectorXd Of(const MatrixXd& shapes) const {
        const MatrixXd responses = shapes * coordinates_.asDiagonal();
        return (responses * correlation_).cwiseProduct(responses).rowwise().sum().cwiseMax(0.0).cwiseSqrt();
    }

private:
    VectorXd coordinates_;
    MatrixXd correlation_;
};

NodeVector SixFrom(const VectorXd& values, std::size_t item) {
    NodeVector six{};
    std::copy_n(values.data() + item * kFreedoms, kFreedoms, six.begin());
    return six;
}

ElementForces ForcesOf(const ResponseShapes& shapes, const Combination& combination, std::size_t span) {
    ElementForces forces;
    const MatrixXd ends = shapes.Ends(span);
    const VectorXd atEnds = combination.Of(ends);
    std::copy_n(atEnds.data(), forces.ends.size(), forces.ends.begin());
    const VectorXd atStations = combination.Of(shapes.Stations(span, ends));
    const double length = shapes.Model().spans[span].length;
    const auto last = static_cast<double>(shapes.StationCount() - 1);
    for (std::size_t i = 0; i < shapes.StationCount(); ++i) {
        forces.stations.push_back({length * static_cast<double>(i) / last, SixFrom(atStations, i)});
    }
    return forces;
}

}  // namespace

bool SolveSpectrum(const ResponseShapes& shapes, const SpectrumCase& spectrumCase, const WorkGoes& goes,
                   SpectrumResult& result) {
    result = {.splc = spectrumCase.key, .name = spectrumCase.record.name};
    const Combination combination(shapes.Modal(), spectrumCase);
    combination.Store(spectrumCase.record.combination == ModeCombination::Cqc, result);
    result.reactionSum = SixFrom(combination.Of(shapes.ReactionSum()), 0);
    const FrameModel& model = shapes.Model();
    for (std::size_t node = 0; node < model.nodes.size(); ++node) {
        result.displacements.push_back(SixFrom(combination.Of(shapes.Displacements(node)), 0));
    }
    for (std::size_t support = 0; support < model.supports.size(); ++support) {
        result.reactions.push_back(SixFrom(combination.Of(shapes.Reactions(support)), 0));
    }
    for (std::size_t span = 0; span < model.spans.size(); ++span) {
        if (span % kBlock == 0 && !goes(span, model.spans.size())) return false;
        result.elements.push_back(ForcesOf(shapes, combination, span));
    }
    return true;
}

}  // namespace zt
