#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "velda_util/list/choice_list.h"
#include "velda_util/style/interned.h"

namespace velda {

/// The lines of a choice list as styles hold them, with the lists that were made of them. The columns come from other
/// attributes, so that a list is made when its columns are first asked for. It is kept as long as any style holds the
/// lines: all cells with the same lines and columns look into one index.
class ChoiceLines {
public:
    ChoiceLines() : ChoiceLines(std::string_view()) {}
    explicit ChoiceLines(std::string_view lines) : lists_(1, ChoiceList(std::string(lines))) {}

    const std::string& Text() const { return lists_.front().Lines(); }
    /// The list by these columns, which count from 0. Throws std::invalid_argument for a negative one.
    ChoiceList ListBy(int keyColumn, int textColumn) const {
        const auto made = std::find_if(lists_.begin(), lists_.end(), [&](const ChoiceList& list) {
            return list.KeyColumn() == keyColumn && list.TextColumn() == textColumn;
        });
        if (made != lists_.end()) return *made;
        return lists_.emplace_back(lists_.front().ByColumns(keyColumn, textColumn));
    }

    friend bool operator==(const ChoiceLines& lines, std::string_view text) { return lines.Text() == text; }

private:
    mutable std::vector<ChoiceList> lists_;  // one for each pair of columns; never empty
};

template <>
struct InternTraits<ChoiceLines> : InternTraits<std::string> {};

using InternedChoiceLines = Interned<ChoiceLines>;

}  // namespace velda
