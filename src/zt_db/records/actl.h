#pragma once

#include "zt_db/core/record_class.h"
#include "zt_db/records/stld.h"

namespace zt {

/// A static load case with a factor.
struct T_STLD_FACTOR {
    std::uint32_t stld = 0;
    double factor = 1.0;
    bool operator==(const T_STLD_FACTOR&) const = default;
};

template <>
struct Fields<T_STLD_FACTOR> {
    static constexpr auto list = std::tuple{
        Refers<T_STLD_D>("stld", &T_STLD_FACTOR::stld, IfGone::Refuse),
        Plain("factor", &T_STLD_FACTOR::factor),
    };
};

/// How the deformed shape enters the equilibrium.
namespace SecondOrder {
inline constexpr int None = 0;
inline constexpr int EachCase = 1;    ///< by the axial forces of each load case itself
inline constexpr int GivenLoads = 2;  ///< by the axial forces of given loads, held for all cases and for the modes
}  // namespace SecondOrder

struct T_ACTL_UNIT;

/// How the model is analysed; there is one record, under key 1. `massLimit` is the share of the total mass, in percent,
/// that the modes should reach. The downward loads of `massLoads` count as masses.
struct T_ACTL_D {
    static constexpr std::uint32_t kKey = 1;

    int modes = 12;
    double massLimit = 90.0;
    int shearDeformation = 1;
    int selfWeightMass = 1;
    int consistentMass = 0;
    std::vector<T_STLD_FACTOR> massLoads{};
    int secondOrder = SecondOrder::None;
    std::vector<T_STLD_FACTOR> secondOrderLoads{};

    static const T_ACTL_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_ACTL_D&) const = default;
};

template <>
struct Fields<T_ACTL_D> {
    static constexpr auto list = std::tuple{
        Plain("modes", &T_ACTL_D::modes),
        Plain("massLimit", &T_ACTL_D::massLimit),
        Plain("shearDeformation", &T_ACTL_D::shearDeformation),
        Plain("selfWeightMass", &T_ACTL_D::selfWeightMass),
        Plain("consistentMass", &T_ACTL_D::consistentMass),
        Plain("massLoads", &T_ACTL_D::massLoads),
        Plain("secondOrder", &T_ACTL_D::secondOrder),
        Plain("secondOrderLoads", &T_ACTL_D::secondOrderLoads),
    };
};

ZT_RECORD(ACTL, Actl)
ZT_PLAIN_CLASS(ACTL, Actl)

}  // namespace zt
