#include "velda_util/clip/find_text.h"

#include <algorithm>
#include <cstdint>
#include <stdexcept>

#include "velda_util/clip/text_matcher.h"

namespace velda {
namespace {

/// A walk over all cells of some rows and columns, with one wrap.
class CellWalk {
public:
    CellWalk(int rowCount, std::vector<int> columns, bool forward)
        : rowCount_(rowCount), columns_(std::move(columns)), forward_(forward) {}

    void Start(int row, int column) {
        if (row < 1 || row > rowCount_) {
            row_ = FirstRow();
            index_ = FirstIndex();
            wrapped_ = forward_ ? row > rowCount_ : row < 1;
            return;
        }
        const auto behind = std::upper_bound(columns_.begin(), columns_.end(), forward_ ? column - 1 : column);
        row_ = row;
        index_ = static_cast<int>(behind - columns_.begin()) - (forward_ ? 0 : 1);
        Settle();
    }
    void Next() {
        index_ += forward_ ? 1 : -1;
        Settle();
    }

    std::int64_t CellCount() const { return std::int64_t{rowCount_} * static_cast<std::int64_t>(columns_.size()); }
    int Row() const { return row_; }
    int Column() const { return columns_[static_cast<std::size_t>(index_)]; }
    bool Wrapped() const { return wrapped_; }

private:
    int FirstRow() const { return forward_ ? 1 : rowCount_; }
    int FirstIndex() const { return forward_ ? 0 : static_cast<int>(columns_.size()) - 1; }

    /// Goes on to the next row behind the last column, and to the other end behind the last row.
    void Settle() {
        if (index_ < 0 || index_ >= static_cast<int>(columns_.size())) {
            index_ = FirstIndex();
            row_ += forward_ ? 1 : -1;
        }
        if (row_ >= 1 && row_ <= rowCount_) return;
        row_ = FirstRow();
        wrapped_ = true;
    }

    int rowCount_;
    std::vector<int> columns_;
    bool forward_;
    int row_ = 1;
    int index_ = 0;
    bool wrapped_ = false;
};

std::vector<int> SearchedColumns(const STBFindStruct& settings, const FindArea& area) {
    if (settings.onlyCurrentColumn) return {area.currentColumn};
    std::vector<int> columns;
    for (std::size_t i = 0; i < area.columns.size(); ++i) {
        if (!area.columns[i].hidden) columns.push_back(static_cast<int>(i) + 1);
    }
    return columns;
}

}  // namespace

FindResult FindText(const STBFindStruct& settings, const FindArea& area, CellTextQuery text) {
    return FindText(settings, area, text, [](int) { return true; });
}

FindResult FindText(const STBFindStruct& settings, const FindArea& area, CellTextQuery text, RowQuery mayHold) {
    if (area.currentColumn < 1 || static_cast<std::size_t>(area.currentColumn) > area.columns.size()) {
        throw std::invalid_argument("column to start from");
    }
    CellWalk walk(area.rowCount, SearchedColumns(settings, area), settings.direction != 0);
    const std::int64_t count = settings.text.empty() ? 0 : walk.CellCount();
    if (count <= 0) return {};
    TextMatcher matcher(settings.text, settings.matchCase);
    walk.Start(settings.currentRow, area.currentColumn);
    for (std::int64_t left = count; left > 0;) {
        const int row = walk.Row();
        const bool reads = mayHold(row);
        // On to the next row, or around to this one again when it was entered in its middle.
        do {
            if (reads && matcher.IsIn(text(row, walk.Column()))) return {true, row, walk.Column(), walk.Wrapped()};
            --left;
            walk.Next();
        } while (left > 0 && walk.Row() == row);
    }
    return {};
}

}  // namespace velda
