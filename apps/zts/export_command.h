#pragma once

#include <optional>
#include <string>
#include <vector>

/// What "zts export" is asked for.
struct ExportRequest {
    std::string model;
    /// Mnemonics or titles; none for all tables.
    std::vector<std::string> tables{};
    std::string out{};
};

/// Reads "MODEL [--table KIND]... --out FILE"; nothing when the words are wrong.
std::optional<ExportRequest> ReadExportRequest(const std::vector<std::string>& words);

/// Writes tables of a model file to a spreadsheet or a text file. False, and the reason is told, when it was refused.
bool Export(const ExportRequest& request);
