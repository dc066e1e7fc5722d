#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zt_db/library/csv_lines.h"
#include "zt_db/library/library_rows.h"

namespace zt {

/// The version of the form of library files that this program reads and that its own tables have.
inline constexpr int kLibraryVersion = 1;

/// What is wrong with a library file, and where: line and column from 1, 0 where the fault has no place.
struct LibraryFault {
    std::string reason{};
    std::size_t line = 0;
    std::size_t column = 0;
};

/// The lines of a library file behind its first one, which names the kind and the version: "zt-library,sections,1".
class LibraryReader {
public:
    explicit LibraryReader(std::string_view bytes) : lines_(bytes) {}

    /// Reads the first line. Empty, with the fault told, when it is not the first line of a library file that this
    /// program can read.
    std::string ReadKind();

    /// Reads the rows. False, with the fault told, at the first that is wrong.
    template <class Row>
    bool ReadRows(std::vector<Row>& rows) {
        if (!ReadTitles(TitlesOf<Row>())) return false;
        while (ReadLine()) {
            Row row;
            if (!ReadRow(row)) return false;
            rows.push_back(std::move(row));
            rowLines_.push_back(lines_.LineNumber());
        }
        return !fault_;
    }

    const LibraryFault& Fault() const { return *fault_; }
    /// The line of each row.
    const std::vector<std::size_t>& RowLines() const { return rowLines_; }

private:
    template <class Row>
    static std::vector<std::string_view> TitlesOf() {
        std::vector<std::string_view> titles;
        std::apply([&](const auto&... column) { (titles.push_back(column.title), ...); }, LibraryTable<Row>::columns);
        return titles;
    }
    template <class Row>
    bool ReadRow(Row& row) {
        std::size_t next = 0;
        return std::apply(
            [&](const auto&... column) { return (ReadValue(next++, column.rule, column.In(row)) && ...); },
            LibraryTable<Row>::columns);
    }

    bool Fail(std::size_t column, std::string reason);
    bool ReadTitles(const std::vector<std::string_view>& wanted);
    bool ReadLine();
    bool ReadValue(std::size_t wanted, ValueRule rule, std::string& value);
    bool ReadValue(std::size_t wanted, ValueRule rule, double& value);

    CsvLines lines_;
    std::vector<std::string_view> values_;
    /// Where each wanted column stands in the file.
    std::vector<std::size_t> places_;
    std::size_t width_ = 0;
    std::vector<std::size_t> rowLines_;
    std::optional<LibraryFault> fault_;
};

}  // namespace zt
