#pragma once

#include "zt_db/core/record_class.h"

namespace zt {

/// A point of a response spectrum: the pseudo-acceleration, in shares of gravity, at a period in s.
struct T_SPFC_POINT {
    double period = 0.0;
    double value = 0.0;
    bool operator==(const T_SPFC_POINT&) const = default;
};

template <>
struct Fields<T_SPFC_POINT> {
    static constexpr auto list = std::tuple{
        Plain("period", &T_SPFC_POINT::period),
        Plain("value", &T_SPFC_POINT::value),
    };
};

struct T_SPFC_UNIT;

/// A response spectrum, by points in the order of their periods; linear between them, constant beyond the ends.
struct T_SPFC_D {
    std::string name{};
    std::vector<T_SPFC_POINT> points{};
    std::string description{};

    static const T_SPFC_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_SPFC_D&) const = default;
};

template <>
struct Fields<T_SPFC_D> {
    static constexpr auto list = std::tuple{
        Plain("name", &T_SPFC_D::name),
        Plain("points", &T_SPFC_D::points),
        Plain("description", &T_SPFC_D::description),
    };
};

ZT_RECORD(SPFC, Spfc)
ZT_PLAIN_CLASS(SPFC, Spfc)

/// How the responses of modes are put together.
namespace ModeCombination {
inline constexpr int Srss = 0;  ///< root of the sum of squares
inline constexpr int Cqc = 1;   ///< complete quadratic combination
}  // namespace ModeCombination

/// The direction of a ground motion.
namespace GroundDirection {
inline constexpr int Horizontal = 0;  ///< at an angle to global X
inline constexpr int Vertical = 1;
}  // namespace GroundDirection

struct T_SPLC_UNIT;

/// A response spectrum load case. The angle runs from global X to global Y; `scale` multiplies the spectrum. Cases of
/// `type` 2 serve seismic checks only.
struct T_SPLC_D {
    static constexpr int kSeismicOnly = 2;

    std::string name{};
    int type = 0;
    std::uint32_t spfc = 0;
    int direction = GroundDirection::Horizontal;
    double angle = 0.0;
    double scale = 1.0;
    int combination = ModeCombination::Cqc;
    double damping = 0.05;
    std::string description{};

    static const T_SPLC_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_SPLC_D&) const = default;
};

template <>
struct Fields<T_SPLC_D> {
    static constexpr auto list = std::tuple{
        Plain("name", &T_SPLC_D::name),
        Plain("type", &T_SPLC_D::type),
        Refers<T_SPFC_D>("spfc", &T_SPLC_D::spfc, IfGone::Refuse),
        Plain("direction", &T_SPLC_D::direction),
        Measured("angle", &T_SPLC_D::angle, Unit::Angle),
        Plain("scale", &T_SPLC_D::scale),
        Plain("combination", &T_SPLC_D::combination),
        Plain("damping", &T_SPLC_D::damping),
        Plain("description", &T_SPLC_D::description),
    };
};

ZT_RECORD(SPLC, Splc)
ZT_PLAIN_CLASS(SPLC, Splc)

}  // namespace zt
