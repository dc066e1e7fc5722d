#include "zt_anl/solve/mode_correlation.h"

#include <cmath>

namespace zt {

double ModeCorrelation(double frequency, double other, double damping) {
    const double ratio = other / frequency;
    if (ratio == 1.0) return 1.0;
    const double square = 1.0 - ratio * ratio;
    const double sum = 1.0 + ratio;
    return 8.0 * damping * damping * sum * ratio * std::sqrt(ratio) /
           (square * square + 4.0 * damping * damping * ratio * sum * sum);
}

}  // namespace zt
