#pragma once

#include "zt_db/core/record_class.h"
#include "zt_db/records/pont.h"

namespace zt {

struct T_PMAS_UNIT;

/// The mass of a node, under the key of the node: masses along the global axes, and rotational masses about them.
struct T_PMAS_D {
    double mx = 0.0;
    double my = 0.0;
    double mz = 0.0;
    double rmx = 0.0;
    double rmy = 0.0;
    double rmz = 0.0;

    static const T_PMAS_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_PMAS_D&) const = default;
};

template <>
struct Fields<T_PMAS_D> {
    using KeyOf = T_PONT_D;
    static constexpr auto list = std::tuple{
        Measured("mx", &T_PMAS_D::mx, Unit::Mass),
        Measured("my", &T_PMAS_D::my, Unit::Mass),
        Measured("mz", &T_PMAS_D::mz, Unit::Mass),
        Measured("rmx", &T_PMAS_D::rmx, Unit::RotationalMass),
        Measured("rmy", &T_PMAS_D::rmy, Unit::RotationalMass),
        Measured("rmz", &T_PMAS_D::rmz, Unit::RotationalMass),
    };
};

ZT_RECORD(PMAS, Pmas)
ZT_PLAIN_CLASS(PMAS, Pmas)

}  // namespace zt
