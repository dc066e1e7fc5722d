#pragma once

#include <string_view>

#include "zt_db/geometry/member_geometry.h"

namespace zt {

/// Code of the member type that a word of a file means, such as "Column" or "Secondary beam"; 0 for an empty one or one
/// that says nothing.
int MemberTypeOfWord(std::string_view word);
/// Code of the member type that a line has by the way it lies: column, beam or brace.
int MemberTypeOfLie(Lie lie);
/// The word that a member type is written as.
std::string_view WordOfMemberType(int type);

/// Code of the type of a face: a wall by its word or when it stands upright, otherwise a slab.
int SurfaceTypeOf(std::string_view word, bool upright);

/// The type of a static load case from the words of a file, and back: the action ("Permanent"), the type of the load
/// case and that of its group ("Wind").
std::string_view LoadCaseTypeOf(std::string_view action, std::string_view loadType, std::string_view groupType);
struct LoadCaseWords {
    std::string_view action;
    std::string_view loadType;
};
LoadCaseWords WordsOfLoadCaseType(std::string_view type);

}  // namespace zt
