#pragma once

#include <filesystem>

#include "velda_lib/outcome.h"
#include "zt_db/core/database.h"
#include "zt_db/exchange/exchange_report.h"
#include "zt_db/exchange/section_shapes.h"
#include "zt_db/exchange/sheet_source.h"
#include "zt_db/exchange/table_reader.h"

namespace zt {

/// What an import is given besides its file.
struct ImportOptions {
    SheetLimits limits{};
    /// Where sections find the values that the file does not give.
    ProfileLookup lookup{};
    ExchangeProgress progress{};
};

/// Reads a file into a model without keeping it: a workbook of the Structural Analysis Format, or a folder of plain
/// tables. False, with errors in the report, when it cannot be used, or when the work was stopped.
bool ReadExchange(const std::filesystem::path& source, const ImportOptions& options, ExchangeModel& model,
                  ExchangeReport& report);

/// Adds what a file holds to a database, as one step of the history. False, with errors in the report and the database
/// as it was, when it cannot be used, or when the work was stopped.
bool ImportModel(DB_CDataBase& database, const std::filesystem::path& source, const ImportOptions& options,
                 ExchangeReport& report);

enum class ExchangeFormat { Saf, Csv };

/// Writes a database as a workbook, or as a new folder of plain tables. What it writes appears whole or not at all.
velda::Outcome ExportModel(const DB_CDataBase& database, const std::filesystem::path& target, ExchangeFormat format,
                           const ExchangeProgress& progress, ExchangeReport& report);

}  // namespace zt
