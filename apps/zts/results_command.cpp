#include "results_command.h"

#include <iostream>

#include "open_model.h"
#include "velda_lib/msg_dll.h"
#include "zt_db/post/fingerprint.h"
#include "zt_db/post/result_file.h"
#include "zt_db/post/result_import.h"
#include "zt_db/post/result_keeper.h"

bool ResultsInfo(const std::string& model) {
    const auto doc = OpenModel(model);
    if (!doc) return false;
    std::cout << velda::FormatText("IDS_ZTS_RESULTS_FINGERPRINT",
                                   {zt::FingerprintOf(*doc->GetMDBCtrl()->GetCurrentDB())})
              << '\n';
    velda::Outcome outcome = velda::Outcome::Done();
    const auto file = zt::ResultFile::Open(doc->GetResults().File(), outcome);
    if (!file) {
        std::cerr << outcome.Reason() << '\n';
        return false;
    }
    const zt::ResultHead& head = file->Head();
    std::cout << velda::FormatText("IDS_ZTS_RESULTS_HEAD", {head.run, head.time, head.solver, head.fingerprint})
              << '\n';
    for (const zt::ResultCase& one : file->Cases())
        std::cout << "  " << one.kind << ' ' << one.key << "  " << one.name << '\n';
    for (const std::string& name : file->Names()) {
        const zt::ResultArray array = file->Array(name);
        const std::size_t rows = array ? array.Rows() : file->Keys(name).size();
        std::cout << "  " << name << "  " << rows << " x " << (array ? array.Columns() : 1) << '\n';
    }
    const bool holds = doc->IsExcuted() != 0;
    if (holds) std::cout << velda::FormatText("IDS_ZTS_RESULTS_HOLD", {}) << '\n';
    if (!holds) std::cerr << velda::FormatText("IDS_ZTS_RESULTS_DO_NOT_HOLD", {doc->GetResults().Message()}) << '\n';
    return holds;
}

bool ImportResultTables(const std::string& model, const std::string& folder) {
    const auto doc = OpenModel(model, zt::OpenMode::Normal);
    if (!doc) return false;
    zt::ExchangeReport report;
    const bool done = zt::ImportResults(*doc, folder, report);
    std::cout << report.Text();
    return done;
}
