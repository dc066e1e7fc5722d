#include "zt_anl/model/member_ends.h"

#include <algorithm>
#include <cmath>

#include "zt_anl/model/vector_math.h"
#include "zt_db/core/record_walk.h"
#include "zt_db/records/offs.h"

namespace zt {
namespace {

/// The offset of one end by its two values. A column moves along its local axes; other members move sideways, which is
/// along local y at angle 0, and upward.
Vector3 OffsetOf(const T_OFFS_D& record, const T_MEMB_D& member, const MemberAxes& axes, double first, double second) {
    if (member.type == MembType::Column) {
        const MemberAxes turned = TurnedAbout(axes, member.beta);
        return Plus(Times(turned.y, first), Times(turned.z, second));
    }
    Vector3 offset = Times(axes.y, first);
    offset[2] += record.vertical;
    return offset;
}

}  // namespace

MemberEnds ReadMemberEnds(const CDataBase& database, std::uint32_t key, const T_MEMB_D& member,
                          std::span<const Vector3> places) {
    MemberEnds ends;
    ends.offsets.resize(places.size());
    T_RGDE_D rigid;
    if (ReadInBase<CClassRgde>(database, key, rigid)) {
        ends.rigid = {std::max(rigid.lengthI, 0.0), std::max(rigid.lengthJ, 0.0)};
    }
    T_OFFS_D record;
    if (!ReadInBase<CClassOffs>(database, key, record) || record.displayOnly != 0) return ends;
    ends.isByMember = record.mode == T_OFFS_D::kByMember;
    if (record.mode != T_OFFS_D::kByValue) return ends;
    const MemberAxes axes = AxesOfLine(places.front(), places.back());
    const bool hasOwnJ = record.useJ != 0;
    const Vector3 first = OffsetOf(record, member, axes, record.i1, record.i2);
    const Vector3 last =
        OffsetOf(record, member, axes, hasOwnJ ? record.j1 : record.i1, hasOwnJ ? record.j2 : record.i2);
    const double whole = Length(Minus(places.back(), places.front()));
    for (std::size_t i = 0; i < places.size(); ++i) {
        const double way = i + 1 == places.size() ? 1.0 : Length(Minus(places[i], places.front())) / whole;
        for (std::size_t axis = 0; axis < 3; ++axis) ends.offsets[i][axis] = std::lerp(first[axis], last[axis], way);
    }
    return ends;
}

}  // namespace zt
