#pragma once

#include <filesystem>

#include "fuzz_support.h"
#include "zt_db/doc/doc.h"
#include "zt_db/exchange/model_exchange.h"

namespace zt {

/// Imports a file into an empty model: either it comes whole, or nothing does and the report says why.
inline void CheckImport(const std::filesystem::path& source) {
    const auto doc = CDBDoc::New();
    CDataBase& database = *doc->GetMDBCtrl()->GetCurrentDB();
    ImportOptions options;
    options.limits.unpackedBytes = std::uint64_t{16} << 20;
    options.limits.rows = 20'000;
    ExchangeReport report;
    const bool done = ImportModel(database, source, options, report);
    Require(done != report.HasErrors(), "an import is done or has errors");
    Require(database.GetUndoNames().size() == (done ? 1u : 0u), "an import is one step or none");
    for (std::uint16_t i = 0; !done && i < database.ClassCount(); ++i) {
        Require(database.StoreAt(i).Count() == 0, "a refused import leaves nothing");
    }
    Require(!report.Text().empty() || done, "a refusal has a reason");
}

}  // namespace zt
