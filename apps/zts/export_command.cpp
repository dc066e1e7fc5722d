#include "export_command.h"

#include <iostream>

#include "open_model.h"
#include "velda_lib/msg_dll.h"
#include "zt_tb/core/table_export.h"
#include "zt_tb/model/tb_prop_view.h"

namespace {

using Tables = zt::CTBPropView;

/// Tab of a table by its mnemonic or its title; -1 when there is none.
int TabOf(const std::string& name) {
    const auto tables = Tables::Tables();
    for (std::size_t tab = 0; tab < tables.size(); ++tab) {
        if (!tables[tab].make) continue;
        const bool isTitle = name == velda::CMsgDll::pfuncLoadStr(tables[tab].titleKey, 0);
        if (isTitle || name == tables[tab].mnemonic) return static_cast<int>(tab);
    }
    return -1;
}

bool AddTables(velda::CGridExportToExcel& exporter, const zt::CTBView& view, const std::vector<std::string>& names) {
    if (names.empty()) zt::AddAllTables(exporter, view);
    for (const std::string& name : names) {
        const int tab = TabOf(name);
        if (tab < 0) {
            std::cerr << "there is no table " << name << "; there are";
            for (const auto& table : Tables::Tables()) {
                if (table.make) std::cerr << ' ' << table.mnemonic;
            }
            std::cerr << '\n';
            return false;
        }
        zt::AddTable(exporter, view, tab);
    }
    return true;
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
    zt::CTBPropView view;
    view.SetTable(Tables::Tables().front().kind);
    velda::CGridExportToExcel exporter;
    bool done = AddTables(exporter, view, request.tables);
    if (done) {
        const velda::Outcome outcome = exporter.Export(request.out);
        if (!outcome) std::cerr << outcome.Reason() << '\n';
        done = static_cast<bool>(outcome);
    }
    view.DisconnectFromDoc();
    return done;
}
