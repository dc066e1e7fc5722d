#pragma once

#include <array>
#include <span>
#include <string_view>

namespace zt {

/// Where the sizes of a shape stand among the nine sizes of a section. A radius or a gap may stand in either of two
/// places: the second counts where the first is 0.
enum class SizeRole { Height, Width, Web, Flange, Root, Toe, Gap, Taper };
inline constexpr std::size_t kSizeRoles = 8;

/// The place of a size that a shape does not have.
inline constexpr signed char kNoSize = -1;
struct SizePlace {
    signed char first = kNoSize;
    signed char second = kNoSize;
};

/// A shape of rolled, welded or cold-formed sections: its code, its names, and where its sizes stand.
struct RegularShape {
    std::string_view code;
    std::string_view name;       ///< as a list of shapes shows it
    std::string_view otherName;  ///< as the picture of the shape is named
    std::array<SizePlace, kSizeRoles> places;
};

/// The regular shapes in the order of their indexes.
std::span<const RegularShape> RegularShapes();
/// The shape of a code or a name, compared exactly; null when there is none.
const RegularShape* FindRegularShape(std::string_view codeOrName);

/// The names of composite sections, steel in concrete, in the order of their indexes.
std::span<const std::string_view> CompositeShapeNames();
/// The names of combined sections, several steel parts in one, in the order of their indexes.
std::span<const std::string_view> CombinedShapeNames();

}  // namespace zt
