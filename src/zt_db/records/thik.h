#pragma once

#include "zt_db/core/record_class.h"

namespace zt {

struct T_THIK_UNIT;

/// A thickness of walls and slabs. In-plane and out-of-plane thickness are the same unless `inOutDiffers` is set.
struct T_THIK_D {
    std::string name{};
    double thickness = 0.0;
    int inOutDiffers = 0;
    double thicknessOut = 0.0;

    static const T_THIK_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_THIK_D&) const = default;
};

template <>
struct Fields<T_THIK_D> {
    static constexpr auto list = std::tuple{
        Plain("name", &T_THIK_D::name),
        Measured("thickness", &T_THIK_D::thickness, Unit::Length),
        Plain("inOutDiffers", &T_THIK_D::inOutDiffers),
        Measured("thicknessOut", &T_THIK_D::thicknessOut, Unit::Length),
    };
};

ZT_RECORD(THIK, Thik)

class CClassThik : public CClassOf<T_THIK_D> {
public:
    ZT_CLASS_NAMES(THIK)

    /// The thicknesses that members of a type can have, in the order of their keys: all of them where the type takes
    /// thicknesses, otherwise none. False when there are none. The further argument is part of the interface of this
    /// class; no value changes the list.
    int GetKeyListByMembType(std::vector<std::uint32_t>& keys, int membType, int = 1) const;
};

}  // namespace zt
