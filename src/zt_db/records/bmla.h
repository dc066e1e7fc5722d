#pragma once

#include "zt_db/core/record_class.h"
#include "zt_db/records/memb.h"

namespace zt {

struct T_BLTP_UNIT;

/// A type of loads on beams: the dead load of what stands on them, per area of its face.
struct T_BLTP_D {
    std::string name{};
    double dl = 0.0;
    std::string description{};

    static const T_BLTP_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_BLTP_D&) const = default;
};

template <>
struct Fields<T_BLTP_D> {
    static constexpr auto list = std::tuple{
        Plain("name", &T_BLTP_D::name),
        Measured("dl", &T_BLTP_D::dl, Unit::AreaLoad),
        Plain("description", &T_BLTP_D::description),
    };
};

ZT_RECORD(BLTP, Bltp)

class CClassBltp : public CClassOf<T_BLTP_D> {
public:
    ZT_CLASS_NAMES(BLTP)

    /// The beam load type of a name, the smallest key where several have it; 0 when there is none.
    std::uint32_t GetKey(std::string_view name) const;
};

struct T_BMLA_UNIT;

/// A beam load type on a member. The height of what stands there is that of the story where `autoHeight` is set.
struct T_BMLA_D {
    std::uint32_t memb = 0;
    std::uint32_t type = 0;
    int autoHeight = 1;
    double height = 0.0;

    static const T_BMLA_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_BMLA_D&) const = default;
};

template <>
struct Fields<T_BMLA_D> {
    static constexpr auto list = std::tuple{
        Needs<T_MEMB_D>("memb", &T_BMLA_D::memb, IfGone::Cascade),
        Refers<T_BLTP_D>("type", &T_BMLA_D::type, IfGone::Refuse),
        Plain("autoHeight", &T_BMLA_D::autoHeight),
        Measured("height", &T_BMLA_D::height, Unit::Length),
    };
};

ZT_RECORD(BMLA, Bmla)
ZT_PLAIN_CLASS(BMLA, Bmla)

}  // namespace zt
