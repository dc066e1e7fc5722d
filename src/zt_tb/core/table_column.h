#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "velda_lib/number_text.h"
#include "velda_util/cells/cell_data.h"
#include "velda_util/columns/column_list.h"
#include "velda_util/pref/table_preferences.h"

namespace zt {

/// A key with its record: what one row of a table shows.
template <class R>
struct RecordRow {
    std::uint32_t key = 0;
    R record{};
};

/// Takes the content of one cell: into the cell store, or as a text.
class CellSink {
public:
    CellSink(velda::CGXData& data, velda::RowId row, velda::ColumnId column, bool numeric)
        : data_(&data), row_(row), column_(column), numeric_(numeric) {}
    explicit CellSink(std::string& text) : text_(&text) {}

    void Text(std::string_view text) {
        if (data_) {
            data_->StoreText(row_, column_, text, numeric_);
        } else {
            *text_ = text;
        }
    }
    /// A number as its "%.15g" text.
    void Number(double value) {
        if (data_ && numeric_) {
            data_->StoreNumber(row_, column_, value);
        } else {
            Text(velda::FormatDouble(value));
        }
    }
    void Long(std::int64_t value) {
        if (data_ && numeric_) {
            data_->StoreNumber(row_, column_, static_cast<double>(value));
        } else {
            Text(velda::FormatLong(value));
        }
    }
    /// A key; 0 is shown as nothing.
    void Key(std::uint32_t key) {
        if (key == 0) {
            Text({});
        } else {
            Long(key);
        }
    }

private:
    velda::CGXData* data_ = nullptr;
    std::string* text_ = nullptr;
    velda::RowId row_ = 0;
    velda::ColumnId column_ = 0;
    bool numeric_ = false;
};

/// Whether a cell can be entered and changed.
enum class CellState { Free, ReadOnly, Disabled };

/// How the text of a cell is checked: as the type of its column says, or in another way.
enum class CellCheck { ByType, Long, Double, None };

/// The widest texts of a row by grid column, with the map from identifiers to them.
struct RowTextsView {
    const std::vector<std::string>& texts;
    const std::vector<int>& columnMap;

    const std::string& operator[](velda::ColumnId id) const {
        return texts.at(static_cast<std::size_t>(columnMap.at(static_cast<std::size_t>(id)) - 1));
    }
};

/// What a column has besides its title and its field.
template <class Table>
struct ColumnOptions {
    int unit = 0;
    CellState state = CellState::Free;
    bool hidden = false;  ///< by the table; the user does not bring it back
    /// Places of a fixed format; -1 leaves the number as the preferences say.
    int places = -1;
    /// The text of a new row: a text, or the key of one.
    std::string_view defaultText{};
    CellCheck check = CellCheck::ByType;
    /// Whether an empty cell of the row counts as missing; null for every stored column.
    bool (*required)(const Table&, const RowTextsView&) = nullptr;
    /// Default preferences; those of the column's type where the type is 0.
    velda::STBPrefItem preference{};
};

/// One column of a table as it is declared: what it is called, and how its cells and the record go into each other.
template <class Table, class R>
struct TableColumn {
    std::string_view title;  ///< key of a text, or the title as it stands
    velda::ColumnType type = velda::ColumnType::String;
    void (*show)(const Table&, const RecordRow<R>&, CellSink&) = nullptr;
    /// Reads a text into the record; null for a column that is never stored.
    void (*read)(const Table&, std::string_view text, RecordRow<R>&) = nullptr;
    ColumnOptions<Table> options{};
};

/// Declares the columns of a table: fields go in as member pointers, anything else as a pair of functions.
template <class Table, class R>
struct Declare {
    using Column = TableColumn<Table, R>;
    using Row = RecordRow<R>;
    using Options = ColumnOptions<Table>;

    /// The key of the record.
    static Column Key(std::string_view title, Options options = {}) {
        return {title, velda::ColumnType::Long, [](const Table&, const Row& row, CellSink& cell) { cell.Key(row.key); },
                [](const Table&, std::string_view text, Row& row) {
                    row.key = static_cast<std::uint32_t>(velda::wtol(text));
                },
                options};
    }
    template <auto Member>
    static Column Text(std::string_view title, Options options = {}) {
        return {title, velda::ColumnType::String,
                [](const Table&, const Row& row, CellSink& cell) { cell.Text(row.record.*Member); },
                [](const Table&, std::string_view text, Row& row) { row.record.*Member = text; }, options};
    }
    template <auto Member>
    static Column Double(std::string_view title, Options options = {}) {
        return {title, velda::ColumnType::Double,
                [](const Table&, const Row& row, CellSink& cell) { cell.Number(row.record.*Member); },
                [](const Table&, std::string_view text, Row& row) { row.record.*Member = velda::wtof(text); }, options};
    }
    template <auto Member>
    static Column Long(std::string_view title, Options options = {}) {
        return {title, velda::ColumnType::Long,
                [](const Table&, const Row& row, CellSink& cell) { cell.Long(row.record.*Member); },
                [](const Table&, std::string_view text, Row& row) {
                    using Value = std::remove_cvref_t<decltype(row.record.*Member)>;
                    row.record.*Member = static_cast<Value>(velda::wtol(text));
                },
                options};
    }
};

/// Default preferences of a column whose table tells none.
inline velda::STBPrefItem UsualPreference(velda::ColumnType type) {
    switch (type) {
        case velda::ColumnType::Long: return {1, 2, 0, 60};
        case velda::ColumnType::Double: return {2, 2, 4, 120};
        case velda::ColumnType::String: break;
    }
    return {3, 2, 0, 80};
}

}  // namespace zt
