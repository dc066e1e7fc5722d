#pragma once

#include "zt_db/core/record_class.h"
#include "zt_db/records/lnld.h"

namespace zt {

struct T_SLTP_UNIT;

/// A type of loads on slabs: its dead and its live load. It has no name; users know it by its place in the list.
struct T_SLTP_D {
    double dl = 0.0;
    double ll = 0.0;
    std::string description{};

    static const T_SLTP_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_SLTP_D&) const = default;
};

template <>
struct Fields<T_SLTP_D> {
    static constexpr auto list = std::tuple{
        Measured("dl", &T_SLTP_D::dl, Unit::AreaLoad),
        Measured("ll", &T_SLTP_D::ll, Unit::AreaLoad),
        Plain("description", &T_SLTP_D::description),
    };
};

ZT_RECORD(SLTP, Sltp)
ZT_PLAIN_CLASS(SLTP, Sltp)

struct T_SBLA_UNIT;

/// The load on a slab, under the key of the member: its type, and its dead and live load.
struct T_SBLA_D {
    int direction = LoadDirection::GlobalZ;
    int projection = 0;
    std::uint32_t type = 0;
    double dl = 0.0;
    double ll = 0.0;

    static const T_SBLA_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_SBLA_D&) const = default;
};

template <>
struct Fields<T_SBLA_D> {
    using KeyOf = T_MEMB_D;
    static constexpr auto list = std::tuple{
        Plain("direction", &T_SBLA_D::direction),
        Plain("projection", &T_SBLA_D::projection),
        Refers<T_SLTP_D>("type", &T_SBLA_D::type, IfGone::Refuse),
        Measured("dl", &T_SBLA_D::dl, Unit::AreaLoad),
        Measured("ll", &T_SBLA_D::ll, Unit::AreaLoad),
    };
};

ZT_RECORD(SBLA, Sbla)
ZT_PLAIN_CLASS(SBLA, Sbla)

}  // namespace zt
