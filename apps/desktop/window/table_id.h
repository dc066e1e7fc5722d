#pragma once

#include <cstdint>

namespace zt {

/// What of the program shows a table.
enum class TableSort : std::uint8_t { Model, Property, Result };

/// Which table a document shows: a kind of the model table view, one of the property tables, or a table of results.
struct TableId {
    TableSort sort = TableSort::Model;
    int kind = 0;
    bool operator==(const TableId&) const = default;
};

}  // namespace zt
