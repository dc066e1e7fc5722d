#pragma once

#include <array>
#include <vector>

#include "zt_anl/element/bending_curves.h"
#include "zt_anl/element/span_load.h"
#include "zt_anl/model/frame_model.h"
#include <Eigen/Dense>

namespace zt {

using Matrix12 = Eigen::Matrix<double, 12, 12>;
using Vector12 = Eigen::Matrix<double, 12, 1>;

/// What an element does along itself: a slack one carries nothing there. The force, of tension, stiffens the element
/// across; it is 0 where the effect of the second order does not count.
struct AxialState {
    bool isSlack = false;
    double force = 0.0;
    bool operator==(const AxialState&) const = default;
};

/// A straight prismatic element in space with shear deformation, joined to its nodes by its end releases and by rigid
/// arms. Values stand in the order of the freedoms of end i, then of end j; forces act on the element at its ends.
/// Local values are those of the ends of the element, global ones those of its nodes.
class FrameElement {
public:
    FrameElement(const FrameSpan& span, bool shearDeformation, const AxialState& axial = {});

    /// In local axes, after the releases.
    const Matrix12& LocalStiffness() const { return stiffness_; }
    /// Of the nodes, in global axes.
    Matrix12 GlobalStiffness() const;
    Vector12 ToLocal(const Vector12& global) const;
    /// Forces on the nodes that are worth those on the ends.
    Vector12 ToGlobal(const Vector12& local) const;
    /// Forces on the nodes, with those that the axial force gives the rigid arms as they turn.
    Vector12 NodeForces(const Vector12& local, const Vector12& displacements) const;

    /// The forces at the ends that do the same work as a load, in local axes: what a load gives to the ends while all
    /// of them are held.
    Vector12 NodalForces(const SpanLoad& load) const;
    /// How far the ends move apart, under displacements of the nodes in global axes.
    double Elongation(const Vector12& global) const;

    /// The mass of the nodes in global axes when that of the element follows its curves (Przemieniecki, 1968, section
    /// 11.4, without the inertia of sections that turn as the element bends).
    Matrix12 GlobalMass(double massPerLength) const;

    /// The axial force that stiffens the element across.
    double AxialForce() const { return axial_.force; }
    /// What the ends of the element do behind the releases, under displacements of the nodes in global axes and loads.
    template <class Loads>
    Vector12 OwnEnds(const Vector12& global, const Loads& loads) const {
        Vector12 ends = releaseOfLoads_.transpose() * ToLocal(global);
        for (const SpanLoad& load : loads) ends += flexibility_ * HeldForces(load);
        return ends;
    }
    /// Displacements along local y and z at a share of the length, from those of the ends.
    std::array<double, 2> Deflection(double share, const Vector12& ownEnds) const;

private:
    void PutStiffness();
    void PutTension();
    void AddPlane(std::size_t plane, const Eigen::Matrix4d& values);
    void Release(const EndReleases& releases, const Vector12& whole);
    void ReleaseFreedom(Eigen::Index freedom, double whole, double spring);
    BendingCurves CurvesAt(std::size_t plane, double share) const;
    Vector12 WorkOf(double share, const Vector3& force, const Vector3& moment) const;
    Vector12 HeldForces(const SpanLoad& load) const;
    Matrix12 Turn() const;
    Eigen::Matrix3d ArmStiffness(std::size_t end) const;

    const FrameSpan* span_;
    AxialState axial_;
    Eigen::Matrix3d axes_;
    std::array<Eigen::Vector3d, 2> arms_;  ///< from the nodes to the ends, in global axes
    std::array<double, 2> shear_{};        ///< 12 E I / (G As L2) of bending along local y and along local z
    Matrix12 stiffness_ = Matrix12::Zero();
    Matrix12 releaseOfLoads_ = Matrix12::Identity();
    Matrix12 flexibility_ = Matrix12::Zero();  ///< of the released ends
};

}  // namespace zt
