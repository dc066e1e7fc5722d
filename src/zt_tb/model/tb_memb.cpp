#include "zt_tb/model/tb_memb.h"

#include "velda_lib/key_text.h"
#include "velda_lib/str_parser.h"

namespace zt {

using velda::KeyText;

namespace {

using Row = CTBMemb::Row;

constexpr velda::ColumnId kNumber = 1;
constexpr velda::ColumnId kType = 2;
constexpr velda::ColumnId kBending = 9;
constexpr velda::ColumnId kTension = 10;

/// Names of the slab types and of the ways in which slabs carry loads, by number.
constexpr std::string_view kSlabTypeNames[] = {"IDS_TB_DefinededInPlan", "IDS_TB_Diaphragm", "IDS_TB_PlateBending",
                                               "IDS_TB_Plate",           "IDS_TB_Membrane",  "IDS_TB_LoadPlate"};
constexpr std::string_view kLoadingTypes[] = {"IDS_TB_One_way", "IDS_TB_Two_way"};

/// The code of a type's name; 0 for a text that names none.
int TypeOfName(std::string_view name) {
    std::vector<int> types;
    CClassMemb::GetMembTypeList(types);
    for (const int type : types) {
        if (velda::CCompFunc::EqualNoCase(CClassMemb::GetMembTypeName(type), name)) return type;
    }
    return 0;
}

bool IsSlab(const CTBMemb&, const RowTextsView& texts) { return TypeOfName(texts[kType]) == MembType::Slab; }
bool HasBeta(const CTBMemb&, const RowTextsView& texts) { return TypeOfName(texts[kType]) != MembType::Wall; }

void ShowType(const CTBMemb&, const Row& row, CellSink& cell) {
    cell.Text(CClassMemb::GetMembTypeName(row.record.type));
}
void ReadType(const CTBMemb&, std::string_view text, Row& row) { row.record.type = TypeOfName(text); }

void ShowBeta(const CTBMemb&, const Row& row, CellSink& cell) { cell.Number(row.record.beta); }
void ReadBeta(const CTBMemb&, std::string_view text, Row& row) {
    if (row.record.type != MembType::Wall) row.record.beta = velda::wtof(text);
}

std::string NodesText(const std::vector<std::uint32_t>& keys) {
    const auto* nodes = CTBCommonWnd::GetRecords<CClassPont>();
    std::string text;
    for (const std::uint32_t key : keys) {
        const std::uint32_t no = nodes ? nodes->GetPontNoByKey(key) : 0;
        if (no != 0) text += (text.empty() ? "" : " ") + velda::FormatLong(no);
    }
    return text;
}
void ShowNodes(const CTBMemb&, const Row& row, CellSink& cell) { cell.Text(NodesText(row.record.nodes)); }
void ReadNodes(const CTBMemb&, std::string_view text, Row& row) {
    const auto* nodes = CTBCommonWnd::GetRecords<CClassPont>();
    std::vector<std::uint32_t> numbers;
    // A list of numbers has no repetitions: nodes that come twice, as in a closed line, stay as they are.
    if (text == NodesText(row.record.nodes)) return;
    if (!nodes || !velda::CStrParser::GetNodeList(text, numbers)) return;
    row.record.nodes.clear();
    for (const std::uint32_t no : numbers) row.record.nodes.push_back(nodes->GetPontKeyByNo(no));
}

// ---- what slabs have ----

template <auto Member, const auto& Names>
void ShowNamed(const CTBMemb&, const Row& row, CellSink& cell) {
    const auto at = static_cast<std::size_t>(row.record.*Member);
    const bool named = row.record.type == MembType::Slab && at < std::size(Names);
    cell.Text(named ? KeyText(Names[at]) : std::string());
}
template <auto Member, const auto& Names>
void ReadNamed(const CTBMemb&, std::string_view text, Row& row) {
    if (row.record.type != MembType::Slab) return;
    for (std::size_t at = 0; at < std::size(Names); ++at) {
        if (text == KeyText(Names[at])) row.record.*Member = static_cast<int>(at);
    }
}
template <const auto& Names>
void ListNames(CTBMemb& table, int col) {
    std::string lines;
    for (const std::string_view name : Names) lines += KeyText(name) + "\n";
    table.SetChoiceList(0, col, lines);
}

void ShowLoadAngle(const CTBMemb&, const Row& row, CellSink& cell) {
    if (row.record.type == MembType::Slab) {
        cell.Number(row.record.slabLoadAngle);
    } else {
        cell.Text({});
    }
}
void ReadLoadAngle(const CTBMemb&, std::string_view text, Row& row) {
    if (row.record.type == MembType::Slab) row.record.slabLoadAngle = velda::wtof(text);
}

}  // namespace

// ---- rows of different types ----

int CTBMemb::TypeOfRow(int row) const { return RecordClass() ? RecordClass()->GetType(KeyOfRow(row)) : 0; }

void CTBMemb::DisableBetaOfWalls(const CTBMemb& table, int row, velda::CGXStyle& style) {
    style.SetEnabled(table.TypeOfRow(row) != MembType::Wall);
}

void CTBMemb::ListProperties(CTBMemb& table, int col) {
    table.thicknesses_ = AllThikStyle();
    table.SetAllSectColumn(col);
}

void CTBMemb::ListThicknesses(const CTBMemb& table, int row, velda::CGXStyle& style) {
    if (T_MEMB_D::UsesThickness(table.TypeOfRow(row))) style.OverrideWith(table.thicknesses_);
}

bool CTBMemb::IsInDetail(std::uint32_t key) const {
    CDataBase* db = GetDB();
    return db && db->GetViewCtrl()->IsExistMemb(key);
}

// ---- columns ----

const CTBMemb::Declaration& CTBMemb::Declared() {
    static const auto slabName = [](void (*list)(CTBMemb&, int)) {
        return Options{.state = CellState::Disabled,
                       .control = velda::ControlKind::ComboBox,
                       .required = &IsSlab,
                       .choices = {list, nullptr},
                       .rowStyle = &EnableFor<MembType::Slab>,
                       .preference = {3, 2, 0, 110}};
    };
    static const auto braceFlag = [](velda::ColumnId clears) {
        return Options{.rowStyle = &EnableFor<MembType::Brace>, .clears = clears};
    };
    static const Declaration declaration{
        .name = "TBMemb",
        .columns =
            {
                Columns::Key("Key", {.state = CellState::Disabled, .hidden = true}),
                Columns::Long<&T_MEMB_D::no>("IDS_TB_Member", {.state = CellState::ReadOnly}),
                {"IDS_TB_MEMB_Type",
                 velda::ColumnType::String,
                 &ShowType,
                 &ReadType,
                 {.state = CellState::ReadOnly, .defaultText = FindMemberType(MembType::Column)->nameKey}},
                Columns::Story<&T_MEMB_D::story>("IDS_TB_Story", {.state = CellState::ReadOnly}),
                Columns::ListedKey<&T_MEMB_D::matl>(
                    "IDS_TB_MEMB_Matl",
                    {.choices = {[](CTBMemb& table, int col) { table.SetMatlColumn(col); }, &ChangesMatls}}),
                Columns::ListedKey<&T_MEMB_D::prop>(
                    "IDS_TB_MEMB_Prop",
                    {.choices = {&ListProperties, &ChangesProperties}, .rowStyle = &ListThicknesses}),
                {"IDS_TB_MEMB_Beta",
                 velda::ColumnType::Double,
                 &ShowBeta,
                 &ReadBeta,
                 {.unit = T_MEMB_D::unit[0], .places = 2, .required = &HasBeta, .rowStyle = &DisableBetaOfWalls}},
                {"IDS_TB_MEMB_Connect",
                 velda::ColumnType::String,
                 &ShowNodes,
                 &ReadNodes,
                 {.state = CellState::ReadOnly, .follows = &ChangesPontNos, .preference = {3, 2, 0, 130}}},
                Columns::Long<&T_MEMB_D::plan>("IDS_TB_MEMB_Plan_No", {.state = CellState::Disabled, .hidden = true}),
                Columns::Check<&T_MEMB_D::considerBending>("IDS_TB_MEMB_Consider_Bending", braceFlag(kTension)),
                Columns::Check<&T_MEMB_D::tensionOnly>("IDS_TB_MEMB_Tension_Only", braceFlag(kBending)),
                Columns::Check<&T_MEMB_D::divideFrame>("IDS_TB_MEMB_Divide_Frame", braceFlag(velda::kNoColumn)),
                {"IDS_TB_MEMB_Slab_Type", velda::ColumnType::String, &ShowNamed<&T_MEMB_D::slabType, kSlabTypeNames>,
                 &ReadNamed<&T_MEMB_D::slabType, kSlabTypeNames>, slabName(&ListNames<kSlabTypeNames>)},
                {"IDS_TB_MEMB_Slab_Loading_Type", velda::ColumnType::String,
                 &ShowNamed<&T_MEMB_D::slabLoadingType, kLoadingTypes>,
                 &ReadNamed<&T_MEMB_D::slabLoadingType, kLoadingTypes>, slabName(&ListNames<kLoadingTypes>)},
                {"IDS_TB_MEMB_Slab_Load_Angle",
                 velda::ColumnType::Double,
                 &ShowLoadAngle,
                 &ReadLoadAngle,
                 {.state = CellState::Disabled, .required = &IsSlab, .rowStyle = &EnableFor<MembType::Slab>}},
            },
        .sort = {{kNumber, 0, 0}},
        .keep =
            [](const T_MEMB_D& stored, T_MEMB_D& member) {
                member.story = stored.story;
                member.nodes = stored.nodes;
            },
    };
    return declaration;
}

const std::string CTBMemb::m_strRegName = CTBMemb::Register();

}  // namespace zt
