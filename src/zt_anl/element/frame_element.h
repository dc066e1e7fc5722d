#pragma once

#include <vector>

#include "zt_anl/element/span_load.h"
#include "zt_anl/model/frame_model.h"
#include <Eigen/Dense>

namespace zt {

using Matrix12 = Eigen::Matrix<double, 12, 12>;
using Vector12 = Eigen::Matrix<double, 12, 1>;

/// A straight prismatic element in space with shear deformation, joined to its nodes by its end releases. Values stand
/// in the order of the freedoms of end i, then of end j; forces act on the element at its ends.
class FrameElement {
public:
    /// Whether the element carries forces along itself. One that takes tension only and is pressed does not.
    enum class Axial { Carried, Slack };

    FrameElement(const FrameSpan& span, bool shearDeformation, Axial axial = Axial::Carried);

    /// In local axes, after the releases.
    const Matrix12& LocalStiffness() const { return stiffness_; }
    Matrix12 GlobalStiffness() const;
    Vector12 ToLocal(const Vector12& global) const;
    Vector12 ToGlobal(const Vector12& local) const;

    /// The forces at the nodes that do the same work as a load, in local axes: what a load gives to the nodes while all
    /// of them are held.
    Vector12 NodalForces(const SpanLoad& load) const;
    /// How far the ends move apart, under displacements of the nodes in global axes.
    double Elongation(const Vector12& global) const;

private:
    void PutStiffness(Axial axial);
    void PutBending(std::size_t across, std::size_t about, double rigidity, double shear, double sign);
    void Release(const EndReleases& releases);
    void ReleaseFreedom(Eigen::Index freedom, double whole, double spring);
    Vector12 WorkOf(double share, const Vector3& force, const Vector3& moment) const;

    const FrameSpan* span_;
    Eigen::Matrix3d axes_;
    double shearY_ = 0.0;  ///< 12 E I / (G As L2) of bending along local y and along local z
    double shearZ_ = 0.0;
    Matrix12 stiffness_ = Matrix12::Zero();
    Matrix12 releaseOfLoads_ = Matrix12::Identity();
};

}  // namespace zt
