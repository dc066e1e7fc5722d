#include "zt_db/library/sect_shape.h"

#include <algorithm>

namespace zt {
namespace {

// The places by role: height, width, web, flange, root radius, toe radius, gap, taper. For a box the root and toe radii
// are the outer and inner corner radii. The taper is how much thicker a flange would be at the web's face than it is at
// its edge; the flange thickness is that in the middle of the overhang.
constexpr std::array<RegularShape, 12> kRegular{{
    {"L", "Angle", "L-Section", {{{0}, {1}, {2}, {3}, {6}, {7}, {}, {}}}},
    {"C", "Channel", "C-Section", {{{0}, {1}, {2}, {3}, {6, 4}, {7, 5}, {}, {8}}}},
    {"H", "H Section", "H-Section", {{{0}, {1}, {2}, {3}, {6, 4}, {7, 5}, {}, {8}}}},
    {"T", "T Section", "T-Section", {{{0}, {1}, {2}, {3}, {6, 4}, {7}, {}, {8}}}},
    {"B", "Box", "Box Section", {{{0}, {1}, {2}, {3}, {6, 4}, {7}, {}, {}}}},
    {"P", "Pipe", "Pipe Section", {{{0}, {0}, {1}, {1}, {}, {}, {}, {}}}},
    {"2L", "Double Angle", "2L-Section", {{{0}, {1}, {2}, {3}, {6}, {7}, {4}, {}}}},
    {"2C", "Double Channel", "2C-Section", {{{0}, {1}, {2}, {3}, {4}, {7}, {6, 5}, {8}}}},
    {"SB", "Solid Box", "Solid Rectangle", {{{0}, {1}, {}, {}, {}, {}, {}, {}}}},
    {"SR", "Solid Round", "Round Bar", {{{0}, {0}, {}, {}, {}, {}, {}, {}}}},
    {"CC", "Cold Formed Channel", "Lipped Channel", {{{0}, {1}, {3}, {2}, {4}, {}, {}, {}}}},
    {"CR", "Cross Section", "Cross", {{{0}, {1}, {2}, {3}, {}, {}, {}, {}}}},
}};

constexpr std::array<std::string_view, 12> kComposite{"Rect-Box-Open",    "Rect-Box-Close",     "Rect-Pipe-Open",
                                                      "Rect-Pipe-Close",  "Circle-Box-Open",    "Circle-Box-Close",
                                                      "Circle-Pipe-Open", "Circle-Pipe-Close",  "Rect-HBeam",
                                                      "Rect-Cross-HBeam", "Circle-Cross-HBeam", "Circle-HBeam"};

constexpr std::array<std::string_view, 14> kCombined{"2I Combined Shape",
                                                     "I-C Combined Shape",
                                                     "I-C Combined Shape2",
                                                     "I-T Combined Shape",
                                                     "2T(Web Opened I)",
                                                     "2T(Web Opened I)2",
                                                     "I-Shape with 2T or Web",
                                                     "Web Opened I with Stiffener",
                                                     "2C with Web Plate1",
                                                     "2C with Web Plate2",
                                                     "C with Web Plate1",
                                                     "C with Web Plate2",
                                                     "4-Angle",
                                                     "I-shape with Plate"};

}  // namespace

std::span<const RegularShape> RegularShapes() { return kRegular; }

const RegularShape* FindRegularShape(std::string_view codeOrName) {
    const auto found = std::find_if(kRegular.begin(), kRegular.end(), [&](const RegularShape& shape) {
        return shape.code == codeOrName || shape.name == codeOrName || shape.otherName == codeOrName;
    });
    return found == kRegular.end() ? nullptr : &*found;
}

std::span<const std::string_view> CompositeShapeNames() { return kComposite; }
std::span<const std::string_view> CombinedShapeNames() { return kCombined; }

}  // namespace zt
