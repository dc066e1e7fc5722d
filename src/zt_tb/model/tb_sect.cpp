#include "zt_tb/model/tb_sect.h"

#include <unordered_set>

#include "zt_db/library/sect_util.h"
#include "zt_tb/model/section_pictures.h"

namespace zt {
namespace {

using Row = CTBSect::Row;

// Places of the units of stiffness and design values.
namespace Stiffness {
enum : std::size_t { kArea, kAsy, kAsz, kIx, kIy, kIz };
}
namespace Design {
enum : std::size_t { kEy, kEz, kWey, kWez, kWpy, kWpz, kRy, kRz, kCw, kJ, kRp };
}

/// Key of the text of a section's kind; empty for a kind that does not exist.
std::string_view KindKey(const T_SECT_D& section) {
    switch (section.kind) {
        case 1: return section.base.dbName.empty() ? "IDS_TB_SECT_USER" : "IDS_TB_SECT_DB";
        case 2: return "IDS_TB_SECT_SRC";
        case 3: return "IDS_TB_SECT_Value";
        case 4: return "IDS_TB_SECT_Comb";
        case 5: return "IDS_TB_SECT_Taper";
        default: return {};
    }
}

void ShowKind(const CTBSect&, const Row& row, CellSink& cell) {
    const std::string_view key = KindKey(row.record);
    cell.Text(key.empty() ? std::string() : velda::CMsgDll::pfuncLoadStr(key, 0));
}

/// A picture of a family by the index of its shape; the plain cell where there is no such shape.
int ControlOfIndex(int first, int index) { return index < 0 ? CTBSect::kPlainCell : first + index; }

/// Widths and places by what a number is, so that small sections are told apart in meters too.
constexpr velda::STBPrefItem kLengths{2, 2, 4, 90};
constexpr velda::STBPrefItem kAreas{2, 2, 6, 110};
constexpr velda::STBPrefItem kModuli{2, 2, 8, 130};
constexpr velda::STBPrefItem kInertias{2, 2, 8, 150};
constexpr velda::STBPrefItem kWarping{2, 2, 10, 170};

}  // namespace

CTBSect::CTBSect() {
    for (const SectionPicture& picture : SectionPictures()) {
        RegisterControl(picture.control, std::make_unique<velda::CBitmapBtnEdit>(picture.name, picture.svg));
    }
}

// ---- values ----

const CTBSect::Values& CTBSect::ValuesOf(const T_SECT_D& section) const {
    if (values_ && asked_ == section) return *values_;
    Values values;
    switch (CSectUtil::GetSectTypeNo(section)) {
        case kSectNone: break;
        case kSectValue: values = {section.stiffness, section.design, section.perimeterOut, section.perimeterIn}; break;
        default:
            values = {CSectUtil::GetProperStiffPosition(section, 0), CSectUtil::GetProperDesignPosition(section, 0),
                      CSectUtil::GetStandForPeriOut(section), CSectUtil::GetStandForPeriIn(section)};
    }
    asked_ = section;
    values_ = values;
    return *values_;
}

template <auto Group, auto Member>
void CTBSect::ShowValue(const CTBSect& table, const Row& row, CellSink& cell) {
    cell.Number(table.ValuesOf(row.record).*Group.*Member);
}

template <auto Member>
void CTBSect::ShowPerimeter(const CTBSect& table, const Row& row, CellSink& cell) {
    cell.Number(CUnitCtrl::ConvValueCurUnit2ModelLengthUnit(Unit::Length, table.ValuesOf(row.record).*Member));
}

// ---- pictures ----

int CTBSect::ShapeControlOf(const T_SECT_D& section) {
    switch (CSectUtil::GetSectTypeNo(section)) {
        case kSectDatabase:
        case kSectUser:
        case kSectValue:
        case kSectTapered: {
            const int control = RegularPictureControl(CSectUtil::GetShapeIndexFromNameReg(section.shape));
            return control == 0 ? kPlainCell : control;
        }
        case kSectComposite:
            return ControlOfIndex(kFirstCompositePicture, CSectUtil::GetShapeIndexFromNameSrc(section.shape));
        case kSectCombined:
            return ControlOfIndex(kFirstCombinedPicture, CSectUtil::GetShapeIndexFromNameCom(section.shape));
        default: return kPlainCell;
    }
}

void CTBSect::PictureOfShape(const CTBSect& table, int row, velda::CGXStyle& style) {
    T_SECT_D section;
    if (!table.RecordClass() || !table.RecordClass()->Get(table.KeyOfRow(row), section)) return;
    style.OverrideWith(table.Controls().Find(ShapeControlOf(section))->CellStyle());
}

// ---- rows ----

void CTBSect::PreFilterRecord(const Keys& keys) {
    const std::unordered_set<std::uint32_t> asked(keys.begin(), keys.end());
    Keys sections;
    if (const CClassSect* records = RecordClass()) {
        std::uint32_t key = 0;
        T_SECT_D section;
        for (POSITION at = records->DB_GetStart(); at;) {
            records->GetNextData(at, key, section);
            if (asked.contains(key)) sections.push_back(key);
        }
    }
    RecordTable::PreFilterRecord(sections);
}

// ---- columns ----

std::string CTBSect::MaterialKindText(int kind) {
    switch (kind) {
        case 1: return velda::CMsgDll::pfuncLoadStr("IDS_TB_SECT_RC", 0);
        case 2: return velda::CMsgDll::pfuncLoadStr("IDS_TB_SECT_Steel", 0);
        case 3: return velda::CMsgDll::pfuncLoadStr("IDS_TB_SECT_SRC", 0);
        default: return {};
    }
}

const CTBSect::Declaration& CTBSect::Declared() {
    using S = T_SECT_STIFFNESS;
    using D = T_SECT_DESIGN;
    static const auto value = [](std::string_view title, auto show, int unit, const velda::STBPrefItem& preference) {
        return Column{title,
                      velda::ColumnType::Double,
                      show,
                      nullptr,
                      {.unit = unit, .state = CellState::ReadOnly, .preference = preference}};
    };
    constexpr auto s = &Values::stiffness;
    constexpr auto d = &Values::design;
    static const Declaration declaration{
        .name = "TBSect",
        .columns =
            {
                Columns::Key("IDS_TB_SECT_ID", {.state = CellState::Disabled, .hidden = true, .places = 0}),
                Columns::Text<&T_SECT_D::name>("IDS_TB_SECT_Name", {.preference = {3, 2, 0, 120}}),
                {"IDS_TB_SECT_Type", velda::ColumnType::String, &ShowKind, nullptr, {.state = CellState::ReadOnly}},
                {"IDS_TB_SECT_Shape",
                 velda::ColumnType::String,
                 [](const CTBSect&, const Row& row, CellSink& cell) { cell.Text(row.record.shape); },
                 nullptr,
                 {.state = CellState::ReadOnly, .rowStyle = &PictureOfShape, .preference = {3, 2, 0, 200}}},
                Columns::Text<&T_SECT_D::description>(
                    "IDS_TB_SECT_Description", {.required = [](const CTBSect&, const RowTextsView&) { return false; },
                                                .preference = {3, 2, 0, 120}}),
                value("IDS_TB_SECT_Area", &ShowValue<s, &S::area>, S::unit[Stiffness::kArea], kAreas),
                value("IDS_TB_SECT_Asy", &ShowValue<s, &S::asy>, S::unit[Stiffness::kAsy], kAreas),
                value("IDS_TB_SECT_Asz", &ShowValue<s, &S::asz>, S::unit[Stiffness::kAsz], kAreas),
                value("IDS_TB_SECT_ey", &ShowValue<d, &D::ey>, D::unit[Design::kEy], kLengths),
                value("IDS_TB_SECT_ez", &ShowValue<d, &D::ez>, D::unit[Design::kEz], kLengths),
                value("IDS_TB_SECT_Wey", &ShowValue<d, &D::wey>, D::unit[Design::kWey], kModuli),
                value("IDS_TB_SECT_Wez", &ShowValue<d, &D::wez>, D::unit[Design::kWez], kModuli),
                value("IDS_TB_SECT_Wpy", &ShowValue<d, &D::wpy>, D::unit[Design::kWpy], kModuli),
                value("IDS_TB_SECT_Wpz", &ShowValue<d, &D::wpz>, D::unit[Design::kWpz], kModuli),
                value("IDS_TB_SECT_Ix", &ShowValue<s, &S::ixx>, S::unit[Stiffness::kIx], kInertias),
                value("IDS_TB_SECT_Iy", &ShowValue<s, &S::iyy>, S::unit[Stiffness::kIy], kInertias),
                value("IDS_TB_SECT_Iz", &ShowValue<s, &S::izz>, S::unit[Stiffness::kIz], kInertias),
                value("IDS_TB_SECT_Cwp", &ShowValue<d, &D::cw>, D::unit[Design::kCw], kWarping),
                value("IDS_TB_SECT_iy", &ShowValue<d, &D::ry>, D::unit[Design::kRy], kLengths),
                value("IDS_TB_SECT_iz", &ShowValue<d, &D::rz>, D::unit[Design::kRz], kLengths),
                value("IDS_TB_SECT_ip", &ShowValue<d, &D::rp>, D::unit[Design::kRp], kLengths),
                value("IDS_TB_SECT_Perimeter_Out", &ShowPerimeter<&Values::perimeterOut>, Unit::ModelLength, kLengths),
                value("IDS_TB_SECT_Perimeter_In", &ShowPerimeter<&Values::perimeterIn>, Unit::ModelLength, kLengths),
            },
        .dialog = "CCMSectItemDlg",
        .keep = [](const T_SECT_D& stored, T_SECT_D& section) { section = stored; },
    };
    return declaration;
}

const std::string CTBSect::m_strRegName = CTBSect::Register();

}  // namespace zt
