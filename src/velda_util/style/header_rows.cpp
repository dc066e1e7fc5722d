#include "velda_util/style/header_rows.h"

#include <algorithm>
#include <stdexcept>

#include "velda_lib/msg_dll.h"

namespace velda {

void HeaderRows::SetRowCount(std::uint32_t rowCount) {
    if (rowCount < 1 || rowCount > kMaxRows) throw std::invalid_argument("a header has one to three rows");
    rowCount_ = rowCount;
    std::erase_if(cells_, [&](const auto& cell) { return cell.first >> 32 >= rowCount_; });
    std::vector<Group> groups = std::move(groups_);
    std::erase_if(groups, [&](const Group& group) { return group.lastRow >= rowCount_; });
    RebuildGroups(std::move(groups));
}

void HeaderRows::SetTitle(std::uint32_t row, std::uint32_t colId, std::string_view title) {
    RequireRow(row);
    cells_[Place(row, colId)].title = title;
}

Outcome HeaderRows::SetGroup(std::uint32_t firstRow, std::uint32_t lastRow, std::span<const std::uint32_t> colIds,
                             std::string_view title) {
    RequireRow(lastRow);
    if (firstRow > lastRow || colIds.empty()) throw std::invalid_argument("a header group needs rows and columns");
    Group group{firstRow, lastRow, {colIds.begin(), colIds.end()}, std::string(title)};
    std::sort(group.colIds.begin(), group.colIds.end());
    group.colIds.erase(std::unique(group.colIds.begin(), group.colIds.end()), group.colIds.end());

    for (std::uint32_t row = firstRow; row <= lastRow; ++row) {
        for (const std::uint32_t colId : group.colIds) {
            const Group* const other = GroupAt(row, colId);
            if (other == nullptr) continue;
            if (other->firstRow != firstRow || other->lastRow != lastRow || other->colIds != group.colIds) {
                return Outcome::Refused(FormatText("IDS_TB_ENGINE_HEADER_GROUP_OVERLAPS", {title, other->title}));
            }
            groups_[*FilledCell(row, colId)->group].title = title;
            return Outcome::Done();
        }
    }
    AddGroup(std::move(group));
    return Outcome::Done();
}

void HeaderRows::Clear() {
    cells_.clear();
    groups_.clear();
}

const std::string& HeaderRows::Text(std::uint32_t row, std::uint32_t colId) const {
    RequireRow(row);
    static const std::string& none = *new std::string;
    const Cell* const cell = SourceOf(row, colId).cell;
    if (cell == nullptr) return none;
    return cell->group ? groups_[*cell->group].title : *cell->title;
}

std::vector<HeaderSpan> HeaderRows::Spans(std::span<const std::uint32_t> colIds) const {
    const std::uint32_t count = static_cast<std::uint32_t>(colIds.size());
    std::vector<HeaderSpan> spans;
    std::vector<std::uint32_t> coveredRows(count, 0);
    for (std::uint32_t row = 0; row < rowCount_; ++row) {
        for (std::uint32_t place = 0; place < count; ++place) {
            if (coveredRows[place] > row) continue;
            const Owner owner = OwnerOf(row, colIds[place]);
            HeaderSpan span{row, row, place, place, Text(row, colIds[place])};
            while (owner.group && span.lastPlace + 1 < count && OwnerOf(row, colIds[span.lastPlace + 1]) == owner) {
                ++span.lastPlace;
            }
            while (span.lastRow + 1 < rowCount_ && OwnerOf(span.lastRow + 1, colIds[place]) == owner) ++span.lastRow;
            std::fill(coveredRows.begin() + span.firstPlace, coveredRows.begin() + span.lastPlace + 1,
                      span.lastRow + 1);
            place = span.lastPlace;
            spans.push_back(std::move(span));
        }
    }
    return spans;
}

void HeaderRows::RequireRow(std::uint32_t row) const {
    if (row >= rowCount_) throw std::invalid_argument("header row out of range");
}

const HeaderRows::Cell* HeaderRows::FilledCell(std::uint32_t row, std::uint32_t colId) const {
    const auto cell = cells_.find(Place(row, colId));
    return cell != cells_.end() ? &cell->second : nullptr;
}

HeaderRows::Source HeaderRows::SourceOf(std::uint32_t row, std::uint32_t colId) const {
    for (std::uint32_t above = row + 1; above-- > 0;) {
        if (const Cell* const cell = FilledCell(above, colId)) return {cell, above};
    }
    for (std::uint32_t below = row + 1; below < rowCount_; ++below) {
        if (const Cell* const cell = FilledCell(below, colId)) return {cell, below};
    }
    return {};
}

HeaderRows::Owner HeaderRows::OwnerOf(std::uint32_t row, std::uint32_t colId) const {
    const Source source = SourceOf(row, colId);
    if (source.cell == nullptr || !source.cell->group) return {{}, source.row};
    const std::uint32_t group = *source.cell->group;
    if (source.row == row || groups_[group].colIds.size() == 1) return {group, 0};
    // Beside a group of several columns no single cell can join it: the cells that take its text stand as a run of
    // their own.
    return {{}, source.row < row ? source.row + 1 : source.row - 1};
}

const HeaderRows::Group* HeaderRows::GroupAt(std::uint32_t row, std::uint32_t colId) const {
    const Cell* const cell = FilledCell(row, colId);
    return cell != nullptr && cell->group ? &groups_[*cell->group] : nullptr;
}

void HeaderRows::RebuildGroups(std::vector<Group> groups) {
    for (auto& [place, cell] : cells_) cell.group.reset();
    std::erase_if(cells_, [](const auto& cell) { return !cell.second.title; });
    groups_.clear();
    for (Group& group : groups) AddGroup(std::move(group));
}

void HeaderRows::AddGroup(Group group) {
    const std::uint32_t number = static_cast<std::uint32_t>(groups_.size());
    for (std::uint32_t row = group.firstRow; row <= group.lastRow; ++row) {
        for (const std::uint32_t colId : group.colIds) cells_[Place(row, colId)].group = number;
    }
    groups_.push_back(std::move(group));
}

}  // namespace velda
