#pragma once

#include <cmath>

namespace velda {

/// Small numerical rules.
struct CMathFunc {
    /// `value` rounded to the nearest multiple of `step`, halves away from zero; `step` 1 gives a whole number.
    /// A step that is not a finite number above 0, a value that is not finite, and a value too far from 0 for its
    /// multiples to be counted give the value itself.
    static double mathRoundOff(double value, double step) {
        if (!(step > 0.0) || !std::isfinite(step)) return value;
        const double count = std::round(value / step);
        return std::isfinite(count) ? count * step : value;
    }
};

}  // namespace velda
