#include "zt_cmd/sect_dialog.h"

#include <algorithm>

#include "velda_lib/key_text.h"
#include "zt_db/library/sect_shape.h"
#include "zt_db/library/sect_util.h"
#include "zt_db/library/steel_data_tool.h"

namespace zt {

using velda::KeyText;

namespace {

using Kind = PropertyField::Kind;
using SectField = CCMSectItemDlg::Field;

constexpr int kRegular = 1;
constexpr int kComposite = 2;
constexpr int kValues = 3;
constexpr int kCombined = 4;

/// Where a section comes from: the kind of its data, and whether it is one of the library.
struct Source {
    int kind;
    bool isLibrary;
    std::string_view nameKey;
};
constexpr Source kSources[] = {
    {kRegular, true, "IDS_CMD_SECT_LIBRARY"},      {kRegular, false, "IDS_CMD_SECT_USER"},
    {kComposite, false, "IDS_CMD_SECT_COMPOSITE"}, {kCombined, false, "IDS_CMD_SECT_COMBINED"},
    {kValues, false, "IDS_CMD_SECT_VALUES"},
};

bool IsLibrary(const T_SECT_D& section) { return section.kind == kRegular && !section.base.dbName.empty(); }

const Source& SourceOf(const T_SECT_D& section) {
    const auto* found = std::find_if(std::begin(kSources), std::end(kSources), [&](const Source& source) {
        return source.kind == section.kind && source.isLibrary == IsLibrary(section);
    });
    return found == std::end(kSources) ? kSources[1] : *found;
}

std::vector<std::string> SourceNames(const T_SECT_D&) {
    std::vector<std::string> names;
    for (const Source& source : kSources) names.push_back(KeyText(source.nameKey));
    return names;
}

// ---- sections of the library ----

std::vector<std::string> Standards(const T_SECT_D&) {
    std::vector<std::string> standards;
    CDB_SteelDataTool::GetSectionDBList(standards);
    return standards;
}

std::vector<std::string> LibraryNames(const T_SECT_D& section) {
    std::vector<std::string> names;
    const RegularShape* shape = FindRegularShape(section.shape);
    CDB_SteelDataTool::GetSteelList_SectionListByDB(section.base.dbName, names, shape ? shape->code : "");
    return names;
}

/// Records have the name of a shape, the library its code.
std::string NameOfShape(std::string_view code) {
    const RegularShape* shape = FindRegularShape(code);
    return std::string(shape ? shape->name : code);
}

void TakeFromLibrary(T_SECT_D& section, const std::string& name) {
    const std::string before = section.base.sectName;
    if (!CDB_SteelDataTool::GetSectionProperty(section.base.dbName, name, section.base)) return;
    section.shape = NameOfShape(CDB_SteelDataTool::GetSectionShape(section.base.dbName, name));
    if (section.name.empty() || section.name == before) section.name = name;
}

void TakeFirstOfLibrary(T_SECT_D& section) {
    std::vector<std::string> names = LibraryNames(section);
    if (names.empty()) {
        section.shape.clear();
        names = LibraryNames(section);
    }
    if (!names.empty()) TakeFromLibrary(section, names.front());
}

// ---- shapes and sizes ----

std::vector<std::string> Shapes(const T_SECT_D& section) {
    std::vector<std::string> names;
    if (section.kind == kComposite) {
        CSectUtil::GetSrcShapeNameList(names);
    } else if (section.kind == kCombined) {
        CSectUtil::GetComShapeNameList(names);
    } else {
        for (const RegularShape& shape : RegularShapes()) names.emplace_back(shape.name);
    }
    return names;
}

std::string ShapeName(const T_SECT_D& section) {
    return section.kind == kRegular ? NameOfShape(section.shape) : section.shape;
}

void ChooseShape(T_SECT_D& section, const std::string& name) {
    section.shape = name;
    if (IsLibrary(section)) {
        TakeFirstOfLibrary(section);
    } else {
        section.base.size = {};
    }
}

void ChooseSource(T_SECT_D& section, const std::string& name) {
    for (const Source& source : kSources) {
        if (KeyText(source.nameKey) != name) continue;
        const std::string kept = section.name;
        section = {};
        section.name = kept;
        section.kind = source.kind;
        if (source.isLibrary) {
            section.base.dbName = Standards(section).front();
            section.shape = NameOfShape("H");
            TakeFirstOfLibrary(section);
        } else if (source.kind != kValues) {
            ChooseShape(section, Shapes(section).front());
        }
    }
}

/// Label of each role of a size, in the order of SizeRole.
constexpr std::array<std::string_view, kSizeRoles> kRoleKeys = {
    "IDS_CMD_SECT_HEIGHT", "IDS_CMD_SECT_WIDTH", "IDS_CMD_SECT_WEB", "IDS_CMD_SECT_FLANGE",
    "IDS_CMD_SECT_ROOT",   "IDS_CMD_SECT_TOE",   "IDS_CMD_SECT_GAP", "IDS_CMD_SECT_TAPER"};
constexpr std::array<std::string_view, 9> kSizeKeys = {
    "IDS_CMD_SECT_SIZE1", "IDS_CMD_SECT_SIZE2", "IDS_CMD_SECT_SIZE3", "IDS_CMD_SECT_SIZE4", "IDS_CMD_SECT_SIZE5",
    "IDS_CMD_SECT_SIZE6", "IDS_CMD_SECT_SIZE7", "IDS_CMD_SECT_SIZE8", "IDS_CMD_SECT_SIZE9"};

bool IsOwn(const T_SECT_D& section) { return !IsLibrary(section); }

template <std::size_t At>
SectField SizeField(std::string_view labelKey) {
    return {labelKey,
            Kind::Number,
            Unit::Length,
            [](const T_SECT_D& section) { return velda::FormatDouble(section.base.size[At]); },
            [](T_SECT_D& section, const std::string& text) { section.base.size[At] = velda::wtof(text); },
            nullptr,
            &IsOwn};
}

template <std::size_t... At>
SectField SizeFieldAt(std::size_t at, std::string_view labelKey, std::index_sequence<At...>) {
    using Make = SectField (*)(std::string_view);
    constexpr Make kMakers[] = {&SizeField<At>...};
    return kMakers[at](labelKey);
}

/// The sizes that a regular shape has, each under its role; all nine for the others.
void AppendSizes(const T_SECT_D& section, std::vector<SectField>& fields) {
    constexpr auto kAll = std::make_index_sequence<9>();
    const RegularShape* shape = section.kind == kRegular ? FindRegularShape(section.shape) : nullptr;
    if (!shape) {
        for (std::size_t at = 0; at < kSizeKeys.size(); ++at) fields.push_back(SizeFieldAt(at, kSizeKeys[at], kAll));
        return;
    }
    std::array<bool, 9> taken{};
    for (std::size_t role = 0; role < kSizeRoles; ++role) {
        const signed char place = shape->places[role].first;
        if (place == kNoSize || std::exchange(taken[static_cast<std::size_t>(place)], true)) continue;
        fields.push_back(SizeFieldAt(static_cast<std::size_t>(place), kRoleKeys[role], kAll));
    }
}

template <auto Member>
SectField ValueField(std::string_view labelKey, int unit) {
    return {labelKey, Kind::Number, unit,
            [](const T_SECT_D& section) { return velda::FormatDouble(section.stiffness.*Member); },
            [](T_SECT_D& section, const std::string& text) { section.stiffness.*Member = velda::wtof(text); }};
}

void AppendValues(std::vector<SectField>& fields) {
    using S = T_SECT_STIFFNESS;
    fields.insert(
        fields.end(),
        {ValueField<&S::area>("IDS_TB_SECT_Area", S::unit[0]), ValueField<&S::asy>("IDS_TB_SECT_Asy", S::unit[1]),
         ValueField<&S::asz>("IDS_TB_SECT_Asz", S::unit[2]), ValueField<&S::ixx>("IDS_TB_SECT_Ix", S::unit[3]),
         ValueField<&S::iyy>("IDS_TB_SECT_Iy", S::unit[4]), ValueField<&S::izz>("IDS_TB_SECT_Iz", S::unit[5])});
}

/// Six figures tell a section apart; more hide its order of magnitude.
std::string ShortNumber(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.6g", value);
    return text;
}

}  // namespace

std::string CCMSectItemDlg::GetTitle() const { return KeyText("IDS_CMD_SECT_TITLE"); }

std::vector<SectField> CCMSectItemDlg::Declared() const {
    std::vector<SectField> fields{
        TextField<T_SECT_D, &T_SECT_D::name>("IDS_CMD_NAME"),
        {"IDS_CMD_SECT_KIND", Kind::Choice, Unit::None,
         [](const T_SECT_D& section) { return KeyText(SourceOf(section).nameKey); }, &ChooseSource, &SourceNames},
    };
    const T_SECT_D& section = Edited();
    if (section.kind == kValues) {
        AppendValues(fields);
        return fields;
    }
    if (IsLibrary(section)) {
        fields.push_back({"IDS_CMD_SECT_STANDARD", Kind::Choice, Unit::None,
                          [](const T_SECT_D& edited) { return edited.base.dbName; },
                          [](T_SECT_D& edited, const std::string& text) {
                              edited.base.dbName = text;
                              TakeFirstOfLibrary(edited);
                          },
                          &Standards});
    }
    fields.push_back({"IDS_CMD_SECT_SHAPE", Kind::Choice, Unit::None, &ShapeName, &ChooseShape, &Shapes});
    if (IsLibrary(section)) {
        fields.push_back({"IDS_CMD_SECT_NAME", Kind::Choice, Unit::None,
                          [](const T_SECT_D& edited) { return edited.base.sectName; }, &TakeFromLibrary,
                          &LibraryNames});
    }
    AppendSizes(section, fields);
    return fields;
}

velda::Outcome CCMSectItemDlg::CheckRecord() const {
    const bool byValues = Edited().kind == kValues;
    const double area = byValues ? Edited().stiffness.area : CSectUtil::GetProperStiffPosition(Edited(), 0).area;
    if (area > 0.0) return velda::Outcome::Done();
    return velda::Outcome::Refused(KeyText(byValues ? "IDS_CMD_SECT_NO_AREA" : "IDS_CMD_SECT_NO_SHAPE"));
}

void CCMSectItemDlg::Complete(T_SECT_D& section) const {
    if (section.kind == kValues) return;
    section.stiffness = CSectUtil::GetProperStiffPosition(section, 0);
    section.design = CSectUtil::GetProperDesignPosition(section, 0);
    section.perimeterOut = CSectUtil::GetStandForPeriOut(section);
    section.perimeterIn = CSectUtil::GetStandForPeriIn(section);
}

std::vector<PropertyDialog::Value> CCMSectItemDlg::Results() const {
    T_SECT_D section = Edited();
    if (section.kind == kValues) return {};
    Complete(section);
    using S = T_SECT_STIFFNESS;
    using D = T_SECT_DESIGN;
    const auto& s = section.stiffness;
    const auto& d = section.design;
    const auto value = [](std::string_view key, int unit, double number) {
        return Value{FieldLabel(key, unit), ShortNumber(number)};
    };
    return {value("IDS_TB_SECT_Area", S::unit[0], s.area),
            value("IDS_TB_SECT_Asy", S::unit[1], s.asy),
            value("IDS_TB_SECT_Asz", S::unit[2], s.asz),
            value("IDS_TB_SECT_Ix", S::unit[3], s.ixx),
            value("IDS_TB_SECT_Iy", S::unit[4], s.iyy),
            value("IDS_TB_SECT_Iz", S::unit[5], s.izz),
            value("IDS_TB_SECT_Wey", D::unit[2], d.wey),
            value("IDS_TB_SECT_Wez", D::unit[3], d.wez),
            value("IDS_TB_SECT_Wpy", D::unit[4], d.wpy),
            value("IDS_TB_SECT_Wpz", D::unit[5], d.wpz),
            value("IDS_TB_SECT_iy", D::unit[6], d.ry),
            value("IDS_TB_SECT_iz", D::unit[7], d.rz),
            value("IDS_TB_SECT_Perimeter_Out", Unit::Length, section.perimeterOut)};
}

std::vector<Outline> CCMSectItemDlg::Picture() const { return CSectUtil::GetOutlines(Edited()); }

}  // namespace zt
