#include "velda_util/list/choice_list.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <stdexcept>
#include <utility>

#include "velda_lib/function_ref.h"
#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "velda_util/text/unicode_text.h"

namespace velda {
namespace {

constexpr char kJoint = ',';

std::vector<std::string_view> SplitLines(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        lines.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

std::optional<std::string_view> TabColumn(std::string_view line, int column) {
    for (; column > 0; --column) {
        const std::size_t tab = line.find('\t');
        if (tab == std::string_view::npos) return std::nullopt;
        line.remove_prefix(tab + 1);
    }
    return line.substr(0, line.find('\t'));
}

/// Lines in the order of one of their texts; equal ones in the order of the list. Made when it is first needed, since
/// most lists are only ever shown.
class LineIndex {
public:
    using TextOf = FunctionRef<std::string_view(std::size_t line)>;

    std::optional<std::size_t> Find(std::string_view text, std::size_t count, TextOf textOf) {
        if (lines_.empty()) Sort(count, textOf);
        const auto at = std::lower_bound(lines_.begin(), lines_.end(), text,
                                         [&](std::uint32_t line, std::string_view t) { return textOf(line) < t; });
        if (at == lines_.end() || textOf(*at) != text) return std::nullopt;
        return *at;
    }

private:
    void Sort(std::size_t count, TextOf textOf) {
        lines_.resize(count);
        std::iota(lines_.begin(), lines_.end(), 0u);
        std::stable_sort(lines_.begin(), lines_.end(),
                         [&](std::uint32_t a, std::uint32_t b) { return textOf(a) < textOf(b); });
    }

    std::vector<std::uint32_t> lines_;
};

/// Whether a text is one character, again and again.
bool RepeatsOneCharacter(std::string_view text) {
    const std::size_t length = FirstCharacterLength(text);
    return text.substr(length) == text.substr(0, text.size() - length);
}

}  // namespace

/// The text of a list, which is the same whatever its columns are.
struct ChoiceList::Source {
    explicit Source(std::string lineText) : text(std::move(lineText)), lines(SplitLines(text)) {}
    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;

    /// Folding leaves every text at its place, so that the folded text of a part stands where the part does.
    std::string_view Folded(std::string_view part) const {
        if (folded.empty()) folded = FoldCase(text);
        return std::string_view(folded).substr(static_cast<std::size_t>(part.data() - text.data()), part.size());
    }

    const std::string text;
    const std::vector<std::string_view> lines;
    mutable std::string folded;
};

struct ChoiceList::Data {
    Data(std::shared_ptr<const Source> from, int keyAt, int textAt)
        : source(std::move(from)), keyColumn(keyAt), textColumn(textAt) {
        if (keyColumn < 0 || textColumn < 0) throw std::invalid_argument("tab column of a choice list");
    }

    std::string_view Line(std::size_t line) const {
        if (line >= source->lines.size()) throw std::invalid_argument("line of a choice list");
        return source->lines[line];
    }
    std::string_view Key(std::size_t line) const { return TabColumn(Line(line), keyColumn).value_or(Line(line)); }
    std::string_view Text(std::size_t line) const { return TabColumn(Line(line), textColumn).value_or(Key(line)); }
    std::string_view FoldedText(std::size_t line) const { return source->Folded(Text(line)); }

    const std::shared_ptr<const Source> source;
    const int keyColumn;
    const int textColumn;
    mutable LineIndex byKey;
    mutable LineIndex byText;
    mutable LineIndex byFoldedText;
};

ChoiceList::ChoiceList(std::string lines, int keyColumn, int textColumn)
    : data_(std::make_shared<const Data>(std::make_shared<const Source>(std::move(lines)), keyColumn, textColumn)) {}

ChoiceList ChoiceList::ByColumns(int keyColumn, int textColumn) const {
    return ChoiceList(std::make_shared<const Data>(data_->source, keyColumn, textColumn));
}

std::size_t ChoiceList::Count() const { return data_->source->lines.size(); }

const std::string& ChoiceList::Lines() const { return data_->source->text; }

int ChoiceList::KeyColumn() const { return data_->keyColumn; }

int ChoiceList::TextColumn() const { return data_->textColumn; }

std::string_view ChoiceList::Line(std::size_t line) const { return data_->Line(line); }

std::string_view ChoiceList::Key(std::size_t line) const { return data_->Key(line); }

std::string_view ChoiceList::Text(std::size_t line) const { return data_->Text(line); }

std::optional<std::size_t> ChoiceList::IndexOfKey(std::string_view key) const {
    return data_->byKey.Find(key, Count(), [&](std::size_t line) { return Key(line); });
}

std::optional<std::size_t> ChoiceList::IndexOfText(std::string_view text) const {
    const auto exact = data_->byText.Find(text, Count(), [&](std::size_t line) { return Text(line); });
    if (exact) return exact;
    return data_->byFoldedText.Find(FoldCase(text), Count(), [&](std::size_t line) { return data_->FoldedText(line); });
}

std::string_view ChoiceList::ShownText(std::string_view value) const {
    const auto line = IndexOfKey(value);
    return line ? Text(*line) : value;
}

std::optional<std::size_t> ChoiceList::FirstWithPrefix(std::string_view foldedPrefix, std::size_t from) const {
    const std::size_t count = Count();
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t line = (from + i) % count;
        if (data_->FoldedText(line).starts_with(foldedPrefix)) return line;
    }
    return std::nullopt;
}

std::optional<std::size_t> ChoiceList::IndexOfTyped(std::string_view typed, std::optional<std::size_t> current) const {
    if (typed.empty()) return std::nullopt;
    const std::string folded = FoldCase(typed);
    const std::size_t behind = current ? *current + 1 : 0;
    const std::size_t first = FirstCharacterLength(folded);
    if (folded.size() > first) {
        const auto line = FirstWithPrefix(folded, current.value_or(0));
        if (line || !RepeatsOneCharacter(folded)) return line;
    }
    return FirstWithPrefix(std::string_view(folded).substr(0, first), behind);
}

bool ChoiceList::HoldsFlags() const { return !IsEmpty() && Line(0).empty(); }

std::string ChoiceList::JoinedText(std::span<const std::size_t> lines) const {
    if (HoldsFlags()) {
        std::string flags(Count() - 1, '0');
        for (const std::size_t line : lines) {
            if (line > 0) flags.at(line - 1) = '1';
        }
        return flags;
    }
    std::vector<std::size_t> chosen(lines.begin(), lines.end());
    std::sort(chosen.begin(), chosen.end());
    chosen.erase(std::unique(chosen.begin(), chosen.end()), chosen.end());
    std::string joined;
    for (const std::size_t line : chosen) {
        if (line != chosen.front()) joined += kJoint;
        joined += Text(line);
    }
    return joined;
}

std::size_t ChoiceList::LongestText() const {
    std::size_t longest = 0;
    for (std::size_t line = 0; line < Count(); ++line) longest = std::max(longest, Text(line).size());
    return longest;
}

ChoiceList::Chosen ChoiceList::FirstChosen(std::string_view joined, std::size_t longest) const {
    Chosen chosen;
    std::size_t end = 0;
    for (std::size_t from = 0; from <= joined.size(); from = end + 1) {
        end = std::min(joined.find(kJoint, from), joined.size());
        const std::string_view text = TrimBlanks(joined.substr(0, end));
        if (text.size() > longest) break;
        if (const auto line = IndexOfText(text)) chosen = {line, end};
    }
    return chosen;
}

Outcome ChoiceList::ReadFlags(std::string_view flags, std::vector<std::size_t>& lines) const {
    const std::size_t count = Count() - 1;
    if (flags.size() > count) return Outcome::Refused(FormatText("IDS_TB_ENGINE_NOT_IN_LIST", {flags}));
    lines.clear();
    for (std::size_t i = 0; i < flags.size(); ++i) {
        if (flags[i] != '0') lines.push_back(count - flags.size() + i + 1);
    }
    return Outcome::Done();
}

Outcome ChoiceList::ReadJoinedText(std::string_view joined, std::vector<std::size_t>& lines) const {
    if (HoldsFlags() && joined.find_first_not_of("0123456789") == std::string_view::npos) {
        return ReadFlags(joined, lines);
    }
    const std::size_t longest = LongestText();
    std::vector<std::size_t> read;
    while (!joined.empty()) {
        std::size_t end = std::min(joined.find(kJoint), joined.size());
        const std::string_view text = TrimBlanks(joined.substr(0, end));
        if (!text.empty()) {
            const Chosen chosen = FirstChosen(joined, longest);
            if (!chosen.line) return Outcome::Refused(FormatText("IDS_TB_ENGINE_NOT_IN_LIST", {text}));
            read.push_back(*chosen.line);
            end = chosen.length;
        }
        joined.remove_prefix(std::min(end + 1, joined.size()));
    }
    std::sort(read.begin(), read.end());
    read.erase(std::unique(read.begin(), read.end()), read.end());
    lines = std::move(read);
    return Outcome::Done();
}

bool operator==(const ChoiceList& a, const ChoiceList& b) {
    if (a.SharesWith(b)) return true;
    const bool sameColumns = a.KeyColumn() == b.KeyColumn() && a.TextColumn() == b.TextColumn();
    return sameColumns && (a.data_->source == b.data_->source || a.Lines() == b.Lines());
}

}  // namespace velda
