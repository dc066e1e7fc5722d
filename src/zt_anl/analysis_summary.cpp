#include "zt_anl/analysis_summary.h"

#include <algorithm>
#include <cmath>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"

namespace zt {
namespace {

/// A number as it stands in a line for people, with three places.
std::string NumberText(double value) {
    const double rounded = std::round(value * 1000.0) / 1000.0;
    return velda::FormatDouble(rounded == 0.0 ? 0.0 : rounded);
}

std::string CaseLine(const FrameModel& model, const CaseResult& result) {
    const auto lengthOf = [](const NodeVector& values) { return std::hypot(values[0], values[1], values[2]); };
    const auto greatest =
        std::max_element(result.displacements.begin(), result.displacements.end(),
                         [&](const NodeVector& a, const NodeVector& b) { return lengthOf(a) < lengthOf(b); });
    const FrameNode& node = model.nodes[static_cast<std::size_t>(greatest - result.displacements.begin())];
    const auto kilonewtons = [&](std::size_t axis) { return NumberText(result.reactionSum[axis] / 1000.0); };
    return velda::FormatText("IDS_ANL_SUMMARY_CASE",
                             {result.name, NumberText(lengthOf(*greatest) * 1000.0), velda::FormatLong(node.no),
                              kilonewtons(0), kilonewtons(1), kilonewtons(2)});
}

std::string ModeLine(const ModalResult& modal, std::size_t place) {
    const ModeResult& mode = modal.modes[place];
    const auto percent = [&](std::size_t axis) {
        const double total = modal.totalMass[axis];
        return NumberText(total > 0.0 ? 100.0 * mode.effectiveMass[axis] / total : 0.0);
    };
    return velda::FormatText("IDS_ANL_SUMMARY_MODE", {velda::FormatLong(static_cast<std::int64_t>(place + 1)),
                                                      velda::FormatDouble(std::round(mode.period * 1.0e6) / 1.0e6),
                                                      percent(0), percent(1), percent(2)});
}

}  // namespace

std::vector<std::string> SummaryOf(const AnalysisResult& result) {
    std::vector<std::string> lines;
    for (const CaseResult& loadCase : result.cases) lines.push_back(CaseLine(result.model, loadCase));
    for (std::size_t i = 0; i < result.modal.modes.size(); ++i) lines.push_back(ModeLine(result.modal, i));
    return lines;
}

}  // namespace zt
