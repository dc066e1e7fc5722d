#pragma once

#include <filesystem>

#include "zt_db/doc/doc.h"
#include "zt_db/exchange/exchange_report.h"

namespace zt {

/// Reads results of static load cases from plain tables, and makes them the current results of a document as one step.
/// The tables are the CSV files of a folder whose names begin with "results" and hold "displacements", "reactions" or
/// "member_end_forces". Nodes are known by name or number, members by number or by their two nodes, load cases by name.
/// False, with errors in the report, when nothing could be kept.
bool ImportResults(CDBDoc& doc, const std::filesystem::path& folder, ExchangeReport& report);

}  // namespace zt
