#include "velda_util/style/style_sheet.h"

#include <algorithm>
#include <stdexcept>

namespace velda {
namespace {

void RequireColumn(std::uint32_t colId) {
    if (colId >= kMaxColumns) throw std::invalid_argument("column id out of range");
}

void RequireRow(std::uint32_t rowId) {
    if (rowId == StyleSheet::kNoRow) throw std::invalid_argument("row id out of range");
}

std::uint64_t HeaderPlace(std::uint32_t headerRow, std::uint32_t colId) {
    return std::uint64_t{headerRow} << 32 | colId;
}

CGXStyle Applied(CGXStyle own, const CGXStyle& style, StyleMode mode) {
    switch (mode) {
        case StyleMode::Override: return own.OverrideWith(style);
        case StyleMode::Copy: return style;
        case StyleMode::ApplyNew: return own.FillFrom(style);
        case StyleMode::Remove: return own.RemoveAttributesOf(style);
    }
    return own;
}

bool ApplyTo(CGXStyle& own, const CGXStyle& style, StyleMode mode) {
    CGXStyle applied = Applied(own, style, mode);
    if (applied == own) return false;
    own = std::move(applied);
    return true;
}

template <class Cells>
auto PlaceOf(Cells& cells, std::uint32_t colId) {
    return std::lower_bound(cells.begin(), cells.end(), colId,
                            [](const auto& cell, std::uint32_t id) { return cell.colId < id; });
}

}  // namespace

// Row patterns
// ---------------------------------------------------------------------------------------------------------

const CGXStyle& StyleSheet::RowPattern::StyleOf(std::uint32_t colId) const {
    const auto cell = PlaceOf(cells, colId);
    return cell != cells.end() && cell->colId == colId ? cell->style.Get() : InternedStyle{}.Get();
}

void StyleSheet::RowPattern::ChangeCell(std::uint32_t colId, const CGXStyle& style, StyleMode mode) {
    auto cell = PlaceOf(cells, colId);
    if (cell == cells.end() || cell->colId != colId) cell = cells.insert(cell, Cell{colId, {}});
    Apply(cell->style, style, mode);
    if (!cell->style.IsSet()) cells.erase(cell);
}

std::size_t StyleSheet::RowPattern::Hash() const {
    std::uint64_t hash = row.Id();
    for (const Cell& cell : cells) {
        hash = (hash ^ (std::uint64_t{cell.colId} << 32 | cell.style.Id())) * 0x9E3779B97F4A7C15u;
        hash ^= hash >> 32;
    }
    return static_cast<std::size_t>(hash);
}

/// What an edit made of the patterns it has met, so that it is worked out once for all rows that are alike. Holds both
/// patterns of a pair, or a number set free half-way could come back with another meaning.
class StyleSheet::PatternMemo {
public:
    PatternMemo(StyleSheet& sheet, Edit edit) : sheet_(sheet), edit_(edit) {}
    PatternMemo(const PatternMemo&) = delete;
    PatternMemo& operator=(const PatternMemo&) = delete;
    ~PatternMemo() {
        for (const std::uint32_t pattern : held_) sheet_.ReleasePattern(pattern);
    }

    std::uint32_t Edited(std::uint32_t from) {
        const std::uint32_t known = edited_.Find(from + 1);
        if (known != FlatIndex::kNone) return known;
        const std::uint32_t to = sheet_.EditedPattern(from, edit_);
        held_.push_back(to);
        sheet_.AddPatternReference(from);
        held_.push_back(from);
        edited_.Put(from + 1, to);
        return to;
    }

private:
    StyleSheet& sheet_;
    Edit edit_;
    FlatIndex edited_;
    std::vector<std::uint32_t> held_;
};

// Changes
// --------------------------------------------------------------------------------------------------------------

bool StyleSheet::SetStyleRange(const StyleTarget& target, const CGXStyle& style, StyleMode mode) {
    std::for_each(target.ColIds().begin(), target.ColIds().end(), RequireColumn);
    std::for_each(target.RowIds().begin(), target.RowIds().end(), RequireRow);
    switch (target.GetKind()) {
        case StyleTarget::Kind::Table: return ChangeStandardStyle(style, mode);
        case StyleTarget::Kind::Columns: return ChangeColumns(target.ColIds(), style, mode);
        case StyleTarget::Kind::Rows:
            return ChangeRows(target.RowIds(), [&](RowPattern& pattern) { Apply(pattern.row, style, mode); });
        case StyleTarget::Kind::Cells:
            return ChangeRows(target.RowIds(), [&](RowPattern& pattern) {
                for (const std::uint32_t colId : target.ColIds()) pattern.ChangeCell(colId, style, mode);
            });
    }
    return false;
}

bool StyleSheet::SetCellStyle(std::uint32_t rowId, std::uint32_t colId, const CGXStyle& style, StyleMode mode) {
    return SetStyleRange(StyleTarget::Cells({&rowId, 1}, {&colId, 1}), style, mode);
}

bool StyleSheet::ChangeStandardStyle(const CGXStyle& style, StyleMode mode) {
    return BasisChanged(ApplyTo(standard_, style, mode));
}

bool StyleSheet::ChangeHeaderStyle(const CGXStyle& style, StyleMode mode) {
    return BasisChanged(ApplyTo(header_, style, mode));
}

bool StyleSheet::SetHeaderCellStyle(std::uint32_t headerRow, std::uint32_t colId, const CGXStyle& style,
                                    StyleMode mode) {
    RequireColumn(colId);
    const std::uint64_t place = HeaderPlace(headerRow, colId);
    InternedStyle& own = headerCells_[place];
    const bool changed = Apply(own, style, mode);
    if (!own.IsSet()) headerCells_.erase(place);
    resolvedHeaders_.erase(place);
    return Changed(changed);
}

bool StyleSheet::Apply(InternedStyle& own, const CGXStyle& style, StyleMode mode) {
    const CGXStyle applied = Applied(own.Get(), style, mode);
    InternedStyle changed = applied.IsEmpty() ? InternedStyle{} : InternedStyle(applied);
    if (changed == own) return false;
    own = std::move(changed);
    return true;
}

bool StyleSheet::ChangeColumns(StyleTarget::Ids colIds, const CGXStyle& style, StyleMode mode) {
    bool changed = false;
    for (const std::uint32_t colId : colIds) {
        if (colId >= columns_.size()) columns_.resize(colId + 1);
        changed |= Apply(columns_[colId], style, mode);
    }
    return BasisChanged(changed);
}

bool StyleSheet::ChangeRows(StyleTarget::Ids rowIds, Edit edit) {
    PatternMemo memo(*this, edit);
    bool changed = false;
    for (const std::uint32_t rowId : rowIds) {
        const std::uint32_t from = PatternOf(rowId);
        const std::uint32_t to = memo.Edited(from);
        if (from == to) continue;
        AssignPattern(rowId, to);
        changed = true;
    }
    return Changed(changed);
}

std::uint32_t StyleSheet::EditedPattern(std::uint32_t from, Edit edit) {
    RowPattern pattern = PatternAt(from);
    edit(pattern);
    return pattern.IsEmpty() ? 0 : patterns_.Acquire(pattern);
}

void StyleSheet::AddPatternReference(std::uint32_t pattern) {
    if (pattern != 0) patterns_.AddReference(pattern);
}

void StyleSheet::ReleasePattern(std::uint32_t pattern) {
    if (pattern == 0 || !patterns_.Release(pattern)) return;
    if (pattern < resolved_.size()) resolved_[pattern] = {};
}

std::uint32_t StyleSheet::PatternOf(std::uint32_t rowId) const {
    const std::uint32_t pattern = rows_.Find(rowId + 1);
    return pattern == FlatIndex::kNone ? 0 : pattern;
}

void StyleSheet::AssignPattern(std::uint32_t rowId, std::uint32_t pattern) {
    const std::uint32_t before = PatternOf(rowId);
    AddPatternReference(pattern);
    if (pattern == 0) {
        rows_.Erase(rowId + 1);
    } else {
        rows_.Put(rowId + 1, pattern);
    }
    ReleasePattern(before);
}

void StyleSheet::RemoveRow(std::uint32_t rowId) {
    Changed(PatternOf(rowId) != 0);
    AssignPattern(rowId, 0);
}

void StyleSheet::ClearRows() {
    Changed(rows_.Count() > 0);
    rows_.Clear();
    patterns_.Clear();
    resolved_.clear();
}

void StyleSheet::Clear() {
    ClearRows();
    const bool any = !standard_.IsEmpty() || !header_.IsEmpty() || !columns_.empty() || !headerCells_.empty();
    standard_ = {};
    header_ = {};
    columns_.clear();
    headerCells_.clear();
    BasisChanged(any);
}

bool StyleSheet::Changed(bool changed) {
    if (changed) ++changes_;
    return changed;
}

bool StyleSheet::BasisChanged(bool changed) {
    if (changed) {
        ++basis_;
        resolvedHeaders_.clear();
    }
    return Changed(changed);
}

// Resolution
// -----------------------------------------------------------------------------------------------------------

const CGXStyle& StyleSheet::Resolve(std::uint32_t rowId, std::uint32_t colId) const {
    RequireColumn(colId);
    const std::uint32_t pattern = PatternOf(rowId);
    if (pattern >= resolved_.size()) resolved_.resize(pattern + 1);
    ResolvedRow& row = resolved_[pattern];
    if (row.basis != basis_) row = {basis_, {}};
    if (colId >= row.styles.size()) row.styles.resize(colId + 1);
    InternedStyle& style = row.styles[colId];
    if (!style.IsSet()) style = InternedStyle(Compose(pattern, colId));
    return style.Get();
}

CGXStyle StyleSheet::Compose(std::uint32_t pattern, std::uint32_t colId) const {
    const RowPattern& row = PatternAt(pattern);
    CGXStyle style = standard_;
    style.OverrideWith(ColumnStyle(colId)).OverrideWith(row.row.Get()).OverrideWith(row.StyleOf(colId));
    return style;
}

const CGXStyle& StyleSheet::ResolveHeader(std::uint32_t headerRow, std::uint32_t colId) const {
    RequireColumn(colId);
    InternedStyle& style = resolvedHeaders_[HeaderPlace(headerRow, colId)];
    if (!style.IsSet()) {
        CGXStyle composed = standard_;
        composed.OverrideWith(header_).OverrideWith(HeaderCellStyle(headerRow, colId));
        style = InternedStyle(composed);
    }
    return style.Get();
}

const StyleSheet::RowPattern& StyleSheet::PatternAt(std::uint32_t pattern) const {
    static const RowPattern& none = *new RowPattern;
    return pattern == 0 ? none : patterns_.At(pattern);
}

const CGXStyle& StyleSheet::ColumnStyle(std::uint32_t colId) const {
    return colId < columns_.size() ? columns_[colId].Get() : InternedStyle{}.Get();
}

const CGXStyle& StyleSheet::RowStyle(std::uint32_t rowId) const { return PatternAt(PatternOf(rowId)).row.Get(); }

const CGXStyle& StyleSheet::CellStyle(std::uint32_t rowId, std::uint32_t colId) const {
    return PatternAt(PatternOf(rowId)).StyleOf(colId);
}

const CGXStyle& StyleSheet::HeaderCellStyle(std::uint32_t headerRow, std::uint32_t colId) const {
    const auto cell = headerCells_.find(HeaderPlace(headerRow, colId));
    return cell != headerCells_.end() ? cell->second.Get() : InternedStyle{}.Get();
}

StyleCounts StyleSheet::Counts() const {
    const auto set = [](const std::vector<InternedStyle>& styles) {
        return static_cast<std::size_t>(
            std::count_if(styles.begin(), styles.end(), [](const InternedStyle& style) { return style.IsSet(); }));
    };
    StyleCounts counts{set(columns_), rows_.Count(), patterns_.Count(), headerCells_.size(), resolvedHeaders_.size()};
    for (const ResolvedRow& row : resolved_) {
        if (row.basis == basis_) counts.resolved += set(row.styles);
    }
    return counts;
}

}  // namespace velda
