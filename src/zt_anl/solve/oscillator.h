#pragma once

namespace zt {

/// An exact step of an oscillator of mass 1 under a load that runs linearly over the step (Nigam and Jennings, 1969,
/// Calculation of response spectra from strong-motion earthquake records, Bull. Seism. Soc. Am. 59(2), 909-922). Each
/// factor tells what the coordinate or its speed at the end gets from one at the beginning, or from the load at an end.
struct OscillatorStep {
    struct Factors {
        double coordinate = 0.0;
        double speed = 0.0;
        double firstLoad = 0.0;
        double lastLoad = 0.0;
    };
    Factors ofCoordinate{};
    Factors ofSpeed{};
};

/// The step of an oscillator of a circular frequency in rad/s; the ratio of damping is below 1.
OscillatorStep OscillatorStepOf(double omega, double damping, double step);

}  // namespace zt
