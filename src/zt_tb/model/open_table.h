#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "zt_tb/core/tb_view.h"

namespace zt {

/// Opens the view of a table of the current document, with the table in front and all its records. The name is the
/// mnemonic of the table, its title in the current language or the number of its kind. Null for a name without a table.
std::unique_ptr<CTBView> OpenTable(const std::string& name);
/// The mnemonics of the tables that exist, each once: the property tables, then those of the model table view.
std::vector<std::string_view> ExistingTables();

}  // namespace zt
