#pragma once

#include "zt_db/core/record_class.h"
#include "zt_db/records/pont.h"

namespace zt {

struct T_SPTS_UNIT;

/// The support of a node, under the key of the node. `flags` has a character for each of Dx, Dy, Dz, Rx, Ry, Rz, '1'
/// restrained and '0' free; `value` has the spring stiffness of each in the same order; `compressionType` tells for Dx,
/// Dy, Dz in which sense alone the support acts.
struct T_SPTS_D {
    /// The senses of a degree of freedom.
    enum Compression { kUnknown = -1, kNone, kPositive, kNegative };

    std::string flags = "000000";
    std::array<double, 6> value{};
    std::array<int, 3> compressionType{};

    static const T_SPTS_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_SPTS_D&) const = default;
};

template <>
struct Fields<T_SPTS_D> {
    using KeyOf = T_PONT_D;
    static constexpr auto list = std::tuple{
        Plain("flags", &T_SPTS_D::flags),
        MeasuredEach("value", &T_SPTS_D::value,
                     {Unit::Stiffness, Unit::Stiffness, Unit::Stiffness, Unit::RotationalStiffness,
                      Unit::RotationalStiffness, Unit::RotationalStiffness}),
        Plain("compressionType", &T_SPTS_D::compressionType),
    };
};

ZT_RECORD(SPTS, Spts)

class CClassSpts : public CClassOf<T_SPTS_D> {
public:
    ZT_CLASS_NAMES(SPTS)

    using CClassOf::TR_Add;
    // The further argument is part of the interface of this class; no value of it changes what is stored.
    int TR_Add(std::uint32_t key, const T_SPTS_D& record, int) { return TR_Add(key, record); }
};

}  // namespace zt
