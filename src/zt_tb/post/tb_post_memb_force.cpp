#include "zt_tb/post/tb_post_memb_force.h"

#include <algorithm>

#include "velda_lib/msg_dll.h"
#include "zt_tb/post/member_parts.h"
#include "zt_tb/post/result_columns.h"

namespace zt {
namespace {

constexpr int kPlaces = 4;
constexpr int kLoadOrderField = 12;
constexpr int kPartOrderField = 13;

// ---- columns

constexpr ResultColumn PartName() { return PerPart({.title = "IDS_TB_POSTDISP_Part"}); }
constexpr ResultColumn ForceType() { return PerPart({.title = "IDS_TB_POSTDISP_Type"}); }
constexpr ResultColumn Force(std::string_view title) { return PerPart(ValueColumn(title, Unit::Force, kPlaces)); }
constexpr ResultColumn Moment(std::string_view title) { return PerPart(ValueColumn(title, Unit::Moment, kPlaces)); }
constexpr ResultColumn PartOrder() { return HiddenColumn("IDS_TB_POSTDISP_Part_Order"); }

/// Of beams: the shear and the moment are those about the major axis.
constexpr ResultColumn kBeamColumns[] = {
    CounterColumn("IDS_TB_POSTDISP_Memb"),
    StoryColumn(),
    LevelColumn(),
    ValueColumn("IDS_TB_POSTDISP_Length", Unit::Length, kPlaces),
    PartName(),
    PerPart(LoadColumn()),
    ForceType(),
    Force("IDS_TB_POSTDISP_N_Axial"),
    Force("IDS_TB_POSTDISP_V_Shear"),
    Moment("IDS_TB_POSTDISP_M_Moment"),
    Moment("IDS_TB_POSTDISP_T_Torsion"),
    LoadOrderColumn(),
    PartOrder(),
};
/// Of columns and braces.
constexpr ResultColumn kColumnColumns[] = {
    CounterColumn("IDS_TB_POSTDISP_Memb"),
    StoryColumn(),
    LevelColumn(),
    PartName(),
    PerPart(LoadColumn()),
    ForceType(),
    Force("IDS_TB_POSTDISP_N_Axial"),
    Force("IDS_TB_POSTDISP_Vy_Shear"),
    Force("IDS_TB_POSTDISP_Vz_Shear"),
    Moment("IDS_TB_POSTDISP_My_Moment"),
    Moment("IDS_TB_POSTDISP_Mz_Moment"),
    LoadOrderColumn(),
    PartOrder(),
};

constexpr ResultDeclaration Declaration(std::string_view name, std::span<const ResultColumn> columns) {
    return {.name = name, .columns = columns, .loadOrderField = kLoadOrderField, .objectField = 1};
}

// ---- members, parts and components. Components of a part are N, Vy, Vz, T, My, Mz.

constexpr std::size_t kBeamComponents[] = {0, 2, 4, 3};
constexpr std::size_t kColumnComponents[] = {0, 1, 2, 4, 5};
constexpr std::int16_t kEndsAndMiddle[] = {0, 8, 16};
constexpr std::int16_t kBeamPartStep = 2;

constexpr ForceGetters<T_FBEM_D> Beam(ForceGetters<T_FBEM_D>::Getter analysis) {
    return {analysis, {&CPostCtrl4Dgn::GetBeamDesignForce, &CPostCtrl4Dgn::GetSteelDesignForce}};
}
constexpr ForceGetters<T_FBRC_D> kBrace = {&CPostCtrl::GetMbbr, {&CPostCtrl4Dgn::GetBrceDesignForce}};

constexpr ForceOfType kBeamTypes[] = {
    {201, Beam(&CPostCtrl::GetMbgd)}, {204, Beam(&CPostCtrl::GetMbcg)}, {205, Beam(&CPostCtrl::GetMbgd)},
    {240, Beam(&CPostCtrl::GetMbgd)}, {241, Beam(&CPostCtrl::GetMbgd)}, {242, Beam(&CPostCtrl::GetMbgd)},
    {243, Beam(&CPostCtrl::GetMbgd)}, {251, Beam(&CPostCtrl::GetMbgd)}, {261, Beam(&CPostCtrl::GetMbgd)},
    {262, Beam(&CPostCtrl::GetMbgd)}, {263, Beam(&CPostCtrl::GetStwt)},
};
constexpr ForceOfType kColumnTypes[] = {
    {101, ForceGetters<T_FCOL_D>{&CPostCtrl::GetMbcl,
                                 {&CPostCtrl4Dgn::GetColmDesignForce, &CPostCtrl4Dgn::GetSrcColmDesignForce}}},
};
constexpr ForceOfType kBraceTypes[] = {{206, kBrace}, {252, kBrace}};
constexpr ForceOfType kWallBeamTypes[] = {
    {210, ForceGetters<T_FBEM_D>{&CPostCtrl::GetMbwg, {&CPostCtrl4Dgn::GetWBemDesignForce}}},
};
constexpr ForceOfType kWallColumnTypes[] = {
    {209, ForceGetters<T_FCOL_D>{&CPostCtrl::GetMbwc, {&CPostCtrl4Dgn::GetWallDesignForce}}},
};

constexpr MemberForceTable BeamTable(std::string_view name, std::span<const ForceOfType> types) {
    return {.declaration = Declaration(name, kBeamColumns),
            .types = types,
            .defaultParts = kEndsAndMiddle,
            .partStep = kBeamPartStep,
            .hasLength = true,
            .components = kBeamComponents};
}
constexpr MemberForceTable ColumnTable(std::string_view name, std::span<const ForceOfType> types) {
    return {.declaration = Declaration(name, kColumnColumns), .types = types, .components = kColumnComponents};
}

/// In the order of MemberForces.
constexpr MemberForceTable kTables[] = {
    BeamTable("TBPostBeamForce", kBeamTypes),          ColumnTable("TBPostColmForce", kColumnTypes),
    ColumnTable("TBPostBraceForce", kBraceTypes),      BeamTable("TBPostWBeamForce", kWallBeamTypes),
    ColumnTable("TBPostWColmForce", kWallColumnTypes),
};

std::set<int> TypesOf(const MemberForceTable& table) {
    std::set<int> types;
    for (const ForceOfType& one : table.types) types.insert(one.type);
    return types;
}

}  // namespace

const MemberForceTable& MemberForceTableOf(MemberForces members) { return kTables[static_cast<std::size_t>(members)]; }

MemberForceSource::MemberForceSource(int kind, const MemberForceTable& table)
    : CTBPostDSMemb2(kind, table.declaration, TypesOf(table)), table_(table) {}

void MemberForceSource::Initialize(velda::CTBCore& grid) {
    CTBPostDSMemb2::Initialize(grid);
    parts_.assign(table_.defaultParts.begin(), table_.defaultParts.end());
    if (!parts_.empty()) return;
    for (const MemberPart& part : MemberPartsOf(GetKind())) parts_.push_back(part.number);
}

// ---- records ----

void MemberForceSource::ReadRecord() {
    story_.reset();
    length_ = 0.0;
    forces_.clear();
    T_PMEMB_D member;
    if (!CClassPMemb(&Results()).Get(Key(), member)) return;
    story_ = StoryOf(member.mdul, member.story);
    if (const CPostCtrl* post = Post(); post && table_.hasLength) post->GetMembNetLength(Key(), length_);
    ReadForces(member.kind);
}

void MemberForceSource::ReadForces(int type) {
    areDesignForces_ = false;
    const auto found = std::find_if(table_.types.begin(), table_.types.end(),
                                    [type](const ForceOfType& one) { return one.type == type; });
    if (found == table_.types.end()) return;
    const auto read = [this]<class Record>(const ForceGetters<Record>& getters) {
        Record record;
        areDesignForces_ = ReadDesignForces(getters, record);
        if (!areDesignForces_) ReadEnvelope(getters.analysis, Key(), record);
        forces_.assign(record.part.begin(), record.part.end());
    };
    std::visit(read, found->getters);
}

template <class Record>
bool MemberForceSource::ReadDesignForces(const ForceGetters<Record>& getters, Record& record) {
    return std::any_of(getters.design.begin(), getters.design.end(), [&](auto getter) {
        const auto read = [getter](CPostCtrl& post, std::uint32_t memb, Record* all, Record* max, Record* min) {
            return (CPostCtrl4Dgn(post).*getter)(memb, all, max, min);
        };
        return getter && ReadEnvelope(read, Key(), record) != 0;
    });
}

void MemberForceSource::GetRecTexts(velda::RecordCells& cells) {
    if (!story_) return;
    cells.Long(1, Key());
    cells.Text(2, story_->Name());
    cells.Number(3, story_->level);
    if (table_.hasLength) cells.Number(4, length_);
    int recRow = 1;
    for (const std::int16_t part : parts_) WritePart(cells, part, recRow++);
    cells.Long(kLoadOrderField, OrderOfLoad());
    if (!parts_.empty()) cells.Long(kPartOrderField, parts_.front());
}

void MemberForceSource::WritePart(velda::RecordCells& cells, std::int16_t part, int recRow) {
    const T_FORCE_D* forces = ForcesOf(part);
    if (!forces) return;
    int field = table_.hasLength ? 5 : 4;
    cells.Text(field++, PartName(part), recRow);
    cells.Text(field++, LoadText(), recRow);
    cells.Text(field++,
               velda::CMsgDll::pfuncLoadStr(
                   areDesignForces_ ? "IDS_TB_POSTDISP_Force_Design" : "IDS_TB_POSTDISP_Force_Analysis", 0),
               recRow);
    for (const std::size_t component : table_.components) cells.Number(field++, (*forces)[component], recRow);
}

std::string MemberForceSource::PartName(std::int16_t part) const {
    for (const MemberPart& one : MemberPartsOf(GetKind())) {
        if (one.number == part) return velda::CMsgDll::pfuncLoadStr(one.nameKey, 0);
    }
    return {};
}

const T_FORCE_D* MemberForceSource::ForcesOf(std::int16_t part) const {
    const auto at = static_cast<std::size_t>(part / table_.partStep);
    return part >= 0 && part % table_.partStep == 0 && at < forces_.size() ? &forces_[at] : nullptr;
}

}  // namespace zt
