#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "velda_util/cells/row_sort.h"

namespace zt {

/// A column of a result table; its field number is its place among the columns, from 1.
struct ResultColumn {
    using Type = velda::ColumnType;

    std::string_view title;  ///< key of its text, or the text itself where it is no key
    Type type = Type::String;
    int unitKind = 0;
    int places = 0;
    bool isHidden = false;   ///< there for the program and not for the user
    bool isPerPart = false;  ///< a record has a cell for each of its parts
    int width = 80;
};

/// A title over several columns.
struct ResultGroup {
    int firstField = 1;
    int lastField = 1;
    std::string_view title;
};

/// All that makes a result table what it is but how its records are read.
struct ResultDeclaration {
    std::string_view name;  ///< of its preferences
    std::span<const ResultColumn> columns;
    std::span<const ResultGroup> groups{};
    int headerHeight = 36;
    /// Fields that the table is sorted by when it opens: the load order, then the object; 0 for none.
    int loadOrderField = 0;
    int objectField = 0;
};

/// The text of a title.
std::string ResultTitle(std::string_view title);

}  // namespace zt
