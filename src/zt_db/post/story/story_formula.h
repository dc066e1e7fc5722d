#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace zt {

/// Limits and formulas of the checks of stories. Tables and equations are those of ASCE/SEI 7-16; KDS 41 17 00 (Korea)
/// has the irregularities with the same limits. Reaching a limit is allowed, exceeding it is not.
namespace StoryFormula {

// Table 12.3-1, types 1a and 1b.
inline constexpr double kTorsion = 1.2;
inline constexpr double kExtremeTorsion = 1.4;
// Table 12.3-2, types 1a and 1b: of the story above, and of the mean of the three above.
inline constexpr double kSoft = 0.7;
inline constexpr double kSoftOfThree = 0.8;
inline constexpr double kExtremeSoft = 0.6;
inline constexpr double kExtremeSoftOfThree = 0.7;
// Table 12.3-2, type 2, and the exception of 12.3.2.2 by ratios of drift angles.
inline constexpr double kWeight = 1.5;
inline constexpr double kDriftException = 1.3;
/// The counterpart of kSoftOfThree in drift angles, on the safe side of its reciprocal.
inline constexpr double kAngleOfThree = 1.2;
/// 12.8.7: second-order effects count above this stability coefficient.
inline constexpr double kStability = 0.1;
/// 12.8.4.2: accidental eccentricity as a share of the width of the building.
inline constexpr double kAccidental = 0.05;
/// Differences that the last digits of a computation leave behind do not break a limit.
inline constexpr double kDigits = 1.0e-9;

inline bool Exceeds(double value, double limit) { return value > limit * (1.0 + kDigits); }
inline bool FallsBelow(double value, double limit) { return value < limit * (1.0 - kDigits); }
inline double Ratio(double a, double b) { return b != 0.0 ? a / b : 0.0; }

/// 12.8-14: Ax = (dmax / (1.2 davg))^2, from 1 to 3.
inline double TorsionalAmplification(double greatest, double average) {
    constexpr double kMost = 3.0;
    if (average == 0.0) return 1.0;
    const double root = greatest / (kTorsion * average);
    return std::clamp(root * root, 1.0, kMost);
}

/// 12.8-15: d = Cd de / Ie.
inline double AmplifiedDrift(double elastic, double amplification, double importance) {
    return Ratio(amplification * elastic, importance);
}

/// 12.8-16: theta = P D Ie / (V h Cd), with D amplified by Cd / Ie.
inline double StabilityCoefficient(double vertical, double amplified, double importance, double shear, double height,
                                   double amplification) {
    return std::abs(Ratio(vertical * amplified * importance, shear * height * amplification));
}

/// 12.8.7: 1 / (1 - theta); 1 where second-order effects need not count. At 1 and above the story has no stability left
/// and the amplification means nothing.
inline double SecondOrderAmplification(double theta) {
    return Exceeds(theta, kStability) && theta < 1.0 ? 1.0 / (1.0 - theta) : 1.0;
}

/// Reduction of the overturning moment, by the number of stories from the top, from 1: 1 for the ten topmost, 0.8 from
/// the twentieth on, along a line between them (NEHRP Recommended Provisions 1997, 5.3.6; KBC 2009, 0306.5.6).
inline double OverturningReduction(std::size_t fromTop) {
    constexpr double kFirst = 10.0;
    constexpr double kLast = 20.0;
    constexpr double kLeast = 0.8;
    const double way = std::clamp((static_cast<double>(fromTop) - kFirst) / (kLast - kFirst), 0.0, 1.0);
    return std::lerp(1.0, kLeast, way);
}

// JGJ 3-2010, 5.4.4 and 5.4.1, of frames: Di hi / sum of Gj must reach 10; from 20 on second-order effects need no
// account.
inline constexpr double kFrameStable = 10.0;
inline constexpr double kFrameStiff = 20.0;

/// JGJ 3-2010, 8.1.4 (0.2 and 1.5); GB 50011-2010, 8.2.3, for frames with braces (0.25 and 1.8).
struct FrameShearShares {
    double ofBase = 0.2;
    double ofMost = 1.5;
};

/// GB 50011-2010, 6.1.3: a frame that carries more than half of the overturning moment is no second line of defence.
inline constexpr double kFrameMoment = 0.5;

}  // namespace StoryFormula

}  // namespace zt
