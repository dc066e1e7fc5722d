#pragma once

#include <filesystem>
#include <memory>

#include "velda_lib/outcome.h"
#include "velda_util/export/sheet.h"

namespace velda {

/// A file that takes sheets one by one, cell by cell in reading order, so that no sheet need be held in memory.
class SheetFile {
public:
    virtual ~SheetFile() = default;

    /// Refused when the file cannot hold a sheet of this size. `name` is allowed and stands once.
    virtual Outcome BeginSheet(const Sheet& sheet, const std::string& name) = 0;
    virtual Outcome WriteCell(std::uint32_t row, std::uint32_t col, const SheetCell& cell) = 0;
    virtual Outcome EndRow() = 0;
    /// Completes the file. Nothing may be called after it.
    virtual Outcome Close() = 0;
};

/// Texts separated by commas are UTF-8 with lines ended by CR LF; several sheets stand below each other with an empty
/// line between them. The rest is chosen.
struct CsvOptions {
    /// The mark by which spreadsheet programs know UTF-8.
    bool byteOrderMark = true;
    /// A line with its name above each sheet.
    bool sheetNames = false;
};

/// Both write to a file that exists and may be overwritten.
std::unique_ptr<SheetFile> NewXlsxFile(const std::filesystem::path& path);
std::unique_ptr<SheetFile> NewCsvFile(const std::filesystem::path& path, const CsvOptions& options);

}  // namespace velda
