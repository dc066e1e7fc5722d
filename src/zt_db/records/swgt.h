#pragma once

#include "zt_db/core/record_class.h"
#include "zt_db/records/load.h"
#include "zt_db/records/memb.h"

namespace zt {

struct T_SWGT_UNIT;

/// Factors of the self-weight along the global axes in a load case, for one member or, without one, for all.
struct T_SWGT_D {
    std::uint32_t memb = 0;
    std::uint32_t stld = 0;
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    static const T_SWGT_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_SWGT_D&) const = default;
};

template <>
struct Fields<T_SWGT_D> {
    static constexpr auto list = std::tuple{
        Refers<T_MEMB_D>("memb", &T_SWGT_D::memb, IfGone::Cascade),
        Needs<T_STLD_D>("stld", &T_SWGT_D::stld, IfGone::Refuse),
        Plain("x", &T_SWGT_D::x),
        Plain("y", &T_SWGT_D::y),
        Plain("z", &T_SWGT_D::z),
    };
};

ZT_RECORD(SWGT, Swgt)
ZT_PLAIN_CLASS(SWGT, Swgt)

}  // namespace zt
