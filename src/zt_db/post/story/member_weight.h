#pragma once

#include <vector>

#include "zt_db/post/story/story_geometry.h"
#include "zt_db/records/memb.h"

namespace zt {

/// A member as it hands what lies on it to its nodes: a frame member by the lever between the two nodes of a span,
/// others in equal shares, as they are not analysed.
struct MemberShape {
    bool isFrame = false;
    std::vector<std::uint32_t> nodes{};  ///< places in the list of nodes
    std::vector<double> starts{};        ///< of each node along the member, 0 to 1
    double length = 0.0;                 ///< of a frame member; of others that of the first edge
    double area = 0.0;                   ///< of a wall or a slab
    double weight = 0.0;                 ///< N
    MemberAxes axes{};                   ///< of the first span, or of the face
};

/// The shape of a member; without nodes where it has less than two.
MemberShape ShapeOfMember(const CDataBase& model, const StoryGeometry& geometry, const T_MEMB_D& member);

/// Adds a force at a place along a member, 0 to 1, to its nodes.
void AddToNodes(const MemberShape& shape, double place, const Vector3& force, std::vector<Vector3>& nodes);
/// Adds a force that is spread evenly over a member.
void SpreadOverNodes(const MemberShape& shape, const Vector3& force, std::vector<Vector3>& nodes);

/// Forces of a static load case along the global axes, in N, as they come to each node of the list.
std::vector<Vector3> NodalForces(const CDataBase& model, const StoryGeometry& geometry, std::uint32_t stld);

}  // namespace zt
