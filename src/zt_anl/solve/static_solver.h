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

    /// Factorises the structure with all its elements and supports. Refused when it can move freely.
    velda::Outcome Prepare();
    /// Solves loads with their own effect of the second order, and holds the axial forces for all that is solved later.
    /// Refused when the structure buckles.
    velda::Outcome HoldAxialForces(const CaseLoads& loads);
    /// Solves one case; `secondOrder` by its own axial forces. What acts in one sense only is left out and taken back,
    /// and the axial forces are followed, until nothing changes.
    CaseResult Solve(const CaseLoads& loads, bool secondOrder = false);

    const Factor& WholeFactor() const { return whole_; }

private:
    static constexpr int kMostRounds = 20;

    /// How the settling of a case ended: well, after too many rounds, or where the structure gives way.
    enum class Settled { Well, TooLate, MovesFreely, Buckles };

    void TellOfLooseLoads(const CaseLoads& loads, const std::vector<NodeVector>& nodal);
    Settled Settle(const CaseLoads& loads, bool secondOrder, CaseResult& result);
    void SolveRound(const Factor& factor, const CaseLoads& loads, CaseResult& result) const;
    void TellUnsettled(Settled how, CaseResult& result);
    std::vector<std::string> BucklingValues(const std::string& name) const;
    Settled FindBuckling(const StructureState& state);
    void PutElementForces(const CaseLoads& loads, CaseResult& result) const;
    void PutStations(const CaseLoads& loads, CaseResult& result) const;
    std::vector<NodeVector> SpringReactions(const CaseLoads& loads, const CaseResult& result) const;
    std::vector<NodeVector> ForcesTaken(const CaseLoads& loads, const CaseResult& result) const;
    void PutReactions(const CaseLoads& loads, CaseResult& result) const;
    void PutSums(const std::vector<NodeVector>& nodal, CaseResult& result);

    Structure& structure_;
    std::size_t stations_;
    AnalysisLog& log_;
    Factor whole_;
    StructureState base_;     ///< at the begin of each case
    NodeFreedom buckling_{};  ///< where the structure buckled last
};

}  // namespace zt
