#include "export_command.h"

#include <iostream>

#include "desktop/print/pdf_file.h"
#include "open_model.h"
#include "zt_tb/core/table_export.h"
#include "zt_tb/model/open_table.h"

namespace {

using Views = std::vector<std::unique_ptr<zt::CTBView>>;

/// The views of the tables; without names those of all tables. False, with a message, when a table does not exist.
bool OpenTables(const std::vector<std::string>& names, Views& views) {
    const std::vector<std::string_view> existing = zt::ExistingTables();
    std::vector<std::string> wanted = names;
    if (wanted.empty()) wanted.assign(existing.begin(), existing.end());
    for (const std::string& name : wanted) {
        views.push_back(zt::OpenTable(name));
        if (views.back()) continue;
        std::cerr << "there is no table " << name << "; there are";
        for (const std::string_view known : existing) std::cerr << ' ' << known;
        std::cerr << '\n';
        return false;
    }
    return true;
}

velda::Outcome WriteSheets(const Views& views, const std::string& path) {
    velda::CGridExportToExcel exporter;
    for (const auto& view : views) zt::AddTable(exporter, *view, view->GetCurrentTab());
    return exporter.Export(path);
}

velda::Outcome WritePages(const Views& views, const std::string& path) {
    if (views.size() == 1) return zt::WritePdf(*views.front(), path);
    return velda::Outcome::Refused("a PDF file holds one table; name it with --table");
}

}  // namespace

std::optional<ExportRequest> ReadExportRequest(const std::vector<std::string>& words) {
    if (words.empty() || words[0].starts_with("--")) return std::nullopt;
    ExportRequest request{words[0]};
    for (std::size_t i = 1; i < words.size(); i += 2) {
        if (i + 1 == words.size()) return std::nullopt;
        if (words[i] == "--table") {
            request.tables.push_back(words[i + 1]);
        } else if (words[i] == "--out" && request.out.empty()) {
            request.out = words[i + 1];
        } else {
            return std::nullopt;
        }
    }
    return request.out.empty() ? std::nullopt : std::optional(request);
}

bool Export(const ExportRequest& request) {
    const auto doc = OpenModel(request.model);
    if (!doc) return false;
    doc->MakeCurrent();
    Views views;
    if (!OpenTables(request.tables, views)) return false;
    const velda::Outcome outcome =
        request.out.ends_with(".pdf") ? WritePages(views, request.out) : WriteSheets(views, request.out);
    if (!outcome) std::cerr << outcome.Reason() << '\n';
    for (const auto& view : views) view->DisconnectFromDoc();
    return static_cast<bool>(outcome);
}
