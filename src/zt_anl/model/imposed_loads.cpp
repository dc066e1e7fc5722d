#include "zt_anl/model/imposed_loads.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

#include "zt_anl/solve/freedoms.h"
#include "zt_db/core/record_walk.h"
#include "zt_db/records/sdsp.h"
#include "zt_db/records/temperature.h"

namespace zt {
namespace {

CaseLoads* CaseOf(std::span<CaseLoads> cases, std::uint32_t stld) {
    const auto at =
        std::find_if(cases.begin(), cases.end(), [&](const CaseLoads& loads) { return loads.stld == stld; });
    return at == cases.end() ? nullptr : &*at;
}

/// Whether a link makes a freedom follow that of another node.
bool IsTied(const FrameModel& model, std::size_t node, std::size_t freedom) {
    return std::any_of(model.links.begin(), model.links.end(), [&](const FrameLink& link) {
        return link.isTied[freedom] && std::find(link.slaves.begin(), link.slaves.end(), node) != link.slaves.end();
    });
}

}  // namespace

void ReadTemperatures(const CDataBase& database, const FrameModel& model, std::span<CaseLoads> cases) {
    std::unordered_map<std::uint32_t, std::vector<double>> nodesOfCase;
    const auto nodesOf = [&](std::uint32_t stld) -> std::vector<double>& {
        std::vector<double>& nodes = nodesOfCase[stld];
        nodes.resize(model.nodes.size());
        return nodes;
    };
    // The mean of two nodes with the temperature of the whole structure is that temperature.
    ForEachInOrder<CClassStmp>(database, [&](std::uint32_t, const T_STMP_D& record) {
        for (double& node : nodesOf(record.stld)) node += record.temperature;
    });
    ForEachInOrder<CClassPtmp>(database, [&](std::uint32_t, const T_PTMP_D& record) {
        const auto node = model.nodeOfKey.find(record.node);
        if (node != model.nodeOfKey.end()) nodesOf(record.stld)[node->second] += record.temperature;
    });
    for (CaseLoads& loads : cases) {
        const auto nodes = nodesOfCase.find(loads.stld);
        if (nodes == nodesOfCase.end()) continue;
        for (std::size_t at = 0; at < model.spans.size(); ++at) {
            const FrameSpan& span = model.spans[at];
            const double mean = 0.5 * (nodes->second[span.ends[0]] + nodes->second[span.ends[1]]);
            if (mean * span.thermal != 0.0) loads.spans.push_back({.span = at, .strain = mean * span.thermal});
        }
    }
}

void ReadSupportMoves(const CDataBase& database, const FrameModel& model, std::span<CaseLoads> cases,
                      AnalysisLog& log) {
    ForEachInOrder<CClassSdsp>(database, [&](std::uint32_t, const T_SDSP_D& record) {
        CaseLoads* loads = CaseOf(cases, record.stld);
        const auto node = model.nodeOfKey.find(record.node);
        if (!loads || node == model.nodeOfKey.end()) return;
        const auto support = std::find_if(model.supports.begin(), model.supports.end(),
                                          [&](const FrameSupport& other) { return other.node == node->second; });
        for (std::size_t i = 0; i < std::min(kFreedoms, record.flags.size()); ++i) {
            if (record.flags[i] != '1') continue;
            const bool isHeld = support != model.supports.end() && support->Holds(i) &&
                                !(support->isFixed[i] && IsTied(model, node->second, i));
            if (isHeld) {
                loads->moves.push_back(
                    {static_cast<std::size_t>(support - model.supports.begin()), i, record.value[i]});
            } else {
                log.Warn("IDS_ANL_LOOSE_MOVE", {NumberText(model, node->second), FreedomText(i), loads->name});
            }
        }
    });
}

}  // namespace zt
