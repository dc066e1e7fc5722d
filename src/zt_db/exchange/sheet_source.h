#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "velda_lib/function_ref.h"
#include "zt_db/exchange/exchange_report.h"

namespace zt {

/// How much a workbook or a folder may hold. What exceeds a limit is refused with its number.
struct SheetLimits {
    std::uint64_t fileBytes = std::uint64_t{1} << 30;
    /// Unpacked bytes of all parts that are read, and how many times the packed ones they may be above `freeBytes`.
    std::uint64_t unpackedBytes = std::uint64_t{4} << 30;
    std::uint64_t unpackedRatio = 300;
    std::uint64_t freeBytes = std::uint64_t{32} << 20;
    /// Bytes of all shared texts, and of one cell.
    std::uint64_t textBytes = std::uint64_t{512} << 20;
    std::uint64_t cellBytes = std::uint64_t{1} << 20;
    std::uint32_t sheets = 1000;
    std::uint32_t rows = std::uint32_t{1} << 22;
    std::uint32_t columns = 16384;
};

enum class SheetValueKind { Empty, Number, Text, Check, Fault };

/// What stands in a cell of a sheet. A fault is a formula that failed.
struct SheetValue {
    SheetValueKind kind = SheetValueKind::Empty;
    double number = 0.0;
    std::string text{};  ///< of a number too where it was written as text
};

/// A row that is not empty. Rows count from 1.
struct SheetRow {
    std::uint32_t number = 0;
    std::vector<SheetValue> cells{};
};

/// Takes one row; false ends the reading.
using RowVisitor = velda::FunctionRef<bool(const SheetRow&)>;

/// Sheets of rows, read one by one from a file so that no sheet is held in memory.
class SheetSource {
public:
    virtual ~SheetSource() = default;

    const std::vector<std::string>& Names() const { return names_; }
    /// Visits the rows of a sheet that hold something, from the top. False, with an error in the report, when the sheet
    /// is damaged or exceeds a limit; true also when the visitor ended it.
    virtual bool Read(std::size_t sheet, RowVisitor visit, ExchangeReport& report) = 0;

protected:
    std::vector<std::string> names_;
};

/// Opens an xlsx workbook. Null, with an error in the report, when it is none.
std::unique_ptr<SheetSource> OpenWorkbook(const std::filesystem::path& path, const SheetLimits& limits,
                                          ExchangeReport& report);
/// Opens a folder of CSV files, each of which is a sheet of its name without the ending.
std::unique_ptr<SheetSource> OpenCsvFolder(const std::filesystem::path& folder, const SheetLimits& limits,
                                           ExchangeReport& report);

}  // namespace zt
