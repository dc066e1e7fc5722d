#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <unordered_map>
#include <vector>

#include "velda_lib/flat_index.h"
#include "velda_lib/function_ref.h"
#include "velda_util/style/gx_range.h"
#include "velda_util/style/gx_style.h"

namespace velda {

/// What becomes of the attributes that stand at a place already.
enum class StyleMode {
    /// The attributes of the new style win, the others stay.
    Override,
    /// The new style takes the place of the old one.
    Copy,
    /// Only attributes that are not set are taken from the new style.
    ApplyNew,
    /// The attributes that the style sets, to whatever value, are no longer set.
    Remove,
};

/// A part of a table by the ids of its rows and columns. Refers to the ids, so they must outlive it.
class StyleTarget {
public:
    using Ids = std::span<const std::uint32_t>;
    enum class Kind { Table, Columns, Rows, Cells };

    /// The standard style, beneath all others.
    static StyleTarget Table() { return {Kind::Table, {}, {}}; }
    static StyleTarget Columns(Ids colIds) { return {Kind::Columns, {}, colIds}; }
    static StyleTarget Rows(Ids rowIds) { return {Kind::Rows, rowIds, {}}; }
    /// Every cell in one of the rows and one of the columns.
    static StyleTarget Cells(Ids rowIds, Ids colIds) { return {Kind::Cells, rowIds, colIds}; }

    Kind GetKind() const { return kind_; }
    Ids RowIds() const { return rowIds_; }
    Ids ColIds() const { return colIds_; }

private:
    StyleTarget(Kind kind, Ids rowIds, Ids colIds) : kind_(kind), rowIds_(rowIds), colIds_(colIds) {}

    Kind kind_;
    Ids rowIds_;
    Ids colIds_;
};

/// How much a style sheet holds, for tests and for the memory report.
struct StyleCounts {
    std::size_t columns = 0;
    /// Rows that have a style of their own or cells with one.
    std::size_t rows = 0;
    /// Different sets of row and cell styles among these rows.
    std::size_t rowPatterns = 0;
    std::size_t headerCells = 0;
    /// Resolved styles kept for drawing.
    std::size_t resolved = 0;
};

/// The styles of a table: standard style < column < row < cell. Rows and columns go by their ids, so that their moving,
/// hiding and sorting costs nothing here. What a row's own and its cells' styles are is kept once for all rows that are
/// alike (a row pattern); a resolved style is computed once for each pattern and column.
/// Ids out of range (a column from kMaxColumns, the row kNoRow) throw std::invalid_argument.
class StyleSheet {
public:
    static constexpr std::uint32_t kNoRow = 0xFFFFFFFFu;

    StyleSheet() = default;
    StyleSheet(const StyleSheet&) = delete;
    StyleSheet& operator=(const StyleSheet&) = delete;

    /// Applies a style to a part of the table. True when this changed anything.
    bool SetStyleRange(const StyleTarget& target, const CGXStyle& style, StyleMode mode = StyleMode::Override);
    bool SetCellStyle(std::uint32_t rowId, std::uint32_t colId, const CGXStyle& style,
                      StyleMode mode = StyleMode::Override);
    bool ChangeStandardStyle(const CGXStyle& style, StyleMode mode = StyleMode::Override);
    /// The style of all header cells, above the standard style and beneath the styles of single header cells.
    bool ChangeHeaderStyle(const CGXStyle& style, StyleMode mode = StyleMode::Override);
    bool SetHeaderCellStyle(std::uint32_t headerRow, std::uint32_t colId, const CGXStyle& style,
                            StyleMode mode = StyleMode::Override);

    /// The style a cell is drawn with. Valid until the sheet is changed.
    const CGXStyle& Resolve(std::uint32_t rowId, std::uint32_t colId) const;
    const CGXStyle& ResolveHeader(std::uint32_t headerRow, std::uint32_t colId) const;

    /// What was set at one place itself; an empty style when nothing was.
    const CGXStyle& StandardStyle() const { return standard_; }
    const CGXStyle& HeaderStyle() const { return header_; }
    const CGXStyle& ColumnStyle(std::uint32_t colId) const;
    const CGXStyle& RowStyle(std::uint32_t rowId) const;
    const CGXStyle& CellStyle(std::uint32_t rowId, std::uint32_t colId) const;
    const CGXStyle& HeaderCellStyle(std::uint32_t headerRow, std::uint32_t colId) const;

    /// Whether a row has a style of its own, or a cell with one.
    bool HasRowStyle(std::uint32_t rowId) const { return PatternOf(rowId) != 0; }

    /// Drops the styles of a row that is removed, its cells' too.
    void RemoveRow(std::uint32_t rowId);
    /// Drops the styles of all rows and their cells.
    void ClearRows();
    void Clear();

    /// Grows with every change, so that a view can tell whether it has to draw anew.
    std::uint64_t ChangeCount() const { return changes_; }
    StyleCounts Counts() const;

private:
    struct Cell {
        std::uint32_t colId = 0;
        InternedStyle style;
        friend bool operator==(const Cell&, const Cell&) = default;
    };
    struct RowPattern {
        InternedStyle row;
        std::vector<Cell> cells;  // by column id; none with an empty style

        bool IsEmpty() const { return !row.IsSet() && cells.empty(); }
        const CGXStyle& StyleOf(std::uint32_t colId) const;
        void ChangeCell(std::uint32_t colId, const CGXStyle& style, StyleMode mode);
        std::size_t Hash() const;
        friend bool operator==(const RowPattern&, const RowPattern&) = default;
    };
    /// The resolved styles of one row pattern by column id, valid for one state of the standard and column styles.
    struct ResolvedRow {
        std::uint64_t basis = 0;
        std::vector<InternedStyle> styles;
    };
    using Edit = FunctionRef<void(RowPattern&)>;
    class PatternMemo;

    static bool Apply(InternedStyle& own, const CGXStyle& style, StyleMode mode);
    bool ChangeColumns(StyleTarget::Ids colIds, const CGXStyle& style, StyleMode mode);
    bool ChangeRows(StyleTarget::Ids rowIds, Edit edit);
    /// Number of the pattern that `edit` makes of pattern `from`, with a reference; 0 for the empty one.
    std::uint32_t EditedPattern(std::uint32_t from, Edit edit);
    void AddPatternReference(std::uint32_t pattern);
    void ReleasePattern(std::uint32_t pattern);
    std::uint32_t PatternOf(std::uint32_t rowId) const;
    void AssignPattern(std::uint32_t rowId, std::uint32_t pattern);
    const RowPattern& PatternAt(std::uint32_t pattern) const;
    CGXStyle Compose(std::uint32_t pattern, std::uint32_t colId) const;
    bool Changed(bool changed);
    bool BasisChanged(bool changed);

    CGXStyle standard_;
    CGXStyle header_;
    std::vector<InternedStyle> columns_;
    FlatIndex rows_;  // row id + 1 to its pattern
    InternPool<RowPattern> patterns_;
    std::unordered_map<std::uint64_t, InternedStyle> headerCells_;
    mutable std::vector<ResolvedRow> resolved_;  // by pattern; 0 is a row without styles
    mutable std::unordered_map<std::uint64_t, InternedStyle> resolvedHeaders_;
    std::uint64_t basis_ = 1;
    std::uint64_t changes_ = 0;
};

}  // namespace velda
