#include "velda_util/style/merged_cells.h"

#include <algorithm>
#include <stdexcept>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"

namespace velda {
namespace {

/// First of the merges of a column that ends at or below `row`.
template <class Column>
auto FirstNotAbove(Column& column, std::uint32_t row) {
    return std::lower_bound(column.begin(), column.end(), row,
                            [](const CGXRange& merge, std::uint32_t at) { return merge.Bottom() < at; });
}

CGXRange WithRows(const CGXRange& merge, std::uint32_t top, std::uint32_t bottom) {
    return {top, merge.Left(), bottom, merge.Right()};
}

Outcome RefusedFor(const CGXRange& merge) {
    return Outcome::Refused(FormatText(
        "IDS_TB_ENGINE_MERGE_OVERLAPS",
        {FormatLong(merge.Top()), FormatLong(merge.Bottom()), FormatLong(merge.Left()), FormatLong(merge.Right())}));
}

}  // namespace

Outcome MergedCells::Add(const CGXRange& cells) {
    if (cells.IsEmpty() || !cells.IsBounded() || cells.Right() >= kMaxColumns) {
        throw std::invalid_argument("only a range within the grid can be merged");
    }
    if (const auto overlap = FirstOverlap(cells)) return *overlap == cells ? Outcome::Done() : RefusedFor(*overlap);
    if (cells.CellCount() == 1) return Outcome::Done();
    for (std::uint32_t col = cells.Left(); col <= cells.Right(); ++col) {
        Column& column = columns_[col];
        column.insert(FirstNotAbove(column, cells.Top()), cells);
    }
    return Outcome::Done();
}

bool MergedCells::Remove(std::uint32_t row, std::uint32_t col) {
    const std::optional<CGXRange> merge = Find(row, col);
    if (!merge) return false;
    for (std::uint32_t at = merge->Left(); at <= merge->Right(); ++at) {
        const auto column = columns_.find(at);
        column->second.erase(FirstNotAbove(column->second, row));
        if (column->second.empty()) columns_.erase(column);
    }
    return true;
}

std::optional<CGXRange> MergedCells::Find(std::uint32_t row, std::uint32_t col) const {
    return FirstOverlap({row, col});
}

std::optional<CGXRange> MergedCells::FirstOverlap(const CGXRange& cells) const {
    const auto end = columns_.upper_bound(cells.Right());
    for (auto column = columns_.lower_bound(cells.Left()); column != end; ++column) {
        const auto merge = FirstNotAbove(column->second, cells.Top());
        if (merge != column->second.end() && merge->Top() <= cells.Bottom()) return *merge;
    }
    return std::nullopt;
}

template <class Shift>
void MergedCells::ShiftAll(Shift shift) {
    for (auto column = columns_.begin(); column != columns_.end();) {
        for (CGXRange& merge : column->second) merge = shift(merge);
        std::erase_if(column->second, [](const CGXRange& merge) { return merge.IsEmpty(); });
        column = column->second.empty() ? columns_.erase(column) : std::next(column);
    }
}

void MergedCells::InsertRows(std::uint32_t row, std::uint32_t count) {
    ShiftAll([=](const CGXRange& merge) {
        const auto shifted = [=](std::uint32_t at) { return at < row ? at : at + count; };
        return WithRows(merge, shifted(merge.Top()), shifted(merge.Bottom()));
    });
}

void MergedCells::RemoveRows(std::uint32_t row, std::uint32_t count) {
    const std::uint64_t end = std::uint64_t{row} + count;
    // The number of the first row at or after `at` that stays, as it is numbered afterwards.
    const auto shifted = [=](std::uint64_t at) {
        return static_cast<std::uint32_t>(at < row ? at : at < end ? row : at - count);
    };
    ShiftAll([=](const CGXRange& merge) -> CGXRange {
        const std::uint32_t top = shifted(merge.Top());
        const std::uint32_t below = shifted(std::uint64_t{merge.Bottom()} + 1);
        const bool isOneCell = below == top + 1 && merge.Left() == merge.Right();
        return below == top || isOneCell ? CGXRange{} : WithRows(merge, top, below - 1);
    });
}

std::size_t MergedCells::Count() const { return All().size(); }

std::vector<CGXRange> MergedCells::All() const {
    std::vector<CGXRange> all;
    for (const auto& [col, column] : columns_) {
        const auto beginsHere = [at = col](const CGXRange& merge) { return merge.Left() == at; };
        std::copy_if(column.begin(), column.end(), std::back_inserter(all), beginsHere);
    }
    return all;
}

}  // namespace velda
