#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zt {

/// A number that a record holds and the text key of what it means.
struct NamedNumber {
    int number;
    std::string_view textKey;
};
using NamedNumbers = std::span<const NamedNumber>;

inline constexpr NamedNumber kYesNo[] = {{1, "IDS_CMD_YES"}, {0, "IDS_CMD_NO"}};

/// The text of a number; the number itself where nothing tells its meaning.
std::string TextOf(NamedNumbers known, int number);
/// All texts, with that of a number that has none of its own.
std::vector<std::string> TextsWith(NamedNumbers known, int number);
/// The number of a text; `before` for one that is not known.
int NumberOf(NamedNumbers known, const std::string& text, int before);

}  // namespace zt
