#include "zt_anl/solve/oscillator.h"

#include <cmath>

namespace zt {
namespace {

/// Below this angle of a step the closed form loses digits, and its power series is short.
constexpr double kSmallAngle = 0.2;
constexpr int kTerms = 16;

struct Motion {
    double coordinate = 0.0;
    double speed = 0.0;
};

/// The end of a step by the power series of its equation of motion, with time in shares of the step. The load is that
/// at the beginning and its growth.
Motion EndOfSeries(double omega, double damping, double step, Motion begin, double load, double growth) {
    const double angle = omega * step;
    double before = begin.coordinate;
    double now = begin.speed * step;
    Motion end{before + now, now};
    for (int n = 0; n < kTerms; ++n) {
        const double drive = (n == 0 ? load : n == 1 ? growth : 0.0) * step * step;
        const double next =
            (drive - 2.0 * damping * angle * (n + 1.0) * now - angle * angle * before) / ((n + 2.0) * (n + 1.0));
        before = now;
        now = next;
        end.coordinate += now;
        end.speed += (n + 2.0) * now;
    }
    end.speed /= step;
    return end;
}

OscillatorStep SeriesStep(double omega, double damping, double step) {
    const Motion coordinate = EndOfSeries(omega, damping, step, {1.0, 0.0}, 0.0, 0.0);
    const Motion speed = EndOfSeries(omega, damping, step, {0.0, 1.0}, 0.0, 0.0);
    const Motion first = EndOfSeries(omega, damping, step, {}, 1.0, -1.0);
    const Motion last = EndOfSeries(omega, damping, step, {}, 0.0, 1.0);
    return {{coordinate.coordinate, speed.coordinate, first.coordinate, last.coordinate},
            {coordinate.speed, speed.speed, first.speed, last.speed}};
}

/// As in Chopra, Dynamics of Structures, table 5.2.1.
OscillatorStep ClosedStep(double omega, double damping, double step) {
    const double root = std::sqrt(1.0 - damping * damping);
    const double slope = damping / root;
    const double decay = std::exp(-damping * omega * step);
    const double damped = omega * root;
    const double sine = decay * std::sin(damped * step);
    const double cosine = decay * std::cos(damped * step);
    const double lag = 2.0 * damping / (omega * step);
    const double turn = (1.0 - 2.0 * damping * damping) / (damped * step);
    const double stiffness = omega * omega;
    OscillatorStep made;
    made.ofCoordinate = {slope * sine + cosine, sine / damped,
                         (lag + (turn - slope) * sine - (1.0 + lag) * cosine) / stiffness,
                         (1.0 - lag - turn * sine + lag * cosine) / stiffness};
    made.ofSpeed = {-omega / root * sine, cosine - slope * sine,
                    (-1.0 / step + (omega / root + slope / step) * sine + cosine / step) / stiffness,
                    (1.0 - slope * sine - cosine) / (stiffness * step)};
    return made;
}

}  // namespace

OscillatorStep OscillatorStepOf(double omega, double damping, double step) {
    return omega * step < kSmallAngle ? SeriesStep(omega, damping, step) : ClosedStep(omega, damping, step);
}

}  // namespace zt
