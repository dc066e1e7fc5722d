#pragma once

namespace zt {

/// How far two modes swing together: the complete quadratic combination with one ratio of damping (Der Kiureghian,
/// 1981, A response spectrum method for random vibration analysis of MDF systems, Earthquake Eng. Struct. Dyn. 9,
/// 419-435).
double ModeCorrelation(double frequency, double other, double damping);

}  // namespace zt
