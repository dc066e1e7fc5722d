#pragma once

#include <span>
#include <string_view>

#include "zt_tb/post/active_param.h"

namespace zt {

/// A place along a member at which results are shown, and the text key of its name.
struct MemberPart {
    std::int16_t number = 0;
    std::string_view nameKey{};
};

/// The parts of the members that a tab shows, in the order in which they are offered.
std::span<const MemberPart> MemberPartsOf(int tab);
/// Puts them into the section of parts instead of what was there. What is selected stays.
void GetAllPartForActiveNew(int tab, ActiveList<std::int16_t>& parts);

}  // namespace zt
