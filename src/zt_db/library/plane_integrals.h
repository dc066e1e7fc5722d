#pragma once

#include <span>

#include "zt_db/library/outline.h"

namespace zt {

/// Area and moments of outlines, about axes through their centroid.
struct PlaneMoments {
    double area = 0.0;
    SectionPoint centroid{};
    double iyy = 0.0;
    double izz = 0.0;
    double iyz = 0.0;
};

/// Exact integrals over polygons by Green's theorem.
PlaneMoments MomentsOf(std::span<const Outline> parts);

SectionBounds BoundsOf(std::span<const Outline> parts);

/// An axis of bending: about y, levels are heights z; about z, levels are places y.
enum class BendingAxis { Y, Z };

/// Plastic modulus: the first moments of both halves about the line that cuts the area into equal ones.
double PlasticModulus(std::span<const Outline> parts, BendingAxis axis);

/// Shear area for shear across an axis of bending, area over form factor: I2 / integral of (Q2 / b). Gere and
/// Timoshenko, Mechanics of Materials, chapter on the deflection of beams by shear. Parts with a gap between them,
/// across which nothing carries the shear, count each for itself.
double ShearArea(std::span<const Outline> parts, BendingAxis axis);

}  // namespace zt
