#include "velda_util/cells/cell_data.h"

#include <algorithm>

#include "velda_lib/number_text.h"

namespace velda {
namespace {

constexpr std::size_t kSmallPool = 65536;

/// Whether a text can be the "%.15g" form of a number, by its first character: spares most texts the attempt.
bool MayBeNumber(std::string_view text) {
    return !text.empty() && (text[0] == '-' || (text[0] >= '0' && text[0] <= '9')) && text.size() <= 24;
}

}  // namespace

void CGXData::Reset(int columnCount) {
    columnCount_ = static_cast<std::size_t>(std::max(columnCount, 0));
    blocks_.clear();
    used_.clear();
    removed_.clear();
    free_.clear();
    order_.Clear();
    pool_ = {};
    compactAt_ = kSmallPool;
}

void CGXData::ReserveRows(std::size_t count) {
    used_.reserve(count);
    while (blocks_.size() * kBlockRows < count) AddBlock();
}

void CGXData::AddBlock() { blocks_.push_back(std::make_unique<CellValue[]>(kBlockRows * columnCount_)); }

void CGXData::EmptyRow(RowId row) { std::fill_n(CellsOf(row), columnCount_, CellValue{}); }

RowId CGXData::NewRow() {
    if (!free_.empty()) {
        const RowId row = free_.back();
        free_.pop_back();
        used_[row] = true;
        return row;
    }
    if (used_.size() == blocks_.size() * kBlockRows) AddBlock();
    used_.push_back(true);
    return static_cast<RowId>(used_.size() - 1);
}

void CGXData::RemoveRow(RowId row) {
    if (!HasRow(row)) return;
    order_.Remove(row);
    EmptyRow(row);
    used_[row] = false;
    removed_.push_back(row);
}

void CGXData::MergeRows(std::span<const RowId> removed, std::span<const RowOrder::Arrival> added) {
    order_.Merge(removed, added);
    for (const RowId row : removed) {
        used_[row] = false;
        EmptyRow(row);
        removed_.push_back(row);
    }
}

void CGXData::RecycleRows() {
    free_.insert(free_.end(), removed_.begin(), removed_.end());
    removed_.clear();
}

CellValue CGXData::ValueOf(std::string_view text, bool numeric) {
    if (numeric && MayBeNumber(text)) {
        double value = 0.0;
        if (ReadWholeDouble(text, value) && std::isfinite(value) && FormatDouble(value) == text) {
            return CellValue::OfNumber(value);
        }
    }
    if (const auto shortText = CellValue::OfShort(text)) return *shortText;
    if (pool_.Count() >= compactAt_) CompactPool();
    return CellValue::OfPooled(pool_.Put(text));
}

void CGXData::StoreText(RowId row, int column, std::string_view text, bool numeric) {
    CellsOf(row)[column] = ValueOf(text, numeric);
}

void CGXData::StoreNumber(RowId row, int column, double value) {
    const bool finite = std::isfinite(value);
    CellsOf(row)[column] = finite ? CellValue::OfNumber(RoundToShown(value)) : ValueOf(FormatDouble(value), false);
}

void CGXData::StoreValueRowCol(int row, int column, std::string_view text, bool numeric) {
    StoreText(order_.At(static_cast<std::size_t>(row - 1)), column - 1, text, numeric);
}

std::string CGXData::Text(RowId row, int column) const {
    std::string text;
    AppendText(row, column, text);
    return text;
}

void CGXData::AppendText(RowId row, int column, std::string& text) const {
    const CellValue value = Value(row, column);
    if (value.IsNumber()) {
        text += FormatDouble(value.Number());
    } else if (value.IsPooled()) {
        text += pool_.Get(value.PoolNumber());
    } else {
        char bytes[CellValue::kShortBytes];
        text.append(bytes, value.ShortText(bytes));
    }
}

double CGXData::Number(RowId row, int column) const {
    const CellValue value = Value(row, column);
    return value.IsNumber() ? value.Number() : wtof(Text(row, column));
}

// Texts that no cell holds any more stay in the pool until it has grown to twice what was in use.
void CGXData::CompactPool() {
    TextPool kept;
    for (RowId row = 0; row < used_.size(); ++row) {
        CellValue* cells = CellsOf(row);
        for (std::size_t column = 0; column < columnCount_; ++column) {
            if (!cells[column].IsPooled()) continue;
            cells[column] = CellValue::OfPooled(kept.Put(pool_.Get(cells[column].PoolNumber())));
        }
    }
    pool_ = std::move(kept);
    compactAt_ = std::max(kSmallPool, pool_.Count() * 2);
}

std::size_t CGXData::MemoryBytes() const {
    return used_.capacity() / 8 + pool_.MemoryBytes() + order_.MemoryBytes() +
           blocks_.size() * kBlockRows * columnCount_ * sizeof(CellValue);
}

}  // namespace velda
