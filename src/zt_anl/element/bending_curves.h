#pragma once

#include <array>

namespace zt {

/// Values for the end freedoms of bending in one plane, in the order displacement and rotation of end i, then of end j.
using PlaneVector = std::array<double, 4>;

/// What the section at a share of the length does when one end freedom of bending moves by 1. A positive rotation
/// raises the far end.
struct BendingCurves {
    PlaneVector displacement{};
    PlaneVector rotation{};
};

/// The exact curves of a beam with shear deformation; `ratio` is that of the deflections by shear and by bending,
/// 12 E I / (G As L2) (Przemieniecki, Theory of Matrix Structural Analysis, 1968, section 5.6).
BendingCurves CurvesOfBeam(double share, double length, double ratio);
/// A bar stays straight, so that rotations of its ends do nothing.
BendingCurves CurvesOfBar(double share, double length);

using PlaneMatrix = std::array<PlaneVector, 4>;

/// What an axial force of 1 adds to the stiffness across a beam: the integral of the slopes of its curves along it
/// (the principle of Przemieniecki, 1968, section 15.1, and of McGuire, Gallagher and Ziemian, Matrix Structural
/// Analysis, 2000, section 9.2). Without shear deformation these are the terms 6/5, L/10, 2 L2/15 and -L2/30 over L.
PlaneMatrix TensionStiffnessOfBeam(double length, double ratio);
PlaneMatrix TensionStiffnessOfBar(double length);

}  // namespace zt
