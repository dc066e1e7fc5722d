#include "zt_tb/post/load_step_rows.h"

namespace zt {
namespace {

enum class StageMatch { Yes, No, Missing };

/// Whether a case takes part in the stage that a step behind the last one names.
StageMatch MatchStage(const PushoverControl& pushover, const PushoverControl::Case* found, int stage) {
    if (!found) return StageMatch::Missing;
    const bool exists = stage >= 0 && stage < static_cast<int>(pushover.stageCases.size());
    if (found->isInitial || !exists) return StageMatch::No;
    return pushover.stageCases[static_cast<std::size_t>(stage)] == found->previous ? StageMatch::Yes : StageMatch::No;
}

/// Adds the rows of a pushover case; false when it is missing where it is needed.
bool AddPushoverRows(const PushoverControl& pushover, std::uint32_t key, std::size_t load,
                     std::span<const std::int16_t> steps, const StepSettings& settings,
                     std::vector<LoadStepRow>& rows) {
    const auto found = pushover.cases.find(key);
    const PushoverControl::Case* record = found == pushover.cases.end() ? nullptr : &found->second;
    const int increments = record ? record->increments : 0;
    for (const int step : steps) {
        if (step <= settings.maxStep || settings.allSteps) {
            const bool isBehindCase = step > increments && step < settings.maxStep + 1;
            if (!isBehindCase) rows.push_back({load, step});
            continue;
        }
        const StageMatch match = MatchStage(pushover, record, step - settings.maxStep - 1);
        if (match == StageMatch::Missing) return false;
        if (match == StageMatch::Yes) rows.push_back({load, step});
    }
    return true;
}

}  // namespace

PushoverControl PushoverControlOf(const CPostDataBase& database) {
    PushoverControl pushover;
    const CClassPPolc cases(&database);
    for (const std::uint32_t key : cases.Keys()) {
        pushover.cases[key] = {.increments = cases.GetIncStep(key),
                               .isInitial = cases.IsInitial(key),
                               .previous = cases.GetPrePolcKey(key)};
    }
    T_POAS_D control;
    CClassPoas(&database).Get(control);
    pushover.stageCases = std::move(control.stages);
    return pushover;
}

std::vector<LoadStepRow> BuildLoadStepRows(const PushoverControl& pushover, std::span<const LoadChoice> loads,
                                           std::span<const std::int16_t> steps, const StepSettings& settings) {
    std::vector<LoadStepRow> rows;
    for (std::size_t load = 0; load < loads.size(); ++load) {
        if (settings.listOff) {
            for (const int step : steps) rows.push_back({load, step});
        } else if (settings.isPushover && loads[load].kind == LoadCaseKind::Pushover) {
            if (!AddPushoverRows(pushover, loads[load].key, load, steps, settings, rows)) return rows;
        } else {
            rows.push_back({load, 0});
        }
    }
    return rows;
}

std::set<int> ReachedSteps(const PushoverControl& pushover, std::span<const std::int16_t> steps, int maxStep) {
    const StepSettings settings{.isPushover = true, .maxStep = maxStep};
    std::vector<LoadChoice> cases;
    for (const auto& [key, run] : pushover.cases) {
        cases.push_back({key, LoadCaseKind::Pushover, LoadCaseSubKind::All});
    }
    std::set<int> reached;
    for (const LoadStepRow& row : BuildLoadStepRows(pushover, cases, steps, settings)) reached.insert(row.step);
    return reached;
}

}  // namespace zt
