#include <algorithm>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "velda_util/clip/clipboard_text.h"
#include "velda_util/clip/fill_plan.h"
#include "velda_util/clip/paste_plan.h"
#include "velda_util/clip/plan_builder.h"
#include "velda_util/formula/formula.h"
#include "velda_util/grid/tb_common.h"

namespace velda {

/// The rows of a change that passed the checks, ready to be written.
struct CTBCommon::Batch {
    /// Rows that go to the database in one transaction.
    struct Part {
        std::vector<const PlannedRow*> rows{};
        RowTexts oldKeyTexts{};
        KeyPointers keys{};
        RecordPointers records{};
    };

    Batch(CTBCommon& owner, OnRefusal choice) : table(owner), report(choice) {}
    ~Batch() {
        for (Part* part : {&added, &modified, &refused}) table.FreePasteRecords(part->keys, part->records);
    }
    Batch(const Batch&) = delete;
    Batch& operator=(const Batch&) = delete;

    CTBCommon& table;
    PasteReport report;
    Part added{};
    Part modified{};
    Part refused{};
    std::int64_t nextKey = 0;  ///< for rows that add records
    ColumnMap map{};
};

// ---- what is planned ----

CellAccess CTBCommon::AccessOf(int row, int col) const {
    if (!IsEnabled(row, col)) return CellAccess::Disabled;
    return IsReadOnly(row, col) ? CellAccess::ReadOnly : CellAccess::Editable;
}

CellAccess CTBCommon::PlannedAccessOf(int row, int col) const {
    const ColumnId column = IdOfColumn(col);
    const bool byRow = DependsOnRow(column) || MayBeEnabledByRow(column);
    return byRow && !columns_.IsLocked(column) ? CellAccess::Editable : AccessOf(row, col);
}

PlanTarget CTBCommon::PlanTargetNow() const {
    PlanTarget target{RecordRowCount(), HasAppendRow(), {}, LockedCells::Skip};
    for (int col = 1; col <= GetColCount(); ++col) target.columns.push_back({IdOfColumn(col), IsColumnHidden(col)});
    return target;
}

GridSelection CTBCommon::SelectionOf(const PositionRange& range) const {
    return {range.top, range.bottom - range.top + 1, range.left, range.right - range.left + 1};
}

// ---- checking ----

/// The texts of a row by grid column before something is changed; for a new row those that it begins with.
CTBCommon::RowTexts CTBCommon::TextsToChange(int row, bool adds, std::int64_t newKey) {
    RowTexts texts;
    for (int col = 1; col <= GetColCount(); ++col) {
        const ColumnId id = IdOfColumn(col);
        if (!adds) {
            texts.push_back(GetValueRowCol(row, col));
        } else {
            const bool isKey = id == GetKeyColID() && newKey != 0;
            texts.push_back(isKey ? FormatLong(newKey) : GetDefaultCellText(id));
        }
    }
    return texts;
}

void CTBCommon::CheckRow(const ChangePlan& plan, const PlannedRow& row, Batch& batch) {
    const bool adds = row.target == kNewRow;
    const int place = adds ? GetRowCount() : row.target;
    checkedRow_ = adds ? 0 : row.target;
    while (adds && RecordExists(static_cast<std::uint32_t>(batch.nextKey))) ++batch.nextKey;
    const RowTexts before = TextsToChange(place, adds, batch.nextKey);
    RowTexts texts = before;
    std::vector<bool> given(ColumnSlots());
    for (const PlannedCell& cell : plan.rows.Cells(row)) {
        const auto at = static_cast<std::size_t>(PositionOfColumn(cell.column) - 1);
        std::string text(plan.rows.Text(cell));
        const int col = static_cast<int>(at) + 1;
        if (!DependsOnRow(cell.column) && !ReadChoice(place, col, text)) {
            batch.report.Refuse(row, cell.column, text, ChoiceReason(place, col, text));
            return;
        }
        ConvertFormulaToValue(cell.column, text);
        texts[at] = std::move(text);
        given[at] = true;
    }
    batch.report.PassOver(AdjustGivenTexts(texts, before, given));
    for (const PlannedCell& cell : plan.rows.Cells(row)) {
        if (!DependsOnRow(cell.column) || IsChoiceOfRow(cell.column, texts)) continue;
        const int col = PositionOfColumn(cell.column);
        const std::string& text = texts[static_cast<std::size_t>(col - 1)];
        batch.report.Refuse(row, cell.column, text, ChoiceReason(place, col, text));
        return;
    }

    KeyPointers keys;
    RecordPointers records;
    std::vector<EditFinding> findings;
    bool good = false;
    {
        const FindingCollector collector(*this, findings, true);
        good = NewPasteRecord(texts, batch.map, keys, records);
    }
    Batch::Part& part = !good ? batch.refused : adds ? batch.added : batch.modified;
    part.keys.insert(part.keys.end(), keys.begin(), keys.end());
    part.records.insert(part.records.end(), records.begin(), records.end());
    if (good) {
        part.rows.push_back(&row);
        if (!adds) part.oldKeyTexts.push_back(GetKeyStringBeforeEdit(row.target));
        if (adds) ++batch.nextKey;
        return;
    }
    for (const EditFinding& finding : findings) {
        batch.report.Refuse(row, finding.column, finding.text, finding.message);
    }
    if (findings.empty()) {
        batch.report.Refuse(row, kNoPlanColumn, {}, CMsgDll::pfuncLoadStr("IDS_TB_ENGINE_EDIT_RECORD_REFUSED", 0));
    }
}

// ---- writing ----

/// Writes a run of rows in one transaction. When the database refuses it, halves of it are tried, so that only the rows
/// that it refuses stay out. Returns how many rows were written.
std::size_t CTBCommon::WriteRange(Batch& batch, bool adds, std::size_t first, std::size_t count) {
    if (count == 0) return 0;
    const Batch::Part& part = adds ? batch.added : batch.modified;
    const auto slice = [&](const auto& all) {
        using List = std::remove_cvref_t<decltype(all)>;
        const auto begin = all.begin() + static_cast<std::ptrdiff_t>(first);
        return List(begin, begin + static_cast<std::ptrdiff_t>(count));
    };
    const int done = adds ? AddRecords(slice(part.keys), slice(part.records))
                          : ModifyRecords(slice(part.oldKeyTexts), slice(part.keys), slice(part.records));
    if (done) return count;
    if (count == 1) {
        std::string reason = GetRefusalReason();
        if (reason.empty()) reason = CMsgDll::pfuncLoadStr("IDS_TB_ENGINE_EDIT_WRITE_REFUSED", 0);
        batch.report.Refuse(*part.rows[first], kNoPlanColumn, {}, std::move(reason));
        return 0;
    }
    if (!batch.report.MayWrite()) return 0;
    return WriteRange(batch, adds, first, count / 2) + WriteRange(batch, adds, first + count / 2, count - count / 2);
}

std::size_t CTBCommon::Write(Batch& batch) {
    return WriteRange(batch, false, 0, batch.modified.rows.size()) +
           WriteRange(batch, true, 0, batch.added.rows.size());
}

bool CTBCommon::Apply(const ChangePlan& plan, const char* stepKey, OnRefusal choice) {
    if (!CanSaveData()) return Told({EditRefusal::Locked});
    Batch batch(*this, choice);
    batch.report.Add(plan);
    batch.map = CurrentColumnMap();
    batch.nextKey = wtol(GetNewKeyString());
    for (const PlannedRow& row : plan.rows.Rows()) CheckRow(plan, row, batch);

    std::size_t written = 0;
    if (batch.report.MayWrite() && batch.added.rows.size() + batch.modified.rows.size() > 0) {
        const GridUpdateLock lock(*this);
        if (!BeginStep(CMsgDll::pfuncLoadStr(stepKey, 0))) {
            SetWarningText(GetRefusalReason());
            return false;
        }
        written = Write(batch);
        if (!batch.report.MayWrite()) written = 0;
        if (written == 0) {
            CancelStep();
        } else if (!EndStep()) {
            SetWarningText(GetRefusalReason());
            return false;
        }
    }
    const std::string words = batch.report.Words(written, [this](ColumnId id) { return GetTitle(id); });
    if (!words.empty()) Host().OnMessage(words);
    return written > 0;
}

// ---- the commands ----

namespace {

CGXRange CellsOf(const PositionRange& range) {
    return CGXRange(static_cast<std::uint32_t>(range.top), static_cast<std::uint32_t>(range.left),
                    static_cast<std::uint32_t>(range.bottom), static_cast<std::uint32_t>(range.right));
}

}  // namespace

bool CTBCommon::Paste(OnRefusal choice) { return PasteText(Host().GetClipboardText(), choice); }

bool CTBCommon::IsInOpenRow(const PositionRange& range) const {
    return Session().IsRowOpen() && range.top == range.bottom && RowIdAt(range.top) == Session().Row();
}

bool CTBCommon::EnterInOpenRow(const PositionRange& range, FunctionRef<std::string(int index, int col)> text) {
    int index = 0;
    for (int col = range.left; col <= range.right; ++col) {
        if (IsColumnHidden(col)) continue;
        const std::string entered = text(index++, col);
        if (AccessOf(range.top, col) != CellAccess::Editable) continue;
        if (Told(OpenSession().EnterText({RowIdAt(range.top), IdOfColumn(col)}, entered))) continue;
        SetCurrentCell(range.top, col);
        return false;
    }
    return true;
}

bool CTBCommon::PasteInOpenRow(const TextBlock& block, PositionRange range) {
    const int width = static_cast<int>(block.CellsInRow(0));
    if (width > 1) {
        const std::vector<TargetColumn> columns = VisibleColumns(PlanTargetNow(), range.left, GetColCount());
        const std::size_t last = std::min(columns.size(), block.CellsInRow(0));
        range.right = last > 0 ? columns[last - 1].position : range.left - 1;
    }
    return EnterInOpenRow(range, [&](int index, int /*col*/) {
        return std::string(block.Cell(0, static_cast<std::size_t>(width > 1 ? index : 0)));
    });
}

bool CTBCommon::HasOneRange() {
    if (!HasSeveralRanges()) return true;
    SetWarningText(CMsgDll::pfuncLoadStr("IDS_TB_ENGINE_SEVERAL_RANGES", 0));
    return false;
}

bool CTBCommon::PasteText(const std::string& text, OnRefusal choice) {
    if (!HasOneRange()) return false;
    TextBlock block;
    if (const Outcome read = ClipboardText::Read(text, block); !read) {
        SetWarningText(read.Reason());
        return false;
    }
    if (block.RowCount() == 0) return false;
    const bool inOpenRow = block.RowCount() == 1 && IsInOpenRow(CommandRange());
    if (!inOpenRow && !LeaveRow()) return false;
    const PositionRange range = CommandRange();
    if (range.bottom < range.top || !OnPasteFromClipboard(CellsOf(range))) return false;
    if (inOpenRow) return PasteInOpenRow(block, range);
    const auto access = [this](int row, int col) { return PlannedAccessOf(row, col); };
    return Apply(PlanPaste(block, SelectionOf(range), PlanTargetNow(), access), "IDS_TB_ENGINE_STEP_PASTE", choice);
}

bool CTBCommon::FillDown() {
    if (!HasOneRange()) return false;
    PositionRange range = CommandRange();
    if (IsInOpenRow(range) && range.top > 1) {
        return EnterInOpenRow(range, [&](int /*index*/, int col) { return GetValueRowCol(range.top - 1, col); });
    }
    if (!LeaveRow()) return false;
    range = CommandRange();
    if (range.bottom < range.top) return false;
    const auto access = [this](int row, int col) { return PlannedAccessOf(row, col); };
    std::string buffer;
    const auto text = [&](int row, int col) -> std::string_view { return buffer = GetValueRowCol(row, col); };
    return Apply(PlanFillDown(SelectionOf(range), PlanTargetNow(), access, text), "IDS_TB_ENGINE_STEP_FILL",
                 OnRefusal::WriteOthers);
}

bool CTBCommon::ClearCells() {
    if (!HasOneRange()) return false;
    PositionRange range = CommandRange();
    if (IsInOpenRow(range)) return EnterInOpenRow(range, [](int, int) { return std::string(); });
    if (!LeaveRow()) return false;
    range = CommandRange();
    if (range.bottom < range.top) return false;
    const auto access = [this](int row, int col) { return PlannedAccessOf(row, col); };
    return Apply(PlanClear(SelectionOf(range), PlanTargetNow(), access), "IDS_TB_ENGINE_STEP_CLEAR",
                 OnRefusal::WriteOthers);
}

bool CTBCommon::Replace(const ReplaceSettings& settings) {
    if (!HasOneRange() || !LeaveRow()) return false;
    std::optional<GridSelection> selection;
    if (!Selected().IsEmpty()) selection = SelectionOf(CommandRange());
    const auto access = [this](int row, int col) { return PlannedAccessOf(row, col); };
    std::string buffer;
    const auto text = [&](int row, int col) -> std::string_view { return buffer = ClipboardCellText(row, col); };
    const ReplacePlan replace = PlanReplace(settings, selection, PlanTargetNow(), access, text);
    if (replace.cells == 0) {
        Host().OnMessage(FormatText("IDS_TB_ENGINE_FIND_NOT_FOUND", {settings.text}));
        return false;
    }
    return Apply(replace.plan, "IDS_TB_ENGINE_STEP_REPLACE", OnRefusal::WriteOthers);
}

bool CTBCommon::ToggleChecks() {
    if (!HasOneRange()) return false;
    const PositionRange range = CommandRange();
    if (range.top == range.bottom && range.left == range.right) return ToggleCheck();
    int row = 0;
    int col = 0;
    if (!LeaveRow() || !GetCurrentCell(row, col)) return false;
    const auto access = [this](int r, int c) {
        return StyleOf(r, c).IsCheckBox() ? AccessOf(r, c) : CellAccess::Disabled;
    };
    return Apply(PlanSetValue(SelectionOf(range), PlanTargetNow(), access, InverseCheck(GetValueRowCol(row, col))),
                 "IDS_TB_ENGINE_CMD_TOGGLE_CHECK", OnRefusal::WriteOthers);
}

bool CTBCommon::DoCommand(TableCommand command) {
    switch (command) {
        case TableCommand::Paste: return Paste();
        case TableCommand::FillDown: return FillDown();
        case TableCommand::ClearCells: return ClearCells();
        case TableCommand::Cut: return Copy(false) && ClearCells();
        case TableCommand::ToggleCheck: return ToggleChecks();
        default: return CTBBrowserWndEx::DoCommand(command);
    }
}

}  // namespace velda
