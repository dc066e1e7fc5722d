#pragma once

#include <optional>
#include <string>
#include <vector>

/// What "zts import" is asked for.
struct ImportRequest {
    std::string source;
    std::string out{};
    std::string report{};
};

/// Reads "SOURCE --out MODEL [--report FILE]"; nothing when the words are wrong.
std::optional<ImportRequest> ReadImportRequest(const std::vector<std::string>& words);

/// Makes a model file of a workbook or a folder of tables and writes the report to a file or the standard output.
/// False, and the model file is as it was, when nothing was imported.
bool Import(const ImportRequest& request);

/// What "zts export --as" is asked for: a whole model in an exchange format.
struct ModelExportRequest {
    std::string model;
    std::string out{};
    std::string format{};
};

/// Reads "MODEL --out FILE --as saf|csv"; nothing when the words are wrong.
std::optional<ModelExportRequest> ReadModelExportRequest(const std::vector<std::string>& words);

/// Writes a model file in an exchange format. False, and the reason is told, when it was refused.
bool ExportWholeModel(const ModelExportRequest& request);
