#pragma once

#include <span>
#include <string>
#include <string_view>

namespace zt {

/// A picture of a section's shape, and the number of the control that shows it.
struct SectionPicture {
    int control = 0;
    std::string name{};  ///< unique among all; empty for the control without a picture
    std::string svg{};   ///< with the ink `currentColor`; what is concrete is lighter than steel
};

/// The pictures of all shapes by the numbers of their controls: 1 has none, 2 to 15 are combined shapes, 16 to 31 icons
/// and plain pictures, 32 to 43 composite and 44 to 55 regular shapes. Drawn once, from usual sizes of each shape.
std::span<const SectionPicture> SectionPictures();

/// Numbers of the controls of combined and composite shapes begin here, in the order of the shapes' indexes.
inline constexpr int kFirstCombinedPicture = 2;
inline constexpr int kFirstCompositePicture = 32;
/// Number of the control of a regular shape by its index; 0 for an index that does not exist.
int RegularPictureControl(int shapeIndex);

}  // namespace zt
