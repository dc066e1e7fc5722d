#pragma once

#include <string>
#include <vector>

#include "zt_db/post/post_ctrl.h"
#include "zt_tb/post/active_param.h"

namespace zt {

/// What results have of steps.
struct ResultSteps {
    int modes = 0;
    int pushoverSteps = 0;              ///< 0 without a pushover analysis
    std::vector<std::string> named{};   ///< the three steps behind the last one that tables of members offer besides
    std::vector<std::string> stages{};  ///< of pushover analyses
};

/// The steps of the stored results.
ResultSteps StepsOf(const CPostCtrl& control);

/// Puts the steps that a tab offers behind those that its section of steps has already, with their mode and options. A
/// tab without steps loses the section. Gives whether every load case has every step; otherwise each has its own.
bool GetAllStepForActiveNew(const ResultSteps& steps, int tab, TB_ACTIVE_PARAM& param);

}  // namespace zt
