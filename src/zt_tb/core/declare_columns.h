#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

#include "velda_lib/number_text.h"
#include "zt_tb/core/table_column.h"

namespace zt {

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

}  // namespace zt
