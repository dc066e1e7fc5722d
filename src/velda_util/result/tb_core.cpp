#include "velda_util/result/tb_core.h"

#include <stdexcept>

#include "velda_base/host/application_host.h"
#include "velda_lib/msg_dll.h"
#include "velda_util/result/record_walk.h"

namespace velda {
namespace {

/// Row ids of rows before and after the records, which lie above those of all records.
constexpr RowId kPreRows = 0xF0000000u;
constexpr RowId kPostRows = 0xF8000000u;

}  // namespace

// ---- set up ----

void CTBCore::Initialize() {
    if (!source_) return;
    source_->Initialize(*this);
    source_->InitColHeader();
    ReadFields();
    header_.SetRowCount(static_cast<std::uint32_t>(titles_.RowCount()));
    for (int col = 1; col <= titles_.ColCount(); ++col) {
        const int slot = fields_.SlotOf(col, 1);
        const auto& field = slot < 0 ? RecordField{} : fields_.Fields()[static_cast<std::size_t>(slot)];
        columns_.AddColInfo(field.title, field.type, field.unitKind);
    }
    PutTitles();
    source_->UserDefinedInit();
}

void CTBCore::ReadFields() {
    fields_.Clear();
    styleCtrl_.Clear();
    source_->InitRecFields();
    fields_.EndAdd();
    PutFactors();
}

void CTBCore::FieldsChanged() {
    ReadFields();
    records_.ForgetCells();
}

void CTBCore::UpdateLanguage() {
    if (!source_) return;
    const GridUpdateLock lock(*this);
    source_->InitColHeader();
    ReadFields();
    for (const RecordField& field : fields_.Fields()) columns_.SetTitle(field.fieldNo - 1, field.title);
    PutTitles();
    source_->UpdateLanguage();
    records_.DisplayRecords();
}

void CTBCore::PutFactors() {
    for (std::size_t slot = 0; slot < fields_.Fields().size(); ++slot) {
        fields_.FieldAt(slot).factor = source_->GetUnitFactor(fields_.Fields()[slot].unitKind);
    }
}

void CTBCore::PutTitles() {
    header_.Clear();
    header_.SetRowCount(static_cast<std::uint32_t>(titles_.RowCount()));
    for (int row = 1; row <= titles_.RowCount(); ++row) {
        for (int col = 1; col <= titles_.ColCount(); ++col) {
            const HeaderTitle& title = titles_.At(row, col);
            if (title.text.empty()) continue;
            const std::string unit = source_->GetUnitText(title.unitKind);
            header_.SetTitle(static_cast<std::uint32_t>(row - 1), static_cast<std::uint32_t>(col - 1),
                             unit.empty() ? title.text : title.text + " (" + unit + ")");
        }
    }
    for (const CTBColHdr::Group& group : titles_.Groups()) {
        std::vector<std::uint32_t> ids;
        for (auto col = group.cells.Left(); col <= group.cells.Right(); ++col) ids.push_back(col - 1);
        static_cast<void>(header_.SetGroup(group.cells.Top() - 1, group.cells.Bottom() - 1, ids, group.text));
    }
}

void CTBCore::ApplyPreference(const std::string& name) {
    SetTableName(name);
    ApplyColumnPreferences();
    ApplyLayout();
}

void CTBCore::ApplyColumnPreferences() {
    std::vector<STBPrefItem> items = GetPrefInfo(GetTableName());
    if (source_) source_->AdjustDynPreference(items);
    PutColumnPreferences(items);
}

// ---- rows before and after the records ----

bool CTBCore::GetPreRecRange(int& first, int& last) const {
    first = 1;
    last = records_.PreRows();
    return last >= first;
}

bool CTBCore::GetPostRecRange(int& first, int& last) const {
    first = records_.FirstPostRow();
    last = records_.RowCount();
    return last >= first;
}

void CTBCore::SetValueRange(int row, int col, std::string text) {
    RequireRow(row);
    if (!IsAround(row)) throw std::invalid_argument("texts of records come from their source");
    around_[{RowIdAt(row), IdOfColumn(col)}] = std::move(text);
}

void CTBCore::JoinCells(int row, int firstCol, int lastCol) {
    static_cast<void>(SetCoveredCellsRowCol(row, firstCol, row, lastCol));
}

void CTBCore::ClearRowsAround() {
    around_.clear();
    merged_.Clear();
    styles_.ClearRows();
    ForgetRowHeights();
}

// ---- values ----

std::string CTBCore::GetValueRowCol(int row, int col) const {
    RequireRow(row);
    const ColumnId column = IdOfColumn(col);
    if (!IsAround(row)) {
        const RecordCell* cell = records_.CellAt(row, col);
        return cell ? cell->Text() : std::string();
    }
    const auto found = around_.find({RowIdAt(row), column});
    return found == around_.end() ? std::string() : found->second;
}

void CTBCore::GetStyleRowCol(int row, int col, CGXStyle& style) const {
    if (!IsAround(row)) source_->CustomizeCell(row, col, style);
}

RowId CTBCore::RowIdAt(int row) const {
    if (row < 1 || row > records_.RowCount()) return kNoRow;
    if (row <= records_.PreRows()) return kPreRows + static_cast<RowId>(row - 1);
    if (row >= records_.FirstPostRow()) return kPostRows + static_cast<RowId>(row - records_.FirstPostRow());
    const auto rows = static_cast<RowId>(fields_.RowsOfRecord());
    return static_cast<RowId>(records_.GetRecNo(row) - 1) * rows + static_cast<RowId>(records_.GetRecRow(row) - 1);
}

int CTBCore::PositionOfRow(RowId row) const {
    if (row == kNoRow) return 0;
    if (row >= kPreRows) {
        const bool isPre = row < kPostRows;
        const int position =
            isPre ? static_cast<int>(row - kPreRows) + 1 : static_cast<int>(row - kPostRows) + records_.FirstPostRow();
        return position <= (isPre ? records_.PreRows() : records_.RowCount()) ? position : 0;
    }
    const auto rows = static_cast<RowId>(fields_.RowsOfRecord());
    const int first = records_.RowOfRecord(static_cast<long>(row / rows) + 1);
    return first == 0 ? 0 : first + static_cast<int>(row % rows);
}

// ---- what the user does ----

bool CTBCore::DoCommand(TableCommand command) {
    if (source_ && (command == TableCommand::Copy || command == TableCommand::CopyWithHeaders)) source_->OnBeforeCopy();
    return CTBGrid::DoCommand(command);
}

bool CTBCore::SetCurrentCell(int row, int col, int flags) {
    if (!CTBGrid::SetCurrentCell(row, col, flags)) return false;
    if (onSelection) onSelection();
    return true;
}

void CTBCore::ClickCell(int row, int col) {
    if (!source_) return;
    const ControlKind control = StyleOf(row, col).GetControl();
    if (control == ControlKind::StaticText && !IsAround(row)) return;
    if (control == ControlKind::DropDownList && IsAround(row)) ChooseFromList(row, col);
    source_->OnEvent({T_TB_EVENT_D::kClick, static_cast<std::uint32_t>(row), static_cast<std::uint32_t>(col)});
}

void CTBCore::ChooseFromList(int row, int col) {
    const ChoiceList choices = StyleOf(row, col).GetChoices();
    CMenu menu;
    for (std::size_t line = 0; line < choices.Count(); ++line) {
        menu.Append(static_cast<int>(line) + 1, std::string(choices.Text(line)));
    }
    const WindowPoint place = CellMiddle({row, col}).value_or(WindowPoint{});
    const int chosen = ApplicationHost::Current().GetMenus().Track(menu, nullptr, place);
    if (chosen == 0) return;
    SetValueRange(row, col, std::string(choices.Text(static_cast<std::size_t>(chosen - 1))));
    Redraw();
}

void CTBCore::UpdateUnit() {
    if (!source_) return;
    const GridUpdateLock lock(*this);
    PutFactors();
    PutTitles();
    source_->UpdateUnit();
    records_.DisplayRecords();
}

std::string CTBCore::GetTitle(ColumnId column) const {
    const std::string& title = titles_.GetTitleString(titles_.RowCount(), column + 1);
    return title.empty() ? CTBGrid::GetTitle(column) : title;
}

std::string CTBCore::GetUnitText(ColumnId column) const {
    return source_ ? source_->GetUnitText(Columns().Info(column).unitCode) : std::string();
}

FindResult CTBCore::Search(const STBFindStruct& find, const FindArea& area) const {
    constexpr int kRowsBetween = 4'096;
    if (area.rowCount <= kRowsBetween) return CTBGrid::Search(find, area);
    Progress progress(CMsgDll::pfuncLoadStr("IDS_TB_ENGINE_SEARCHING", 0), area.rowCount / kRowsBetween + 1);
    int searched = 0;
    bool goesOn = true;
    std::string buffer;
    const auto text = [&](int row, int col) -> std::string_view { return buffer = ClipboardCellText(row, col); };
    return FindText(find, area, text, [&](int) {
        if (goesOn && ++searched % kRowsBetween == 0) goesOn = progress.Step(searched / kRowsBetween);
        return goesOn;
    });
}

}  // namespace velda
