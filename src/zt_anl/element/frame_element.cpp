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

/// The freedoms of bending along local y and along local z: displacements and rotations of both ends, and whether a
/// positive rotation raises the far end.
struct Plane {
    std::array<Eigen::Index, 4> at;
    std::array<double, 4> signs;
};
constexpr std::array<Plane, 2> kPlanes{
    {{{1, 5, 7, 11}, {1.0, 1.0, 1.0, 1.0}}, {{2, 4, 8, 10}, {1.0, -1.0, 1.0, -1.0}}}};

Eigen::Vector3d ToEigen(const Vector3& vector) { return {vector[0], vector[1], vector[2]}; }

}  // namespace

FrameElement::FrameElement(const FrameSpan& span, bool shearDeformation, const AxialState& axial)
    : span_(&span), axial_(axial), arms_{ToEigen(span.arms[0]), ToEigen(span.arms[1])} {
    axes_ << ToEigen(span.axes.x).transpose(), ToEigen(span.axes.y).transpose(), ToEigen(span.axes.z).transpose();
    if (shearDeformation) {
        shear_ = {ShearRatio(span, span.section.izz, span.section.asy),
                  ShearRatio(span, span.section.iyy, span.section.asz)};
    }
    PutStiffness();
    const Vector12 whole = stiffness_.diagonal();
    if (axial.force != 0.0) PutTension();
    if (!span.isTruss) Release(span.releases, whole);
}

/// The stiffness of a beam in space (Przemieniecki, 1968, equation 5.116).
void FrameElement::PutStiffness() {
    const auto putSpring = [&](Eigen::Index freedom, double value) {
        stiffness_(freedom, freedom) = stiffness_(kEnd + freedom, kEnd + freedom) = value;
        stiffness_(freedom, kEnd + freedom) = stiffness_(kEnd + freedom, freedom) = -value;
    };
    const double length = span_->length;
    if (!axial_.isSlack) putSpring(0, span_->elasticity * span_->section.area / length);
    if (span_->isTruss) return;
    putSpring(3, span_->shearModulus * span_->section.ixx / length);
    for (std::size_t plane = 0; plane < kPlanes.size(); ++plane) {
        const double inertia = plane == 0 ? span_->section.izz : span_->section.iyy;
        const double shear = shear_[plane];
        const double k = span_->elasticity * inertia / (length * length * length * (1.0 + shear));
        const double near = (4.0 + shear) * length * length * k;
        const double far = (2.0 - shear) * length * length * k;
        const double turn = 6.0 * length * k;
        Eigen::Matrix4d bending;
        bending << 12.0 * k, turn, -12.0 * k, turn,  //
            turn, near, -turn, far,                  //
            -12.0 * k, -turn, 12.0 * k, -turn,       //
            turn, far, -turn, near;
        AddPlane(plane, bending);
    }
}

/// Twisting stays as it is: the stiffness that a compressed section loses there is what its warping gives it, and
/// warping is not part of the element.
void FrameElement::PutTension() {
    for (std::size_t plane = 0; plane < kPlanes.size(); ++plane) {
        const PlaneMatrix values = span_->isTruss ? TensionStiffnessOfBar(span_->length)
                                                  : TensionStiffnessOfBeam(span_->length, shear_[plane]);
        Eigen::Matrix4d tension;
        for (Eigen::Index i = 0; i < 4; ++i) {
            for (Eigen::Index j = 0; j < 4; ++j) {
                tension(i, j) = axial_.force * values[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)];
            }
        }
        AddPlane(plane, tension);
    }
}

void FrameElement::AddPlane(std::size_t plane, const Eigen::Matrix4d& values) {
    const auto& [at, signs] = kPlanes[plane];
    for (std::size_t i = 0; i < at.size(); ++i) {
        for (std::size_t j = 0; j < at.size(); ++j) {
            stiffness_(at[i], at[j]) +=
                signs[i] * signs[j] * values(static_cast<Eigen::Index>(i), static_cast<Eigen::Index>(j));
        }
    }
}

/// A fraction is meant of the stiffness that the freedom has while all others are held and nothing is drawn.
void FrameElement::Release(const EndReleases& releases, const Vector12& whole) {
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
    if (spring > 0.0 || std::abs(own) > kNothingLeft * whole) {
        flexibility_ += releaseOfLoads_.row(freedom).transpose() * releaseOfLoads_.row(freedom) / both;
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
    for (std::size_t end = 0; end < arms_.size(); ++end) {
        const Eigen::Index at = static_cast<Eigen::Index>(end) * kEnd;
        const Eigen::Vector3d turn = global.segment<3>(at + 3);
        local.segment<3>(at) = axes_ * (global.segment<3>(at) + turn.cross(arms_[end]));
        local.segment<3>(at + 3) = axes_ * turn;
    }
    return local;
}

Vector12 FrameElement::ToGlobal(const Vector12& local) const {
    Vector12 global;
    for (std::size_t end = 0; end < arms_.size(); ++end) {
        const Eigen::Index at = static_cast<Eigen::Index>(end) * kEnd;
        const Eigen::Vector3d force = axes_.transpose() * local.segment<3>(at);
        global.segment<3>(at) = force;
        global.segment<3>(at + 3) = axes_.transpose() * local.segment<3>(at + 3) + arms_[end].cross(force);
    }
    return global;
}

Matrix12 FrameElement::Turn() const {
    Matrix12 turn;
    for (Eigen::Index i = 0; i < turn.cols(); ++i) turn.col(i) = ToLocal(Vector12::Unit(i));
    return turn;
}

/// The axial force does work on the end of an arm that turns, since the end moves by half the square of the angle
/// towards the node: theta x (theta x r) / 2.
Eigen::Matrix3d FrameElement::ArmStiffness(std::size_t end) const {
    const Eigen::Vector3d along = axes_.row(0).transpose();
    const Eigen::Vector3d& arm = arms_[end];
    const Eigen::Matrix3d both = along * arm.transpose();
    const double force = end == 0 ? -axial_.force : axial_.force;
    return force * (0.5 * (both + both.transpose()) - along.dot(arm) * Eigen::Matrix3d::Identity());
}

Matrix12 FrameElement::GlobalStiffness() const {
    const Matrix12 turn = Turn();
    Matrix12 global = turn.transpose() * stiffness_ * turn;
    for (std::size_t end = 0; end < arms_.size(); ++end) {
        const Eigen::Index at = static_cast<Eigen::Index>(end) * kEnd + 3;
        global.block<3, 3>(at, at) += ArmStiffness(end);
    }
    return global;
}

Vector12 FrameElement::NodeForces(const Vector12& local, const Vector12& displacements) const {
    Vector12 global = ToGlobal(local);
    for (std::size_t end = 0; end < arms_.size(); ++end) {
        const Eigen::Index at = static_cast<Eigen::Index>(end) * kEnd + 3;
        global.segment<3>(at) += ArmStiffness(end) * displacements.segment<3>(at);
    }
    return global;
}

double FrameElement::Elongation(const Vector12& global) const {
    const Vector12 local = ToLocal(global);
    return local(kEnd) - local(0);
}

BendingCurves FrameElement::CurvesAt(std::size_t plane, double share) const {
    return span_->isTruss ? CurvesOfBar(share, span_->length) : CurvesOfBeam(share, span_->length, shear_[plane]);
}

std::array<double, 2> FrameElement::Deflection(double share, const Vector12& ownEnds) const {
    std::array<double, 2> deflection{};
    for (std::size_t plane = 0; plane < kPlanes.size(); ++plane) {
        const BendingCurves curves = CurvesAt(plane, share);
        const auto& [at, signs] = kPlanes[plane];
        for (std::size_t i = 0; i < at.size(); ++i) {
            deflection[plane] += signs[i] * curves.displacement[i] * ownEnds(at[i]);
        }
    }
    return deflection;
}

/// The work of a single force and moment on the displacements that the end freedoms cause. By the theorem of Betti
/// these are the forces that the held nodes get.
Vector12 FrameElement::WorkOf(double share, const Vector3& force, const Vector3& moment) const {
    Vector12 work = Vector12::Zero();
    for (Eigen::Index end = 0; end < 2; ++end) {
        const double along = end == 0 ? 1.0 - share : share;
        work(end * kEnd) = force[0] * along;
        work(end * kEnd + 3) = moment[0] * along;
    }
    for (std::size_t plane = 0; plane < kPlanes.size(); ++plane) {
        const BendingCurves curves = CurvesAt(plane, share);
        const double across = plane == 0 ? force[1] : force[2];
        const double about = plane == 0 ? moment[2] : -moment[1];
        const auto& [at, signs] = kPlanes[plane];
        for (std::size_t i = 0; i < at.size(); ++i) {
            work(at[i]) = signs[i] * (across * curves.displacement[i] + about * curves.rotation[i]);
        }
    }
    return work;
}

Vector12 FrameElement::NodalForces(const SpanLoad& load) const { return releaseOfLoads_ * HeldForces(load); }

/// The forces that a load gives to the ends behind the releases while they are held.
Vector12 FrameElement::HeldForces(const SpanLoad& load) const {
    Vector12 sum = Vector12::Zero();
    if (load.strain != 0.0) {
        if (axial_.isSlack) return sum;
        sum(kEnd) = span_->elasticity * span_->section.area * load.strain;
        sum(0) = -sum(kEnd);
        return sum;
    }
    const auto at = [&](double share, double factor, const Vector3& value) {
        const Vector3 amount{factor * value[0], factor * value[1], factor * value[2]};
        return load.isMoment ? WorkOf(share, {}, amount) : WorkOf(share, amount, {});
    };
    if (load.isSingle) return at(load.from, 1.0, load.first);
    // Curves of the third degree times a load of the first: three Gauss points are exact.
    constexpr std::array<double, 3> kPoints{-0.774596669241483377, 0.0, 0.774596669241483377};
    constexpr std::array<double, 3> kWeights{5.0 / 9.0, 8.0 / 9.0, 5.0 / 9.0};
    const double half = 0.5 * (load.to - load.from);
    for (std::size_t i = 0; i < kPoints.size(); ++i) {
        const double way = 0.5 * (1.0 + kPoints[i]);
        Vector3 value{};
        for (std::size_t axis = 0; axis < 3; ++axis) value[axis] = std::lerp(load.first[axis], load.last[axis], way);
        sum += at(std::lerp(load.from, load.to, way), kWeights[i] * half * span_->length, value);
    }
    return sum;
}

Matrix12 FrameElement::GlobalMass(double massPerLength) const {
    // Squares of curves of the third degree: four Gauss points are exact.
    constexpr std::array<double, 4> kPoints{-0.861136311594052575, -0.339981043584856265, 0.339981043584856265,
                                            0.861136311594052575};
    constexpr std::array<double, 4> kWeights{0.347854845137453857, 0.652145154862546143, 0.652145154862546143,
                                             0.347854845137453857};
    const T_SECT_STIFFNESS& section = span_->section;
    const double polar = (section.iyy + section.izz) / section.area;
    Matrix12 mass = Matrix12::Zero();
    for (std::size_t i = 0; i < kPoints.size(); ++i) {
        const double share = 0.5 * (1.0 + kPoints[i]);
        const double part = 0.5 * kWeights[i] * massPerLength * span_->length;
        const auto add = [&](const Vector12& work, double factor) { mass += factor * part * work * work.transpose(); };
        add(WorkOf(share, {1.0, 0.0, 0.0}, {}), 1.0);
        add(WorkOf(share, {0.0, 1.0, 0.0}, {}), 1.0);
        add(WorkOf(share, {0.0, 0.0, 1.0}, {}), 1.0);
        add(WorkOf(share, {}, {1.0, 0.0, 0.0}), polar);
    }
    const Matrix12 turn = Turn();
    return turn.transpose() * releaseOfLoads_ * mass * releaseOfLoads_.transpose() * turn;
}

}  // namespace zt
