#pragma once

#include "zt_db/core/record_class.h"
#include "zt_db/records/load.h"
#include "zt_db/records/pont.h"

namespace zt {

struct T_PTLD_UNIT;

/// A load on a node: forces and moments along the global axes.
struct T_PTLD_D {
    std::uint32_t node = 0;
    std::uint32_t stld = 0;
    double fx = 0.0;
    double fy = 0.0;
    double fz = 0.0;
    double mx = 0.0;
    double my = 0.0;
    double mz = 0.0;

    static const T_PTLD_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_PTLD_D&) const = default;
};

template <>
struct Fields<T_PTLD_D> {
    static constexpr auto list = std::tuple{
        Needs<T_PONT_D>("node", &T_PTLD_D::node, IfGone::Cascade),
        Needs<T_STLD_D>("stld", &T_PTLD_D::stld, IfGone::Refuse),
        Measured("fx", &T_PTLD_D::fx, Unit::Force),
        Measured("fy", &T_PTLD_D::fy, Unit::Force),
        Measured("fz", &T_PTLD_D::fz, Unit::Force),
        Measured("mx", &T_PTLD_D::mx, Unit::Moment),
        Measured("my", &T_PTLD_D::my, Unit::Moment),
        Measured("mz", &T_PTLD_D::mz, Unit::Moment),
    };
};

ZT_RECORD(PTLD, Ptld)
ZT_PLAIN_CLASS(PTLD, Ptld)

}  // namespace zt
