#include "velda_util/grid/tb_browser_wnd_ex.h"

#include <algorithm>

#include "velda_lib/flat_index.h"
#include "velda_lib/number_text.h"

namespace velda {

// ---- columns ----

ColumnId CTBBrowserWndEx::AddColInfo(std::string title, ColumnType type, int unitCode) {
    return columns_.AddColInfo(std::move(title), type, unitCode);
}

// ---- order of the rows ----

void CTBBrowserWndEx::SortTable(std::vector<STBSortItem> sortInfo) {
    sortInfo_ = sortInfo;
    SortRows(std::move(sortInfo));
}

bool CTBBrowserWndEx::Sort(const std::vector<STBSortItem>& items) {
    if (!LeaveRow()) return false;
    const GridUpdateLock lock(*this);
    SortTable(items);
    return true;
}

bool CTBBrowserWndEx::FindRecordByKey(const std::vector<std::string>& keyTexts, int& row, std::uint32_t key) const {
    return Rows().FindRecordByKey(keyTexts, key, row);
}

// ---- what is shown ----

void CTBBrowserWndEx::ReplayRecords(const RowChanges& changes) {
    ReplayRows(changes, [this](std::uint32_t key, CGXData& data, RowId row) { WriteRecordCells(key, data, row); });
}

bool CTBBrowserWndEx::MatchesFilter(RowId row) const {
    const int position = PositionOfRow(row);
    return std::all_of(filter_->texts.begin(), filter_->texts.end(), [&](const auto& wanted) {
        TextMatcher matcher(wanted.second, false);
        return matcher.IsIn(GetShownText(position, PositionOfColumn(wanted.first)));
    });
}

bool CTBBrowserWndEx::FilterColumn(ColumnId column, const std::string& text) {
    if (!LeaveRow()) return false;
    const GridUpdateLock lock(*this);
    std::map<ColumnId, std::string> texts = filter_ ? filter_->texts : std::map<ColumnId, std::string>();
    texts[column] = text;
    if (text.empty()) texts.erase(column);
    ShowFilteredRows();
    if (texts.empty()) return true;
    filter_ = ColumnFilters{std::move(texts), {}};
    RowChanges changes;
    for (const std::uint32_t key : ShownKeys()) {
        if (!MatchesFilter(Rows().RowOfKey(key))) changes.gone.push_back(key);
    }
    filter_->hidden = changes.gone;
    ReplayRecords(changes);
    return true;
}

std::vector<std::uint32_t> CTBBrowserWndEx::FilledKeys() const {
    std::vector<std::uint32_t> keys = ShownKeys();
    if (filter_) keys.insert(keys.end(), filter_->hidden.begin(), filter_->hidden.end());
    return keys;
}

std::string CTBBrowserWndEx::FilterTextOf(ColumnId column) const {
    if (!filter_) return {};
    const auto found = filter_->texts.find(column);
    return found == filter_->texts.end() ? std::string() : found->second;
}

void CTBBrowserWndEx::ShowFilteredRows() {
    if (!filter_) return;
    RowChanges changes;
    for (const std::uint32_t key : filter_->hidden) {
        if (RecordExists(key)) changes.come.push_back(key);
    }
    filter_.reset();
    ReplayRecords(changes);
}

bool CTBBrowserWndEx::RemoveFilter() {
    if (!LeaveRow()) return false;
    if (!filter_) return true;
    const GridUpdateLock lock(*this);
    ShowFilteredRows();
    return true;
}

void CTBBrowserWndEx::ReplayFiltered(const RowChanges& changes) {
    if (!filter_) {
        ReplayRecords(changes);
        return;
    }
    FlatIndex touched;
    for (const std::uint32_t key : changes.gone) touched.Put(key, 1);
    for (const std::uint32_t key : changes.come) touched.Put(key, 1);
    std::erase_if(filter_->hidden, [&](std::uint32_t key) { return touched.Contains(key); });
    FlatIndex shown;
    for (const std::uint32_t key : changes.come) {
        if (Rows().RowOfKey(key) != kNoRow) shown.Put(key, 1);
    }
    for (const RowChanges::Rekeyed& pair : changes.rekeyed) {
        if (Rows().RowOfKey(pair.from) != kNoRow) shown.Put(pair.to, 1);
    }
    ReplayRecords(changes);
    RowChanges unmatched;
    for (const std::uint32_t key : changes.come) {
        if (!shown.Contains(key) && !MatchesFilter(Rows().RowOfKey(key))) unmatched.gone.push_back(key);
    }
    if (unmatched.IsEmpty()) return;
    filter_->hidden.insert(filter_->hidden.end(), unmatched.gone.begin(), unmatched.gone.end());
    ReplayRecords(unmatched);
}

// ---- selection ----

std::vector<std::uint32_t> CTBBrowserWndEx::GetKeysForSelectedRows() const {
    std::vector<std::uint32_t> keys;
    for (const RowId row : Selected().WholeRowIds(*this)) {
        const auto key = static_cast<std::uint32_t>(wtol(GetKeyString(PositionOfRow(row))));
        if (key != 0) keys.push_back(key);
    }
    return keys;
}

void CTBBrowserWndEx::OnChangedSelection() {
    const std::vector<std::uint32_t> keys = GetKeysForSelectedRows();
    OnChangedSelectionPublic(keys.data(), static_cast<int>(keys.size()));
}

void CTBBrowserWndEx::ShowSelected() {
    std::vector<std::uint32_t> keys;
    GetSelectedKeys(keys);
    const std::vector<RowId> rows = RowsOfKeys(keys);
    // Selected cells and columns are no rows of stored keys.
    if (!rows.empty() || selection_.IsOfRows()) selection_.SelectRows(*this, rows);
}

std::vector<RowId> CTBBrowserWndEx::RowsOfKeys(std::span<const std::uint32_t> keys) const {
    std::vector<RowId> rows;
    for (const std::uint32_t key : keys) {
        if (const RowId row = Rows().RowOfKey(key); row != kNoRow) rows.push_back(row);
    }
    return rows;
}

void CTBBrowserWndEx::OnRowsMoved() {
    if (selection_.IsEmpty()) return;
    if (selection_.IsOfRows()) {
        ShowSelected();
    } else if (current_.IsExtended()) {
        selection_.Select(PositionRange::Of(current_.Position(*this), current_.ExtentPosition(*this)));
    } else if (!selection_.IsOfColumns()) {
        selection_.Clear();
    }
}

void CTBBrowserWndEx::SelectKeys(std::span<const std::uint32_t> keys) {
    selection_.SelectRows(*this, RowsOfKeys(keys));
    OnChangedSelection();
}

// ---- preferences and titles ----

void CTBBrowserWndEx::ApplyColumnPreferences() { PutColumnPreferences(GetPrefInfo(GetTableName())); }

void CTBBrowserWndEx::ApplyPreference() {
    ConfigureRows(GetKeyColID(), sortInfo_);
    ApplyColumnPreferences();
    ApplyLayout();
    SetHeaderTitle(0, 0);
}

void CTBBrowserWndEx::SetHeaderTitle(int /*flagA*/, int flagB) {
    std::vector<int> numbers;
    for (int number = 1; number <= columns_.Count(); ++number) numbers.push_back(number);
    SetHeaderTitle(numbers, flagB);
}

void CTBBrowserWndEx::SetHeaderTitle(std::span<const int> colNumbers, int /*flag*/) {
    for (const int number : colNumbers) {
        const ColumnId id = IdOfColumn(number);
        const std::string unit = GetUnitText(id);
        header_.SetTitle(0, static_cast<std::uint32_t>(id),
                         unit.empty() ? GetTitle(id) : GetTitle(id) + " (" + unit + ")");
    }
}

}  // namespace velda
