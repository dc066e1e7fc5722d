#include "velda_util/rows/record_rows.h"

#include <algorithm>

namespace velda {

void RecordRows::Configure(std::vector<ColumnType> types, int keyColumn, std::vector<STBSortItem> sort) {
    types_ = std::move(types);
    keyColumn_ = keyColumn;
    data_.Reset(static_cast<int>(types_.size()));
    rowOfKey_.Clear();
    keys_.clear();
    SetSort(std::move(sort));
}

int RecordRows::PositionOf(RowId row) const {
    return data_.Order().Contains(row) ? static_cast<int>(data_.Order().PositionOf(row)) + 1 : 0;
}

RowId RecordRows::RowOfKey(std::uint32_t key) const {
    const std::uint32_t row = rowOfKey_.Find(key);
    return row == FlatIndex::kNone ? kNoRow : row;
}

RowId RecordRows::NewRow(std::uint32_t key, const WriteCells& write) {
    const RowId row = data_.NewRow();
    if (row >= keys_.size()) keys_.resize(row + 1, 0);
    keys_[row] = key;
    rowOfKey_.Put(key, row);
    write(key, data_, row);
    return row;
}

bool RecordRows::StandsBefore(RowId a, RowId b) const {
    const int order = comparison_->Compare(a, b);
    return order != 0 ? order < 0 : keys_[a] < keys_[b];
}

void RecordRows::SortIds(std::vector<RowId>& rows) const {
    const auto byKey = [this](RowId a, RowId b) { return keys_[a] < keys_[b]; };
    if (!std::is_sorted(rows.begin(), rows.end(), byKey)) std::sort(rows.begin(), rows.end(), byKey);
    comparison_->Sort(rows);
}

void RecordRows::Fill(std::span<const std::uint32_t> keys, const WriteCells& write) {
    data_.Reset(static_cast<int>(types_.size()));
    data_.ReserveRows(keys.size());
    rowOfKey_.Clear();
    rowOfKey_.Reserve(keys.size());
    keys_.assign(keys.size(), 0);
    std::vector<RowId> rows;
    rows.reserve(keys.size());
    for (const std::uint32_t key : keys) rows.push_back(NewRow(key, write));
    SortIds(rows);
    data_.Order().Assign(rows);
}

bool RecordRows::FindRecordByKey(std::span<const std::string> keyTexts, std::uint32_t key, int& position) const {
    const RowComparison::Key wanted = comparison_->ReadKey(keyTexts);
    const std::size_t count = data_.Order().Count();
    const std::size_t first = comparison_->LowerBound(wanted);
    position = static_cast<int>(first) + 1;
    if (first == count || comparison_->Compare(data_.Order().At(first), wanted) != 0) return false;
    const RowId own = RowOfKey(key);
    if (own != kNoRow && comparison_->Compare(own, wanted) == 0) position = PositionOf(own);
    return true;
}

// ---- changes ----

void RecordRows::PutInPlace(RowId row) {
    RowOrder& order = data_.Order();
    const std::size_t place =
        FirstWhereNot(0, order.Count(), [&](std::size_t at) { return StandsBefore(order.At(at), row); });
    order.Insert(place, row);
}

std::vector<RowId> RecordRows::Replay(std::span<const std::uint32_t> gone, std::span<const std::uint32_t> come,
                                      const WriteCells& write) {
    std::vector<RowId> removed;
    const auto leave = [&](std::uint32_t key) {
        const RowId row = RowOfKey(key);
        if (row == kNoRow) return;
        removed.push_back(row);
        rowOfKey_.Erase(key);
    };
    for (const std::uint32_t key : gone) leave(key);
    for (const std::uint32_t key : come) leave(key);
    std::vector<RowId> added;
    for (const std::uint32_t key : come) added.push_back(NewRow(key, write));

    // The rows that leave keep their keys until they are out of the order, which is also that of the keys.
    if (removed.size() + added.size() <= kFewChanges) {
        for (const RowId row : removed) data_.RemoveRow(row);
        for (const RowId row : added) PutInPlace(row);
    } else {
        Merge(removed, std::move(added));
    }
    for (const RowId row : removed) keys_[row] = 0;
    return removed;
}

void RecordRows::Merge(std::span<const RowId> removed, std::vector<RowId> added) {
    SortIds(added);
    std::vector<RowOrder::Arrival> arrivals;
    arrivals.reserve(added.size());
    const RowOrder& order = data_.Order();
    const std::size_t expected = std::max<std::size_t>(order.Count() / std::max<std::size_t>(added.size(), 1), 1);
    std::size_t place = 0;
    for (const RowId row : added) {
        const auto before = [&](std::size_t at) { return StandsBefore(order.At(at), row); };
        place = FirstWhereNotBehind(place, order.Count(), before, expected);
        arrivals.push_back({place, row});
    }
    data_.MergeRows(removed, arrivals);
}

void RecordRows::RemoveRow(int position) {
    const RowId row = IdAt(position);
    rowOfKey_.Erase(keys_[row]);
    data_.RemoveRow(row);
    keys_[row] = 0;
}

void RecordRows::SortTable() {
    std::vector<RowId> rows = data_.Order().ToVector();
    SortIds(rows);
    data_.Order().Assign(rows);
}

void RecordRows::SetSort(std::vector<STBSortItem> sort) {
    if (sort.empty()) sort.push_back({keyColumn_, 0, 0});
    comparison_.emplace(data_, std::move(sort), types_);
}

int RecordRows::Replace(RowId row) {
    data_.Order().Remove(row);
    PutInPlace(row);
    return PositionOf(row);
}

std::size_t RecordRows::MemoryBytes() const {
    return data_.MemoryBytes() + rowOfKey_.MemoryBytes() + keys_.capacity() * sizeof(std::uint32_t);
}

}  // namespace velda
