#include "zt_tb/post/result_steps.h"

#include <algorithm>

#include "velda_lib/key_text.h"
#include "zt_db/post/post_classes.h"
#include "zt_tb/post/id_range.h"

namespace zt {

using velda::KeyText;

namespace {

constexpr int kNamedSteps = 3;

enum class Stepping { Modes, Pushover };

/// Which steps tabs offer.
struct StepRule {
    IdSet tabs;
    Stepping stepping;
    std::uint32_t mode = 0;
    std::array<std::uint32_t, 2> options{};
    bool isListOff = true;
    bool hasNamedSteps = false;
    int beforeStages = kNamedSteps;  ///< numbers between the last step and the first stage
};

constexpr IdRange kModeTabs[] = {{17, 17}, {47, 47}};
constexpr IdRange kStoryTabs[] = {{39, 39}, {46, 46}};
constexpr IdRange kHingeStateTabs[] = {{101, 102}};
constexpr IdRange kMemberTabs[] = {{93, 99}, {106, 133}};

constexpr StepRule kRules[] = {
    {.tabs = kModeTabs, .stepping = Stepping::Modes, .mode = StepMode::Modes},
    {.tabs = kStoryTabs, .stepping = Stepping::Pushover, .beforeStages = 0},
    {.tabs = kHingeStateTabs,
     .stepping = Stepping::Pushover,
     .mode = StepMode::HingeStates,
     .options = {0, 1},
     .isListOff = false},
    {.tabs = kMemberTabs,
     .stepping = Stepping::Pushover,
     .mode = StepMode::Pushover,
     .options = {3, 0},
     .hasNamedSteps = true},
};

void Add(int number, std::string name, ActiveList<std::int16_t>& list) {
    list.keys.push_back(static_cast<std::int16_t>(number));
    list.names.push_back(std::move(name));
}

void AddModes(const ResultSteps& steps, ActiveList<std::int16_t>& list) {
    list.title = KeyText("IDS_TB_POSTVIEW_Eigenvalue_Mode");
    const std::string mode = KeyText("IDS_TB_POSTVIEW_Mode");
    for (int number = 1; number <= steps.modes; ++number) Add(number, mode + " " + std::to_string(number), list);
}

/// A step without a name of its own is called by its number.
void AddPushover(const ResultSteps& steps, const StepRule& rule, ActiveList<std::int16_t>& list) {
    int number = 0;
    while (number < steps.pushoverSteps) {
        ++number;
        Add(number, std::to_string(number), list);
    }
    for (std::size_t i = 0; rule.hasNamedSteps && i < kNamedSteps; ++i) {
        const bool hasName = i < steps.named.size() && !steps.named[i].empty();
        ++number;
        Add(number, hasName ? steps.named[i] : std::to_string(number), list);
    }
    number = steps.pushoverSteps + rule.beforeStages;
    for (const std::string& stage : steps.stages) Add(++number, stage, list);
}

}  // namespace

ResultSteps StepsOf(const CPostCtrl& control) {
    constexpr int kVariant = 2;
    ResultSteps steps{.modes = CClassPEigv(&control.Database()).GetNumEigv(), .pushoverSteps = control.GetMaxStep_PO()};
    const CClassPoas pushover(&control.Database());
    for (int i = 1; i <= kNamedSteps; ++i) {
        steps.named.push_back(pushover.GetStepName(steps.pushoverSteps, steps.pushoverSteps + i, kVariant, 1));
    }
    control.GetCaseStep_AS(steps.stages);
    return steps;
}

bool GetAllStepForActiveNew(const ResultSteps& steps, int tab, TB_ACTIVE_PARAM& param) {
    const auto* rule = std::find_if(std::begin(kRules), std::end(kRules),
                                    [tab](const StepRule& one) { return Contains(one.tabs, tab); });
    if (rule == std::end(kRules)) {
        param.steps.isOn = false;
        return true;
    }
    param.stepMode = rule->mode;
    param.stepOptions = rule->options;
    if (rule->stepping == Stepping::Modes) {
        AddModes(steps, param.steps);
    } else if (steps.pushoverSteps > 0) {
        AddPushover(steps, *rule, param.steps);
    }
    return rule->isListOff;
}

}  // namespace zt
