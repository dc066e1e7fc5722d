#include "zt_db/exchange/section_shapes.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

#include "velda_lib/number_text.h"
#include "zt_db/exchange/table_reader.h"
#include "zt_db/library/sect_shape.h"

namespace zt {
namespace {

constexpr int kRegular = 1;
constexpr int kByValues = 3;
/// Stands as the table of a section whose shape the exchange format has and records have not.
constexpr std::string_view kFormatShapes = "SAF";
constexpr std::int8_t kNo = -1;

/// A shape of the exchange format: how many parameters it has, and what becomes of them. `sizes` says for each size of
/// a record which parameter it is.
struct Shape {
    std::string_view name;
    std::size_t parameters;
    std::string_view recordShape{};
    std::array<std::int8_t, 7> sizes{kNo, kNo, kNo, kNo, kNo, kNo, kNo};
    /// Pairs of parameters that must be equal, since the record has one size for both.
    std::array<std::array<std::int8_t, 2>, 2> equal{{{0, 0}, {0, 0}}};
};

// Sizes of records: H, B, tw, tf, r; D, t of pipes; D, B, d, t, R of cold formed channels.
constexpr Shape kShapes[] = {
    {"Circle", 1, "Solid Round", {0, kNo, kNo, kNo, kNo, kNo, kNo}},
    {"Rectangle", 2, "Solid Rectangle", {0, 1, kNo, kNo, kNo, kNo, kNo}},
    {"Double rectangle", 3},
    {"Triple rectangle", 3},
    {"Rectangle with plates", 4},
    {"Double rectangle with plates", 4},
    {"I Section", 6, "H-Section", {0, 1, 5, 4, kNo, kNo, kNo}, {{{1, 2}, {3, 4}}}},
    {"I Section with haunch", 6},
    {"I Section with haunch Asymmetric", 8},
    {"T Section", 4, "T-Section", {0, 1, 3, 2, kNo, kNo, kNo}},
    {"T Section with haunch", 5},
    {"C Section", 6},
    {"L Section", 4, "Angle", {0, 1, 3, 2, kNo, kNo, kNo}},
    {"L Section opposite", 4},
    {"U Section", 4, "Channel", {0, 1, 3, 2, kNo, kNo, kNo}},
    {"Oval", 2},
    {"Pipe", 2, "Pipe", {0, 1, kNo, kNo, kNo, kNo, kNo}},
    {"Polygon", 2},
    {"Trapezoid", 3},
    {"X Section", 4},
    {"Z Section", 6},
    {"Box", 5},
    {"Double box", 4},
    {"I rolled", 5, "H-Section", {0, 1, 3, 2, 4, kNo, kNo}},
    {"I rolled asymmetric", 7},
    {"Tube", 5, "Box", {0, 1, 2, 2, kNo, kNo, kNo}},
    {"Angle", 5, "Angle", {0, 1, 2, 2, kNo, kNo, kNo}},
    {"Channel", 5, "Channel", {0, 1, 3, 2, 4, kNo, kNo}},
    {"T tee", 5, "T-Section", {0, 1, 3, 2, kNo, kNo, kNo}},
    {"Z zee", 6},
    {"Cold formed Channel", 4},
    {"Cold formed Channel with lips", 5, "Cold Formed Channel", {0, 1, 4, 2, 3, kNo, kNo}},
    {"Cold formed Zee", 4},
};

/// Form codes of manufactured profiles and the shapes that they stand for.
struct FormCode {
    std::string_view code;
    std::string_view shape;
};
constexpr FormCode kFormCodes[] = {
    {"1", "H-Section"},       {"2", "Box"},         {"3", "Pipe"}, {"4", "Angle"}, {"5", "Channel"}, {"6", "T-Section"},
    {"7", "Solid Rectangle"}, {"8", "Solid Round"},
};

const Shape* FindShape(std::string_view name) {
    const std::string wanted = Comparable(name);
    const auto at = std::find_if(std::begin(kShapes), std::end(kShapes),
                                 [&](const Shape& shape) { return Comparable(shape.name) == wanted; });
    return at == std::end(kShapes) ? nullptr : at;
}

/// Whether the record's shape can hold these parameters.
bool Fits(const Shape& shape, const std::vector<double>& sizes) {
    if (shape.recordShape.empty() || sizes.size() < shape.parameters) return false;
    return std::all_of(shape.equal.begin(), shape.equal.end(), [&](const auto& pair) {
        return sizes[static_cast<std::size_t>(pair[0])] == sizes[static_cast<std::size_t>(pair[1])];
    });
}

void TakeShape(const ExchangeSection& section, T_SECT_D& record) {
    const Shape* shape = FindShape(section.shape);
    if (shape && Fits(*shape, section.sizes)) {
        record.kind = kRegular;
        record.type = kRegular;
        record.shape = shape->recordShape;
        for (std::size_t i = 0; i < shape->sizes.size(); ++i) {
            const std::int8_t from = shape->sizes[i];
            if (from != kNo) record.base.size[i] = section.sizes[static_cast<std::size_t>(from)];
        }
        return;
    }
    record.base.dbName = kFormatShapes;
    record.base.sectName = section.shape;
    std::copy_n(section.sizes.begin(), std::min(section.sizes.size(), record.base.size.size()),
                record.base.size.begin());
}

void TakeProfile(const ExchangeSection& section, T_SECT_D& record) {
    record.base.sectName = section.profile;
    for (const FormCode& form : kFormCodes) {
        if (form.code == section.formCode) record.shape = form.shape;
    }
}

/// Sizes of a record as the parameters of a shape; none when the shape cannot hold all of them.
std::optional<std::vector<double>> ParametersOf(const Shape& shape, const T_SECT_D& record) {
    // A shape has a code and several names.
    const RegularShape* recordShape = FindRegularShape(shape.recordShape);
    if (!recordShape || recordShape != FindRegularShape(record.shape)) return std::nullopt;
    std::vector<double> parameters(shape.parameters, 0.0);
    for (std::size_t i = 0; i < shape.sizes.size(); ++i) {
        if (shape.sizes[i] != kNo) parameters[static_cast<std::size_t>(shape.sizes[i])] = record.base.size[i];
    }
    const auto held = [&](std::size_t i) {
        const bool mapped = i < shape.sizes.size() && shape.sizes[i] != kNo;
        return record.base.size[i] == (mapped ? parameters[static_cast<std::size_t>(shape.sizes[i])] : 0.0);
    };
    for (std::size_t i = 0; i < record.base.size.size(); ++i) {
        if (!held(i)) return std::nullopt;
    }
    return Fits(shape, parameters) ? std::optional(parameters) : std::nullopt;
}

/// Writes a regular section as the first shape that can hold its sizes.
bool GiveShape(const T_SECT_D& record, ExchangeSection& section) {
    if (record.kind != kRegular || !record.base.sectName.empty()) return false;
    for (const Shape& shape : kShapes) {
        const auto parameters = ParametersOf(shape, record);
        if (!parameters) continue;
        section.kind = "Parametric";
        section.shape = shape.name;
        section.sizes = *parameters;
        return true;
    }
    return false;
}

void GiveKind(const T_SECT_D& record, ExchangeSection& section) {
    const Shape* kept = record.base.dbName == kFormatShapes ? FindShape(record.base.sectName) : nullptr;
    if (kept) {
        section.kind = "Parametric";
        section.shape = record.base.sectName;
        section.sizes.assign(record.base.size.begin(), record.base.size.begin() + static_cast<long>(kept->parameters));
    } else if (GiveShape(record, section)) {
        return;
    } else if (!record.base.sectName.empty()) {
        section.kind = "Manufactured";
        section.profile = record.base.sectName;
        for (const FormCode& form : kFormCodes) {
            if (form.shape == record.shape) section.formCode = form.code;
        }
    } else {
        section.kind = "General";
        section.profile = record.name;
    }
}

}  // namespace

T_SECT_D RecordOfSection(const ExchangeSection& section) {
    T_SECT_D record{.name = section.name, .kind = kByValues};
    const std::string kind = Comparable(section.kind);
    if (kind == "parametric") {
        TakeShape(section, record);
    } else if (kind == "manufactured") {
        TakeProfile(section, record);
    }
    const auto number = [](const MaybeNumber& value) { return value.value_or(0.0); };
    record.stiffness = {number(section.area),    number(section.shearAreaY), number(section.shearAreaZ),
                        number(section.torsion), number(section.inertiaY),   number(section.inertiaZ)};
    record.design.wpy = number(section.plasticY);
    record.design.wpz = number(section.plasticZ);
    record.design.cw = number(section.warping);
    return record;
}

ExchangeSection SectionOfRecord(const T_SECT_D& record) {
    ExchangeSection section{.name = record.name};
    GiveKind(record, section);
    const auto maybe = [](double value) { return value == 0.0 ? MaybeNumber{} : MaybeNumber{value}; };
    section.area = maybe(record.stiffness.area);
    section.shearAreaY = maybe(record.stiffness.asy);
    section.shearAreaZ = maybe(record.stiffness.asz);
    section.torsion = maybe(record.stiffness.ixx);
    section.inertiaY = maybe(record.stiffness.iyy);
    section.inertiaZ = maybe(record.stiffness.izz);
    section.plasticY = maybe(record.design.wpy);
    section.plasticZ = maybe(record.design.wpz);
    section.warping = maybe(record.design.cw);
    return section;
}

}  // namespace zt
