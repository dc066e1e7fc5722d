#include "zt_tb/model/tb_matl.h"

#include "velda_lib/specialchar.h"
#include "zt_db/library/library.h"

namespace zt {
namespace {

using namespace MatlColumn;
using Row = CTBMatl::Row;

constexpr velda::ColumnId kGroupSize = kCode2 - kCode1;

/// Titles of the columns of a group, in their order.
constexpr std::string_view kTitles[][kGroupSize] = {
    {"IDS_TB_MATL_Code1", "IDS_TB_MATL_CodeName1", "IDS_TB_MATL_Elasticity1", "IDS_TB_MATL_Poisson1",
     "IDS_TB_MATL_Thermal1", "IDS_TB_MATL_Density1"},
    {"IDS_TB_MATL_Code2", "IDS_TB_MATL_CodeName2", "IDS_TB_MATL_Elasticity2", "IDS_TB_MATL_Poisson2",
     "IDS_TB_MATL_Thermal2", "IDS_TB_MATL_Density2"},
};

/// A material without a code has an empty one.
template <std::size_t Group>
void ShowCode(const CTBMatl&, const Row& row, CellSink& cell) {
    const std::string& code = row.record.analysis[Group].code;
    cell.Text(code.empty() ? MatlRow::NoneText() : code);
}
template <std::size_t Group>
void ReadCode(const CTBMatl&, std::string_view text, Row& row) {
    row.record.analysis[Group].code = MatlRow::IsNone(text) ? std::string_view() : text;
}

template <std::size_t Group>
void ShowGrade(const CTBMatl&, const Row& row, CellSink& cell) {
    cell.Text(row.record.analysis[Group].codeName);
}
template <std::size_t Group>
void ReadGrade(const CTBMatl&, std::string_view text, Row& row) {
    row.record.analysis[Group].codeName = text;
}

template <std::size_t Group, auto Member>
void ShowValue(const CTBMatl&, const Row& row, CellSink& cell) {
    cell.Number(row.record.analysis[Group].*Member);
}
template <std::size_t Group, auto Member>
void ReadValue(const CTBMatl&, std::string_view text, Row& row) {
    row.record.analysis[Group].*Member = velda::wtof(text);
}

bool IsNotComposite(const CTBMatl&, const RowTextsView& texts) {
    return MatlRow::ShortType(texts[kType]) != MatlType::Composite;
}
/// Whether a row needs no grade. The literal counts, whatever the text for none is in the current language.
template <velda::ColumnId Code>
bool NeedsNoGrade(const CTBMatl& table, const RowTextsView& texts) {
    return texts[Code] == "None" || (Code == kCode2 && IsNotComposite(table, texts));
}

}  // namespace

// ---- columns ----

template <velda::ColumnId First>
void CTBMatl::AddGroup(std::vector<Column>& columns) {
    using Analysis = T_MATL_ANALYSIS;
    constexpr std::size_t group = First == kCode1 ? 0 : 1;
    constexpr const auto& titles = kTitles[group];
    constexpr auto passedOver = First == kCode2 ? &IsNotComposite : nullptr;
    const std::string stress = "N/mm" + std::string(velda::CSpecialchar::m_cs2Square);
    const std::string density = "kgf/m" + std::string(velda::CSpecialchar::m_cs3Square);
    const auto value = [&](int unit, std::string fixedUnit, velda::STBPrefItem preference, auto rowStyle) {
        return Options{.unit = unit,
                       .fixedUnit = std::move(fixedUnit),
                       .defaultText = "0.0",
                       .passedOver = passedOver,
                       .rowStyle = rowStyle,
                       .preference = preference};
    };
    columns.push_back({titles[0],
                       velda::ColumnType::String,
                       &ShowCode<group>,
                       &ReadCode<group>,
                       {.defaultText = "IDS_TB_MATL_None",
                        .passedOver = passedOver,
                        .rowStyle = &StyleCell<First>,
                        .preference = {3, 2, 0, 110}}});
    columns.push_back({titles[1],
                       velda::ColumnType::String,
                       &ShowGrade<group>,
                       &ReadGrade<group>,
                       {.passedOver = &NeedsNoGrade<First>, .rowStyle = &StyleCell<First + 1>}});
    columns.push_back({titles[2], velda::ColumnType::Double, &ShowValue<group, &Analysis::elasticity>,
                       &ReadValue<group, &Analysis::elasticity>,
                       value(0, stress, {2, 2, 1, 110}, &StyleCell<First + 2>)});
    columns.push_back({titles[3], velda::ColumnType::Double, &ShowValue<group, &Analysis::poisson>,
                       &ReadValue<group, &Analysis::poisson>,
                       value(Analysis::unit[1], {}, {2, 2, 3, 100}, &StyleCell<First + 3>)});
    columns.push_back({titles[4], velda::ColumnType::Double, &ShowValue<group, &Analysis::thermal>,
                       &ReadValue<group, &Analysis::thermal>,
                       value(Analysis::unit[2], {}, {2, 2, 8, 140}, &StyleCell<First + 4>)});
    columns.push_back({titles[5], velda::ColumnType::Double, &ShowValue<group, &Analysis::density>,
                       &ReadValue<group, &Analysis::density>,
                       value(0, density, {2, 2, 1, 100}, &StyleCell<First + 5>)});
}

const CTBMatl::Declaration& CTBMatl::Declared() {
    static const auto columns = [] {
        std::vector<Column> all = {
            Columns::Key("IDS_TB_MATL_ID", {.state = CellState::Disabled, .hidden = true, .places = 0}),
            Columns::Text<&T_MATL_D::name>("IDS_TB_MATL_NAME"),
            {"IDS_TB_MATL_Type",
             velda::ColumnType::String,
             [](const CTBMatl&, const Row& row, CellSink& cell) { cell.Text(MatlRow::TypeText(row.record.type)); },
             [](const CTBMatl&, std::string_view text, Row& row) { row.record.type = MatlRow::ShortType(text); },
             {.control = velda::ControlKind::ComboBox,
              .defaultText = MatlRow::TypeText(MatlType::Steel),
              .choices = {[](CTBMatl& table, int col) { table.SetChoiceList(0, col, MatlRow::TypeLines()); }, nullptr},
              .preference = {3, 2, 0, 95}}},
        };
        AddGroup<kCode1>(all);
        AddGroup<kCode2>(all);
        all.push_back(
            Columns::Double<&T_MATL_D::dampingRatio>("IDS_TB_MATL_Damping_Ratio", {.defaultText = "0.0",
                                                                                   .check = CellCheck::None,
                                                                                   .passedOver = &IsNotComposite,
                                                                                   .preference = {2, 2, 3, 100}}));
        return all;
    }();
    static const Declaration declaration{
        .name = "TBMatl",
        .columns = columns,
        .inserts = true,
        .appends = true,
        .dialog = "CModelPropMatlDlg",
    };
    return declaration;
}

const std::string CTBMatl::m_strRegName = CTBMatl::Register();

// ---- checks ----

int CTBMatl::ValidateColumn(const std::string& text, velda::ColumnId column) {
    if (column != kType || !MatlRow::ShortType(text).empty()) return RecordTable::ValidateColumn(text, column);
    const std::string reason = velda::CMsgDll::pfuncLoadStr("IDS_TB_MATL_Invalid_material_type", 0);
    AddFinding({velda::kNoRow, column, velda::EditRule::Field, text, reason});
    SetWarningText(reason);
    return 0;
}

/// A type is taken as it is typed: the list of types would take it in any case.
bool CTBMatl::OnValidateField(int row, int col) {
    if (IdOfColumn(col) != kType) return RecordTable::OnValidateField(row, col);
    const std::string text = GetLiveText(row, col);
    return text.empty() || ValidateColumn(text, kType) != 0;
}

// ---- cells that depend on others of their row ----

CTBMatl::RowTexts CTBMatl::TextsDuringEdit(int row, velda::ColumnId edited) const {
    RowTexts texts;
    for (velda::ColumnId id = 0; id < GetInitialColCount(); ++id) {
        texts.push_back(id == edited ? Session().EditorText() : GetValueRowCol(row, PositionOfColumn(id)));
    }
    return texts;
}

void CTBMatl::SetLiveText(int row, velda::ColumnId column, const std::string& text) {
    SetValueRange(row, PositionOfColumn(column), text);
}

void CTBMatl::OnModifyCell(int row, int col) {
    RecordTable::OnModifyCell(row, col);
    const velda::ColumnId edited = IdOfColumn(col);
    if (!MatlRow::IsLeading(edited)) return;
    const RowTexts texts = TextsDuringEdit(row, edited);
    if (MatlRow::ShortType(texts[kType]).empty()) return;
    const velda::GridUpdateLock lock(*this);
    if (!before_) before_ = {{}, secondCodeFollowsFirst_};
    RowTexts followed = texts;
    MatlRow(followed, GetDefaultCellTexts()).Follow(edited);
    for (velda::ColumnId id = kCode1; id <= kDensity2; ++id) {
        const auto at = static_cast<std::size_t>(id);
        if (id == edited || followed[at] == texts[at]) continue;
        before_->texts.try_emplace(id, texts[at]);
        SetLiveText(row, id, followed[at]);
    }
    if (edited == kType || edited == kCode1) secondCodeFollowsFirst_ = edited == kCode1;
}

void CTBMatl::OnEndEditing(int row, int col) {
    RecordTable::OnEndEditing(row, col);
    before_.reset();
}

void CTBMatl::OnCanceledEditing(int row, int col) {
    RecordTable::OnCanceledEditing(row, col);
    // While the whole row is taken back there is no open row any more, and its texts stand already.
    if (!before_ || Session().Row() == velda::kNoRow) return;
    const velda::GridUpdateLock lock(*this);
    for (const auto& [id, text] : before_->texts) SetLiveText(row, id, text);
    secondCodeFollowsFirst_ = before_->secondCodeFollowsFirst;
    before_.reset();
}

void CTBMatl::OnRowClosed() {
    before_.reset();
    secondCodeFollowsFirst_ = false;
    RecordTable::OnRowClosed();
}

void CTBMatl::AdjustAppendRowNo(int row) {
    RecordTable::AdjustAppendRowNo(row);
    appendType_ = GetDefaultCellText(kType);
    RebuildControl(PositionOfColumn(kCode1));
}

bool CTBMatl::IsClosedAppendRow(int row) const {
    return RowIdAt(row) == velda::kAppendRow && Session().Row() != velda::kAppendRow;
}

const velda::CGXStyle& CTBMatl::ListStyle(bool grades, const std::string& of) const {
    if (const auto library = Library::Current(); library != listed_) {
        lists_.clear();
        listed_ = library;
    }
    const auto [found, isNew] = lists_.try_emplace({grades, of});
    if (isNew) found->second = NameListStyle(grades ? MatlRow::GradeLines(of) : MatlRow::CodeLines(of));
    return found->second;
}

template <velda::ColumnId Id>
void CTBMatl::StyleCell(const CTBMatl& table, int row, velda::CGXStyle& style) {
    table.StyleCell(Id, row, style);
}

void CTBMatl::StyleCell(velda::ColumnId column, int row, velda::CGXStyle& style) const {
    RowTexts texts = GetDefaultCellTexts();
    texts[kType] = appendType_;
    if (!IsClosedAppendRow(row)) {
        for (const velda::ColumnId id : {kType, kCode1, kCode2}) {
            texts[static_cast<std::size_t>(id)] = GetLiveText(row, PositionOfColumn(id));
        }
    }
    bool enabled = MatlRow(texts, GetDefaultCellTexts()).IsEnabled(column);
    if (column == kCode2 && secondCodeFollowsFirst_ && RowIdAt(row) == Session().Row()) {
        enabled = enabled && MatlRow::IsNone(texts[kCode1]);
    }
    switch (column) {
        case kCode1:
        case kCode2: style.OverrideWith(ListStyle(false, std::string(MatlRow::ShortType(texts[kType])))); break;
        case kGrade1: style.OverrideWith(ListStyle(true, texts[kCode1])); break;
        case kGrade2: style.OverrideWith(ListStyle(true, texts[kCode2])); break;
        default: break;
    }
    style.SetEnabled(enabled);
}

// ---- changes of many cells ----

// The given texts are taken as if they were typed one after the other, so that what a row does not take depends on what
// comes with it and not on what it was.
std::size_t CTBMatl::AdjustGivenTexts(RowTexts& texts, const RowTexts& before, const std::vector<bool>& given) const {
    const auto place = [this](velda::ColumnId id) { return static_cast<std::size_t>(PositionOfColumn(id) - 1); };
    RowTexts row;
    for (velda::ColumnId id = 0; id < GetInitialColCount(); ++id) row.push_back(before[place(id)]);
    MatlRow rules(row, GetDefaultCellTexts());
    std::size_t passedOver = 0;
    for (velda::ColumnId id = 0; id < GetInitialColCount(); ++id) {
        if (!given[place(id)]) continue;
        if (!rules.IsEnabled(id)) {
            ++passedOver;
            continue;
        }
        std::string& text = row[static_cast<std::size_t>(id)];
        if (text == texts[place(id)]) continue;
        text = texts[place(id)];
        if (MatlRow::IsLeading(id)) rules.Follow(id);
    }
    for (velda::ColumnId id = 0; id < GetInitialColCount(); ++id) {
        texts[place(id)] = row[static_cast<std::size_t>(id)];
    }
    return passedOver;
}

bool CTBMatl::IsChoiceOfRow(velda::ColumnId column, const RowTexts& texts) const {
    RowTexts row;
    for (velda::ColumnId id = 0; id < GetInitialColCount(); ++id) {
        row.push_back(texts[static_cast<std::size_t>(PositionOfColumn(id) - 1)]);
    }
    return MatlRow(row, GetDefaultCellTexts()).HasChoice(column);
}

}  // namespace zt
