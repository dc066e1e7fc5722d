#pragma once

#include <string_view>

namespace velda {

/// Points (1/72 inch) of a pixel at the usual 96 pixels per inch.
inline constexpr double kPointsPerPixel = 0.75;

/// Width in points that a text of one line takes in a usual font of this size, for hosts that have no fonts. Characters
/// of east Asian scripts are about twice as wide as Latin ones.
double UsualTextWidth(std::string_view text, double fontSize, bool bold);

}  // namespace velda
