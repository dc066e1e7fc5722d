#pragma once

#include <string_view>

namespace zt {

/// Unit codes: what a number measures. Columns and record fields carry one; the unit control turns it into a label and
/// a factor. Codes are part of the file-independent interface and never change their meaning.
namespace Unit {
inline constexpr int None = 0;
inline constexpr int ModelLength = 1;  ///< in the length unit of the model, whatever the current one is
inline constexpr int Length = 2;
inline constexpr int Force = 3;
inline constexpr int Area = 4;
inline constexpr int SectionModulus = 5;
inline constexpr int Inertia = 6;
inline constexpr int WarpingConstant = 7;
inline constexpr int Angle = 8;
inline constexpr int Temperature = 9;             ///< a point on the scale
inline constexpr int TemperatureDifference = 10;  ///< a rise or a fall
inline constexpr int ThermalCoefficient = 11;     ///< strain per degree
inline constexpr int Moment = 12;
inline constexpr int MomentPerLength = 13;
inline constexpr int Stiffness = 14;
inline constexpr int LineLoad = 15;
inline constexpr int AreaLoad = 16;
inline constexpr int Stress = 17;
inline constexpr int RotationalStiffness = 18;
inline constexpr int WeightDensity = 19;
inline constexpr int MassDensity = 20;
inline constexpr int Time = 21;
inline constexpr int Frequency = 22;
inline constexpr int Mass = 23;
inline constexpr int RotationalMass = 24;
inline constexpr int Velocity = 25;
inline constexpr int Acceleration = 26;
inline constexpr int FlexuralRigidity = 53;
inline constexpr int FixedStress = 60;         ///< N/mm2 whatever the current units are
inline constexpr int FixedWeightDensity = 61;  ///< kgf/m3 whatever the current units are

inline constexpr int kCodeLimit = 64;  ///< every code lies below
}  // namespace Unit

/// What a unit code is made of. The pattern is its label: F, L, P, M and T stand for the current units of force,
/// length, model length, mass and temperature, with a superscript as exponent; everything behind "/" divides; other
/// words stand as they are. A fixed unit has the label as it stands and its size in SI units.
struct UnitDefinition {
    int code;
    std::string_view pattern;
    double fixedSize = 0.0;
};

}  // namespace zt
