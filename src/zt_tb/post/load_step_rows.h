#pragma once

#include <map>
#include <set>
#include <span>
#include <vector>

#include "zt_db/post/post_classes.h"
#include "zt_tb/post/load_choice.h"

namespace zt {

/// What a record of a result table is about, besides its object: a load case by its place in the selection, and a step.
struct LoadStepRow {
    std::size_t load = 0;
    int step = 0;
    bool operator==(const LoadStepRow&) const = default;
};

/// Which steps a table counts.
struct StepSettings {
    bool isNonlinear = false;  ///< a table of nonlinear steps
    bool isPushover = false;   ///< a table of pushover steps
    bool allSteps = false;     ///< every step is one of the analysis, none names a stage
    bool listOff = false;      ///< every load case has every step of the list
    int maxStep = 0;           ///< of all pushover cases
};

/// What pushover analyses did.
struct PushoverControl {
    struct Case {
        int increments = 0;          ///< steps of this case
        bool isInitial = false;      ///< it loads the structure before the others
        std::uint32_t previous = 0;  ///< the case that it starts from
    };
    std::vector<std::uint32_t> stageCases{};  ///< the case of each stage behind the last step
    std::map<std::uint32_t, Case> cases{};
};

/// What results tell of pushover analyses; no cases and no stages without.
PushoverControl PushoverControlOf(const CPostDataBase& database);

/// The rows of a selection of load cases and steps. Steps behind the last one name the stages of pushover analyses; a
/// case takes part in those that continue it. Where a case is missing that a stage asks for, the rows end.
std::vector<LoadStepRow> BuildLoadStepRows(const PushoverControl& pushover, std::span<const LoadChoice> loads,
                                           std::span<const std::int16_t> steps, const StepSettings& settings);

/// Those of the steps that at least one pushover case reaches, or that name a stage which continues one. `maxStep` is
/// the number of steps of the longest case.
std::set<int> ReachedSteps(const PushoverControl& pushover, std::span<const std::int16_t> steps, int maxStep);

}  // namespace zt
