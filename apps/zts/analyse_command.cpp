#include "analyse_command.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <iostream>

#include "open_model.h"
#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "zt_anl/analysis.h"

namespace {

/// A number as it stands in a line for people, with three places.
std::string NumberText(double value) {
    const double rounded = std::round(value * 1000.0) / 1000.0;
    return velda::FormatDouble(rounded == 0.0 ? 0.0 : rounded);
}

void PrintCase(const zt::FrameModel& model, const zt::CaseResult& result) {
    const auto lengthOf = [](const zt::NodeVector& values) { return std::hypot(values[0], values[1], values[2]); };
    const auto greatest =
        std::max_element(result.displacements.begin(), result.displacements.end(),
                         [&](const zt::NodeVector& a, const zt::NodeVector& b) { return lengthOf(a) < lengthOf(b); });
    const zt::FrameNode& node = model.nodes[static_cast<std::size_t>(greatest - result.displacements.begin())];
    const auto kilonewtons = [&](std::size_t axis) { return NumberText(result.reactionSum[axis] / 1000.0); };
    std::cout << velda::FormatText("IDS_ANL_SUMMARY_CASE",
                                   {result.name, NumberText(lengthOf(*greatest) * 1000.0), velda::FormatLong(node.no),
                                    kilonewtons(0), kilonewtons(1), kilonewtons(2)})
              << '\n';
}

void PrintMode(const zt::ModalResult& modal, std::size_t place) {
    const zt::ModeResult& mode = modal.modes[place];
    const auto percent = [&](std::size_t axis) {
        const double total = modal.totalMass[axis];
        return NumberText(total > 0.0 ? 100.0 * mode.effectiveMass[axis] / total : 0.0);
    };
    std::cout << velda::FormatText(
                     "IDS_ANL_SUMMARY_MODE",
                     {velda::FormatLong(static_cast<std::int64_t>(place + 1)),
                      velda::FormatDouble(std::round(mode.period * 1.0e6) / 1.0e6), percent(0), percent(1), percent(2)})
              << '\n';
}

}  // namespace

bool AnalyseModel(const std::string& path) {
    const auto doc = OpenModel(path);
    if (!doc) return false;
    zt::AnalysisResult result;
    zt::AnalysisLog log;
    const auto start = std::chrono::steady_clock::now();
    const zt::CDataBase& database = *doc->GetMDBCtrl()->GetCurrentDB();
    const velda::Outcome outcome = zt::Analyse(database, zt::OptionsOf(database), result, log);
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    std::cout << log.Text();
    if (!outcome) {
        std::cerr << outcome.Reason() << '\n';
        return false;
    }
    std::cout << velda::FormatText("IDS_ANL_TIME", {NumberText(time.count())}) << '\n';
    for (const zt::CaseResult& loadCase : result.cases) PrintCase(result.model, loadCase);
    for (std::size_t i = 0; i < result.modal.modes.size(); ++i) PrintMode(result.modal, i);
    return true;
}
