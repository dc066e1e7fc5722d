#include "zt_tb/model/section_pictures.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <vector>

#include "zt_db/library/sect_shape.h"
#include "zt_db/library/section_geometry.h"

namespace zt {
namespace {

using Geometry = std::optional<SectionGeometry> (*)(std::string_view shape, const SectionSizes& sizes);

/// How a shape is drawn: filled, filled within a frame, or by its lines alone.
enum class Look { Filled, Framed, Lines };

/// Pictures of one family in the order of their controls, and the sizes that they are drawn with.
struct Drawing {
    std::string_view shape;
    SectionSizes sizes;
};

constexpr Drawing kCombined[] = {
    {"2I Combined Shape", {100, 48, 9, 11, 8}},
    {"I-C Combined Shape", {90, 60, 10, 11, 84, 28, 9, 10}},
    {"I-C Combined Shape2", {90, 60, 10, 11, 84, 28, 9, 10}},
    {"I-T Combined Shape", {62, 64, 10, 11, 42, 50, 10, 11}},
    {"2T(Web Opened I)", {100, 64, 11, 12, 44}},
    {"2T(Web Opened I)2", {100, 52, 11, 12, 40, 26, 80, 12}},
    {"I-Shape with 2T or Web", {100, 84, 9, 11, 44, 42, 9, 10}},
    {"Web Opened I with Stiffener", {100, 84, 10, 11, 36, 28, 8}},
    {"2C with Web Plate1", {100, 40, 9, 11, 84, 10}},
    {"2C with Web Plate2", {100, 46, 9, 11, 70, 9, 12}},
    {"C with Web Plate1", {100, 58, 10, 12, 80, 12}},
    {"C with Web Plate2", {100, 58, 10, 12, 68, 12}},
    {"4-Angle", {100, 100, 36, 36, 11}},
    {"I-shape with Plate", {84, 60, 10, 11, 78, 10, 78, 10}},
};
constexpr Drawing kComposite[] = {
    {"Rect-Box-Open", {100, 100, 66, 66, 9, 9}},     {"Rect-Box-Close", {100, 100, 66, 66, 9, 9}},
    {"Rect-Pipe-Open", {100, 100, 68, 0, 9}},        {"Rect-Pipe-Close", {100, 100, 68, 0, 9}},
    {"Circle-Box-Open", {100, 0, 58, 58, 9, 9}},     {"Circle-Box-Close", {100, 0, 58, 58, 9, 9}},
    {"Circle-Pipe-Open", {100, 0, 68, 0, 9}},        {"Circle-Pipe-Close", {100, 0, 68, 0, 9}},
    {"Rect-HBeam", {100, 100, 70, 60, 9, 11}},       {"Rect-Cross-HBeam", {100, 100, 76, 34, 9, 10}},
    {"Circle-Cross-HBeam", {100, 0, 68, 32, 9, 10}}, {"Circle-HBeam", {100, 0, 66, 54, 9, 11}},
};
constexpr Drawing kRegular[] = {
    {"L", {100, 80, 15, 15}},
    {"C", {100, 58, 13, 15}},
    {"H", {100, 92, 13, 15}},
    {"T", {92, 92, 15, 15}},
    {"B", {100, 80, 12, 12}},
    {"P", {100, 12}},
    {"2L", {92, 46, 13, 13, 12}},
    {"2C", {100, 42, 11, 13, 0, 10}},
    {"SB", {100, 72}},
    {"SR", {100}},
    {"CC", {100, 60, 26, 10}},
    {"CR", {100, 100, 20, 20}},
};
/// Controls of the regular shapes in the order of their indexes.
constexpr int kRegularControls[] = {51, 49, 46, 50, 47, 48, 53, 54, 44, 45, 52, 55};

// The icons and the plain pictures by the indexes of their regular shapes.
constexpr int kFirstIcon = 16;
constexpr std::size_t kIcons[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
constexpr int kFirstPlain = 26;
constexpr std::size_t kPlain[] = {8, 2, 3, 4, 5, 9};

constexpr double kSide = 24.0;  ///< of a picture
constexpr double kMargin = 1.5;

std::string Number(double value) {
    char buffer[32];
    const double rounded = std::round(value * 100.0) / 100.0;
    const auto end = std::to_chars(std::begin(buffer), std::end(buffer), rounded).ptr;
    return {buffer, end};
}

/// Brings a section into a picture, upright and in the middle.
class Place {
public:
    Place(std::span<const Outline> parts, double margin) {
        SectionBounds bounds = parts.front().bounds;
        for (const Outline& part : parts) {
            bounds.left = std::min(bounds.left, part.bounds.left);
            bounds.right = std::max(bounds.right, part.bounds.right);
            bounds.bottom = std::min(bounds.bottom, part.bounds.bottom);
            bounds.top = std::max(bounds.top, part.bounds.top);
        }
        const double width = bounds.right - bounds.left;
        const double height = bounds.top - bounds.bottom;
        scale_ = (kSide - 2.0 * margin) / std::max(width, height);
        y_ = kSide / 2.0 - scale_ * (bounds.left + width / 2.0);
        z_ = kSide / 2.0 + scale_ * (bounds.bottom + height / 2.0);
    }
    std::string Of(SectionPoint point) const {
        return Number(y_ + scale_ * point.y) + " " + Number(z_ - scale_ * point.z);
    }

private:
    double scale_ = 1.0;
    double y_ = 0.0;
    double z_ = 0.0;
};

/// What is steel counts whole; concrete and what is taken out of it count less.
bool IsSteel(const Outline& part) { return std::abs(part.weight) > 0.5; }

/// The outlines of one material as a path whose holes are those outlines that lie within others.
std::string PathOf(std::span<const Outline> parts, bool steel, const Place& place) {
    std::string path;
    for (const Outline& part : parts) {
        if (IsSteel(part) != steel) continue;
        char command = 'M';
        for (const SectionPoint& point : part.points) {
            path += command + place.Of(point);
            command = 'L';
        }
        path += 'Z';
    }
    return path;
}

void AddPath(std::string& svg, const std::string& path, std::string_view attributes) {
    if (!path.empty()) (((svg += "<path d=\"") += path) += "\" ") += std::string(attributes) + "/>";
}

std::string Svg(std::span<const Outline> parts, Look look) {
    const Place place(parts, look == Look::Framed ? 3.0 * kMargin : kMargin);
    std::string svg = R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 24 24" width="24" height="24">)";
    if (look == Look::Framed) {
        svg += R"(<rect x="1" y="1" width="22" height="22" rx="3" fill="none" stroke="currentColor"/>)";
    }
    const bool lines = look == Look::Lines;
    AddPath(svg, PathOf(parts, false, place),
            R"(fill="currentColor" fill-opacity="0.3" fill-rule="evenodd" stroke="currentColor" stroke-width="0.75")");
    AddPath(svg, PathOf(parts, true, place),
            lines ? R"(fill="none" stroke="currentColor")" : R"(fill="currentColor" fill-rule="evenodd")");
    return svg + "</svg>\n";
}

SectionPicture Draw(int control, std::string_view family, std::string_view title, const Drawing& drawing,
                    Geometry geometry, Look look) {
    const auto drawn = geometry(drawing.shape, drawing.sizes);
    return {control, std::string(family) + "/" + std::string(title), drawn ? Svg(drawn->parts, look) : std::string()};
}

std::string_view TitleOfRegular(std::size_t index) { return RegularShapes()[index].otherName; }

std::vector<SectionPicture> DrawAll() {
    std::vector<SectionPicture> pictures = {{1}};
    int control = kFirstCombinedPicture;
    for (const Drawing& drawing : kCombined) {
        pictures.push_back(Draw(control++, "combined", drawing.shape, drawing, &CombinedGeometry, Look::Filled));
    }
    control = kFirstIcon;
    for (const std::size_t index : kIcons) {
        pictures.push_back(
            Draw(control++, "icon", TitleOfRegular(index), kRegular[index], &RegularGeometry, Look::Framed));
    }
    control = kFirstPlain;
    for (const std::size_t index : kPlain) {
        pictures.push_back(
            Draw(control++, "plain", TitleOfRegular(index), kRegular[index], &RegularGeometry, Look::Lines));
    }
    control = kFirstCompositePicture;
    for (const Drawing& drawing : kComposite) {
        pictures.push_back(Draw(control++, "composite", drawing.shape, drawing, &CompositeGeometry, Look::Filled));
    }
    for (std::size_t index = 0; index < std::size(kRegular); ++index) {
        pictures.push_back(Draw(kRegularControls[index], "regular", TitleOfRegular(index), kRegular[index],
                                &RegularGeometry, Look::Filled));
    }
    std::sort(pictures.begin(), pictures.end(),
              [](const SectionPicture& a, const SectionPicture& b) { return a.control < b.control; });
    return pictures;
}

}  // namespace

std::span<const SectionPicture> SectionPictures() {
    static const std::vector<SectionPicture> pictures = DrawAll();
    return pictures;
}

int RegularPictureControl(int shapeIndex) {
    const bool exists = shapeIndex >= 0 && shapeIndex < static_cast<int>(std::size(kRegularControls));
    return exists ? kRegularControls[shapeIndex] : 0;
}

}  // namespace zt
