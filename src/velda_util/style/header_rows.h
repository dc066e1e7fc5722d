#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "velda_lib/outcome.h"

namespace velda {

/// A header cell as it is drawn: rows of the header, places in the order of the columns, the text.
struct HeaderSpan {
    std::uint32_t firstRow = 0;
    std::uint32_t lastRow = 0;
    std::uint32_t firstPlace = 0;
    std::uint32_t lastPlace = 0;
    std::string text;
    friend bool operator==(const HeaderSpan&, const HeaderSpan&) = default;
};

/// The header of a table: one to three rows with a title for each row and column id, and groups that lay one title over
/// several cells. Rows count from 0. Rows out of range throw std::invalid_argument.
class HeaderRows {
public:
    static constexpr std::uint32_t kMaxRows = 3;

    explicit HeaderRows(std::uint32_t rowCount = 1) { SetRowCount(rowCount); }

    /// What stood in rows that no longer exist goes, with the groups that reached there.
    void SetRowCount(std::uint32_t rowCount);
    std::uint32_t RowCount() const { return rowCount_; }

    /// The empty title is a title, too: nothing falls through there.
    void SetTitle(std::uint32_t row, std::uint32_t colId, std::string_view title);
    /// Lays a title over every cell in the rows and the columns. Refused when one of the cells is in another group; the
    /// same cells again give their group another title.
    Outcome SetGroup(std::uint32_t firstRow, std::uint32_t lastRow, std::span<const std::uint32_t> colIds,
                     std::string_view title);
    void Clear();

    /// Text of a header cell: that of its group, else its own, else that of the nearest cell above in its column that
    /// has one, else of the nearest below.
    const std::string& Text(std::uint32_t row, std::uint32_t colId) const;
    /// The name of a column: the text of its lowest cell.
    const std::string& ColumnTitle(std::uint32_t colId) const { return Text(rowCount_ - 1, colId); }

    /// The header cells of the given columns, which are those that are shown, in their order. Every cell is in exactly
    /// one span. A group whose columns are no longer neighbours gives a span for each piece; a cell without a title
    /// joins the cell of its column whose text it takes.
    std::vector<HeaderSpan> Spans(std::span<const std::uint32_t> colIds) const;

private:
    struct Group {
        std::uint32_t firstRow = 0;
        std::uint32_t lastRow = 0;
        std::vector<std::uint32_t> colIds;  // sorted
        std::string title;
    };
    struct Cell {
        std::optional<std::string> title;
        std::optional<std::uint32_t> group;
    };
    struct Source {
        const Cell* cell = nullptr;
        std::uint32_t row = 0;
    };
    /// What a cell belongs to: a group, or the run of cells of its column that begins or ends in a row.
    struct Owner {
        std::optional<std::uint32_t> group;
        std::uint32_t row = 0;
        friend bool operator==(const Owner&, const Owner&) = default;
    };

    static std::uint64_t Place(std::uint32_t row, std::uint32_t colId) { return std::uint64_t{row} << 32 | colId; }
    void RequireRow(std::uint32_t row) const;
    const Cell* FilledCell(std::uint32_t row, std::uint32_t colId) const;
    Source SourceOf(std::uint32_t row, std::uint32_t colId) const;
    Owner OwnerOf(std::uint32_t row, std::uint32_t colId) const;
    const Group* GroupAt(std::uint32_t row, std::uint32_t colId) const;
    void RebuildGroups(std::vector<Group> groups);
    void AddGroup(Group group);

    std::uint32_t rowCount_ = 1;
    std::unordered_map<std::uint64_t, Cell> cells_;
    std::vector<Group> groups_;
};

}  // namespace velda
