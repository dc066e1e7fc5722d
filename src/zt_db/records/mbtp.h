#pragma once

#include "zt_db/core/record_class.h"
#include "zt_db/records/memb.h"

namespace zt {

struct T_MBTP_UNIT;

/// A number that the design may choose itself.
struct T_MBTP_CHOICE {
    int value = 0;
    int automatic = 1;
    bool operator==(const T_MBTP_CHOICE&) const = default;
};

template <>
struct Fields<T_MBTP_CHOICE> {
    static constexpr auto list =
        std::tuple{Plain("value", &T_MBTP_CHOICE::value), Plain("automatic", &T_MBTP_CHOICE::automatic)};
};

/// Member type data: options of one member that the design stages read. Which of them count depends on the member's
/// type.
struct T_MBTP_D {
    std::uint32_t memb = 0;
    // beams
    int frameHeader = 0;
    int cantilever = 0;
    int couplingBeam = 0;
    int middle = 0;
    // columns
    int bottom = 0;
    int corner = 0;
    int voluntary = 0;
    // beams and columns
    int transfer = 0;
    int protect = 0;
    // walls
    T_MBTP_CHOICE shear{};
    T_MBTP_CHOICE lowerInForce{};
    T_MBTP_CHOICE gjrj{};
    T_MBTP_CHOICE protectWall{};
    int outerWall = 0;
    // slabs
    T_MBTP_CHOICE protectSlab{};
    T_MBTP_CHOICE slope{};

    static const T_MBTP_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_MBTP_D&) const = default;
};

template <>
struct Fields<T_MBTP_D> {
    static constexpr auto list = std::tuple{
        Refers<T_MEMB_D>("memb", &T_MBTP_D::memb, IfGone::Cascade),
        Plain("frameHeader", &T_MBTP_D::frameHeader),
        Plain("cantilever", &T_MBTP_D::cantilever),
        Plain("couplingBeam", &T_MBTP_D::couplingBeam),
        Plain("middle", &T_MBTP_D::middle),
        Plain("bottom", &T_MBTP_D::bottom),
        Plain("corner", &T_MBTP_D::corner),
        Plain("voluntary", &T_MBTP_D::voluntary),
        Plain("transfer", &T_MBTP_D::transfer),
        Plain("protect", &T_MBTP_D::protect),
        Grouped("shear", &T_MBTP_D::shear),
        Grouped("lowerInForce", &T_MBTP_D::lowerInForce),
        Grouped("gjrj", &T_MBTP_D::gjrj),
        Grouped("protectWall", &T_MBTP_D::protectWall),
        Plain("outerWall", &T_MBTP_D::outerWall),
        Grouped("protectSlab", &T_MBTP_D::protectSlab),
        Grouped("slope", &T_MBTP_D::slope),
    };
};

ZT_RECORD(MBTP, Mbtp)

class CClassMbtp : public CClassOf<T_MBTP_D> {
public:
    ZT_CLASS_NAMES(MBTP)

    /// The member that the options belong to; 0 when the key does not exist.
    std::uint32_t GetMembKbyMbtpK(std::uint32_t key) const;
};

struct T_PREL_UNIT;

/// A design element: one part of a member, counted from 1 at its first node.
struct T_PREL_D {
    std::uint32_t memb = 0;
    int part = 1;

    static const T_PREL_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_PREL_D&) const = default;
};

template <>
struct Fields<T_PREL_D> {
    static constexpr auto list = std::tuple{
        Refers<T_MEMB_D>("memb", &T_PREL_D::memb, IfGone::Cascade),
        Plain("part", &T_PREL_D::part),
    };
};

ZT_RECORD(PREL, Prel)

class CClassPrel : public CClassOf<T_PREL_D> {
public:
    ZT_CLASS_NAMES(PREL)

    /// The member that a design element is a part of; 0 when the key does not exist.
    std::uint32_t GetMembKOfPrel(std::uint32_t key) const;
};

}  // namespace zt
