#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "zt_db/geometry/member_geometry.h"
#include "zt_db/records/sect.h"
#include "zt_db/units/exact_units.h"

namespace zt {

/// The freedoms of a node in their order: Dx, Dy, Dz, Rx, Ry, Rz.
inline constexpr std::size_t kFreedoms = 6;
/// Values of a node in the order of its freedoms.
using NodeVector = std::array<double, kFreedoms>;
/// Values of both ends of an element: those of end i, then those of end j.
using EndVector = std::array<double, 2 * kFreedoms>;

struct FrameNode {
    std::uint32_t key = 0;
    std::uint32_t no = 0;
    Vector3 place{};
};

/// The releases of both ends of an element, in its local axes. What is left of a released stiffness is a fraction of it
/// or a spring, in N/m and Nm/rad.
struct EndReleases {
    std::array<bool, 2 * kFreedoms> isReleased{};
    EndVector left{};
    bool isFraction = true;
};

/// The sense in which a member carries forces along itself.
enum class AxialSense { Both, TensionOnly, CompressionOnly };

/// What a member is between two of its nodes: one element of the analysis. The element reaches from end to end; rigid
/// arms join its ends to the nodes.
struct FrameSpan {
    std::uint32_t member = 0;  ///< key
    std::uint32_t no = 0;      ///< number of the member
    std::array<std::size_t, 2> ends{};
    double start = 0.0;  ///< relative positions along the member, those of its rigid lengths included
    double end = 1.0;
    double length = 0.0;            ///< from end to end
    std::array<double, 2> rigid{};  ///< lengths of the member before end i and behind end j
    std::array<Vector3, 2> arms{};  ///< from the nodes to the ends
    MemberAxes axes{};
    double elasticity = 0.0;
    double shearModulus = 0.0;
    T_SECT_STIFFNESS section{};
    double weight = 0.0;   ///< N/m
    double thermal = 0.0;  ///< strain of one degree
    EndReleases releases{};
    bool isTruss = false;  ///< has no stiffness but that along it
    AxialSense sense = AxialSense::Both;

    double WholeLength() const { return rigid[0] + length + rigid[1]; }
};

/// A member that is not analysed: a wall, a slab, a line. It gives its weight and its loads to its nodes in equal
/// shares.
struct FrameBearer {
    std::uint32_t member = 0;  ///< key
    std::vector<std::size_t> nodes{};
    MemberAxes axes{};
    double length = 0.0;  ///< of the line that loads along the member stand on
    Vector3 along{};      ///< direction of that line
    double area = 0.0;
    double weight = 0.0;  ///< N
};

struct FrameSupport {
    std::size_t node = 0;
    std::array<bool, kFreedoms> isFixed{};
    NodeVector spring{};
    /// 1 or -1 where the support pushes the structure along a displacement in that sense alone.
    std::array<int, 3> sense{};

    bool Holds(std::size_t freedom) const { return isFixed[freedom] || spring[freedom] > 0.0; }
};

/// Nodes that follow a master in the tied freedoms.
struct FrameLink {
    std::size_t master = 0;
    std::array<bool, kFreedoms> isTied{};
    std::vector<std::size_t> slaves{};
};

/// Masses along the global axes and rotational masses about them, in kg and kg m2.
struct FrameMass {
    std::size_t node = 0;
    NodeVector values{};
};

/// What the analysis sees of a building, in SI units. Nodes are known by their place in the list, which is that of
/// their keys in ascending order.
struct FrameModel {
    std::vector<FrameNode> nodes{};
    std::vector<FrameSpan> spans{};
    std::vector<FrameBearer> bearers{};
    std::vector<FrameSupport> supports{};
    std::vector<FrameLink> links{};
    std::vector<FrameMass> masses{};
    std::unordered_map<std::uint32_t, std::size_t> nodeOfKey{};
    /// Places of the first span of a member and of the one behind its last.
    std::unordered_map<std::uint32_t, std::array<std::size_t, 2>> spansOfMember{};
    std::unordered_map<std::uint32_t, std::size_t> bearerOfMember{};

    /// Whether members or supports act in one sense only.
    bool HasOneWayParts() const {
        return std::any_of(spans.begin(), spans.end(),
                           [](const FrameSpan& span) { return span.sense != AxialSense::Both; }) ||
               std::any_of(supports.begin(), supports.end(),
                           [](const FrameSupport& support) { return support.sense != std::array<int, 3>{}; });
    }
};

}  // namespace zt
