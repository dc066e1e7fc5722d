#pragma once

namespace zt {

/// Exact by definition: standard gravity in m/s2 (CGPM 1901), pound in kg and inch in m (1959).
inline constexpr double kGravity = 9.80665;
inline constexpr double kPound = 0.45359237;
inline constexpr double kInch = 0.0254;

}  // namespace zt
