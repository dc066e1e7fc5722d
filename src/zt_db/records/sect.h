#pragma once

#include "zt_db/core/record_class.h"

namespace zt {

/// Where a section came from: the table it was taken from, its name there, and its nine sizes.
struct T_SECT_SECTBASE_D {
    std::string dbName{};
    std::string sectName{};
    std::array<double, 9> size{};
    bool operator==(const T_SECT_SECTBASE_D&) const = default;
};

template <>
struct Fields<T_SECT_SECTBASE_D> {
    static constexpr auto list = std::tuple{
        Plain("dbName", &T_SECT_SECTBASE_D::dbName),
        Plain("sectName", &T_SECT_SECTBASE_D::sectName),
        Measured("size", &T_SECT_SECTBASE_D::size, Unit::Length),
    };
};

struct T_SECT_STIFFNESS_UNIT;

/// Values of a section that the analysis needs.
struct T_SECT_STIFFNESS {
    double area = 0.0;
    double asy = 0.0;  ///< shear areas
    double asz = 0.0;
    double ixx = 0.0;  ///< torsion constant
    double iyy = 0.0;
    double izz = 0.0;

    static const T_SECT_STIFFNESS_UNIT unit;
    bool operator==(const T_SECT_STIFFNESS&) const = default;
};

template <>
struct Fields<T_SECT_STIFFNESS> {
    static constexpr auto list = std::tuple{
        Measured("area", &T_SECT_STIFFNESS::area, Unit::Area),  Measured("asy", &T_SECT_STIFFNESS::asy, Unit::Area),
        Measured("asz", &T_SECT_STIFFNESS::asz, Unit::Area),    Measured("ixx", &T_SECT_STIFFNESS::ixx, Unit::Inertia),
        Measured("iyy", &T_SECT_STIFFNESS::iyy, Unit::Inertia), Measured("izz", &T_SECT_STIFFNESS::izz, Unit::Inertia),
    };
};

ZT_UNITS(T_SECT_STIFFNESS_UNIT, T_SECT_STIFFNESS)

struct T_SECT_DESIGN_UNIT;

/// Values of a section that the design needs.
struct T_SECT_DESIGN {
    double ey = 0.0;  ///< distances from the centroid to the shear centre
    double ez = 0.0;
    double wey = 0.0;  ///< elastic section moduli
    double wez = 0.0;
    double wpy = 0.0;  ///< plastic section moduli
    double wpz = 0.0;
    double ry = 0.0;  ///< radii of gyration
    double rz = 0.0;
    double cw = 0.0;  ///< warping constant
    double j = 0.0;   ///< torsion constant of the design code
    double rp = 0.0;  ///< polar radius of gyration

    static const T_SECT_DESIGN_UNIT unit;
    bool operator==(const T_SECT_DESIGN&) const = default;
};

template <>
struct Fields<T_SECT_DESIGN> {
    static constexpr auto list = std::tuple{
        Measured("ey", &T_SECT_DESIGN::ey, Unit::Length),
        Measured("ez", &T_SECT_DESIGN::ez, Unit::Length),
        Measured("wey", &T_SECT_DESIGN::wey, Unit::SectionModulus),
        Measured("wez", &T_SECT_DESIGN::wez, Unit::SectionModulus),
        Measured("wpy", &T_SECT_DESIGN::wpy, Unit::SectionModulus),
        Measured("wpz", &T_SECT_DESIGN::wpz, Unit::SectionModulus),
        Measured("ry", &T_SECT_DESIGN::ry, Unit::Length),
        Measured("rz", &T_SECT_DESIGN::rz, Unit::Length),
        Measured("cw", &T_SECT_DESIGN::cw, Unit::WarpingConstant),
        Measured("j", &T_SECT_DESIGN::j, Unit::Inertia),
        Measured("rp", &T_SECT_DESIGN::rp, Unit::Length),
    };
};

ZT_UNITS(T_SECT_DESIGN_UNIT, T_SECT_DESIGN)

struct T_SECT_UNIT;

/// A section of frame members.
struct T_SECT_D {
    std::string name{};
    int kind = 1;  ///< 1 regular, 2 composite, 3 by values, 4 combined, 5 tapered
    int type = 0;
    std::string shape{};
    std::string description{};
    T_SECT_SECTBASE_D base{};
    T_SECT_STIFFNESS stiffness{};
    T_SECT_DESIGN design{};
    double perimeterOut = 0.0;
    double perimeterIn = 0.0;

    static const T_SECT_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_SECT_D&) const = default;
};

template <>
struct Fields<T_SECT_D> {
    static constexpr auto list = std::tuple{
        Plain("name", &T_SECT_D::name),
        Plain("kind", &T_SECT_D::kind),
        Plain("type", &T_SECT_D::type),
        Plain("shape", &T_SECT_D::shape),
        Plain("description", &T_SECT_D::description),
        Grouped("base", &T_SECT_D::base),
        Grouped("stiffness", &T_SECT_D::stiffness),
        Grouped("design", &T_SECT_D::design),
        Measured("perimeterOut", &T_SECT_D::perimeterOut, Unit::Length),
        Measured("perimeterIn", &T_SECT_D::perimeterIn, Unit::Length),
    };
};

ZT_RECORD(SECT, Sect)

class CClassSect : public CClassOf<T_SECT_D> {
public:
    ZT_CLASS_NAMES(SECT)

    /// The sections that members of a type can have, in the order of their keys: all of them where the type takes
    /// sections, otherwise none. False when there are none. The further arguments are part of the interface of this
    /// class; no value changes the list.
    int GetKeyListByMembType(std::vector<std::uint32_t>& keys, int membType, int = 1, int = 0) const;
};

}  // namespace zt
