#include "exchange_commands.h"

#include <algorithm>
#include <fstream>
#include <iostream>
#include <map>

#include "open_model.h"
#include "velda_lib/msg_dll.h"
#include "zt_db/doc/doc.h"
#include "zt_db/exchange/library_lookup.h"
#include "zt_db/exchange/model_exchange.h"

namespace {

/// Reads "WORD --name value ..." into the word, under the empty name, and its options. Nothing when a name is none of
/// `names` or stands twice.
std::optional<std::map<std::string, std::string>> ReadOptions(const std::vector<std::string>& words,
                                                              const std::vector<std::string>& names) {
    if (words.size() % 2 == 0 || words[0].starts_with("--")) return std::nullopt;
    std::map<std::string, std::string> options{{"", words[0]}};
    for (std::size_t i = 1; i < words.size(); i += 2) {
        const bool known = std::find(names.begin(), names.end(), words[i]) != names.end();
        if (!known || !options.emplace(words[i], words[i + 1]).second) return std::nullopt;
    }
    return options;
}

bool WriteReport(const zt::ExchangeReport& report, const std::string& path) {
    if (path.empty()) {
        std::cout << report.Text();
        return true;
    }
    std::ofstream file(path, std::ios::binary);
    file << report.Text();
    file.close();
    if (!file) std::cerr << path << ": " << velda::FormatText("IDS_XCH_REPORT_NOT_WRITTEN", {}) << '\n';
    return static_cast<bool>(file);
}

}  // namespace

std::optional<ImportRequest> ReadImportRequest(const std::vector<std::string>& words) {
    auto options = ReadOptions(words, {"--out", "--report"});
    if (!options || !options->contains("--out")) return std::nullopt;
    return ImportRequest{(*options)[""], (*options)["--out"], (*options)["--report"]};
}

bool Import(const ImportRequest& request) {
    const auto doc = zt::CDBDoc::New();
    zt::ExchangeReport report;
    bool done = zt::ImportModel(*doc->GetMDBCtrl()->GetCurrentDB(), request.source,
                                {.lookup = &zt::CompleteFromLibrary}, report);
    const bool told = WriteReport(report, request.report);
    if (done) {
        const velda::Outcome saved = doc->SaveAs(request.out);
        if (!saved) std::cerr << saved.Reason() << '\n';
        done = static_cast<bool>(saved);
    }
    if (!done) std::cerr << velda::FormatText("IDS_ZTS_NOTHING_IMPORTED", {}) << '\n';
    return done && told;
}

std::optional<ModelExportRequest> ReadModelExportRequest(const std::vector<std::string>& words) {
    auto options = ReadOptions(words, {"--out", "--as"});
    if (!options || !options->contains("--out")) return std::nullopt;
    const std::string format = (*options)["--as"];
    if (format != "saf" && format != "csv") return std::nullopt;
    return ModelExportRequest{(*options)[""], (*options)["--out"], format};
}

bool ExportWholeModel(const ModelExportRequest& request) {
    const auto doc = OpenModel(request.model);
    if (!doc) return false;
    const auto format = request.format == "saf" ? zt::ExchangeFormat::Saf : zt::ExchangeFormat::Csv;
    zt::ExchangeReport report;
    const velda::Outcome done = zt::ExportModel(*doc->GetMDBCtrl()->GetCurrentDB(), request.out, format, {}, report);
    std::cout << report.Text();
    if (!done) std::cerr << done.Reason() << '\n';
    return static_cast<bool>(done);
}
