#pragma once

#include "zt_db/core/record_class.h"
#include "zt_db/records/pont.h"
#include "zt_db/records/stld.h"

namespace zt {

struct T_STMP_UNIT;

/// A change of the temperature of the whole structure in a load case.
struct T_STMP_D {
    std::uint32_t stld = 0;
    double temperature = 0.0;

    static const T_STMP_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_STMP_D&) const = default;
};

template <>
struct Fields<T_STMP_D> {
    static constexpr auto list = std::tuple{
        Needs<T_STLD_D>("stld", &T_STMP_D::stld, IfGone::Refuse),
        Measured("temperature", &T_STMP_D::temperature, Unit::TemperatureDifference),
    };
};

ZT_RECORD(STMP, Stmp)
ZT_PLAIN_CLASS(STMP, Stmp)

struct T_PTMP_UNIT;

/// A change of the temperature of a node in a load case; members take the mean of their ends.
struct T_PTMP_D {
    std::uint32_t node = 0;
    std::uint32_t stld = 0;
    double temperature = 0.0;

    static const T_PTMP_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_PTMP_D&) const = default;
};

template <>
struct Fields<T_PTMP_D> {
    static constexpr auto list = std::tuple{
        Needs<T_PONT_D>("node", &T_PTMP_D::node, IfGone::Cascade),
        Needs<T_STLD_D>("stld", &T_PTMP_D::stld, IfGone::Refuse),
        Measured("temperature", &T_PTMP_D::temperature, Unit::TemperatureDifference),
    };
};

ZT_RECORD(PTMP, Ptmp)
ZT_PLAIN_CLASS(PTMP, Ptmp)

}  // namespace zt
