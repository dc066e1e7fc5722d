#include "analyse_command.h"

#include <chrono>
#include <cmath>
#include <iostream>

#include "open_model.h"
#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "zt_anl/analysis.h"
#include "zt_anl/analysis_summary.h"
#include "zt_anl/store_results.h"
#include "zt_db/post/result_keeper.h"

bool AnalyseModel(const std::string& path) {
    const auto doc = OpenModel(path, zt::OpenMode::Normal);
    if (!doc) return false;
    zt::AnalysisResult result;
    zt::AnalysisLog log;
    const auto start = std::chrono::steady_clock::now();
    const zt::CDataBase& database = *doc->GetMDBCtrl()->GetCurrentDB();
    const velda::Outcome outcome = zt::Analyse(database, zt::OptionsOf(database), result, log);
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    std::cout << log.Text();
    if (!outcome) {
        std::cerr << outcome.Reason() << '\n';
        return false;
    }
    const std::string seconds = velda::FormatDouble(std::round(time.count() * 1000.0) / 1000.0);
    std::cout << velda::FormatText("IDS_ANL_TIME", {seconds}) << '\n';
    for (const std::string& line : zt::SummaryOf(result)) std::cout << line << '\n';
    const velda::Outcome stored = zt::StoreResults(result, *doc);
    if (!stored) std::cerr << stored.Reason() << '\n';
    if (stored) std::cout << velda::FormatText("IDS_ANL_STORED", {doc->GetResults().File().string()}) << '\n';
    return static_cast<bool>(stored);
}
