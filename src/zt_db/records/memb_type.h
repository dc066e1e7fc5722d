#pragma once

#include <algorithm>
#include <string_view>

namespace zt {

/// Types that decide on more than their property.
namespace MembType {
inline constexpr int Column = 101;
inline constexpr int Wall = 202;
inline constexpr int Brace = 206;
inline constexpr int Slab = 301;
}  // namespace MembType

/// Members that are slabs, stairs and decks included.
inline constexpr int kSlabTypes[] = {301, 314, 315, 316};

/// What a member of a type has as its property.
enum class MemberProperty { None, Section, Thickness };

/// A type of members: its code, the text key of its name, and its kind of property.
struct MemberType {
    int code;
    std::string_view nameKey;
    MemberProperty property;
};

/// Every member type, by ascending code. Footings and plate groups take their sizes from the design; lines, areas and
/// openings have none.
inline constexpr MemberType kMemberTypes[] = {
    {101, "IDS_TB_MEMB_TYPE_COLUMN", MemberProperty::Section},
    {103, "IDS_TB_MEMB_TYPE_FOOTING", MemberProperty::None},
    {104, "CMB_UFDN_FOOT_TYPE_ISOL_PIL", MemberProperty::None},
    {200, "IDS_TB_MEMB_TYPE_LINE", MemberProperty::None},
    {201, "IDS_TB_MEMB_TYPE_BEAM", MemberProperty::Section},
    {202, "IDS_TB_MEMB_TYPE_WALL", MemberProperty::Thickness},
    {205, "IDS_TB_MEMB_TYPE_SBEAM", MemberProperty::Section},
    {206, "IDS_TB_MEMB_TYPE_BREACE", MemberProperty::Section},
    {207, "IDS_DB_MEMBTYPE_207", MemberProperty::Section},
    {215, "IDS_DB_MEMBTYPE_215", MemberProperty::None},
    {216, "IDS_TB_MEMB_TYPE_BRICK", MemberProperty::Thickness},
    {217, "IDS_TB_MEMB_TYPE_BLOCK", MemberProperty::Thickness},
    {218, "IDS_TB_MEMB_TYPE_CONCRETE", MemberProperty::Thickness},
    {219, "IDS_TB_MEMB_TYPE_USER_WALL", MemberProperty::Thickness},
    {251, "IDS_TB_MEMB_TYPE_TRUSS_BEAM", MemberProperty::Section},
    {252, "IDS_TB_MEMB_TYPE_TRUSS_BRTR", MemberProperty::Section},
    {261, "IDS_TB_MEMB_TYPE_PURLIN", MemberProperty::Section},
    {262, "IDS_TB_MEMB_TYPE_GIRTH", MemberProperty::Section},
    {263, "IDS_TB_MEMB_TYPE_STEEL_STAIR_BEAM", MemberProperty::Section},
    {300, "IDS_DB_MEMBTYPE_300", MemberProperty::None},
    {301, "IDS_TB_MEMB_TYPE_SLAB", MemberProperty::Thickness},
    {302, "IDS_TB_MEMB_TYPE_OPENING_SLAB", MemberProperty::None},
    {310, "CMB_UFDN_FOOT_TYPE_LINE_MAT", MemberProperty::None},
    {314, "IDS_TB_MEMB_TYPE_USER_SLAB", MemberProperty::Thickness},
    {315, "IDS_TB_MEMB_TYPE_DECKSLAB", MemberProperty::Thickness},
    {316, "IDS_TB_MEMB_TYPE_STEEL_STAIR", MemberProperty::Thickness},
    {701, "IDS_TB_MEMB_TYPE_BASEPLATE", MemberProperty::None},
    {702, "IDS_TB_MEMB_TYPE_EMBEDED_PLATE", MemberProperty::None},
};

/// The member type of a code; null when there is none.
constexpr const MemberType* FindMemberType(int code) {
    const auto* at = std::lower_bound(std::begin(kMemberTypes), std::end(kMemberTypes), code,
                                      [](const MemberType& type, int wanted) { return type.code < wanted; });
    return at != std::end(kMemberTypes) && at->code == code ? at : nullptr;
}

/// The kind of property of a member type; none for a code that names no type.
constexpr MemberProperty PropertyOfMemberType(int code) {
    const MemberType* type = FindMemberType(code);
    return type ? type->property : MemberProperty::None;
}

static_assert(std::is_sorted(std::begin(kMemberTypes), std::end(kMemberTypes),
                             [](const MemberType& a, const MemberType& b) { return a.code < b.code; }));

}  // namespace zt
