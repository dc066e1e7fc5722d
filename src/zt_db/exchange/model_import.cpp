#include "velda_lib/msg_dll.h"
#include "zt_db/exchange/csv_import.h"
#include "zt_db/exchange/model_check.h"
#include "zt_db/exchange/model_exchange.h"
#include "zt_db/exchange/model_writer.h"
#include "zt_db/exchange/saf_import.h"

namespace zt {

bool ReadExchange(const std::filesystem::path& source, const ImportOptions& options, ExchangeModel& model,
                  ExchangeReport& report) {
    std::error_code error;
    const bool folder = std::filesystem::is_directory(source, error);
    const auto sheets =
        folder ? OpenCsvFolder(source, options.limits, report) : OpenWorkbook(source, options.limits, report);
    if (!sheets) return false;
    TableContext context{report};
    context.progress = options.progress;
    const bool read = folder ? ReadCsv(*sheets, context, model) : ReadSaf(*sheets, context, model);
    if (context.stopped) report.Add(FindingLevel::Error, {}, "IDS_XCH_STOPPED");
    return read && CheckModel(model, report);
}

bool ImportModel(DB_CDataBase& database, const std::filesystem::path& source, const ImportOptions& options,
                 ExchangeReport& report) {
    ExchangeModel model;
    if (!ReadExchange(source, options, model, report)) return false;
    const std::string step = velda::FormatText("IDS_XCH_STEP_IMPORT", {source.filename().string()});
    return WriteModel(database, model, step, options.lookup, report);
}

}  // namespace zt
