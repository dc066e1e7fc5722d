#pragma once

#include "zt_db/records/lnld.h"
#include "zt_tb/core/object_table.h"

namespace zt {

/// Columns of the tables of loads on members, in their order.
namespace MemberLoadColumn {
enum : velda::ColumnId {
    kKey,
    kMember,
    kStory,
    kLoadCase,
    kType,
    kDirection,
    kProjection,
    kX1,
    kX2,
    kX3,
    kX4,
    kP1,
    kP2,
    kP3,
    kP4,
    kUnit,
    kDescription,
};
}  // namespace MemberLoadColumn

inline constexpr CodedText kLoadTypes[] = {
    {LoadType::ConcentratedForces, "IDS_TB_LNLD_Concentrated_Forces"},
    {LoadType::ConcentratedMoments, "IDS_TB_LNLD_Concentrated_Moments_Torsions"},
    {LoadType::UniformLoads, "IDS_TB_LNLD_Uniform_Loads"},
    {LoadType::UniformMoments, "IDS_TB_LNLD_Uniform_Moments_Torsions"},
};
inline constexpr CodedText kLoadDirections[] = {
    {LoadDirection::LocalX, "IDS_TB_LNLD_Local_x"},   {LoadDirection::LocalY, "IDS_TB_LNLD_Local_y"},
    {LoadDirection::LocalZ, "IDS_TB_LNLD_Local_z"},   {LoadDirection::GlobalX, "IDS_TB_LNLD_Global_X"},
    {LoadDirection::GlobalY, "IDS_TB_LNLD_Global_Y"}, {LoadDirection::GlobalZ, "IDS_TB_LNLD_Global_Z"},
};
/// Directions of loads on a face, the global one first.
inline constexpr CodedText kFaceDirections[] = {
    {LoadDirection::GlobalZ, "IDS_TB_LNLD_Global_Z"},
    {LoadDirection::Normal, "IDS_TB_DIR_NORMAL"},
};

/// What a row of such a table tells by its texts.
class MemberLoadRow {
public:
    /// A distributed load in a global direction can be given per projected length.
    static bool TakesProjection(RowCells cells);
    /// The label of the unit of the values, which is that of the load type.
    static std::string UnitText(RowCells cells);
    static std::string UnitTextOf(int loadType);
    /// Whether a load case is one of the loads of cranes, whose rows are not checked.
    static bool IsCrane(std::string_view loadCase);
};

/// The skeleton of the tables of loads on beams, columns, walls and lines. They differ in the types of members that
/// they take, in the refusal of others, in the record class and in the directions; a table tells these in
/// `kMemberTypes`, `kWrongType`, `kDirections`, whether others show records of its class, in `kSharesClass`, and
/// whether it shows the loads of cranes whatever their member, in `kShowsCranes`.
template <class Table, class Class>
class MemberLoadTable : public ObjectTable<Table, Class> {
public:
    using Base = ObjectTable<Table, Class>;
    using typename Base::ColumnMap;
    using typename Base::Columns;
    using typename Base::Options;
    using typename Base::Record;
    using typename Base::Row;
    using typename Base::RowTexts;

    int ValidateColumn(const std::string& text, velda::ColumnId column) override {
        if (craneRow_) return 1;
        if (!Base::ValidateColumn(text, column)) return 0;
        if (column < MemberLoadColumn::kX1 || column > MemberLoadColumn::kX4) return 1;
        const double place = velda::wtof(text);
        if (place >= 0.0 && place <= 1.0) return 1;
        return this->Refuse(text, column, velda::CMsgDll::pfuncLoadStr("IDS_TB_LNLD_Value_range_s", 0));
    }
    int ValidateRowComplete(const RowTexts& rowTexts, const ColumnMap& columnMap) override {
        craneRow_ = MemberLoadRow::IsCrane(RowTextsView{rowTexts, columnMap}[MemberLoadColumn::kLoadCase]);
        return Base::ValidateRowComplete(rowTexts, columnMap);
    }
    bool OnStartEditing(int row, int col) override {
        const bool starts = Base::OnStartEditing(row, col);
        SeeCrane(row);
        return starts;
    }
    void OnModifyCell(int row, int col) override {
        Base::OnModifyCell(row, col);
        SeeCrane(row);
    }

protected:
    bool ShowsSome() const override { return Table::kSharesClass; }
    bool Shows(std::uint32_t key) const override {
        Record load;
        if (!this->RecordClass() || !this->RecordClass()->Get(key, load)) return false;
        const auto* members = CTBCommonWnd::GetRecords<CClassMemb>();
        const int type = members ? members->GetType(load.memb) : 0;
        const auto& types = Table::kMemberTypes;
        if (std::find(std::begin(types), std::end(types), type) != std::end(types)) return true;
        return Table::kShowsCranes && MemberLoadRow::IsCrane(CTBCommonWnd::GetStldName(load.stld));
    }

    /// The columns that all tables of loads on members have.
    static std::vector<typename Base::Column> MakeColumns() {
        std::vector<typename Base::Column> columns = {
            Columns::Key("IDS_TB_Key", {.state = CellState::ReadOnly, .places = 0}),
            Columns::template Object<ObjectKind::Member, &Record::memb>(
                "IDS_TB_Member", {.types = Table::kMemberTypes, .wrongType = Table::kWrongType}),
            Columns::template StoryOfObject<ObjectKind::Member, &Record::memb>("IDS_TB_Story"),
            Columns::template LoadCase<&Record::stld>("IDS_TB_LoadCase"),
            Columns::template Coded<&Record::type, kLoadTypes>(
                "IDS_TB_LNLD_LoadType", {.defaultText = "IDS_TB_LNLD_Uniform_Loads", .preference = {3, 2, 0, 130}}),
            Columns::template Coded<&Record::direction, Table::kDirections>("IDS_TB_LNLD_Direction",
                                                                            {.defaultText = "IDS_TB_LNLD_Global_Z"}),
            Columns::template YesNo<&Record::projection>(
                "IDS_TB_LNLD_Projection",
                {.defaultText = "No", .enabled = &MemberLoadRow::TakesProjection, .restText = "No"}),
        };
        AddFour<&Record::x>(columns, kPlaceTitles, {.defaultText = "0"});
        columns[MemberLoadColumn::kX2].options.defaultText = "1";
        AddFour<&Record::p>(columns, kValueTitles, {.defaultText = "0", .unitOfRecord = true});
        columns.push_back({"IDS_TB_LNLD_Unit",
                           velda::ColumnType::String,
                           [](const Table&, const Row& row, CellSink& cell) {
                               cell.Text(MemberLoadRow::UnitTextOf(row.record.type));
                           },
                           nullptr,
                           {.state = CellState::ReadOnly,
                            .suggestedBy = MemberLoadColumn::kType,
                            .suggest = &MemberLoadRow::UnitText}});
        columns.push_back(Columns::template Text<&Record::description>(
            "IDS_TB_LNLD_Description",
            {.required = [](const Table&, const RowTextsView&) { return false; }, .preference = {3, 2, 0, 160}}));
        return columns;
    }
    /// Rows are kept and found by member, load case, load type and direction.
    static std::vector<velda::STBSortItem> SortItems() {
        return {{MemberLoadColumn::kMember, 0, 0},
                {MemberLoadColumn::kLoadCase, 0, 0},
                {MemberLoadColumn::kType, 0, 0},
                {MemberLoadColumn::kDirection, 0, 0}};
    }

private:
    static constexpr std::string_view kPlaceTitles[4] = {"IDS_TB_LNLD_X1", "IDS_TB_LNLD_X2", "IDS_TB_LNLD_X3",
                                                         "IDS_TB_LNLD_X4"};
    static constexpr std::string_view kValueTitles[4] = {"IDS_TB_LNLD_P1", "IDS_TB_LNLD_P2", "IDS_TB_LNLD_P3",
                                                         "IDS_TB_LNLD_P4"};

    template <auto Member>
    static void AddFour(std::vector<typename Base::Column>& columns, const std::string_view (&titles)[4],
                        const Options& options) {
        columns.push_back(Columns::template Double<kElementOf<Member, 0>>(titles[0], options));
        columns.push_back(Columns::template Double<kElementOf<Member, 1>>(titles[1], options));
        columns.push_back(Columns::template Double<kElementOf<Member, 2>>(titles[2], options));
        columns.push_back(Columns::template Double<kElementOf<Member, 3>>(titles[3], options));
    }
    void SeeCrane(int row) {
        craneRow_ = MemberLoadRow::IsCrane(this->GetLiveText(row, this->PositionOfColumn(MemberLoadColumn::kLoadCase)));
    }

    bool craneRow_ = false;  ///< the row that is being edited or checked is that of a crane load
};

}  // namespace zt
