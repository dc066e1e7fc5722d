#include "zt_anl/element/frame_element.h"

#include <array>
#include <cmath>

namespace zt {
namespace {

/// What rounding leaves of a stiffness that is gone, as a share of it.
constexpr double kNothingLeft = 1.0e-12;
constexpr Eigen::Index kEnd = static_cast<Eigen::Index>(kFreedoms);

/// Ratio of the deflections by shear and by bending, 12 E I / (G As L2) (Przemieniecki, Theory of Matrix Structural
/// Analysis, 1968, section 5.6). A section without a shear area deforms by bending alone.
double ShearRatio(const FrameSpan& span, double inertia, double shearArea) {
    const double shear = span.shearModulus * shearArea * span.length * span.length;
    return shear > 0.0 ? 12.0 * span.elasticity * inertia / shear : 0.0;
}

/// Displacements and rotations of the section at a share of the length, when one end freedom of bending moves by 1: the
/// exact curves of a beam with shear deformation, in the order displacement and rotation of end i, then of end j.
struct BendingCurves {
    std::array<double, 4> displacement;
    std::array<double, 4> rotation;
};

BendingCurves CurvesOfBeam(double s, double length, double ratio) {
    const double m = 1.0 / (1.0 + ratio);
    const double s2 = s * s;
    const double s3 = s2 * s;
    return {
        {m * (1.0 - 3.0 * s2 + 2.0 * s3 + ratio * (1.0 - s)), m * length * (s - 2.0 * s2 + s3 + ratio / 2.0 * (s - s2)),
         m * (3.0 * s2 - 2.0 * s3 + ratio * s), m * length * (s3 - s2 - ratio / 2.0 * (s - s2))},
        {m * 6.0 / length * (s2 - s), m * (1.0 - 4.0 * s + 3.0 * s2 + ratio * (1.0 - s)), m * 6.0 / length * (s - s2),
         m * (3.0 * s2 - 2.0 * s + ratio * s)}};
}

/// A bar stays straight, so that rotations of its ends do nothing.
BendingCurves CurvesOfBar(double s, double length) {
    return {{1.0 - s, 0.0, s, 0.0}, {-1.0 / length, 0.0, 1.0 / length, 0.0}};
}

}  // namespace

FrameElement::FrameElement(const FrameSpan& span, bool shearDeformation, Axial axial) : span_(&span) {
    for (Eigen::Index i = 0; i < 3; ++i) {
        const auto column = static_cast<std::size_t>(i);
        axes_(0, i) = span.axes.x[column];
        axes_(1, i) = span.axes.y[column];
        axes_(2, i) = span.axes.z[column];
    }
    if (shearDeformation) {
        shearY_ = ShearRatio(span, span.section.izz, span.section.asy);
        shearZ_ = ShearRatio(span, span.section.iyy, span.section.asz);
    }
    PutStiffness(axial);
    if (!span.isTruss) Release(span.releases);
}

/// The stiffness of a beam in space (Przemieniecki, 1968, equation 5.116).
void FrameElement::PutStiffness(Axial axial) {
    const auto putSpring = [&](Eigen::Index freedom, double value) {
        stiffness_(freedom, freedom) = stiffness_(kEnd + freedom, kEnd + freedom) = value;
        stiffness_(freedom, kEnd + freedom) = stiffness_(kEnd + freedom, freedom) = -value;
    };
    if (axial == Axial::Carried) putSpring(0, span_->elasticity * span_->section.area / span_->length);
    if (span_->isTruss) return;
    putSpring(3, span_->shearModulus * span_->section.ixx / span_->length);
    PutBending(1, 5, span_->elasticity * span_->section.izz, shearY_, 1.0);
    PutBending(2, 4, span_->elasticity * span_->section.iyy, shearZ_, -1.0);
}

/// Bending across one axis about another. The sign tells whether a positive rotation raises the far end.
void FrameElement::PutBending(std::size_t across, std::size_t about, double rigidity, double shear, double sign) {
    const double length = span_->length;
    const double k = rigidity / (length * length * length * (1.0 + shear));
    const double near = (4.0 + shear) * length * length * k;
    const double far = (2.0 - shear) * length * length * k;
    const double turn = sign * 6.0 * length * k;
    const auto v = static_cast<Eigen::Index>(across);
    const auto r = static_cast<Eigen::Index>(about);
    const std::array<Eigen::Index, 4> at{v, r, v + kEnd, r + kEnd};
    Eigen::Matrix4d bending;
    bending << 12.0 * k, turn, -12.0 * k, turn,  //
        turn, near, -turn, far,                  //
        -12.0 * k, -turn, 12.0 * k, -turn,       //
        turn, far, -turn, near;
    for (Eigen::Index i = 0; i < 4; ++i) {
        for (Eigen::Index j = 0; j < 4; ++j) {
            stiffness_(at[static_cast<std::size_t>(i)], at[static_cast<std::size_t>(j)]) = bending(i, j);
        }
    }
}

void FrameElement::Release(const EndReleases& releases) {
    // A fraction is meant of the stiffness that the freedom has while all others are held.
    const Vector12 whole = stiffness_.diagonal();
    for (Eigen::Index i = 0; i < whole.size(); ++i) {
        const auto freedom = static_cast<std::size_t>(i);
        if (!releases.isReleased[freedom]) continue;
        const double left = std::max(releases.left[freedom], 0.0);
        if (!releases.isFraction) {
            ReleaseFreedom(i, whole(i), left);
        } else if (left < 1.0) {
            ReleaseFreedom(i, whole(i), whole(i) * left / (1.0 - left));
        }
    }
}

/// Puts a spring between the end of the element and its node, and takes the freedom of the end out (static
/// condensation).
void FrameElement::ReleaseFreedom(Eigen::Index freedom, double whole, double spring) {
    const double own = stiffness_(freedom, freedom);
    const double both = own + spring;
    Matrix12 step = Matrix12::Identity();
    // A freedom that others have released already moves with nothing, and takes no load.
    if (spring > 0.0 || own > kNothingLeft * whole) {
        step.col(freedom) = -stiffness_.col(freedom) / both;
        step(freedom, freedom) = spring / both;
        const Vector12 column = stiffness_.col(freedom);
        stiffness_ -= column * column.transpose() / both;
        stiffness_.col(freedom) = column * (spring / both);
        stiffness_.row(freedom) = stiffness_.col(freedom).transpose();
        stiffness_(freedom, freedom) = spring * own / both;
    } else {
        stiffness_.col(freedom).setZero();
        stiffness_.row(freedom).setZero();
        step(freedom, freedom) = 0.0;
    }
    releaseOfLoads_ = step * releaseOfLoads_;
}

Vector12 FrameElement::ToLocal(const Vector12& global) const {
    Vector12 local;
    for (Eigen::Index i = 0; i < 12; i += 3) local.segment<3>(i) = axes_ * global.segment<3>(i);
    return local;
}

Vector12 FrameElement::ToGlobal(const Vector12& local) const {
    Vector12 global;
    for (Eigen::Index i = 0; i < 12; i += 3) global.segment<3>(i) = axes_.transpose() * local.segment<3>(i);
    return global;
}

Matrix12 FrameElement::GlobalStiffness() const {
    Matrix12 turn = Matrix12::Zero();
    for (Eigen::Index i = 0; i < 12; i += 3) turn.block<3, 3>(i, i) = axes_;
    return turn.transpose() * stiffness_ * turn;
}

double FrameElement::Elongation(const Vector12& global) const {
    const Vector12 local = ToLocal(global);
    return local(kEnd) - local(0);
}

/// The work of a single force and moment on the displacements that the end freedoms cause. By the theorem of Betti
/// these are the forces that the held nodes get.
Vector12 FrameElement::WorkOf(double share, const Vector3& force, const Vector3& moment) const {
    const double length = span_->length;
    const auto curves = [&](double ratio) {
        return span_->isTruss ? CurvesOfBar(share, length) : CurvesOfBeam(share, length, ratio);
    };
    const BendingCurves y = curves(shearY_);
    const BendingCurves z = curves(shearZ_);
    Vector12 work = Vector12::Zero();
    for (Eigen::Index end = 0; end < 2; ++end) {
        const double along = end == 0 ? 1.0 - share : share;
        const auto shift = static_cast<std::size_t>(2 * end);
        const auto turn = shift + 1;
        const Eigen::Index at = end * kEnd;
        work(at) = force[0] * along;
        work(at + 1) = force[1] * y.displacement[shift] + moment[2] * y.rotation[shift];
        work(at + 2) = force[2] * z.displacement[shift] - moment[1] * z.rotation[shift];
        work(at + 3) = moment[0] * along;
        work(at + 4) = moment[1] * z.rotation[turn] - force[2] * z.displacement[turn];
        work(at + 5) = force[1] * y.displacement[turn] + moment[2] * y.rotation[turn];
    }
    return work;
}

Vector12 FrameElement::NodalForces(const SpanLoad& load) const {
    const auto at = [&](double share, double factor, const Vector3& value) {
        const Vector3 amount{factor * value[0], factor * value[1], factor * value[2]};
        return load.isMoment ? WorkOf(share, {}, amount) : WorkOf(share, amount, {});
    };
    if (load.isSingle) return releaseOfLoads_ * at(load.from, 1.0, load.first);
    // Curves of the third degree times a load of the first: three Gauss points are exact.
    constexpr std::array<double, 3> kPoints{-0.774596669241483377, 0.0, 0.774596669241483377};
    constexpr std::array<double, 3> kWeights{5.0 / 9.0, 8.0 / 9.0, 5.0 / 9.0};
    const double half = 0.5 * (load.to - load.from);
    Vector12 sum = Vector12::Zero();
    for (std::size_t i = 0; i < kPoints.size(); ++i) {
        const double way = 0.5 * (1.0 + kPoints[i]);
        Vector3 value{};
        for (std::size_t axis = 0; axis < 3; ++axis) value[axis] = std::lerp(load.first[axis], load.last[axis], way);
        sum += at(std::lerp(load.from, load.to, way), kWeights[i] * half * span_->length, value);
    }
    return releaseOfLoads_ * sum;
}

}  // namespace zt
