#pragma once

#include "zt_db/core/record_class.h"
#include "zt_db/records/pont.h"
#include "zt_db/records/stld.h"

namespace zt {

struct T_SDSP_UNIT;

/// Specified displacements of a node in a load case: where a flag of Dx, Dy, Dz, Rx, Ry, Rz is '1', the freedom is
/// moved by its value. Rotations are in rad.
struct T_SDSP_D {
    std::uint32_t node = 0;
    std::uint32_t stld = 0;
    std::string flags = "000000";
    std::array<double, 6> value{};

    static const T_SDSP_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_SDSP_D&) const = default;
};

template <>
struct Fields<T_SDSP_D> {
    static constexpr auto list = std::tuple{
        Needs<T_PONT_D>("node", &T_SDSP_D::node, IfGone::Cascade),
        Needs<T_STLD_D>("stld", &T_SDSP_D::stld, IfGone::Refuse),
        Plain("flags", &T_SDSP_D::flags),
        MeasuredEach("value", &T_SDSP_D::value,
                     {Unit::Length, Unit::Length, Unit::Length, Unit::None, Unit::None, Unit::None}),
    };
};

ZT_RECORD(SDSP, Sdsp)
ZT_PLAIN_CLASS(SDSP, Sdsp)

}  // namespace zt
