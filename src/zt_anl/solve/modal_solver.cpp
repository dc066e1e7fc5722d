#include "zt_anl/solve/modal_solver.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "velda_lib/msg_dll.h"
#include <Spectra/SymEigsSolver.h>

namespace zt {
namespace {

using Eigen::Index;
using Eigen::VectorXd;
using velda::Outcome;

/// Up to this many equations all modes are computed at once.
constexpr Index kMostDense = 250;
/// Products between two questions whether the work goes on.
constexpr std::size_t kProducts = 16;
/// An eigenvalue below this share of the greatest is that of a motion without mass.
constexpr double kNoMass = 1.0e-12;

/// Thrown through the iteration to end it.
struct Stop {};

/// The operator S M S^T, where S S^T is the inverse of the stiffness. Its eigenvalues are 1/w2, the greatest of them
/// those of the longest periods; motions without mass have 0. It is symmetric whatever freedoms have no mass.
class FlexibleMass {
public:
    using Scalar = double;

    FlexibleMass(const Factor& stiffness, const SparseMatrix& mass, const WorkGoes& goes)
        : stiffness_(stiffness), mass_(mass), goes_(goes), root_(stiffness.vectorD().cwiseSqrt()) {}

    /// How many products the iteration will need, as far as can be told before.
    void Expect(std::size_t products) { expected_ = products; }

    Index rows() const { return mass_.rows(); }
    Index cols() const { return mass_.cols(); }
    void perform_op(const double* in, double* out) const {
        if (++done_ % kProducts == 0 && !goes_(std::min(done_, expected_), expected_)) throw Stop{};
        const VectorXd forces = mass_ * Displacements(Eigen::Map<const VectorXd>(in, cols()));
        VectorXd work = stiffness_.permutationP() * forces;
        stiffness_.matrixL().solveInPlace(work);
        Eigen::Map<VectorXd>(out, rows()) = work.cwiseQuotient(root_);
    }
    /// The displacements of an eigenvector.
    VectorXd Displacements(const VectorXd& vector) const {
        VectorXd work = vector.cwiseQuotient(root_);
        stiffness_.matrixU().solveInPlace(work);
        return stiffness_.permutationPinv() * work;
    }

private:
    const Factor& stiffness_;
    const SparseMatrix& mass_;
    const WorkGoes& goes_;
    VectorXd root_;
    std::size_t expected_ = 0;
    mutable std::size_t done_ = 0;  ///< the iteration knows the operator as constant
};

struct EigenPairs {
    VectorXd values;  ///< descending
    Eigen::MatrixXd vectors;
};

EigenPairs AllPairs(FlexibleMass& flexible) {
    const Index count = flexible.rows();
    flexible.Expect(static_cast<std::size_t>(count));
    Eigen::MatrixXd whole(count, count);
    VectorXd unit = VectorXd::Zero(count);
    for (Index i = 0; i < count; ++i) {
        unit(i) = 1.0;
        flexible.perform_op(unit.data(), whole.col(i).data());
        unit(i) = 0.0;
    }
    const Eigen::SelfAdjointEigenSolver<Eigen::MatrixXd> solver(0.5 * (whole + whole.transpose()));
    EigenPairs pairs;
    pairs.values = solver.eigenvalues().reverse();
    pairs.vectors = solver.eigenvectors().rowwise().reverse();
    return pairs;
}

bool GreatestPairs(FlexibleMass& flexible, Index modes, EigenPairs& pairs) {
    const Index basis = std::min(flexible.rows(), std::max<Index>(2 * modes + 10, 30));
    flexible.Expect(3 * static_cast<std::size_t>(basis));
    Spectra::SymEigsSolver<FlexibleMass> solver(flexible, modes, basis);
    solver.init();
    const Index found = solver.compute(Spectra::SortRule::LargestAlge, 1000, 1.0e-12);
    if (solver.info() != Spectra::CompInfo::Successful || found < modes) return false;
    pairs.values = solver.eigenvalues();
    pairs.vectors = solver.eigenvectors();
    return true;
}

/// The rigid motions of the masses: along the axes, and about axes through the centre of mass. That is where a turn is
/// square to the moves in the measure of the masses.
class RigidMotions {
public:
    RigidMotions(const Structure& structure, const SparseMatrix& mass) {
        for (std::size_t i = 0; i < kFreedoms; ++i) {
            motions_[i] = structure.RigidMove(i);
            for (std::size_t axis = 0; i >= 3 && axis < 3; ++axis) {
                if (totals_[axis] == 0.0) continue;
                motions_[i] -= motions_[axis] * (motions_[i].dot(forces_[axis]) / totals_[axis]);
            }
            forces_[i] = mass * motions_[i];
            totals_[i] = motions_[i].dot(forces_[i]);
        }
    }
    const NodeVector& Totals() const { return totals_; }
    double ShareOf(std::size_t motion, const VectorXd& shape) const { return shape.dot(forces_[motion]); }

private:
    std::array<VectorXd, kFreedoms> motions_;
    std::array<VectorXd, kFreedoms> forces_;  ///< of inertia
    NodeVector totals_{};
};

ModeResult ModeOf(const Structure& structure, const SparseMatrix& mass, const RigidMotions& rigid, double value,
                  const VectorXd& motion) {
    // Of one sense in every run: the greatest displacement is positive.
    Index most = 0;
    motion.cwiseAbs().maxCoeff(&most);
    const VectorXd shape = motion * (std::copysign(1.0, motion(most)) / std::sqrt(motion.dot(mass * motion)));
    ModeResult mode;
    mode.frequency = 1.0 / (2.0 * std::numbers::pi * std::sqrt(value));
    mode.period = 1.0 / mode.frequency;
    mode.shape = structure.Spread(shape);
    for (std::size_t i = 0; i < kFreedoms; ++i) {
        mode.participation[i] = rigid.ShareOf(i, shape);
        mode.effectiveMass[i] = mode.participation[i] * mode.participation[i];
    }
    return mode;
}

}  // namespace

Outcome SolveModes(const Structure& structure, const Factor& stiffness, const SparseMatrix& mass, std::size_t modes,
                   const WorkGoes& goes, ModalResult& result) try {
    result = {};
    const RigidMotions rigid(structure, mass);
    result.totalMass = rigid.Totals();
    const VectorXd diagonal = mass.diagonal();
    const Index massive = (diagonal.array() > 0.0).count();
    const Index wanted = std::min(static_cast<Index>(modes), massive);
    if (wanted == 0) return Outcome::Done();
    FlexibleMass flexible(stiffness, mass, goes);
    EigenPairs pairs;
    if (flexible.rows() <= kMostDense) {
        pairs = AllPairs(flexible);
    } else if (!GreatestPairs(flexible, wanted, pairs)) {
        return Outcome::Refused(velda::FormatText("IDS_ANL_MODES_NOT_FOUND", {}));
    }
    for (Index i = 0; i < wanted && pairs.values(i) > kNoMass * pairs.values(0); ++i) {
        result.modes.push_back(
            ModeOf(structure, mass, rigid, pairs.values(i), flexible.Displacements(pairs.vectors.col(i))));
    }
    return Outcome::Done();
} catch (const Stop&) {
    return Outcome::Refused(velda::FormatText("IDS_ANL_STOPPED", {}));
}

}  // namespace zt
