#pragma once

namespace zt {

/// Which table a document shows: one of the property tables, or a kind of the model table view.
struct TableId {
    bool property = false;
    int kind = 0;
    bool operator==(const TableId&) const = default;
};

}  // namespace zt
