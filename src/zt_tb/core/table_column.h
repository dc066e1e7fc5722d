#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "velda_lib/function_ref.h"
#include "velda_lib/number_text.h"
#include "velda_util/cells/cell_data.h"
#include "velda_util/columns/column_list.h"
#include "velda_util/pref/table_preferences.h"
#include "velda_util/style/gx_style.h"
#include "zt_tb/core/tb_common_wnd.h"

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

/// Whether a change of other records than the table's own touches something.
using ChangeTest = bool (*)(const CViewBuff&);

/// The choice list that a column shows: made as the table is set up, and again with each change that touches it.
template <class Table>
struct ColumnChoices {
    void (*set)(Table&, int col) = nullptr;
    ChangeTest follow = nullptr;  ///< null for a list that stays as it is
};

/// The texts of a row by column identifier, each fetched when it is asked for.
using RowCells = velda::FunctionRef<std::string(velda::ColumnId)>;

/// Which nodes or members a cell takes. The texts of refusals stand under their keys.
struct ObjectRules {
    std::span<const int> types{};   ///< of the members that are taken; empty for all
    std::string_view wrongType{};   ///< refusal of a member of another type
    std::string_view taken{};       ///< refusal of an object that has a record already; empty where several may be
    bool zeroStandsForAll = false;  ///< 0 is entered for all objects; otherwise an object must be named
};

/// What a column has besides its title and its field.
template <class Table>
struct ColumnOptions {
    int unit = 0;
    /// Lengths are shown in the length unit of the model, whatever the current one is.
    bool modelLength = false;
    /// The unit of a column whose numbers do not follow the current units; it stands in the title.
    std::string fixedUnit{};
    CellState state = CellState::Free;
    velda::ControlKind control = velda::ControlKind::Edit;
    bool centered = false;
    bool hidden = false;  ///< by the table; the user does not bring it back
    /// Places of a fixed format; -1 leaves the number as the preferences say.
    int places = -1;
    /// The text of a new row: a text, or the key of one.
    std::string_view defaultText{};
    CellCheck check = CellCheck::ByType;
    /// Whether an empty cell of the row counts as missing; null for every stored column.
    bool (*required)(const Table&, const RowTextsView&) = nullptr;
    /// Whether the check of a row looks at its cell at all; null for always. What is passed over may hold any text.
    bool (*passedOver)(const Table&, const RowTextsView&) = nullptr;
    /// Which changes of other records alter the texts of the column; null for none. The rows are written anew then.
    ChangeTest follows = nullptr;
    ColumnChoices<Table> choices{};
    /// Whether a cell can be entered, by what stands in its row; null where it always can. The check looks at it, too:
    /// what is pasted into a cell that cannot be entered is passed over.
    bool (*enabled)(RowCells) = nullptr;
    /// What an empty cell takes when it can no longer be entered, so that its row can be written.
    std::string_view restText{};
    /// The column that this one follows: when the user gives that one another text, a cell takes what `suggest` makes
    /// of its row.
    velda::ColumnId suggestedBy = velda::kNoColumn;
    std::string (*suggest)(RowCells) = nullptr;
    /// The unit of the number depends on its record, and does not stand in the title.
    bool unitOfRecord = false;
    /// Changes the style of a cell by what stands in its row; null for a column whose cells are alike.
    void (*rowStyle)(const Table&, int row, velda::CGXStyle&) = nullptr;
    /// The check box of the row that is cleared together with this one.
    velda::ColumnId clears = velda::kNoColumn;
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
    /// The node or member that the number in the cell stands for, where it stands for one.
    ObjectKind kind = ObjectKind::None;
    std::uint32_t (*objectKey)(const RecordRow<R>&) = nullptr;
    ObjectRules objects{};
};

/// Default preferences of a column whose table tells none; its places are those that the table prescribes, if any.
inline velda::STBPrefItem UsualPreference(velda::ColumnType type, int places) {
    switch (type) {
        case velda::ColumnType::Long: return {1, 2, 0, 60};
        case velda::ColumnType::Double: return {2, 2, places < 0 ? 4 : places, 120};
        case velda::ColumnType::String: break;
    }
    return {3, 2, 0, 80};
}

}  // namespace zt
