#pragma once

#include "velda_lib/outcome.h"
#include "zt_anl/analysis.h"
#include "zt_anl/solve/structure.h"

namespace zt {

/// Solves the static load cases of a structure.
class StaticSolver {
public:
    StaticSolver(Structure& structure, std::size_t stations, AnalysisLog& log)
        : structure_(structure), stations_(stations), log_(log) {}

    /// Factorises the structure with all its elements. Refused when it can move freely.
    velda::Outcome Prepare();
    /// Solves one case. Where members carry tension only, those that are pressed are left out and those that are drawn
    /// are taken back, until nothing changes.
    CaseResult Solve(const CaseLoads& loads);

    const Factor& WholeFactor() const { return whole_; }

private:
    static constexpr int kMostRounds = 20;

    void TellOfLooseLoads(const CaseLoads& loads, const std::vector<NodeVector>& nodal);
    void SettleTension(const CaseLoads& loads, CaseResult& result);
    bool SwitchMembers(const std::vector<NodeVector>& displacements);
    void PutElementForces(const CaseLoads& loads, CaseResult& result) const;
    std::vector<NodeVector> ForcesTaken(const CaseLoads& loads, const CaseResult& result) const;
    void PutReactions(const CaseLoads& loads, CaseResult& result) const;
    void PutSums(const std::vector<NodeVector>& nodal, CaseResult& result);

    Structure& structure_;
    std::size_t stations_;
    AnalysisLog& log_;
    Factor whole_;
    std::vector<std::size_t> tensionOnly_;  ///< spans
    std::vector<bool> isSlack_;             ///< in the same order
};

}  // namespace zt
