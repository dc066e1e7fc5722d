#pragma once

#include "zt_db/core/record_class.h"
#include "zt_db/records/memb.h"

namespace zt {

struct T_FRLS_UNIT;

/// The end releases of a frame member, under the key of the member. The flags have a character for each of Fx, Fy, Fz,
/// Mx, My, Mz, '1' released and '0' fixed; the values are what is left of the stiffness, as a fraction of it or as a
/// stiffness of its own.
struct T_FRLS_D {
    /// What the values are; one of an unknown kind has no unit.
    enum Type { kUnknown = -1, kRelative, kValue };

    int type = kRelative;
    std::string flagsI = "000000";
    std::string flagsJ = "000000";
    std::array<double, 6> valuesI{};
    std::array<double, 6> valuesJ{};

    static const T_FRLS_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_FRLS_D&) const = default;

    /// The place of the unit code of a value within those of its field: forces, then moments.
    static constexpr std::size_t UnitPlace(const T_FRLS_D& record, std::size_t element) {
        constexpr std::size_t kForces = 3;
        constexpr std::size_t kNoPlace = 2;
        if (record.type != kValue) return kNoPlace;
        return element < kForces ? 0 : 1;
    }
};

template <>
struct Fields<T_FRLS_D> {
    using KeyOf = T_MEMB_D;
    static constexpr int kUnits[] = {Unit::Stiffness, Unit::RotationalStiffness};
    static constexpr auto list = std::tuple{
        Plain("type", &T_FRLS_D::type),
        Plain("flagsI", &T_FRLS_D::flagsI),
        Plain("flagsJ", &T_FRLS_D::flagsJ),
        MeasuredBy("valuesI", &T_FRLS_D::valuesI, kUnits, &T_FRLS_D::UnitPlace),
        MeasuredBy("valuesJ", &T_FRLS_D::valuesJ, kUnits, &T_FRLS_D::UnitPlace),
    };
};

ZT_RECORD(FRLS, Frls)
ZT_PLAIN_CLASS(FRLS, Frls)

}  // namespace zt
