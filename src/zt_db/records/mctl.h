#pragma once

#include "zt_db/core/record_class.h"

namespace zt {

/// What a building stands by.
namespace StructureSystem {
inline constexpr int Frame = 0;
inline constexpr int Other = 1;  ///< walls, braces, or both with a frame
}  // namespace StructureSystem

struct T_MCTL_UNIT;

/// What holds for the model as a whole; there is one record, under key 1.
struct T_MCTL_D {
    static constexpr std::uint32_t kKey = 1;

    int system = StructureSystem::Frame;

    static const T_MCTL_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_MCTL_D&) const = default;
};

template <>
struct Fields<T_MCTL_D> {
    static constexpr auto list = std::tuple{
        Plain("system", &T_MCTL_D::system),
    };
};

ZT_RECORD(MCTL, Mctl)

class CClassMctl : public CClassOf<T_MCTL_D> {
public:
    ZT_CLASS_NAMES(MCTL)

    using CClassOf::Get;
    /// Reads the one record; false, and the record is left as it is, when the model has none.
    int Get(T_MCTL_D& record) const { return Get(T_MCTL_D::kKey, record); }
};

}  // namespace zt
