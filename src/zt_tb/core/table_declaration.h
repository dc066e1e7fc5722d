#pragma once

#include <string_view>
#include <vector>

#include "velda_util/cells/row_sort.h"
#include "zt_tb/core/table_column.h"

namespace zt {

/// Columns whose cells turn red while the model is traced by one of the checker's modes.
struct TracerMark {
    int mode = 0;
    velda::ColumnId first = 0;
    velda::ColumnId last = 0;
};

/// What a table of one record class is, as data.
template <class Table, class R>
struct TableDeclaration {
    std::string_view name;  ///< under which preferences are kept: "TB" and the mnemonic
    std::vector<TableColumn<Table, R>> columns;
    std::vector<velda::STBSortItem> sort{{0, 0, 0}};
    bool inserts = false;
    bool appends = false;
    /// The property dialog that a double click on a row opens; empty for none.
    std::string_view dialog{};
    std::vector<TracerMark> tracerMarks{};
    /// Default texts behind those of the columns.
    std::vector<std::string_view> moreDefaults{};
    /// What is said behind the title of a column that is missing.
    std::string_view missing = "IDS_TB_has_not_been_entered";
    /// What a row that is read again has from its record before its cells are read: what no cell tells, or not wholly.
    /// Null where the cells tell all.
    void (*keep)(const R& stored, R& record) = nullptr;
};

}  // namespace zt
