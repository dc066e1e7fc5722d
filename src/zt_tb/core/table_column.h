#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "velda_lib/function_ref.h"
#include "velda_lib/msg_dll.h"
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

/// One element of a field that is an array, where a declaration takes a field.
template <auto Member, std::size_t I>
struct ElementOf {
    template <class R>
    constexpr auto& operator()(R& record) const {
        return (record.*Member)[I];
    }
};
template <auto Member, std::size_t I>
inline constexpr ElementOf<Member, I> kElementOf{};

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

/// A code of a record and the key of the text that a cell shows for it.
struct CodedText {
    int code;
    std::string_view textKey;
};
/// The text of a code, empty for one that is not in the list; the code of a text without regard to case, -1 for one
/// that is not; the lines of a choice list.
std::string TextOfCode(std::span<const CodedText> codes, int code);
int CodeOfText(std::span<const CodedText> codes, std::string_view text);
std::string LinesOfCodes(std::span<const CodedText> codes);

/// Lines of the check list of flags with these names. It begins with an empty line, by which a check list holds flags.
std::string FlagLines(std::span<const std::string_view> nameKeys);
/// The flags in a cell, one character for each of `count`, '1' set and '0' not. Shorter texts are filled with zeros in
/// front, longer ones are cut: "11" stands for "000011".
std::string ReadFlags(std::string_view text, std::size_t count);

/// Declares the columns of a table: fields go in as member pointers or as elements of them, anything else as a pair of
/// functions.
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
                [](const Table&, const Row& row, CellSink& cell) { cell.Text(std::invoke(Member, row.record)); },
                [](const Table&, std::string_view text, Row& row) { std::invoke(Member, row.record) = text; }, options};
    }
    template <auto Member>
    static Column Double(std::string_view title, Options options = {}) {
        return {
            title, velda::ColumnType::Double,
            [](const Table&, const Row& row, CellSink& cell) { cell.Number(std::invoke(Member, row.record)); },
            [](const Table&, std::string_view text, Row& row) { std::invoke(Member, row.record) = velda::wtof(text); },
            options};
    }
    template <auto Member>
    static Column Long(std::string_view title, Options options = {}) {
        return {title, velda::ColumnType::Long,
                [](const Table&, const Row& row, CellSink& cell) { cell.Long(std::invoke(Member, row.record)); },
                [](const Table&, std::string_view text, Row& row) {
                    using Value = std::remove_cvref_t<decltype(std::invoke(Member, row.record))>;
                    std::invoke(Member, row.record) = static_cast<Value>(velda::wtol(text));
                },
                options};
    }
    /// A flag as a check box; cells that are not "1" stand for 0.
    template <auto Member>
    static Column Check(std::string_view title, Options options = {}) {
        options.control = velda::ControlKind::CheckBox;
        return {title, velda::ColumnType::Long,
                [](const Table&, const Row& row, CellSink& cell) { cell.Long(std::invoke(Member, row.record)); },
                [](const Table&, std::string_view text, Row& row) {
                    std::invoke(Member, row.record) = text == "1" ? 1 : 0;
                },
                options};
    }
    /// The key of a material, section or thickness, which its choice list shows by the name.
    template <auto Member>
    static Column ListedKey(std::string_view title, Options options = {}) {
        return {title, velda::ColumnType::String,
                [](const Table&, const Row& row, CellSink& cell) { cell.Long(std::invoke(Member, row.record)); },
                [](const Table&, std::string_view text, Row& row) {
                    std::invoke(Member, row.record) = static_cast<std::uint32_t>(velda::wtol(text));
                },
                options};
    }
    /// A story by its name.
    template <auto Member>
    static Column Story(std::string_view title, Options options = {}) {
        options.follows = &CTBCommonWnd::ChangesStories;
        return {title, velda::ColumnType::String,
                [](const Table&, const Row& row, CellSink& cell) {
                    cell.Text(CTBCommonWnd::GetStorName(std::invoke(Member, row.record)));
                },
                &ReadName<Member, &CTBCommonWnd::GetStorName, &CTBCommonWnd::GetStorKey>, options};
    }
    /// A static load case by its name.
    template <auto Member>
    static Column LoadCase(std::string_view title, Options options = {}) {
        options.follows = &CTBCommonWnd::ChangesLoadCases;
        options.choices.follow = &CTBCommonWnd::ChangesLoadCases;
        if (!options.choices.set) {
            options.choices.set = [](Table& table, int col) {
                table.SetPartialStldNameColumn(col, CTBCommonWnd::kAllLoadTypes);
            };
        }
        return {title, velda::ColumnType::String,
                [](const Table&, const Row& row, CellSink& cell) {
                    cell.Text(CTBCommonWnd::GetStldName(std::invoke(Member, row.record)));
                },
                &ReadName<Member, &CTBCommonWnd::GetStldName, &CTBCommonWnd::GetStldKey>, options};
    }

    /// The number of a node or member that the record refers to; without a field, of the one under whose key it stands.
    template <ObjectKind Kind, auto Member = nullptr>
    static Column Object(std::string_view title, ObjectRules rules = {}, Options options = {}) {
        return {title,
                velda::ColumnType::Long,
                [](const Table& table, const Row& row, CellSink& cell) {
                    cell.Key(table.GetObjectNo(Kind, ObjectIn<Member>(row)));
                },
                [](const Table& table, std::string_view text, Row& row) {
                    ObjectIn<Member>(row) = table.GetObjectKey(Kind, text);
                },
                options,
                Kind,
                [](const Row& row) { return ObjectIn<Member>(row); },
                rules};
    }
    /// The story of such a node or member; it is not stored.
    template <ObjectKind Kind, auto Member = nullptr>
    static Column StoryOfObject(std::string_view title) {
        Options options{.state = CellState::ReadOnly, .follows = &CTBCommonWnd::ChangesStories};
        options.choices = {[](Table& table, int col) { table.SetStorColumn(col); }, &CTBCommonWnd::ChangesStories};
        return {title, velda::ColumnType::String,
                [](const Table&, const Row& row, CellSink& cell) {
                    cell.Text(CTBCommonWnd::GetStorName(CTBCommonWnd::GetObjectStory(Kind, ObjectIn<Member>(row))));
                },
                nullptr, options};
    }
    /// One of several codes, by its text in a closed list; or in a list that takes any text, of which -1 is stored.
    template <auto Member, const auto& Codes, bool AnyText = false>
    static Column Coded(std::string_view title, Options options = {}) {
        options.choices.set = [](Table& table, int col) {
            const auto cells = velda::CGXRange().SetCols(static_cast<std::uint32_t>(col));
            velda::CGXStyle style = CTBCommonWnd::NameListStyle(LinesOfCodes(Codes));
            if (AnyText) style.SetControl(velda::ControlKind::ComboBox);
            table.SetStyleRange(cells, style);
        };
        return {title, velda::ColumnType::String,
                [](const Table&, const Row& row, CellSink& cell) {
                    cell.Text(TextOfCode(Codes, std::invoke(Member, row.record)));
                },
                [](const Table&, std::string_view text, Row& row) {
                    std::invoke(Member, row.record) = CodeOfText(Codes, text);
                },
                options};
    }
    /// Flags as a text of one character each; a check list offers their names.
    template <auto Member, const auto& Names>
    static Column Flags(std::string_view title, Options options = {}) {
        options.choices.set = [](Table& table, int col) {
            const auto cells = velda::CGXRange().SetCols(static_cast<std::uint32_t>(col));
            table.SetStyleRangeCheckListComboBox(cells, FlagLines(Names));
        };
        return {title, velda::ColumnType::String,
                [](const Table&, const Row& row, CellSink& cell) { cell.Text(std::invoke(Member, row.record)); },
                [](const Table&, std::string_view text, Row& row) {
                    std::invoke(Member, row.record) = ReadFlags(text, std::size(Names));
                },
                options};
    }
    /// Yes or no.
    template <auto Member>
    static Column YesNo(std::string_view title, Options options = {}) {
        options.choices.set = [](Table& table, int col) { table.SetYesNoColumn(col); };
        return {title, velda::ColumnType::String,
                [](const Table&, const Row& row, CellSink& cell) {
                    cell.Text(CTBCommonWnd::GetYesNoName(std::invoke(Member, row.record)));
                },
                [](const Table&, std::string_view text, Row& row) {
                    std::invoke(Member, row.record) = CTBCommonWnd::GetYesNo(text) == 1 ? 1 : 0;
                },
                options};
    }

private:
    template <auto Member>
    static auto& ObjectIn(auto& row) {
        if constexpr (std::is_null_pointer_v<decltype(Member)>) {
            return row.key;
        } else {
            return std::invoke(Member, row.record);
        }
    }
    /// Several records may have one name: a key whose name is the text stays.
    template <auto Member, std::string (*NameOf)(std::uint32_t), std::uint32_t (*KeyOf)(std::string_view)>
    static void ReadName(const Table&, std::string_view text, Row& row) {
        if (NameOf(std::invoke(Member, row.record)) != text) std::invoke(Member, row.record) = KeyOf(text);
    }
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
