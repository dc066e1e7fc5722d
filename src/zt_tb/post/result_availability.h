#pragma once

#include <string_view>

#include "zt_db/post/post_database.h"
#include "zt_tb/post/result_catalogue.h"

namespace zt {

/// Why a table of results has nothing to show: the key of a text for the user; empty when it has something.
std::string_view WhyNothingToShow(const ResultTableEntry& table, const CPostDataBase& results);

}  // namespace zt
