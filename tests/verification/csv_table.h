#pragma once

#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace zt {

/// A row of a table of results, by the names of its columns.
using CsvRow = std::map<std::string, std::string>;

/// The cells of a line; commas between quotes part nothing.
inline std::vector<std::string> CsvCells(const std::string& line) {
    std::vector<std::string> cells(1);
    bool isQuoted = false;
    for (const char c : line) {
        if (c == '"') {
            isQuoted = !isQuoted;
        } else if (c == ',' && !isQuoted) {
            cells.emplace_back();
        } else if (c != '\r') {
            cells.back() += c;
        }
    }
    return cells;
}

inline std::vector<CsvRow> ReadTable(const std::filesystem::path& path) {
    std::ifstream file(path);
    EXPECT_TRUE(file) << path;
    std::string line;
    std::getline(file, line);
    const std::vector<std::string> names = CsvCells(line);
    std::vector<CsvRow> rows;
    while (std::getline(file, line)) {
        const std::vector<std::string> cells = CsvCells(line);
        auto& row = rows.emplace_back();
        for (std::size_t i = 0; i < cells.size() && i < names.size(); ++i) row[names[i]] = cells[i];
    }
    EXPECT_FALSE(rows.empty()) << path;
    return rows;
}

inline double NumberOf(const CsvRow& row, const std::string& column) { return std::stod(row.at(column)); }

}  // namespace zt
