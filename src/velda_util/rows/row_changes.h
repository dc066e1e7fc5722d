#pragma once

#include <cstdint>
#include <utility>
#include <vector>

namespace velda {

/// What a change of the database means for the rows of a table: keys whose rows leave, keys whose records are written
/// and take their places, and keys that a record gave up for another one.
struct RowChanges {
    struct Rekeyed {
        std::uint32_t from = 0;
        std::uint32_t to = 0;
    };
    std::vector<std::uint32_t> gone{};
    std::vector<std::uint32_t> come{};
    std::vector<Rekeyed> rekeyed{};

    bool IsEmpty() const { return gone.empty() && come.empty(); }
};

}  // namespace velda
