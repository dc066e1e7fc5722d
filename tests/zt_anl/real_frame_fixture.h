#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "zt_anl/analysis.h"
#include "zt_db/exchange/model_exchange.h"
#include "zt_db/test_support.h"

namespace zt {

using TableRow = std::map<std::string, std::string>;
using TableColumns = std::array<const char*, kFreedoms>;

/// The rows of a table of results, by the names of its columns.
inline std::vector<TableRow> ReadTable(const std::filesystem::path& path) {
    std::ifstream file(path);
    EXPECT_TRUE(file) << path;
    const auto cellsOf = [](const std::string& line) {
        std::vector<std::string> cells;
        std::istringstream stream(line);
        for (std::string cell; std::getline(stream, cell, ',');) {
            if (!cell.empty() && cell.back() == '\r') cell.pop_back();
            cells.push_back(cell);
        }
        return cells;
    };
    std::string line;
    std::getline(file, line);
    const std::vector<std::string> names = cellsOf(line);
    std::vector<TableRow> rows;
    while (std::getline(file, line)) {
        const std::vector<std::string> cells = cellsOf(line);
        auto& row = rows.emplace_back();
        for (std::size_t i = 0; i < cells.size() && i < names.size(); ++i) row[names[i]] = cells[i];
    }
    EXPECT_FALSE(rows.empty()) << path;
    return rows;
}

/// The greatest magnitude of three columns from `first` on.
inline double Greatest(const std::vector<TableRow>& rows, const TableColumns& columns, std::size_t first) {
    double greatest = 0.0;
    for (const TableRow& row : rows) {
        for (std::size_t i = first; i < first + 3; ++i) {
            greatest = std::max(greatest, std::abs(std::stod(row.at(columns[i]))));
        }
    }
    return greatest;
}

/// A real building read from its tables, and its results.
class RealFrameTest : public ModelTest {
protected:
    void Load(const std::string& model) {
        const std::filesystem::path data = std::filesystem::path(ZT_SOURCE_DIR) / "tests/data";
        tables = data / "exchange" / model;
        results = data / "analysis" / model;
        ExchangeReport report;
        ASSERT_TRUE(ImportModel(Db(), tables, {}, report)) << report.Text();
    }
    void Solve() {
        const velda::Outcome outcome = Analyse(Db(), options, result, log);
        ASSERT_TRUE(outcome) << outcome.Reason();
        EXPECT_EQ(log.Warnings(), 0u) << log.Text();
        std::vector<std::uint32_t> keys;
        Records<CClassPont>().GetKeyList(keys);
        for (const std::uint32_t key : keys) {
            T_PONT_D node;
            Records<CClassPont>().Get(key, node);
            placeOfName[node.name.empty() ? std::to_string(node.no) : node.name] = result.model.nodeOfKey.at(key);
        }
    }
    const CaseResult& CaseOf(const std::string& name) const {
        for (const CaseResult& loadCase : result.cases) {
            if (loadCase.name == name) return loadCase;
        }
        throw std::runtime_error("no load case " + name);
    }
    const NodeVector& ReactionOf(const CaseResult& loadCase, const std::string& node) const {
        for (std::size_t s = 0; s < result.model.supports.size(); ++s) {
            if (result.model.supports[s].node == placeOfName.at(node)) return loadCase.reactions[s];
        }
        throw std::runtime_error("no support " + node);
    }

    std::filesystem::path tables;
    std::filesystem::path results;
    std::map<std::string, std::size_t> placeOfName;
    AnalysisOptions options;
    AnalysisResult result;
    AnalysisLog log;
};

}  // namespace zt
