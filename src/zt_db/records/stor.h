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

class CClassMdul : public CClassOf<T_MDUL_D> {
public:
    ZT_CLASS_NAMES(MDUL)

    /// The module of a name, the smallest key where several have it; 0 when there is none.
    std::uint32_t GetKey(std::string_view name) const;
};

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

class CClassStor : public CClassOf<T_STOR_D> {
public:
    ZT_CLASS_NAMES(STOR)

    /// The story of a name in a module, the smallest key where several have it; 0 when there is none.
    std::uint32_t GetKey(std::string_view name, std::uint32_t moduleKey) const;
    /// The stories of a module, the topmost first, and the larger key first on one level; false when there are none.
    /// Stories that stand in no module belong to no list.
    int GetKeyListReverse(std::vector<std::uint32_t>& keys, std::uint32_t moduleKey) const;
    /// The top level of a story, in current units: its `level` as it stands, since that is the height of the story's
    /// ceiling and not of its floor. False, and `level` is left alone, when there is no such story.
    int GetStorTopLevel(std::uint32_t storyKey, double& level) const;
};

}  // namespace zt
