#include "zt_anl/solve/modal_solver.h"

#include <algorithm>
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
/// An eigenvalue below this share of the greatest is that of a motion without mass.
constexpr double kNoMass = 1.0e-12;

/// The operator S M S^T, where S S^T is the inverse of the stiffness. Its eigenvalues are 1/w2, the greatest of them
/// those of the longest periods; motions without mass have 0. It is symmetric whatever freedoms have no mass.
class FlexibleMass {
public:
    using Scalar = double;

    FlexibleMass(const Factor& stiffness, const SparseMatrix& mass)
        : stiffness_(stiffness), mass_(mass), root_(stiffness.vectorD().cwiseSqrt()) {}

    Index rows() const { return mass_.rows(); }
    Index cols() const { return mass_.cols(); }
    void perform_op(const double* in, double* out) const {
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
    VectorXd root_;
};

struct EigenPairs {
    VectorXd values;  ///< descending
    Eigen::MatrixXd vectors;
};

EigenPairs AllPairs(const FlexibleMass& flexible) {
    const Index count = flexible.rows();
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
    Spectra::SymEigsSolver<FlexibleMass> solver(flexible, modes, basis);
    solver.init();
    const Index found = solver.compute(Spectra::SortRule::LargestAlge, 1000, 1.0e-12);
    if (solver.info() != Spectra::CompInfo::Successful || found < modes) return false;
    pairs.values = solver.eigenvalues();
    pairs.vectors = solver.eigenvectors();
    return true;
}

ModeResult ModeOf(const Structure& structure, const SparseMatrix& mass, double value, const VectorXd& motion) {
    // Of one sense in every run: the greatest displacement is positive.
    Index most = 0;
    motion.cwiseAbs().maxCoeff(&most);
    const VectorXd shape = motion * (std::copysign(1.0, motion(most)) / std::sqrt(motion.dot(mass * motion)));
    ModeResult mode;
    mode.frequency = 1.0 / (2.0 * std::numbers::pi * std::sqrt(value));
    mode.period = 1.0 / mode.frequency;
    mode.shape = structure.Spread(shape);
    for (std::size_t axis = 0; axis < 3; ++axis) {
        mode.participation[axis] = shape.dot(mass * structure.RigidMove(axis));
        mode.effectiveMass[axis] = mode.participation[axis] * mode.participation[axis];
    }
    return mode;
}

}  // namespace

Outcome SolveModes(const Structure& structure, const Factor& stiffness, const SparseMatrix& mass, std::size_t modes,
                   ModalResult& result) {
    result = {};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const VectorXd move = structure.RigidMove(axis);
        result.totalMass[axis] = move.dot(mass * move);
    }
    const VectorXd diagonal = mass.diagonal();
    const Index massive = (diagonal.array() > 0.0).count();
    const Index wanted = std::min(static_cast<Index>(modes), massive);
    if (wanted == 0) return Outcome::Done();
    FlexibleMass flexible(stiffness, mass);
    EigenPairs pairs;
    if (flexible.rows() <= kMostDense) {
        pairs = AllPairs(flexible);
    } else if (!GreatestPairs(flexible, wanted, pairs)) {
        return Outcome::Refused(velda::FormatText("IDS_ANL_MODES_NOT_FOUND", {}));
    }
    for (Index i = 0; i < wanted && pairs.values(i) > kNoMass * pairs.values(0); ++i) {
        result.modes.push_back(ModeOf(structure, mass, pairs.values(i), flexible.Displacements(pairs.vectors.col(i))));
    }
    return Outcome::Done();
}

}  // namespace zt
