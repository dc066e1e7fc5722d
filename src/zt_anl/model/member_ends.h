#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "zt_db/core/database.h"
#include "zt_db/geometry/member_geometry.h"
#include "zt_db/records/memb.h"

namespace zt {

/// How a member lies against the line of its nodes.
struct MemberEnds {
    std::vector<Vector3> offsets{};  ///< from each of its nodes to its line
    std::array<double, 2> rigid{};   ///< rigid lengths at both ends, along its line
    bool isByMember = false;         ///< has an offset that other members tell
};

/// Reads the offset and the rigid lengths of a member with nodes at places. Nodes between its ends get offsets between
/// those of the ends. An offset that other members tell is none.
MemberEnds ReadMemberEnds(const CDataBase& database, std::uint32_t key, const T_MEMB_D& member,
                          std::span<const Vector3> places);

}  // namespace zt
