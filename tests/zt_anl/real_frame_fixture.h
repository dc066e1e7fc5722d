#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "verification/csv_table.h"
#include "verification/verification_record.h"
#include "zt_anl/analysis.h"
#include "zt_db/exchange/model_exchange.h"
#include "zt_db/test_support.h"

namespace zt {

using TableColumns = std::array<const char*, kFreedoms>;

/// The greatest magnitude of three columns from `first` on.
inline double Greatest(const std::vector<CsvRow>& rows, const TableColumns& columns, std::size_t first) {
    double greatest = 0.0;
    for (const CsvRow& row : rows) {
        for (std::size_t i = first; i < first + 3; ++i) {
            greatest = std::max(greatest, std::abs(NumberOf(row, columns[i])));
        }
    }
    return greatest;
}

/// Real frames against results of others. Those were computed without shear deformation and with lumped masses.
class RealFrames : public ModelTest {
protected:
    using Entries = std::vector<VerificationRecord::Entry>;

    static std::filesystem::path DataFolder() { return std::filesystem::path(ZT_SOURCE_DIR) / "tests/data"; }

    void Load(const std::string& model) {
        results = DataFolder() / "analysis" / model;
        ExchangeReport report;
        frame = DataFolder() / "exchange" / model;
        ASSERT_TRUE(ImportModel(Db(), frame, {}, report)) << report.Text();
        options.shearDeformation = false;
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
    /// The span of a member, which its table knows by a name.
    std::size_t SpanOf(const std::string& member) {
        if (spanOfName.empty()) {
            for (const CsvRow& row : ReadTable(frame / "members.csv")) {
                spanOfName[row.at("member")] =
                    SpanBetween(placeOfName.at(row.at("node_i")), placeOfName.at(row.at("node_j")));
            }
        }
        return spanOfName.at(member);
    }
    std::size_t SpanBetween(std::size_t from, std::size_t to) const {
        for (std::size_t i = 0; i < result.model.spans.size(); ++i) {
            if (result.model.spans[i].ends == std::array{from, to}) return i;
        }
        throw std::runtime_error("no span");
    }
    const CaseResult& CaseOf(const std::string& name) const {
        for (const CaseResult& loadCase : result.cases) {
            if (loadCase.name == name) return loadCase;
        }
        throw std::runtime_error("no load case " + name);
    }
    const NodeVector& ReactionOf(const CaseResult& loadCase, const std::string& node) const {
        return loadCase.reactions[SupportAt(placeOfName.at(node))];
    }
    std::size_t SupportAt(std::size_t node) const {
        for (std::size_t i = 0; i < result.model.supports.size(); ++i) {
            if (result.model.supports[i].node == node) return i;
        }
        throw std::runtime_error("no support");
    }

    std::filesystem::path frame;    ///< folder of the tables of the model
    std::filesystem::path results;  ///< folder of the tables of results
    std::map<std::string, std::size_t> placeOfName;
    std::map<std::string, std::size_t> spanOfName;
    AnalysisOptions options;
    AnalysisResult result;
    AnalysisLog log;
};

}  // namespace zt
