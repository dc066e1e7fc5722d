#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "zt_db/records/matl.h"

namespace zt {

/// A type of materials: what records keep, and what it is called.
struct MaterialType {
    std::string_view shortType;
    std::string_view name;
};
std::span<const MaterialType> MaterialTypes();

/// The grades of a code, of steel or of concrete; none for a text that is no code.
std::vector<std::string> GradesOfCode(std::string_view code);
/// Takes the figures of a grade over, in current units. False, and the values stay, for an unknown grade.
bool TakeGrade(std::string_view code, std::string_view name, T_MATL_ANALYSIS& values);

}  // namespace zt
