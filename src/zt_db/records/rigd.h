#pragma once

#include "zt_db/core/record_class.h"
#include "zt_db/records/pont.h"

namespace zt {

struct T_RIGD_UNIT;

/// A rigid link, under the key of its master node, which the record names as well. `freedoms` holds six decimal digits,
/// 1 tied and 0 not, in the order DX, DY, DZ, RX, RY, RZ: 110000 ties DX and DY.
struct T_RIGD_D {
    std::uint32_t master = 0;
    int freedoms = 0;
    std::vector<std::uint32_t> slaves{};

    static const T_RIGD_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_RIGD_D&) const = default;
};

template <>
struct Fields<T_RIGD_D> {
    using KeyOf = T_PONT_D;
    static constexpr auto list = std::tuple{
        Refers<T_PONT_D>("master", &T_RIGD_D::master, IfGone::Cascade),
        Plain("freedoms", &T_RIGD_D::freedoms),
        Refers<T_PONT_D>("slaves", &T_RIGD_D::slaves, IfGone::Clear),
    };
};

ZT_RECORD(RIGD, Rigd)
ZT_PLAIN_CLASS(RIGD, Rigd)

}  // namespace zt
