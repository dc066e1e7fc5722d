#pragma once

#include <string_view>

namespace zt {

/// Types of materials as records keep them.
namespace MatlType {
inline constexpr std::string_view Steel = "S";
inline constexpr std::string_view Concrete = "C";
inline constexpr std::string_view Composite = "SRC";  ///< steel in concrete
inline constexpr std::string_view User = "U";         ///< one of the user's own
}  // namespace MatlType

}  // namespace zt
