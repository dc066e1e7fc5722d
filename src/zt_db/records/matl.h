#pragma once

#include "zt_db/core/record_class.h"

namespace zt {

struct T_MATL_ANALYSIS_UNIT;

/// What the analysis needs of one material, and where in the material library it came from.
/// Elasticity is in N/mm2 and density in kgf/m3 whatever the current units are.
struct T_MATL_ANALYSIS {
    double elasticity = 0.0;
    double poisson = 0.0;
    double thermal = 0.0;
    double density = 0.0;
    std::string code{};
    std::string codeName{};

    static const T_MATL_ANALYSIS_UNIT unit;
    bool operator==(const T_MATL_ANALYSIS&) const = default;
};

template <>
struct Fields<T_MATL_ANALYSIS> {
    static constexpr auto list = std::tuple{
        Measured("elasticity", &T_MATL_ANALYSIS::elasticity, Unit::FixedStress),
        Measured("poisson", &T_MATL_ANALYSIS::poisson, Unit::None),
        Measured("thermal", &T_MATL_ANALYSIS::thermal, Unit::ThermalCoefficient),
        Measured("density", &T_MATL_ANALYSIS::density, Unit::FixedWeightDensity),
        Plain("code", &T_MATL_ANALYSIS::code),
        Plain("codeName", &T_MATL_ANALYSIS::codeName),
    };
};

ZT_UNITS(T_MATL_ANALYSIS_UNIT, T_MATL_ANALYSIS)

struct T_MATL_UNIT;

/// A material: steel "S", concrete "C", a composite of both "SRC", or one of the user's own "U". The second group of
/// values is that of the second material of a composite.
struct T_MATL_D {
    std::string name{};
    std::string type{};
    std::array<T_MATL_ANALYSIS, 2> analysis{};
    double dampingRatio = 0.0;

    static const T_MATL_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_MATL_D&) const = default;
};

template <>
struct Fields<T_MATL_D> {
    static constexpr auto list = std::tuple{
        Plain("name", &T_MATL_D::name),
        Plain("type", &T_MATL_D::type),
        Grouped("analysis", &T_MATL_D::analysis),
        Plain("dampingRatio", &T_MATL_D::dampingRatio),
    };
};

ZT_RECORD(MATL, Matl)
ZT_PLAIN_CLASS(MATL, Matl)

}  // namespace zt
