#include "velda_util/grid/browser_edit_host.h"

#include "velda_util/formula/formula.h"
#include "velda_util/grid/tb_browser_wnd.h"

namespace velda {
namespace {

Outcome OutcomeOf(bool done, const CTBBrowserWnd& browser) {
    return done ? Outcome::Done() : Outcome::Refused(browser.GetRefusalReason());
}

}  // namespace

GridPosition BrowserEditHost::Place(CellId cell) const {
    return {browser_.PositionOfRow(cell.row), browser_.PositionOfColumn(cell.column)};
}

bool BrowserEditHost::CanEditCell(CellId cell) const {
    const GridPosition place = Place(cell);
    if (!place.IsValid() || (cell.row == kAppendRow && !browser_.HasAppendRow())) return false;
    return browser_.CanEnter(place) && !browser_.IsReadOnly(place.row, place.column);
}

bool BrowserEditHost::IsNewRow(RowId row) const {
    return row == kAppendRow || (row == kInsertedRow && browser_.insertedAt_ > 0);
}

std::string BrowserEditHost::EditText(CellId cell) const {
    std::string text = browser_.LiveText(cell.row, cell.column);
    const auto typed = browser_.typedFormulas_.find(cell.column);
    if (cell.row == browser_.edit_.row && typed != browser_.typedFormulas_.end() && typed->second.value == text) {
        return typed->second.expression;
    }
    if (IsNewRowId(cell.row)) return text;
    const auto found = browser_.formulas_.find({browser_.rows_.KeyOf(cell.row), cell.column});
    return found != browser_.formulas_.end() && found->second.value == text ? found->second.expression : text;
}

void BrowserEditHost::StoreCellText(CellId cell, const std::string& text) {
    const GridPosition place = Place(cell);
    std::string value = text;
    browser_.ReadChoice(place.row, place.column, value);
    browser_.typedFormulas_.erase(cell.column);
    if (browser_.IsNumericColumn(cell.column) && IsFormula(value)) {
        const std::string expression = value;
        browser_.ConvertFormulaToValue(cell.column, value);
        browser_.typedFormulas_[cell.column] = {expression, value};
    }
    browser_.edit_.live[static_cast<std::size_t>(cell.column)] = std::move(value);
}

void BrowserEditHost::TakeBeforeEditCopy(RowId row) {
    browser_.edit_ = {row, browser_.TextsOf(row), browser_.TextsOf(row)};
    if (IsNewRowId(row)) browser_.edit_.live = browser_.NewRowTexts();
    browser_.typedFormulas_.clear();
}

void BrowserEditHost::DropBeforeEditCopy() {
    const RowId row = std::exchange(browser_.edit_, {}).row;
    if (row == kInsertedRow) browser_.insertedAt_ = 0;
    if (row == kAppendRow) browser_.AppendChanged();
    browser_.typedFormulas_.clear();
    browser_.listOpen_ = false;
    browser_.OnRowClosed();
}

void BrowserEditHost::SetRowInEdit(bool inEdit) {
    browser_.rowInEdit_ = inEdit;
    if (!inEdit) browser_.SortWhenClosed();
}

bool BrowserEditHost::OnStartEditing(CellId cell) {
    const GridPosition place = Place(cell);
    browser_.rowEntry_.Begin(cell);
    return browser_.OnStartEditing(place.row, place.column);
}

void BrowserEditHost::OnModifyCell(CellId cell, const std::string& /*text*/) {
    const GridPosition place = Place(cell);
    browser_.OnModifyCell(place.row, place.column);
}

bool BrowserEditHost::OnValidateField(CellId cell, const std::string& text, std::vector<EditFinding>& findings) {
    const GridPosition place = Place(cell);
    std::string value = text;
    if (!browser_.ReadChoice(place.row, place.column, value)) {
        const std::string reason = browser_.ChoiceReason(place.row, place.column, text);
        findings.push_back({cell.row, cell.column, EditRule::Field, text, reason});
        browser_.SetWarningText(browser_.GetTitle(cell.column) + ": " + reason);
        return false;
    }
    CTBBrowserWnd::FindingCollector collector(browser_, findings, false);
    const bool valid = browser_.OnValidateField(place.row, place.column);
    for (EditFinding& finding : findings) finding.row = cell.row;
    return valid;
}

void BrowserEditHost::OnEndEditing(CellId cell) {
    const GridPosition place = Place(cell);
    browser_.listOpen_ = false;
    browser_.OnEndEditing(place.row, place.column);
}

void BrowserEditHost::OnCanceledEditing(CellId cell) {
    const GridPosition place = Place(cell);
    browser_.listOpen_ = false;
    if (place.IsValid()) browser_.OnCanceledEditing(place.row, place.column);
}

bool BrowserEditHost::OnValidateRecord(RowId row, std::vector<EditFinding>& findings) {
    CTBBrowserWnd::FindingCollector collector(browser_, findings, false);
    const bool valid = browser_.OnValidateRecord(browser_.PositionOfRow(row));
    for (EditFinding& finding : findings) finding.row = row;
    return valid;
}

Outcome BrowserEditHost::OnAddNewRecord(RowId row) {
    browser_.lastCome_ = 0;
    const bool done = browser_.OnAddNewRecord(browser_.PositionOfRow(row));
    if (done && browser_.lastCome_ != 0) {
        const RowId written = browser_.rows_.RowOfKey(browser_.lastCome_);
        browser_.RememberFormulas(written);
        if (row == kInsertedRow && written != kNoRow) browser_.current_.RowReplaced(row, written);
    }
    return OutcomeOf(done, browser_);
}

Outcome BrowserEditHost::OnModifyRecord(RowId row) {
    const bool done = browser_.OnModifyRecord(browser_.PositionOfRow(row));
    if (done) browser_.RememberFormulas(browser_.session_.Row());
    return OutcomeOf(done, browser_);
}

void BrowserEditHost::OnCanceledAddNew(RowId row) {
    browser_.edit_ = {};
    if (row == kInsertedRow) browser_.insertedAt_ = 0;
    browser_.OnCanceledAddNew();
}

void BrowserEditHost::OnCanceledModify(RowId /*row*/) {
    browser_.edit_.live = browser_.edit_.before;
    browser_.OnCanceledModify();
}

std::optional<RowId> BrowserEditHost::OnInsertEmptyRecord(RowId row) {
    const int place = browser_.PositionOfRow(row);
    if (place < 1 || !browser_.CanInsertRowByPressingKey() || !browser_.InsertRecord(place)) return std::nullopt;
    browser_.OnInsertEmptyRecord(place);
    return kInsertedRow;
}

Outcome BrowserEditHost::DeleteSelectedRecords() {
    std::vector<int> rows;
    for (const RowId row : browser_.Selected().WholeRowIds(browser_)) rows.push_back(browser_.PositionOfRow(row));
    if (rows.empty() || !browser_.CanDeleteRecords(rows)) return Outcome::Done();
    return OutcomeOf(browser_.OnDeleteRecords(rows), browser_);
}

std::string BrowserEditHost::TextInCurrentUnits(ColumnId column, const std::string& text) const {
    if (!browser_.unitsSwitched_ || column == kNoColumn) return text;
    std::vector<std::string> texts = browser_.edit_.live;
    texts[static_cast<std::size_t>(column)] = text;
    browser_.ConvertTypedTexts(texts);
    return texts[static_cast<std::size_t>(column)];
}

std::vector<ColumnId> BrowserEditHost::RebaseRowInEdit(RowId row, const std::vector<EditedCell>& edits) {
    const RowInEdit old = browser_.edit_;
    std::vector<std::string> typed = old.live;
    if (browser_.unitsSwitched_) browser_.ConvertTypedTexts(typed);
    browser_.edit_.row = kNoRow;
    const std::vector<std::string> stored = browser_.TextsOf(row);
    browser_.edit_ = {row, stored, stored};
    std::vector<ColumnId> changed;
    for (std::size_t at = 0; at < stored.size(); ++at) {
        // What the user or a dependency of his text changed stays.
        const bool byRow = browser_.unitsSwitched_ && browser_.HasUnitOfRow(static_cast<ColumnId>(at));
        if (byRow || old.live[at] != old.before[at]) browser_.edit_.live[at] = typed[at];
    }
    for (const EditedCell& edit : edits) {
        const auto at = static_cast<std::size_t>(edit.column);
        if (!browser_.unitsSwitched_ && old.before[at] != stored[at]) changed.push_back(edit.column);
    }
    return changed;
}

void BrowserEditHost::OnEditLost(const LostEdit& edit) {
    std::string text = edit.message;
    for (const EditedCell& cell : edit.cells) text += "\n" + browser_.GetTitle(cell.column) + ": " + cell.text;
    browser_.Host().OnMessage(text);
}

}  // namespace velda
