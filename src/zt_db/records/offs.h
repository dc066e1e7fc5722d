#pragma once

#include "zt_db/core/record_class.h"
#include "zt_db/records/memb.h"

namespace zt {

struct T_OFFS_UNIT;

/// The offset of a member from the line between its nodes, under the key of the member. By value: a column is moved
/// along its local y by the first values and along its local z by the second ones; a beam or wall sideways by the first
/// value of either end; a beam or slab along global Z by the vertical offset. Without `useJ` the offset of end i is
/// that of the whole member.
struct T_OFFS_D {
    enum Mode { kUnknown = -1, kByMember, kByValue };

    int mode = kByMember;
    std::uint32_t member1 = 0;
    std::uint32_t member2 = 0;
    int direction = 0;
    double i1 = 0.0;
    double i2 = 0.0;
    int useJ = 0;
    double j1 = 0.0;
    double j2 = 0.0;
    double vertical = 0.0;
    int displayOnly = 0;

    static const T_OFFS_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_OFFS_D&) const = default;
};

template <>
struct Fields<T_OFFS_D> {
    using KeyOf = T_MEMB_D;
    static constexpr auto list = std::tuple{
        Plain("mode", &T_OFFS_D::mode),
        Refers<T_MEMB_D>("member1", &T_OFFS_D::member1, IfGone::Clear),
        Refers<T_MEMB_D>("member2", &T_OFFS_D::member2, IfGone::Clear),
        Plain("direction", &T_OFFS_D::direction),
        Measured("i1", &T_OFFS_D::i1, Unit::Length),
        Measured("i2", &T_OFFS_D::i2, Unit::Length),
        Plain("useJ", &T_OFFS_D::useJ),
        Measured("j1", &T_OFFS_D::j1, Unit::Length),
        Measured("j2", &T_OFFS_D::j2, Unit::Length),
        Measured("vertical", &T_OFFS_D::vertical, Unit::Length),
        Plain("displayOnly", &T_OFFS_D::displayOnly),
    };
};

ZT_RECORD(OFFS, Offs)
ZT_PLAIN_CLASS(OFFS, Offs)

struct T_RGDE_UNIT;

/// The rigid lengths at the ends of a member, under the key of the member: the parts that lie within joints.
struct T_RGDE_D {
    double lengthI = 0.0;
    double lengthJ = 0.0;

    static const T_RGDE_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_RGDE_D&) const = default;
};

template <>
struct Fields<T_RGDE_D> {
    using KeyOf = T_MEMB_D;
    static constexpr auto list = std::tuple{
        Measured("lengthI", &T_RGDE_D::lengthI, Unit::Length),
        Measured("lengthJ", &T_RGDE_D::lengthJ, Unit::Length),
    };
};

ZT_RECORD(RGDE, Rgde)
ZT_PLAIN_CLASS(RGDE, Rgde)

}  // namespace zt
