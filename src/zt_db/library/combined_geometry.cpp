#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>

#include "zt_db/library/sect_shape.h"
#include "zt_db/library/section_geometry.h"

namespace zt {
namespace {

/// A part of a combined section.
using Plate = SectionBounds;
using Plates = std::vector<Plate>;

double Width(const Plate& plate) { return plate.right - plate.left; }
double Height(const Plate& plate) { return plate.top - plate.bottom; }

/// Sizes of a part with a web and flanges.
struct PartSizes {
    double h;
    double b;
    double tw;
    double tf;
};

/// An upright plate whose middle line stands at y.
Plate Upright(double y, double bottom, double top, double thickness) {
    return {y - thickness / 2.0, y + thickness / 2.0, bottom, top};
}
/// A lying plate around y.
Plate Lying(double y, double bottom, double width, double thickness) {
    return {y - width / 2.0, y + width / 2.0, bottom, bottom + thickness};
}

void AddI(Plates& plates, double y, double bottom, const PartSizes& i) {
    plates.push_back(Upright(y, bottom + i.tf, bottom + i.h - i.tf, i.tw));
    plates.push_back(Lying(y, bottom, i.b, i.tf));
    plates.push_back(Lying(y, bottom + i.h - i.tf, i.b, i.tf));
}

/// A channel with its web's back at y and its flanges to the right (side 1) or to the left (-1).
void AddChannel(Plates& plates, double y, double bottom, const PartSizes& c, double side) {
    plates.push_back(Upright(y + side * c.tw / 2.0, bottom + c.tf, bottom + c.h - c.tf, c.tw));
    plates.push_back(Lying(y + side * c.b / 2.0, bottom, c.b, c.tf));
    plates.push_back(Lying(y + side * c.b / 2.0, bottom + c.h - c.tf, c.b, c.tf));
}

/// A channel with its web lying, and its flanges below the web (side -1) or above it (1).
void AddLyingChannel(Plates& plates, double webBottom, const PartSizes& c, double side) {
    plates.push_back(Lying(0.0, webBottom, c.h, c.tw));
    const double length = c.b - c.tw;
    const double start = side > 0.0 ? webBottom + c.tw : webBottom - length;
    const double y = (c.h - c.tf) / 2.0;
    plates.push_back(Upright(-y, start, start + length, c.tf));
    plates.push_back(Upright(y, start, start + length, c.tf));
}

PartSizes First(const SectionSizes& d) { return {d[0], d[1], d[2], d[3]}; }
PartSizes Second(const SectionSizes& d) { return {d[4], d[5], d[6], d[7]}; }

// The builders. d1 to d9 are the nine sizes; H, B, tw, tf are those of a part with a web and flanges.

/// Two I sections side by side: H, B, tw, tf, gap between the flanges.
Plates TwoI(const SectionSizes& d) {
    Plates plates;
    const double y = (d[1] + d[4]) / 2.0;
    AddI(plates, -y, 0.0, First(d));
    AddI(plates, y, 0.0, First(d));
    return plates;
}

/// An I section with a channel lying on it, flanges down: H, B, tw, tf of the I section, H, B, tw, tf of the channel.
Plates IWithChannelDown(const SectionSizes& d) {
    Plates plates;
    AddI(plates, 0.0, 0.0, First(d));
    AddLyingChannel(plates, d[0], Second(d), -1.0);
    return plates;
}

/// The same with the flanges up.
Plates IWithChannelUp(const SectionSizes& d) {
    Plates plates;
    AddI(plates, 0.0, 0.0, First(d));
    AddLyingChannel(plates, d[0], Second(d), 1.0);
    return plates;
}

/// An I section on the stem of a T section: H, B, tw, tf of each.
Plates IWithT(const SectionSizes& d) {
    Plates plates;
    const PartSizes t = Second(d);
    AddI(plates, 0.0, t.h, First(d));
    plates.push_back(Upright(0.0, t.tf, t.h, t.tw));
    plates.push_back(Lying(0.0, 0.0, t.b, t.tf));
    return plates;
}

/// Two T sections with an opening between them: H over all, B, tw, tf, height of the opening.
Plates OpenedI(const SectionSizes& d) {
    const PartSizes i = First(d);
    const double low = (i.h - d[4]) / 2.0;
    return {Upright(0.0, i.tf, low, i.tw), Lying(0.0, 0.0, i.b, i.tf), Upright(0.0, i.h - low, i.h - i.tf, i.tw),
            Lying(0.0, i.h - i.tf, i.b, i.tf)};
}

/// The same with unlike T sections: H over all, B, tw, tf of the upper, height of the opening, height of its lower
/// edge, B, tf of the lower.
Plates OpenedUnlikeI(const SectionSizes& d) {
    const PartSizes i = First(d);
    return {Upright(0.0, d[7], d[5], i.tw), Lying(0.0, 0.0, d[6], d[7]), Upright(0.0, d[5] + d[4], i.h - i.tf, i.tw),
            Lying(0.0, i.h - i.tf, i.b, i.tf)};
}

/// An I section with T sections, or plates where they have no flange, across its web: H, B, tw, tf of the I section, H
/// from its web, B, tw, tf of each T section.
Plates IWithCrossT(const SectionSizes& d) {
    Plates plates;
    const PartSizes i = First(d);
    const PartSizes t = Second(d);
    AddI(plates, 0.0, 0.0, i);
    const double middle = i.h / 2.0;
    for (const double side : {-1.0, 1.0}) {
        const double stem = t.h - t.tf;
        plates.push_back(Lying(side * (i.tw + stem) / 2.0, middle - t.tw / 2.0, stem, t.tw));
        if (t.b > 0.0 && t.tf > 0.0) {
            plates.push_back(
                Upright(side * (i.tw / 2.0 + t.h - t.tf / 2.0), middle - t.b / 2.0, middle + t.b / 2.0, t.tf));
        }
    }
    return plates;
}

/// An opened I section with lying stiffeners on both sides of the web at the edges of the opening: H, B, tw, tf, height
/// of the opening, width and thickness of a stiffener.
Plates StiffenedOpenedI(const SectionSizes& d) {
    Plates plates = OpenedI(d);
    const double low = (d[0] - d[4]) / 2.0;
    for (const double side : {-1.0, 1.0}) {
        const double y = side * (d[2] + d[5]) / 2.0;
        plates.push_back(Lying(y, low - d[6], d[5], d[6]));
        plates.push_back(Lying(y, d[0] - low, d[5], d[6]));
    }
    return plates;
}

/// Two channels on both sides of an upright plate, back to back: H, B, tw, tf, height and thickness of the plate.
Plates BackedChannels(const SectionSizes& d) {
    Plates plates = {Upright(0.0, (d[0] - d[4]) / 2.0, (d[0] + d[4]) / 2.0, d[5])};
    AddChannel(plates, d[5] / 2.0, 0.0, First(d), 1.0);
    AddChannel(plates, -d[5] / 2.0, 0.0, First(d), -1.0);
    return plates;
}

/// Two channels with a gap between their backs and a plate within the flanges of each: H, B, tw, tf, height and
/// thickness of a plate, gap.
Plates PlatedChannels(const SectionSizes& d) {
    Plates plates;
    for (const double side : {-1.0, 1.0}) {
        AddChannel(plates, side * d[6] / 2.0, 0.0, First(d), side);
        const double y = side * (d[6] / 2.0 + d[2] + d[5] / 2.0);
        plates.push_back(Upright(y, (d[0] - d[4]) / 2.0, (d[0] + d[4]) / 2.0, d[5]));
    }
    return plates;
}

/// A channel with a plate on the back of its web: H, B, tw, tf, height and thickness of the plate.
Plates BackPlatedChannel(const SectionSizes& d) {
    Plates plates;
    AddChannel(plates, 0.0, 0.0, First(d), 1.0);
    plates.push_back(Upright(-d[5] / 2.0, (d[0] - d[4]) / 2.0, (d[0] + d[4]) / 2.0, d[5]));
    return plates;
}

/// The same with the plate within the flanges.
Plates InnerPlatedChannel(const SectionSizes& d) {
    Plates plates;
    AddChannel(plates, 0.0, 0.0, First(d), 1.0);
    plates.push_back(Upright(d[2] + d[5] / 2.0, (d[0] - d[4]) / 2.0, (d[0] + d[4]) / 2.0, d[5]));
    return plates;
}

/// Four equal angles in the corners of a rectangle, legs inward along its sides: height and width over all, upright
/// leg, lying leg, thickness.
Plates FourAngles(const SectionSizes& d) {
    const double leg = d[2];
    const double foot = d[3];
    const double t = d[4];
    Plates plates;
    for (const double side : {-1.0, 1.0}) {
        const double y = side * (d[1] - t) / 2.0;
        const double lying = side * (d[1] / 2.0 - t - (foot - t) / 2.0);
        plates.push_back(Upright(y, 0.0, leg, t));
        plates.push_back(Lying(lying, 0.0, foot - t, t));
        plates.push_back(Upright(y, d[0] - leg, d[0], t));
        plates.push_back(Lying(lying, d[0] - t, foot - t, t));
    }
    return plates;
}

/// An I section with cover plates: H, B, tw, tf, width and thickness of the upper plate, of the lower plate.
Plates PlatedI(const SectionSizes& d) {
    Plates plates;
    AddI(plates, 0.0, 0.0, First(d));
    if (d[4] > 0.0 && d[5] > 0.0) plates.push_back(Lying(0.0, d[0], d[4], d[5]));
    if (d[6] > 0.0 && d[7] > 0.0) plates.push_back(Lying(0.0, -d[7], d[6], d[7]));
    return plates;
}

/// Builders in the order of the combined shapes.
constexpr Plates (*kBuilders[])(const SectionSizes&) = {
    TwoI,        IWithChannelDown, IWithChannelUp, IWithT,         OpenedI,           OpenedUnlikeI,
    IWithCrossT, StiffenedOpenedI, BackedChannels, PlatedChannels, BackPlatedChannel, InnerPlatedChannel,
    FourAngles,  PlatedI};

bool AreWhole(const Plates& plates, double tolerance) {
    const auto whole = [&](const Plate& plate) { return Width(plate) > tolerance && Height(plate) > tolerance; };
    const auto meet = [&](const Plate& a, const Plate& b) {
        return std::min(a.right, b.right) - std::max(a.left, b.left) > tolerance &&
               std::min(a.top, b.top) - std::max(a.bottom, b.bottom) > tolerance;
    };
    for (std::size_t i = 0; i < plates.size(); ++i) {
        if (!whole(plates[i])) return false;
        for (std::size_t j = 0; j < i; ++j) {
            if (meet(plates[i], plates[j])) return false;
        }
    }
    return true;
}

Wall WallOf(const Plate& plate) {
    const double y = (plate.left + plate.right) / 2.0;
    const double z = (plate.bottom + plate.top) / 2.0;
    if (Height(plate) > Width(plate)) return {{y, plate.bottom}, {y, plate.top}, Width(plate)};
    return {{plate.left, z}, {plate.right, z}, Height(plate)};
}

bool AreSound(const SectionSizes& sizes) {
    return std::all_of(sizes.begin(), sizes.end(), [](double x) { return std::isfinite(x) && x >= 0.0; });
}

template <class Names>
std::size_t IndexOf(const Names& names, std::string_view name) {
    return static_cast<std::size_t>(std::find(names.begin(), names.end(), name) - names.begin());
}

/// Steel inside concrete counts with what it is more than concrete.
void AddSteel(SectionGeometry& geometry, std::vector<Outline> parts) {
    for (Outline& part : parts) {
        part.weight *= 1.0 - 1.0 / kModularRatio;
        part.side = OutlineSide::Hidden;
        geometry.parts.push_back(std::move(part));
    }
}

/// Takes the concrete out of a tube.
void Empty(SectionGeometry& geometry, const Outline& hole) {
    Outline empty = hole;
    empty.weight = -1.0 / kModularRatio;
    empty.side = OutlineSide::Inner;
    geometry.parts.push_back(std::move(empty));
}

std::vector<Outline> Centred(std::vector<Outline> parts) {
    const SectionBounds& bounds = parts.front().bounds;
    const double y = -(bounds.left + bounds.right) / 2.0;
    const double z = -(bounds.bottom + bounds.top) / 2.0;
    for (Outline& part : parts) part = Moved(std::move(part), y, z);
    return parts;
}

/// An H section turned by a quarter, without what its web shares with that of an upright one.
std::vector<Outline> TurnedH(const SectionSizes& d) {
    const double inner = d[4] / 2.0;
    const double outer = d[2] / 2.0;
    std::vector<Outline> parts;
    for (const double side : {-1.0, 1.0}) {
        const double web = (inner + outer - d[5]) / 2.0;
        parts.push_back(RectangleOutline(Lying(side * web, -d[4] / 2.0, outer - d[5] - inner, d[4])));
        parts.push_back(RectangleOutline(Upright(side * (outer - d[5] / 2.0), -d[3] / 2.0, d[3] / 2.0, d[5])));
    }
    return parts;
}

/// The outline of the concrete and its torsion constant.
std::optional<SectionGeometry> ConcreteOf(bool circle, const SectionSizes& d) {
    SectionSizes sizes{d[0], d[1]};
    std::optional<SectionGeometry> concrete = RegularGeometry(circle ? "SR" : "SB", sizes);
    if (!concrete) return {};
    concrete->parts = Centred(std::move(concrete->parts));
    concrete->parts.front().weight = 1.0 / kModularRatio;
    concrete->torsion /= kModularRatio;
    return concrete;
}

bool LiesWithin(bool circle, const SectionSizes& d, double height, double width) {
    if (circle) return std::hypot(height, width) <= d[0];
    return height <= d[0] && width <= d[1];
}

}  // namespace

std::optional<SectionGeometry> CombinedGeometry(std::string_view shape, const SectionSizes& sizes) {
    const std::size_t index = IndexOf(CombinedShapeNames(), shape);
    if (index == CombinedShapeNames().size() || !AreSound(sizes)) return {};
    const Plates plates = kBuilders[index](sizes);
    if (!AreWhole(plates, sizes[0] * 1e-9)) return {};
    SectionGeometry geometry;
    for (const Plate& plate : plates) {
        geometry.parts.push_back(RectangleOutline(plate));
        geometry.walls.push_back(WallOf(plate));
        const double thickness = geometry.walls.back().thickness;
        geometry.torsion += std::max(Width(plate), Height(plate)) * thickness * thickness * thickness / 3.0;
    }
    return geometry;
}

std::optional<SectionGeometry> CompositeGeometry(std::string_view shape, const SectionSizes& sizes) {
    if (IndexOf(CompositeShapeNames(), shape) == CompositeShapeNames().size() || !AreSound(sizes)) return {};
    const bool circle = shape.starts_with("Circle");
    const bool pipe = shape.find("Pipe") != std::string_view::npos;
    const bool box = shape.find("Box") != std::string_view::npos;
    const bool cross = shape.find("Cross") != std::string_view::npos;
    std::optional<SectionGeometry> geometry = ConcreteOf(circle, sizes);
    const SectionSizes steelSizes =
        pipe ? SectionSizes{sizes[2], sizes[4]} : SectionSizes{sizes[2], sizes[3], sizes[4], sizes[5]};
    const auto steel = RegularGeometry(pipe ? "P" : box ? "B" : "H", steelSizes);
    const double width = pipe ? 0.0 : cross ? sizes[2] : sizes[3];
    if (!geometry || !steel || !LiesWithin(circle, sizes, sizes[2], width)) return {};
    std::vector<Outline> parts = Centred(steel->parts);
    geometry->torsion += steel->torsion * (cross ? 2.0 : 1.0);
    if (shape.ends_with("Open") && parts.size() > 1) Empty(*geometry, parts[1]);
    if (cross) {
        for (Outline& part : TurnedH(sizes)) parts.push_back(std::move(part));
    }
    AddSteel(*geometry, std::move(parts));
    return geometry;
}

}  // namespace zt
