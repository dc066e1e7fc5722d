#pragma once

#include <span>
#include <string_view>

#include "zt_db/exchange/exchange_model.h"
#include "zt_db/exchange/table_columns.h"

namespace zt {

/// A sheet of an exchange format: its name, other names that it goes by (separated by "|"), the list of the model that
/// its rows belong to, and its columns.
template <class T>
struct ExchangeTable {
    std::string_view name;
    std::string_view otherNames;
    std::vector<T> ExchangeModel::*list;
    std::span<const Column<T>> columns;
};

}  // namespace zt
