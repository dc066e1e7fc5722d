#pragma once

#include "zt_db/core/record_class.h"
#include "zt_db/records/splc.h"
#include "zt_db/records/stld.h"

namespace zt {

/// A point of a time function; the time is in s.
struct T_THFC_POINT {
    double time = 0.0;
    double value = 0.0;
    bool operator==(const T_THFC_POINT&) const = default;
};

template <>
struct Fields<T_THFC_POINT> {
    static constexpr auto list = std::tuple{
        Plain("time", &T_THFC_POINT::time),
        Plain("value", &T_THFC_POINT::value),
    };
};

struct T_THFC_UNIT;

/// A time function, by points in the order of their times; linear between them, 0 outside. A ground motion is in shares
/// of gravity.
struct T_THFC_D {
    std::string name{};
    std::vector<T_THFC_POINT> points{};
    std::string description{};

    static const T_THFC_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_THFC_D&) const = default;
};

template <>
struct Fields<T_THFC_D> {
    static constexpr auto list = std::tuple{
        Plain("name", &T_THFC_D::name),
        Plain("points", &T_THFC_D::points),
        Plain("description", &T_THFC_D::description),
    };
};

ZT_RECORD(THFC, Thfc)
ZT_PLAIN_CLASS(THFC, Thfc)

/// What a time function drives: the ground in a direction or, where a static load case is named, that case's loads. It
/// begins at `arrival`, in s.
struct T_THLC_ITEM {
    std::uint32_t thfc = 0;
    std::uint32_t stld = 0;
    int direction = GroundDirection::Horizontal;
    double angle = 0.0;
    double scale = 1.0;
    double arrival = 0.0;
    bool operator==(const T_THLC_ITEM&) const = default;
};

template <>
struct Fields<T_THLC_ITEM> {
    static constexpr auto list = std::tuple{
        Refers<T_THFC_D>("thfc", &T_THLC_ITEM::thfc, IfGone::Refuse),
        Refers<T_STLD_D>("stld", &T_THLC_ITEM::stld, IfGone::Refuse),
        Plain("direction", &T_THLC_ITEM::direction),
        Measured("angle", &T_THLC_ITEM::angle, Unit::Angle),
        Plain("scale", &T_THLC_ITEM::scale),
        Plain("arrival", &T_THLC_ITEM::arrival),
    };
};

struct T_THLC_UNIT;

/// A time-history load case, from 0 to `duration` in steps of `step`, both in s.
struct T_THLC_D {
    std::string name{};
    double damping = 0.05;
    double step = 0.02;
    double duration = 20.0;
    std::vector<T_THLC_ITEM> items{};
    std::string description{};

    static const T_THLC_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_THLC_D&) const = default;
};

template <>
struct Fields<T_THLC_D> {
    static constexpr auto list = std::tuple{
        Plain("name", &T_THLC_D::name),   Plain("damping", &T_THLC_D::damping),
        Plain("step", &T_THLC_D::step),   Plain("duration", &T_THLC_D::duration),
        Plain("items", &T_THLC_D::items), Plain("description", &T_THLC_D::description),
    };
};

ZT_RECORD(THLC, Thlc)
ZT_PLAIN_CLASS(THLC, Thlc)

}  // namespace zt
