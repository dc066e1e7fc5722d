#include "zt_anl/solve/history_solver.h"

#include <algorithm>
#include <numbers>

#include "zt_anl/solve/modal_history.h"

namespace zt {
namespace {

using Eigen::Index;
using Eigen::MatrixXd;
using RowMatrix = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>;

constexpr Index kRows = static_cast<Index>(kFreedoms);
/// Nodes, supports or spans whose series stand in memory at one time.
constexpr std::size_t kBlock = 16;

struct Extreme {
    double max = 0.0;
    double maxTime = 0.0;
    double min = 0.0;
    double minTime = 0.0;
};

Extreme ExtremeOf(const Eigen::Ref<const Eigen::RowVectorXd>& series, double step) {
    const double* const begin = series.data();
    const double* const end = begin + series.size();
    const auto timeOf = [&](double value) { return step * static_cast<double>(std::find(begin, end, value) - begin); };
    const double max = series.maxCoeff();
    const double min = series.minCoeff();
    return {max, timeOf(max), min, timeOf(min)};
}

/// The envelopes of rows of shapes, six for each, under the coordinates of the states. A row that is equal to the one
/// six above, like the shear along a span without loads, is computed once.
std::vector<NodeEnvelope> EnvelopesOf(const MatrixXd& shapes, const MatrixXd& coordinates, double step) {
    std::vector<Index> distinct;
    std::vector<std::size_t> placeOf;
    for (Index row = 0; row < shapes.rows(); ++row) {
        if (row >= kRows && shapes.row(row) == shapes.row(row - kRows)) {
            placeOf.push_back(placeOf[static_cast<std::size_t>(row - kRows)]);
        } else {
            placeOf.push_back(distinct.size());
            distinct.push_back(row);
        }
    }
    const RowMatrix series = shapes(distinct, Eigen::all) * coordinates;
    std::vector<Extreme> extremes;
    for (Index row = 0; row < series.rows(); ++row) extremes.push_back(ExtremeOf(series.row(row), step));
    std::vector<NodeEnvelope> envelopes(placeOf.size() / kFreedoms);
    for (std::size_t row = 0; row < placeOf.size(); ++row) {
        NodeEnvelope& envelope = envelopes[row / kFreedoms];
        const std::size_t i = row % kFreedoms;
        const Extreme& extreme = extremes[placeOf[row]];
        envelope.max[i] = extreme.max;
        envelope.maxTime[i] = extreme.maxTime;
        envelope.min[i] = extreme.min;
        envelope.minTime[i] = extreme.minTime;
    }
    return envelopes;
}

void Append(const std::vector<NodeEnvelope>& envelopes, std::vector<NodeEnvelope>& to) {
    to.insert(to.end(), envelopes.begin(), envelopes.end());
}

MatrixXd Stacked(const MatrixXd& above, const MatrixXd& below) {
    MatrixXd both(above.rows() + below.rows(), above.cols());
    both << above, below;
    return both;
}

/// Envelopes are made block by block, so that no more than one block of series stands in memory.
class EnvelopeMaker {
public:
    EnvelopeMaker(const ResponseShapes& shapes, const ModalHistory& history, const WorkGoes& goes,
                  HistoryResult& result)
        : shapes_(shapes), history_(history), goes_(goes), result_(result) {}

    bool Run() {
        const FrameModel& model = shapes_.Model();
        of_ = model.nodes.size() + model.supports.size() + model.spans.size();
        absolute_ = Stacked(history_.accelerations, history_.ground);
        whole_ = Stacked(history_.coordinates, history_.loads);
        result_.reactionSum = EnvelopesOf(shapes_.ReactionSum(), whole_, history_.step)[0];
        return InBlocks(model.nodes.size(), [&](std::size_t from, std::size_t to) { PutNodes(from, to); }) &&
               InBlocks(model.supports.size(), [&](std::size_t from, std::size_t to) { PutSupports(from, to); }) &&
               InBlocks(model.spans.size(), [&](std::size_t from, std::size_t to) { PutSpans(from, to); });
    }

private:
    template <class Work>
    bool InBlocks(std::size_t count, Work work) {
        for (std::size_t from = 0; from < count; from += kBlock) {
            if (!goes_(done_, of_)) return false;
            const std::size_t to = std::min(from + kBlock, count);
            work(from, to);
            done_ += to - from;
        }
        return true;
    }
    /// The shapes of some items, one below the other.
    template <class Get>
    static MatrixXd Gathered(std::size_t from, std::size_t to, Index columns, Get get) {
        MatrixXd shapes(kRows * static_cast<Index>(to - from), columns);
        for (std::size_t i = from; i < to; ++i) shapes.middleRows(kRows * static_cast<Index>(i - from), kRows) = get(i);
        return shapes;
    }
    void PutNodes(std::size_t from, std::size_t to) {
        const Index modes = shapes_.ModeCount();
        const MatrixXd all =
            Gathered(from, to, whole_.rows(), [&](std::size_t node) { return shapes_.Displacements(node); });
        const MatrixXd shapes = all.leftCols(modes);
        Append(EnvelopesOf(all, whole_, history_.step), result_.displacements);
        Append(EnvelopesOf(shapes, history_.speeds, history_.step), result_.velocities);
        Append(EnvelopesOf(shapes, history_.accelerations, history_.step), result_.relativeAccelerations);
        MatrixXd withGround = MatrixXd::Zero(shapes.rows(), modes + 3);
        withGround.leftCols(modes) = shapes;
        for (Index row = 0; row < shapes.rows(); ++row) {
            if (row % kRows < 3) withGround(row, modes + row % kRows) = 1.0;
        }
        Append(EnvelopesOf(withGround, absolute_, history_.step), result_.absoluteAccelerations);
    }
    void PutSupports(std::size_t from, std::size_t to) {
        const MatrixXd shapes =
            Gathered(from, to, whole_.rows(), [&](std::size_t support) { return shapes_.Reactions(support); });
        Append(EnvelopesOf(shapes, whole_, history_.step), result_.reactions);
    }
    void PutSpans(std::size_t from, std::size_t to) {
        for (std::size_t span = from; span < to; ++span) {
            const MatrixXd shapes = shapes_.Stations(span, shapes_.Ends(span));
            result_.stations.push_back(EnvelopesOf(shapes, whole_, history_.step));
        }
    }

    const ResponseShapes& shapes_;
    const ModalHistory& history_;
    const WorkGoes& goes_;
    HistoryResult& result_;
    MatrixXd absolute_;  ///< accelerations of the modes and of the ground
    MatrixXd whole_;     ///< coordinates of the modes and factors of the loads
    std::size_t done_ = 0;
    std::size_t of_ = 0;
};

void StoreStates(const ModalHistory& history, HistoryResult& result) {
    const auto valuesOf = [](const MatrixXd& values) {
        return std::vector<double>(values.data(), values.data() + values.size());
    };
    result.step = history.step;
    result.steps = static_cast<std::size_t>(history.coordinates.cols());
    result.coordinates = valuesOf(history.coordinates);
    result.accelerations = valuesOf(history.accelerations);
    result.loadFactors = valuesOf(history.loads);
    for (Index state = 0; state < history.ground.cols(); ++state) {
        result.ground.push_back({history.ground(0, state), history.ground(1, state), history.ground(2, state)});
    }
}

}  // namespace

const CaseLoads& HistorySolver::LoadsOf(std::uint32_t stld) const {
    return *std::find_if(cases_.begin(), cases_.end(), [&](const CaseLoads& loads) { return loads.stld == stld; });
}

/// What the modes leave of the static displacements by some loads.
std::vector<NodeVector> HistorySolver::Remainder(const CaseLoads& loads, const std::vector<NodeVector>& nodal) const {
    std::vector<NodeVector> remainder = structure_.Spread(stiffness_.solve(structure_.LoadVector(loads)));
    for (const ModeResult& mode : modal_.modes) {
        const double omega = 2.0 * std::numbers::pi * mode.frequency;
        const double share = WorkOn(mode.shape, nodal) / (omega * omega);
        for (std::size_t node = 0; node < remainder.size(); ++node) {
            for (std::size_t i = 0; i < kFreedoms; ++i) remainder[node][i] -= share * mode.shape[node][i];
        }
    }
    return remainder;
}

bool HistorySolver::Solve(const HistoryCase& historyCase, const WorkGoes& goes, HistoryResult& result) const {
    result = {.thlc = historyCase.key, .name = historyCase.record.name};
    std::vector<DrivingLoads> driving;
    std::vector<std::vector<NodeVector>> nodal;
    for (const std::uint32_t stld : DrivingCases(historyCase.record)) {
        const CaseLoads& loads = LoadsOf(stld);
        nodal.push_back(structure_.NodalLoads(loads));
        driving.push_back({&loads, Remainder(loads, nodal.back())});
        result.remainders.push_back(driving.back().remainder);
    }
    const ModalHistory history = IntegrateModes(modal_, historyCase, nodal);
    StoreStates(history, result);
    const ResponseShapes shapes(structure_, modal_, driving, stations_);
    return EnvelopeMaker(shapes, history, goes, result).Run();
}

}  // namespace zt
