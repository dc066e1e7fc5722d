#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "velda_lib/outcome.h"

namespace velda {

/// The lines of a drop-down list, from the text form "%d\t%s\n" (key and name) or "%s\n" (bare names); the last line
/// may lack its end. Of the tab columns of a line one is the key, which is the value of a cell, and one is the text
/// that is shown. Lines count from 0. Not for several threads at once: the first look-up prepares the next ones. A copy
/// shares the list with its original, so that thousands of cells can hold one; a list never changes once it is made.
/// Where lines repeat a key or a text, the first one counts.
class ChoiceList {
public:
    ChoiceList() : ChoiceList(std::string()) {}
    explicit ChoiceList(std::string lines, int keyColumn = 0, int textColumn = 0);

    /// The same lines by other columns. Both share the text, so that the same thread has to use them.
    ChoiceList ByColumns(int keyColumn, int textColumn) const;

    std::size_t Count() const;
    bool IsEmpty() const { return Count() == 0; }
    /// The text that the list was made from.
    const std::string& Lines() const;
    int KeyColumn() const;
    int TextColumn() const;

    /// Views hold as long as a copy of the list does. All throw std::invalid_argument for a line that does not exist.
    std::string_view Line(std::size_t line) const;
    std::string_view Key(std::size_t line) const;
    /// The shown text; a line without the text column shows its key.
    std::string_view Text(std::size_t line) const;

    std::optional<std::size_t> IndexOfKey(std::string_view key) const;
    /// An equal text, else one that is equal without regard to case.
    std::optional<std::size_t> IndexOfText(std::string_view text) const;
    /// What a cell of this value shows: the text of its line; the value itself where the list does not hold it.
    std::string_view ShownText(std::string_view value) const;

    /// The line that typing leads to: the first from `current` on, and then from the beginning, whose text begins with
    /// what was typed, without regard to case. One character leads past the current line; the same character typed
    /// again goes on to the next line with it, unless a text begins with the repetition. The host decides when typing
    /// begins anew.
    std::optional<std::size_t> IndexOfTyped(std::string_view typed, std::optional<std::size_t> current) const;

    /// Whether the list begins with an empty line: a check list then holds flags, one character for each line behind
    /// the empty one, '1' chosen and '0' not.
    bool HoldsFlags() const;
    /// The value of a check list: its flags, or the texts of the chosen lines, in the order of the list, each once,
    /// joined by ",".
    std::string JoinedText(std::span<const std::size_t> lines) const;
    /// The lines of such a value, ascending; blanks around a text and empty texts do not count. Where a text of the
    /// list holds a comma, the longest text that fits counts. Flags can be read from digits too; digits that are
    /// missing in front are 0. Refused, with `lines` left alone, for a text that is not in the list, and for too many
    /// flags.
    Outcome ReadJoinedText(std::string_view joined, std::vector<std::size_t>& lines) const;

    /// Whether both are copies of one list.
    bool SharesWith(const ChoiceList& other) const { return data_ == other.data_; }
    /// Equal lines by equal columns. Texts are compared only where they are not one and the same.
    friend bool operator==(const ChoiceList& a, const ChoiceList& b);

private:
    struct Source;
    struct Data;
    explicit ChoiceList(std::shared_ptr<const Data> data) : data_(std::move(data)) {}
    std::optional<std::size_t> FirstWithPrefix(std::string_view foldedPrefix, std::size_t from) const;
    /// The longest text of the list that a joined text begins with, and what it takes there.
    struct Chosen {
        std::optional<std::size_t> line;
        std::size_t length = 0;
    };
    Chosen FirstChosen(std::string_view joined, std::size_t longest) const;
    std::size_t LongestText() const;
    Outcome ReadFlags(std::string_view flags, std::vector<std::size_t>& lines) const;

    std::shared_ptr<const Data> data_;
};

}  // namespace velda
