#pragma once

#include "zt_db/core/record_class.h"
#include "zt_db/records/memb.h"

namespace zt {

struct T_BWTP_UNIT;

/// A type of walls that stand on beams as loads: their dead load per area.
struct T_BWTP_D {
    std::string name{};
    double dl = 0.0;
    std::string description{};

    static const T_BWTP_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_BWTP_D&) const = default;
};

template <>
struct Fields<T_BWTP_D> {
    static constexpr auto list = std::tuple{
        Plain("name", &T_BWTP_D::name),
        Measured("dl", &T_BWTP_D::dl, Unit::AreaLoad),
        Plain("description", &T_BWTP_D::description),
    };
};

ZT_RECORD(BWTP, Bwtp)

class CClassBwtp : public CClassOf<T_BWTP_D> {
public:
    ZT_CLASS_NAMES(BWTP)

    /// The type of a name, the smallest key where several have it; 0 when there is none.
    std::uint32_t GetKey(std::string_view name) const;
};

struct T_BWLD_UNIT;

/// A wall as a load on a beam, under the key of the member: its type, its dead load per area, and its height, which is
/// that of the story where `autoHeight` is set.
struct T_BWLD_D {
    std::uint32_t type = 0;
    double dl = 0.0;
    int autoHeight = 1;
    double height = 0.0;

    static const T_BWLD_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_BWLD_D&) const = default;
};

template <>
struct Fields<T_BWLD_D> {
    using KeyOf = T_MEMB_D;
    static constexpr auto list = std::tuple{
        Refers<T_BWTP_D>("type", &T_BWLD_D::type, IfGone::Refuse),
        Measured("dl", &T_BWLD_D::dl, Unit::AreaLoad),
        Plain("autoHeight", &T_BWLD_D::autoHeight),
        Measured("height", &T_BWLD_D::height, Unit::Length),
    };
};

ZT_RECORD(BWLD, Bwld)
ZT_PLAIN_CLASS(BWLD, Bwld)

}  // namespace zt
