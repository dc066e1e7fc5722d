#pragma once

#include <algorithm>
#include <span>

namespace zt {

/// Numbers of result tables or of tabs, from one to another, both included. The initial one holds none.
struct IdRange {
    int first = 0;
    int last = -1;

    constexpr bool Holds(int id) const { return first <= id && id <= last; }
    constexpr bool IsEmpty() const { return last < first; }
};
using IdSet = std::span<const IdRange>;

constexpr bool Contains(IdSet ids, int id) {
    return std::any_of(ids.begin(), ids.end(), [id](const IdRange& range) { return range.Holds(id); });
}

}  // namespace zt
