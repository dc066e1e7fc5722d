#pragma once

#include "zt_db/core/record_class.h"

namespace zt {

struct T_MDUL_UNIT;

/// A module: a part of the building with stories of its own.
struct T_MDUL_D {
    std::string name{};

    static const T_MDUL_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_MDUL_D&) const = default;
};

template <>
struct Fields<T_MDUL_D> {
    static constexpr auto list = std::tuple{Plain("name", &T_MDUL_D::name)};
};

ZT_RECORD(MDUL, Mdul)
ZT_PLAIN_CLASS(MDUL, Mdul)

struct T_STOR_UNIT;

/// A story of a module, with its top level and its height.
struct T_STOR_D {
    std::string name{};
    std::uint32_t mdul = 0;
    double level = 0.0;
    double height = 0.0;

    static const T_STOR_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_STOR_D&) const = default;
};

template <>
struct Fields<T_STOR_D> {
    static constexpr auto list = std::tuple{
        Plain("name", &T_STOR_D::name),
        Refers<T_MDUL_D>("mdul", &T_STOR_D::mdul, IfGone::Refuse),
        Measured("level", &T_STOR_D::level, Unit::Length),
        Measured("height", &T_STOR_D::height, Unit::Length),
    };
};

ZT_RECORD(STOR, Stor)
ZT_PLAIN_CLASS(STOR, Stor)

}  // namespace zt
