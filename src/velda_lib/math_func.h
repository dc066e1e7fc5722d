#pragma once

#include <cmath>

namespace velda {

/// Small numerical rules.
struct CMathFunc {
    /// `value` rounded to the nearest multiple of `step`, halves away from zero; `step` 1 gives a whole number.
    /// A step of 0 or below, and a value that is not finite, give the value itself.
    static double mathRoundOff(double value, double step) {
        if (!(step > 0.0) || !std::isfinite(value)) return value;
        return std::round(value / step) * step;
    }
};

}  // namespace velda
