#include "zt_anl/element/bending_curves.h"

namespace zt {

BendingCurves CurvesOfBeam(double share, double length, double ratio) {
    const double m = 1.0 / (1.0 + ratio);
    const double s = share;
    const double s2 = s * s;
    const double s3 = s2 * s;
    return {
        {m * (1.0 - 3.0 * s2 + 2.0 * s3 + ratio * (1.0 - s)), m * length * (s - 2.0 * s2 + s3 + ratio / 2.0 * (s - s2)),
         m * (3.0 * s2 - 2.0 * s3 + ratio * s), m * length * (s3 - s2 - ratio / 2.0 * (s - s2))},
        {m * 6.0 / length * (s2 - s), m * (1.0 - 4.0 * s + 3.0 * s2 + ratio * (1.0 - s)), m * 6.0 / length * (s - s2),
         m * (3.0 * s2 - 2.0 * s + ratio * s)}};
}

BendingCurves CurvesOfBar(double share, double length) {
    return {{1.0 - share, 0.0, share, 0.0}, {-1.0 / length, 0.0, 1.0 / length, 0.0}};
}

PlaneMatrix TensionStiffnessOfBeam(double length, double ratio) {
    const double m = 1.0 / ((1.0 + ratio) * (1.0 + ratio));
    const double across = m * (1.2 + 2.0 * ratio + ratio * ratio) / length;
    const double turn = m * 0.1;
    const double near = m * length * (2.0 / 15.0 + ratio / 6.0 + ratio * ratio / 12.0);
    const double far = -m * length * (1.0 / 30.0 + ratio / 6.0 + ratio * ratio / 12.0);
    return {{{across, turn, -across, turn},
             {turn, near, -turn, far},
             {-across, -turn, across, -turn},
             {turn, far, -turn, near}}};
}

PlaneMatrix TensionStiffnessOfBar(double length) {
    const double across = 1.0 / length;
    return {{{across, 0.0, -across, 0.0}, {}, {-across, 0.0, across, 0.0}, {}}};
}

}  // namespace zt
