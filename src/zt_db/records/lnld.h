#pragma once

#include "zt_db/core/record_class.h"
#include "zt_db/records/load.h"
#include "zt_db/records/memb.h"

namespace zt {

/// Types of loads on members. Any other number is a load whose values have no unit.
namespace LoadType {
inline constexpr int Unknown = -1;
inline constexpr int ConcentratedForces = 1;
inline constexpr int ConcentratedMoments = 2;
inline constexpr int UniformLoads = 3;
inline constexpr int UniformMoments = 4;
}  // namespace LoadType

/// Directions of loads on members. The local z axis of walls and slabs is their normal.
namespace LoadDirection {
inline constexpr int Unknown = -1;
inline constexpr int LocalX = 1;
inline constexpr int LocalY = 2;
inline constexpr int LocalZ = 3;
inline constexpr int GlobalX = 4;
inline constexpr int GlobalY = 5;
inline constexpr int GlobalZ = 6;
inline constexpr int Normal = LocalZ;
}  // namespace LoadDirection

/// The fields that the records of loads on members share. The unit codes of their values stand in the order of the load
/// types.
template <class R>
constexpr auto MemberLoadFields() {
    return std::tuple{
        Needs<T_MEMB_D>("memb", &R::memb, IfGone::Cascade),
        Needs<T_STLD_D>("stld", &R::stld, IfGone::Refuse),
        Plain("type", &R::type),
        Plain("direction", &R::direction),
        Plain("projection", &R::projection),
        Plain("x", &R::x),
        MeasuredBy("p", &R::p, {Unit::Force, Unit::Moment, Unit::LineLoad, Unit::MomentPerLength},
                   [](const R& load, std::size_t) {
                       return static_cast<std::size_t>(load.type - LoadType::ConcentratedForces);
                   }),
        Plain("description", &R::description),
    };
}

struct T_LNLD_UNIT;

/// A load on a beam, a line or a wall: values `p` at the relative positions `x` along the member.
struct T_LNLD_D {
    std::uint32_t memb = 0;
    std::uint32_t stld = 0;
    int type = LoadType::UniformLoads;
    int direction = LoadDirection::GlobalZ;
    int projection = 0;
    std::array<double, 4> x{};
    std::array<double, 4> p{};
    std::string description{};

    static const T_LNLD_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_LNLD_D&) const = default;
};

template <>
struct Fields<T_LNLD_D> {
    static constexpr auto list = MemberLoadFields<T_LNLD_D>();
};

ZT_RECORD(LNLD, Lnld)
ZT_PLAIN_CLASS(LNLD, Lnld)

struct T_CMLD_UNIT;

/// A load on a column, with the same content as one on a beam.
struct T_CMLD_D {
    std::uint32_t memb = 0;
    std::uint32_t stld = 0;
    int type = LoadType::UniformLoads;
    int direction = LoadDirection::GlobalZ;
    int projection = 0;
    std::array<double, 4> x{};
    std::array<double, 4> p{};
    std::string description{};

    static const T_CMLD_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_CMLD_D&) const = default;
};

template <>
struct Fields<T_CMLD_D> {
    static constexpr auto list = MemberLoadFields<T_CMLD_D>();
};

ZT_RECORD(CMLD, Cmld)
ZT_PLAIN_CLASS(CMLD, Cmld)

}  // namespace zt
