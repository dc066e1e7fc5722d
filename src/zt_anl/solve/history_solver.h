#pragma once

#include "zt_anl/model/dynamic_cases.h"
#include "zt_anl/solve/response_shapes.h"
#include "zt_anl/solve/work_goes.h"

namespace zt {

/// Solves time-history load cases by the modes of a structure. What the modes leave of the response to loads follows
/// these at once, as in a static case.
class HistorySolver {
public:
    /// What is given must outlive the solver; `cases` are the static load cases of the model.
    HistorySolver(const Structure& structure, const Factor& stiffness, const ModalResult& modal,
                  const std::vector<CaseLoads>& cases, std::size_t stations)
        : structure_(structure), stiffness_(stiffness), modal_(modal), cases_(cases), stations_(stations) {}

    /// False when it was stopped.
    bool Solve(const HistoryCase& historyCase, const WorkGoes& goes, HistoryResult& result) const;

private:
    const CaseLoads& LoadsOf(std::uint32_t stld) const;
    std::vector<NodeVector> Remainder(const CaseLoads& loads, const std::vector<NodeVector>& nodal) const;

    const Structure& structure_;
    const Factor& stiffness_;
    const ModalResult& modal_;
    const std::vector<CaseLoads>& cases_;
    std::size_t stations_;
};

}  // namespace zt
