#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "velda_lib/outcome.h"
#include "velda_util/export/sheet_file.h"
#include "velda_util/grid/tb_grid.h"

namespace velda {

/// Told of the rows that are done, of all; false stops the export. When all are done the file is complete and not yet
/// in its place.
using ExportProgress = std::function<bool(std::uint64_t done, std::uint64_t total)>;

/// Exports tables to a spreadsheet file, a sheet for each, or to a text file with commas. The file appears whole or not
/// at all: what stood in its place stays when the export is refused or stopped.
class CGridExportToExcel {
public:
    /// Adds a grid under the title of its tab. The grid must not change before the export is done.
    void AddGrid(const CTBGrid& grid, std::string title);
    void AddSheet(std::unique_ptr<Sheet> sheet) { sheets_.push_back(std::move(sheet)); }
    void SetProgress(ExportProgress progress) { progress_ = std::move(progress); }
    void SetByteOrderMark(bool mark) { byteOrderMark_ = mark; }

    /// The end of the path says which: ".xlsx" or ".csv". The reason of a refusal names the path.
    Outcome Export(const std::filesystem::path& path);
    Outcome ExportXlsx(const std::filesystem::path& path);
    Outcome ExportCsv(const std::filesystem::path& path);
    /// Whether the last export was stopped by its progress.
    bool WasStopped() const { return stopped_; }

private:
    using MakeFile = std::function<std::unique_ptr<SheetFile>(const std::filesystem::path&)>;

    Outcome Write(const std::filesystem::path& path, const MakeFile& makeFile);
    Outcome WriteSheets(SheetFile& file);
    Outcome WriteSheet(SheetFile& file, const Sheet& sheet);
    Outcome RowDone();
    Outcome Tell();

    std::vector<std::unique_ptr<Sheet>> sheets_;
    ExportProgress progress_;
    bool byteOrderMark_ = true;
    bool stopped_ = false;
    std::uint64_t done_ = 0;
    std::uint64_t total_ = 0;
};

}  // namespace velda
